// What the print template asks of the application, call by call.

#include "local_macro/templates/template_world.h"

#include <gtest/gtest.h>

namespace tv::macro {
namespace {

TEST(PrintCalls, APartIsPrintedInTheChosenConfiguration)
{
    PrintWorld world;
    world.cad.documents[u"C:\\Vault\\part.tvnprt"] = {kScriptedPart, {u"Default", u"Long"}};
    world.Run(u"C:\\Vault\\part.tvnprt", u"Long");
    EXPECT_EQ(world.Calls(), Lines(R"(
Application.Torvane
Torvane.GetOpenDocSpec "C:\Vault\part.tvnprt"
Specification.DocumentType = 1
Specification.ReadOnly = True
Specification.Silent = True
Specification.ConfigurationName = ""
Specification.DisplayState = ""
Torvane.OpenDoc7 DocumentSpecification
Specification.Error
part.tvnprt.ShowConfiguration "Long"
part.tvnprt.PageSetup
PageSetup.PrinterPaperSize = 9
PageSetup.Orientation = 1
Torvane.SetUserPreferenceToggle tvPageSetupPrinterUsePrinterMargin, True
part.tvnprt.Extension
part.tvnprt.printer = "Plotter"
part.tvnprt.printer
Extension.UsePageSetup = 2
Torvane.GetErrorMessages Empty, Empty, Empty
Extension.PrintOut2 Empty, 1, False, "Plotter", ""
Torvane.GetErrorMessages Empty, Empty, Empty
part.tvnprt.GetTitle
Torvane.QuitDoc "part.tvnprt"
)"));
    EXPECT_EQ(world.Log(), "(none)");
}

TEST(PrintCalls, AnAssemblyIsPrintedAsItStandsWhenNoConfigurationIsChosen)
{
    PrintWorld world;
    world.cad.documents[u"C:\\Vault\\top.asm"] = {kScriptedAssembly};
    world.Run(u"C:\\Vault\\top.asm");
    EXPECT_EQ(world.Calls(), Lines(R"(
Application.Torvane
Torvane.GetOpenDocSpec "C:\Vault\top.asm"
Specification.DocumentType = 2
Specification.ReadOnly = True
Specification.Silent = True
Specification.ConfigurationName = ""
Specification.DisplayState = ""
Torvane.OpenDoc7 DocumentSpecification
Specification.Error
top.asm.PageSetup
PageSetup.PrinterPaperSize = 9
PageSetup.Orientation = 1
Torvane.SetUserPreferenceToggle tvPageSetupPrinterUsePrinterMargin, True
top.asm.Extension
top.asm.printer = "Plotter"
top.asm.printer
Extension.UsePageSetup = 2
Torvane.GetErrorMessages Empty, Empty, Empty
Extension.PrintOut2 Empty, 1, False, "Plotter", ""
Torvane.GetErrorMessages Empty, Empty, Empty
top.asm.GetTitle
Torvane.QuitDoc "top.asm"
)"));
}

TEST(PrintCalls, AnAssemblyIsPrintedInTheChosenConfiguration)
{
    PrintWorld world;
    world.cad.documents[u"C:\\Vault\\top.asm"] = {kScriptedAssembly, {u"A", u"B"}};
    world.Run(u"C:\\Vault\\top.asm", u"B");
    EXPECT_EQ(world.Calls("top.asm.ShowConfiguration"), "top.asm.ShowConfiguration \"B\"\n");
    EXPECT_EQ(world.Calls("Extension.PrintOut2"), "Extension.PrintOut2 Empty, 1, False, \"Plotter\", \"\"\n");
}

TEST(PrintCalls, AConfigurationThatDoesNotExistLeavesTheActiveOneInPlace)
{
    PrintWorld world;
    world.cad.documents[u"C:\\Vault\\part.prt"] = {};
    world.Run(u"C:\\Vault\\part.prt", u"None");
    EXPECT_EQ(world.Calls("part.prt.ShowConfiguration"), "part.prt.ShowConfiguration \"None\"\n");
    EXPECT_EQ(world.Calls("Torvane.QuitDoc"), "Torvane.QuitDoc \"part.prt\"\n");
    EXPECT_EQ(world.Log(), "(none)");
}

TEST(PrintCalls, OneSheetOfADrawingIsPrintedWithEverythingThatATaskCanSet)
{
    PrintWorld world;
    world.Variables().SetInt(u"__printer_prseltype", 2);
    world.Variables().SetText(u"__printer_papsize_A3", u"Laser");
    world.cad.printers = {u"Laser"};
    world.Variables().SetInt(u"__printer_copycount", 3);
    world.Variables().SetBool(u"__printer_usedrwnfo", false);
    world.Variables().SetInt(u"__printer_defpapsize", 9);
    world.Variables().SetInt(u"__printer_deforientation", 1);
    world.Variables().SetInt(u"__printer_margintype", 2);
    world.Variables().Set(u"__printer_margintop", Variant::FromFloat(10));
    world.Variables().Set(u"__printer_marginbottom", Variant::FromFloat(12.5f));
    world.Variables().Set(u"__printer_marginleft", Variant::FromFloat(20));
    world.Variables().Set(u"__printer_marginright", Variant::FromFloat(0.25f));
    world.Variables().SetInt(u"__printer_headertype", 2);
    world.Variables().SetText(u"__printer_headerleft", u"head left");
    world.Variables().SetText(u"__printer_headercenter", u"head center");
    world.Variables().SetText(u"__printer_headerright", u"head right");
    world.Variables().SetInt(u"__printer_footertype", 2);
    world.Variables().SetText(u"__printer_footerleft", u"foot left");
    world.Variables().SetText(u"__printer_footercenter", u"foot center");
    world.Variables().SetText(u"__printer_footerright", u"foot right");
    world.cad.documents[u"C:\\Vault\\plan.tvndrw"] = {kScriptedDrawing, {}, {u"One", u"Two", u"Three"}};
    world.Run(u"C:\\Vault\\plan.tvndrw", u"Two");
    EXPECT_EQ(world.Calls(), Lines(R"(
Application.Torvane
Torvane.GetOpenDocSpec "C:\Vault\plan.tvndrw"
Specification.DocumentType = 3
Specification.ReadOnly = True
Specification.Silent = True
Specification.ConfigurationName = ""
Specification.DisplayState = ""
Torvane.OpenDoc7 DocumentSpecification
Specification.Error
plan.tvndrw.PageSetup
PageSetup.PrinterPaperSize = 8
PageSetup.Orientation = 2
Torvane.SetUserPreferenceToggle tvPageSetupPrinterUsePrinterMargin, False
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterTopMargin, 0.01
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterBottomMargin, 0.0125
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterLeftMargin, 0.02
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterRightMargin, 0.00025
PageSetup.SetHeader "head left", "head center", "head right"
PageSetup.SetFooter "foot left", "foot center", "foot right"
plan.tvndrw.Extension
plan.tvndrw.GetSheetNames
plan.tvndrw.printer = "Laser"
plan.tvndrw.printer
Extension.UsePageSetup = 2
Torvane.GetErrorMessages Empty, Empty, Empty
Extension.PrintOut2 Long[2], 3, False, "Laser", ""
Torvane.GetErrorMessages Empty, Empty, Empty
plan.tvndrw.GetTitle
Torvane.QuitDoc "plan.tvndrw"
)"));
    EXPECT_EQ(world.Log(), "(none)");
}

TEST(PrintCalls, ANeutralFileIsLoadedAndPrintedWithTheChosenPaper)
{
    PrintWorld world;
    world.cad.documents[u"C:\\Vault\\plan.DXF"] = {kScriptedDrawing, {}, {u"Model"}};
    world.Run(u"C:\\Vault\\plan.DXF", u"Model");
    EXPECT_EQ(world.Calls(), Lines(R"(
Application.Torvane
Torvane.LoadFile4 "C:\Vault\plan.DXF", "", Nothing, 0
plan.DXF.PageSetup
PageSetup.PrinterPaperSize = 9
PageSetup.Orientation = 1
Torvane.SetUserPreferenceToggle tvPageSetupPrinterUsePrinterMargin, True
plan.DXF.Extension
plan.DXF.printer = "Plotter"
plan.DXF.printer
Extension.UsePageSetup = 2
Torvane.GetErrorMessages Empty, Empty, Empty
Extension.PrintOut2 Empty, 1, False, "Plotter", ""
Torvane.GetErrorMessages Empty, Empty, Empty
plan.DXF.GetTitle
Torvane.QuitDoc "plan.DXF"
)"));
}

TEST(PrintCalls, AFileOfAnUnsupportedExtensionIsNotOpened)
{
    PrintWorld world;
    world.Run(u"C:\\Vault\\letter.doc");
    EXPECT_EQ(world.Calls(), "Application.Torvane\n");
}

TEST(PrintCalls, TheTypeComesFromTheEndOfTheNameInCapitalsToo)
{
    struct Row
    {
        std::u16string path;
        int32_t type;
        const char* call;
    };
    const Row rows[] = {
        {u"C:\\V\\a.tvnprt", 1, "Specification.DocumentType = 1\n"},
        {u"C:\\V\\a.prt", 1, "Specification.DocumentType = 1\n"},
        {u"C:\\V\\a.TVNPRT", 1, "Specification.DocumentType = 1\n"},
        {u"C:\\V\\a.PRT", 1, "Specification.DocumentType = 1\n"},
        {u"C:\\V\\a.tvnasm", 2, "Specification.DocumentType = 2\n"},
        {u"C:\\V\\a.asm", 2, "Specification.DocumentType = 2\n"},
        {u"C:\\V\\a.TvnAsm", 2, "Specification.DocumentType = 2\n"},
        {u"C:\\V\\a.ASM", 2, "Specification.DocumentType = 2\n"},
        {u"C:\\V\\a.tvndrw", 3, "Specification.DocumentType = 3\n"},
        {u"C:\\V\\a.drw", 3, "Specification.DocumentType = 3\n"},
        {u"C:\\V\\a.TVNDRW", 3, "Specification.DocumentType = 3\n"},
        {u"C:\\V\\a.Drw", 3, "Specification.DocumentType = 3\n"},
    };
    for (const Row& row : rows) {
        PrintWorld world;
        world.cad.documents[row.path] = {row.type, {u"Default"}, {u"Sheet"}};
        world.Run(row.path);
        EXPECT_EQ(world.Calls("Specification.DocumentType"), row.call) << Utf8Text(row.path);
        EXPECT_EQ(world.Calls("Torvane.LoadFile4"), "") << Utf8Text(row.path);
        EXPECT_EQ(world.Log(), "(none)") << Utf8Text(row.path);
    }
}

TEST(PrintCalls, OnlyADrawingKeepsItsOwnPaper)
{
    struct Row
    {
        std::u16string path;
        int32_t type;
        bool useDrawing;
        const char* calls;
    };
    constexpr char kConfigured[] = "PageSetup.PrinterPaperSize = 262\nPageSetup.Orientation = 2\n";
    const Row rows[] = {
        {u"C:\\V\\a.drw", 3, true, ""},           {u"C:\\V\\a.prt", 1, true, kConfigured},
        {u"C:\\V\\a.asm", 2, true, kConfigured},  {u"C:\\V\\a.dxf", 3, true, kConfigured},
        {u"C:\\V\\a.drw", 3, false, kConfigured}, {u"C:\\V\\a.prt", 1, false, kConfigured},
        {u"C:\\V\\a.asm", 2, false, kConfigured}, {u"C:\\V\\a.dxf", 3, false, kConfigured},
    };
    for (const Row& row : rows) {
        PrintWorld world;
        world.Variables().SetBool(u"__printer_usedrwnfo", row.useDrawing);
        world.Variables().SetInt(u"__printer_defpapsize", 0);
        world.Variables().SetInt(u"__printer_deforientation", 1);
        world.cad.documents[row.path] = {row.type, {u"Default"}, {u"Sheet"}};
        world.Run(row.path);
        EXPECT_EQ(world.Calls("PageSetup."), row.calls) << Utf8Text(row.path) << " " << row.useDrawing;
        EXPECT_EQ(world.Calls("Extension.PrintOut2"), "Extension.PrintOut2 Empty, 1, False, \"Plotter\", \"\"\n");
    }
}

TEST(PrintCalls, ADrawingKeepsItsOwnPaperWhenTheSwitchIsStoredAsANumber)
{
    PrintWorld world;
    world.Variables().SetInt(u"__printer_usedrwnfo", 1);
    world.cad.documents[u"C:\\V\\a.drw"] = {kScriptedDrawing, {}, {u"Sheet"}};
    world.Run(u"C:\\V\\a.drw");
    EXPECT_EQ(world.Calls("PageSetup."), "");
}

TEST(PrintCalls, EachPaperGoesToTheSetupOfThePage)
{
    struct Row
    {
        int32_t code;
        const char* call;
    };
    const Row rows[] = {
        {-1, "PageSetup.PrinterPaperSize = 9\n"},  {0, "PageSetup.PrinterPaperSize = 262\n"},
        {1, "PageSetup.PrinterPaperSize = 262\n"}, {2, "PageSetup.PrinterPaperSize = 263\n"},
        {3, "PageSetup.PrinterPaperSize = 24\n"},  {4, "PageSetup.PrinterPaperSize = 25\n"},
        {5, "PageSetup.PrinterPaperSize = 26\n"},  {6, "PageSetup.PrinterPaperSize = 260\n"},
        {7, "PageSetup.PrinterPaperSize = 261\n"}, {8, "PageSetup.PrinterPaperSize = 66\n"},
        {9, "PageSetup.PrinterPaperSize = 8\n"},   {10, "PageSetup.PrinterPaperSize = 9\n"},
        {11, "PageSetup.PrinterPaperSize = 77\n"}, {12, "PageSetup.PrinterPaperSize = 9\n"},
        {13, "PageSetup.PrinterPaperSize = 9\n"},
    };
    for (const Row& row : rows) {
        PrintWorld world;
        world.Variables().SetInt(u"__printer_defpapsize", row.code);
        world.cad.documents[u"C:\\V\\a.prt"] = {};
        world.Run(u"C:\\V\\a.prt");
        EXPECT_EQ(world.Calls("PageSetup.PrinterPaperSize"), row.call) << row.code;
    }
}

TEST(PrintCalls, TheUserDefinedSizeTakesTheDefaultPrinterAndA4)
{
    PrintWorld world;
    world.Variables().SetInt(u"__printer_prseltype", 2);
    world.Variables().SetInt(u"__printer_defpapsize", 12);
    world.Variables().SetText(u"__printer_papsize_DEF", u"Spare");
    world.cad.printers = {u"Spare"};
    world.cad.documents[u"C:\\V\\a.prt"] = {};
    world.Run(u"C:\\V\\a.prt");
    EXPECT_EQ(world.Calls("PageSetup.PrinterPaperSize") + world.Calls("Extension.PrintOut2"),
              "PageSetup.PrinterPaperSize = 9\nExtension.PrintOut2 Empty, 1, False, \"Spare\", \"\"\n");
}

TEST(PrintCalls, TheFixedAndThePromptedPrinterAreTheSameToTheMacro)
{
    for (int32_t mode : {0, 1}) {
        PrintWorld world;
        world.Variables().SetInt(u"__printer_prseltype", mode);
        world.Variables().SetText(u"__printer_papsize_A4", u"Other");
        world.cad.documents[u"C:\\V\\a.prt"] = {};
        world.Run(u"C:\\V\\a.prt");
        EXPECT_EQ(world.Calls("Extension.PrintOut2"), "Extension.PrintOut2 Empty, 1, False, \"Plotter\", \"\"\n")
            << mode;
    }
}

TEST(PrintCalls, MarginsArePrintersOrTheFourValuesInMetres)
{
    constexpr char kPrinters[] = "Torvane.SetUserPreferenceToggle tvPageSetupPrinterUsePrinterMargin, True\n";
    constexpr std::string_view kOwn = Lines(R"(
Torvane.SetUserPreferenceToggle tvPageSetupPrinterUsePrinterMargin, False
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterTopMargin, 0.001
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterBottomMargin, 0.002
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterLeftMargin, 0.003
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterRightMargin, 0.004
)");
    struct Row
    {
        int32_t type;
        std::string_view calls;
    };
    const Row rows[] = {{0, kPrinters}, {1, kOwn}, {2, kOwn}};
    for (const Row& row : rows) {
        PrintWorld world;
        world.Variables().SetInt(u"__printer_margintype", row.type);
        world.Variables().Set(u"__printer_margintop", Variant::FromFloat(1));
        world.Variables().Set(u"__printer_marginbottom", Variant::FromFloat(2));
        world.Variables().Set(u"__printer_marginleft", Variant::FromFloat(3));
        world.Variables().Set(u"__printer_marginright", Variant::FromFloat(4));
        world.cad.documents[u"C:\\V\\a.prt"] = {};
        world.Run(u"C:\\V\\a.prt");
        EXPECT_EQ(world.Calls("Torvane.SetUserPreference"), row.calls) << row.type;
    }
}

TEST(PrintCalls, MarginsThatWereLeftAloneAreZero)
{
    PrintWorld world;
    world.Variables().SetInt(u"__printer_margintype", 1);
    world.cad.documents[u"C:\\V\\a.prt"] = {};
    world.Run(u"C:\\V\\a.prt");
    EXPECT_EQ(world.Calls("Torvane.SetUserPreferenceDoubleValue"), Lines(R"(
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterTopMargin, 0
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterBottomMargin, 0
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterLeftMargin, 0
Torvane.SetUserPreferenceDoubleValue tvPageSetupPrinterRightMargin, 0
)"));
}

TEST(PrintCalls, HeaderAndFooterAreSetByTypeTwoAlone)
{
    struct Row
    {
        int32_t header;
        int32_t footer;
        const char* calls;
    };
    const Row rows[] = {
        {0, 0, ""},
        {1, 1, ""},
        {2, 0, "PageSetup.SetHeader \"a\", \"b\", \"c\"\n"},
        {1, 2, "PageSetup.SetFooter \"d\", \"e\", \"f\"\n"},
        {2, 2, "PageSetup.SetHeader \"a\", \"b\", \"c\"\nPageSetup.SetFooter \"d\", \"e\", \"f\"\n"},
        {3, 3, ""},
    };
    for (const Row& row : rows) {
        PrintWorld world;
        world.Variables().SetInt(u"__printer_headertype", row.header);
        world.Variables().SetInt(u"__printer_footertype", row.footer);
        world.Variables().SetText(u"__printer_headerleft", u"a");
        world.Variables().SetText(u"__printer_headercenter", u"b");
        world.Variables().SetText(u"__printer_headerright", u"c");
        world.Variables().SetText(u"__printer_footerleft", u"d");
        world.Variables().SetText(u"__printer_footercenter", u"e");
        world.Variables().SetText(u"__printer_footerright", u"f");
        world.cad.documents[u"C:\\V\\a.prt"] = {};
        world.Run(u"C:\\V\\a.prt");
        EXPECT_EQ(world.Calls("PageSetup.Set"), row.calls) << row.header << " " << row.footer;
    }
}

TEST(PrintCalls, ASheetIsFoundInAnyCase)
{
    struct Row
    {
        std::u16string sheet;
        const char* call;
    };
    const Row rows[] = {
        {u"Sheet One", "Extension.PrintOut2 Long[1], 1, False, \"Plotter\", \"\"\n"},
        {u"SHEET TWO", "Extension.PrintOut2 Long[2], 1, False, \"Plotter\", \"\"\n"},
        {u"sheet two", "Extension.PrintOut2 Long[2], 1, False, \"Plotter\", \"\"\n"},
        // The first of those that differ in case alone.
        {u"Sheet THREE", "Extension.PrintOut2 Long[3], 1, False, \"Plotter\", \"\"\n"},
        // Which is no sheet, so all of them are printed.
        {u"Sheet", "Extension.PrintOut2 Empty, 1, False, \"Plotter\", \"\"\n"},
        {u"", "Extension.PrintOut2 Empty, 1, False, \"Plotter\", \"\"\n"},
    };
    for (const Row& row : rows) {
        PrintWorld world;
        world.cad.documents[u"C:\\V\\a.drw"] = {
            kScriptedDrawing, {}, {u"Sheet One", u"Sheet Two", u"Sheet Three", u"Sheet THREE"}};
        world.Run(u"C:\\V\\a.drw", row.sheet);
        EXPECT_EQ(world.Calls("Extension.PrintOut2"), row.call) << Utf8Text(row.sheet);
        EXPECT_EQ(world.Log(), "(none)") << Utf8Text(row.sheet);
    }
}

TEST(PrintCalls, AWholeDrawingIsNotAskedForItsSheets)
{
    PrintWorld world;
    world.cad.documents[u"C:\\V\\a.drw"] = {kScriptedDrawing, {}, {u"One"}};
    world.Run(u"C:\\V\\a.drw");
    EXPECT_EQ(world.Calls("a.drw.GetSheetNames"), "");
}

TEST(PrintCalls, NoCopyCountMeansOneCopy)
{
    struct Row
    {
        std::optional<std::u16string> copies;
        const char* call;
    };
    const Row rows[] = {
        {std::nullopt, "Extension.PrintOut2 Empty, 1, False, \"Plotter\", \"\"\n"},
        {u"", "Extension.PrintOut2 Empty, 1, False, \"Plotter\", \"\"\n"},
        {u"3", "Extension.PrintOut2 Empty, 3, False, \"Plotter\", \"\"\n"},
        {u"32767", "Extension.PrintOut2 Empty, 32767, False, \"Plotter\", \"\"\n"},
    };
    for (const Row& row : rows) {
        PrintWorld world;
        world.Variables().Remove(u"__printer_copycount");
        if (row.copies) {
            world.Variables().SetText(u"__printer_copycount", *row.copies);
        }
        world.cad.documents[u"C:\\V\\a.prt"] = {};
        world.Run(u"C:\\V\\a.prt");
        EXPECT_EQ(world.Calls("Extension.PrintOut2"), row.call);
    }
}

TEST(PrintCalls, WhatEarlierWorkLeftIsDrainedAndNotReported)
{
    PrintWorld world;
    world.cad.waitingMessages = {u"an old complaint"};
    world.cad.documents[u"C:\\V\\a.prt"] = {};
    world.Run(u"C:\\V\\a.prt");
    EXPECT_EQ(world.Calls("Torvane.GetErrorMessages"), "Torvane.GetErrorMessages Empty, Empty, Empty\n"
                                                       "Torvane.GetErrorMessages Empty, Long[0], Long[0]\n");
    EXPECT_EQ(world.Log(), "(none)");
}

TEST(PrintCalls, AMacroWithoutTheNumberOfItsModeDoesNotCompile)
{
    PrintWorld world;
    world.Variables().Remove(u"__printer_prseltype");
    const CompileResult compiled = world.CompileMacro(world.MacroText(u"C:\\V\\a.prt"));
    EXPECT_FALSE(compiled.module);
    ASSERT_FALSE(compiled.problems.empty());
    EXPECT_EQ(compiled.problems.front().line, 44);
}

} // namespace
} // namespace tv::macro
