// Routines of the templates on their own.

#include "local_macro/templates/template_world.h"

#include <gtest/gtest.h>

namespace tv::macro {
namespace {

/// The text as a literal of the language.
std::u16string Literal(std::u16string_view text)
{
    std::u16string literal = u"\"";
    for (char16_t unit : text) {
        literal.append(unit == u'"' ? 2 : 1, unit);
    }
    return literal + u"\"";
}

// clang-format off
constexpr std::u16string_view kSupported[] = {
    u"prt", u"asm", u"drw", u"dxf", u"dwg", u"psd", u"ai", u"lfp", u"tvnlfp", u"prtdot", u"asmdot", u"drwdot", u"x_t",
    u"x_b", u"xmt_txt", u"xmt_bin", u"igs", u"iges", u"step", u"stp", u"sat", u"vda", u"wrl", u"stl", u"ngr", u"xpr",
    u"xas", u"ipt", u"iam", u"par", u"psm", u"ckd", u"emn", u"brd", u"bdf", u"idb", u"3dm",
};
constexpr std::u16string_view kUnsupported[] = {
    u"", u"tvnprt", u"tvnasm", u"tvndrw", u"pdf", u"doc", u"cdk", u"dbf", u"x_", u"ste", u"steps", u".step", u"step ",
};
// clang-format on

/// What both templates have in common.
template <typename World> class SharedRoutines : public testing::Test
{};
using Templates = testing::Types<ConvertWorld, PrintWorld>;
TYPED_TEST_SUITE(SharedRoutines, Templates);

TYPED_TEST(SharedRoutines, PathAppendPutsOneBackslashBetweenItsParts)
{
    struct Row
    {
        std::u16string path;
        std::u16string more;
        const char* joined;
    };
    const Row rows[] = {
        {u"C:\\A", u"b", "C:\\A\\b"},       {u"C:\\A\\", u"b", "C:\\A\\b"},
        {u"C:\\A", u"\\b", "C:\\A\\b"},     {u"C:\\A\\", u"\\b", "C:\\A\\b"},
        {u"C:\\A\\\\", u"b", "C:\\A\\\\b"}, {u"C:\\A", u"\\\\b", "C:\\A\\\\b"},
        {u"C:\\A", u"", "C:\\A\\"},         {u"", u"b", "\\b"},
    };
    for (const Row& row : rows) {
        TypeParam world;
        EXPECT_EQ(
            world.RunStatements(u"Debug.Print PathAppend(" + Literal(row.path) + u", " + Literal(row.more) + u")"),
            row.joined);
    }
}

TYPED_TEST(SharedRoutines, PathAppendChangesItsFirstArgumentAlone)
{
    TypeParam world;
    EXPECT_EQ(world.RunStatements(u"path = \"C:\\A\"\r\nmore = \"\\b\"\r\n"
                                  u"Debug.Print PathAppend(path, more)\r\nDebug.Print path\r\nDebug.Print more"),
              "C:\\A\\b\nC:\\A\\\n\\b");
}

TYPED_TEST(SharedRoutines, EachExtensionOfTheListIsSupportedInAnyCase)
{
    TypeParam world;
    std::u16string statements;
    std::string expected;
    for (const std::u16string_view extension : kSupported) {
        statements += u"Debug.Print \"" + std::u16string(extension) + u"\" & bIsSupportedExtension(" +
                      Literal(extension) + u") & bIsSupportedExtension(UCase(" + Literal(extension) + u"))\r\n";
        expected += (expected.empty() ? "" : "\n") + Utf8Text(extension) + "TrueTrue";
    }
    EXPECT_EQ(world.RunStatements(statements), expected);
    EXPECT_EQ(std::size(kSupported), 37u);
}

TYPED_TEST(SharedRoutines, OtherExtensionsAreNotSupported)
{
    TypeParam world;
    std::u16string statements;
    std::string expected;
    for (const std::u16string_view extension : kUnsupported) {
        statements += u"Debug.Print bIsSupportedExtension(" + Literal(extension) + u")\r\n";
        expected += expected.empty() ? "False" : "\nFalse";
    }
    EXPECT_EQ(world.RunStatements(statements), expected);
}

TYPED_TEST(SharedRoutines, TheExtensionsAreTestedInTheirOrder)
{
    TypeParam world;
    const std::u16string text = world.MacroText(u"C:\\Vault\\part.tvnprt");
    // clang-format off
    constexpr std::u16string_view kOrder[] = {
        u"prt", u"asm", u"drw", u"dxf", u"dwg", u"psd", u"ai", u"lfp", u"tvnlfp", u"prtdot", u"asmdot", u"drwdot",
        u"x_t", u"x_b", u"xmt_txt", u"xmt_bin", u"igs", u"iges", u"step", u"stp", u"sat", u"vda", u"wrl", u"stl",
        u"ngr", u"wrl", u"xpr", u"xas", u"ipt", u"iam", u"par", u"psm", u"ckd", u"emn", u"brd", u"bdf", u"idb", u"3dm",
    };
    // clang-format on
    size_t at = text.find(u"Function bIsSupportedExtension");
    for (const std::u16string_view extension : kOrder) {
        at = text.find(u" = \"" + std::u16string(extension) + u"\" Then", at + 1);
        ASSERT_NE(at, std::u16string::npos) << Utf8Text(extension);
    }
}

TYPED_TEST(SharedRoutines, TheLogStandsInTheFolderOfTheTask)
{
    struct Row
    {
        std::u16string folder;
        std::u16string file;
    };
    const Row rows[] = {
        {u"Logs", u"C:\\Vault\\Logs\\{guid}.log"},
        {u"\\Logs", u"C:\\Vault\\Logs\\{guid}.log"},
        {u"Logs\\", u"C:\\Vault\\Logs\\{guid}.log"},
        {u"\\Sub\\Deep", u"C:\\Vault\\Sub\\Deep\\{guid}.log"},
        {u"", u"C:\\Vault\\{guid}.log"},
        {u"\\", u"C:\\Vault\\{guid}.log"},
        {u"C:\\Elsewhere", u"C:\\Elsewhere\\{guid}.log"},
        {u"C:\\Elsewhere\\", u"C:\\Elsewhere\\{guid}.log"},
        // A network folder loses a backslash, and is then a folder of the current drive.
        {u"\\\\server\\share", u"C:\\server\\share\\{guid}.log"},
    };
    for (const Row& row : rows) {
        TypeParam world;
        world.Variables().SetText(u"ErrorLogPath", row.folder);
        world.RunStatements(u"Log \"line\"");
        EXPECT_EQ(world.host.files.Content(row.file), "line\r\n") << Utf8Text(row.folder);
    }
}

TYPED_TEST(SharedRoutines, WithoutALogFolderTheLogStandsAtTheRootOfTheVault)
{
    TypeParam world;
    world.Variables().Remove(u"ErrorLogPath");
    world.RunStatements(u"Log \"line\"");
    EXPECT_EQ(world.host.files.Content(u"C:\\Vault\\{guid}.log"), "line\r\n");
}

TYPED_TEST(SharedRoutines, TheLogGathersTheLinesOfAllRuns)
{
    TypeParam world;
    world.RunStatements(u"Log \"one\"\r\nLog \"two\"");
    world.RunStatements(u"Log \"three\"");
    EXPECT_EQ(world.Log(), "one\r\ntwo\r\nthree\r\n");
}

/// What the convert template alone has.
TEST(ConvertRoutines, TheTestForAnExtensionLeavesItsArgumentAlone)
{
    ConvertWorld world;
    EXPECT_EQ(world.RunStatements(u"e = \"STEP\"\r\nDebug.Print bIsSupportedExtension(e)\r\nDebug.Print e"),
              "True\nSTEP");
}

TEST(ConvertRoutines, GetExtensionReadsTheBracketsOfAFormat)
{
    struct Row
    {
        const char16_t* docType;
        std::u16string format;
        const char* extension;
    };
    const Row rows[] = {
        {u"1", u"Adobe PDF (*.pdf)", ".pdf"},
        {u"3", u"Adobe PDF (*.pdf)", ".pdf"},
        {u"1", u"Zephrin (*.zprt; *.zasm; *.zdrw)", ".zprt"},
        {u"2", u"Zephrin (*.zprt; *.zasm; *.zdrw)", ".zasm"},
        {u"3", u"Zephrin (*.zprt; *.zasm; *.zdrw)", ".zdrw"},
        {u"4", u"Zephrin (*.zprt; *.zasm; *.zdrw)", "."},
        {u"3", u"Two (*.one; *.two)", "."},
        {u"2", u"Two (*.one; *.two)", ".two"},
        {u"1", u"Blanks ( *.pdf )", ".pdf"},
        {u"1", u"First (*.one) second (*.two)", ".one"},
        {u"1", u"Nothing (*.)", "."},
        {u"2", u"None first (;*.two)", ".two"},
    };
    for (const Row& row : rows) {
        ConvertWorld world;
        EXPECT_EQ(world.RunStatements(u"Debug.Print GetExtension(" + std::u16string(row.docType) + u", " +
                                      Literal(row.format) + u")"),
                  row.extension)
            << Utf8Text(row.format);
    }
}

TEST(ConvertRoutines, GetFullFileNameMakesTheNameOfOneSave)
{
    struct Row
    {
        std::u16string pattern;
        std::u16string item;
        const char16_t* indexAndLast;
        const char* name;
    };
    const Row rows[] = {
        {u"C:\\Out\\Part_<Configuration>.pdf", u"Default", u"0, 0", "C:\\Out\\Part_Default.pdf"},
        {u"C:\\Out\\Part_<Configuration>.pdf", u"Default", u"2, 5", "C:\\Out\\Part_Default.pdf"},
        {u"C:\\Out\\Part_<Configuration>.pdf", u"A/B", u"0, 1", "C:\\Out\\Part_AB.pdf"},
        {u"C:\\Out\\Part_<Configuration>.pdf", u"A\\B/C\\", u"0, 1", "C:\\Out\\Part_ABC.pdf"},
        {u"C:\\Out\\Part_<Configuration>.pdf", u"A:B*C?", u"0, 1", "C:\\Out\\Part_ABC.pdf"},
        {u"C:\\<Configuration>\\<Configuration>.pdf", u"X", u"0, 1", "C:\\X\\X.pdf"},
        {u"C:\\Out\\Part.pdf", u"X", u"0, 0", "C:\\Out\\Part.pdf"},
        {u"C:\\Out\\Part.pdf", u"X", u"0, 1", "C:\\Out\\Part_0.pdf"},
        {u"C:\\Out\\Part.pdf", u"X", u"1, 1", "C:\\Out\\Part_1.pdf"},
        {u"C:\\v1.0\\Part.tvnprt.pdf", u"X", u"12, 20", "C:\\v1.0\\Part.tvnprt_12.pdf"},
        {u"C:\\Out\\Part_<configuration>.pdf", u"X", u"0, 1", "C:\\Out\\Part_configuration_0.pdf"},
        {u"C:\\Out\\<Foo>.pdf", u"X", u"0, 0", "C:\\Out\\Foo.pdf"},
        {u"C:\\Out\\a<b>c:d*e?f\"g|h.pdf", u"X", u"0, 0", "C:\\Out\\abcdefgh.pdf"},
        {u"::x:y.pdf", u"X", u"0, 0", "::xy.pdf"},
    };
    for (const Row& row : rows) {
        ConvertWorld world;
        EXPECT_EQ(world.RunStatements(u"Debug.Print GetFullFileName(" + Literal(row.pattern) + u", " +
                                      Literal(row.item) + u", " + row.indexAndLast + u")"),
                  row.name);
    }
}

TEST(ConvertRoutines, CreatePathPutsAHolderIntoANewFolder)
{
    ConvertWorld world;
    world.RunStatements(u"CreatePath \"C:\\New\\Deep\\\"");
    EXPECT_EQ(world.host.files.Content(u"C:\\New\\Deep\\~$holder"), "");
}

TEST(ConvertRoutines, CreatePathLeavesAFolderThatExistsAlone)
{
    ConvertWorld world;
    world.host.files.CreateFolder(u"C:\\Old");
    world.RunStatements(u"CreatePath \"C:\\Old\\\"");
    EXPECT_TRUE(world.host.files.List(u"C:\\Old").empty());
}

TEST(ConvertRoutines, CreatePathSeesAPathThroughTheCodePage)
{
    ConvertWorld world;
    world.RunStatements(u"CreatePath \"C:\\\" & ChrW(1046) & \"\\\"\r\nCreatePath \"C:\\\" & ChrW(228) & \"\\\"");
    EXPECT_FALSE(world.host.files.Find(u"C:\\\u0416"));
    EXPECT_TRUE(world.host.files.Find(u"C:\\\u00E4"));
}

TEST(ConvertRoutines, KillHolderRemovesTheHolder)
{
    ConvertWorld world;
    world.host.files.Put(u"C:\\New\\~$holder", "");
    world.host.files.Put(u"C:\\New\\other", "");
    world.RunStatements(
        u"Set FileSystemObj = CreateObject(\"Scripting.FileSystemObject\")\r\nKillHolder \"C:\\New\\\"");
    EXPECT_FALSE(world.host.files.Find(u"C:\\New\\~$holder"));
    EXPECT_TRUE(world.host.files.Find(u"C:\\New\\other"));
}

TEST(ConvertRoutines, KillHolderIgnoresWhatItCannotDo)
{
    ConvertWorld world;
    world.host.files.Put(u"C:\\New\\~$holder", "");
    world.host.files.SetReadOnly(u"C:\\New\\~$holder", true);
    EXPECT_EQ(world.RunStatements(u"Set FileSystemObj = CreateObject(\"Scripting.FileSystemObject\")\r\n"
                                  u"KillHolder \"C:\\New\\\"\r\nKillHolder \"C:\\None\\\"\r\n"
                                  u"Set FileSystemObj = Nothing\r\nKillHolder \"C:\\New\\\"\r\nDebug.Print \"done\""),
              "done");
    EXPECT_TRUE(world.host.files.Find(u"C:\\New\\~$holder"));
}

/// What the print template alone has.
TEST(PrintRoutines, TheTestForAnExtensionLowersItsArgument)
{
    PrintWorld world;
    EXPECT_EQ(world.RunStatements(u"e = \"STEP\"\r\nDebug.Print bIsSupportedExtension(e)\r\nDebug.Print e"),
              "True\nstep");
}

TEST(PrintRoutines, GetPaperSizeGivesThePaperOfTheSystem)
{
    struct Row
    {
        int code;
        const char* paper;
    };
    const Row rows[] = {
        {-1, "9"},  {0, "262"}, {1, "262"}, {2, "263"}, {3, "24"},  {4, "25"}, {5, "26"}, {6, "260"},
        {7, "261"}, {8, "66"},  {9, "8"},   {10, "9"},  {11, "77"}, {12, "9"}, {13, "9"},
    };
    for (const Row& row : rows) {
        PrintWorld world;
        EXPECT_EQ(world.RunStatements(u"Debug.Print \"\" & GetPaperSize(" + Wide(std::to_string(row.code)) + u")"),
                  row.paper)
            << row.code;
    }
}

class PrinterOfASize : public testing::Test
{
  protected:
    PrinterOfASize()
    {
        for (const char16_t* size : {u"A", u"B", u"C", u"D", u"E", u"A0", u"A1", u"A2", u"A3", u"A4", u"DEF"}) {
            world.Variables().SetText(u"__printer_papsize_" + std::u16string(size), u"Printer " + std::u16string(size));
        }
        world.Variables().SetText(u"__printer_prname", u"Fixed");
    }

    std::string PrinterFor(int code)
    {
        return world.RunStatements(u"Debug.Print \"'\" & GetPrinter(" + Wide(std::to_string(code)) + u") & \"'\"");
    }

    PrintWorld world;
};

TEST_F(PrinterOfASize, IsThatOfTheSizeWhenTheSizeSelectsIt)
{
    world.Variables().SetInt(u"__printer_prseltype", 2);
    struct Row
    {
        int code;
        const char* printer;
    };
    const Row rows[] = {
        {-1, "''"},          {0, "'Printer A'"},   {1, "'Printer A'"},   {2, "'Printer B'"},    {3, "'Printer C'"},
        {4, "'Printer D'"},  {5, "'Printer E'"},   {6, "'Printer A0'"},  {7, "'Printer A1'"},   {8, "'Printer A2'"},
        {9, "'Printer A3'"}, {10, "'Printer A4'"}, {11, "'Printer A4'"}, {12, "'Printer DEF'"}, {13, "''"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(PrinterFor(row.code), row.printer) << row.code;
    }
}

TEST_F(PrinterOfASize, IsTheFixedOneInEveryOtherMode)
{
    for (int mode : {0, 1, 3}) {
        world.Variables().SetInt(u"__printer_prseltype", mode);
        for (int code : {-1, 0, 10, 12, 13}) {
            EXPECT_EQ(PrinterFor(code), "'Fixed'") << mode << " " << code;
        }
    }
}

} // namespace
} // namespace tv::macro
