#include "altered_vault.h"
#include "vault_fixture.h"

namespace tv {
namespace {

class Outputs : public VaultFilesTest
{
  protected:
    void SetUp() override { Listen(); }
};

TEST_F(Outputs, BeginEmptyWithTheVaultsRoot)
{
    Begin(1);
    files.AddPrinted(u"x", u"y");
    Begin(2);
    EXPECT_TRUE(files.Outputs().empty());
    EXPECT_EQ(files.RootPath(), u"C:\\Vault");
    EXPECT_EQ(files.Kind(), 2);
}

TEST_F(Outputs, CantBeginWithoutARoot)
{
    vault.Script().FailAlways("Vault.GetRootFolderPath", E_ACCESSDENIED);
    EXPECT_EQ(files.Reset(vault.Get(), 1, ExistingFiles::NewVersion), E_ACCESSDENIED);
}

TEST_F(Outputs, AnEmptyPathIsNone)
{
    Begin();
    files.AddOutput(u"", u"Default", false);
    EXPECT_TRUE(files.Outputs().empty());
}

TEST_F(Outputs, ANewFileIsRecordedAgainstTheCurrentSource)
{
    Begin();
    TaskFile& source = WorkOn();
    files.AddOutput(u"C:\\vault\\sub\\..\\.\\Out.stl", u"Big", false);
    ASSERT_EQ(files.Outputs().size(), 1u);
    const TaskFile& output = files.Outputs()[0];
    EXPECT_EQ(output.path, u"C:\\vault\\Out.stl");
    EXPECT_EQ(output.source, &source);
    EXPECT_EQ(output.outputConf, u"Big");
    EXPECT_TRUE(output.underVaultRoot);
    EXPECT_FALSE(output.isLog);
    EXPECT_FALSE(output.inVault);
    EXPECT_EQ(output.fileId, 0);
    EXPECT_EQ(output.latestVersion, -1);
}

TEST_F(Outputs, AFileSavedTwiceIsRecordedOnce)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\Out.stl", u"One");
    Save(u"c:\\VAULT\\x\\..\\out.STL", u"Two");
    ASSERT_EQ(files.Outputs().size(), 1u);
    EXPECT_EQ(files.Outputs()[0].outputConf, u"One");
    EXPECT_TRUE(machine.files.FileExists(u"C:\\Vault\\Out.stl"));
}

TEST_F(Outputs, ANewFileIsAnnouncedThreeTimes)
{
    Begin();
    WorkOn();
    files.AddOutput(u"C:\\Vault\\Out.stl", u"", false);
    ASSERT_EQ(Notifications(), 3u);
    // Kind 1, then the path with its terminator.
    const std::vector<uint8_t>& message = machine.pipes.Messages()[0];
    ASSERT_EQ(message.size(), 4u + 2 * 17u);
    EXPECT_EQ(message[0], 1);
    EXPECT_EQ(message[4], 'C');
    EXPECT_EQ(message[4 + 2 * 15], 'l');
}

TEST_F(Outputs, AFileInTheWayIsRemovedFromTheDisk)
{
    Begin();
    WorkOn();
    machine.files.AddFile(u"C:\\Vault\\Out.stl", "old");
    machine.files.SetReadOnly(u"C:\\Vault\\Out.stl", true);
    files.AddOutput(u"C:\\Vault\\Out.stl", u"", false);
    EXPECT_FALSE(machine.files.FileExists(u"C:\\Vault\\Out.stl"));
    EXPECT_EQ(files.Outputs().size(), 1u);
}

TEST_F(Outputs, AFailureToFindTheFileCountsAsNotFound)
{
    Begin();
    WorkOn();
    vault.AddFile(u"C:\\Vault\\Out.stl");
    machine.files.AddFile(u"C:\\Vault\\Out.stl", "old");
    vault.Script().FailAlways("Vault.GetFileFromPath", E_ACCESSDENIED);
    files.AddOutput(u"C:\\Vault\\Out.stl", u"", false);
    ASSERT_EQ(files.Outputs().size(), 1u);
    EXPECT_FALSE(files.Outputs()[0].inVault);
    EXPECT_FALSE(machine.files.FileExists(u"C:\\Vault\\Out.stl"));
    EXPECT_EQ(Notifications(), 3u);
}

TEST_F(Outputs, AnExistingFileIsCheckedOutForANewVersion)
{
    Begin();
    WorkOn();
    const fakes::FakeFile& existing = vault.AddFile(u"C:\\Vault\\Out.stl", 4);
    machine.files.AddFile(u"C:\\Vault\\Out.stl", "old");
    files.AddOutput(u"C:\\Vault\\Out.stl", u"Default", false);
    ASSERT_EQ(files.Outputs().size(), 1u);
    const TaskFile& output = files.Outputs()[0];
    EXPECT_EQ(output.fileId, existing.id);
    EXPECT_EQ(output.folderId, existing.folderId);
    EXPECT_EQ(output.version, 4);
    EXPECT_TRUE(output.inVault);
    EXPECT_EQ(existing.lockedBy, u"operator");
    EXPECT_TRUE(machine.files.FileExists(u"C:\\Vault\\Out.stl"));
    EXPECT_EQ(Notifications(), 0u);
}

TEST_F(Outputs, AnExistingFileThatIsCheckedOutIsNotLockedAgain)
{
    Begin();
    WorkOn();
    vault.AddFile(u"C:\\Vault\\Out.stl");
    vault.CheckOut(u"C:\\Vault\\Out.stl", u"somebody");
    files.AddOutput(u"C:\\Vault\\Out.stl", u"Default", false);
    ASSERT_EQ(files.Outputs().size(), 1u);
    EXPECT_TRUE(files.Outputs()[0].inVault);
    EXPECT_EQ(vault.Script().CountOf("File.LockFile"), 0u);
}

TEST_F(Outputs, AnExistingFileLeavesTheVaultWhenItIsReplaced)
{
    Begin(1, ExistingFiles::Replace);
    WorkOn();
    const int32_t id = vault.AddFile(u"C:\\Vault\\Out.stl", 4).id;
    files.AddOutput(u"C:\\Vault\\Out.stl", u"Default", false);
    ASSERT_EQ(files.Outputs().size(), 1u);
    EXPECT_EQ(files.Outputs()[0].fileId, 0);
    EXPECT_FALSE(files.Outputs()[0].inVault);
    EXPECT_EQ(vault.File(u"C:\\Vault\\Out.stl"), nullptr);
    EXPECT_EQ(vault.Script().CallsOf("Folder.DeleteFile"),
              (std::vector<std::string>{"Folder.DeleteFile " + std::to_string(id) + " -1"}));
    // Once before it is deleted, three times as a new file.
    EXPECT_EQ(Notifications(), 4u);
}

TEST_F(Outputs, AFileThatCantBeReplacedIsDropped)
{
    Begin(1, ExistingFiles::Replace);
    WorkOn();
    vault.AddFile(u"C:\\Vault\\Out.stl");
    vault.CheckOut(u"C:\\Vault\\Out.stl", u"somebody");
    files.AddOutput(u"C:\\Vault\\Out.stl", u"Default", false);
    EXPECT_TRUE(files.Outputs().empty());
    EXPECT_NE(vault.File(u"C:\\Vault\\Out.stl"), nullptr);
    EXPECT_EQ(Notifications(), 1u);
}

TEST_F(Outputs, AnyFailureWithAnExistingFileDropsTheOutputSilently)
{
    vault.AddFile(u"C:\\Vault\\Out.stl");
    for (const char* operation :
         {"File.GetID", "Folder.GetID", "File.GetCurrentVersion", "File.IsLocked", "File.LockFile"}) {
        Begin();
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        files.AddOutput(u"C:\\Vault\\Out.stl", u"Default", false);
        EXPECT_TRUE(files.Outputs().empty()) << operation;
        EXPECT_EQ(LogText(), "");
    }
}

TEST_F(Outputs, ALogThatTheVaultHasIsNotRecorded)
{
    Begin();
    vault.AddFile(u"C:\\Vault\\Run.log");
    files.AddOutput(u"C:\\Vault\\Run.log", u"", true);
    EXPECT_TRUE(files.Outputs().empty());
    EXPECT_TRUE(vault.File(u"C:\\Vault\\Run.log")->lockedBy.empty());
}

TEST_F(Outputs, ANewLogIsRecordedAsOne)
{
    Begin();
    files.AddOutput(u"C:\\Vault\\Run.log", u"", true);
    ASSERT_EQ(files.Outputs().size(), 1u);
    EXPECT_TRUE(files.Outputs()[0].isLog);
}

TEST_F(Outputs, OutsideOfTheVaultAreRecordedToo)
{
    Begin();
    WorkOn();
    files.AddOutput(u"D:\\Out\\a.stl", u"", false);
    ASSERT_EQ(files.Outputs().size(), 1u);
    EXPECT_FALSE(files.Outputs()[0].underVaultRoot);
}

TEST_F(Outputs, APrintedItemNeedsNoVault)
{
    Begin(2);
    TaskFile& source = WorkOn();
    vault.Script().ClearCalls();
    files.AddPrinted(u"Drawing1 - Sheet1", u"Sheet1");
    files.AddPrinted(u"Drawing1 - Sheet1", u"Sheet1");
    ASSERT_EQ(files.Outputs().size(), 2u);
    EXPECT_TRUE(files.Outputs()[0].isPrinted);
    EXPECT_FALSE(files.Outputs()[0].isLog);
    EXPECT_EQ(files.Outputs()[0].extra, u"Drawing1 - Sheet1");
    EXPECT_EQ(files.Outputs()[0].outputConf, u"Sheet1");
    EXPECT_EQ(files.Outputs()[0].path, u"");
    EXPECT_EQ(files.Outputs()[0].source, &source);
    EXPECT_TRUE(vault.Script().Calls().empty());
    EXPECT_EQ(Notifications(), 0u);
}

TEST_F(Outputs, AFileIsAnnouncedBeforeItLeavesTheVault)
{
    Begin(1, ExistingFiles::Replace);
    WorkOn();
    vault.AddFile(u"C:\\Vault\\Out.stl");
    std::vector<bool> wasThere;
    machine.pipes.Listen(kNotificationPipe, [&](std::span<const uint8_t>) {
        wasThere.push_back(vault.File(u"C:\\Vault\\Out.stl") != nullptr);
        return std::vector<uint8_t>{0};
    });
    files.AddOutput(u"C:\\Vault\\Out.stl", u"Default", false);
    EXPECT_EQ(wasThere, (std::vector<bool>{true, false, false, false}));
}

TEST_F(Outputs, ALogThatTheVaultHasIsNotReplacedEither)
{
    Begin(1, ExistingFiles::Replace);
    vault.AddFile(u"C:\\Vault\\Run.log");
    files.AddOutput(u"C:\\Vault\\Run.log", u"", true);
    EXPECT_TRUE(files.Outputs().empty());
    EXPECT_NE(vault.File(u"C:\\Vault\\Run.log"), nullptr);
    EXPECT_EQ(Notifications(), 0u);
}

TEST_F(Outputs, AFileInTheWayThatCantBeDeletedIsNoFailure)
{
    Begin();
    WorkOn();
    machine.files.AddFile(u"C:\\Vault\\Out.stl", "old");
    machine.log.FailNth("files.DeleteFile", 1);
    files.AddOutput(u"C:\\Vault\\Out.stl", u"", false);
    EXPECT_EQ(files.Outputs().size(), 1u);
    EXPECT_EQ(Notifications(), 3u);
}

TEST_F(Outputs, AFileThatTheRunItselfHasCheckedOutIsNotLockedAgain)
{
    Begin();
    WorkOn();
    const fakes::FakeFile& existing = vault.AddFile(u"C:\\Vault\\Out.stl", 2);
    vault.CheckOut(u"C:\\Vault\\Out.stl", u"operator");
    files.AddOutput(u"C:\\Vault\\Out.stl", u"Default", false);
    ASSERT_EQ(files.Outputs().size(), 1u);
    EXPECT_TRUE(files.Outputs()[0].inVault);
    EXPECT_EQ(files.Outputs()[0].fileId, existing.id);
    EXPECT_EQ(vault.Script().CountOf("File.LockFile"), 0u);
}

TEST_F(Outputs, AFoundFileWithoutItsObjectsIsDropped)
{
    for (const ExistingFiles existing : {ExistingFiles::NewVersion, ExistingFiles::Replace}) {
        const auto altered = MakeObject<AlteredVault>(vault.Get());
        altered->getFileFromPath = [](IVyxFolder**, IVyxFile**) { return 0; };
        ASSERT_EQ(files.Reset(altered.get(), 1, existing), 0);
        machine.files.AddFile(u"C:\\Vault\\Out.stl", "kept");
        files.AddOutput(u"C:\\Vault\\Out.stl", u"Default", false);
        EXPECT_TRUE(files.Outputs().empty());
        EXPECT_TRUE(machine.files.FileExists(u"C:\\Vault\\Out.stl"));
    }
}

TEST_F(Outputs, APathThatOnlyBeginsLikeTheRootCountsAsUnderIt)
{
    Begin();
    WorkOn();
    files.AddOutput(u"c:\\VAULT2\\a.stl", u"", false);
    ASSERT_EQ(files.Outputs().size(), 1u);
    EXPECT_TRUE(files.Outputs()[0].underVaultRoot);
}

TEST_F(Outputs, ThatDifferInTurkishOrGreekLettersAreTwoFiles)
{
    Begin();
    WorkOn();
    for (const char16_t* path :
         {u"C:\\Vault\\i.stl", u"C:\\Vault\\\u0131.stl", u"C:\\Vault\\\u0130.stl", u"C:\\Vault\\\u00DF.stl",
          u"C:\\Vault\\ss.stl", u"C:\\Vault\\\u03C2.stl", u"C:\\Vault\\\u03C3.stl"}) {
        files.AddOutput(path, u"", false);
    }
    EXPECT_EQ(files.Outputs().size(), 7u);
    files.AddOutput(u"C:\\Vault\\I.STL", u"", false);
    files.AddOutput(u"C:\\Vault\\\u03A3.STL", u"", false);
    EXPECT_EQ(files.Outputs().size(), 7u);
}

TEST_F(Outputs, AreBookedAgainstTheFileThatTheMacroFirstSavedThemFor)
{
    Begin();
    TaskFile& first = WorkOn(u"C:\\Vault\\a.tvnprt");
    Save(u"C:\\Vault\\a.stl");
    TaskFile& second = WorkOn(u"C:\\Vault\\b.tvnprt");
    Save(u"C:\\Vault\\b.stl");
    Save(u"C:\\Vault\\a.stl");
    ASSERT_EQ(files.Outputs().size(), 2u);
    EXPECT_EQ(files.Outputs()[0].source, &first);
    EXPECT_EQ(files.Outputs()[1].source, &second);
}

TEST(OutputListTest, RecordsWithTheSamePathAreFoundInListOrder)
{
    OutputList list;
    for (const char16_t* path : {u"C:\\a.stl", u"C:\\b.stl", u"c:\\A.STL", u"", u"C:\\a.stl"}) {
        TaskFile file;
        file.path = path;
        list.Add(std::move(file));
    }
    EXPECT_EQ(list.WithPath(u"C:\\A.stl"), (std::vector<size_t>{0, 2, 4}));
    EXPECT_EQ(list.WithPath(u"C:\\b.stl"), (std::vector<size_t>{1}));
    EXPECT_EQ(list.WithPath(u""), (std::vector<size_t>{3}));
    EXPECT_TRUE(list.WithPath(u"C:\\c.stl").empty());
    list.Clear();
    EXPECT_TRUE(list.WithPath(u"C:\\a.stl").empty());
}

TEST_F(Outputs, WithoutAVaultAreTreatedAsNew)
{
    files.AddOutput(u"C:\\Vault\\a.stl", u"", false);
    EXPECT_EQ(files.Outputs().size(), 1u);
}

} // namespace
} // namespace tv
