#include "vault_fixture.h"

namespace tv {
namespace {

class Registration : public VaultFilesTest
{
  protected:
    std::vector<std::string> Utilities() { return vault.Script().CallsOf("Vault.CreateUtility"); }
    std::string Logged(std::string_view context, std::string_view words)
    {
        return "An error occured: " + std::string(context) + "\r\r\n\t" + std::string(words);
    }
    static constexpr const char* kDenied =
        "E_VYX_PERMISSION_DENIED\r\r\n\tYou don't have permission to perform this action.";
};

TEST_F(Registration, OfNothingIsASuccess)
{
    Begin();
    vault.Script().ClearCalls();
    EXPECT_EQ(Register(), 0);
    EXPECT_TRUE(vault.Script().Calls().empty());
}

TEST_F(Registration, AddsANewFileAndChecksItIn)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\Out\\a.stl");
    EXPECT_EQ(Register(), 0);
    const fakes::FakeFile* added = vault.File(u"C:\\Vault\\Out\\a.stl");
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->CurrentVersion(), 1);
    EXPECT_TRUE(added->lockedBy.empty());
    EXPECT_EQ(added->versions.at(1).comment, u"Torvane Task Add-in");
    EXPECT_EQ(files.Outputs()[0].fileId, added->id);
    EXPECT_EQ(files.Outputs()[0].folderId, added->folderId);
    EXPECT_TRUE(files.Outputs()[0].inVault);
    EXPECT_EQ(vault.Script().CallsOf("BatchAdd.AddFileFromPathToPath"),
              (std::vector<std::string>{"BatchAdd.AddFileFromPathToPath C:\\Vault\\Out\\a.stl -> C:\\Vault\\Out"}));
}

TEST_F(Registration, ChecksTheNewVersionOfAnExistingFileIn)
{
    Begin();
    WorkOn();
    const fakes::FakeFile& existing = vault.AddFile(u"C:\\Vault\\a.stl", 1);
    Save(u"C:\\Vault\\a.stl");
    EXPECT_EQ(Register(), 0);
    EXPECT_EQ(existing.CurrentVersion(), 2);
    EXPECT_TRUE(existing.lockedBy.empty());
    EXPECT_EQ(vault.Script().CountOf("BatchAdd.CommitAdd"), 0u);
}

TEST_F(Registration, AddsAReplacedFileAnewAtVersionOne)
{
    Begin(1, ExistingFiles::Replace);
    WorkOn();
    const int32_t oldId = vault.AddFile(u"C:\\Vault\\a.stl", 5).id;
    Save(u"C:\\Vault\\a.stl");
    EXPECT_EQ(Register(), 0);
    const fakes::FakeFile* added = vault.File(u"C:\\Vault\\a.stl");
    ASSERT_NE(added, nullptr);
    EXPECT_NE(added->id, oldId);
    EXPECT_EQ(added->CurrentVersion(), 1);
}

TEST_F(Registration, ChecksEverythingInByOneSelectionInListOrder)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\new.stl");
    const fakes::FakeFile& existing = vault.AddFile(u"C:\\Vault\\old.stl");
    Save(u"C:\\Vault\\old.stl");
    EXPECT_EQ(Register(), 0);
    const fakes::FakeFile* added = vault.File(u"C:\\Vault\\new.stl");
    const auto pair = [](const fakes::FakeFile& file) {
        return std::to_string(file.id) + " " + std::to_string(file.folderId);
    };
    EXPECT_EQ(vault.Script().CallsOf("BatchUnlock.AddSelection"),
              (std::vector<std::string>{"BatchUnlock.AddSelection " + pair(*added) + ", " + pair(existing)}));
    EXPECT_EQ(vault.Script().CallsOf("BatchUnlock.CreateTree"), (std::vector<std::string>{"BatchUnlock.CreateTree 1"}));
}

TEST_F(Registration, LeavesOutWhatIsNoNewFileOfTheVault)
{
    Begin();
    WorkOn();
    Save(u"D:\\Out\\a.stl");
    files.AddOutput(u"C:\\Vault\\neverwritten.stl", u"", false);
    files.AddPrinted(u"C:\\Vault\\printed", u"");
    EXPECT_EQ(Register(), 0);
    EXPECT_EQ(vault.Script().CountOf("BatchAdd.AddFileFromPathToPath"), 0u);
    EXPECT_EQ(vault.Script().CountOf("BatchAdd.CommitAdd"), 0u);
    EXPECT_EQ(Utilities(), (std::vector<std::string>{"Vault.CreateUtility 16"}));
}

TEST_F(Registration, UsesTheUtilitiesOfAConvertTaskInOrder)
{
    Begin(1);
    WorkOn();
    task->variables.SetText(u"FileCardData", u"Number;8;1\n");
    task->variables.SetBool(u"RefToSource", true);
    Save(u"C:\\Vault\\a.stl");
    EXPECT_EQ(Register(), 0);
    EXPECT_EQ(Utilities(), (std::vector<std::string>{"Vault.CreateUtility 16", "Vault.CreateUtility 2",
                                                     "Vault.CreateUtility 8", "Vault.CreateUtility 6"}));
}

TEST_F(Registration, WritesCardsAndReferencesForConvertTasksOnly)
{
    for (int32_t kind : {2, 3}) {
        Begin(kind);
        WorkOn();
        task->variables.SetText(u"FileCardData", u"Number;8;1\n");
        task->variables.SetBool(u"RefToSource", true);
        vault.Script().ClearCalls();
        Save(kind == 2 ? u"C:\\Vault\\a.stl" : u"C:\\Vault\\b.stl");
        EXPECT_EQ(Register(), 0);
        EXPECT_EQ(Utilities(), (std::vector<std::string>{"Vault.CreateUtility 16", "Vault.CreateUtility 6"})) << kind;
    }
}

TEST_F(Registration, LogsThatTheAddUtilityCantBeMade)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\a.stl");
    vault.Script().Fail("Vault.CreateUtility", 1, fakes::kVaultPermissionDenied);
    EXPECT_EQ(Register(), fakes::kVaultPermissionDenied);
    EXPECT_EQ(LogText(), Logged("Creating VyxUtil_BatchAdd interface.", kDenied));
}

TEST_F(Registration, LogsTheFolderOfAFileThatCantBeQueued)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\Out\\a.stl");
    Save(u"C:\\Vault\\Out\\b.stl");
    vault.Script().Fail("BatchAdd.AddFileFromPathToPath", 1, fakes::kVaultPermissionDenied);
    EXPECT_EQ(Register(), fakes::kVaultPermissionDenied);
    EXPECT_EQ(LogText(), Logged("Adding file 'C:\\Vault\\Out' from path.", kDenied));
    EXPECT_EQ(vault.Script().CountOf("BatchAdd.AddFileFromPathToPath"), 1u);
}

TEST_F(Registration, LogsAFailureOfTheWholeBatch)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\a.stl");
    vault.Script().Fail("BatchAdd.CommitAdd", 1, fakes::kVaultPermissionDenied);
    EXPECT_EQ(Register(), fakes::kVaultPermissionDenied);
    EXPECT_EQ(LogText(),
              Logged("Adding files to the vault. No permission to add files to the destination folder?", kDenied));
    EXPECT_EQ(vault.Script().CountOf("BatchUnlock.UnlockFiles"), 0u);
}

TEST_F(Registration, GoesOnAfterOneFileThatCantBeAdded)
{
    Begin();
    WorkOn();
    vault.AddFolder(u"C:\\Vault\\Closed");
    vault.MakeReadOnly(u"C:\\Vault\\Closed");
    Save(u"C:\\Vault\\Closed\\a.stl");
    Save(u"C:\\Vault\\b.stl");
    EXPECT_EQ(Register(), 0);
    EXPECT_EQ(LogText(), Logged("Error adding a file to the vault.", kDenied));
    EXPECT_EQ(vault.File(u"C:\\Vault\\Closed\\a.stl"), nullptr);
    ASSERT_NE(vault.File(u"C:\\Vault\\b.stl"), nullptr);
    EXPECT_TRUE(vault.File(u"C:\\Vault\\b.stl")->lockedBy.empty());
    EXPECT_FALSE(files.Outputs()[0].inVault);
}

TEST_F(Registration, TreatsAFileThatCameInByAnotherWayAsAdded)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\a.stl");
    Save(u"C:\\Vault\\b.stl");
    const fakes::FakeFile& other = vault.AddFile(u"C:\\Vault\\A.STL");
    vault.CheckOut(u"C:\\Vault\\a.stl", u"operator");
    EXPECT_EQ(Register(), 0);
    EXPECT_TRUE(files.Outputs()[0].inVault);
    EXPECT_EQ(files.Outputs()[0].fileId, other.id);
    EXPECT_EQ(files.Outputs()[0].folderId, other.folderId);
    EXPECT_EQ(LogText(), "");
    EXPECT_EQ(other.CurrentVersion(), 2);
}

TEST_F(Registration, EndsWhenTheIdsOfSuchAFileCantBeHad)
{
    for (const char* operation : {"Vault.GetFileFromPath", "File.GetID", "Folder.GetID"}) {
        SCOPED_TRACE(operation);
        Begin(3);
        WorkOn();
        Save(u"C:\\Vault\\a.stl");
        vault.AddFile(u"C:\\Vault\\a.stl");
        vault.Script().ClearCalls();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        EXPECT_EQ(Register(), E_ACCESSDENIED);
        EXPECT_EQ(vault.Script().CountOf("BatchUnlock.UnlockFiles"), 0u);
        vault.Script().ClearFaults();
        vault.World().files.clear();
    }
}

TEST_F(Registration, CreatesAReferenceToTheSource)
{
    Begin();
    const TaskFile& source = WorkOn();
    task->variables.SetBool(u"RefToSource", true);
    Save(u"C:\\Vault\\a.stl");
    EXPECT_EQ(Register(), 0);
    const auto& references = vault.File(u"C:\\Vault\\a.stl")->references;
    ASSERT_EQ(references.size(), 1u);
    EXPECT_EQ(references[0].fileId, source.fileId);
    EXPECT_EQ(references[0].folderId, source.folderId);
    EXPECT_EQ(vault.Script().CallsOf("BatchRefs.CommitReferences"),
              (std::vector<std::string>{"BatchRefs.CommitReferences 0"}));
}

TEST_F(Registration, CommitsReferencesASecondTimeWhenTheFirstLeavesSomePending)
{
    Begin();
    WorkOn();
    task->variables.SetBool(u"RefToSource", true);
    vault.World().pendingCommits = {7};
    Save(u"C:\\Vault\\a.stl");
    EXPECT_EQ(Register(), 0);
    EXPECT_EQ(vault.Script().CallsOf("BatchRefs.CommitReferences"),
              (std::vector<std::string>{"BatchRefs.CommitReferences 0", "BatchRefs.CommitReferences 7"}));
    EXPECT_EQ(vault.File(u"C:\\Vault\\a.stl")->references.size(), 1u);
}

TEST_F(Registration, CreatesNoReferenceWhenNobodyAskedForOne)
{
    for (const bool isSet : {false, true}) {
        Begin();
        WorkOn();
        if (isSet) {
            task->variables.SetBool(u"RefToSource", false);
        }
        Save(isSet ? u"C:\\Vault\\a.stl" : u"C:\\Vault\\b.stl");
        EXPECT_EQ(Register(), 0);
        EXPECT_EQ(vault.Script().CountOf("BatchRefs.AddReferences"), 0u);
    }
}

TEST_F(Registration, StopsBeforeTheCheckInWhenReferencesFail)
{
    for (const char* operation : {"BatchRefs.AddReferences", "BatchRefs.CommitReferences"}) {
        SCOPED_TRACE(operation);
        machine.files.RemoveFile(u"C:\\Vault\\Logs\\{11111111-2222-3333-4444-555555555555}.log");
        vault.World().files.clear();
        Begin();
        WorkOn();
        task->variables.SetBool(u"RefToSource", true);
        Save(u"C:\\Vault\\a.stl");
        vault.Script().Fail(operation, 1, fakes::kVaultPermissionDenied);
        EXPECT_EQ(Register(), fakes::kVaultPermissionDenied);
        EXPECT_EQ(LogText(), Logged("Error creating references from source to destination file.", kDenied));
        EXPECT_EQ(vault.Script().CountOf("BatchUnlock.UnlockFiles"), 0u);
        EXPECT_EQ(vault.File(u"C:\\Vault\\a.stl")->lockedBy, u"operator");
    }
}

TEST_F(Registration, StopsBeforeTheCheckInWhateverFailsOfCardsAndReferences)
{
    struct Row
    {
        const char* operation;
        int nth;
    };
    const Row rows[] = {
        {"Vault.CreateUtility", 2},        {"Vault.GetFileFromPath", 1},
        {"File.GetEnumeratorVariable", 1}, {"EnumeratorVariable.GetVersionVariables", 1},
        {"BatchUpdate.SetCardValue", 1},   {"BatchUpdate.CommitUpdate", 1},
        {"Vault.CreateUtility", 3},        {"BatchRefs.AddReferences", 1},
        {"BatchRefs.CommitReferences", 1}, {"BatchRefs.CommitReferences", 2},
    };
    vault.AddVariable(u"Number");
    task->variables.SetText(u"FileCardData", u"Number;8;1\n");
    task->variables.SetBool(u"RefToSource", true);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.operation);
        machine.files.RemoveFile(u"C:\\Vault\\Logs\\{11111111-2222-3333-4444-555555555555}.log");
        vault.World().files.clear();
        vault.World().pendingCommits = {7};
        vault.Script().ClearFaults();
        Begin();
        WorkOn();
        Save(u"C:\\Vault\\a.stl");
        vault.Script().Fail(row.operation, row.nth, fakes::kVaultPermissionDenied);
        EXPECT_EQ(Register(), fakes::kVaultPermissionDenied);
        EXPECT_TRUE(vault.Script().FaultFired());
        EXPECT_EQ(LogText(), Logged("Error creating references from source to destination file.", kDenied));
        EXPECT_EQ(vault.File(u"C:\\Vault\\a.stl")->lockedBy, u"operator");
    }
}

TEST_F(Registration, StopsBeforeTheCheckInWhenTheSettingsCantBeRead)
{
    for (const int nth : {1, 2}) {
        SCOPED_TRACE(nth);
        vault.World().files.clear();
        Begin();
        WorkOn();
        Save(u"C:\\Vault\\a.stl");
        task->script.ClearFaults();
        task->script.Fail("Task.GetVariable", nth, E_ACCESSDENIED);
        EXPECT_EQ(Register(), E_ACCESSDENIED);
        EXPECT_EQ(vault.File(u"C:\\Vault\\a.stl")->lockedBy, u"operator");
    }
}

TEST_F(Registration, LogsOneEntryForEachFileThatCantBeAdded)
{
    Begin();
    WorkOn();
    vault.AddFolder(u"C:\\Vault\\Closed");
    vault.MakeReadOnly(u"C:\\Vault\\Closed");
    Save(u"C:\\Vault\\Closed\\a.stl");
    Save(u"C:\\Vault\\Closed\\b.stl");
    EXPECT_EQ(Register(), 0);
    const std::string entry = Logged("Error adding a file to the vault.", kDenied);
    EXPECT_EQ(LogText(), entry + entry);
    EXPECT_EQ(Utilities(), (std::vector<std::string>{"Vault.CreateUtility 16"}));
}

TEST_F(Registration, TakesTheBatchAtItsWordForAFileThatIsThereAndCantBeFound)
{
    Begin(3);
    WorkOn();
    Save(u"C:\\Vault\\a.stl");
    vault.AddFile(u"C:\\Vault\\a.stl");
    vault.Script().Fail("Vault.GetFileFromPath", 1, 1);
    EXPECT_EQ(Register(), fakes::kVaultFileNotFound);
    EXPECT_TRUE(files.Outputs()[0].inVault);
    EXPECT_EQ(vault.Script().CallsOf("BatchUnlock.AddSelection"),
              (std::vector<std::string>{"BatchUnlock.AddSelection 0 0"}));
}

TEST_F(Registration, KeepsAFileOfAnotherAndChecksTheRestIn)
{
    Begin(3);
    WorkOn();
    vault.AddFile(u"C:\\Vault\\theirs.stl");
    vault.CheckOut(u"C:\\Vault\\theirs.stl", u"somebody");
    Save(u"C:\\Vault\\theirs.stl");
    Save(u"C:\\Vault\\mine.stl");
    EXPECT_EQ(Register(), fakes::kVaultNotLockedByYou);
    EXPECT_EQ(vault.File(u"C:\\Vault\\theirs.stl")->lockedBy, u"somebody");
    EXPECT_EQ(vault.File(u"C:\\Vault\\mine.stl")->lockedBy, u"");
    EXPECT_EQ(LogText(),
              Logged("Unlocking files.", "E_VYX_FILE_NOT_LOCKED_BY_YOU\r\r\n\tThe file isn't checked out by you."));
}

TEST_F(Registration, StopsWhenAFolderThatOnlyBeginsLikeTheRootIsRefused)
{
    Begin(3);
    WorkOn();
    Save(u"C:\\Vault2\\a.stl");
    Save(u"C:\\Vault\\b.stl");
    EXPECT_EQ(Register(), fakes::kVaultFolderNotFound);
    EXPECT_EQ(vault.Script().CountOf("BatchAdd.CommitAdd"), 0u);
    EXPECT_TRUE(LogText().starts_with("An error occured: Adding file 'C:\\Vault2' from path."));
}

TEST_F(Registration, LogsAFailureOfTheCardsInTheSameWords)
{
    Begin();
    WorkOn();
    task->variables.SetText(u"FileCardData", u"Number;8;1\n");
    Save(u"C:\\Vault\\a.stl");
    vault.Script().Fail("BatchUpdate.CommitUpdate", 1, fakes::kVaultPermissionDenied);
    EXPECT_EQ(Register(), fakes::kVaultPermissionDenied);
    EXPECT_EQ(LogText(), Logged("Error creating references from source to destination file.", kDenied));
}

TEST_F(Registration, LogsThatTheCheckInUtilityCantBeMade)
{
    Begin(3);
    WorkOn();
    Save(u"C:\\Vault\\a.stl");
    vault.Script().Fail("Vault.CreateUtility", 2, fakes::kVaultPermissionDenied);
    EXPECT_EQ(Register(), fakes::kVaultPermissionDenied);
    EXPECT_EQ(LogText(), Logged("Checking in all checked out docs.", kDenied));
}

TEST_F(Registration, LogsTheFirstFailureOfTheCheckIn)
{
    for (const char* operation :
         {"BatchUnlock.SetComment", "BatchUnlock.AddSelection", "BatchUnlock.CreateTree", "BatchUnlock.UnlockFiles"}) {
        SCOPED_TRACE(operation);
        machine.files.RemoveFile(u"C:\\Vault\\Logs\\{11111111-2222-3333-4444-555555555555}.log");
        vault.World().files.clear();
        Begin(3);
        WorkOn();
        Save(u"C:\\Vault\\a.stl");
        vault.Script().Fail(operation, 1, fakes::kVaultPermissionDenied);
        EXPECT_EQ(Register(), fakes::kVaultPermissionDenied);
        EXPECT_EQ(LogText(), Logged("Unlocking files.", kDenied));
    }
}

} // namespace
} // namespace tv
