#include "cad_test.h"

#include <algorithm>
#include <atomic>
#include <thread>

namespace tv {

namespace {

using Calls = std::vector<std::u16string>;

class CloseTest : public CadTest
{
  protected:
    /// The calls on the application since the start, without the disconnection of the events.
    Calls ClosingCalls() const
    {
        const Calls& all = cad.Last().script.Calls();
        const auto shown = std::ranges::find(all, u"SetMainWindowShown(false)");
        Calls calls(shown + 1, all.end());
        std::erase(calls, u"Unadvise()");
        return calls;
    }
};

} // namespace

TEST_F(CloseTest, APoliteCloseAsksInThisOrder)
{
    ConfigureAndStart(1);
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    EXPECT_EQ(ClosingCalls(), (Calls{u"SetInteractive(false)", u"SetAppSwitch(30, true)", u"SetMainWindowShown(false)",
                                     u"CloseAllDocuments(true)", u"ExitApplication()"}));
    EXPECT_FALSE(manager.GetApplication());
}

TEST_F(CloseTest, TheEventsAreDisconnectedFirst)
{
    ConfigureAndStart(1);
    manager.CloseApplication(Waiting::Yes, 0);
    EXPECT_EQ(cad.Last().events.SinkCount(), 0u);
    const Calls& calls = cad.Last().script.Calls();
    EXPECT_LT(std::ranges::find(calls, u"Unadvise()"), std::ranges::find(calls, u"SetAppSwitch(30, true)"));
}

TEST_F(CloseTest, AProcessThatEndsAtOnceCostsOneSecond)
{
    ConfigureAndStart(1);
    const size_t before = machine.clock.SleepCount();
    manager.CloseApplication(Waiting::Yes, 0);
    EXPECT_EQ(machine.clock.SleepCount() - before, 1u);
    EXPECT_EQ(machine.log.CountOf("process.Terminate"), 0u);
}

TEST_F(CloseTest, AProcessThatEndsWithinTheGraceTimeIsNotTerminated)
{
    cad.endsAfter = 11'000;
    ConfigureAndStart(1);
    const size_t before = machine.clock.SleepCount();
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    EXPECT_EQ(machine.clock.SleepCount() - before, 11u);
    EXPECT_EQ(machine.log.CountOf("process.Terminate"), 0u);
}

TEST_F(CloseTest, AProcessThatStaysIsTerminatedAfterElevenSeconds)
{
    cad.endsAfter.reset();
    ConfigureAndStart(1);
    const size_t before = machine.clock.SleepCount();
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    EXPECT_EQ(machine.clock.SleepCount() - before, 12u);
    EXPECT_EQ(machine.log.SubjectsOf("process.Terminate"), (Calls{u"255"}));
}

TEST_F(CloseTest, WithoutWaitingTheGraceIsASingleLook)
{
    cad.endsAfter = 5000;
    ConfigureAndStart(1);
    const size_t before = machine.clock.SleepCount();
    manager.CloseApplication(Waiting::No, 0);
    EXPECT_EQ(machine.clock.SleepCount() - before, 1u);
    EXPECT_EQ(machine.log.CountOf("process.Terminate"), 1u);
}

TEST_F(CloseTest, WithoutWaitingATerminationThatSucceedsGivesTheFailureText)
{
    cad.endsAfter.reset();
    ConfigureAndStart(1);
    EXPECT_EQ(manager.CloseApplication(Waiting::No, 0), Code(0x80004005));
    EXPECT_EQ(manager.LastError(), u"Failed to close Torvane application.");
}

TEST_F(CloseTest, WithoutWaitingATerminationThatIsRefusedGivesNone)
{
    cad.endsAfter.reset();
    ConfigureAndStart(1);
    machine.processes.Last().refusesTermination = true;
    EXPECT_EQ(manager.CloseApplication(Waiting::No, 0), 0);
    EXPECT_EQ(manager.LastError(), u"");
}

TEST_F(CloseTest, AProcessAliveAfter46LooksCannotBeClosed)
{
    cad.endsAfter.reset();
    ConfigureAndStart(1);
    machine.processes.Last().survivesTermination = true;
    const size_t before = machine.clock.SleepCount();
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), Code(0x80004005));
    EXPECT_EQ(manager.LastError(), u"Failed to close Torvane application.");
    EXPECT_EQ(machine.clock.SleepCount() - before, 11u + 46u);
}

TEST_F(CloseTest, AFailureCodeMakesNoCallAndTerminatesAtOnce)
{
    ConfigureAndStart(1);
    const size_t before = machine.clock.SleepCount();
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, E_FAIL), 0);
    EXPECT_EQ(ClosingCalls(), Calls{});
    EXPECT_EQ(machine.clock.SleepCount() - before, 1u);
    EXPECT_EQ(machine.processes.Last().exitCode, 255u);
}

TEST_F(CloseTest, AFailureCodeIsGivenBackWhenTheProcessStays)
{
    ConfigureAndStart(1);
    machine.processes.Last().survivesTermination = true;
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, Code(0x800706BA)), Code(0x800706BA));
}

TEST_F(CloseTest, TheFirstRefusalEndsThePolitenessAndTheProcessIsTerminated)
{
    ConfigureAndStart(1);
    cad.Last().script.OnEveryCall(u"SetAppSwitch").Fail(E_FAIL);
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    EXPECT_EQ(ClosingCalls(), (Calls{u"SetInteractive(false)", u"SetAppSwitch(30, true)"}));
    EXPECT_EQ(machine.processes.Last().exitCode, 255u);
}

TEST_F(CloseTest, AProcessThatHasGoneEmptiesTheLastError)
{
    ConfigureAndStart(1);
    machine.processes.End(manager.ProcessId(), 1);
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    EXPECT_EQ(manager.LastError(), u"");
    EXPECT_EQ(machine.clock.SleepCount(), 1u);
}

TEST_F(CloseTest, AnOlderTextMakesTheCloseReportTheCodeThatItWasGiven)
{
    cad.registersAfter = 0;
    cad.prepare = [](fakes::FakeApplication& application, int) {
        application.script.OnEveryCall(u"SetMainWindowShown").Fail(Code(0x80010001));
    };
    Configure(1);
    EXPECT_LT(manager.StartApplication(), 0);
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, Code(0x80010001)), Code(0x80010001));
    EXPECT_EQ(machine.processes.RunningCount(), 0u);
}

TEST_F(CloseTest, WithoutAnApplicationAProcessIsTerminatedAtOnce)
{
    cad.prepare = [](fakes::FakeApplication& application, int) { application.queryResult = E_FAIL; };
    Configure(1);
    EXPECT_LT(manager.StartApplication(), 0);
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    EXPECT_EQ(machine.processes.RunningCount(), 0u);
    EXPECT_EQ(cad.Last().script.CountOf(u"ExitApplication"), 0);
}

TEST_F(CloseTest, AllDocumentsAreDetached)
{
    ConfigureAndStart(1);
    cad.endsAfter.reset();
    fakes::FakeDocument& document = cad.Last().Open(1, u"a.tvnprt");
    EXPECT_EQ(document.events.SinkCount(), 1u);
    const ComPtr<fakes::FakeDocument> kept = ComPtr<fakes::FakeDocument>::Share(&document);
    manager.CloseApplication(Waiting::Yes, 0);
    EXPECT_EQ(kept->events.SinkCount(), 0u);
    EXPECT_EQ(manager.DocumentCount(), 0u);
}

TEST_F(CloseTest, NoHandleIsLeftOpen)
{
    ConfigureAndStart(1);
    manager.CloseApplication(Waiting::Yes, 0);
    EXPECT_EQ(machine.processes.OpenHandles(), 0u);
    EXPECT_EQ(machine.registry.OpenCount(), 0u);
}

TEST_F(CloseTest, EachRefusalOfThePoliteCallsEndsThemAndTheProcessIsTerminatedWithoutGrace)
{
    const Calls polite = {u"SetInteractive(false)", u"SetAppSwitch(30, true)", u"SetMainWindowShown(false)",
                          u"CloseAllDocuments(true)", u"ExitApplication()"};
    for (size_t refused = 0; refused < polite.size(); ++refused) {
        SCOPED_TRACE(refused);
        ConfigureAndStart(1);
        const std::u16string name = polite[refused].substr(0, polite[refused].find(u'('));
        const int nth = cad.Last().script.CountOf(name) + 1;
        cad.Last().script.OnCall(nth, name).Fail(Code(0x80010001));
        const size_t sleepsBefore = machine.clock.SleepCount();
        EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
        EXPECT_EQ(ClosingCalls(), Calls(polite.begin(), polite.begin() + static_cast<ptrdiff_t>(refused) + 1));
        EXPECT_EQ(machine.clock.SleepCount() - sleepsBefore, 1u);
        EXPECT_EQ(machine.processes.Last().exitCode, 255u);
        EXPECT_EQ(manager.LastError(), u"");
    }
}

TEST_F(CloseTest, AllWaitsAreSecondsElevenBeforeTheTerminationAnd46Behind)
{
    cad.endsAfter.reset();
    ConfigureAndStart(1);
    machine.processes.Last().survivesTermination = true;
    machine.log.Clear();
    const size_t before = machine.clock.SleepCount();
    manager.CloseApplication(Waiting::Yes, 0);
    std::vector<std::string> waits = machine.log.Operations();
    std::erase_if(waits, [](const std::string& operation) {
        return operation != "clock.Sleep" && operation != "process.GetExitCode" && operation != "process.Terminate";
    });
    std::vector<std::string> expected;
    for (int look = 0; look < 11; ++look) {
        expected.insert(expected.end(), {"clock.Sleep", "process.GetExitCode"});
    }
    expected.push_back("process.Terminate");
    for (int look = 0; look < 46; ++look) {
        expected.insert(expected.end(), {"clock.Sleep", "process.GetExitCode"});
    }
    EXPECT_EQ(waits, expected);
    const std::vector<uint32_t> sleeps = machine.clock.Sleeps();
    EXPECT_EQ(std::vector<uint32_t>(sleeps.begin() + static_cast<ptrdiff_t>(before), sleeps.end()),
              std::vector<uint32_t>(57, 1000));
}

TEST_F(CloseTest, AProcessThatEndsAtTheLastOf46LooksIsClosed)
{
    cad.endsAfter.reset();
    ConfigureAndStart(1);
    machine.processes.Last().survivesTermination = true;
    machine.clock.After(57'000, [this] { machine.processes.End(manager.ProcessId(), 255); });
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    EXPECT_EQ(manager.LastError(), u"");
}

TEST_F(CloseTest, ATerminationThatIsRefusedIsWaitedForLikeAnyOther)
{
    ConfigureAndStart(1);
    machine.processes.Last().refusesTermination = true;
    const size_t before = machine.clock.SleepCount();
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, E_ABORT), Code(0x80004004));
    EXPECT_EQ(machine.clock.SleepCount() - before, 46u);
    EXPECT_EQ(manager.LastError(), u"Failed to close Torvane application.");
}

TEST_F(CloseTest, AProcessThatCannotBeOpenedIsAskedPolitelyAndNotWaitedFor)
{
    ConfigureAndStart(1);
    machine.processes.Last().canBeOpened = false;
    const size_t before = machine.clock.SleepCount();
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    EXPECT_EQ(cad.Last().script.CountOf(u"ExitApplication"), 1);
    EXPECT_EQ(machine.clock.SleepCount(), before);
}

TEST_F(CloseTest, AProcessThatHasGoneAfterAFailedStartEmptiesTheText)
{
    cad.prepare = [](fakes::FakeApplication& application, int) {
        application.script.OnEveryCall(u"GetRevisionNumber").Fail(E_FAIL);
    };
    Configure(1);
    EXPECT_LT(manager.StartApplication(), 0);
    machine.processes.End(manager.ProcessId(), 1);
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, E_FAIL), 0);
    EXPECT_EQ(manager.LastError(), u"");
}

TEST_F(CloseTest, AnOlderTextWithAPoliteCloseReportsItsSuccess)
{
    cad.prepare = [](fakes::FakeApplication& application, int) {
        application.script.OnCall(1, u"SetMainWindowShown").Fail(E_FAIL);
    };
    Configure(1);
    EXPECT_LT(manager.StartApplication(), 0);
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    EXPECT_EQ(manager.LastError(), u"Failed to set Torvane main window as invisible.");
    EXPECT_EQ(machine.processes.Last().exitCode, 0u);
}

TEST_F(CloseTest, AnOlderTextMakesAPoliteCloseThatFailedReportItsFailure)
{
    cad.prepare = [](fakes::FakeApplication& application, int) {
        application.script.OnEveryCall(u"SetMainWindowShown").Fail(Code(0x80010001));
    };
    Configure(1);
    EXPECT_LT(manager.StartApplication(), 0);
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), Code(0x80010001));
    EXPECT_EQ(machine.processes.RunningCount(), 0u);
}

TEST_F(CloseTest, WithoutAnApplicationAProcessThatStaysGivesTheCodeOfANullPointer)
{
    cad.prepare = [](fakes::FakeApplication& application, int) { application.queryResult = E_FAIL; };
    Configure(1);
    EXPECT_LT(manager.StartApplication(), 0);
    machine.processes.Last().survivesTermination = true;
    EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), Code(0x80004003));
    EXPECT_EQ(manager.LastError(), u"Failed to close Torvane application.");
}

TEST_F(CloseTest, AStopDuringTheLastScanClosesTheApplicationFromTheWatchdogsThread)
{
    ConfigureAndStart(1);
    std::atomic<bool> isLastScan{false};
    cad.Last().onMacro = [&](fakes::FakeApplication&, const std::u16string&) {
        while (!isLastScan) {
            std::this_thread::yield();
        }
        return fakes::MacroResult{};
    };
    const size_t stopsBefore = machine.log.CountOf("threads.Signal");
    machine.clock.After(1'800'000, [&] {
        isLastScan = true;
        while (machine.log.CountOf("threads.Signal") == stopsBefore) {
            std::this_thread::yield();
        }
    });
    machine.threads.SetMode(fakes::ThreadMode::Real);
    EXPECT_EQ(RaisedBy([&] { manager.RunMacro(u"Sub main"); }), 0);
    machine.threads.SetMode(fakes::ThreadMode::Inline);
    EXPECT_FALSE(manager.GetApplication());
    EXPECT_EQ(machine.processes.RunningCount(), 0u);
    EXPECT_EQ(machine.processes.Last().exitCode, 0u);
    manager.MaintainApplication();
    EXPECT_EQ(cad.StartCount(), 2);
}

} // namespace tv
