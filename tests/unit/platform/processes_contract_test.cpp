#include "worlds.h"

namespace tv {
namespace {

constexpr uint32_t kAllRights = kProcessTerminate | kProcessReadMemory | kProcessQuery;

template <typename World> class ProcessesContract : public testing::Test
{
  protected:
    /// Polls until the process has ended; some 30 seconds are enough for any machine.
    uint32_t ExitCodeOf(Process& process)
    {
        uint32_t exitCode = kStillActive;
        for (int turn = 0; turn < 600 && exitCode == kStillActive; ++turn) {
            world.Services().clock.Sleep(50);
            EXPECT_TRUE(process.GetExitCode(exitCode));
        }
        return exitCode;
    }

    World world;
    ProcessService& processes = world.Services().processes;
};

TYPED_TEST_SUITE(ProcessesContract, Worlds);

TYPED_TEST(ProcessesContract, AProgramThatIsMissingDoesNotStart)
{
    uint32_t id = 99;
    EXPECT_EQ(this->processes.Start(u"no_such_program_here.exe", kShowMinimized, id), 2u);
    EXPECT_EQ(id, 0u);
}

TYPED_TEST(ProcessesContract, AStartedProcessRunsUntilItIsTerminated)
{
    uint32_t id = 0;
    ASSERT_EQ(this->processes.Start(this->world.LongRunningCommand(), kShowMinimized, id), 0u);
    ASSERT_NE(id, 0u);
    const std::unique_ptr<Process> process = this->processes.Open(id, kAllRights);
    ASSERT_NE(process, nullptr);
    uint32_t exitCode = 0;
    EXPECT_TRUE(process->GetExitCode(exitCode));
    EXPECT_EQ(exitCode, 259u);
    uint64_t workingSet = 0;
    EXPECT_TRUE(process->GetWorkingSet(workingSet));
    EXPECT_GT(workingSet, 0u);
    EXPECT_TRUE(process->Terminate(255));
    EXPECT_EQ(this->ExitCodeOf(*process), 255u);
}

TYPED_TEST(ProcessesContract, RightsThatWereNotAskedForAreNotThere)
{
    uint32_t id = 0;
    ASSERT_EQ(this->processes.Start(this->world.LongRunningCommand(), kShowHidden, id), 0u);
    const std::unique_ptr<Process> limited = this->processes.Open(id, kProcessQuery);
    ASSERT_NE(limited, nullptr);
    EXPECT_FALSE(limited->Terminate(1));
    const std::unique_ptr<Process> full = this->processes.Open(id, kAllRights);
    ASSERT_NE(full, nullptr);
    EXPECT_TRUE(full->Terminate(7));
    EXPECT_EQ(this->ExitCodeOf(*limited), 7u);
}

TYPED_TEST(ProcessesContract, AnIdThatNobodyHasCantBeOpened)
{
    EXPECT_EQ(this->processes.Open(0xFFFFFFF0u, kAllRights), nullptr);
}

} // namespace
} // namespace tv
