#include "templates/script_templates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace tv {
namespace {

using Names = std::vector<std::string>;

Names LinesOf(std::string_view text)
{
    Names lines;
    size_t start = 0;
    for (size_t end = text.find("\r\n"); end != std::string_view::npos; end = text.find("\r\n", start)) {
        lines.emplace_back(text.substr(start, end - start));
        start = end + 2;
    }
    return lines;
}

/// The declarations before the first routine, without "Dim".
Names ModuleVariables(int32_t id)
{
    Names variables;
    for (const std::string& line : LinesOf(ScriptTemplate(id))) {
        if (line.starts_with("Dim ")) {
            variables.push_back(line.substr(4));
        }
    }
    return variables;
}

/// The heads of the routines, in their order.
Names Routines(int32_t id)
{
    Names routines;
    for (const std::string& line : LinesOf(ScriptTemplate(id))) {
        if (line.starts_with("Sub ") || line.starts_with("Function ")) {
            routines.push_back(line);
        }
    }
    return routines;
}

/// The lines between "#If" and "#Else", or those between "#Else" and "#End If".
Names ConditionalLines(int32_t id, std::string_view from, std::string_view to)
{
    const Names lines = LinesOf(ScriptTemplate(id));
    const auto begin = std::ranges::find(lines, from);
    const auto end = std::find(begin, lines.end(), to);
    return begin == lines.end() ? Names{} : Names(begin + 1, end);
}

/// All distinct texts from an opening bracket to its closing one that hold word characters alone.
std::set<std::string> Bracketed(int32_t id, char open, char close)
{
    const std::string_view text = ScriptTemplate(id);
    std::set<std::string> found;
    for (size_t at = text.find(open); at != std::string_view::npos; at = text.find(open, at + 1)) {
        const size_t end =
            text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_", at + 1);
        if (end != std::string_view::npos && end > at + 1 && text[end] == close) {
            found.emplace(text.substr(at, end - at + 1));
        }
    }
    return found;
}

TEST(ConvertTemplate, DeclaresItsModuleVariablesInOrder)
{
    const Names expected = {
        "tvApp As Object",
        "tvModel As Torvane.ModelDoc2",
        "tvDrawing As Torvane.DrawingDoc",
        "tvAssembly As Torvane.AssemblyDoc",
        "tvExtension As Torvane.ModelDocExtension",
        "tvConfMgr As Torvane.ConfigurationManager",
        "tvPDFExport As Torvane.ExportPdfData",
        "tvDocSpecification As Torvane.DocumentSpecification",
        "FileSystemObj As Object",
        "errors As Long",
        "warnings As Long",
    };
    EXPECT_EQ(ModuleVariables(209), expected);
}

TEST(ConvertTemplate, HoldsItsRoutinesInOrder)
{
    const Names expected = {
        "Function PathAppend(path, more)",
        "Sub Log(message)",
        "Sub CreatePath(path)",
        "Sub KillHolder(path)",
        "Function GetExtension(docType, fileFormat)",
        "Sub SetConversionOptions(ext)",
        "Function GetFullFileName(convFileName, conf, i, itemCount)",
        "Sub Convert(docFileName)",
        "Function bIsSupportedExtension(oExtension)",
        "Sub main()",
    };
    EXPECT_EQ(Routines(209), expected);
}

TEST(ConvertTemplate, HoldsThesePlaceholders)
{
    const std::set<std::string> expected = {
        "[ErrorLogPath]",
        "[OutputPath]",
        "[OutputPath2]",
        "[FileFormat]",
        "[OutputSheets]",
        "[OutputConfs]",
        "[FileSheets]",
        "[FileConfs]",
        "[NamedSheet]",
        "[NamedConf]",
        "[PdfInColor]",
        "[PdfEmbedFonts]",
        "[PdfHighQuality]",
        "[PdfPrintHeaderFooter]",
        "[PdfUsePrinterLineWeights]",
        "[IgesExportSolidSurface]",
        "[IgesRepresentation]",
        "[IgesExportWireframe]",
        "[IgesCurveRepresentation]",
        "[IgesSystem]",
        "[IgesExportFreeCurves]",
        "[IgesExportSketchEntities]",
        "[IgesHighCurveAccuracy]",
        "[IgesComponentsIntoOneFile]",
        "[IgesFlattenAssemblyHierarchy]",
        "[AcisGeometry]",
        "[AcisVersion]",
        "[AcisOutputAsUnit]",
        "[StepGeometry]",
        "[StepVersion]",
        "[ParasolidVersion]",
        "[ParasolidFlattenHierarchy]",
        "[VrmlOutputAsUnit]",
        "[VrmlSaveAssemblyAsOneFile]",
        "[StlOutputAs]",
        "[StlOutputAsUnit]",
        "[StlQuality]",
        "[StlDontTranslatePositive]",
        "[StlComponentsIntoOneFile]",
        "[StlCheckForInterferences]",
        "[TifImageType]",
        "[TifCompressionScheme]",
        "[ZphrOkayToMeasure]",
        "[ZphrAllowExportOfSTL]",
        "[ZphrSaveShadedData]",
        "[ZphrSaveBOM]",
        "[ZphrSaveMotionStudies]",
        "[ZphrSaveMotionStudiesToAllConfs]",
        "[ZphrRecalcMotionStudies]",
    };
    EXPECT_EQ(Bracketed(209, '[', ']'), expected);
}

TEST(ConvertTemplate, HoldsTheseTokens)
{
    const std::set<std::string> expected = {"<VaultPath>", "<TaskInstanceGuid>", "<Filepath>",
                                            "<Filename>",  "<Extension>",        "<Configuration>"};
    EXPECT_EQ(Bracketed(209, '<', '>'), expected);
}

TEST(PrintTemplate, DeclaresItsModuleVariablesInOrder)
{
    const Names expected = {
        "tvApp As Object",
        "tvModel As Torvane.ModelDoc2",
        "tvExtension As Torvane.ModelDocExtension",
        "tvPageSetup As Torvane.PageSetup",
        "tvDocSpecification As Torvane.DocumentSpecification",
        "errors As Long",
        "warnings As Long",
    };
    EXPECT_EQ(ModuleVariables(210), expected);
}

TEST(PrintTemplate, HoldsItsRoutinesInOrder)
{
    const Names expected = {
        "Function PathAppend(path, more) As String",
        "Sub Log(message)",
        "Function GetPrinter(paperSize)",
        "Function GetPaperSize(paperSize)",
        "Function bIsSupportedExtension(oExtension) As Boolean",
        "Sub main()",
    };
    EXPECT_EQ(Routines(210), expected);
}

TEST(PrintTemplate, HoldsThesePlaceholders)
{
    const std::set<std::string> expected = {
        "[ErrorLogPath]",           "[__printer_copycount]",      "[__printer_prseltype]",    "[__printer_prname]",
        "[__printer_papsize_A]",    "[__printer_papsize_B]",      "[__printer_papsize_C]",    "[__printer_papsize_D]",
        "[__printer_papsize_E]",    "[__printer_papsize_A0]",     "[__printer_papsize_A1]",   "[__printer_papsize_A2]",
        "[__printer_papsize_A3]",   "[__printer_papsize_A4]",     "[__printer_papsize_DEF]",  "[__printer_defpapsize]",
        "[__printer_usedrwnfo]",    "[__printer_deforientation]", "[__printer_margintype]",   "[__printer_margintop]",
        "[__printer_marginbottom]", "[__printer_marginleft]",     "[__printer_marginright]",  "[__printer_headertype]",
        "[__printer_footertype]",   "[__printer_headerleft]",     "[__printer_headercenter]", "[__printer_headerright]",
        "[__printer_footerleft]",   "[__printer_footercenter]",   "[__printer_footerright]",
    };
    EXPECT_EQ(Bracketed(210, '[', ']'), expected);
}

TEST(PrintTemplate, HoldsTheseTokens)
{
    const std::set<std::string> expected = {"<VaultPath>", "<TaskInstanceGuid>", "<Filepath>", "<SelCfgOrSheet>"};
    EXPECT_EQ(Bracketed(210, '<', '>'), expected);
}

/// Placeholders of text stand between quotes, placeholders of numbers and Booleans don't.
TEST(PrintTemplate, PutsNumbersBareAndTextsBetweenQuotes)
{
    struct Row
    {
        std::string_view placeholder;
        bool isBare;
    };
    const Row rows[] = {
        {"[ErrorLogPath]", false},          {"[__printer_copycount]", false},  {"[__printer_prseltype]", true},
        {"[__printer_prname]", false},      {"[__printer_papsize_A]", false},  {"[__printer_papsize_B]", false},
        {"[__printer_papsize_C]", false},   {"[__printer_papsize_D]", false},  {"[__printer_papsize_E]", false},
        {"[__printer_papsize_A0]", false},  {"[__printer_papsize_A1]", false}, {"[__printer_papsize_A2]", false},
        {"[__printer_papsize_A3]", false},  {"[__printer_papsize_A4]", false}, {"[__printer_papsize_DEF]", false},
        {"[__printer_defpapsize]", true},   {"[__printer_usedrwnfo]", true},   {"[__printer_deforientation]", true},
        {"[__printer_margintype]", true},   {"[__printer_margintop]", true},   {"[__printer_marginbottom]", true},
        {"[__printer_marginleft]", true},   {"[__printer_marginright]", true}, {"[__printer_headertype]", true},
        {"[__printer_footertype]", true},   {"[__printer_headerleft]", false}, {"[__printer_headercenter]", false},
        {"[__printer_headerright]", false}, {"[__printer_footerleft]", false}, {"[__printer_footercenter]", false},
        {"[__printer_footerright]", false},
    };
    const std::string_view text = ScriptTemplate(210);
    for (const Row& row : rows) {
        size_t count = 0;
        for (size_t at = text.find(row.placeholder); at != std::string_view::npos;
             at = text.find(row.placeholder, at + 1)) {
            const bool isQuoted = text[at - 1] == '"' && text[at + row.placeholder.size()] == '"';
            EXPECT_EQ(isQuoted, !row.isBare) << row.placeholder;
            ++count;
        }
        EXPECT_GT(count, 0u) << row.placeholder;
    }
}

TEST(ExecuteTemplate, IsASkeletonOf105Bytes)
{
    EXPECT_EQ(ScriptTemplate(211), "Option Explicit\r\n"
                                   "\r\n"
                                   "Dim tvApp As Object\r\n"
                                   "\r\n"
                                   "Public Sub main()\r\n"
                                   "  Set tvApp = Application.Torvane\r\n"
                                   "End Sub\r\n");
    EXPECT_EQ(ScriptTemplate(211).size(), 105u);
}

TEST(ExecuteTemplate, HoldsNoPlaceholder)
{
    EXPECT_EQ(ScriptTemplate(211).find_first_of("{}[]<>"), std::string_view::npos);
}

TEST(Templates, EndEveryLineWithCarriageReturnAndLineFeed)
{
    for (int32_t id : {209, 210, 211}) {
        const std::string_view text = ScriptTemplate(id);
        for (size_t i = 0; i < text.size(); ++i) {
            ASSERT_TRUE(text[i] != '\n' || (i > 0 && text[i - 1] == '\r')) << id << " at " << i;
            ASSERT_TRUE(text[i] != '\r' || (i + 1 < text.size() && text[i + 1] == '\n')) << id << " at " << i;
        }
    }
}

TEST(Templates, AreAscii)
{
    for (int32_t id : {209, 210, 211}) {
        const std::string_view text = ScriptTemplate(id);
        ASSERT_FALSE(text.empty()) << id;
        EXPECT_TRUE(std::ranges::all_of(text, [](char unit) {
            return unit == '\r' || unit == '\n' || (unit >= ' ' && unit <= '~');
        })) << id;
    }
}

TEST(Templates, DeclareTheirSystemEntriesForBothGenerationsOfTheLanguage)
{
    const Names newer = {
        "Private Declare PtrSafe Function SHCreateDirectoryEx Lib \"shell32\" Alias \"SHCreateDirectoryExA\" "
        "(ByVal hwnd As LongPtr, ByVal pszPath As String, ByVal psa As Any) As Long",
        "Private Declare PtrSafe Function PathIsRelative Lib \"shlwapi.dll\" Alias \"PathIsRelativeA\" "
        "(ByVal pszPath As String) As Long",
    };
    const Names older = {
        "Private Declare Function SHCreateDirectoryEx Lib \"shell32\" Alias \"SHCreateDirectoryExA\" "
        "(ByVal hwnd As Long, ByVal pszPath As String, ByVal psa As Any) As Long",
        "Private Declare Function PathIsRelative Lib \"shlwapi.dll\" Alias \"PathIsRelativeA\" "
        "(ByVal pszPath As String) As Long",
    };
    for (int32_t id : {209, 210}) {
        EXPECT_EQ(ConditionalLines(id, "#If VBA7 Then", "#Else"), newer) << id;
        EXPECT_EQ(ConditionalLines(id, "#Else", "#End If"), older) << id;
    }
}

TEST(Templates, HaveABracketForEveryBracket)
{
    for (int32_t id : {209, 210, 211}) {
        const std::string_view text = ScriptTemplate(id);
        EXPECT_EQ(std::ranges::count(text, '['), std::ranges::count(text, ']')) << id;
        EXPECT_EQ(std::ranges::count(text, '{'), std::ranges::count(text, '}')) << id;
    }
}

TEST(Templates, AnUnknownIdHasNone)
{
    EXPECT_EQ(ScriptTemplate(0), "");
    EXPECT_EQ(ScriptTemplate(212), "");
}

} // namespace
} // namespace tv
