// Values that can't stand in a literal as they are: the macro gets the original text of each.

#include "local_macro/templates/template_world.h"

#include <gtest/gtest.h>

namespace tv::macro {
namespace {

const std::u16string kWidePath = u"C:\\Vault\\Чертёж Ω\\деталь № 7.tvnprt";

/// A path whose ChrW calls fill several source lines.
std::u16string LongWidePath()
{
    return u"C:\\Vault\\" + std::u16string(60, u'Ж') + u" R & D " + std::u16string(60, u'\u4E2D') + u"\\a.tvnprt";
}

TEST(ConvertAssembly, APathOfAnyCharactersReachesTheApplication)
{
    ConvertWorld world;
    world.Variables().SetText(u"OutputPath", u"<Path>\\Out <Configuration>\\<Filename>");
    world.cad.documents[kWidePath] = {kScriptedPart, {u"Größe Я"}};
    EXPECT_NE(world.MacroText(kWidePath).find(u"docFileName = \"C:\\Vault\\\" & ChrW(1063) & ChrW(1077)"),
              std::u16string::npos);
    world.Run(kWidePath);
    EXPECT_EQ(world.Calls("Torvane.GetOpenDocSpec"),
              "Torvane.GetOpenDocSpec \"C:\\Vault\\Чертёж Ω\\деталь № 7.tvnprt\"\n");
    EXPECT_EQ(world.Calls("Extension"),
              "Extension.SaveAs \"C:\\Vault\\Чертёж Ω\\Out Größe Я\\деталь № 7.stl\", 0, 1, Nothing, 0, 0\n");
    EXPECT_EQ(world.Log(), "(none)");
}

TEST(ConvertAssembly, APathOverManySourceLinesReachesTheApplication)
{
    const std::u16string path = LongWidePath();
    ConvertWorld world;
    world.cad.documents[path] = {};
    EXPECT_NE(world.MacroText(path).find(u" & _\r\nChrW("), std::u16string::npos);
    world.Run(path);
    EXPECT_EQ(world.Calls("Torvane.GetOpenDocSpec"), "Torvane.GetOpenDocSpec \"" + Utf8Text(path) + "\"\n");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\a_Default.stl\", 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertAssembly, ALineEndInAPatternIsALineFeedOfTheMacro)
{
    ConvertWorld world;
    world.Variables().SetInt(u"OutputConfs", 8);
    world.Variables().SetText(u"NamedConf", u"two\r\nlines");
    world.cad.documents[u"C:\\V\\p.prt"] = {kScriptedPart, {u"two\nlines", u"two"}};
    EXPECT_NE(world.MacroText(u"C:\\V\\p.prt").find(u"Like \"two\"+vbLf+\"lines\" Then"), std::u16string::npos);
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Calls("p.prt.ShowConfiguration"), "p.prt.ShowConfiguration \"two\nlines\"\n");
    world.cad.documents[u"C:\\V\\p.prt"] = {};
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "Document 'C:\\V\\p.prt' didn't contain any configurations named 'two\nlines'.\r\n");
}

TEST(ConvertAssembly, TheTokensOfTheFileFillTheOutputPath)
{
    ConvertWorld world;
    world.Variables().SetText(u"OutputPath", u"<VaultPath>\\Out\\<Filename>-<Version>-<Revision>-<WorkflowState>");
    fakes::FakeFile& file = world.vault.AddFile(u"C:\\Vault\\part.tvnprt");
    file.versions[1] = {u"A1", u"Genehmigt \u042F", {}, {}};
    world.cad.documents[u"C:\\Vault\\part.tvnprt"] = {};
    world.Run(u"C:\\Vault\\part.tvnprt");
    EXPECT_EQ(world.Calls("Extension"),
              "Extension.SaveAs \"C:\\Vault\\Out\\part-1-A1-Genehmigt Я.stl\", 0, 1, Nothing, 0, 0\n");
}

/// The search for a place to break a line knows nothing of literals, and folders with a lone ampersand are rare.
TEST(ConvertAssembly, AnAmpersandFarInAPlainPathBreaksTheMacro)
{
    const std::u16string path = u"C:\\Vault\\" + std::u16string(100, u'x') + u" R & D\\a.prt";
    ConvertWorld world;
    const std::u16string text = world.MacroText(path);
    EXPECT_NE(text.find(u"x R & _\r\nD\\a.prt\""), std::u16string::npos);
    EXPECT_FALSE(world.CompileMacro(text).module);
}

TEST(PrintAssembly, APathAndASheetOfAnyCharactersReachTheApplication)
{
    PrintWorld world;
    const std::u16string path = u"C:\\Vault\\Чертёж Ω.tvndrw";
    world.cad.documents[path] = {kScriptedDrawing, {}, {u"Лист 1", u"Лист 2 Ω"}};
    EXPECT_NE(world.MacroText(path, u"Лист 2 Ω").find(u"docCfgOrSheet = \"\" & ChrW(1051) & ChrW(1080)"),
              std::u16string::npos);
    world.Run(path, u"Лист 2 Ω");
    EXPECT_EQ(world.Calls("Torvane.GetOpenDocSpec"), "Torvane.GetOpenDocSpec \"C:\\Vault\\Чертёж Ω.tvndrw\"\n");
    EXPECT_EQ(world.Calls("Extension.PrintOut2"), "Extension.PrintOut2 Long[2], 1, False, \"Plotter\", \"\"\n");
}

TEST(PrintAssembly, APathOverManySourceLinesReachesTheApplication)
{
    const std::u16string path = LongWidePath();
    PrintWorld world;
    world.cad.documents[path] = {};
    EXPECT_NE(world.MacroText(path).find(u" & _\r\nChrW("), std::u16string::npos);
    world.Run(path);
    EXPECT_EQ(world.Calls("Torvane.GetOpenDocSpec"), "Torvane.GetOpenDocSpec \"" + Utf8Text(path) + "\"\n");
    EXPECT_EQ(world.Calls("Torvane.QuitDoc"), "Torvane.QuitDoc \"a.tvnprt\"\n");
}

TEST(PrintAssembly, ALineEndInAHeaderIsALineFeedOfTheMacro)
{
    PrintWorld world;
    world.Variables().SetInt(u"__printer_headertype", 2);
    world.Variables().SetText(u"__printer_headerleft", u"first\r\nsecond");
    world.Variables().SetText(u"__printer_headercenter", u"");
    world.Variables().SetText(u"__printer_headerright", u"\r\n");
    world.cad.documents[u"C:\\V\\p.prt"] = {};
    EXPECT_NE(world.MacroText(u"C:\\V\\p.prt").find(u"SetHeader \"first\"+vbLf+\"second\", \"\", \"\"+vbLf+\"\""),
              std::u16string::npos);
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Calls("PageSetup.SetHeader"), "PageSetup.SetHeader \"first\nsecond\", \"\", \"\n\"\n");
}

TEST(PrintAssembly, APrinterWithLettersBeyondAsciiIsNamedAsItIs)
{
    PrintWorld world;
    world.Variables().SetText(u"__printer_prname", u"Büro Süd");
    world.cad.printers = {u"Büro Süd"};
    world.cad.documents[u"C:\\V\\p.prt"] = {};
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Calls("Extension.PrintOut2"), "Extension.PrintOut2 Empty, 1, False, \"Büro Süd\", \"\"\n");
}

} // namespace
} // namespace tv::macro
