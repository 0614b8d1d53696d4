#include "script/task_script.h"

#include "fakes/platform/fake_platform.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

class TaskLog : public testing::Test
{
  protected:
    void SetUp() override { script.InitScript(vault.Get(), task.get(), u""); }

    std::u16string PathFor(std::u16string_view folder)
    {
        task->variables.SetText(u"ErrorLogPath", folder);
        return script.GetLogFilePath();
    }
    std::string Content(std::u16string_view path) { return machine.files.Content(path).value_or("(no file)"); }

    static constexpr std::u16string_view kLog = u"C:\\Vault\\Logs\\{11111111-2222-3333-4444-555555555555}.log";
    fakes::FakePlatform machine;
    fakes::FakeVault vault;
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    TaskScript script{machine.platform};
};

TEST_F(TaskLog, HasNoPathWithoutALogFolder)
{
    EXPECT_EQ(script.GetLogFilePath(), u"");
}

TEST_F(TaskLog, StandsWhereTheLogFolderSays)
{
    EXPECT_EQ(PathFor(u""), u"C:\\Vault\\{11111111-2222-3333-4444-555555555555}.log");
    EXPECT_EQ(PathFor(u"Logs"), kLog);
    EXPECT_EQ(PathFor(u"\\Logs"), kLog);
    EXPECT_EQ(PathFor(u"Logs\\"), kLog);
    EXPECT_EQ(PathFor(u"D:\\Logs"), u"D:\\Logs\\{11111111-2222-3333-4444-555555555555}.log");
    EXPECT_EQ(PathFor(u"\\\\server\\share"), u"\\\\server\\share\\{11111111-2222-3333-4444-555555555555}.log");
}

TEST_F(TaskLog, RaisesTheFailureOfTheVariable)
{
    task->script.FailAlways("Task.GetVariable", E_FAIL);
    EXPECT_THROW(script.GetLogFilePath(), ResultError);
}

TEST_F(TaskLog, RunsItsEntriesTogether)
{
    PathFor(u"Logs");
    script.AppendToLog(u"one");
    script.AppendToLog(u"two");
    EXPECT_EQ(Content(kLog), "onetwo");
}

TEST_F(TaskLog, CreatesItsFolder)
{
    PathFor(u"Logs\\Deep\\Down");
    script.AppendToLog(u"entry");
    EXPECT_EQ(Content(u"C:\\Vault\\Logs\\Deep\\Down\\{11111111-2222-3333-4444-555555555555}.log"), "entry");
}

TEST_F(TaskLog, IsDroppedWhenItsFolderExistsAndTheFileCantBeOpened)
{
    PathFor(u"Logs");
    machine.files.AddFolder(u"C:\\Vault\\Logs");
    machine.log.FailNth("files.OpenForAppend", 1);
    script.AppendToLog(u"lost");
    EXPECT_EQ(Content(kLog), "(no file)");
    EXPECT_EQ(machine.log.CountOf("files.OpenForAppend"), 1u);
}

TEST_F(TaskLog, IsDroppedWhenTheSecondOpeningFails)
{
    PathFor(u"Logs");
    machine.log.FailNth("files.OpenForAppend", 1, fakes::Failure::Lasting);
    script.AppendToLog(u"lost");
    EXPECT_EQ(Content(kLog), "(no file)");
    EXPECT_EQ(machine.log.CountOf("files.OpenForAppend"), 2u);
}

TEST_F(TaskLog, IsDroppedBelowAFolderOfOver260Characters)
{
    PathFor(std::u16string(250, u'x'));
    script.AppendToLog(u"kept");
    EXPECT_EQ(machine.files.Files().size(), 1u);
    PathFor(std::u16string(252, u'y'));
    script.AppendToLog(u"lost");
    EXPECT_EQ(machine.files.Files().size(), 1u);
}

TEST_F(TaskLog, IsWrittenIntoAFolderThatExists)
{
    PathFor(u"Logs");
    machine.files.AddFolder(u"C:\\Vault\\Logs");
    script.AppendToLog(u"entry");
    EXPECT_EQ(Content(kLog), "entry");
    EXPECT_EQ(machine.log.CountOf("files.CreateDirectory"), 0u);
}

TEST_F(TaskLog, GoesOnBehindWhatTheMacroWrote)
{
    PathFor(u"Logs");
    machine.files.AddFile(kLog, "macro\r\n");
    script.AppendToLog(u"add-in");
    EXPECT_EQ(Content(kLog), "macro\r\nadd-in");
}

TEST_F(TaskLog, IsClosedAfterEachEntry)
{
    PathFor(u"Logs");
    script.AppendToLog(u"entry");
    EXPECT_EQ(machine.files.OpenCount(), 0u);
}

TEST_F(TaskLog, WithoutALogFolderIsNotWritten)
{
    script.AppendToLog(u"lost");
    EXPECT_EQ(machine.log.CountOf("files.OpenForAppend"), 0u);
}

TEST_F(TaskLog, NeverRaises)
{
    PathFor(u"Logs");
    task->script.FailAlways("Task.GetVariable", E_FAIL);
    EXPECT_NO_THROW(script.AppendToLog(u"lost"));
    EXPECT_NO_THROW(script.LogVaultError(E_FAIL, u"context"));
}

TEST_F(TaskLog, IsNarrowText)
{
    PathFor(u"Logs");
    script.AppendToLog(u"\u00E4\u0416");
    EXPECT_EQ(Content(kLog), "\xE4?");
}

TEST_F(TaskLog, TellsAVaultErrorInTheVaultsWords)
{
    PathFor(u"Logs");
    script.LogVaultError(fakes::kVaultFileNotFound, u"Error adding a file to the vault.");
    // The file is open in text mode, which turns each line feed into two characters.
    EXPECT_EQ(Content(kLog),
              "An error occured: Error adding a file to the vault.\r\r\n\tE_VYX_FILE_NOT_FOUND\r\r\n\tThe file "
              "could not be found.");
}

TEST_F(TaskLog, TellsNothingWhenTheVaultHasNoWords)
{
    PathFor(u"Logs");
    vault.Script().Fail("Vault.GetErrorString", 1, E_FAIL);
    script.LogVaultError(fakes::kVaultFileNotFound, u"context");
    EXPECT_EQ(Content(kLog), "(no file)");
}

} // namespace
} // namespace tv
