#include "support/task_variable_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>

namespace tv {
namespace {

struct ExpectedVariable
{
    std::u16string_view name;
    uint16_t typeCode;
    std::optional<int32_t> whenAbsent;
};

const ExpectedVariable kExpected[] = {
    // Task frame.
    {u"__type", 3, 3},
    {u"__script", 8, std::nullopt},
    {u"__tv_version", 3, 0},
    {u"__menucmd_display", 11, std::nullopt},
    {u"__selection_list", 8, std::nullopt},
    {u"__output_list", 8, std::nullopt},
    // Conversion.
    {u"FileFormat", 8, std::nullopt},
    {u"OutputPath", 8, std::nullopt},
    {u"OutputPath2", 8, std::nullopt},
    {u"PromptOutput", 11, std::nullopt},
    {u"ReplaceOutput", 11, std::nullopt},
    {u"RefToSource", 11, std::nullopt},
    {u"SourceRefs", 3, std::nullopt},
    {u"ErrorLogPath", 8, std::nullopt},
    {u"OutputConfs", 3, std::nullopt},
    {u"NamedConf", 8, std::nullopt},
    {u"FileConfs", 3, std::nullopt},
    {u"OutputSheets", 3, std::nullopt},
    {u"NamedSheet", 8, std::nullopt},
    {u"FileSheets", 3, std::nullopt},
    {u"FileCardData", 8, std::nullopt},
    // ACIS.
    {u"AcisOutputAsUnit", 3, 0},
    {u"AcisGeometry", 3, 0},
    {u"AcisVersion", 3, 18},
    // Publishing format.
    {u"ZphrOkayToMeasure", 11, 0},
    {u"ZphrAllowExportOfSTL", 11, 0},
    {u"ZphrSaveShadedData", 11, 1},
    {u"ZphrSaveBOM", 11, 1},
    {u"ZphrSaveMotionStudies", 11, 1},
    {u"ZphrSaveMotionStudiesToAllConfs", 11, 0},
    {u"ZphrRecalcMotionStudies", 11, 1},
    // IGES.
    {u"IgesRepresentation", 3, 0},
    {u"IgesCurveRepresentation", 3, 0},
    {u"IgesSystem", 3, 0},
    {u"IgesExportSolidSurface", 11, 1},
    {u"IgesExportWireframe", 11, 0},
    {u"IgesExportFreeCurves", 11, 1},
    {u"IgesExportSketchEntities", 11, 0},
    {u"IgesHighCurveAccuracy", 11, 1},
    {u"IgesComponentsIntoOneFile", 11, 1},
    {u"IgesFlattenAssemblyHierarchy", 11, 1},
    // Parasolid.
    {u"ParasolidVersion", 3, 17},
    {u"ParasolidFlattenHierarchy", 11, 0},
    // PDF.
    {u"PdfInColor", 11, 1},
    {u"PdfEmbedFonts", 11, 1},
    {u"PdfHighQuality", 11, 0},
    {u"PdfPrintHeaderFooter", 11, 0},
    {u"PdfUsePrinterLineWeights", 11, 1},
    // STEP.
    {u"StepGeometry", 3, 0},
    {u"StepVersion", 3, 203},
    // STL.
    {u"StlOutputAsUnit", 3, 0},
    {u"StlQuality", 3, 1},
    {u"StlOutputAs", 11, 1},
    {u"StlDontTranslatePositive", 11, 0},
    {u"StlComponentsIntoOneFile", 11, 0},
    {u"StlCheckForInterferences", 11, 0},
    // TIFF and PSD.
    {u"TifImageType", 3, 1},
    {u"TifCompressionScheme", 3, 0},
    // VRML.
    {u"VrmlOutputAsUnit", 3, 0},
    {u"VrmlSaveAssemblyAsOneFile", 11, 0},
    // Printing.
    {u"__printer_prseltype", 3, std::nullopt},
    {u"__printer_prname", 8, std::nullopt},
    {u"__printer_prnamelist", 8, std::nullopt},
    {u"__printer_papsize_A", 8, std::nullopt},
    {u"__printer_papsize_B", 8, std::nullopt},
    {u"__printer_papsize_C", 8, std::nullopt},
    {u"__printer_papsize_D", 8, std::nullopt},
    {u"__printer_papsize_E", 8, std::nullopt},
    {u"__printer_papsize_A0", 8, std::nullopt},
    {u"__printer_papsize_A1", 8, std::nullopt},
    {u"__printer_papsize_A2", 8, std::nullopt},
    {u"__printer_papsize_A3", 8, std::nullopt},
    {u"__printer_papsize_A4", 8, std::nullopt},
    {u"__printer_papsize_DEF", 8, std::nullopt},
    {u"__printer_copycount", 3, std::nullopt},
    {u"__printer_usedrwnfo", 11, std::nullopt},
    {u"__printer_defpapsize", 3, std::nullopt},
    {u"__printer_usersizechange", 11, std::nullopt},
    {u"__printer_deforientation", 3, std::nullopt},
    {u"__printer_userorientchange", 11, std::nullopt},
    {u"__printer_margintype", 3, std::nullopt},
    {u"__printer_margintop", 4, std::nullopt},
    {u"__printer_marginbottom", 4, std::nullopt},
    {u"__printer_marginleft", 4, std::nullopt},
    {u"__printer_marginright", 4, std::nullopt},
    {u"__printer_headertype", 3, std::nullopt},
    {u"__printer_footertype", 3, std::nullopt},
    {u"__printer_headerleft", 8, std::nullopt},
    {u"__printer_headercenter", 8, std::nullopt},
    {u"__printer_headerright", 8, std::nullopt},
    {u"__printer_footerleft", 8, std::nullopt},
    {u"__printer_footercenter", 8, std::nullopt},
    {u"__printer_footerright", 8, std::nullopt},
    {u"__printer_showprintdlg", 11, std::nullopt},
    {u"__printer_autoselectrefstype", 3, std::nullopt},
    {u"__printer_refversiontype", 3, std::nullopt},
};

TEST(TaskVariableTable, HoldsEveryVariableWithItsKindAndDefault)
{
    ASSERT_EQ(std::size(kTaskVariables), std::size(kExpected));
    for (size_t i = 0; i < std::size(kExpected); ++i) {
        const TaskVariable& row = kTaskVariables[i];
        EXPECT_EQ(row.name, kExpected[i].name) << i;
        EXPECT_EQ(static_cast<uint16_t>(row.kind), kExpected[i].typeCode) << i;
        EXPECT_EQ(row.whenAbsent, kExpected[i].whenAbsent) << i;
    }
}

TEST(TaskVariableTable, NamesAreUnique)
{
    std::set<std::u16string_view> names;
    for (const TaskVariable& row : kTaskVariables) {
        EXPECT_TRUE(names.insert(row.name).second);
    }
}

TEST(TaskVariableTable, ARowIsFoundByItsExactName)
{
    ASSERT_NE(FindTaskVariable(u"PdfInColor"), nullptr);
    EXPECT_EQ(FindTaskVariable(u"PdfInColor")->kind, VariableKind::Bool);
    EXPECT_EQ(FindTaskVariable(u"pdfincolor"), nullptr);
    EXPECT_EQ(FindTaskVariable(u"DateFmt"), nullptr);
}

TEST(TaskVariableTable, FrameVariablesBeginWithTwoUnderscores)
{
    EXPECT_EQ(std::u16string_view(variable::kType), u"__type");
    EXPECT_EQ(std::u16string_view(variable::kScript), u"__script");
    EXPECT_EQ(std::u16string_view(variable::kSelectionList), u"__selection_list");
    EXPECT_EQ(std::u16string_view(variable::kOutputList), u"__output_list");
}

TEST(TaskVariableTable, EachTaskKindHasItsTexts)
{
    ASSERT_EQ(std::size(kTaskKinds), 3u);
    const TaskKindRow* convert = FindTaskKind(1);
    const TaskKindRow* print = FindTaskKind(2);
    const TaskKindRow* script = FindTaskKind(3);
    EXPECT_EQ(convert->menuText, u"Convert Files");
    EXPECT_EQ(convert->statusText, u"Converts Torvane files from one format to another");
    EXPECT_EQ(print->menuText, u"Print Files");
    EXPECT_EQ(print->statusText, u"Prints selected documents with Torvane");
    EXPECT_EQ(script->menuText, u"Execute Script");
    EXPECT_EQ(script->statusText, u"Executes script on selected documents");
    EXPECT_EQ(FindTaskKind(0), nullptr);
    EXPECT_EQ(FindTaskKind(4), nullptr);
}

TEST(TaskVariableTable, AnAbsentMenuSettingShowsTheCommandForAllKindsButScripts)
{
    EXPECT_TRUE(FindTaskKind(1)->showsMenuCommand);
    EXPECT_TRUE(FindTaskKind(2)->showsMenuCommand);
    EXPECT_FALSE(FindTaskKind(3)->showsMenuCommand);
}

} // namespace
} // namespace tv
