#include "vault/convertible_extensions.h"

#include "altered_vault.h"
#include "vault_fixture.h"

namespace tv {
namespace {

class Selection : public VaultFilesTest
{
  protected:
    void Resolve(const std::vector<fakes::CommandFile>& elements, VaultWork work = VaultWork::None)
    {
        const SafeArray data = fakes::MakeCommandData(elements);
        files.ResolveSelection(task.get(), vault.Get(), data.get(), list, work);
    }
    std::vector<std::u16string> Paths() const
    {
        std::vector<std::u16string> paths;
        for (const auto& file : list) {
            paths.push_back(file->path);
        }
        return paths;
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
    using Paths_ = std::vector<std::u16string>;

    SelectedFiles list;
};

TEST_F(Selection, AFileElementBecomesARecord)
{
    Begin();
    Resolve({{u"C:\\Vault\\Part.TVNPRT", 12, 34, 5, u"Default", 1}});
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0]->path, u"C:\\Vault\\Part.TVNPRT");
    EXPECT_EQ(list[0]->fileId, 12);
    EXPECT_EQ(list[0]->folderId, 34);
    EXPECT_EQ(list[0]->version, 5);
    EXPECT_EQ(list[0]->conf, u"Default");
    EXPECT_EQ(list[0]->latestVersion, -1);
    EXPECT_TRUE(list[0]->isCadDocument);
    EXPECT_EQ(list[0]->source, nullptr);
}

TEST_F(Selection, AFileWithoutExtensionIsDropped)
{
    Begin();
    Resolve({{u"C:\\Vault\\Part", 1, 1}, {u"C:\\Vault.x\\Part", 1, 1}, {u"", 1, 1}});
    EXPECT_TRUE(list.empty());
}

TEST_F(Selection, AnElementOfAnotherKindIsDropped)
{
    Begin();
    Resolve({{u"C:\\Vault\\a.tvnprt", 1, 1, 1, u"", 3}, {u"C:\\Vault\\b.tvnprt", 1, 1, 1, u"", 0}});
    EXPECT_TRUE(list.empty());
}

TEST_F(Selection, AFileOfAnyExtensionMayBeSelectedByItself)
{
    Begin();
    Resolve({{u"C:\\Vault\\a.txt", 1, 1}, {u"C:\\Vault\\b.prt", 2, 1}});
    EXPECT_EQ(Paths(), (Paths_{u"C:\\Vault\\a.txt", u"C:\\Vault\\b.prt"}));
    EXPECT_FALSE(list[0]->isCadDocument);
}

TEST_F(Selection, AFileSelectedTwiceIsTwoRecords)
{
    Begin();
    Resolve({{u"C:\\Vault\\a.tvnprt", 1, 1}, {u"C:\\Vault\\a.tvnprt", 1, 1}});
    EXPECT_EQ(list.size(), 2u);
}

TEST_F(Selection, NoElementsAreNoRecords)
{
    Begin();
    files.ResolveSelection(task.get(), vault.Get(), nullptr, list, VaultWork::None);
    EXPECT_TRUE(list.empty());
}

TEST_F(Selection, NewRecordsJoinAtTheEndOfTheList)
{
    Begin();
    Resolve({{u"C:\\Vault\\a.tvnprt", 1, 1}});
    Resolve({{u"C:\\Vault\\b.tvnprt", 2, 1}});
    EXPECT_EQ(Paths(), (Paths_{u"C:\\Vault\\a.tvnprt", u"C:\\Vault\\b.tvnprt"}));
}

TEST_F(Selection, AFolderIsWalkedFilesFirstThenItsSubFolders)
{
    vault.AddFile(u"C:\\Vault\\F\\Sub\\Deep\\d.tvnprt");
    vault.AddFile(u"C:\\Vault\\F\\Sub\\s.tvnasm", 4);
    vault.AddFile(u"C:\\Vault\\F\\a.tvnprt", 2);
    vault.AddFile(u"C:\\Vault\\F\\Zed\\z.tvndrw");
    vault.AddFile(u"C:\\Vault\\F\\b.step");
    Begin();
    Resolve({{u"c:\\vault\\f", 0, 0, 0, u"", 2}});
    EXPECT_EQ(Paths(), (Paths_{u"C:\\Vault\\F\\a.tvnprt", u"C:\\Vault\\F\\b.step", u"C:\\Vault\\F\\Sub\\s.tvnasm",
                               u"C:\\Vault\\F\\Sub\\Deep\\d.tvnprt", u"C:\\Vault\\F\\Zed\\z.tvndrw"}));
    EXPECT_EQ(list[0]->version, 2);
    EXPECT_EQ(list[0]->fileId, vault.File(u"C:\\Vault\\F\\a.tvnprt")->id);
    EXPECT_EQ(list[0]->folderId, vault.Folder(u"C:\\Vault\\F")->id);
    EXPECT_EQ(list[2]->version, 4);
    EXPECT_TRUE(list[0]->isCadDocument);
    EXPECT_FALSE(list[1]->isCadDocument);
}

TEST_F(Selection, AConvertTaskTakesFromAFolderWhatItCanConvert)
{
    vault.AddFile(u"C:\\Vault\\F\\a.prt");
    vault.AddFile(u"C:\\Vault\\F\\b.tvnprt");
    Begin(1);
    Resolve({{u"C:\\Vault\\F", 0, 0, 0, u"", 2}});
    EXPECT_EQ(Paths(), (Paths_{u"C:\\Vault\\F\\b.tvnprt"}));
}

TEST_F(Selection, OtherTasksTakeEveryFileOfAFolder)
{
    vault.AddFile(u"C:\\Vault\\F\\a.prt");
    vault.AddFile(u"C:\\Vault\\F\\readme");
    for (int32_t kind : {2, 3}) {
        list.clear();
        Begin(kind);
        Resolve({{u"C:\\Vault\\F", 0, 0, 0, u"", 2}});
        EXPECT_EQ(Paths(), (Paths_{u"C:\\Vault\\F\\a.prt", u"C:\\Vault\\F\\readme"})) << kind;
    }
}

TEST_F(Selection, AFileAlsoSelectedThroughItsFolderIsTwoRecords)
{
    vault.AddFile(u"C:\\Vault\\F\\b.tvnprt");
    Begin();
    Resolve({{u"C:\\Vault\\F\\b.tvnprt", 1, 1}, {u"C:\\Vault\\F", 0, 0, 0, u"", 2}});
    EXPECT_EQ(list.size(), 2u);
}

TEST_F(Selection, AFolderThatTheVaultDoesntKnowIsDropped)
{
    Begin();
    Resolve({{u"C:\\Vault\\Nowhere", 0, 0, 0, u"", 2}});
    EXPECT_TRUE(list.empty());
}

TEST_F(Selection, AFailureOfTheFolderIsRaised)
{
    vault.AddFile(u"C:\\Vault\\F\\b.tvnprt");
    vault.AddFolder(u"C:\\Vault\\F\\Sub");
    for (const char* operation : {"Vault.GetFolderFromPath", "Folder.GetID", "Folder.GetFirstFilePosition",
                                  "Folder.GetNextFile", "File.GetLocalPath", "File.GetID", "File.GetCurrentVersion",
                                  "Folder.GetFirstSubFolderPosition", "Folder.GetNextSubFolder"}) {
        Begin();
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        EXPECT_EQ(CodeOf([&] { Resolve({{u"C:\\Vault\\F", 0, 0, 0, u"", 2}}); }), E_ACCESSDENIED) << operation;
    }
}

TEST_F(Selection, TheKindIsReadWhenNobodyToldIt)
{
    task->variables.SetInt(u"__type", 1);
    vault.AddFile(u"C:\\Vault\\F\\a.prt");
    Resolve({{u"C:\\Vault\\F", 0, 0, 0, u"", 2}});
    EXPECT_EQ(files.Kind(), 1);
    EXPECT_TRUE(list.empty());
}

TEST_F(Selection, AnUntypedTaskIsAScriptTask)
{
    Resolve({});
    EXPECT_EQ(files.Kind(), 3);
}

TEST_F(Selection, AKindThatIsKnownIsKept)
{
    task->variables.SetInt(u"__type", 1);
    Begin(2);
    Resolve({});
    EXPECT_EQ(files.Kind(), 2);
}

TEST_F(Selection, AtLaunchNoCopiesAreFetched)
{
    Begin();
    vault.AddFile(u"C:\\Vault\\a.tvnprt", 3);
    Resolve({{u"C:\\Vault\\a.tvnprt", 1, 1}});
    EXPECT_EQ(vault.Script().CountOf("Vault.CreateUtility"), 0u);
    EXPECT_EQ(list[0]->latestVersion, -1);
}

TEST_F(Selection, AtARunLocalCopiesAreFetched)
{
    const fakes::FakeFile& file = vault.AddFile(u"C:\\Vault\\a.tvnprt", 3);
    Begin();
    Resolve({{u"C:\\Vault\\a.tvnprt", file.id, file.folderId, 2}}, VaultWork::FetchLocalCopies);
    EXPECT_TRUE(machine.files.FileExists(u"C:\\Vault\\a.tvnprt"));
    EXPECT_EQ(vault.Script().CallsOf("BatchGet.AddSelection"),
              (std::vector<std::string>{"BatchGet.AddSelection " + std::to_string(file.id) + " " +
                                        std::to_string(file.folderId) + " 2"}));
    EXPECT_EQ(vault.Script().CallsOf("Vault.CreateUtility"),
              (std::vector<std::string>{"Vault.CreateUtility 12", "Vault.CreateUtility 13"}));
}

TEST_F(Selection, ANegativeVersionAsksForTheLatest)
{
    const fakes::FakeFile& file = vault.AddFile(u"C:\\Vault\\a.tvnprt");
    Begin();
    Resolve({{u"C:\\Vault\\a.tvnprt", file.id, file.folderId, -5}}, VaultWork::FetchLocalCopies);
    EXPECT_EQ(vault.Script().CallsOf("BatchGet.AddSelection"),
              (std::vector<std::string>{"BatchGet.AddSelection " + std::to_string(file.id) + " " +
                                        std::to_string(file.folderId) + " 0"}));
    EXPECT_EQ(list[0]->version, -5);
}

TEST_F(Selection, WithoutFilesTheVaultIsAskedAllTheSame)
{
    Begin();
    Resolve({}, VaultWork::FetchLocalCopies);
    EXPECT_EQ(vault.Script().CountOf("BatchGet.CreateTree"), 1u);
    EXPECT_EQ(vault.Script().CountOf("BatchGet.GetFiles"), 1u);
    EXPECT_EQ(vault.Script().CountOf("BatchList.GetFileList"), 1u);
}

TEST_F(Selection, TheReferenceRuleDecidesTheTree)
{
    struct Row
    {
        std::optional<int32_t> sourceRefs;
        std::optional<int32_t> versionType;
        const char* call;
    };
    const Row rows[] = {
        {1, {}, "BatchGet.CreateTree 1"}, {2, {}, "BatchGet.CreateTree 0"}, {5, {}, "BatchGet.CreateTree 1"},
        {6, {}, "BatchGet.CreateTree 0"}, {0, 0, "BatchGet.CreateTree 0"},  {{}, 0, "BatchGet.CreateTree 1"},
        {{}, 1, "BatchGet.CreateTree 0"}, {{}, 2, "BatchGet.CreateTree 0"}, {{}, {}, "BatchGet.CreateTree 0"},
    };
    for (const Row& row : rows) {
        task->variables.Remove(u"SourceRefs");
        task->variables.Remove(u"__printer_refversiontype");
        if (row.sourceRefs) {
            task->variables.SetInt(u"SourceRefs", *row.sourceRefs);
        }
        if (row.versionType) {
            task->variables.SetInt(u"__printer_refversiontype", *row.versionType);
        }
        Begin();
        vault.Script().ClearCalls();
        Resolve({}, VaultWork::FetchLocalCopies);
        EXPECT_EQ(vault.Script().CallsOf("BatchGet.CreateTree"), (std::vector<std::string>{row.call}));
    }
}

TEST_F(Selection, LearnsTheLatestVersions)
{
    const fakes::FakeFile& one = vault.AddFile(u"C:\\Vault\\a.tvnprt", 3);
    const fakes::FakeFile& two = vault.AddFile(u"C:\\Vault\\b.tvnprt", 7);
    const fakes::FakeFile& three = vault.AddFile(u"C:\\Vault\\moved.tvnprt", 2);
    Begin();
    // The third path leads nowhere any more, so nothing is told of its file.
    Resolve({{u"C:\\Vault\\b.tvnprt", two.id, two.folderId, 1},
             {u"C:\\Vault\\a.tvnprt", one.id, one.folderId},
             {u"C:\\Vault\\gone.tvnprt", three.id, three.folderId}},
            VaultWork::FetchLocalCopies);
    EXPECT_EQ(list[0]->latestVersion, 7);
    EXPECT_EQ(list[1]->latestVersion, 3);
    EXPECT_EQ(list[2]->latestVersion, -1);
    EXPECT_EQ(
        vault.Script().CallsOf("BatchList.AddFile"),
        (std::vector<std::string>{"BatchList.AddFile C:\\Vault\\b.tvnprt", "BatchList.AddFile C:\\Vault\\a.tvnprt",
                                  "BatchList.AddFile C:\\Vault\\gone.tvnprt"}));
}

TEST_F(Selection, AFailureOfTheVaultWorkIsRaised)
{
    const fakes::FakeFile& file = vault.AddFile(u"C:\\Vault\\a.tvnprt");
    for (const char* operation :
         {"Vault.CreateUtility", "BatchGet.AddSelection", "BatchGet.CreateTree", "BatchGet.GetFiles",
          "BatchList.AddFile", "BatchList.CreateList", "BatchList.GetFileList"}) {
        list.clear();
        Begin();
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        EXPECT_EQ(CodeOf([&] {
                      Resolve({{u"C:\\Vault\\a.tvnprt", file.id, file.folderId}}, VaultWork::FetchLocalCopies);
                  }),
                  E_ACCESSDENIED)
            << operation;
    }
    vault.Script().ClearFaults();
    vault.Script().Fail("Vault.CreateUtility", 2, E_ABORT);
    EXPECT_EQ(CodeOf([&] { Resolve({}, VaultWork::FetchLocalCopies); }), E_ABORT);
}

TEST_F(Selection, AMissingUtilityIsANullPointerFailureAtItsFirstUse)
{
    const fakes::FakeFile& file = vault.AddFile(u"C:\\Vault\\a.tvnprt");
    const auto poor = MakeObject<AlteredVault>(vault.Get());
    poor->createUtility = [](int32_t, IUnknown** utility) {
        *utility = nullptr;
        return 0;
    };
    for (const bool isEmpty : {true, false}) {
        Begin();
        const SafeArray data =
            fakes::MakeCommandData({{u"C:\\Vault\\a.tvnprt", file.id, file.folderId, 0, u"", isEmpty ? 3 : 1}});
        EXPECT_EQ(CodeOf([&] {
                      files.ResolveSelection(task.get(), poor.get(), data.get(), list, VaultWork::FetchLocalCopies);
                  }),
                  static_cast<Result>(0x80004003u));
    }
}

TEST_F(Selection, AFailureToReadTheKindIsRaised)
{
    task->script.FailAlways("Task.GetVariable", E_ACCESSDENIED);
    EXPECT_EQ(CodeOf([&] { Resolve({{u"C:\\Vault\\a.tvnprt", 1, 1}}); }), E_ACCESSDENIED);
    EXPECT_TRUE(list.empty());
}

TEST_F(Selection, AFailureToReadTheReferenceRuleIsRaised)
{
    for (const int nth : {1, 2}) {
        Begin();
        task->script.ClearFaults();
        task->script.Fail("Task.GetVariable", nth, E_ACCESSDENIED);
        EXPECT_EQ(CodeOf([&] { Resolve({}, VaultWork::FetchLocalCopies); }), E_ACCESSDENIED) << nth;
        EXPECT_EQ(vault.Script().CountOf("BatchGet.CreateTree"), 0u);
    }
}

TEST_F(Selection, TheFirstRecordOfAFileTellsItsLatestVersion)
{
    const auto given = MakeObject<GivenList>();
    for (const int32_t version : {4, 9}) {
        VyxListFile record{};
        record.fileId = 12;
        record.latestVersion = version;
        given->records.push_back(record);
    }
    const auto altered = MakeObject<AlteredVault>(vault.Get());
    altered->createUtility = [&](int32_t number, IUnknown** utility) {
        EXPECT_EQ(number, 13);
        *utility = ComPtr<IUnknown>::Share(given.get()).release();
        return 0;
    };
    ASSERT_EQ(files.Reset(altered.get(), 1, ExistingFiles::NewVersion), 0);
    std::vector<TaskFile> records(3);
    records[0].fileId = 12;
    records[1].fileId = 13;
    records[2].fileId = 12;
    EXPECT_EQ(files.GetLatestVersions(records), 0);
    EXPECT_EQ(records[0].latestVersion, 4);
    EXPECT_EQ(records[1].latestVersion, -1);
    EXPECT_EQ(records[2].latestVersion, 4);
}

TEST_F(Selection, LatestVersionsThatCantBeHadAreAResult)
{
    std::vector<TaskFile> records(1);
    records[0].path = u"C:\\Vault\\a.tvnprt";
    for (const char* operation :
         {"Vault.CreateUtility", "BatchList.AddFile", "BatchList.CreateList", "BatchList.GetFileList"}) {
        Begin();
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        EXPECT_EQ(files.GetLatestVersions(records), E_ACCESSDENIED) << operation;
    }
}

TEST_F(Selection, AFileSelectedTwiceIsFetchedTwiceAndKnowsItsLatestVersionTwice)
{
    const fakes::FakeFile& file = vault.AddFile(u"C:\\Vault\\a.tvnprt", 3);
    Begin();
    const fakes::CommandFile element{u"C:\\Vault\\a.tvnprt", file.id, file.folderId, 1};
    Resolve({element, element}, VaultWork::FetchLocalCopies);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(vault.Script().CountOf("BatchGet.AddSelection"), 2u);
    EXPECT_EQ(list[0]->latestVersion, 3);
    EXPECT_EQ(list[1]->latestVersion, 3);
}

TEST_F(Selection, AFileWithoutExtensionInAFolderIsNothingForAConvertTask)
{
    vault.AddFile(u"C:\\Vault\\F.step\\readme");
    Begin(1);
    Resolve({{u"C:\\Vault\\F.step", 0, 0, 0, u"", 2}});
    EXPECT_TRUE(list.empty());
}

TEST_F(Selection, AnEmptyFolderIsAnEmptySelection)
{
    vault.AddFolder(u"C:\\Vault\\F\\Sub");
    Begin(1);
    Resolve({{u"C:\\Vault\\F", 0, 0, 0, u"", 2}});
    EXPECT_TRUE(list.empty());
}

TEST_F(Selection, AFolderIsWalkedWhateverVersionTheElementNames)
{
    vault.AddFile(u"C:\\Vault\\F\\a.tvnprt", 3);
    Begin(1);
    Resolve({{u"C:\\Vault\\F", 5, 6, 1, u"Big", 2}});
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0]->version, 3);
    EXPECT_EQ(list[0]->conf, u"");
}

TEST(Extensions, OfConvertibleFilesAreThese)
{
    const std::u16string_view extensions[] = {
        u"tvnprt", u"tvnasm", u"tvndrw", u"drw",    u"asm", u"dxf", u"dwg",     u"psd",     u"ai",  u"lfp",
        u"tvnlfp", u"prtdot", u"asmdot", u"drwdot", u"x_t", u"x_b", u"xmt_txt", u"xmt_bin", u"igs", u"iges",
        u"step",   u"stp",    u"sat",    u"vda",    u"stl", u"ngr", u"xpr",     u"xas",     u"ipt", u"iam",
        u"par",    u"psm",    u"ckd",    u"emn",    u"brd", u"bdf", u"idb",     u"3dm"};
    ASSERT_EQ(std::size(kConvertibleExtensions), std::size(extensions));
    for (std::u16string_view extension : extensions) {
        std::u16string path = u"C:\\a.b\\c.";
        path += extension;
        EXPECT_TRUE(IsConvertible(path)) << testing::PrintToString(path);
        for (char16_t& unit : path) {
            unit = unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
        }
        EXPECT_TRUE(IsConvertible(path)) << testing::PrintToString(path);
    }
    for (const char16_t* path :
         {u"a.prt", u"a.wrl", u"a", u"a.", u"tvnprt", u"a.tvnprt.bak", u"a.step2", u"C:\\x.step\\a"}) {
        EXPECT_FALSE(IsConvertible(path)) << testing::PrintToString(std::u16string(path));
    }
}

TEST(Extensions, OfTheApplicationsDocumentsAreThree)
{
    EXPECT_TRUE(IsCadDocument(u"a.tvnprt"));
    EXPECT_TRUE(IsCadDocument(u"a.TvnAsm"));
    EXPECT_TRUE(IsCadDocument(u"a.TVNDRW"));
    EXPECT_FALSE(IsCadDocument(u"a.drw"));
    EXPECT_FALSE(IsCadDocument(u"a.tvnlfp"));
}

} // namespace
} // namespace tv
