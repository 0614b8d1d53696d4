#include "vault/convertible_extensions.h"

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
    for (const char* operation :
         {"Vault.GetFolderFromPath", "Folder.GetID", "Folder.GetFirstFilePosition", "Folder.GetNextFile",
          "File.GetLocalPath", "File.GetID", "File.GetCurrentVersion", "Folder.GetFirstSubFolderPosition"}) {
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
    vault.AddFile(u"C:\\Vault\\a.tvnprt");
    Begin();
    Resolve({{u"C:\\Vault\\a.tvnprt", 7, 8, -5}}, VaultWork::FetchLocalCopies);
    EXPECT_EQ(vault.Script().CallsOf("BatchGet.AddSelection"),
              (std::vector<std::string>{"BatchGet.AddSelection 7 8 0"}));
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
    Begin();
    Resolve({{u"C:\\Vault\\b.tvnprt", two.id, 1, 1},
             {u"C:\\Vault\\a.tvnprt", one.id, 1},
             {u"C:\\Vault\\gone.tvnprt", 999, 1}},
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
                      Resolve({{u"C:\\Vault\\a.tvnprt", file.id, 1}}, VaultWork::FetchLocalCopies);
                  }),
                  E_ACCESSDENIED)
            << operation;
    }
    vault.Script().ClearFaults();
    vault.Script().Fail("Vault.CreateUtility", 2, E_ABORT);
    EXPECT_EQ(CodeOf([&] { Resolve({}, VaultWork::FetchLocalCopies); }), E_ABORT);
}

/// A vault whose utilities are missing although it reports success.
class VaultWithoutUtilities final : public ComObject<IVyxVault>
{
  public:
    explicit VaultWithoutUtilities(IVyxVault* realVault) : real(realVault) {}
    Result TV_CALL GetName(BStr* name) override { return real->GetName(name); }
    Result TV_CALL GetRootFolderPath(BStr* path) override { return real->GetRootFolderPath(path); }
    Result TV_CALL GetFolderFromPath(const char16_t* path, IVyxFolder** folder) override
    {
        return real->GetFolderFromPath(path, folder);
    }
    Result TV_CALL GetFileFromPath(const char16_t* path, IVyxFolder** folder, IVyxFile** file) override
    {
        return real->GetFileFromPath(path, folder, file);
    }
    Result TV_CALL CreateUtility(int32_t, IUnknown** utility) override
    {
        *utility = nullptr;
        return 0;
    }
    Result TV_CALL GetErrorString(Result code, BStr* name, BStr* description) override
    {
        return real->GetErrorString(code, name, description);
    }

  private:
    IVyxVault* real;
};

TEST_F(Selection, AMissingUtilityIsANullPointerFailure)
{
    Begin();
    const auto poor = MakeObject<VaultWithoutUtilities>(vault.Get());
    EXPECT_EQ(
        CodeOf([&] { files.ResolveSelection(task.get(), poor.get(), nullptr, list, VaultWork::FetchLocalCopies); }),
        E_POINTER);
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
