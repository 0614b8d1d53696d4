#include "vault_fixture.h"

namespace tv {
namespace {

class RunLog : public VaultFilesTest
{
  protected:
    void WriteLog() { machine.files.AddFile(kLog, "An error"); }

    static constexpr std::u16string_view kLog = u"C:\\Vault\\Logs\\run.log";
};

TEST_F(RunLog, ThatExistsIsCheckedOut)
{
    Begin();
    vault.AddFile(kLog);
    files.LockExistingLog(u"C:\\Vault\\Logs\\x\\..\\run.log");
    EXPECT_EQ(vault.File(kLog)->lockedBy, u"operator");
}

TEST_F(RunLog, ThatIsCheckedOutIsLeftAlone)
{
    Begin();
    vault.AddFile(kLog);
    vault.CheckOut(kLog, u"somebody");
    files.LockExistingLog(kLog);
    EXPECT_EQ(vault.File(kLog)->lockedBy, u"somebody");
    EXPECT_EQ(vault.Script().CountOf("File.LockFile"), 0u);
}

TEST_F(RunLog, IsAskedWhetherItIsLockedBeforeItsFolderIsAsked)
{
    Begin();
    const fakes::FakeFile& log = vault.AddFile(kLog);
    vault.Script().ClearCalls();
    files.LockExistingLog(kLog);
    EXPECT_EQ(vault.Script().Calls(),
              (std::vector<std::string>{"Vault.GetFileFromPath C:\\Vault\\Logs\\run.log",
                                        "File.IsLocked C:\\Vault\\Logs\\run.log", "Folder.GetID C:\\Vault\\Logs",
                                        "File.LockFile C:\\Vault\\Logs\\run.log"}));
    EXPECT_EQ(log.lockedBy, u"operator");
}

TEST_F(RunLog, OfAnotherIsRecordedThoughItCantBeCheckedIn)
{
    Begin();
    vault.AddFile(kLog);
    vault.CheckOut(kLog, u"somebody");
    WriteLog();
    EXPECT_EQ(files.RegisterLogFile(kLog), fakes::kVaultNotLockedByYou);
    ASSERT_EQ(files.Outputs().size(), 1u);
    EXPECT_TRUE(files.Outputs()[0].isLog);
}

TEST_F(RunLog, WhoseCheckInUtilityCantBeMadeIsNotRecorded)
{
    Begin();
    WriteLog();
    vault.Script().Fail("Vault.CreateUtility", 2, E_ACCESSDENIED);
    EXPECT_EQ(files.RegisterLogFile(kLog), E_ACCESSDENIED);
    EXPECT_TRUE(files.Outputs().empty());
    EXPECT_EQ(vault.File(kLog)->lockedBy, u"operator");
}

TEST_F(RunLog, WithoutPathOrFileIsNothing)
{
    Begin();
    vault.Script().ClearCalls();
    files.LockExistingLog(u"");
    EXPECT_TRUE(vault.Script().Calls().empty());
    files.LockExistingLog(kLog);
    EXPECT_EQ(vault.Script().CountOf("File.LockFile"), 0u);
}

TEST_F(RunLog, ThatCantBeCheckedOutIsNoFailure)
{
    Begin();
    vault.AddFile(kLog);
    for (const char* operation : {"Vault.GetFileFromPath", "File.IsLocked", "Folder.GetID", "File.LockFile"}) {
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        EXPECT_NO_THROW(files.LockExistingLog(kLog)) << operation;
        EXPECT_TRUE(vault.File(kLog)->lockedBy.empty()) << operation;
    }
}

TEST_F(RunLog, ThatWasNotWrittenIsNotRegistered)
{
    Begin();
    EXPECT_EQ(files.RegisterLogFile(kLog), 1);
    EXPECT_EQ(files.RegisterLogFile(u""), 1);
    EXPECT_TRUE(files.Outputs().empty());
}

TEST_F(RunLog, ThatIsNewIsAddedAndCheckedIn)
{
    Begin();
    WriteLog();
    EXPECT_EQ(files.RegisterLogFile(kLog), 0);
    const fakes::FakeFile* log = vault.File(kLog);
    ASSERT_NE(log, nullptr);
    EXPECT_EQ(log->CurrentVersion(), 1);
    EXPECT_TRUE(log->lockedBy.empty());
    EXPECT_EQ(log->versions.at(1).comment, u"Torvane Task Add-in");
    ASSERT_EQ(files.Outputs().size(), 1u);
    const TaskFile& record = files.Outputs()[0];
    EXPECT_EQ(record.path, kLog);
    EXPECT_EQ(record.fileId, log->id);
    EXPECT_EQ(record.folderId, log->folderId);
    EXPECT_TRUE(record.isLog);
    EXPECT_TRUE(record.underVaultRoot);
    EXPECT_FALSE(record.inVault);
}

TEST_F(RunLog, ThatWasCheckedOutGetsANewVersion)
{
    Begin();
    vault.AddFile(kLog, 2);
    files.LockExistingLog(kLog);
    WriteLog();
    EXPECT_EQ(files.RegisterLogFile(kLog), 0);
    EXPECT_EQ(vault.File(kLog)->CurrentVersion(), 3);
    EXPECT_EQ(vault.Script().CountOf("BatchAdd.CommitAdd"), 0u);
}

TEST_F(RunLog, OutsideOfTheVaultIsAFailure)
{
    Begin();
    machine.files.AddFile(u"D:\\Logs\\run.log");
    EXPECT_EQ(files.RegisterLogFile(u"D:\\Logs\\run.log"), fakes::kVaultFolderNotFound);
    EXPECT_TRUE(files.Outputs().empty());
}

TEST_F(RunLog, ThatCantBeAddedIsAFailure)
{
    Begin();
    WriteLog();
    for (const char* operation :
         {"Vault.GetFileFromPath", "Vault.CreateUtility", "BatchAdd.AddFileFromPathToPath", "BatchAdd.CommitAdd"}) {
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        EXPECT_EQ(files.RegisterLogFile(kLog), E_ACCESSDENIED) << operation;
        EXPECT_TRUE(files.Outputs().empty());
    }
    vault.Script().ClearFaults();
    vault.AddFolder(u"C:\\Vault\\Logs");
    vault.MakeReadOnly(u"C:\\Vault\\Logs");
    EXPECT_EQ(files.RegisterLogFile(kLog), fakes::kVaultPermissionDenied);
}

TEST_F(RunLog, WhoseIdsCantBeHadIsAFailure)
{
    Begin();
    WriteLog();
    vault.AddFile(kLog);
    for (const char* operation : {"File.GetID", "Folder.GetID"}) {
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        EXPECT_EQ(files.RegisterLogFile(kLog), E_ACCESSDENIED) << operation;
        EXPECT_TRUE(files.Outputs().empty());
    }
}

TEST_F(RunLog, ThatCantBeCheckedInIsRecordedAllTheSame)
{
    for (const char* operation :
         {"BatchUnlock.SetComment", "BatchUnlock.AddSelection", "BatchUnlock.CreateTree", "BatchUnlock.UnlockFiles"}) {
        Begin();
        WriteLog();
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, fakes::kVaultPermissionDenied);
        EXPECT_EQ(files.RegisterLogFile(kLog), fakes::kVaultPermissionDenied) << operation;
        EXPECT_EQ(files.Outputs().size(), 1u);
        EXPECT_EQ(LogText(), "");
    }
}

} // namespace
} // namespace tv
