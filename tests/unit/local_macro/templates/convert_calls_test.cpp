// What the convert template asks of the application, call by call.

#include "local_macro/templates/template_world.h"

#include <gtest/gtest.h>

namespace tv::macro {
namespace {

TEST(ConvertCalls, APartIsSavedOnceForEachOfThreeConfigurations)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"JPEG (*.jpg)");
    world.cad.documents[u"C:\\Vault\\part.tvnprt"] = {kScriptedPart, {u"Default", u"A/B", u"Long"}};
    world.Run(u"C:\\Vault\\part.tvnprt");
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
Torvane.RevisionNumber
Torvane.Frame
Frame.KeepInVisible = True
Torvane.ActivateDoc2 "C:\Vault\part.tvnprt", True, 0
part.tvnprt.GetPathName
part.tvnprt.Extension
part.tvnprt.ConfigurationManager
part.tvnprt.GetConfigurationNames
part.tvnprt.ShowConfiguration "Default"
Extension.SaveAs "C:\Out\part_Default.jpg", 0, 1, Nothing, 0, 0
part.tvnprt.ShowConfiguration "A/B"
Extension.SaveAs "C:\Out\part_AB.jpg", 0, 1, Nothing, 0, 0
part.tvnprt.ShowConfiguration "Long"
Extension.SaveAs "C:\Out\part_Long.jpg", 0, 1, Nothing, 0, 0
part.tvnprt.GetTitle
Torvane.QuitDoc "part.tvnprt"
)"));
    EXPECT_EQ(world.Log(), "(none)");
}

TEST(ConvertCalls, ADrawingIsSavedAsOnePdfForEachOfTwoSheets)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"Adobe PDF (*.pdf)");
    world.cad.documents[u"C:\\Vault\\plan.tvndrw"] = {kScriptedDrawing, {}, {u"One", u"Two"}};
    world.Run(u"C:\\Vault\\plan.tvndrw");
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
Torvane.RevisionNumber
Torvane.Frame
Frame.KeepInVisible = True
Torvane.ActivateDoc2 "C:\Vault\plan.tvndrw", True, 0
plan.tvndrw.GetPathName
Torvane.SetUserPreferenceToggle tvPDFExportInColor, False
Torvane.SetUserPreferenceToggle tvPDFExportEmbedFonts, False
Torvane.SetUserPreferenceToggle tvPDFExportHighQuality, False
Torvane.SetUserPreferenceToggle tvPDFExportPrintHeaderFooter, False
Torvane.SetUserPreferenceToggle tvPDFExportUseCurrentPrintLineWeights, False
plan.tvndrw.Extension
plan.tvndrw.GetSheetNames
plan.tvndrw.ActivateSheet "One"
Torvane.GetExportFileData 1
ExportPdfData.SetSheets 3, "One"
Extension.SaveAs "C:\Out\plan_One.pdf", 0, 1, ExportPdfData, 0, 0
plan.tvndrw.ActivateSheet "Two"
Torvane.GetExportFileData 1
ExportPdfData.SetSheets 3, "Two"
Extension.SaveAs "C:\Out\plan_Two.pdf", 0, 1, ExportPdfData, 0, 0
plan.tvndrw.GetTitle
Torvane.QuitDoc "plan.tvndrw"
)"));
    EXPECT_EQ(world.Log(), "(none)");
}

TEST(ConvertCalls, TheActiveConfigurationAloneIsSavedWithoutANumber)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"JPEG (*.jpg)");
    world.Variables().SetText(u"OutputPath", u"C:\\Out\\<Filename>");
    world.Variables().SetInt(u"OutputConfs", 4);
    ScriptedDocument part{kScriptedPart, {u"First", u"Second"}};
    part.active = 1;
    world.cad.documents[u"C:\\Vault\\part.prt"] = part;
    world.Run(u"C:\\Vault\\part.prt");
    EXPECT_EQ(world.Calls(), Lines(R"(
Application.Torvane
Torvane.GetOpenDocSpec "C:\Vault\part.prt"
Specification.DocumentType = 1
Specification.ReadOnly = True
Specification.Silent = True
Specification.ConfigurationName = ""
Specification.DisplayState = ""
Torvane.OpenDoc7 DocumentSpecification
Specification.Error
Torvane.RevisionNumber
Torvane.Frame
Frame.KeepInVisible = True
Torvane.ActivateDoc2 "C:\Vault\part.prt", True, 0
part.prt.GetPathName
part.prt.Extension
part.prt.ConfigurationManager
ConfigurationManager.ActiveConfiguration
Configuration.Name
part.prt.ShowConfiguration "Second"
Extension.SaveAs "C:\Out\part.jpg", 0, 1, Nothing, 0, 0
part.prt.GetTitle
Torvane.QuitDoc "part.prt"
)"));
}

TEST(ConvertCalls, TheActiveSheetAloneIsAskedOfTheCurrentSheet)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"JPEG (*.jpg)");
    world.Variables().SetInt(u"OutputSheets", 4);
    ScriptedDocument drawing{kScriptedDrawing, {}, {u"One", u"Two"}};
    drawing.active = 1;
    world.cad.documents[u"C:\\Vault\\plan.drw"] = drawing;
    world.Run(u"C:\\Vault\\plan.drw");
    EXPECT_EQ(world.Calls("plan.drw") + world.Calls("Sheet") + world.Calls("Extension"), Lines(R"(
plan.drw.GetPathName
plan.drw.Extension
plan.drw.GetCurrentSheet
plan.drw.ActivateSheet "Two"
plan.drw.GetTitle
Sheet.GetName
Extension.SaveAs "C:\Out\plan_Two.jpg", 0, 1, Nothing, 0, 0
)"));
}

TEST(ConvertCalls, ConfigurationsThatMatchThePatternAreSaved)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"JPEG (*.jpg)");
    world.Variables().SetInt(u"OutputConfs", 8);
    world.Variables().SetText(u"NamedConf", u"L*");
    world.cad.documents[u"C:\\Vault\\part.tvnprt"] = {kScriptedPart, {u"Short", u"Long", u"large", u"Last", u"End"}};
    world.Run(u"C:\\Vault\\part.tvnprt");
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
Torvane.RevisionNumber
Torvane.Frame
Frame.KeepInVisible = True
Torvane.ActivateDoc2 "C:\Vault\part.tvnprt", True, 0
part.tvnprt.GetPathName
part.tvnprt.Extension
part.tvnprt.ConfigurationManager
part.tvnprt.GetConfigurationNames
part.tvnprt.ShowConfiguration "Long"
Extension.SaveAs "C:\Out\part_Long.jpg", 0, 1, Nothing, 0, 0
part.tvnprt.ShowConfiguration "Last"
Extension.SaveAs "C:\Out\part_Last.jpg", 0, 1, Nothing, 0, 0
part.tvnprt.GetTitle
Torvane.QuitDoc "part.tvnprt"
)"));
}

TEST(ConvertCalls, SheetsThatMatchThePatternAreSaved)
{
    ConvertWorld world;
    world.Variables().SetInt(u"OutputSheets", 8);
    world.Variables().SetText(u"NamedSheet", u"*2");
    world.cad.documents[u"C:\\Vault\\plan.drw"] = {kScriptedDrawing, {}, {u"A1", u"A2", u"B1", u"B2"}};
    world.Run(u"C:\\Vault\\plan.drw");
    EXPECT_EQ(world.Calls("plan.drw.ActivateSheet") + world.Calls("Extension"), Lines(R"(
plan.drw.ActivateSheet "A2"
plan.drw.ActivateSheet "B2"
Extension.SaveAs "C:\Out\plan_A2.stl", 0, 1, Nothing, 0, 0
Extension.SaveAs "C:\Out\plan_B2.stl", 0, 1, Nothing, 0, 0
)"));
}

TEST(ConvertCalls, ASingleSheetThatMatchesThePatternIsSaved)
{
    ConvertWorld world;
    world.Variables().SetInt(u"OutputSheets", 8);
    world.Variables().SetText(u"NamedSheet", u"B");
    world.cad.documents[u"C:\\Vault\\plan.drw"] = {kScriptedDrawing, {}, {u"A", u"B", u"C"}};
    world.Run(u"C:\\Vault\\plan.drw");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\plan_B.stl\", 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertCalls, AllMatchingThePatternAreSavedWhenNoneIsLeftOut)
{
    ConvertWorld world;
    world.Variables().SetInt(u"OutputConfs", 8);
    world.cad.documents[u"C:\\Vault\\part.tvnprt"] = {kScriptedPart, {u"A", u"B"}};
    world.Run(u"C:\\Vault\\part.tvnprt");
    EXPECT_EQ(world.Calls("part.tvnprt.Show"), "part.tvnprt.ShowConfiguration \"A\"\n"
                                               "part.tvnprt.ShowConfiguration \"B\"\n");
}

TEST(ConvertCalls, AllIsStrongerThanTheActiveOneAndThatStrongerThanThePattern)
{
    struct Row
    {
        int32_t output;
        const char* shown;
    };
    const Row rows[] = {
        {2 + 4 + 8, "part.prt.ShowConfiguration \"A\"\npart.prt.ShowConfiguration \"B\"\n"},
        {4 + 8, "part.prt.ShowConfiguration \"A\"\n"},
        {8, "part.prt.ShowConfiguration \"B\"\n"},
        {1 + 8, "part.prt.ShowConfiguration \"B\"\n"},
    };
    for (const Row& row : rows) {
        ConvertWorld world;
        world.Variables().SetInt(u"OutputConfs", row.output);
        world.Variables().SetText(u"NamedConf", u"B");
        world.cad.documents[u"C:\\Vault\\part.prt"] = {kScriptedPart, {u"A", u"B"}};
        world.Run(u"C:\\Vault\\part.prt");
        EXPECT_EQ(world.Calls("part.prt.Show"), row.shown) << row.output;
    }
}

TEST(ConvertCalls, OneFileEachIsStrongerThanAllInOne)
{
    ConvertWorld world;
    world.Variables().SetInt(u"FileConfs", 2 + 4);
    world.cad.documents[u"C:\\Vault\\part.prt"] = {};
    world.Run(u"C:\\Vault\\part.prt");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\part_Default.stl\", 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertCalls, AllSheetsGoIntoOnePdf)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"Adobe PDF (*.pdf)");
    world.Variables().SetInt(u"FileSheets", 2);
    world.cad.documents[u"C:\\Vault\\plan.tvndrw"] = {kScriptedDrawing, {}, {u"One", u"Two"}};
    world.Run(u"C:\\Vault\\plan.tvndrw");
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
Torvane.RevisionNumber
Torvane.Frame
Frame.KeepInVisible = True
Torvane.ActivateDoc2 "C:\Vault\plan.tvndrw", True, 0
plan.tvndrw.GetPathName
Torvane.SetUserPreferenceToggle tvPDFExportInColor, False
Torvane.SetUserPreferenceToggle tvPDFExportEmbedFonts, False
Torvane.SetUserPreferenceToggle tvPDFExportHighQuality, False
Torvane.SetUserPreferenceToggle tvPDFExportPrintHeaderFooter, False
Torvane.SetUserPreferenceToggle tvPDFExportUseCurrentPrintLineWeights, False
plan.tvndrw.Extension
plan.tvndrw.GetSheetNames
Torvane.GetExportFileData 1
ExportPdfData.SetSheets 3, ["One", "Two"]
Extension.SaveAs "C:\Out\plan_All.pdf", 0, 1, ExportPdfData, 0, 0
plan.tvndrw.GetTitle
Torvane.QuitDoc "plan.tvndrw"
)"));
}

TEST(ConvertCalls, AllSheetsInOneFileOfAnotherFormatAreSavedOnceAsAll)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"JPEG (*.jpg)");
    world.Variables().SetInt(u"FileSheets", 2);
    world.cad.documents[u"C:\\Vault\\plan.tvndrw"] = {kScriptedDrawing, {}, {u"One", u"Two"}};
    world.Run(u"C:\\Vault\\plan.tvndrw");
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
Torvane.RevisionNumber
Torvane.Frame
Frame.KeepInVisible = True
Torvane.ActivateDoc2 "C:\Vault\plan.tvndrw", True, 0
plan.tvndrw.GetPathName
plan.tvndrw.Extension
plan.tvndrw.GetSheetNames
Extension.SaveAs "C:\Out\plan_All.jpg", 0, 1, Nothing, 0, 0
plan.tvndrw.GetTitle
Torvane.QuitDoc "plan.tvndrw"
)"));
}

TEST(ConvertCalls, AllConfigurationsInOneFileAreSavedOnceAsAll)
{
    ConvertWorld world;
    world.Variables().SetInt(u"FileConfs", 2);
    world.cad.documents[u"C:\\Vault\\part.prt"] = {kScriptedPart, {u"A", u"B"}};
    world.Run(u"C:\\Vault\\part.prt");
    EXPECT_EQ(world.Calls("part.prt.Show") + world.Calls("Extension"),
              "Extension.SaveAs \"C:\\Out\\part_All.stl\", 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertCalls, AFileOfAllNeverGetsANumber)
{
    ConvertWorld world;
    world.Variables().SetText(u"OutputPath", u"C:\\Out\\<Filename>");
    world.Variables().SetText(u"OutputPath2", u"C:\\Copy\\<Filename>");
    world.Variables().SetInt(u"FileSheets", 2);
    world.Variables().SetInt(u"FileConfs", 2);
    world.cad.documents[u"C:\\Vault\\Part.prt"] = {kScriptedPart, {u"A", u"B"}};
    world.cad.documents[u"C:\\Vault\\Plan.drw"] = {kScriptedDrawing, {}, {u"A", u"B"}};
    world.Run(u"C:\\Vault\\Part.prt");
    world.Run(u"C:\\Vault\\Plan.drw");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\Part.stl\", 0, 1, Nothing, 0, 0\n"
                                        "Extension.SaveAs \"C:\\Copy\\Part.stl\", 0, 1, Nothing, 0, 0\n"
                                        "Extension.SaveAs \"C:\\Out\\Plan.stl\", 0, 1, Nothing, 0, 0\n"
                                        "Extension.SaveAs \"C:\\Copy\\Plan.stl\", 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertCalls, NumbersTellFilesApartWhenThePathHasNoConfiguration)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"Adobe PDF (*.pdf)");
    world.Variables().SetText(u"OutputPath", u"C:\\Out\\<Filename>");
    world.cad.documents[u"C:\\Vault\\Part.prt"] = {kScriptedPart, {u"A", u"B"}};
    world.Run(u"C:\\Vault\\Part.prt");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\Part_0.pdf\", 0, 1, Nothing, 0, 0\n"
                                        "Extension.SaveAs \"C:\\Out\\Part_1.pdf\", 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertCalls, ASingleConfigurationNeedsNoNumber)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"Adobe PDF (*.pdf)");
    world.Variables().SetText(u"OutputPath", u"C:\\Out\\<Filename>");
    world.cad.documents[u"C:\\Vault\\Part.prt"] = {};
    world.Run(u"C:\\Vault\\Part.prt");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\Part.pdf\", 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertCalls, NothingIsSavedWhenNoFileNumberIsSet)
{
    for (int32_t number : {0, 1}) {
        ConvertWorld world;
        world.Variables().SetInt(u"FileSheets", number);
        world.Variables().SetInt(u"FileConfs", number);
        world.cad.documents[u"C:\\Vault\\part.prt"] = {};
        world.cad.documents[u"C:\\Vault\\plan.drw"] = {kScriptedDrawing, {}, {u"A"}};
        world.Run(u"C:\\Vault\\part.prt");
        world.Run(u"C:\\Vault\\plan.drw");
        EXPECT_EQ(world.Calls("Extension"), "") << number;
        EXPECT_EQ(world.Log(), "(none)") << number;
    }
}

TEST(ConvertCalls, TheBitThatAUserMayChangeTheChoiceChangesNothingElse)
{
    ConvertWorld world;
    world.Variables().SetInt(u"FileSheets", 1 + 2);
    world.Variables().SetInt(u"FileConfs", 1 + 2);
    world.Variables().SetInt(u"OutputSheets", 1 + 2);
    world.Variables().SetInt(u"OutputConfs", 1 + 2);
    world.cad.documents[u"C:\\Vault\\part.prt"] = {};
    world.cad.documents[u"C:\\Vault\\plan.drw"] = {kScriptedDrawing, {}, {u"A"}};
    world.Run(u"C:\\Vault\\part.prt");
    world.Run(u"C:\\Vault\\plan.drw");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\part_All.stl\", 0, 1, Nothing, 0, 0\n"
                                        "Extension.SaveAs \"C:\\Out\\plan_All.stl\", 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertCalls, TheExtensionOfTheSourceStandsInThePath)
{
    ConvertWorld world;
    world.Variables().SetText(u"OutputPath", u"C:\\<Extension>\\<Filename>_<Extension>");
    world.cad.documents[u"C:\\Vault\\part.v2.tvnprt"] = {};
    world.Run(u"C:\\Vault\\part.v2.tvnprt");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\tvnprt\\part.v2_tvnprt.stl\", 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertCalls, APdfFormatInCapitalsStillHasItsSheets)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"Adobe PDF (*.PDF)");
    world.cad.documents[u"C:\\Vault\\plan.drw"] = {kScriptedDrawing, {}, {u"A", u"B"}};
    world.Run(u"C:\\Vault\\plan.drw");
    world.Variables().SetInt(u"FileSheets", 2);
    world.Run(u"C:\\Vault\\plan.drw");
    EXPECT_EQ(world.Calls("ExportPdfData") + world.Calls("Extension"), Lines(R"(
ExportPdfData.SetSheets 3, "A"
ExportPdfData.SetSheets 3, "B"
ExportPdfData.SetSheets 3, ["A", "B"]
Extension.SaveAs "C:\Out\plan_A.PDF", 0, 1, ExportPdfData, 0, 0
Extension.SaveAs "C:\Out\plan_B.PDF", 0, 1, ExportPdfData, 0, 0
Extension.SaveAs "C:\Out\plan_All.PDF", 0, 1, ExportPdfData, 0, 0
)"));
}

TEST(ConvertCalls, TheSecondOutputOfASheetKeepsTheSheetOfTheFirst)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"Adobe PDF (*.pdf)");
    world.Variables().SetText(u"OutputPath2", u"C:\\Copy\\<Filename>.<Extension>");
    world.cad.documents[u"C:\\Vault\\plan.tvndrw"] = {kScriptedDrawing, {}, {u"One", u"Two"}};
    world.Run(u"C:\\Vault\\plan.tvndrw");
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
Torvane.RevisionNumber
Torvane.Frame
Frame.KeepInVisible = True
Torvane.ActivateDoc2 "C:\Vault\plan.tvndrw", True, 0
plan.tvndrw.GetPathName
Torvane.SetUserPreferenceToggle tvPDFExportInColor, False
Torvane.SetUserPreferenceToggle tvPDFExportEmbedFonts, False
Torvane.SetUserPreferenceToggle tvPDFExportHighQuality, False
Torvane.SetUserPreferenceToggle tvPDFExportPrintHeaderFooter, False
Torvane.SetUserPreferenceToggle tvPDFExportUseCurrentPrintLineWeights, False
plan.tvndrw.Extension
plan.tvndrw.GetSheetNames
plan.tvndrw.ActivateSheet "One"
Torvane.GetExportFileData 1
ExportPdfData.SetSheets 3, "One"
Extension.SaveAs "C:\Out\plan_One.pdf", 0, 1, ExportPdfData, 0, 0
Extension.SaveAs "C:\Copy\plan.tvndrw_0.pdf", 0, 1, ExportPdfData, 0, 0
plan.tvndrw.ActivateSheet "Two"
Torvane.GetExportFileData 1
ExportPdfData.SetSheets 3, "Two"
Extension.SaveAs "C:\Out\plan_Two.pdf", 0, 1, ExportPdfData, 0, 0
Extension.SaveAs "C:\Copy\plan.tvndrw_1.pdf", 0, 1, ExportPdfData, 0, 0
plan.tvndrw.GetTitle
Torvane.QuitDoc "plan.tvndrw"
)"));
}

} // namespace
} // namespace tv::macro
