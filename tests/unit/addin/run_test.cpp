#include "addin_test.h"

#include <algorithm>

namespace tv {

namespace {

using Texts = std::vector<std::u16string>;
using fakes::MacroResult;
using fakes::WrittenProgress;

constexpr char16_t kAddInPath[] = u"Software\\Torvane\\AddInsStartup\\{A}";
constexpr char16_t kLogPath[] = u"C:\\Vault\\Logs\\{11111111-2222-3333-4444-555555555555}.log";

class RunTest : public AddInTest
{};

} // namespace

TEST_F(RunTest, AConversionEndsInTheVault)
{
    VariantBool cancel = 0;
    EXPECT_EQ(RunTask(&cancel), 0);
    EXPECT_EQ(cancel, 0);
    EXPECT_EQ(macros, (std::vector<std::string>{"Convert C:\\Vault\\a.tvnprt", "Convert C:\\Vault\\b.tvnprt"}));
    for (const char16_t* path : {u"C:\\Vault\\a.step", u"C:\\Vault\\b.step"}) {
        ASSERT_NE(vault.File(path), nullptr);
        EXPECT_EQ(vault.File(path)->CurrentVersion(), 1);
        EXPECT_EQ(vault.File(path)->lockedBy, u"");
    }
    EXPECT_EQ(LastStatus().status, 7);
    EXPECT_EQ(LastStatus().result, 0);
    EXPECT_FALSE(LastStatus().message);
    EXPECT_EQ(machine.processes.RunningCount(), 0u);
}

TEST_F(RunTest, OneProcessServesAllFiles)
{
    RunTask();
    EXPECT_EQ(cad.StartCount(), 1);
}

TEST_F(RunTest, NothingOfTheRunStaysBehind)
{
    RunTask();
    EXPECT_EQ(machine.files.OpenCount(), 0u);
    EXPECT_EQ(machine.processes.OpenHandles(), 0u);
    EXPECT_EQ(machine.registry.OpenCount(), 0u);
    EXPECT_EQ(machine.threads.LiveThreads(), 0u);
    EXPECT_EQ(machine.threads.LiveEvents(), 0u);
    for (const std::u16string& path : machine.files.Files()) {
        EXPECT_FALSE(path.starts_with(u"C:\\Temp\\")) << testing::PrintToString(path);
    }
}

TEST_F(RunTest, TheProgressGoesFileByFileAndEndsAtTheTop)
{
    RunTask();
    EXPECT_EQ(task->progress, (std::vector<WrittenProgress>{{0, 3, u"C:\\Vault\\a.tvnprt"},
                                                            {1, std::nullopt, u"C:\\Vault\\b.tvnprt"},
                                                            {2, std::nullopt, u"Adding files to vault..."},
                                                            {3, std::nullopt, u""}}));
}

TEST_F(RunTest, ThePrintRunHasNoStepOfAdding)
{
    task->variables.SetInt(u"__type", 2);
    onMacro = [](fakes::FakeApplication&, const std::string&) { return MacroResult{}; };
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(task->progress.front().upper, 2);
    EXPECT_EQ(ProgressTexts(), (Texts{u"C:\\Vault\\a.tvnprt", u"C:\\Vault\\b.tvnprt", u""}));
    EXPECT_EQ(task->progress.back().position, 2);
    EXPECT_EQ(LastStatus().status, 7);
}

TEST_F(RunTest, AScriptRunWritesNoOutputListAndShowsTheStepOfAdding)
{
    task->variables.SetInt(u"__type", 3);
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(task->variables.Find(u"__output_list"), nullptr);
    EXPECT_EQ(ProgressTexts().at(2), u"Adding files to vault...");
    EXPECT_NE(vault.File(u"C:\\Vault\\a.step"), nullptr);
    EXPECT_EQ(LastStatus().status, 7);
}

TEST_F(RunTest, TheOutputListNamesSourcesAndOutputs)
{
    RunTask();
    const std::u16string list = task->variables.Text(u"__output_list");
    EXPECT_NE(list.find(u"<path>C:\\Vault\\a.tvnprt</path>"), std::u16string::npos);
    EXPECT_NE(list.find(u"<extra>C:\\Vault\\a.step</extra>"), std::u16string::npos);
}

TEST_F(RunTest, TheVersionIsTheRequestedOneOrElseTheLatest)
{
    task->variables.SetText(u"__script", u"<Version>");
    onMacro = [](fakes::FakeApplication&, const std::string&) { return MacroResult{}; };
    selection = {selection[0], selection[0], selection[0], selection[0]};
    selection[1].version = 2;
    selection[2].version = -1;
    selection[3].version = -5;
    RunTask();
    ASSERT_EQ(macros.size(), 4u);
    EXPECT_EQ(macros[0], "3");
    EXPECT_EQ(macros[1], "2");
    EXPECT_EQ(macros[2], "3");
    EXPECT_EQ(macros[3], "-5");
}

TEST_F(RunTest, AnEmptySelectionStartsNothingAndCancels)
{
    selection.clear();
    VariantBool cancel = 0;
    EXPECT_EQ(RunTask(&cancel), 1);
    EXPECT_EQ(cancel, -1);
    EXPECT_EQ(machine.processes.Count(), 0u);
    EXPECT_EQ(LastStatus().status, 9);
    EXPECT_EQ(LastStatus().message, u"No file selected.");
    EXPECT_TRUE(task->progress.empty());
    EXPECT_EQ(task->variables.Find(u"__output_list"), nullptr);
}

TEST_F(RunTest, ATaskWithoutAScriptFailsBeforeAnythingIsStarted)
{
    task->variables.Remove(u"__script");
    EXPECT_EQ(RunTask(), Code(0x8000FFFF));
    EXPECT_EQ(machine.processes.Count(), 0u);
    EXPECT_EQ(LastStatus().status, 9);
    EXPECT_EQ(LastStatus().result, Code(0x8000FFFF));
    EXPECT_EQ(LastStatus().message, u"No file selected.");
}

TEST_F(RunTest, SettingsThatCannotBeTakenOverEndTheRunWithTheirCode)
{
    task->variables.SetText(u"FileSheets", u"abc");
    EXPECT_EQ(RunTask(), Code(0x80020005));
    EXPECT_EQ(machine.processes.Count(), 0u);
    EXPECT_EQ(LastStatus().message, u"No file selected.");
}

TEST_F(RunTest, AnApplicationThatDoesNotStartIsStartedOnceMore)
{
    machine.log.FailNth("processes.Start", 1);
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(LastStatus().status, 7);
    EXPECT_EQ(macros.size(), 2u);
}

TEST_F(RunTest, AnApplicationThatDoesNotStartTwiceEndsTheRun)
{
    machine.log.FailNth("processes.Start", 1, fakes::Failure::Lasting);
    EXPECT_EQ(RunTask(), Code(0x80004005));
    EXPECT_EQ(LastStatus().status, 9);
    EXPECT_EQ(LastStatus().message, u"Failed to start Torvane 2013.");
    EXPECT_TRUE(task->progress.empty());
}

TEST_F(RunTest, AVersionOfZeroIsNotToldInTheMessage)
{
    task->variables.Remove(u"__tv_version");
    machine.runningObjects.RemoveClass(u"Torvane.Application");
    EXPECT_EQ(RunTask(), Code(0x800401F3));
    EXPECT_EQ(LastStatus().message, u"Torvane is not installed.");
}

TEST_F(RunTest, AMacroThatFailsEndsTheLoopAndWhatWasDoneIsRegistered)
{
    AddPart(u"C:\\Vault\\c.tvnprt", 1);
    onMacro = [this](fakes::FakeApplication& application, const std::string& macro) {
        return macros.size() == 1 ? SaveBeside(application, macro) : MacroResult{0, false, 28};
    };
    EXPECT_EQ(RunTask(), Code(0x80004005));
    EXPECT_EQ(macros.size(), 2u);
    ASSERT_NE(vault.File(u"C:\\Vault\\a.step"), nullptr);
    EXPECT_EQ(vault.File(u"C:\\Vault\\a.step")->lockedBy, u"");
    EXPECT_EQ(LastStatus().status, 9);
    EXPECT_EQ(LastStatus().message, u"Failed to run Torvane macro. Reason: File open failed.");
    EXPECT_NE(task->variables.Find(u"__output_list"), nullptr);
    EXPECT_EQ(machine.processes.RunningCount(), 0u);
    EXPECT_EQ(task->progress.back().position, 4);
}

TEST_F(RunTest, ALogFileMakesTheRunEndWithErrorsAndGoesToTheVault)
{
    onMacro = [this](fakes::FakeApplication& application, const std::string& macro) {
        machine.files.AddFile(kLogPath, "a went wrong");
        return SaveBeside(application, macro);
    };
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(LastStatus().status, 9);
    EXPECT_EQ(LastStatus().message, u"Task finished with errors. Please see the log-file for more details.");
    ASSERT_NE(vault.File(kLogPath), nullptr);
    EXPECT_EQ(vault.File(kLogPath)->lockedBy, u"");
    EXPECT_NE(vault.File(u"C:\\Vault\\a.step"), nullptr);
}

TEST_F(RunTest, ALogFileThatStandsInTheVaultIsCheckedOutBeforeTheMacros)
{
    vault.AddFile(kLogPath, 1);
    std::u16string lockedBy;
    onMacro = [&](fakes::FakeApplication& application, const std::string& macro) {
        lockedBy = vault.File(kLogPath)->lockedBy;
        return SaveBeside(application, macro);
    };
    RunTask();
    EXPECT_EQ(lockedBy, u"operator");
}

TEST_F(RunTest, ARunWithoutALogFolderHandlesNoLog)
{
    task->variables.Remove(u"ErrorLogPath");
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(LastStatus().status, 7);
}

TEST_F(RunTest, AConvertRunThatLeavesNoFileHasFailed)
{
    onMacro = [](fakes::FakeApplication&, const std::string&) { return MacroResult{}; };
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(LastStatus().status, 9);
    EXPECT_EQ(LastStatus().message, u"No file converted.");
}

TEST_F(RunTest, AConvertRunThatWritesOutsideTheVaultHasNotFailed)
{
    onMacro = [](fakes::FakeApplication& application, const std::string&) {
        fakes::FakeDocument& document = application.Open(1, u"a");
        application.Write(document, u"D:\\Out\\a.step");
        application.Close(document);
        return MacroResult{};
    };
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(LastStatus().status, 7);
}

TEST_F(RunTest, APrintRunListsWhatWasPrintedAndAddsNothing)
{
    task->variables.SetInt(u"__type", 2);
    onMacro = [](fakes::FakeApplication& application, const std::string&) {
        fakes::FakeDocument& document = application.OpenSilently(3, u"d");
        document.AddView();
        document.printTarget = u"d.tvndrw - Sheet1";
        application.Fire(kEventDocumentLoaded);
        application.Print(document);
        application.Close(document);
        return MacroResult{};
    };
    EXPECT_EQ(RunTask(), 0);
    EXPECT_NE(task->variables.Text(u"__output_list").find(u"<extra>d.tvndrw - Sheet1</extra>"), std::u16string::npos);
    EXPECT_EQ(vault.Script().CountOf("BatchAdd.AddFileFromPathToPath"), 0u);
    EXPECT_EQ(LastStatus().status, 7);
}

TEST_F(RunTest, ExistingOutputsGetANewVersionAndKeepTheirId)
{
    const int32_t id = vault.AddFile(u"C:\\Vault\\a.step", 1).id;
    RunTask();
    EXPECT_EQ(vault.File(u"C:\\Vault\\a.step")->id, id);
    EXPECT_EQ(vault.File(u"C:\\Vault\\a.step")->CurrentVersion(), 2);
    EXPECT_EQ(vault.File(u"C:\\Vault\\a.step")->lockedBy, u"");
}

TEST_F(RunTest, ReplacedOutputsAreNewFilesAtVersionOne)
{
    task->variables.SetBool(u"ReplaceOutput", true);
    const int32_t id = vault.AddFile(u"C:\\Vault\\a.step", 4).id;
    RunTask();
    ASSERT_NE(vault.File(u"C:\\Vault\\a.step"), nullptr);
    EXPECT_NE(vault.File(u"C:\\Vault\\a.step")->id, id);
    EXPECT_EQ(vault.File(u"C:\\Vault\\a.step")->CurrentVersion(), 1);
}

TEST_F(RunTest, StartupAddInsAreOffDuringTheRunAndOnAgainAfterwards)
{
    machine.registry.PutNumber(kCurrentUserRoot, kAddInPath, u"", 1);
    std::optional<uint32_t> during;
    onMacro = [&](fakes::FakeApplication& application, const std::string& macro) {
        during = machine.registry.Number(kCurrentUserRoot, kAddInPath, u"");
        return SaveBeside(application, macro);
    };
    RunTask();
    EXPECT_EQ(during, 0u);
    EXPECT_EQ(machine.registry.Number(kCurrentUserRoot, kAddInPath, u""), 1u);
}

TEST_F(RunTest, StartupAddInsAreRestoredAfterAFailedRunToo)
{
    machine.registry.PutNumber(kCurrentUserRoot, kAddInPath, u"", 1);
    task->variables.SetText(u"__tv_version", u"abc");
    EXPECT_EQ(RunTask(), Code(0x80020005));
    EXPECT_EQ(machine.registry.Number(kCurrentUserRoot, kAddInPath, u""), 1u);
}

TEST_F(RunTest, ASuspendRequestBetweenTwoFilesIsHonouredAndTheNextFileWorkedOn)
{
    task->comingStatuses = {3, 3, 10, 5, 5, 11, 3};
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(macros.size(), 2u);
    ASSERT_EQ(task->writtenStatuses.size(), 3u);
    EXPECT_EQ(task->writtenStatuses[0].status, 5);
    EXPECT_FALSE(task->writtenStatuses[0].hasDocuments);
    EXPECT_FALSE(task->writtenStatuses[0].message);
    EXPECT_EQ(task->writtenStatuses[1].status, 3);
    EXPECT_EQ(task->writtenStatuses[2].status, 7);
    EXPECT_EQ(std::ranges::count(machine.clock.Sleeps(), 5000u), 3);
}

TEST_F(RunTest, ACancelDuringSuspensionEndsTheLoop)
{
    task->comingStatuses = {3, 3, 10, 5, 6};
    VariantBool cancel = 0;
    EXPECT_EQ(RunTask(&cancel), 1);
    EXPECT_EQ(cancel, -1);
    EXPECT_EQ(macros.size(), 1u);
    EXPECT_NE(vault.File(u"C:\\Vault\\a.step"), nullptr);
    ASSERT_EQ(task->writtenStatuses.size(), 1u);
    EXPECT_EQ(task->writtenStatuses[0].status, 5);
    EXPECT_EQ(std::ranges::count(machine.clock.Sleeps(), 5000u), 2);
}

TEST_F(RunTest, ACancelBetweenTwoFilesRegistersWhatWasSaved)
{
    task->comingStatuses = {3, 3, 6};
    VariantBool cancel = 0;
    RunTask(&cancel);
    EXPECT_EQ(cancel, -1);
    EXPECT_EQ(macros.size(), 1u);
    ASSERT_NE(vault.File(u"C:\\Vault\\a.step"), nullptr);
    EXPECT_EQ(vault.File(u"C:\\Vault\\a.step")->lockedBy, u"");
    EXPECT_TRUE(task->writtenStatuses.empty());
    EXPECT_EQ(machine.processes.RunningCount(), 0u);
    EXPECT_EQ(ProgressTexts().back(), u"");
}

TEST_F(RunTest, ACancelBeforeTheSelectionIsResolvedSkipsTheStepOfAdding)
{
    task->comingStatuses = {6};
    VariantBool cancel = 0;
    RunTask(&cancel);
    EXPECT_EQ(cancel, -1);
    EXPECT_EQ(vault.Script().CountOf("Vault.CreateUtility"), 0u);
    EXPECT_EQ(task->progress, (std::vector<WrittenProgress>{{1, std::nullopt, u""}}));
    EXPECT_EQ(machine.processes.Count(), 0u);
}

TEST_F(RunTest, AnyOtherStatusLetsTheRunGoOn)
{
    task->comingStatuses = {1, 2, 4, 12, 3};
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(macros.size(), 2u);
}

TEST_F(RunTest, ASecondRunOnTheSameObjectBeginsAnew)
{
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(vault.File(u"C:\\Vault\\a.step")->CurrentVersion(), 2);
    EXPECT_EQ(task->writtenStatuses.size(), 2u);
    EXPECT_EQ(LastStatus().status, 7);
    EXPECT_EQ(cad.StartCount(), 2);
}

TEST_F(RunTest, AnApplicationThatDiesDuringAMacroCostsOneRestart)
{
    bool died = false;
    onMacro = [&](fakes::FakeApplication& application, const std::string& macro) {
        if (!died) {
            died = true;
            machine.processes.End(machine.processes.Last().id, 0xC0000005);
            return MacroResult{fakes::kServerDied, false, 0};
        }
        return SaveBeside(application, macro);
    };
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(cad.StartCount(), 2);
    EXPECT_EQ(LastStatus().status, 7);
    EXPECT_NE(vault.File(u"C:\\Vault\\b.step"), nullptr);
}

TEST_F(RunTest, AProgressThatCannotBeShownEndsTheLoop)
{
    task->script.Fail("Task.SetProgressPos", 1, E_ACCESSDENIED);
    EXPECT_EQ(RunTask(), Code(0x80070005));
    EXPECT_EQ(macros.size(), 1u);
    EXPECT_EQ(LastStatus().status, 9);
}

TEST_F(RunTest, TheApplicationIsRestartedAfterAHundredMacrosAndOutputs)
{
    selection.assign(60, selection[0]);
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(macros.size(), 60u);
    EXPECT_EQ(cad.StartCount(), 2);
}

} // namespace tv
