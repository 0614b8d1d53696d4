// The convert template on documents of every kind: opening, Zephrin's selection, virtual components, folders.

#include "local_macro/templates/template_world.h"

#include <gtest/gtest.h>

namespace tv::macro {
namespace {

constexpr std::u16string_view kZephrin = u"Zephrin (*.zprt; *.zasm; *.zdrw)";

TEST(ConvertDocuments, TheTypeComesFromTheEndOfTheNameInCapitalsToo)
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
        ConvertWorld world;
        world.cad.documents[row.path] = {row.type, {u"Default"}, {u"Sheet"}};
        world.Run(row.path);
        EXPECT_EQ(world.Calls("Specification.DocumentType"), row.call) << Utf8Text(row.path);
        EXPECT_EQ(world.Calls("Torvane.LoadFile4"), "") << Utf8Text(row.path);
        EXPECT_EQ(world.Log(), "(none)") << Utf8Text(row.path);
    }
}

TEST(ConvertDocuments, TheSelectionOfOneZephrinFileFollowsTheChoiceOfItems)
{
    struct Row
    {
        std::u16string path;
        int32_t type;
        int32_t output;
        const char* calls;
    };
    const Row rows[] = {
        {u"C:\\V\\a.drw", 3, 2, "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 72\n"},
        {u"C:\\V\\a.drw", 3, 4, "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 71\n"},
        {u"C:\\V\\a.drw", 3, 8,
         "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 73\n"
         "SetUserPreferenceStringListValue tvZephrinSelectionList, \"One\nOnto\"\n"},
        {u"C:\\V\\a.prt", 1, 2, "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 72\n"},
        {u"C:\\V\\a.prt", 1, 4, "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 71\n"},
        {u"C:\\V\\a.prt", 1, 8,
         "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 73\n"
         "SetUserPreferenceStringListValue tvZephrinSelectionList, \"One\nOnto\"\n"},
        {u"C:\\V\\a.asm", 2, 2, "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 72\n"},
        {u"C:\\V\\a.asm", 2, 4, "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 71\n"},
        {u"C:\\V\\a.asm", 2, 8,
         "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 73\n"
         "SetUserPreferenceStringListValue tvZephrinSelectionList, \"One\nOnto\"\n"},
        {u"C:\\V\\a.drw", 3, 2 + 4 + 8, "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 72\n"},
        {u"C:\\V\\a.prt", 1, 4 + 8, "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 71\n"},
        {u"C:\\V\\a.drw", 3, 1 + 4, "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 71\n"},
        {u"C:\\V\\a.prt", 1, 1 + 4, "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 71\n"},
        {u"C:\\V\\a.drw", 3, 1 + 8,
         "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 73\n"
         "SetUserPreferenceStringListValue tvZephrinSelectionList, \"One\nOnto\"\n"},
        {u"C:\\V\\a.prt", 1, 1 + 8,
         "SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 73\n"
         "SetUserPreferenceStringListValue tvZephrinSelectionList, \"One\nOnto\"\n"},
    };
    for (const Row& row : rows) {
        ConvertWorld world;
        world.Variables().SetText(u"FileFormat", kZephrin);
        for (const char16_t* kind : {u"Sheet", u"Conf"}) {
            world.Variables().SetInt(u"Output" + std::u16string(kind) + u"s", row.output);
            world.Variables().SetInt(u"File" + std::u16string(kind) + u"s", 2);
            world.Variables().SetText(u"Named" + std::u16string(kind), u"On*");
        }
        const std::vector<std::u16string> names = {u"One", u"Two", u"Onto"};
        world.cad.documents[row.path] = {row.type, names, names};
        world.Run(row.path);
        // What follows the toggles of the format.
        std::string calls = world.Calls("Torvane.SetUserPreference");
        calls.erase(0, calls.find('\n', calls.rfind("SetUserPreferenceToggle")) + 1);
        for (size_t at = calls.find("Torvane."); at != std::string::npos; at = calls.find("Torvane.")) {
            calls.erase(at, 8);
        }
        EXPECT_EQ(calls, row.calls) << Utf8Text(row.path) << " " << row.output;
    }
}

TEST(ConvertDocuments, SelectedSheetsOfAZephrinDrawing)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", kZephrin);
    world.Variables().SetInt(u"OutputSheets", 8);
    world.Variables().SetInt(u"FileSheets", 2);
    world.Variables().SetText(u"NamedSheet", u"On*");
    world.cad.documents[u"C:\\V\\plan.drw"] = {kScriptedDrawing, {}, {u"One", u"Two", u"Onto"}};
    world.Run(u"C:\\V\\plan.drw");
    EXPECT_EQ(world.Calls(), Lines(R"(
Application.Torvane
Torvane.GetOpenDocSpec "C:\V\plan.drw"
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
Torvane.ActivateDoc2 "C:\V\plan.drw", True, 0
plan.drw.GetPathName
Torvane.SetUserPreferenceToggle tvZephrinOkayToMeasure, False
Torvane.SetUserPreferenceToggle tvZephrinExportSTLOkay, False
Torvane.SetUserPreferenceToggle tvZephrinSaveShadedDataInDrawings, False
Torvane.SetUserPreferenceToggle tvZephrinSaveBOM, False
Torvane.SetUserPreferenceToggle tvZephrinSaveAnimationOkay, False
Torvane.SetUserPreferenceToggle tvZephrinSaveAnimationToAllConfigs, False
Torvane.SetUserPreferenceToggle tvZephrinSaveAnimationRecalculate, False
plan.drw.Extension
plan.drw.GetSheetNames
Torvane.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 73
Torvane.SetUserPreferenceStringListValue tvZephrinSelectionList, "One
Onto"
Extension.SaveAs "C:\Out\plan_All.zdrw", 0, 1, Nothing, 0, 0
plan.drw.GetTitle
Torvane.QuitDoc "plan.drw"
)"));
}

TEST(ConvertDocuments, TheListOfAZephrinSelectionHasNoBlanksAtItsEnds)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", kZephrin);
    world.Variables().SetInt(u"OutputConfs", 8);
    world.Variables().SetInt(u"FileConfs", 2);
    world.cad.documents[u"C:\\V\\part.prt"] = {kScriptedPart, {u"  A", u" B ", u"C  "}};
    world.Run(u"C:\\V\\part.prt");
    EXPECT_EQ(world.Calls("Torvane.SetUserPreferenceStringListValue"),
              "Torvane.SetUserPreferenceStringListValue tvZephrinSelectionList, \"A\n B \nC\"\n");
}

TEST(ConvertDocuments, AZephrinFileForEachSheetHoldsTheActiveOne)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", kZephrin);
    world.cad.documents[u"C:\\V\\plan.drw"] = {kScriptedDrawing, {}, {u"One", u"Two"}};
    world.Run(u"C:\\V\\plan.drw");
    EXPECT_EQ(world.Calls("Torvane.SetUserPreferenceIntegerValue") + world.Calls("Extension"), Lines(R"(
Torvane.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 71
Torvane.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 71
Extension.SaveAs "C:\Out\plan_One.zdrw", 0, 1, Nothing, 0, 0
Extension.SaveAs "C:\Out\plan_Two.zdrw", 0, 1, Nothing, 0, 0
)"));
}

TEST(ConvertDocuments, AFormatInCapitalsHasTheSameSelection)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"Zephrin (*.ZPRT; *.ZASM; *.ZDRW)");
    world.cad.documents[u"C:\\V\\plan.drw"] = {kScriptedDrawing, {}, {u"One"}};
    world.cad.documents[u"C:\\V\\part.prt"] = {};
    world.cad.documents[u"C:\\V\\top.asm"] = {kScriptedAssembly};
    world.Run(u"C:\\V\\plan.drw");
    world.Variables().SetInt(u"FileSheets", 2);
    world.Variables().SetInt(u"FileConfs", 2);
    world.Run(u"C:\\V\\plan.drw");
    world.Run(u"C:\\V\\part.prt");
    world.Run(u"C:\\V\\top.asm");
    EXPECT_EQ(world.Calls("Torvane.SetUserPreferenceIntegerValue"), Lines(R"(
Torvane.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 71
Torvane.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 72
Torvane.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 72
Torvane.SetUserPreferenceIntegerValue tvZephrinSaveAsSelectionOption, 72
)"));
}

TEST(ConvertDocuments, AZephrinFileForEachConfigurationSelectsNothing)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", kZephrin);
    world.cad.documents[u"C:\\V\\part.prt"] = {kScriptedPart, {u"A", u"B"}};
    world.Run(u"C:\\V\\part.prt");
    EXPECT_EQ(world.Calls("Torvane.SetUserPreferenceIntegerValue") + world.Calls("Extension"), Lines(R"(
Extension.SaveAs "C:\Out\part_A.zprt", 0, 1, Nothing, 0, 0
Extension.SaveAs "C:\Out\part_B.zprt", 0, 1, Nothing, 0, 0
)"));
}

TEST(ConvertDocuments, VirtualComponentsFollowDepthFirstAndTheLastModelIsClosedInPlaceOfTheirAssemblies)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"JPEG (*.jpg)");
    world.cad.documents[u"C:\\V\\top.asm"] = {
        kScriptedAssembly,
        {u"Default"},
        {},
        {{u"C:\\T\\sub.asm", true}, {u"C:\\V\\real.prt", false}, {u"C:\\T\\last.prt", true}}};
    world.cad.documents[u"C:\\T\\sub.asm"] = {kScriptedAssembly, {u"Default"}, {}, {{u"C:\\T\\deep.prt", true}}};
    world.cad.documents[u"C:\\T\\deep.prt"] = {};
    world.cad.documents[u"C:\\T\\last.prt"] = {};
    world.cad.documents[u"C:\\V\\real.prt"] = {};
    world.Run(u"C:\\V\\top.asm");
    EXPECT_EQ(world.Calls(), Lines(R"(
Application.Torvane
Torvane.GetOpenDocSpec "C:\V\top.asm"
Specification.DocumentType = 2
Specification.ReadOnly = True
Specification.Silent = True
Specification.ConfigurationName = ""
Specification.DisplayState = ""
Torvane.OpenDoc7 DocumentSpecification
Specification.Error
Torvane.RevisionNumber
Torvane.Frame
Frame.KeepInVisible = True
Torvane.ActivateDoc2 "C:\V\top.asm", True, 0
top.asm.GetPathName
top.asm.Extension
top.asm.ConfigurationManager
top.asm.GetConfigurationNames
top.asm.ShowConfiguration "Default"
Extension.SaveAs "C:\Out\top_Default.jpg", 0, 1, Nothing, 0, 0
top.asm.GetComponents True
Component.IsVirtual
Component.GetPathName
Torvane.GetOpenDocSpec "C:\T\sub.asm"
Specification.DocumentType = 2
Specification.ReadOnly = True
Specification.Silent = True
Specification.ConfigurationName = ""
Specification.DisplayState = ""
Torvane.OpenDoc7 DocumentSpecification
Specification.Error
Torvane.RevisionNumber
Torvane.Frame
Frame.KeepInVisible = True
Torvane.ActivateDoc2 "C:\T\sub.asm", True, 0
sub.asm.GetPathName
sub.asm.Extension
sub.asm.ConfigurationManager
sub.asm.GetConfigurationNames
sub.asm.ShowConfiguration "Default"
Extension.SaveAs "C:\Out\sub_Default.jpg", 0, 1, Nothing, 0, 0
sub.asm.GetComponents True
Component.IsVirtual
Component.GetPathName
Torvane.GetOpenDocSpec "C:\T\deep.prt"
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
Torvane.ActivateDoc2 "C:\T\deep.prt", True, 0
deep.prt.GetPathName
deep.prt.Extension
deep.prt.ConfigurationManager
deep.prt.GetConfigurationNames
deep.prt.ShowConfiguration "Default"
Extension.SaveAs "C:\Out\deep_Default.jpg", 0, 1, Nothing, 0, 0
deep.prt.GetTitle
Torvane.QuitDoc "deep.prt"
deep.prt.GetTitle
Torvane.QuitDoc "deep.prt"
Component.IsVirtual
Component.IsVirtual
Component.GetPathName
Torvane.GetOpenDocSpec "C:\T\last.prt"
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
Torvane.ActivateDoc2 "C:\T\last.prt", True, 0
last.prt.GetPathName
last.prt.Extension
last.prt.ConfigurationManager
last.prt.GetConfigurationNames
last.prt.ShowConfiguration "Default"
Extension.SaveAs "C:\Out\last_Default.jpg", 0, 1, Nothing, 0, 0
last.prt.GetTitle
Torvane.QuitDoc "last.prt"
last.prt.GetTitle
Torvane.QuitDoc "last.prt"
)"));
    EXPECT_EQ(world.Log(), "(none)");
}

TEST(ConvertDocuments, VirtualComponentsAreConvertedThoughNoConfigurationOfTheirAssemblyMatches)
{
    ConvertWorld world;
    world.Variables().SetInt(u"OutputConfs", 8);
    world.Variables().SetText(u"NamedConf", u"Z*");
    world.cad.documents[u"C:\\V\\top.asm"] = {kScriptedAssembly, {u"A"}, {}, {{u"C:\\T\\v.prt", true}}};
    world.cad.documents[u"C:\\T\\v.prt"] = {kScriptedPart, {u"Zed"}};
    world.Run(u"C:\\V\\top.asm");
    EXPECT_EQ(world.Log(), "Document 'C:\\V\\top.asm' didn't contain any configurations named 'Z*'.\r\n");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\v_Zed.stl\", 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertDocuments, AnAssemblyWithoutComponentsIsClosedLikeAPart)
{
    ConvertWorld world;
    world.cad.documents[u"C:\\V\\top.asm"] = {kScriptedAssembly};
    world.Run(u"C:\\V\\top.asm");
    EXPECT_EQ(world.Calls("top.asm.GetComponents") + world.Calls("Component.") + world.Calls("Torvane.QuitDoc"),
              "top.asm.GetComponents True\nTorvane.QuitDoc \"top.asm\"\n");
}

TEST(ConvertDocuments, TheApplicationIsKeptInvisibleFromRevision18On)
{
    struct Row
    {
        std::u16string revision;
        const char* calls;
    };
    const Row rows[] = {
        {u"9.0.0", ""},
        {u"17.5.2", ""},
        {u"18.0.0", "Frame.KeepInVisible = True\n"},
        {u"19.1", "Frame.KeepInVisible = True\n"},
        {u"32.0.1", "Frame.KeepInVisible = True\n"},
        // Two characters are read, not the whole number.
        {u"100.0", ""},
    };
    for (const Row& row : rows) {
        ConvertWorld world;
        world.cad.revision = row.revision;
        world.cad.documents[u"C:\\V\\part.prt"] = {};
        world.Run(u"C:\\V\\part.prt");
        EXPECT_EQ(world.Calls("Frame"), row.calls) << Utf8Text(row.revision);
        EXPECT_EQ(world.Log(), "(none)") << Utf8Text(row.revision);
    }
}

TEST(ConvertDocuments, AFileOfAnUnsupportedExtensionIsNotOpened)
{
    ConvertWorld world;
    world.Run(u"C:\\V\\letter.doc");
    EXPECT_EQ(world.Calls(), "Application.Torvane\n");
}

TEST(ConvertDocuments, ANeutralFileIsLoadedAndTreatedAsWhatItBecomes)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", u"JPEG (*.jpg)");
    ScriptedDocument imported;
    imported.hasPath = false;
    world.cad.documents[u"C:\\V\\screw.STEP"] = imported;
    world.Run(u"C:\\V\\screw.STEP");
    EXPECT_EQ(world.Calls(), Lines(R"(
Application.Torvane
Torvane.LoadFile4 "C:\V\screw.STEP", "", Nothing, 0
screw.STEP.GetType
Torvane.RevisionNumber
Torvane.Frame
Frame.KeepInVisible = True
Torvane.ActivateDoc2 "C:\V\screw.STEP", True, 0
screw.STEP.GetPathName
screw.STEP.Extension
screw.STEP.ConfigurationManager
screw.STEP.GetConfigurationNames
screw.STEP.ShowConfiguration "Default"
Extension.SaveAs "C:\Out\screw_Default.jpg", 0, 1, Nothing, 0, 0
screw.STEP.GetTitle
Torvane.QuitDoc "screw.STEP"
)"));
}

TEST(ConvertDocuments, ANeutralFileThatBecomesADrawingIsSavedBySheets)
{
    ConvertWorld world;
    world.cad.documents[u"C:\\V\\plan.dxf"] = {kScriptedDrawing, {}, {u"Model"}};
    world.Run(u"C:\\V\\plan.dxf");
    EXPECT_EQ(world.Calls("plan.dxf.ActivateSheet"), "plan.dxf.ActivateSheet \"Model\"\n");
}

TEST(ConvertDocuments, ANeutralFileThatBecomesAnAssemblyHasItsVirtualComponentsConverted)
{
    ConvertWorld world;
    world.Variables().SetText(u"FileFormat", kZephrin);
    world.cad.documents[u"C:\\V\\top.stp"] = {kScriptedAssembly, {u"Default"}, {}, {{u"C:\\T\\v.prt", true}}};
    world.cad.documents[u"C:\\T\\v.prt"] = {};
    world.Run(u"C:\\V\\top.stp");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\top_Default.zasm\", 0, 1, Nothing, 0, 0\n"
                                        "Extension.SaveAs \"C:\\Out\\v_Default.zprt\", 0, 1, Nothing, 0, 0\n");
}

TEST(ConvertDocuments, ANewOutputFolderIsHeldUntilTheDocumentIsDone)
{
    ConvertWorld world;
    world.Variables().SetText(u"OutputPath2", u"C:\\Copy\\Deep\\<Filename>");
    world.cad.documents[u"C:\\V\\part.prt"] = {};
    std::string held;
    world.cad.onSave = [&](const std::u16string& target) {
        const std::u16string holder = target.substr(0, target.find_last_of(u'\\') + 1) + u"~$holder";
        held += Utf8Text(holder) + (world.host.files.Content(holder) == "" ? " stands empty\n" : " is missing\n");
    };
    world.Run(u"C:\\V\\part.prt");
    EXPECT_EQ(held, "C:\\Out\\~$holder stands empty\nC:\\Copy\\Deep\\~$holder stands empty\n");
    EXPECT_TRUE(world.host.files.Find(u"C:\\Out")->isFolder);
    EXPECT_TRUE(world.host.files.Find(u"C:\\Copy\\Deep")->isFolder);
    EXPECT_FALSE(world.host.files.Find(u"C:\\Out\\~$holder"));
    EXPECT_FALSE(world.host.files.Find(u"C:\\Copy\\Deep\\~$holder"));
}

TEST(ConvertDocuments, AnOutputFolderThatExistsIsNotHeld)
{
    ConvertWorld world;
    world.host.files.CreateFolder(u"C:\\Out");
    world.cad.documents[u"C:\\V\\part.prt"] = {};
    bool held = true;
    world.cad.onSave = [&](const std::u16string&) { held = world.host.files.Find(u"C:\\Out\\~$holder").has_value(); };
    world.Run(u"C:\\V\\part.prt");
    EXPECT_FALSE(held);
}

TEST(ConvertDocuments, AFolderNamedByTheConfigurationIsNotCreated)
{
    ConvertWorld world;
    world.host.files.CreateFolder(u"C:\\Out");
    world.Variables().SetText(u"OutputPath", u"C:\\Out\\<Configuration>\\<Filename>");
    world.cad.documents[u"C:\\V\\part.prt"] = {};
    world.Run(u"C:\\V\\part.prt");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\Default\\part.stl\", 0, 1, Nothing, 0, 0\n");
    EXPECT_TRUE(world.host.files.List(u"C:\\Out").empty());
}

TEST(ConvertDocuments, AHolderInTheCurrentFolderGoesWhenThereIsNoSecondOutput)
{
    ConvertWorld world;
    world.host.files.Put(u"C:\\Current\\~$holder", "");
    world.host.files.ChangeFolder(u"C:\\Current");
    world.cad.documents[u"C:\\V\\part.prt"] = {};
    world.Run(u"C:\\V\\part.prt");
    EXPECT_FALSE(world.host.files.Find(u"C:\\Current\\~$holder"));
}

TEST(ConvertDocuments, AnUnknownTokenOfAPathLosesItsBrackets)
{
    ConvertWorld world;
    world.Variables().SetText(u"OutputPath", u"C:\\Out\\<Filename>_<Foo>");
    world.cad.documents[u"C:\\V\\part.prt"] = {};
    world.Run(u"C:\\V\\part.prt");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\part_Foo.stl\", 0, 1, Nothing, 0, 0\n");
}

} // namespace
} // namespace tv::macro
