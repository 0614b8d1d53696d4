// What tests of others rely on in the machine in memory.
#include "fakes/platform/fake_platform.h"

#include <gtest/gtest.h>

namespace tv::fakes {
namespace {

TEST(CallLog, FailsTheNthCallOnce)
{
    CallLog log;
    log.FailNth("a", 2, Failure::Once, 31);
    EXPECT_EQ(log.Enter("a"), 0u);
    EXPECT_EQ(log.Enter("b"), 0u);
    EXPECT_FALSE(log.HasFailed());
    EXPECT_EQ(log.Enter("a"), 31u);
    EXPECT_TRUE(log.HasFailed());
    EXPECT_EQ(log.Enter("a"), 0u);
}

TEST(CallLog, FailsFromTheNthCallOn)
{
    CallLog log;
    log.FailNth("a", 2, Failure::Lasting, 31);
    EXPECT_EQ(log.Enter("a"), 0u);
    EXPECT_EQ(log.Enter("a"), 31u);
    EXPECT_EQ(log.Enter("a"), 31u);
    log.StopFailing();
    EXPECT_EQ(log.Enter("a"), 0u);
}

TEST(CallLog, CountsAllOperationsForASweep)
{
    CallLog log;
    log.FailNthOfAll(2);
    EXPECT_EQ(log.Enter("a"), 0u);
    log.Note("not a failing one");
    EXPECT_EQ(log.Enter("b"), 5u);
    EXPECT_EQ(log.Operations(), (std::vector<std::string>{"a", "not a failing one", "b"}));
}

TEST(FakeClock, HappeningsComeAtTheirTimeAndInOrder)
{
    FakePlatform machine;
    std::vector<uint64_t> times;
    const auto note = [&] { times.push_back(machine.clock.Elapsed()); };
    machine.clock.At(2500, note);
    machine.clock.At(1000, note);
    machine.clock.Sleep(1000);
    EXPECT_EQ(times, std::vector<uint64_t>{1000});
    machine.clock.Sleep(1000);
    machine.clock.Sleep(1000);
    EXPECT_EQ(times, (std::vector<uint64_t>{1000, 2500}));
    EXPECT_EQ(machine.clock.Elapsed(), 3000u);
    EXPECT_EQ(machine.clock.Sleeps(), (std::vector<uint32_t>{1000, 1000, 1000}));
}

TEST(FakeClock, TheLocalTimeFollows)
{
    FakePlatform machine;
    machine.clock.SetStart({2026, 12, 31, 23, 59, 59});
    machine.clock.Sleep(1000);
    LocalTime now{};
    ASSERT_TRUE(machine.clock.GetLocalTime(now));
    EXPECT_EQ(now, (LocalTime{2027, 1, 1, 0, 0, 0}));
    machine.log.FailNth("clock.GetLocalTime", 1);
    EXPECT_FALSE(machine.clock.GetLocalTime(now));
}

TEST(FakeThreads, ABodyRunsWhenTheTestSaysSo)
{
    FakePlatform machine;
    int runs = 0;
    const std::unique_ptr<WorkerThread> thread = machine.threads.StartThread([&] { ++runs; });
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(machine.threads.RunWaiting(), 1u);
    thread->Join();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(machine.threads.LiveThreads(), 0u);
}

TEST(FakeThreads, ABodyRunsAtTheLatestWhenItIsJoined)
{
    FakePlatform machine;
    int runs = 0;
    machine.threads.StartThread([&] { ++runs; })->Join();
    EXPECT_EQ(runs, 1);
}

TEST(FakeProcesses, AnEndedProcessIsGoneForThoseWhoDontHoldIt)
{
    FakePlatform machine;
    uint32_t id = 0;
    machine.processes.Start(u"C:\\app.exe /B", kShowMinimized, id);
    const std::unique_ptr<Process> holder = machine.processes.Open(id, kProcessQuery);
    machine.processes.End(id, 3);
    EXPECT_NE(machine.processes.Open(id, kProcessQuery), nullptr);
    uint32_t exitCode = 0;
    EXPECT_TRUE(holder->GetExitCode(exitCode));
    EXPECT_EQ(exitCode, 3u);
}

TEST(FakeProcesses, AProcessCanSurviveItsTermination)
{
    FakePlatform machine;
    uint32_t id = 0;
    machine.processes.OnStart([](FakeProcess& process) { process.survivesTermination = true; });
    machine.processes.Start(u"C:\\app.exe", kShowMinimized, id);
    EXPECT_TRUE(machine.processes.Open(id, kProcessTerminate)->Terminate(255));
    EXPECT_EQ(machine.processes.RunningCount(), 1u);
    EXPECT_EQ(machine.processes.OpenHandles(), 0u);
}

TEST(FakeFiles, AFullDiskFailsTheWrite)
{
    FakePlatform machine;
    machine.log.FailNth("files.Write", 2, Failure::Lasting, 112);
    const std::unique_ptr<OutputFile> file = machine.files.OpenForAppend(u"C:\\a.log");
    EXPECT_EQ(file->Write(std::string_view("1")), 0u);
    EXPECT_EQ(file->Write(std::string_view("2")), 112u);
    EXPECT_EQ(machine.files.Content(u"c:/A.log"), "1");
}

TEST(FakeFiles, ANameWithACharacterThatWindowsForbidsIsRefused)
{
    FakePlatform machine;
    EXPECT_EQ(machine.files.OpenForAppend(u"C:\\<Filename>.log"), nullptr);
    EXPECT_EQ(machine.files.CreateDirectory(u"C:\\a?b"), 123u);
    EXPECT_EQ(machine.files.CreateDirectory(u"D:\\a"), 3u);
}

TEST(FakeDesktop, ADialogCanCloseWhenItGetsItsKey)
{
    FakePlatform machine;
    const WindowHandle dialog = machine.desktop.AddWindow(5, u"Torvane");
    machine.desktop.OnPost([&](const PostedMessage& message) { machine.desktop.CloseWindow(message.window); });
    machine.desktop.Post(dialog, kMessageKeyDown, kKeyReturn, 0);
    machine.desktop.Post(dialog, kMessageKeyUp, kKeyReturn, 0);
    EXPECT_EQ(machine.desktop.Posted(), (std::vector<PostedMessage>{{dialog, 256, 13, 0}}));
    EXPECT_EQ(machine.desktop.TopWindow(), 0);
}

} // namespace
} // namespace tv::fakes
