#include "worlds.h"

#include <atomic>

namespace tv {
namespace {

template <typename World> class PipesContract : public testing::Test
{
  protected:
    World world;
    PipeService& pipes = world.Services().pipes;
};

TYPED_TEST_SUITE(PipesContract, Worlds);

TYPED_TEST(PipesContract, APipeWithoutAServerCantBeOpened)
{
    EXPECT_EQ(this->pipes.OpenPipe(this->world.PipeName()), nullptr);
}

TYPED_TEST(PipesContract, AMessageIsAnswered)
{
    this->world.ListenForOneMessage();
    const std::unique_ptr<PipeClient> pipe = this->pipes.OpenPipe(this->world.PipeName());
    ASSERT_NE(pipe, nullptr);
    EXPECT_TRUE(pipe->SetMessageMode());
    const std::vector<uint8_t> message{1, 0, 0, 0, 'a', 0, 0, 0};
    EXPECT_TRUE(pipe->Write(message));
    std::vector<uint8_t> answer(256);
    EXPECT_TRUE(pipe->Read(answer));
    answer.resize(message.size());
    EXPECT_EQ(answer, message);
}

TYPED_TEST(PipesContract, AnAnswerThatIsTooLongFailsTheRead)
{
    this->world.ListenForOneMessage();
    const std::unique_ptr<PipeClient> pipe = this->pipes.OpenPipe(this->world.PipeName());
    ASSERT_NE(pipe, nullptr);
    EXPECT_TRUE(pipe->SetMessageMode());
    EXPECT_TRUE(pipe->Write(std::vector<uint8_t>(300, 7)));
    std::vector<uint8_t> answer(256);
    EXPECT_FALSE(pipe->Read(answer));
    // The rest is taken, so that the server sees its answer delivered.
    (void)pipe->Read(answer);
}

TYPED_TEST(PipesContract, AMutexIsHeldByOneThreadAtATime)
{
    this->world.UseRealThreads();
    std::unique_ptr<NamedMutex> mutex;
    ASSERT_EQ(this->pipes.CreateMutex(u"tv_contract_mutex", mutex), 0u);
    mutex->Acquire();
    std::atomic<bool> hasIt{false};
    const std::unique_ptr<WorkerThread> thread = this->world.Services().threads.StartThread([&] {
        std::unique_ptr<NamedMutex> same;
        ASSERT_EQ(this->pipes.CreateMutex(u"tv_contract_mutex", same), 0u);
        same->Acquire();
        hasIt = true;
        same->Release();
    });
    for (int turn = 0; turn < 20; ++turn) {
        this->world.Services().clock.Sleep(1);
        ASSERT_FALSE(hasIt);
    }
    mutex->Release();
    thread->Join();
    EXPECT_TRUE(hasIt);
}

} // namespace
} // namespace tv
