#include "vault_fixture.h"

namespace tv {
namespace {

class Results : public VaultFilesTest
{};

TEST_F(Results, ListTheRegisteredOutputs)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\a.stl");
    Save(u"D:\\Elsewhere\\b.stl");
    files.AddPrinted(u"printed", u"");
    files.AddOutput(u"C:\\Vault\\neverwritten.stl", u"", false);
    ASSERT_EQ(Register(), 0);
    std::vector<VyxDocument> list;
    EXPECT_EQ(files.CollectResultFiles(list, true), 0);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].fileId, vault.File(u"C:\\Vault\\a.stl")->id);
    EXPECT_EQ(list[0].objectType, 1);
    EXPECT_EQ(list[0].folderId, vault.Folder(u"C:\\Vault")->id);
    EXPECT_EQ(list[0].version, 1);
}

TEST_F(Results, ListTheLogWhenItIsWanted)
{
    Begin();
    machine.files.AddFile(u"C:\\Vault\\run.log", "x");
    ASSERT_EQ(files.RegisterLogFile(u"C:\\Vault\\run.log"), 0);
    std::vector<VyxDocument> list;
    EXPECT_EQ(files.CollectResultFiles(list, false), 0);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(files.CollectResultFiles(list, true), 0);
    EXPECT_EQ(list.size(), 1u);
}

TEST_F(Results, SkipWhatIsNotInTheVault)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\a.stl");
    std::vector<VyxDocument> list;
    EXPECT_EQ(files.CollectResultFiles(list, true), 0);
    EXPECT_TRUE(list.empty());
}

TEST_F(Results, EndWithAFailureOfTheVault)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\a.stl");
    ASSERT_EQ(Register(), 0);
    for (const char* operation : {"Vault.GetFileFromPath", "File.GetID", "Folder.GetID", "File.GetCurrentVersion"}) {
        std::vector<VyxDocument> list;
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        EXPECT_EQ(files.CollectResultFiles(list, true), E_ACCESSDENIED) << operation;
    }
}

TEST_F(Results, KnowOfALogThatStandsOnTheDisk)
{
    Begin();
    EXPECT_FALSE(files.AnyLogFileExists());
    files.AddOutput(u"C:\\Vault\\run.log", u"", true);
    EXPECT_FALSE(files.AnyLogFileExists());
    machine.files.AddFile(u"C:\\Vault\\run.log", "x");
    EXPECT_TRUE(files.AnyLogFileExists());
}

TEST_F(Results, AreNoLogWhenOrdinaryFilesExist)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\a.log");
    EXPECT_FALSE(files.AnyLogFileExists());
}

TEST_F(Results, AreCountedByWhereTheyStand)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\a.stl");
    Save(u"D:\\b.stl");
    files.AddOutput(u"C:\\Vault\\neverwritten.stl", u"", false);
    files.AddPrinted(u"printed", u"");
    files.AddOutput(u"C:\\Vault\\run.log", u"", true);
    machine.files.AddFile(u"C:\\Vault\\run.log", "x");
    EXPECT_EQ(files.CountExistingOutputs(false, true), 2);
    EXPECT_EQ(files.CountExistingOutputs(false, false), 1);
    EXPECT_EQ(files.CountExistingOutputs(true, false), 2);
    EXPECT_EQ(files.CountExistingOutputs(true, true), 3);
}

} // namespace
} // namespace tv
