#include "cad_test.h"

namespace tv {

namespace {

using fakes::FakeApplication;
using fakes::FakeDocument;

constexpr Result kDied = static_cast<Result>(0x800706BAu);
constexpr char16_t kAddInKey[] = u"Software\\Torvane\\Applications\\Quellor\\TVTaskAddIn";

/// How far a failure of the application reaches.
enum class Reach
{
    OneCall,          ///< the nth call on the first application
    OneApplication,   ///< that call and all later ones on the first application
    EveryApplication, ///< the same on each application that is started
};

/// A machine with two add-ins that load at start-up, and a run of one macro that saves one file.
class WatchedRun
{
  public:
    WatchedRun(int nth, Reach reach)
    {
        SchedulerDialogSeen() = false;
        machine.registry.AddKey(kCurrentUserRoot, kAddInKey);
        machine.registry.PutNumber(kCurrentUserRoot, u"Software\\Torvane\\AddInsStartup\\{A}", u"", 1);
        machine.registry.PutText(kCurrentUserRoot, u"Software\\Torvane\\Startup\\Applications\\{B}", u"", u"on");
        before = machine.registry.Export();
        outputs.Reset(vault.Get(), 1, ExistingFiles::NewVersion);
        cad.prepare = [nth, reach](FakeApplication& application, int start) {
            if (nth > 0 && (start == 1 || reach == Reach::EveryApplication)) {
                application.script.FailNthOfAll(nth, kDied, reach != Reach::OneCall);
            }
            application.onMacro = [](FakeApplication& running, const std::u16string&) {
                FakeDocument& document = running.Open(1, u"a.tvnprt");
                running.Write(document, u"C:\\Vault\\a.step");
                running.Close(document);
                return fakes::MacroResult{};
            };
        };
    }

    void Go()
    {
        manager.SuppressStartupAddIns(StartupAddIns::Suppress);
        manager.Configure(outputs, 1, task.get(), 2013);
        started = manager.StartApplication();
        startText = manager.LastError();
        restarted = started < 0 ? manager.RestartApplication(started) : 0;
        if (restarted >= 0) {
            ran = RaisedBy([&] { manager.RunMacro(u"Sub main"); });
            runText = manager.LastError();
        }
        if (restarted >= 0 && ran >= 0) {
            maintained = RaisedBy([&] { manager.MaintainApplication(); });
        }
        closed = manager.CloseApplication(Waiting::Yes, 0);
        manager.SuppressStartupAddIns(StartupAddIns::Restore);
    }

    void ExpectNothingLeft() const
    {
        EXPECT_EQ(machine.processes.RunningCount(), 0u);
        EXPECT_EQ(machine.processes.OpenHandles(), 0u);
        EXPECT_EQ(machine.threads.LiveThreads(), 0u);
        EXPECT_EQ(machine.threads.LiveEvents(), 0u);
        EXPECT_EQ(machine.registry.OpenCount(), 0u);
        EXPECT_EQ(machine.registry.Export(), before);
        EXPECT_TRUE(machine.files.Files().empty());
        EXPECT_FALSE(manager.GetApplication());
        EXPECT_EQ(manager.DocumentCount(), 0u);
    }

    fakes::FakePlatform machine;
    fakes::CadInstallation cad{machine};
    fakes::FakeVault vault{u"C:\\Vault", &machine.files};
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    VaultFiles outputs{machine.platform};
    TVManager manager{machine.platform};
    std::vector<std::u16string> before;
    Result started = 0;
    Result restarted = 0;
    Result ran = 0;
    Result maintained = 0;
    Result closed = 0;
    std::u16string startText;
    std::u16string runText;
};

constexpr char16_t kRevision[] = u"Failed to get Torvane revision number.";
constexpr char16_t kAttach[] = u"Failed to attach event handlers to Torvane.";
constexpr char16_t kHide[] = u"Failed to set Torvane main window as invisible.";

/// What a start makes of the failure of its nth call. A text that is left over keeps a restart from starting anew.
struct StartRow
{
    int nth;
    Result once;
    std::u16string_view textOnce;
    Result lasting;
    std::u16string_view textLasting;
    Result restarted;
    Result restartedEverywhere;
};

const StartRow kStartRows[] = {
    {1, kDied, kRevision, kDied, kRevision, kDied, kDied}, // GetRevisionNumber
    {2, kDied, u"", kDied, u"", 0, kDied},                 // SetUserPreferenceToggle 290
    {3, kDied, u"", kDied, u"", 0, kDied},                 // SetUserPreferenceToggle 291
    {4, kDied, u"", kDied, u"", 0, kDied},                 // SetUserPreferenceIntegerValue 253
    {5, kDied, kAttach, kDied, kAttach, kDied, kDied},     // FindConnectionPoint
    {6, kDied, kAttach, kDied, kAttach, kDied, kDied},     // Advise
    {7, 0, u"", kDied, kHide, kDied, kDied},               // SetInteractive
    {8, kDied, kHide, kDied, kHide, kDied, kDied},         // SetBackgroundRun
    {9, kDied, kHide, kDied, kHide, kDied, kDied},         // GetFrame
    {10, kDied, kHide, kDied, kHide, kDied, kDied},        // GetWindowHandle
    {11, 0, u"", kDied, kHide, kDied, kDied},              // SetAppSwitch
    {12, kDied, kHide, kDied, kHide, kDied, kDied},        // SetMainWindowShown
};

/// The calls on the application in a run in which nothing fails.
std::vector<std::u16string> CallsOfACleanRun()
{
    WatchedRun run(0, Reach::OneCall);
    run.Go();
    EXPECT_EQ(run.ran, 0);
    EXPECT_EQ(run.closed, 0);
    EXPECT_EQ(run.cad.StartCount(), 1);
    EXPECT_EQ(run.outputs.Outputs().size(), 1u);
    run.ExpectNothingLeft();
    return run.cad.Last().script.Calls();
}

} // namespace

TEST(ApplicationSweepTest, EachCallOfAStartThatFailsOnceHasItsCodeItsTextAndItsRestart)
{
    for (const StartRow& row : kStartRows) {
        SCOPED_TRACE(row.nth);
        WatchedRun run(row.nth, Reach::OneCall);
        run.Go();
        EXPECT_EQ(run.started, row.once);
        EXPECT_EQ(run.startText, row.textOnce);
        EXPECT_EQ(run.restarted, row.once < 0 ? row.restarted : 0);
        EXPECT_EQ(run.ran, 0);
        EXPECT_EQ(run.closed, 0);
        run.ExpectNothingLeft();
    }
}

TEST(ApplicationSweepTest, AStartWhoseApplicationDiesAtTheNthCallHasItsCodeItsTextAndItsRestart)
{
    for (const StartRow& row : kStartRows) {
        SCOPED_TRACE(row.nth);
        WatchedRun run(row.nth, Reach::OneApplication);
        run.Go();
        EXPECT_EQ(run.started, row.lasting);
        EXPECT_EQ(run.startText, row.textLasting);
        EXPECT_EQ(run.restarted, row.restarted);
        EXPECT_EQ(run.closed, 0);
        run.ExpectNothingLeft();
    }
}

TEST(ApplicationSweepTest, ARestartMeetsTheSameFailureAndGivesItsCode)
{
    for (const StartRow& row : kStartRows) {
        SCOPED_TRACE(row.nth);
        WatchedRun run(row.nth, Reach::EveryApplication);
        run.Go();
        EXPECT_EQ(run.started, row.lasting);
        EXPECT_EQ(run.restarted, row.restartedEverywhere);
        EXPECT_EQ(run.closed, 0);
        run.ExpectNothingLeft();
    }
}

TEST(ApplicationSweepTest, AnyCallMayFailOnceInARunAndItsMacroStillSucceeds)
{
    const std::vector<std::u16string> calls = CallsOfACleanRun();
    ASSERT_GT(calls.size(), 24u);
    EXPECT_EQ(calls.at(12), u"RunMacroEx(TVMacro1, main, 0)");
    for (size_t n = 13; n <= calls.size(); ++n) {
        SCOPED_TRACE(n);
        WatchedRun run(static_cast<int>(n), Reach::OneCall);
        run.Go();
        EXPECT_EQ(run.started, 0);
        EXPECT_EQ(run.ran, 0);
        EXPECT_EQ(run.runText, u"");
        EXPECT_EQ(run.maintained, 0);
        EXPECT_EQ(run.closed, 0);
        EXPECT_EQ(run.cad.StartCount(), n == 13 ? 2 : 1);
        EXPECT_LE(run.outputs.Outputs().size(), 1u);
        run.ExpectNothingLeft();
    }
}

TEST(ApplicationSweepTest, AnApplicationMayDieAtAnyCallAndIsEndedAllTheSame)
{
    const size_t callCount = CallsOfACleanRun().size();
    for (size_t n = 13; n <= callCount; ++n) {
        SCOPED_TRACE(n);
        WatchedRun run(static_cast<int>(n), Reach::OneApplication);
        run.Go();
        EXPECT_EQ(run.ran, 0);
        EXPECT_EQ(run.maintained, 0);
        EXPECT_EQ(run.closed, 0);
        EXPECT_EQ(run.cad.StartCount(), n == 13 ? 2 : 1);
        run.ExpectNothingLeft();
    }
}

TEST(ApplicationSweepTest, ApplicationsThatAllDieInTheMacroAreThreeAttemptsAndAFailedMacro)
{
    WatchedRun run(13, Reach::EveryApplication);
    run.Go();
    EXPECT_EQ(run.ran, kDied);
    EXPECT_EQ(run.runText, u"Failed to run Torvane macro.");
    EXPECT_EQ(run.cad.StartCount(), 3);
    EXPECT_EQ(run.closed, kDied);
    EXPECT_TRUE(run.outputs.Outputs().empty());
    run.ExpectNothingLeft();
}

} // namespace tv
