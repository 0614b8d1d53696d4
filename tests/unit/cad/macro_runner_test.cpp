#include "cad/macro_error_reasons.h"
#include "cad/macro_file.h"
#include "cad/manager_texts.h"
#include "cad_test.h"

namespace tv {

namespace {

using Calls = std::vector<std::u16string>;
using fakes::FakeApplication;
using fakes::MacroResult;

constexpr char16_t kAddInKey[] = u"Software\\Torvane\\Applications\\Quellor\\TVTaskAddIn";

class MacroRunnerTest : public CadTest
{
  protected:
    MacroRunnerTest()
    {
        cad.prepare = [this](FakeApplication& application, int start) {
            application.onMacro = [this](FakeApplication& running, const std::u16string& path) {
                ++runs;
                lastPath = path;
                lastText = machine.files.Content(path);
                return onRun ? onRun(running, runs) : MacroResult{};
            };
            if (alsoPrepare) {
                alsoPrepare(application, start);
            }
        };
    }
    Result Run(std::u16string_view text = u"Sub main\r\nEnd Sub\r\n")
    {
        return RaisedBy([&] { manager.RunMacro(text); });
    }

    int runs = 0;
    std::u16string lastPath;
    std::optional<std::string> lastText;
    std::function<MacroResult(FakeApplication&, int run)> onRun;
    std::function<void(FakeApplication&, int start)> alsoPrepare;
};

} // namespace

TEST_F(MacroRunnerTest, ASuccessIsOneAttemptAndNoFailureCount)
{
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(manager.FailureCount(), 0);
    EXPECT_EQ(manager.LastError(), u"");
}

TEST_F(MacroRunnerTest, TheTextStandsInAFileOfTheMacroExtensionAndIsGoneAfterwards)
{
    ConfigureAndStart(1);
    Run(u"Sub main");
    EXPECT_EQ(lastText, "Sub main");
    EXPECT_TRUE(lastPath.starts_with(u"C:\\Temp\\TFR")) << testing::PrintToString(lastPath);
    EXPECT_TRUE(lastPath.ends_with(u".tvb"));
    EXPECT_TRUE(machine.files.Files().empty());
    EXPECT_EQ(machine.files.OpenCount(), 0u);
}

TEST_F(MacroRunnerTest, FromRevision17OnTheExtendedCallIsUsed)
{
    alsoPrepare = [](FakeApplication& application, int) { application.revision = u"17.0"; };
    ConfigureAndStart(1);
    Run();
    EXPECT_EQ(cad.Last().script.Calls().back(), u"RunMacroEx(TVMacro1, main, 0)");
}

TEST_F(MacroRunnerTest, BelowRevision17ThePlainCallIsUsed)
{
    alsoPrepare = [](FakeApplication& application, int) { application.revision = u"16.5"; };
    ConfigureAndStart(1);
    Run();
    EXPECT_EQ(cad.Last().script.Calls().back(), u"RunMacro(TVMacro1, main)");
}

TEST_F(MacroRunnerTest, BelowRevision17NoReasonAppears)
{
    alsoPrepare = [](FakeApplication& application, int) { application.revision = u"16.5"; };
    onRun = [](FakeApplication&, int) { return MacroResult{0, false, 12}; };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), Code(0x80004005));
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro.");
}

TEST_F(MacroRunnerTest, TwoFailuresAndASuccessAreTwoRestarts)
{
    onRun = [](FakeApplication&, int run) { return MacroResult{run < 3 ? E_FAIL : 0, run >= 3, 0}; };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(runs, 3);
    EXPECT_EQ(cad.StartCount(), 3);
    EXPECT_EQ(manager.FailureCount(), 0);
}

TEST_F(MacroRunnerTest, ThreeFailuresAreRaisedWithTheThirdAndTheApplicationThatIsUpStays)
{
    onRun = [](FakeApplication&, int run) {
        return MacroResult{Code(0x80040000u + static_cast<uint32_t>(run)), false, 0};
    };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), Code(0x80040003));
    EXPECT_EQ(runs, 3);
    EXPECT_EQ(cad.StartCount(), 3);
    EXPECT_EQ(manager.FailureCount(), 0);
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro.");
    EXPECT_TRUE(manager.GetApplication());
    EXPECT_EQ(machine.processes.RunningCount(), 1u);
}

TEST_F(MacroRunnerTest, AFailedCallIsAnsweredWithoutPoliteness)
{
    onRun = [](FakeApplication&, int run) { return MacroResult{run < 2 ? fakes::kServerDied : 0, run >= 2, 0}; };
    ConfigureAndStart(1);
    Run();
    EXPECT_EQ(cad.started.front()->script.CountOf(u"ExitApplication"), 0);
}

TEST_F(MacroRunnerTest, ACrashOfTheApplicationIsSurvived)
{
    onRun = [this](FakeApplication&, int run) {
        if (run == 1) {
            machine.processes.End(manager.ProcessId(), 0xC0000005);
            return MacroResult{fakes::kServerDied, false, 0};
        }
        return MacroResult{};
    };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(cad.StartCount(), 2);
}

TEST_F(MacroRunnerTest, AFalseFlagWithoutAFailureIsNotRepeated)
{
    onRun = [](FakeApplication&, int) { return MacroResult{0, false, 0}; };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), Code(0x80004005));
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro.");
}

TEST_F(MacroRunnerTest, AKnownErrorCodeGivesTheReason)
{
    onRun = [](FakeApplication&, int) { return MacroResult{0, false, 27}; };
    ConfigureAndStart(1);
    Run();
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro. Reason: File save failed.");
}

TEST_F(MacroRunnerTest, TheSchedulersDialogOverridesASuccess)
{
    onRun = [](FakeApplication&, int run) {
        SchedulerDialogSeen() = run == 1;
        return MacroResult{};
    };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(runs, 2);
    EXPECT_TRUE(manager.ForceRegression());
    EXPECT_EQ(manager.FailureCount(), 0);
    EXPECT_EQ(machine.processes.Last().commandLine, u"C:\\CAD\\TORVANE.EXE /R");
}

TEST_F(MacroRunnerTest, TheSchedulersDialogRenewsTheAttemptsForAsLongAsItAppears)
{
    onRun = [](FakeApplication&, int run) {
        SchedulerDialogSeen() = run <= 7;
        return MacroResult{};
    };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(runs, 8);
}

TEST_F(MacroRunnerTest, TheWatchdogMeetsTheSchedulersDialogDuringTheMacro)
{
    onRun = [this](FakeApplication&, int run) {
        if (run == 1) {
            const WindowHandle dialog =
                machine.desktop.AddWindow(manager.ProcessId(), u"Welcome to Torvane Task Scheduler");
            machine.desktop.OnPost(
                [this, dialog](const fakes::PostedMessage&) { machine.desktop.CloseWindow(dialog); });
            machine.threads.RunWaiting();
        }
        return MacroResult{};
    };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(runs, 2);
    EXPECT_TRUE(manager.ForceRegression());
}

TEST_F(MacroRunnerTest, AFailedRestartEndsTheAttemptsAndItsWordsAreLost)
{
    onRun = [this](FakeApplication&, int) {
        machine.runningObjects.RemoveClass(u"Torvane.Application.21");
        machine.runningObjects.RemoveClass(u"Torvane.Application");
        return MacroResult{E_ABORT, false, 0};
    };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), Code(0x800401F3));
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro.");
    EXPECT_FALSE(manager.GetApplication());
}

TEST_F(MacroRunnerTest, TheWatchdogRunsForEachAttempt)
{
    onRun = [this](FakeApplication&, int run) {
        EXPECT_EQ(machine.threads.LiveThreads(), 1u);
        return MacroResult{run == 1 ? E_FAIL : 0, true, 0};
    };
    ConfigureAndStart(1);
    Run();
    EXPECT_EQ(machine.threads.StartedCount(), 4u);
    EXPECT_EQ(machine.threads.LiveThreads(), 0u);
}

TEST_F(MacroRunnerTest, AnEmptyTextGivesAnEmptyFile)
{
    ConfigureAndStart(1);
    EXPECT_EQ(Run(u""), 0);
    EXPECT_EQ(lastText, "");
}

TEST_F(MacroRunnerTest, AsManyBytesAreWrittenAsTheTextHasUnits)
{
    ConfigureAndStart(1);
    Run(u"a\u03A9b");
    ASSERT_TRUE(lastText);
    EXPECT_EQ(lastText->size(), 3u);
}

TEST_F(MacroRunnerTest, AFileThatHasTheNewNameIsDeleted)
{
    ConfigureAndStart(1);
    machine.files.AddFile(u"C:\\Temp\\TFR0001.tvb", "old");
    EXPECT_EQ(Run(u"new"), 0);
    EXPECT_EQ(lastPath, u"C:\\Temp\\TFR0001.tvb");
    EXPECT_EQ(lastText, "new");
}

TEST_F(MacroRunnerTest, ATemporaryFileThatCannotBeMadeIsRaisedWithoutAText)
{
    ConfigureAndStart(1);
    machine.log.FailNth("files.CreateTemporaryFile", 1, fakes::Failure::Once, 112);
    EXPECT_EQ(Run(), Code(0x80070070));
    EXPECT_EQ(manager.LastError(), u"");
    EXPECT_EQ(runs, 0);
}

TEST_F(MacroRunnerTest, AFailedWriteIsRaisedWithoutAText)
{
    ConfigureAndStart(1);
    machine.log.FailNth("files.Write", 1, fakes::Failure::Once, 112);
    EXPECT_EQ(Run(), Code(0x80070070));
    EXPECT_EQ(manager.LastError(), u"");
    EXPECT_TRUE(machine.files.Files().empty());
}

TEST_F(MacroRunnerTest, AFailedMoveIsAFailedMacroAndNothingRuns)
{
    ConfigureAndStart(1);
    machine.log.FailNth("files.MoveFile", 1, fakes::Failure::Once, 5);
    EXPECT_EQ(Run(), Code(0x80070005));
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro.");
    EXPECT_EQ(runs, 0);
    EXPECT_TRUE(machine.files.Files().empty());
}

TEST_F(MacroRunnerTest, AFailedDeleteIsAFailedMacroAndNothingRuns)
{
    ConfigureAndStart(1);
    machine.log.FailNth("files.DeleteFile", 1, fakes::Failure::Once, 5);
    EXPECT_EQ(Run(), Code(0x80070005));
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro.");
    EXPECT_EQ(runs, 0);
}

TEST_F(MacroRunnerTest, TheMacroIsCopiedForInspection)
{
    machine.registry.PutText(kCurrentUserRoot, kAddInKey, u"ScriptCopyPath", u"C:\\Look\\last.txt");
    machine.files.AddFolder(u"C:\\Look");
    ConfigureAndStart(1);
    Run(u"Sub main");
    EXPECT_EQ(machine.files.Content(u"C:\\Look\\last.txt"), "Sub main");
}

TEST_F(MacroRunnerTest, TheCopyIsMadeAfterAFailureToo)
{
    machine.registry.PutText(kCurrentUserRoot, kAddInKey, u"ScriptCopyPath", u"C:\\Temp\\last.txt");
    onRun = [](FakeApplication&, int) { return MacroResult{0, false, 0}; };
    ConfigureAndStart(1);
    Run(u"Sub main");
    EXPECT_EQ(machine.files.Content(u"C:\\Temp\\last.txt"), "Sub main");
}

TEST_F(MacroRunnerTest, ACopyIntoAMissingFolderFailsInSilence)
{
    machine.registry.PutText(kCurrentUserRoot, kAddInKey, u"ScriptCopyPath", u"C:\\Nowhere\\last.txt");
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(machine.files.Files().empty());
}

TEST(MacroErrorReasonsTest, EveryRowHasItsKeyAndItsText)
{
    struct Row
    {
        int32_t code;
        uint32_t key;
        std::u16string_view text;
    };
    const Row rows[] = {
        {1, 96, u"Invalid argument provided in macro."},
        {2, 97, u"Macros are disabled."},
        {5, 98, u"Out of memory."},
        {6, 99, u"Invalid procedure name."},
        {7, 100, u"Invalid property type."},
        {8, 101, u"Sub or Function expected."},
        {9, 102, u"Invalid parameter count."},
        {10, 103, u"Invalid variable type."},
        {12, 104, u"Unhandled exception."},
        {13, 105, u"Value overflow."},
        {14, 106, u"Type mismatch."},
        {15, 107, u"Required parameter missing."},
        {20, 108, u"Call failed."},
        {22, 109, u"Invalid index provided."},
        {23, 110, u"Permission denied."},
        {25, 111, u"Too many open files."},
        {27, 112, u"File save failed."},
        {28, 113, u"File open failed."},
    };
    ASSERT_EQ(std::size(kMacroErrorReasons), std::size(rows));
    for (size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(kMacroErrorReasons[i].code, rows[i].code);
        EXPECT_EQ(kMacroErrorReasons[i].key, rows[i].key);
        EXPECT_EQ(kMacroErrorReasons[i].text, rows[i].text);
        EXPECT_EQ(MacroFailedText(rows[i].code),
                  u"Failed to run Torvane macro. Reason: " + std::u16string(rows[i].text));
    }
}

TEST(MacroErrorReasonsTest, OtherCodesHaveNoText)
{
    for (const int32_t code : {0, 3, 4, 11, 16, 17, 18, 19, 21, 24, 26, 29, 1000, -1}) {
        EXPECT_EQ(MacroFailedText(code), u"Failed to run Torvane macro.") << code;
    }
}

TEST_F(MacroRunnerTest, EachFailureCountHasItsNumberOfAttempts)
{
    const std::pair<int, int> attemptsAt[] = {{0, 3}, {1, 3}, {2, 3}, {3, 2}, {4, 2},  {5, 2},
                                              {6, 1}, {7, 1}, {8, 1}, {9, 1}, {10, 1}, {20, 1}};
    ConfigureAndStart(1);
    for (const auto& [failures, attempts] : attemptsAt) {
        while (manager.FailureCount() < failures) {
            ASSERT_EQ(manager.RestartApplication(0), 0);
        }
        runs = 0;
        const int startsBefore = cad.StartCount();
        onRun = [](FakeApplication&, int) { return MacroResult{E_FAIL, false, 0}; };
        EXPECT_EQ(Run(), Code(0x80004005));
        EXPECT_EQ(runs, attempts) << failures;
        EXPECT_EQ(cad.StartCount() - startsBefore, attempts - 1) << failures;
        EXPECT_EQ(manager.FailureCount(), 0) << failures;
    }
}

TEST_F(MacroRunnerTest, ASchedulersDialogAtTheLastAttemptGivesOneMore)
{
    onRun = [](FakeApplication&, int run) {
        SchedulerDialogSeen() = run == 3;
        return MacroResult{run == 3 ? 0 : E_ABORT, run == 3, 0};
    };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), Code(0x80004004));
    EXPECT_EQ(runs, 4);
    EXPECT_EQ(cad.StartCount(), 4);
    EXPECT_EQ(manager.FailureCount(), 0);
}

TEST_F(MacroRunnerTest, ASchedulersDialogClosesTheApplicationWithoutPoliteness)
{
    onRun = [](FakeApplication&, int run) {
        SchedulerDialogSeen() = run == 1;
        return MacroResult{};
    };
    ConfigureAndStart(1);
    Run();
    EXPECT_EQ(cad.started.front()->script.CountOf(u"ExitApplication"), 0);
    EXPECT_EQ(machine.processes.At(4100).exitCode, 255u);
}

TEST_F(MacroRunnerTest, OnceSeenTheSchedulersDialogForcesRegressionInAllLaterRuns)
{
    onRun = [](FakeApplication&, int run) {
        SchedulerDialogSeen() = run == 1;
        return MacroResult{};
    };
    ConfigureAndStart(1);
    Run();
    ASSERT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    ConfigureAndStart(2);
    EXPECT_EQ(machine.processes.Last().commandLine, u"C:\\CAD\\TORVANE.EXE /R");
}

TEST_F(MacroRunnerTest, WithoutAnApplicationTheAttemptFailsAndTheNextOneHasANewApplication)
{
    ConfigureAndStart(1);
    manager.CloseApplication(Waiting::Yes, 0);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(cad.StartCount(), 2);
}

TEST_F(MacroRunnerTest, ARestartWhoseCloseFailsEndsTheAttemptsWithTheMacrosCode)
{
    onRun = [this](FakeApplication&, int) {
        machine.processes.Last().survivesTermination = true;
        return MacroResult{E_ABORT, false, 13};
    };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), Code(0x80004004));
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro. Reason: Value overflow.");
}

TEST_F(MacroRunnerTest, AFailedCallWithAKnownErrorCodeGivesTheReasonOfItsLastAttempt)
{
    onRun = [](FakeApplication&, int run) { return MacroResult{E_FAIL, false, run == 3 ? 28 : 2}; };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), Code(0x80004005));
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro. Reason: File open failed.");
}

TEST_F(MacroRunnerTest, AnErrorCodeBesideASuccessIsNoFailure)
{
    onRun = [](FakeApplication&, int) { return MacroResult{0, true, 12}; };
    ConfigureAndStart(1);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(manager.LastError(), u"");
}

TEST_F(MacroRunnerTest, NoBytesBeyondTheTextsLengthAreWrittenWhenTheNarrowFormIsLonger)
{
    machine.files.SetNarrowing([](std::u16string_view text) {
        std::string bytes;
        for (const char16_t unit : text) {
            bytes.append(unit < 0x80 ? 1 : 2, unit < 0x80 ? static_cast<char>(unit) : '#');
        }
        return bytes;
    });
    const MacroFile file(machine.files, u"a\u65E5\u672Cb");
    EXPECT_EQ(machine.files.Content(u"C:\\Temp\\TFR0001.tmp"), "a###");
}

TEST_F(MacroRunnerTest, TheCopyReplacesAFileThatStandsThere)
{
    machine.registry.PutText(kCurrentUserRoot, kAddInKey, u"ScriptCopyPath", u"C:\\Look\\last.txt");
    machine.files.AddFile(u"C:\\Look\\last.txt", "a much longer text than the macro");
    ConfigureAndStart(1);
    Run(u"Sub main");
    EXPECT_EQ(machine.files.Content(u"C:\\Look\\last.txt"), "Sub main");
}

TEST_F(MacroRunnerTest, AnExpandableCopyPathIsExpanded)
{
    machine.registry.SetEnvironment(u"L", u"C:\\Look");
    machine.registry.PutValue(kCurrentUserRoot, kAddInKey, u"ScriptCopyPath",
                              {kRegExpandString, {'%', 0, 'L', 0, '%', 0, '\\', 0, 'a', 0, 0, 0}});
    machine.files.AddFolder(u"C:\\Look");
    ConfigureAndStart(1);
    Run(u"Sub main");
    EXPECT_EQ(machine.files.Content(u"C:\\Look\\a"), "Sub main");
}

TEST_F(MacroRunnerTest, TheSettingsKeysAreCreatedWhenTheyAreMissing)
{
    ConfigureAndStart(1);
    machine.registry.DeleteKey(kCurrentUserRoot, u"Software\\Torvane");
    Run();
    EXPECT_TRUE(machine.registry.KeyExists(kCurrentUserRoot, kAddInKey));
    EXPECT_TRUE(machine.files.Files().empty());
}

TEST_F(MacroRunnerTest, AFailedMoveOverwritesTheLastErrorAndAFailedWriteKeepsIt)
{
    onRun = [](FakeApplication&, int) { return MacroResult{0, false, 27}; };
    ConfigureAndStart(1);
    Run();
    machine.log.FailNth("files.Write", 1, fakes::Failure::Once, 112);
    EXPECT_EQ(Run(), Code(0x80070070));
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro. Reason: File save failed.");
    machine.log.FailNth("files.MoveFile", 1, fakes::Failure::Once, 5);
    EXPECT_EQ(Run(), Code(0x80070005));
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro.");
}

} // namespace tv
