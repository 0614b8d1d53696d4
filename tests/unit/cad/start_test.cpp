#include "cad/manager_texts.h"
#include "cad_test.h"

#include <algorithm>

namespace tv {

namespace {

using Calls = std::vector<std::u16string>;

class StartTest : public CadTest
{
  protected:
    /// Fails a call of the application, each time it comes.
    void FailCall(std::u16string name, Result code)
    {
        cad.prepare = [=](fakes::FakeApplication& application, int) {
            application.script.OnEveryCall(name).Fail(code);
        };
    }
};

} // namespace

TEST_F(StartTest, AStartAsksForTheApplicationsQuietInThisOrder)
{
    ConfigureAndStart(1);
    EXPECT_EQ(cad.Last().script.Calls(),
              (Calls{u"GetRevisionNumber()", u"SetUserPreferenceToggle(290, true)",
                     u"SetUserPreferenceToggle(291, true)", u"SetUserPreferenceIntegerValue(253, 0)",
                     u"FindConnectionPoint()", u"Advise()", u"SetInteractive(false)", u"SetBackgroundRun(true)",
                     u"GetFrame()", u"GetWindowHandle()", u"SetAppSwitch(30, false)", u"SetMainWindowShown(false)"}));
}

TEST_F(StartTest, TheMainWindowIsMaximizedAndAtOnceHidden)
{
    ConfigureAndStart(1);
    EXPECT_EQ(machine.desktop.Shown(), (std::vector<fakes::ShownMode>{{4711, 3}, {4711, 0}}));
}

TEST_F(StartTest, TheProcessStartsMinimizedWithAnUnquotedCommandLine)
{
    ConfigureAndStart(1);
    EXPECT_EQ(machine.processes.Last().commandLine, u"C:\\CAD\\TORVANE.EXE /B");
    EXPECT_EQ(machine.processes.Last().showMode, 6);
    EXPECT_EQ(manager.ProcessId(), machine.processes.Last().id);
}

TEST_F(StartTest, TheApplicationIsFoundByItsProcessId)
{
    ConfigureAndStart(1);
    EXPECT_EQ(machine.log.SubjectsOf("runningObjects.GetObject"), (Calls{u"Torvane_PID_4100"}));
    EXPECT_EQ(manager.GetApplication().get(), &cad.Last());
}

TEST_F(StartTest, EachLookIsPrecededByASecondsSleep)
{
    cad.registersAfter = 5000;
    ConfigureAndStart(1);
    EXPECT_EQ(machine.clock.Sleeps(), (std::vector<uint32_t>{1000, 1000, 1000, 1000, 1000}));
    EXPECT_EQ(machine.log.CountOf("runningObjects.GetTable"), 5u);
}

TEST_F(StartTest, AnApplicationThatRegistersInTheLastSecondIsTaken)
{
    cad.registersAfter = 120'000;
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), 0);
    EXPECT_EQ(machine.clock.SleepCount(), 120u);
}

TEST_F(StartTest, AProcessThatNeverRegistersIsKilledAfter120Passes)
{
    cad.registersAfter.reset();
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), Code(0x80004005));
    EXPECT_EQ(manager.LastError(), u"Failed to start Torvane 2013.");
    EXPECT_EQ(machine.clock.SleepCount(), 120u);
    EXPECT_EQ(machine.processes.Last().exitCode, 255u);
    EXPECT_EQ(machine.processes.OpenHandles(), 0u);
}

TEST_F(StartTest, APassWithoutATableNeitherSleepsNorCounts)
{
    cad.registersAfter.reset();
    machine.log.FailNth("runningObjects.GetTable", 1);
    machine.log.FailNth("runningObjects.GetTable", 60);
    Configure(1);
    manager.StartApplication();
    EXPECT_EQ(machine.log.CountOf("runningObjects.GetTable"), 122u);
    EXPECT_EQ(machine.clock.SleepCount(), 120u);
}

TEST_F(StartTest, AProcessThatCannotBeCreatedIsAFailedStart)
{
    machine.log.FailNth("processes.Start", 1, fakes::Failure::Once, 2);
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), Code(0x80004005));
    EXPECT_EQ(manager.LastError(), u"Failed to start Torvane 2013.");
    EXPECT_EQ(machine.clock.SleepCount(), 0u);
    EXPECT_EQ(manager.ProcessId(), 0u);
}

TEST_F(StartTest, TheWatchdogRunsFromBeforeTheProcessUntilTheAttach)
{
    ConfigureAndStart(1);
    const std::vector<std::string> operations = machine.log.Operations();
    const auto place = [&](std::string_view operation) {
        return std::ranges::find(operations, operation) - operations.begin();
    };
    EXPECT_LT(place("threads.StartThread"), place("processes.Start"));
    EXPECT_LT(place("runningObjects.GetObject"), place("threads.Join"));
    EXPECT_LT(place("threads.Signal"), place("threads.Join"));
    EXPECT_EQ(machine.threads.LiveThreads(), 0u);
    EXPECT_EQ(machine.threads.LiveEvents(), 0u);
}

TEST_F(StartTest, NoVersionAsksForTheClassWithoutANumber)
{
    Configure(1, 0);
    EXPECT_EQ(manager.StartApplication(), 0);
    EXPECT_EQ(machine.log.SubjectsOf("runningObjects.ClassFromProgId"), (Calls{u"Torvane.Application"}));
}

TEST_F(StartTest, AYearAsksForTheClassOfItsRevision)
{
    ConfigureAndStart(1);
    EXPECT_EQ(machine.log.SubjectsOf("runningObjects.ClassFromProgId"), (Calls{u"Torvane.Application.21"}));
}

TEST_F(StartTest, AnUnversionedClassServesWhenTheVersionedOneIsMissing)
{
    machine.runningObjects.RemoveClass(u"Torvane.Application.21");
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), 0);
    EXPECT_EQ(manager.RequestedVersion(), 2013);
    EXPECT_EQ(manager.LastError(), u"");
    EXPECT_EQ(machine.processes.Last().commandLine, u"C:\\CAD\\TORVANE.EXE /B");
}

TEST_F(StartTest, WithoutAnyClassTheVersionIsNotInstalled)
{
    machine.runningObjects.RemoveClass(u"Torvane.Application.21");
    machine.runningObjects.RemoveClass(u"Torvane.Application");
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), Code(0x800401F3));
    EXPECT_EQ(manager.LastError(), u"Torvane 2013 is not installed.");
    EXPECT_EQ(machine.processes.Count(), 0u);
    EXPECT_EQ(machine.threads.StartedCount(), 0u);
}

TEST_F(StartTest, AnObjectOfAnUnregisteredClassIsNotInstalledAndItsProcessIsLeft)
{
    cad.prepare = [](fakes::FakeApplication& application, int) { application.queryResult = REGDB_E_CLASSNOTREG; };
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), Code(0x80040154));
    EXPECT_EQ(manager.LastError(), u"Torvane 2013 is not installed.");
    EXPECT_EQ(machine.processes.RunningCount(), 1u);
}

TEST_F(StartTest, AnyOtherRefusalOfTheObjectReturnsWithoutAText)
{
    cad.prepare = [](fakes::FakeApplication& application, int) { application.queryResult = fakes::kServerDied; };
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), Code(0x800706BA));
    EXPECT_EQ(manager.LastError(), u"");
    EXPECT_EQ(machine.processes.RunningCount(), 1u);
}

TEST_F(StartTest, TheMajorRevisionIsTheNumberThatLeadsTheText)
{
    cad.prepare = [](fakes::FakeApplication& application, int) { application.revision = u"21.3.0 (build 7)"; };
    ConfigureAndStart(1);
    EXPECT_EQ(manager.MajorRevision(), 21);
}

TEST_F(StartTest, AHugeRevisionKeepsItsLowSixteenBits)
{
    cad.prepare = [](fakes::FakeApplication& application, int) { application.revision = u"65557"; };
    ConfigureAndStart(1);
    EXPECT_EQ(manager.MajorRevision(), 21);
}

TEST_F(StartTest, ARevisionThatCannotBeReadFailsTheStart)
{
    FailCall(u"GetRevisionNumber", E_FAIL);
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), Code(0x80004005));
    EXPECT_EQ(manager.LastError(), u"Failed to get Torvane revision number.");
}

TEST_F(StartTest, APreferenceThatCannotBeSetFailsTheStartWithoutAText)
{
    for (const std::u16string name : {u"SetUserPreferenceToggle", u"SetUserPreferenceIntegerValue"}) {
        FailCall(name, E_ACCESSDENIED);
        Configure(1);
        EXPECT_EQ(manager.StartApplication(), Code(0x80070005));
        EXPECT_EQ(manager.LastError(), u"");
    }
}

TEST_F(StartTest, APreferenceThatTheApplicationDoesNotTakeIsNoFailure)
{
    ConfigureAndStart(1);
    EXPECT_EQ(cad.Last().integers.at(253), 0);
}

TEST_F(StartTest, EventsThatCannotBeHeardFailTheStart)
{
    FailCall(u"Advise", E_FAIL);
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), Code(0x80004005));
    EXPECT_EQ(manager.LastError(), u"Failed to attach event handlers to Torvane.");
}

TEST_F(StartTest, ARefusalToBecomeNonInteractiveIsIgnored)
{
    FailCall(u"SetInteractive", E_FAIL);
    ConfigureAndStart(1);
    EXPECT_EQ(manager.LastError(), u"");
}

TEST_F(StartTest, AHideThatFailsLeavesTheApplicationAttachedAndCountedAsRunning)
{
    for (const std::u16string name : {u"SetBackgroundRun", u"GetFrame", u"GetWindowHandle", u"SetMainWindowShown"}) {
        TVManager ours(machine.platform);
        ours.Configure(outputs, 2, task.get(), 2013);
        FailCall(name, Code(0x80010001));
        EXPECT_EQ(ours.StartApplication(), Code(0x80010001));
        EXPECT_EQ(ours.LastError(), u"Failed to set Torvane main window as invisible.");
        EXPECT_TRUE(ours.GetApplication());
        EXPECT_EQ(ours.CheckMemory(), MemoryCheck::BaselineTaken);
    }
}

TEST_F(StartTest, AFailedBackgroundRunSkipsTheRestOfTheHiding)
{
    FailCall(u"SetBackgroundRun", E_FAIL);
    Configure(1);
    manager.StartApplication();
    EXPECT_EQ(cad.Last().script.CountOf(u"GetFrame"), 0);
    EXPECT_EQ(cad.Last().script.CountOf(u"SetAppSwitch"), 0);
}

TEST_F(StartTest, AFrameWithoutItsInterfaceIsNoFailure)
{
    cad.prepare = [](fakes::FakeApplication& application, int) { application.frameHasInterface = false; };
    ConfigureAndStart(1);
    EXPECT_TRUE(machine.desktop.Shown().empty());
    EXPECT_EQ(cad.Last().script.CountOf(u"SetMainWindowShown"), 1);
}

TEST_F(StartTest, ARefusedApplicationSwitchIsIgnored)
{
    FailCall(u"SetAppSwitch", E_FAIL);
    ConfigureAndStart(1);
}

TEST_F(StartTest, AStartEmptiesTheLastErrorAndLetsGoOfTheOldApplication)
{
    machine.log.FailNth("processes.Start", 1);
    Configure(1);
    EXPECT_LT(manager.StartApplication(), 0);
    EXPECT_NE(manager.LastError(), u"");
    EXPECT_EQ(manager.StartApplication(), 0);
    EXPECT_EQ(manager.LastError(), u"");
}

TEST_F(StartTest, AVersionOfZeroShowsTheNumberZeroInTheText)
{
    machine.runningObjects.RemoveClass(u"Torvane.Application");
    Configure(1, 0);
    manager.StartApplication();
    EXPECT_EQ(manager.LastError(), u"Torvane 0 is not installed.");
}

TEST_F(StartTest, TheRunCountIsZeroAfterAStart)
{
    ConfigureAndStart(1);
    EXPECT_EQ(manager.RunCount(), 0);
}

TEST_F(StartTest, TheChoiceOfSheetsAndConfigurationsIsReadForAConvertTaskOnly)
{
    task->variables.SetInt(u"FileSheets", 4);
    task->variables.SetText(u"OutputSheets", u"8");
    task->variables.SetInt(u"FileConfs", 2);
    task->variables.SetInt(u"OutputConfs", 8);
    task->variables.SetText(u"NamedSheet", u"A*");
    task->variables.SetText(u"NamedConf", u"B*");
    Configure(2);
    EXPECT_EQ(manager.SheetChoice().files, 0u);
    Configure(1);
    EXPECT_EQ(manager.SheetChoice().files, 4u);
    EXPECT_EQ(manager.SheetChoice().outputs, 8u);
    EXPECT_EQ(manager.SheetChoice().named, u"A*");
    EXPECT_EQ(manager.ConfigurationChoice().files, 2u);
    EXPECT_EQ(manager.ConfigurationChoice().outputs, 8u);
    EXPECT_EQ(manager.ConfigurationChoice().named, u"B*");
}

TEST_F(StartTest, AnAbsentChoiceKeepsWhatTheRunBeforeHad)
{
    task->variables.SetInt(u"FileSheets", 4);
    Configure(1);
    task->variables.Remove(u"FileSheets");
    Configure(1);
    EXPECT_EQ(manager.SheetChoice().files, 4u);
}

TEST_F(StartTest, AChoiceThatIsNoNumberIsRaised)
{
    task->variables.SetText(u"FileSheets", u"abc");
    outputs.Reset(vault.Get(), 1, ExistingFiles::NewVersion);
    EXPECT_EQ(RaisedBy([&] { manager.Configure(outputs, 1, task.get(), 2013); }), Code(0x80020005));
}

TEST_F(StartTest, EachPreferenceThatCannotBeSetEndsTheStartAtOnce)
{
    struct Row
    {
        std::u16string_view name;
        int nth;
        size_t callsMade;
    };
    const Row rows[] = {
        {u"SetUserPreferenceToggle", 1, 2},
        {u"SetUserPreferenceToggle", 2, 3},
        {u"SetUserPreferenceIntegerValue", 1, 4},
    };
    for (const Row& row : rows) {
        cad.prepare = [&](fakes::FakeApplication& application, int) {
            application.script.OnCall(row.nth, row.name).Fail(E_ACCESSDENIED);
        };
        Configure(1);
        EXPECT_EQ(manager.StartApplication(), Code(0x80070005));
        EXPECT_EQ(cad.Last().script.Calls().size(), row.callsMade);
    }
}

TEST_F(StartTest, AnApplicationWithoutTheEventsFailsTheStart)
{
    FailCall(u"FindConnectionPoint", Code(0x80040200));
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), Code(0x80040200));
    EXPECT_EQ(manager.LastError(), u"Failed to attach event handlers to Torvane.");
    EXPECT_EQ(cad.Last().script.CountOf(u"SetInteractive"), 0);
}

TEST_F(StartTest, AStartThatFailsBeforeTheHidingKeepsTheCountAndTakesNoBaseline)
{
    ConfigureAndStart(1);
    manager.MaintainApplication();
    ASSERT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    FailCall(u"GetRevisionNumber", E_FAIL);
    EXPECT_LT(manager.StartApplication(), 0);
    EXPECT_EQ(manager.RunCount(), 1);
    EXPECT_EQ(manager.CheckMemory(), MemoryCheck::Fine);
}

TEST_F(StartTest, AHideThatFailsPutsTheRunCountToZero)
{
    ConfigureAndStart(1);
    manager.MaintainApplication();
    ASSERT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
    FailCall(u"SetMainWindowShown", E_FAIL);
    EXPECT_LT(manager.StartApplication(), 0);
    EXPECT_EQ(manager.RunCount(), 0);
}

TEST_F(StartTest, TheYearOfAnUnversionedClassReplacesTheOneThatWasAskedFor)
{
    machine.runningObjects.RemoveClass(u"Torvane.Application.21");
    machine.registry.PutText(kLocalMachineRoot,
                             u"SOFTWARE\\Classes\\CLSID\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}\\ProgID", u"",
                             u"Torvane.Application.20");
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), 0);
    EXPECT_EQ(manager.RequestedVersion(), 2012);
    EXPECT_EQ(manager.LastError(), u"");
    EXPECT_EQ(machine.log.SubjectsOf("runningObjects.ClassFromProgId"),
              (Calls{u"Torvane.Application.21", u"Torvane.Application"}));
    EXPECT_EQ(machine.processes.Last().commandLine, u"C:\\CAD\\TORVANE.EXE /R");
}

TEST_F(StartTest, WithoutAnExecutableTheStartFails)
{
    machine.registry.DeleteKey(kLocalMachineRoot, u"SOFTWARE\\Torvane");
    machine.registry.DeleteKey(kLocalMachineRoot, u"SOFTWARE\\Classes");
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), Code(0x80004005));
    EXPECT_EQ(manager.LastError(), u"Failed to start Torvane 2013.");
    EXPECT_EQ(machine.processes.Count(), 0u);
    EXPECT_EQ(machine.threads.LiveThreads(), 0u);
}

TEST_F(StartTest, ACommandLineIsCutWhereTheBufferOf260CharactersEnds)
{
    machine.registry.PutText(kLocalMachineRoot, u"SOFTWARE\\Torvane\\Torvane 2013\\Setup", u"Torvane Folder",
                             u"C:\\" + std::u16string(247, u'x'));
    ConfigureAndStart(1);
    EXPECT_EQ(machine.processes.Last().commandLine, u"C:\\" + std::u16string(247, u'x') + u"\\TORVANE.");
}

TEST_F(StartTest, AProcessThatNeverRegistersAndCannotBeOpenedIsAFailedStartAllTheSame)
{
    cad.registersAfter.reset();
    cad.prepare = [this](fakes::FakeApplication&, int) { machine.processes.Last().canBeOpened = false; };
    Configure(1);
    EXPECT_EQ(manager.StartApplication(), Code(0x80004005));
    EXPECT_EQ(manager.LastError(), u"Failed to start Torvane 2013.");
    EXPECT_EQ(machine.log.CountOf("process.Terminate"), 0u);
}

TEST_F(StartTest, ConfiguringEmptiesTheDocumentsWithoutTakingThemOffTheApplication)
{
    ConfigureAndStart(1);
    cad.Last().Open(1, u"a.tvnprt");
    ASSERT_EQ(manager.DocumentCount(), 1u);
    Configure(1);
    EXPECT_EQ(manager.DocumentCount(), 0u);
    EXPECT_EQ(cad.Last().script.CountOf(u"Unadvise"), 0);
}

TEST_F(StartTest, EveryFailureOfTheApplicationHasItsNumberAndItsWords)
{
    struct Row
    {
        uint32_t key;
        std::u16string_view text;
    };
    const Row rows[] = {
        {8, u"Torvane %d is not installed."},
        {9, u"Failed to attach event handlers to Torvane."},
        {10, u"Failed to start Torvane %d."},
        {11, u"Failed to close Torvane application."},
        {12, u"Failed to run Torvane macro."},
        {93, u"Failed to set Torvane main window as invisible."},
        {94, u"Failed to get Torvane revision number."},
        {95, u"Reason:"},
    };
    ASSERT_EQ(std::size(kManagerTexts), std::size(rows));
    for (size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(kManagerTexts[i].key, rows[i].key);
        EXPECT_EQ(kManagerTexts[i].text, rows[i].text);
    }
    EXPECT_EQ(NotInstalledText(2013), u"Torvane 2013 is not installed.");
    EXPECT_EQ(AttachFailedText(), u"Failed to attach event handlers to Torvane.");
    EXPECT_EQ(StartFailedText(2013), u"Failed to start Torvane 2013.");
    EXPECT_EQ(CloseFailedText(), u"Failed to close Torvane application.");
    EXPECT_EQ(HideFailedText(), u"Failed to set Torvane main window as invisible.");
    EXPECT_EQ(RevisionFailedText(), u"Failed to get Torvane revision number.");
}

TEST_F(StartTest, AYearBelowZeroHasAClassNameOfItsOwnAndNoOtherClassServes)
{
    Configure(1, -1);
    EXPECT_EQ(manager.StartApplication(), Code(0x800401F3));
    EXPECT_EQ(machine.log.SubjectsOf("runningObjects.ClassFromProgId"), (Calls{u"Torvane.Application.-1993"}));
    EXPECT_EQ(manager.LastError(), u"Torvane -1 is not installed.");
}

TEST_F(StartTest, EachOfTheSixChoicesIsReadFromItsOwnVariable)
{
    Configure(1);
    const auto choices = [this] {
        const OutputChoice& sheets = manager.SheetChoice();
        const OutputChoice& configurations = manager.ConfigurationChoice();
        return std::vector<uint32_t>{sheets.files, sheets.outputs, configurations.files, configurations.outputs};
    };
    EXPECT_EQ(choices(), (std::vector<uint32_t>{0, 0, 0, 0}));
    task->variables.SetInt(u"FileSheets", 1);
    Configure(1);
    EXPECT_EQ(choices(), (std::vector<uint32_t>{1, 0, 0, 0}));
    task->variables.SetInt(u"OutputSheets", 2);
    Configure(1);
    EXPECT_EQ(choices(), (std::vector<uint32_t>{1, 2, 0, 0}));
    task->variables.SetInt(u"FileConfs", 4);
    Configure(1);
    EXPECT_EQ(choices(), (std::vector<uint32_t>{1, 2, 4, 0}));
    task->variables.SetInt(u"OutputConfs", 8);
    Configure(1);
    EXPECT_EQ(choices(), (std::vector<uint32_t>{1, 2, 4, 8}));
    task->variables.SetText(u"NamedSheet", u"S");
    Configure(1);
    EXPECT_EQ(manager.SheetChoice().named, u"S");
    EXPECT_EQ(manager.ConfigurationChoice().named, u"");
    task->variables.SetText(u"NamedConf", u"C");
    Configure(1);
    EXPECT_EQ(manager.SheetChoice().named, u"S");
    EXPECT_EQ(manager.ConfigurationChoice().named, u"C");
}

TEST_F(StartTest, APrintAndAScriptTaskReadNoChoice)
{
    for (const int32_t kind : {2, 3}) {
        task->variables.SetInt(u"FileSheets", 4);
        task->variables.SetText(u"NamedConf", u"C");
        Configure(kind);
        EXPECT_EQ(manager.SheetChoice().files, 0u) << kind;
        EXPECT_EQ(manager.ConfigurationChoice().named, u"") << kind;
    }
}

} // namespace tv
