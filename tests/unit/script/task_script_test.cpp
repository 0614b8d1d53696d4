#include "script/task_script.h"

#include "fakes/platform/fake_platform.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

class MacroOfARun : public testing::Test
{
  protected:
    void Init(std::u16string_view text) { script.InitScript(vault.Get(), task.get(), text); }
    void Source(std::u16string_view path = u"C:\\Vault\\Sub\\Part.tvnprt", std::u16string_view item = u"Default",
                int32_t version = 2)
    {
        script.SetSourceFile(path, item, 10, 20, version);
    }
    std::u16string Macro(std::u16string_view text)
    {
        Init(text);
        Source();
        return script.GetMacroText();
    }
    Result CodeOf(auto&& action)
    {
        try {
            action();
        } catch (const ResultError& error) {
            return error.Code();
        }
        return 0;
    }

    fakes::FakePlatform machine;
    fakes::FakeVault vault;
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    TaskScript script{machine.platform};
};

TEST_F(MacroOfARun, ExpandsCurlyThenSquareThenAngleBrackets)
{
    task->variables.SetText(u"Outer", u"[Inner]");
    task->variables.SetText(u"Inner", u"<Version>");
    EXPECT_EQ(Macro(u"{Outer}"), u"2");
}

TEST_F(MacroOfARun, DoesNotExpandCurlyBracketsThatASquareOneBrought)
{
    task->variables.SetText(u"Inner", u"{Outer}");
    task->variables.SetText(u"Outer", u"x");
    EXPECT_EQ(Macro(u"[Inner]"), u"{Outer}");
}

TEST_F(MacroOfARun, LooksANumberUpByItsNumber)
{
    task->numberedVariables[17] = Variant::FromText(u"seventeen");
    task->numberedVariables[0] = Variant::FromText(u"zero");
    EXPECT_EQ(Macro(u"{#17} {##17} {#x}"), u"seventeen seventeen zero");
}

TEST_F(MacroOfARun, LooksANameUpByItsName)
{
    task->variables.SetText(u"Name", u"value");
    EXPECT_EQ(Macro(u"{Name}{Nobody}"), u"value");
    EXPECT_EQ(task->script.CallsOf("Task.GetVariableByKey"),
              (std::vector<std::string>{"Task.GetVariableByKey Name", "Task.GetVariableByKey Nobody"}));
}

TEST_F(MacroOfARun, TakesANumberSignInSquareBracketsAsAName)
{
    task->variables.SetText(u"#17", u"name");
    EXPECT_EQ(Macro(u"[#17]"), u"name");
}

TEST_F(MacroOfARun, PutsThePathOfAnOutputIntoTheMacro)
{
    task->variables.SetText(u"OutputPath", u"<Path>\\<Filename>");
    EXPECT_EQ(Macro(u"name = \"[OutputPath]\""), u"name = \"C:\\Vault\\Sub\\<Filename>\"");
}

TEST_F(MacroOfARun, WritesAWidePathAsCalls)
{
    Init(u"p = \"<Path>\"");
    Source(u"C:\\Vault\\\u0416\\a.tvnprt");
    EXPECT_EQ(script.GetMacroText(), u"p = \"C:\\Vault\\\" & ChrW(1046) & \"\"");
}

TEST_F(MacroOfARun, RemovesBackslashesAtTheEndOfTheVaultPath)
{
    vault.World().root = u"C:\\Vault\\\\";
    EXPECT_EQ(Macro(u"<VaultPath>"), u"C:\\Vault");
}

TEST_F(MacroOfARun, KnowsTheTaskInstance)
{
    EXPECT_EQ(Macro(u"<TaskInstanceGuid>.log"), u"{11111111-2222-3333-4444-555555555555}.log");
}

TEST_F(MacroOfARun, TellsTodayInTheVaultsFormat)
{
    machine.registry.AddKey(kLocalMachineRoot, u"Software\\Torvane\\Applications\\Quellor");
    machine.registry.PutNumber(kCurrentUserRoot, u"Software\\Torvane\\Applications\\Quellor\\Vaults\\TestVault",
                               u"DateFmt", 1);
    machine.clock.SetStart({2026, 11, 15, 9, 0, 0});
    EXPECT_EQ(Macro(u"<Today>"), u"11_15_26");
}

TEST_F(MacroOfARun, GivesAllFilesTheSameDay)
{
    machine.clock.SetStart({2026, 11, 15, 23, 59, 59});
    Init(u"<Today>");
    machine.clock.Sleep(60000);
    Source();
    EXPECT_EQ(script.GetMacroText(), u"Nov 15 2026");
}

TEST_F(MacroOfARun, LeavesTodayOutWhenTheClockCantBeRead)
{
    machine.log.FailNthOfAll(1, fakes::Failure::Lasting);
    EXPECT_EQ(Macro(u"x<Today>y"), u"xy");
}

TEST_F(MacroOfARun, CutsThePathOfTheSource)
{
    struct Row
    {
        const char16_t* path;
        const char16_t* folder;
        const char16_t* name;
        const char16_t* extension;
    };
    const Row rows[] = {
        {u"C:\\Vault\\Sub\\Part.tvnprt", u"C:\\Vault\\Sub", u"Part", u"tvnprt"},
        {u"C:\\Vault\\a.b.c", u"C:\\Vault", u"a.b", u"c"},
        {u"C:\\Va.ult\\noext", u"C:\\Va.ult", u"noext", u""},
        {u"C:\\top.step", u"C:", u"top", u"step"},
        {u"C:\\Vault\\.hidden", u"C:\\Vault", u"", u"hidden"},
        {u"C:\\Vault\\Part.", u"C:\\Vault", u"Part", u""},
        {u"C:\\Vault\\Part..step", u"C:\\Vault", u"Part.", u"step"},
        {u"\\\\server\\share\\Part.step", u"\\\\server\\share", u"Part", u"step"},
    };
    Init(u"<Filepath>|<Path>");
    for (const Row& row : rows) {
        Source(row.path);
        EXPECT_EQ(script.GetMacroText(), std::u16string(row.path) + u"|" + row.folder);
        EXPECT_EQ(script.Source().fileName, row.name);
        EXPECT_EQ(script.Source().extension, row.extension);
    }
}

TEST_F(MacroOfARun, ForgetsTheLastSource)
{
    Init(u"<Filepath>|<Path>|<SelCfgOrSheet>|<Version>");
    Source(u"C:\\Vault\\Sub\\Part.tvnprt");
    Source(u"", u"", 0);
    EXPECT_EQ(script.GetMacroText(), u"|||0");
    EXPECT_EQ(script.Source().fileName, u"");
    EXPECT_EQ(script.Source().extension, u"");
}

TEST_F(MacroOfARun, LeavesTheTokensOfTheMacroToIt)
{
    task->variables.SetText(u"OutputPath", u"<Filename>_<Extension>_<Configuration>");
    EXPECT_EQ(Macro(u"\"[OutputPath]\" <Filename>"), u"\"<Filename>_<Extension>_<Configuration>\" <Filename>");
}

TEST_F(MacroOfARun, IsReplacedByTheNextRuns)
{
    EXPECT_EQ(Macro(u"one"), u"one");
    task->guid = u"{second}";
    vault.World().root = u"D:\\Other";
    EXPECT_EQ(Macro(u"two <TaskInstanceGuid> <VaultPath>"), u"two {second} D:\\Other");
}

TEST_F(MacroOfARun, TakesTheIdsAndTheVersionOfTheSource)
{
    Init(u"<Version>");
    Source(u"C:\\Vault\\a.tvnprt", u"", 42);
    EXPECT_EQ(script.GetMacroText(), u"42");
    EXPECT_EQ(script.Source().documentId, 10u);
    EXPECT_EQ(script.Source().folderId, 20u);
    EXPECT_EQ(script.Source().version, 42u);
    Source(u"C:\\Vault\\a.tvnprt", u"", -5);
    EXPECT_EQ(script.GetMacroText(), u"-5");
}

TEST_F(MacroOfARun, TakesTheConfigurationOfTheSelection)
{
    Init(u"\"<SelCfgOrSheet>\"");
    Source(u"C:\\Vault\\a.tvndrw", u"Sheet 1");
    EXPECT_EQ(script.GetMacroText(), u"\"Sheet 1\"");
    Source(u"C:\\Vault\\b.tvndrw", u"");
    EXPECT_EQ(script.GetMacroText(), u"\"\"");
}

TEST_F(MacroOfARun, StartsEveryFileFromTheSameText)
{
    Init(u"<Filepath>");
    Source(u"C:\\Vault\\a.tvnprt");
    EXPECT_EQ(script.GetMacroText(), u"C:\\Vault\\a.tvnprt");
    Source(u"C:\\Vault\\b.tvnprt");
    EXPECT_EQ(script.GetMacroText(), u"C:\\Vault\\b.tvnprt");
}

class FileInfo : public MacroOfARun
{
  protected:
    void SetUp() override
    {
        fakes::FakeFile& file = vault.AddFile(u"C:\\Vault\\Sub\\Part.tvnprt", 3);
        file.versions[2].revision = u"B";
        file.versions[2].state = u"Approved";
    }
};

TEST_F(FileInfo, IsReadWhenAnOutputPathAsksForIt)
{
    for (const char16_t* name : {u"OutputPath", u"OutputPath2"}) {
        for (const char16_t* token : {u"<Revision>", u"<WorkflowState>"}) {
            const auto one = MakeObject<fakes::FakeTaskInstance>();
            one->variables.SetText(name, token);
            TaskScript fresh(machine.platform);
            fresh.InitScript(vault.Get(), one.get(), u"<Revision> <WorkflowState>");
            EXPECT_TRUE(fresh.NeedFileInfo());
            fresh.SetSourceFile(u"C:\\Vault\\Sub\\Part.tvnprt", u"", 1, 1, 2);
            EXPECT_EQ(fresh.GetMacroText(), u"B Approved");
        }
    }
}

TEST_F(FileInfo, IsNotWantedAtFirst)
{
    EXPECT_FALSE(TaskScript(machine.platform).NeedFileInfo());
}

TEST_F(FileInfo, IsThatOfTheVersionAndOfTheFolder)
{
    task->variables.SetText(u"OutputPath", u"<Revision>");
    EXPECT_EQ(Macro(u"<Revision>"), u"B");
    const int32_t id = vault.File(u"C:\\Vault\\Sub\\Part.tvnprt")->id;
    const std::string asked = " " + std::to_string(id) + " 2 20";
    EXPECT_EQ(vault.Script().CallsOf("Vault.GetFileFromPath"),
              (std::vector<std::string>{"Vault.GetFileFromPath C:\\Vault\\Sub\\Part.tvnprt"}));
    EXPECT_EQ(vault.Script().CallsOf("File.GetRevisionName"), (std::vector{"File.GetRevisionName" + asked}));
    EXPECT_EQ(vault.Script().CallsOf("File.GetStateName"), (std::vector{"File.GetStateName" + asked}));
}

TEST_F(FileInfo, IsAskedForByThePathsAsTheyAreStored)
{
    task->variables.SetText(u"OutputPath", u"[Pattern]");
    task->variables.SetText(u"Pattern", u"<Revision>");
    EXPECT_EQ(Macro(u"x<Revision>y"), u"xy");
    EXPECT_FALSE(script.NeedFileInfo());
}

TEST_F(FileInfo, IsReadForEveryFileAnew)
{
    vault.AddFile(u"C:\\Vault\\Other.tvnprt").versions[1].revision = u"Q";
    task->variables.SetText(u"OutputPath2", u"<Revision>");
    Init(u"<Revision><WorkflowState>");
    Source();
    EXPECT_EQ(script.GetMacroText(), u"BApproved");
    Source(u"C:\\Vault\\Other.tvnprt", u"", 1);
    EXPECT_EQ(script.GetMacroText(), u"Q");
}

TEST_F(FileInfo, KeepsItsBackslashesAndSlashes)
{
    vault.File(u"C:\\Vault\\Sub\\Part.tvnprt")->versions[2].revision = u"B\\1/2";
    task->variables.SetText(u"OutputPath", u"<Path>\\<Revision>\\x");
    EXPECT_EQ(Macro(u"[OutputPath]"), u"C:\\Vault\\Sub\\B\\1/2\\x");
}

TEST_F(FileInfo, IsNotNeededForTheVersionOrTheDay)
{
    task->variables.SetText(u"OutputPath", u"<Version> <Today>");
    EXPECT_EQ(Macro(u"[OutputPath]"), u"2 Nov 15 2026");
    EXPECT_EQ(vault.Script().CountOf("Vault.GetFileFromPath"), 0u);
}

TEST_F(FileInfo, IsNotReadForTheScriptOrTheLogFolder)
{
    task->variables.SetText(u"OutputPath", u"<revision> <Version>");
    task->variables.SetText(u"ErrorLogPath", u"<Revision>");
    EXPECT_EQ(Macro(u"x<Revision><WorkflowState>y"), u"xy");
    EXPECT_FALSE(script.NeedFileInfo());
    EXPECT_EQ(vault.Script().CountOf("Vault.GetFileFromPath"), 0u);
}

TEST_F(FileInfo, StaysWantedInLaterRuns)
{
    task->variables.SetText(u"OutputPath", u"<Revision>");
    Init(u"");
    task->variables.SetText(u"OutputPath", u"plain");
    EXPECT_EQ(Macro(u"<Revision>"), u"B");
    EXPECT_TRUE(script.NeedFileInfo());
}

TEST_F(FileInfo, WithoutARevisionNameIsEmpty)
{
    task->variables.SetText(u"OutputPath", u"<Revision>");
    Init(u"x<Revision>y<WorkflowState>z");
    Source(u"C:\\Vault\\Sub\\Part.tvnprt", u"", 1);
    EXPECT_EQ(script.GetMacroText(), u"xyz");
}

TEST_F(FileInfo, OfAFileThatTheVaultDoesntKnowIsAFailure)
{
    task->variables.SetText(u"OutputPath", u"<Revision>");
    Init(u"");
    EXPECT_EQ(CodeOf([&] { Source(u"C:\\Vault\\gone.tvnprt"); }), E_POINTER);
}

TEST_F(FileInfo, OfAnUnknownVersionIsAFailure)
{
    task->variables.SetText(u"OutputPath", u"<WorkflowState>");
    Init(u"");
    EXPECT_EQ(CodeOf([&] { Source(u"C:\\Vault\\Sub\\Part.tvnprt", u"", 9); }), fakes::kVaultFileNotFound);
}

TEST_F(FileInfo, RaisesTheVaultsFailure)
{
    task->variables.SetText(u"OutputPath", u"<WorkflowState>");
    Init(u"");
    for (const char* operation : {"Vault.GetFileFromPath", "File.GetRevisionName", "File.GetStateName"}) {
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        EXPECT_EQ(CodeOf([&] { Source(); }), E_ACCESSDENIED) << operation;
    }
}

TEST_F(MacroOfARun, RaisesTheFailureOfEachValueOfTheRun)
{
    for (const char* operation : {"Vault.GetRootFolderPath", "Vault.GetName"}) {
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        EXPECT_EQ(CodeOf([&] { Init(u"text"); }), E_ACCESSDENIED) << operation;
        EXPECT_EQ(script.GetMacroText(), u"text");
    }
    for (int nth : {1, 2}) {
        task->script.ClearFaults();
        task->script.Fail("Task.GetVariable", nth, E_FAIL);
        EXPECT_EQ(CodeOf([&] { Init(u"text"); }), E_FAIL) << nth;
    }
    task->script.ClearFaults();
    task->script.Fail("Task.GetInstanceGuid", 1, E_ABORT);
    EXPECT_EQ(CodeOf([&] { Init(u"[a]text"); }), E_ABORT);
    EXPECT_EQ(script.GetMacroText(), u"text");
}

TEST_F(MacroOfARun, RaisesTheFailureOfALookup)
{
    task->script.Fail("Task.GetVariable", 1, E_FAIL);
    EXPECT_EQ(CodeOf([&] { Init(u"[a]"); }), E_FAIL);
    task->script.ClearFaults();
    task->script.Fail("Task.GetVariableByKey", 1, E_ABORT);
    EXPECT_EQ(CodeOf([&] { Init(u"{a}"); }), E_ABORT);
}

TEST_F(MacroOfARun, TakesAnOutputPathOfAnotherKindAsText)
{
    task->variables.SetInt(u"OutputPath", 5);
    EXPECT_EQ(Macro(u"[OutputPath]"), u"5");
    EXPECT_FALSE(script.NeedFileInfo());
}

} // namespace
} // namespace tv
