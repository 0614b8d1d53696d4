#include "support/notification.h"

#include "fakes/platform/fake_platform.h"
#include "interfaces/ids.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <thread>

namespace tv {
namespace {

class NotificationTest : public testing::Test
{
  protected:
    void Listen()
    {
        machine.pipes.Listen(kNotificationPipe, [](std::span<const uint8_t>) { return std::vector<uint8_t>{1}; });
    }

    std::vector<std::string> Notify(std::u16string_view path = u"C:\\a")
    {
        machine.log.Clear();
        NotifyVaultClient(machine.pipes, 1, path);
        return machine.log.Operations();
    }

    static std::u16string PathIn(const std::vector<uint8_t>& message)
    {
        std::u16string path((message.size() - 4) / 2, u'\0');
        std::memcpy(path.data(), message.data() + 4, message.size() - 4);
        return path;
    }

    using Steps = std::vector<std::string>;
    fakes::FakePlatform machine;
};

TEST_F(NotificationTest, AMessageTakesItsTurnAndWaitsForTheAnswer)
{
    Listen();
    EXPECT_EQ(Notify(), (Steps{"pipes.CreateMutex", "mutex.Acquire", "pipes.OpenPipe", "pipe.SetMessageMode",
                               "pipe.Write", "pipe.Read", "pipe.Close", "mutex.Release", "mutex.Close"}));
    EXPECT_EQ(machine.pipes.ReadSizes(), std::vector<size_t>{256});
    EXPECT_EQ(machine.log.SubjectsOf("pipes.CreateMutex"), std::vector<std::u16string>{kNotificationMutex});
}

TEST_F(NotificationTest, TheMessageIsTheKindAndTheTerminatedPath)
{
    Listen();
    Notify(u"C:\\a\u03A9");
    ASSERT_EQ(machine.pipes.Messages().size(), 1u);
    const std::vector<uint8_t> expected{1, 0, 0, 0, 'C', 0, ':', 0, '\\', 0, 'a', 0, 0xA9, 0x03, 0, 0};
    EXPECT_EQ(machine.pipes.Messages().front(), expected);
}

TEST_F(NotificationTest, TheKindIsPassedOn)
{
    Listen();
    NotifyVaultClient(machine.pipes, 0x04030201, u"");
    EXPECT_EQ(machine.pipes.Messages().front(), (std::vector<uint8_t>{1, 2, 3, 4, 0, 0}));
}

TEST_F(NotificationTest, WithoutAServerTheTurnIsGivenBackAndNothingElseHappens)
{
    EXPECT_EQ(Notify(),
              (Steps{"pipes.CreateMutex", "mutex.Acquire", "pipes.OpenPipe", "mutex.Release", "mutex.Close"}));
}

TEST_F(NotificationTest, APathOf300CharactersIsCutTo260WithATerminator)
{
    Listen();
    const std::u16string path = std::u16string(259, u'a') + u'b' + std::u16string(40, u'c');
    ASSERT_EQ(path.size(), 300u);
    Notify(path);
    const std::vector<uint8_t>& message = machine.pipes.Messages().front();
    EXPECT_EQ(message.size(), 526u);
    EXPECT_EQ(PathIn(message), std::u16string(259, u'a') + u'b' + u'\0');
}

TEST_F(NotificationTest, APathOf260CharactersIsWhole)
{
    Listen();
    Notify(std::u16string(260, u'x'));
    EXPECT_EQ(PathIn(machine.pipes.Messages().front()), std::u16string(260, u'x') + u'\0');
}

TEST_F(NotificationTest, AnEmptyPathIsSixBytes)
{
    Listen();
    Notify(u"");
    EXPECT_EQ(machine.pipes.Messages().front(), (std::vector<uint8_t>{1, 0, 0, 0, 0, 0}));
}

TEST_F(NotificationTest, ADeniedMutexIsTriedAgainWithoutDelay)
{
    Listen();
    machine.log.FailNth("pipes.CreateMutex", 1, fakes::Failure::Once, 5);
    machine.log.FailNth("pipes.CreateMutex", 2, fakes::Failure::Once, 5);
    machine.log.FailNth("pipes.CreateMutex", 3, fakes::Failure::Once, 5);
    Notify();
    EXPECT_EQ(machine.log.CountOf("pipes.CreateMutex"), 4u);
    EXPECT_EQ(machine.clock.SleepCount(), 0u);
    EXPECT_EQ(machine.pipes.Messages().size(), 1u);
}

TEST_F(NotificationTest, ADeniedMutexIsTriedAgainWithoutLimit)
{
    constexpr uint32_t kDenials = 1'000;
    Listen();
    for (uint32_t n = 1; n <= kDenials; ++n) {
        machine.log.FailNth("pipes.CreateMutex", n, fakes::Failure::Once, 5);
    }
    Notify();
    EXPECT_EQ(machine.log.CountOf("pipes.CreateMutex"), kDenials + 1);
    EXPECT_EQ(machine.log.CountOf("mutex.Acquire"), 1u);
    EXPECT_EQ(machine.pipes.Messages().size(), 1u);
}

TEST_F(NotificationTest, ADeniedMutexThatFailsOtherwiseNextIsDoneWithout)
{
    Listen();
    machine.log.FailNth("pipes.CreateMutex", 1, fakes::Failure::Once, 5);
    machine.log.FailNth("pipes.CreateMutex", 2, fakes::Failure::Once, 6);
    EXPECT_EQ(Notify(), (Steps{"pipes.CreateMutex", "pipes.CreateMutex", "pipes.OpenPipe", "pipe.SetMessageMode",
                               "pipe.Write", "pipe.Read", "pipe.Close"}));
}

TEST_F(NotificationTest, EveryErrorOfTheMutexButADenialIsDoneWithout)
{
    Listen();
    for (const uint32_t error : {1u, 4u, 6u, 8u, 87u, 183u}) {
        machine.log.StopFailing();
        machine.log.FailNth("pipes.CreateMutex", 1, fakes::Failure::Once, error);
        EXPECT_EQ(Notify(), (Steps{"pipes.CreateMutex", "pipes.OpenPipe", "pipe.SetMessageMode", "pipe.Write",
                                   "pipe.Read", "pipe.Close"}))
            << error;
    }
}

TEST_F(NotificationTest, WithoutMutexAndServerNothingIsLeftToGiveBack)
{
    machine.log.FailNth("pipes.CreateMutex", 1, fakes::Failure::Once, 8);
    EXPECT_EQ(Notify(), (Steps{"pipes.CreateMutex", "pipes.OpenPipe"}));
}

TEST_F(NotificationTest, TheAnswerDoesntMatter)
{
    for (const size_t length : {size_t{0}, size_t{1}, size_t{256}, size_t{257}, size_t{5000}}) {
        machine.pipes.Listen(kNotificationPipe,
                             [=](std::span<const uint8_t>) { return std::vector<uint8_t>(length, 0xFF); });
        EXPECT_EQ(Notify(), (Steps{"pipes.CreateMutex", "mutex.Acquire", "pipes.OpenPipe", "pipe.SetMessageMode",
                                   "pipe.Write", "pipe.Read", "pipe.Close", "mutex.Release", "mutex.Close"}))
            << length;
    }
}

TEST_F(NotificationTest, TheCutMayGoThroughTheMiddleOfACharacter)
{
    Listen();
    Notify(std::u16string(259, u'a') + u"\U0001F600");
    EXPECT_EQ(PathIn(machine.pipes.Messages().front()), std::u16string(259, u'a') + u'\xD83D' + u'\0');
}

TEST_F(NotificationTest, APathOf261CharactersLosesItsLast)
{
    Listen();
    Notify(std::u16string(260, u'x') + u'y');
    EXPECT_EQ(PathIn(machine.pipes.Messages().front()), std::u16string(260, u'x') + u'\0');
}

TEST_F(NotificationTest, EachNotificationTakesATurnOfItsOwn)
{
    Listen();
    machine.log.Clear();
    NotifyVaultClient(machine.pipes, 1, u"a");
    NotifyVaultClient(machine.pipes, 1, u"b");
    EXPECT_EQ(machine.log.CountOf("mutex.Acquire"), 2u);
    EXPECT_EQ(machine.log.CountOf("mutex.Release"), 2u);
    EXPECT_EQ(machine.log.CountOf("mutex.Close"), 2u);
}

TEST_F(NotificationTest, WhileAnotherHasItsTurnTheCallWaits)
{
    Listen();
    machine.threads.SetMode(fakes::ThreadMode::Real);
    std::unique_ptr<NamedMutex> turn;
    ASSERT_EQ(machine.pipes.CreateMutex(kNotificationMutex, turn), 0u);
    turn->Acquire();
    const std::unique_ptr<WorkerThread> thread =
        machine.platform.threads.StartThread([&] { NotifyVaultClient(machine.pipes, 1, u"a"); });
    while (machine.log.CountOf("pipes.CreateMutex") < 2) {
        std::this_thread::yield();
    }
    EXPECT_EQ(machine.log.CountOf("pipes.OpenPipe"), 0u);
    turn->Release();
    thread->Join();
    EXPECT_EQ(machine.pipes.Messages().size(), 1u);
}

TEST_F(NotificationTest, TheCallLastsUntilTheServerAnswers)
{
    std::atomic<bool> isAsked = false;
    std::atomic<bool> mayAnswer = false;
    std::atomic<bool> isOver = false;
    machine.pipes.Listen(kNotificationPipe, [&](std::span<const uint8_t>) {
        isAsked = true;
        while (!mayAnswer) {
            std::this_thread::yield();
        }
        return std::vector<uint8_t>{1};
    });
    machine.threads.SetMode(fakes::ThreadMode::Real);
    const std::unique_ptr<WorkerThread> thread = machine.platform.threads.StartThread([&] {
        NotifyVaultClient(machine.pipes, 1, u"a");
        isOver = true;
    });
    while (!isAsked) {
        std::this_thread::yield();
    }
    EXPECT_FALSE(isOver);
    mayAnswer = true;
    thread->Join();
    EXPECT_TRUE(isOver);
}

TEST_F(NotificationTest, AMutexThatCantBeHadOtherwiseIsDoneWithout)
{
    Listen();
    machine.log.FailNth("pipes.CreateMutex", 1, fakes::Failure::Lasting, 8);
    EXPECT_EQ(Notify(), (Steps{"pipes.CreateMutex", "pipes.OpenPipe", "pipe.SetMessageMode", "pipe.Write", "pipe.Read",
                               "pipe.Close"}));
}

TEST_F(NotificationTest, AFailedModeEndsTheCall)
{
    Listen();
    machine.log.FailNth("pipe.SetMessageMode", 1);
    EXPECT_EQ(Notify(), (Steps{"pipes.CreateMutex", "mutex.Acquire", "pipes.OpenPipe", "pipe.SetMessageMode",
                               "pipe.Close", "mutex.Release", "mutex.Close"}));
}

TEST_F(NotificationTest, AFailedWriteEndsTheCall)
{
    Listen();
    machine.log.FailNth("pipe.Write", 1);
    EXPECT_EQ(Notify(), (Steps{"pipes.CreateMutex", "mutex.Acquire", "pipes.OpenPipe", "pipe.SetMessageMode",
                               "pipe.Write", "pipe.Close", "mutex.Release", "mutex.Close"}));
}

TEST_F(NotificationTest, AFailedReadEndsTheCall)
{
    Listen();
    machine.log.FailNth("pipe.Read", 1);
    EXPECT_EQ(Notify(), (Steps{"pipes.CreateMutex", "mutex.Acquire", "pipes.OpenPipe", "pipe.SetMessageMode",
                               "pipe.Write", "pipe.Read", "pipe.Close", "mutex.Release", "mutex.Close"}));
}

TEST_F(NotificationTest, WhateverFailsNothingIsLeftOpen)
{
    Listen();
    for (uint32_t n = 1;; ++n) {
        ASSERT_LT(n, 20u);
        machine.log.StopFailing();
        machine.log.FailNthOfAll(n, fakes::Failure::Once, 31);
        Notify();
        EXPECT_EQ(machine.log.CountOf("mutex.Acquire"), machine.log.CountOf("mutex.Close")) << n;
        EXPECT_EQ(machine.log.CountOf("mutex.Acquire"), machine.log.CountOf("mutex.Release")) << n;
        EXPECT_EQ(machine.log.CountOf("pipe.Close"), machine.log.CountOf("pipe.SetMessageMode")) << n;
        if (!machine.log.HasFailed()) {
            break;
        }
    }
}

} // namespace
} // namespace tv
