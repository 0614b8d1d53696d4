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

TEST(FileListText, WritesQuotesAndTabsAsTheyAre)
{
    EXPECT_EQ(FileListText({FileAt(u"\"it's\"\tx", 0, 0, 0)}, 1),
              u"<sels><sel><doc_id>0</doc_id><proj_id>0</proj_id><path>\"it's\"\tx</path><ver>0</ver></sel></sels>");
}

TEST(FileListText, WritesControlCharactersAndCarriageReturnsByTheirNumbers)
{
    EXPECT_EQ(
        FileListText({FileAt(u"a\r\nb\x01"
                             u"c",
                             1, 2, 3)},
                     1),
        u"<sels><sel><doc_id>1</doc_id><proj_id>2</proj_id><path>a&#13;\nb&#01;c</path><ver>3</ver></sel></sels>");
}

TEST(FileListText, WritesLettersOfEveryScriptAsTheyAre)
{
    EXPECT_EQ(FileListText({FileAt(u"\u00E4\u0416\u4E2D\U0001F600", 1, 2, 3)}, 1),
              u"<sels><sel><doc_id>1</doc_id><proj_id>2</proj_id><path>\u00E4\u0416\u4E2D\U0001F600</path><ver>3</ver>"
              u"</sel></sels>");
}

TEST(FileListText, KeepsHalvesOfCharacters)
{
    const std::u16string path = {u'a', 0xD83D, u'b', 0xDE00};
    EXPECT_EQ(FileListText({FileAt(path, 1, 2, 3)}, 1),
              u"<sels><sel><doc_id>1</doc_id><proj_id>2</proj_id><path>" + path + u"</path><ver>3</ver></sel></sels>");
}

TEST(FileListText, WritesBlanksAsTheyAreAndNoPathAsAnEmptyElement)
{
    EXPECT_EQ(FileListText({FileAt(u"  a  ", 1, 2, 3), FileAt(u"", 4, 5, 6)}, 1),
              u"<sels><sel><doc_id>1</doc_id><proj_id>2</proj_id><path>  a  </path><ver>3</ver></sel>"
              u"<sel><doc_id>4</doc_id><proj_id>5</proj_id><path/><ver>6</ver></sel></sels>");
}

TEST(FileListText, WritesTheLimitsOfNumbers)
{
    EXPECT_EQ(FileListText({FileAt(u"a", 2147483647, -2147483647 - 1, -1)}, 1),
              u"<sels><sel><doc_id>2147483647</doc_id><proj_id>-2147483648</proj_id><path>a</path><ver>-1</ver></sel>"
              u"</sels>");
}

TEST(FileListText, KeepsTheOrderAndAFileThatIsInItTwice)
{
    EXPECT_EQ(FileListText({FileAt(u"b", 1, 1, 1), FileAt(u"a", 2, 2, 2), FileAt(u"b", 1, 1, 1)}, 3),
              u"<sels><sel><doc_id>1</doc_id><proj_id>1</proj_id><path>b</path><ver>1</ver></sel>"
              u"<sel><doc_id>2</doc_id><proj_id>2</proj_id><path>a</path><ver>2</ver></sel>"
              u"<sel><doc_id>1</doc_id><proj_id>1</proj_id><path>b</path><ver>1</ver></sel></sels>");
}

std::vector<TaskFile> Parsed(std::u16string_view text)
{
    std::vector<TaskFile> files;
    ParseFileList(text, files);
    return files;
}

TEST(ParseFileList, CarriageReturnsLineFeedsAndControlCharactersComeBack)
{
    for (const char16_t* path : {u"a\rb", u"a\nb", u"a\r\nb", u"\r", u"\n", u"\x01\x1F\x7F", u" ", u"\t", u"]]>"}) {
        const std::vector<TaskFile> files = Parsed(FileListText({FileAt(path, 1, 2, 3)}, 1));
        ASSERT_EQ(files.size(), 1u);
        EXPECT_EQ(files[0].path, path);
    }
}

TEST(ParseFileList, NumbersAreReadAsTheSystemReadsThem)
{
    struct Row
    {
        const char16_t* text;
        int32_t number;
    };
    const Row rows[] = {
        {u"", 0},
        {u"x", 0},
        {u"-", 0},
        {u"+7", 7},
        {u" \t\n42", 42},
        {u"12abc", 12},
        {u"1 2", 1},
        {u"0x10", 0},
        {u"1.9", 1},
        {u"--5", 0},
        {u"\u0661", 0},
        {u"2147483647", 2147483647},
        {u"2147483648", 2147483647},
        {u"-2147483648", -2147483647 - 1},
        {u"-2147483649", -2147483647 - 1},
        {u"99999999999999999999999999", 2147483647},
        {u"-99999999999999999999999999", -2147483647 - 1},
    };
    for (const Row& row : rows) {
        const std::u16string text = std::u16string(u"<sels><sel><ver>") + row.text + u"</ver></sel></sels>";
        EXPECT_EQ(Parsed(text).at(0).version, row.number) << testing::PrintToString(std::u16string(row.text));
    }
}

TEST(ParseFileList, NamesOfElementsAreComparedWithTheirCase)
{
    const std::vector<TaskFile> files =
        Parsed(u"<sels><SEL><path>a</path></SEL><sel><PATH>b</PATH><Ver>1</Ver><DOC_ID>2</DOC_ID></sel></sels>");
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].path, u"");
    EXPECT_EQ(files[0].version, 0);
    EXPECT_EQ(files[0].fileId, 0);
}

TEST(ParseFileList, OfAnElementThatIsThereTwiceTheLastCounts)
{
    EXPECT_EQ(Parsed(u"<sels><sel><path>a</path><path>b</path></sel></sels>").at(0).path, u"b");
}

TEST(ParseFileList, TheNameOfTheRootDoesntMatter)
{
    EXPECT_EQ(Parsed(u"<list><sel><path>a</path></sel></list>").size(), 1u);
}

TEST(ParseFileList, SectionsCommentsAndAttributesAreRead)
{
    const std::vector<TaskFile> files =
        Parsed(u"<!-- list --><sels v='1'><sel id='9'><path>a<!-- b --><![CDATA[<&]]></path></sel></sels>");
    EXPECT_EQ(files.at(0).path, u"a<&");
}

TEST(ParseFileList, TwoRootsAreNoXml)
{
    EXPECT_THROW(Parsed(u"<sels/><sels/>"), ResultError);
    EXPECT_THROW(Parsed(u"<sels/><!-- x --><sels/>"), ResultError);
    EXPECT_TRUE(Parsed(u"<sels/><!-- x -->").empty());
}

TEST(ParseFileList, WhatWasReadBeforeStaysWhenATextIsRefused)
{
    std::vector<TaskFile> files(2);
    EXPECT_THROW(ParseFileList(u"<sels><sel><path>a</path></sel>", files), ResultError);
    EXPECT_EQ(files.size(), 2u);
}

std::u16string Repeated(std::u16string_view text, size_t count)
{
    std::u16string repeated;
    repeated.reserve(text.size() * count);
    for (size_t i = 0; i < count; ++i) {
        repeated += text;
    }
    return repeated;
}

TEST(HostileFileList, AMillionElementsDeepIsReadWithoutHarm)
{
    constexpr size_t kDepth = 1'000'000;
    const std::u16string deep = Repeated(u"<sel>", kDepth) + Repeated(u"</sel>", kDepth);
    EXPECT_EQ(Parsed(u"<sels>" + deep + u"</sels>").size(), 1u);
    EXPECT_EQ(Parsed(u"<sels><sel><path>" + deep + u"x</path></sel></sels>").at(0).path, u"x");
}

TEST(HostileFileList, AMillionOpenElementsAreRefused)
{
    EXPECT_THROW(Parsed(Repeated(u"<sel>", 1'000'000)), ResultError);
    EXPECT_THROW(Parsed(Repeated(u"<", 1'000'000)), ResultError);
    EXPECT_THROW(Parsed(u"<sels>" + Repeated(u"</sel>", 1'000'000)), ResultError);
}

TEST(HostileFileList, DeclaredEntitiesAreNotExpanded)
{
    std::u16string text = u"<!DOCTYPE sels [<!ENTITY a \"0123456789\">";
    for (char16_t name = u'b'; name <= u'z'; ++name) {
        const std::u16string part = {u'&', static_cast<char16_t>(name - 1), u';'};
        text += std::u16string(u"<!ENTITY ") + name + u" \"" + Repeated(part, 10) + u"\">";
    }
    EXPECT_EQ(Parsed(text + u"]><sels><sel><path>&z;</path></sel></sels>").at(0).path, u"&z;");
}

TEST(HostileFileList, AFileThatADeclarationNamesIsNotOpened)
{
    const std::vector<TaskFile> files = Parsed(u"<!DOCTYPE sels [<!ENTITY x SYSTEM \"file:///etc/passwd\">]>"
                                               u"<sels><sel><path>&x;</path></sel></sels>");
    EXPECT_EQ(files.at(0).path, u"&x;");
}

TEST(HostileFileList, NestedAndOpenDeclarationsAreRefused)
{
    EXPECT_THROW(Parsed(u"<!DOCTYPE sels [" + Repeated(u"<!ENTITY ", 1'000'000)), ResultError);
    EXPECT_THROW(Parsed(u"<!DOCTYPE sels [" + Repeated(u"<![IGNORE[", 1'000'000)), ResultError);
    EXPECT_THROW(Parsed(u"<!DOCTYPE " + Repeated(u"[", 1'000'000)), ResultError);
    EXPECT_THROW(Parsed(u"<!DOCTYPE"), ResultError);
}

TEST(HostileFileList, NumbersOfNoCharactersAreNoHarm)
{
    const std::vector<TaskFile> files =
        Parsed(u"<sels><sel><path>a&#x110000;&#xFFFFFFFFFF;&bogus;&</path><conf>b&#0;c</conf></sel></sels>");
    EXPECT_TRUE(files.at(0).path.starts_with(u"a"));
    EXPECT_EQ(files.at(0).conf, u"b");
}

TEST(HostileFileList, OpenSectionsCommentsAndAttributesAreRefused)
{
    for (const char16_t* text :
         {u"<sels><sel><path><![CDATA[x</path></sel></sels>", u"<sels><!-- x </sels>", u"<sels><sel a=\"x</sel></sels>",
          u"<sels><?x </sels>", u"<sels><sel/", u"<sels></sel>", u"<?xml", u"<sels><sel><path>a</sel></path></sels>"}) {
        EXPECT_THROW(Parsed(text), ResultError) << testing::PrintToString(std::u16string(text));
    }
}

TEST(HostileFileList, BinaryIsRefused)
{
    std::u16string bytes;
    uint32_t state = 1;
    for (int i = 0; i < 100'000; ++i) {
        state = state * 1664525u + 1013904223u;
        bytes += static_cast<char16_t>(state >> 16);
    }
    EXPECT_THROW(Parsed(bytes), ResultError);
    EXPECT_THROW(Parsed(u"<sels>" + bytes + u"</sels><"), ResultError);
    EXPECT_THROW(Parsed(std::u16string(1000, u'\0')), ResultError);
}

TEST(HostileFileList, AHundredMegabytesAreReadWithoutHarm)
{
#ifdef __SANITIZE_ADDRESS__
    constexpr size_t kLength = 20'000'000; // a fifth, since each unit costs so much more
#else
    constexpr size_t kLength = 100'000'000;
#endif
    std::u16string text = u"<sels><sel><path>";
    text.append(kLength, u'x').append(u"</path></sel></sels>");
    const std::vector<TaskFile> files = Parsed(text);
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].path.size(), kLength);
}

TEST(HostileFileList, ManyRecordsAreAllRead)
{
    EXPECT_EQ(Parsed(u"<sels>" + Repeated(u"<sel><path>a</path></sel>", 200'000) + u"</sels>").size(), 200'000u);
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
