#include "vault/file_list.h"

#include "vault_fixture.h"

namespace tv {
namespace {

TaskFile FileAt(std::u16string_view path, int32_t fileId, int32_t folderId, int32_t version)
{
    TaskFile file;
    file.path = path;
    file.fileId = fileId;
    file.folderId = folderId;
    file.version = version;
    return file;
}

TEST(FileListText, OfASelectedFileHoldsItsIdsPathAndVersion)
{
    EXPECT_EQ(
        FileListText({FileAt(u"C:\\Vault\\a.tvnprt", 123, 45, 3)}, 1),
        u"<sels><sel><doc_id>123</doc_id><proj_id>45</proj_id><path>C:\\Vault\\a.tvnprt</path><ver>3</ver></sel></"
        u"sels>");
}

TEST(FileListText, OfNoFilesIsAnEmptyRoot)
{
    EXPECT_EQ(FileListText({}, 1), u"<sels/>");
}

TEST(FileListText, EscapesWhatXmlReserves)
{
    EXPECT_EQ(FileListText({FileAt(u"C:\\R & D\\<a>.tvnprt", 1, 2, -1)}, 1),
              u"<sels><sel><doc_id>1</doc_id><proj_id>2</proj_id><path>C:\\R &amp; D\\&lt;a&gt;.tvnprt</path><ver>-1</"
              u"ver></sel></sels>");
}

TEST(FileListText, LeavesTheLogOut)
{
    TaskFile log = FileAt(u"C:\\Vault\\x.log", 1, 2, 3);
    log.isLog = true;
    EXPECT_EQ(FileListText({log}, 1), u"<sels/>");
}

TEST(FileListText, OfAConvertedFileTellsTheSourceAndTheOutputsPath)
{
    TaskFile source = FileAt(u"C:\\Vault\\a.tvnprt", 123, 45, 3);
    TaskFile output = FileAt(u"C:\\Vault\\a.stl", 9, 9, 9);
    output.source = &source;
    output.outputConf = u"Default";
    EXPECT_EQ(FileListText({output}, 1),
              u"<sels><sel><doc_id>123</doc_id><proj_id>45</proj_id><path>C:\\Vault\\a.tvnprt</path><ver>3</ver>"
              u"<conf>Default</conf><extra>C:\\Vault\\a.stl</extra></sel></sels>");
}

TEST(FileListText, OfAPrintedItemTellsWhatWasPrinted)
{
    TaskFile source = FileAt(u"C:\\Vault\\a.tvndrw", 123, 45, 3);
    TaskFile printed;
    printed.source = &source;
    printed.isPrinted = true;
    printed.extra = u"a - Sheet1";
    EXPECT_EQ(FileListText({printed}, 2),
              u"<sels><sel><doc_id>123</doc_id><proj_id>45</proj_id><path>C:\\Vault\\a.tvndrw</path><ver>3</ver><conf/>"
              u"<extra>a - Sheet1</extra></sel></sels>");
}

TEST(FileListText, OfAFileThatAPrintOrScriptTaskSavedHasNoExtra)
{
    TaskFile source = FileAt(u"C:\\Vault\\a.tvndrw", 1, 2, 3);
    TaskFile saved = FileAt(u"C:\\Vault\\a.pdf", 9, 9, 9);
    saved.source = &source;
    saved.outputConf = u"S";
    const std::u16string expected = u"<sels><sel><doc_id>1</doc_id><proj_id>2</proj_id><path>C:\\Vault\\a.tvndrw</path>"
                                    u"<ver>3</ver><conf>S</conf></sel></sels>";
    EXPECT_EQ(FileListText({saved}, 2), expected);
    saved.isPrinted = true;
    EXPECT_EQ(FileListText({saved}, 3), expected);
}

TEST(ParseFileList, ReadsEveryElement)
{
    std::vector<TaskFile> files;
    ParseFileList(u"<sels><sel><doc_id>123</doc_id><proj_id>45</proj_id><path>C:\\R &amp; D\\\u0416.tvnprt</path>"
                  u"<ver>3</ver><conf>Default</conf><extra>C:\\o.stl</extra><new>x</new><Path>no</Path></sel></sels>",
                  files);
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].fileId, 123);
    EXPECT_EQ(files[0].folderId, 45);
    EXPECT_EQ(files[0].path, u"C:\\R & D\\\u0416.tvnprt");
    EXPECT_EQ(files[0].version, 3);
    EXPECT_EQ(files[0].conf, u"Default");
    EXPECT_EQ(files[0].extra, u"C:\\o.stl");
    EXPECT_EQ(files[0].latestVersion, -1);
}

TEST(ParseFileList, AnEmptyRecordHasItsDefaults)
{
    std::vector<TaskFile> files;
    ParseFileList(u"<sels><sel/></sels>", files);
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].path, u"");
    EXPECT_EQ(files[0].version, 0);
    EXPECT_EQ(files[0].latestVersion, -1);
    EXPECT_EQ(files[0].fileId, 0);
}

TEST(ParseFileList, JunkInANumberReadsAsZero)
{
    std::vector<TaskFile> files;
    ParseFileList(u"<sels><sel><ver>x</ver><doc_id> 12abc</doc_id><proj_id>-7</proj_id></sel></sels>", files);
    EXPECT_EQ(files.at(0).version, 0);
    EXPECT_EQ(files.at(0).fileId, 12);
    EXPECT_EQ(files.at(0).folderId, -7);
}

TEST(ParseFileList, TakesOnlyTheRootsOwnRecordsAndAppendsThem)
{
    std::vector<TaskFile> files(1);
    ParseFileList(u"<?xml version=\"1.0\"?>\r\n<sels>\r\n <sel><path>a</path></sel>\r\n <other><sel/></other>\r\n"
                  u" <sel><path>b</path></sel>\r\n</sels>\r\n",
                  files);
    ASSERT_EQ(files.size(), 3u);
    EXPECT_EQ(files[1].path, u"a");
    EXPECT_EQ(files[2].path, u"b");
}

TEST(ParseFileList, ATextThatIsNoXmlIsRaised)
{
    std::vector<TaskFile> files;
    for (const char16_t* text : {u"", u"sels", u"<sels>", u"<sels><sel></sels>", u"\xD800"}) {
        EXPECT_THROW(ParseFileList(text, files), ResultError) << testing::PrintToString(std::u16string(text));
    }
    EXPECT_TRUE(files.empty());
}

TEST(ParseFileList, ReadsBackWhatWasWritten)
{
    const std::u16string path = u"C:\\V\\ \u00E4\u0416\U0001F600\xD800 & <\"'>\t.tvnprt";
    std::vector<TaskFile> files;
    ParseFileList(FileListText({FileAt(path, 1, 2, 3), FileAt(u" ", 4, 5, 6)}, 1), files);
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[0].path, path);
    EXPECT_EQ(files[1].path, u" ");
}

class StoredList : public VaultFilesTest
{};

TEST_F(StoredList, OfASelectionIsOneVariable)
{
    Begin();
    WorkOn();
    EXPECT_EQ(files.SaveFileList(task.get(), 0, selected), 0);
    const Variant* stored = task->variables.Find(u"__selection_list");
    ASSERT_NE(stored, nullptr);
    EXPECT_EQ(stored->Type(), VT_BSTR);
    std::vector<TaskFile> loaded;
    EXPECT_EQ(VaultFiles::LoadFileList(task.get(), false, loaded), 0);
    ASSERT_EQ(loaded.size(), 1u);
    EXPECT_EQ(loaded[0].path, u"C:\\Vault\\Part.tvnprt");
    EXPECT_EQ(task->variables.Find(u"__output_list"), nullptr);
}

TEST_F(StoredList, OfASelectionReplacesTheOutputs)
{
    Begin();
    WorkOn();
    Save(u"C:\\Vault\\old.stl");
    EXPECT_EQ(files.SaveFileList(task.get(), 0, selected), 0);
    ASSERT_EQ(files.Outputs().size(), 1u);
    EXPECT_EQ(files.Outputs()[0].path, u"C:\\Vault\\Part.tvnprt");
}

TEST_F(StoredList, OfOutputsIsTheOtherVariable)
{
    Begin();
    TaskFile& source = WorkOn();
    Save(u"C:\\Vault\\a.stl", u"Default");
    EXPECT_EQ(files.SaveFileList(task.get(), 1), 0);
    EXPECT_EQ(task->variables.Find(u"__selection_list"), nullptr);
    std::vector<TaskFile> loaded;
    EXPECT_EQ(VaultFiles::LoadFileList(task.get(), true, loaded), 0);
    ASSERT_EQ(loaded.size(), 1u);
    EXPECT_EQ(loaded[0].fileId, source.fileId);
    EXPECT_EQ(loaded[0].path, u"C:\\Vault\\Part.tvnprt");
    EXPECT_EQ(loaded[0].conf, u"Default");
    EXPECT_EQ(loaded[0].extra, u"C:\\Vault\\a.stl");
}

TEST_F(StoredList, ThatCantBeWrittenIsTheResult)
{
    Begin();
    task->script.FailAlways("Task.SetVariable", E_ACCESSDENIED);
    EXPECT_EQ(files.SaveFileList(task.get(), 1), E_ACCESSDENIED);
    EXPECT_EQ(files.SaveFileList(task.get(), 1, selected), E_ACCESSDENIED);
}

TEST_F(StoredList, ThatIsAbsentOrCantBeReadIsTheResult)
{
    std::vector<TaskFile> loaded;
    EXPECT_EQ(VaultFiles::LoadFileList(task.get(), true, loaded), 1);
    EXPECT_EQ(VaultFiles::LoadFileList(task.get(), false, loaded), 1);
    task->script.FailAlways("Task.GetVariable", E_ACCESSDENIED);
    EXPECT_EQ(VaultFiles::LoadFileList(task.get(), true, loaded), E_ACCESSDENIED);
}

TEST_F(StoredList, ThatIsNoXmlIsRaised)
{
    task->variables.SetText(u"__output_list", u"junk");
    std::vector<TaskFile> loaded;
    EXPECT_THROW(VaultFiles::LoadFileList(task.get(), true, loaded), ResultError);
}

TEST_F(StoredList, MayBeReadFromATaskDefinitionToo)
{
    const auto definition = MakeObject<fakes::FakeTaskProperties>();
    definition->variables.SetText(u"__selection_list", u"<sels><sel><path>a</path></sel></sels>");
    std::vector<TaskFile> loaded;
    EXPECT_EQ(VaultFiles::LoadFileList(definition.get(), false, loaded), 0);
    EXPECT_EQ(loaded.size(), 1u);
}

} // namespace
} // namespace tv
