#include "host/task_variables.h"

#include "host/errors.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tv::local {

namespace {

std::optional<StoredValue> NothingStored(std::string_view)
{
    return std::nullopt;
}

NamedValue Assign(std::string_view text)
{
    return ParseAssignment(text, NothingStored);
}

std::string Refusal(std::string_view text)
{
    try {
        Assign(text);
        return {};
    } catch (const UsageError& error) {
        return error.what();
    }
}

struct ExpectedDefault
{
    std::string_view name;
    std::string_view kind;
    std::string_view value;
};

// What the pages of the add-in write into a task whose dialogs nobody opened.
constexpr ExpectedDefault kExpectedDefaults[] = {
    {"FileFormat", "text", "STL (*.stl)"},
    {"OutputPath", "text", "<Path>\\<Filename>_<Extension>_<Configuration>"},
    {"OutputPath2", "text", ""},
    {"PromptOutput", "bool", "false"},
    {"ReplaceOutput", "bool", "true"},
    {"RefToSource", "bool", "false"},
    {"SourceRefs", "int", "2"},
    {"ErrorLogPath", "text", "\\Logs\\Export_ 1"},
    {"OutputConfs", "int", "2"},
    {"NamedConf", "text", "Default"},
    {"FileConfs", "int", "4"},
    {"OutputSheets", "int", "2"},
    {"NamedSheet", "text", "Default"},
    {"FileSheets", "int", "4"},
    {"AcisOutputAsUnit", "int", "0"},
    {"AcisGeometry", "int", "0"},
    {"AcisVersion", "int", "18"},
    {"ZphrOkayToMeasure", "bool", "false"},
    {"ZphrAllowExportOfSTL", "bool", "false"},
    {"ZphrSaveShadedData", "bool", "true"},
    {"ZphrSaveBOM", "bool", "true"},
    {"ZphrSaveMotionStudies", "bool", "true"},
    {"ZphrSaveMotionStudiesToAllConfs", "bool", "false"},
    {"ZphrRecalcMotionStudies", "bool", "true"},
    {"IgesRepresentation", "int", "0"},
    {"IgesCurveRepresentation", "int", "0"},
    {"IgesSystem", "int", "0"},
    {"IgesExportSolidSurface", "bool", "true"},
    {"IgesExportWireframe", "bool", "false"},
    {"IgesExportFreeCurves", "bool", "true"},
    {"IgesExportSketchEntities", "bool", "false"},
    {"IgesHighCurveAccuracy", "bool", "true"},
    {"IgesComponentsIntoOneFile", "bool", "true"},
    {"IgesFlattenAssemblyHierarchy", "bool", "true"},
    {"ParasolidVersion", "int", "17"},
    {"ParasolidFlattenHierarchy", "bool", "false"},
    {"PdfInColor", "bool", "true"},
    {"PdfEmbedFonts", "bool", "true"},
    {"PdfHighQuality", "bool", "false"},
    {"PdfPrintHeaderFooter", "bool", "false"},
    {"PdfUsePrinterLineWeights", "bool", "true"},
    {"StepGeometry", "int", "0"},
    {"StepVersion", "int", "203"},
    {"StlOutputAsUnit", "int", "0"},
    {"StlQuality", "int", "1"},
    {"StlOutputAs", "bool", "true"},
    {"StlDontTranslatePositive", "bool", "false"},
    {"StlComponentsIntoOneFile", "bool", "false"},
    {"StlCheckForInterferences", "bool", "false"},
    {"TifImageType", "int", "1"},
    {"TifCompressionScheme", "int", "0"},
    {"VrmlOutputAsUnit", "int", "0"},
    {"VrmlSaveAssemblyAsOneFile", "bool", "false"},
    {"__script", "text", "macro"},
    {"__tv_version", "int", "0"},
    {"__type", "int", "1"},
};

TEST(TaskVariables, ANewConvertTaskHasEveryVariableThatItsMacroNames)
{
    const auto variables = NewTaskVariables(1, "Export: 1", "macro");
    EXPECT_EQ(variables.size(), std::size(kExpectedDefaults));
    for (const ExpectedDefault& expected : kExpectedDefaults) {
        const auto found = std::find_if(variables.begin(), variables.end(),
                                        [&](const NamedValue& value) { return value.name == expected.name; });
        ASSERT_NE(found, variables.end()) << expected.name;
        EXPECT_EQ(KindWord(*KindOfValue(found->value)), expected.kind) << expected.name;
        EXPECT_EQ(found->value.Display(), expected.value) << expected.name;
    }
}

TEST(TaskVariables, AScriptTaskGetsNoSettings)
{
    EXPECT_EQ(NewTaskVariables(3, "x", "macro").size(), 4u);
}

constexpr ExpectedDefault kExpectedPrintDefaults[] = {
    {"ErrorLogPath", "text", "\\Logs\\x"},
    {"__printer_autoselectrefstype", "int", "1"},
    {"__printer_copycount", "int", "1"},
    {"__printer_deforientation", "int", "1"},
    {"__printer_defpapsize", "int", "10"},
    {"__printer_footercenter", "text", ""},
    {"__printer_footerleft", "text", ""},
    {"__printer_footerright", "text", ""},
    {"__printer_footertype", "int", "0"},
    {"__printer_headercenter", "text", ""},
    {"__printer_headerleft", "text", ""},
    {"__printer_headerright", "text", ""},
    {"__printer_headertype", "int", "0"},
    {"__printer_marginbottom", "float", "0"},
    {"__printer_marginleft", "float", "0"},
    {"__printer_marginright", "float", "0"},
    {"__printer_margintop", "float", "0"},
    {"__printer_margintype", "int", "0"},
    {"__printer_papsize_A", "text", ""},
    {"__printer_papsize_A0", "text", ""},
    {"__printer_papsize_A1", "text", ""},
    {"__printer_papsize_A2", "text", ""},
    {"__printer_papsize_A3", "text", ""},
    {"__printer_papsize_A4", "text", ""},
    {"__printer_papsize_B", "text", ""},
    {"__printer_papsize_C", "text", ""},
    {"__printer_papsize_D", "text", ""},
    {"__printer_papsize_DEF", "text", ""},
    {"__printer_papsize_E", "text", ""},
    {"__printer_prname", "text", ""},
    {"__printer_prnamelist", "text", ""},
    {"__printer_prseltype", "int", "0"},
    {"__printer_refversiontype", "int", "1"},
    {"__printer_showprintdlg", "bool", "false"},
    {"__printer_usedrwnfo", "bool", "true"},
    {"__printer_userorientchange", "bool", "false"},
    {"__printer_usersizechange", "bool", "false"},
    {"__script", "text", "macro"},
    {"__tv_version", "int", "0"},
    {"__type", "int", "2"},
};

TEST(TaskVariables, ANewPrintTaskHasEveryVariableThatItsMacroNames)
{
    const auto variables = NewTaskVariables(2, "x", "macro");
    EXPECT_EQ(variables.size(), std::size(kExpectedPrintDefaults));
    for (const ExpectedDefault& expected : kExpectedPrintDefaults) {
        const auto found = std::find_if(variables.begin(), variables.end(),
                                        [&](const NamedValue& value) { return value.name == expected.name; });
        ASSERT_NE(found, variables.end()) << expected.name;
        EXPECT_EQ(KindWord(*KindOfValue(found->value)), expected.kind) << expected.name;
        EXPECT_EQ(found->value.Display(), expected.value) << expected.name;
    }
}

TEST(TaskVariables, AKnownVariableNeedsNoKind)
{
    EXPECT_EQ(Assign("OutputPath=C:\\x=y").value, StoredValue::FromText("C:\\x=y"));
    EXPECT_EQ(Assign("ReplaceOutput=Yes").value, StoredValue::FromBool(true));
    EXPECT_EQ(Assign("ReplaceOutput=0").value, StoredValue::FromBool(false));
    EXPECT_EQ(Assign("StlQuality=2").value, StoredValue::FromInt(2));
    EXPECT_EQ(Assign("__printer_margintop=2.5").value, StoredValue::FromFloat(2.5f));
    EXPECT_EQ(Assign("OutputPath2=").value, StoredValue::FromText(""));
}

TEST(TaskVariables, AVariableOfOnesOwnNeedsItsKindOnce)
{
    EXPECT_EQ(Assign("Mine:int=5").value, StoredValue::FromInt(5));
    EXPECT_EQ(Assign("Mine:int=5").name, "Mine");
    EXPECT_NE(Refusal("Mine=5").find("Mine:text="), std::string::npos);
    const auto stored = [](std::string_view) { return std::optional(StoredValue::FromInt(1)); };
    EXPECT_EQ(ParseAssignment("Mine=5", stored).value, StoredValue::FromInt(5));
}

TEST(TaskVariables, AWrongValueIsNamedWithWhatWouldBeRight)
{
    EXPECT_EQ(Refusal("StlQuality=fine"),
              "'fine' can't be the value of StlQuality; it takes a whole number such as 4.");
    EXPECT_EQ(Refusal("ReplaceOutput=maybe"), "'maybe' can't be the value of ReplaceOutput; it takes true or false.");
    EXPECT_EQ(Refusal("OutputPath"), "'OutputPath' isn't an assignment; write VARIABLE=VALUE.");
    EXPECT_EQ(Refusal("Mine:number=5"), "'number' is no kind of value; write int, float, text or bool.");
    EXPECT_NE(Refusal("FileFormat=pfd").find("'pfd' is no output format; there are: Lattice XML, ACIS,"),
              std::string::npos);
}

TEST(TaskVariables, AFormatIsFoundByItsLabelItsNameOrAnyOneExtension)
{
    for (const char* text : {"Adobe PDF (*.pdf)", "adobe pdf", "PDF"}) {
        EXPECT_EQ(Assign("FileFormat=" + std::string(text)).value, StoredValue::FromText("Adobe PDF (*.pdf)"));
    }
    EXPECT_EQ(FindOutputFormat("zprt"), "Zephrin (*.zprt; *.zasm; *.zdrw)");
    EXPECT_EQ(FindOutputFormat("step"), "STEP (*.step)");
}

TEST(TaskVariables, TheFormatsAreThoseOfTheAddInInItsOrder)
{
    constexpr std::string_view kExpected[] = {"Lattice XML (*.ltxml)",
                                              "ACIS (*.sat)",
                                              "Adobe Illustrator (*.ai)",
                                              "Adobe PDF (*.pdf)",
                                              "Adobe Photoshop (*.psd)",
                                              "Norvik Graphics (*.ngr)",
                                              "AutoCAD DXF (*.dxf)",
                                              "AutoCAD DWG (*.dwg)",
                                              "Zephrin (*.zprt; *.zasm; *.zdrw)",
                                              "HCG-File (*.hcg)",
                                              "HOOPS HSF (*.hsf)",
                                              "IGES (*.igs)",
                                              "JPEG (*.jpg)",
                                              "Microsoft XAML (*.xaml)",
                                              "Parasolid (*.x_t)",
                                              "Parasolid Binary (*.x_b)",
                                              "STEP (*.step)",
                                              "STL (*.stl)",
                                              "TIF (*.tif)",
                                              "Universal 3D (*.u3d)",
                                              "VDAFS (*.vda)",
                                              "VRML (*.wrl)"};
    ASSERT_EQ(OutputFormats().size(), std::size(kExpected));
    for (size_t i = 0; i < std::size(kExpected); ++i) {
        EXPECT_EQ(OutputFormats()[i], kExpected[i]);
    }
}

} // namespace

} // namespace tv::local
