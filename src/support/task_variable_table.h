// Every task variable there is: its name, its kind, and what stands for it when it is absent.
#pragma once

#include "com/base.h"

#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

namespace tv {

/// GetVariable's answer for a variable that isn't there. No failure: the reader knows what absence means.
inline constexpr Result kAbsent = 1;

/// What a task of one kind is called. The texts are the defaults of its menu command.
struct TaskKindRow
{
    int32_t kind;
    std::u16string_view menuText;
    std::u16string_view statusText;
    bool showsMenuCommand; ///< meaning of an absent "__menucmd_display"
};

inline constexpr TaskKindRow kTaskKinds[] = {
    {1, u"Convert Files", u"Converts Torvane files from one format to another", true},
    {2, u"Print Files", u"Prints selected documents with Torvane", true},
    {3, u"Execute Script", u"Executes script on selected documents", false},
};

/// Kinds of variable values, with the type code of their variants.
enum class VariableKind : uint16_t
{
    Int = 3,
    Float = 4,
    Text = 8,
    Bool = 11
};

// Names, in exact case.
namespace variable {

inline constexpr char16_t kType[] = u"__type";
inline constexpr char16_t kScript[] = u"__script";
inline constexpr char16_t kTvVersion[] = u"__tv_version";
inline constexpr char16_t kMenuCmdDisplay[] = u"__menucmd_display";
inline constexpr char16_t kSelectionList[] = u"__selection_list";
inline constexpr char16_t kOutputList[] = u"__output_list";

inline constexpr char16_t kFileFormat[] = u"FileFormat";
inline constexpr char16_t kOutputPath[] = u"OutputPath";
inline constexpr char16_t kOutputPath2[] = u"OutputPath2";
inline constexpr char16_t kPromptOutput[] = u"PromptOutput";
inline constexpr char16_t kReplaceOutput[] = u"ReplaceOutput";
inline constexpr char16_t kRefToSource[] = u"RefToSource";
inline constexpr char16_t kSourceRefs[] = u"SourceRefs";
inline constexpr char16_t kErrorLogPath[] = u"ErrorLogPath";
inline constexpr char16_t kOutputConfs[] = u"OutputConfs";
inline constexpr char16_t kNamedConf[] = u"NamedConf";
inline constexpr char16_t kFileConfs[] = u"FileConfs";
inline constexpr char16_t kOutputSheets[] = u"OutputSheets";
inline constexpr char16_t kNamedSheet[] = u"NamedSheet";
inline constexpr char16_t kFileSheets[] = u"FileSheets";
inline constexpr char16_t kFileCardData[] = u"FileCardData";

inline constexpr char16_t kAcisOutputAsUnit[] = u"AcisOutputAsUnit";
inline constexpr char16_t kAcisGeometry[] = u"AcisGeometry";
inline constexpr char16_t kAcisVersion[] = u"AcisVersion";

inline constexpr char16_t kZphrOkayToMeasure[] = u"ZphrOkayToMeasure";
inline constexpr char16_t kZphrAllowExportOfSTL[] = u"ZphrAllowExportOfSTL";
inline constexpr char16_t kZphrSaveShadedData[] = u"ZphrSaveShadedData";
inline constexpr char16_t kZphrSaveBOM[] = u"ZphrSaveBOM";
inline constexpr char16_t kZphrSaveMotionStudies[] = u"ZphrSaveMotionStudies";
inline constexpr char16_t kZphrSaveMotionStudiesToAllConfs[] = u"ZphrSaveMotionStudiesToAllConfs";
inline constexpr char16_t kZphrRecalcMotionStudies[] = u"ZphrRecalcMotionStudies";

inline constexpr char16_t kIgesRepresentation[] = u"IgesRepresentation";
inline constexpr char16_t kIgesCurveRepresentation[] = u"IgesCurveRepresentation";
inline constexpr char16_t kIgesSystem[] = u"IgesSystem";
inline constexpr char16_t kIgesExportSolidSurface[] = u"IgesExportSolidSurface";
inline constexpr char16_t kIgesExportWireframe[] = u"IgesExportWireframe";
inline constexpr char16_t kIgesExportFreeCurves[] = u"IgesExportFreeCurves";
inline constexpr char16_t kIgesExportSketchEntities[] = u"IgesExportSketchEntities";
inline constexpr char16_t kIgesHighCurveAccuracy[] = u"IgesHighCurveAccuracy";
inline constexpr char16_t kIgesComponentsIntoOneFile[] = u"IgesComponentsIntoOneFile";
inline constexpr char16_t kIgesFlattenAssemblyHierarchy[] = u"IgesFlattenAssemblyHierarchy";

inline constexpr char16_t kParasolidVersion[] = u"ParasolidVersion";
inline constexpr char16_t kParasolidFlattenHierarchy[] = u"ParasolidFlattenHierarchy";

inline constexpr char16_t kPdfInColor[] = u"PdfInColor";
inline constexpr char16_t kPdfEmbedFonts[] = u"PdfEmbedFonts";
inline constexpr char16_t kPdfHighQuality[] = u"PdfHighQuality";
inline constexpr char16_t kPdfPrintHeaderFooter[] = u"PdfPrintHeaderFooter";
inline constexpr char16_t kPdfUsePrinterLineWeights[] = u"PdfUsePrinterLineWeights";

inline constexpr char16_t kStepGeometry[] = u"StepGeometry";
inline constexpr char16_t kStepVersion[] = u"StepVersion";

inline constexpr char16_t kStlOutputAsUnit[] = u"StlOutputAsUnit";
inline constexpr char16_t kStlQuality[] = u"StlQuality";
inline constexpr char16_t kStlOutputAs[] = u"StlOutputAs";
inline constexpr char16_t kStlDontTranslatePositive[] = u"StlDontTranslatePositive";
inline constexpr char16_t kStlComponentsIntoOneFile[] = u"StlComponentsIntoOneFile";
inline constexpr char16_t kStlCheckForInterferences[] = u"StlCheckForInterferences";

inline constexpr char16_t kTifImageType[] = u"TifImageType";
inline constexpr char16_t kTifCompressionScheme[] = u"TifCompressionScheme";

inline constexpr char16_t kVrmlOutputAsUnit[] = u"VrmlOutputAsUnit";
inline constexpr char16_t kVrmlSaveAssemblyAsOneFile[] = u"VrmlSaveAssemblyAsOneFile";

inline constexpr char16_t kPrinterSelection[] = u"__printer_prseltype";
inline constexpr char16_t kPrinterName[] = u"__printer_prname";
inline constexpr char16_t kPrinterNameList[] = u"__printer_prnamelist";
inline constexpr char16_t kPrinterForSizeA[] = u"__printer_papsize_A";
inline constexpr char16_t kPrinterForSizeB[] = u"__printer_papsize_B";
inline constexpr char16_t kPrinterForSizeC[] = u"__printer_papsize_C";
inline constexpr char16_t kPrinterForSizeD[] = u"__printer_papsize_D";
inline constexpr char16_t kPrinterForSizeE[] = u"__printer_papsize_E";
inline constexpr char16_t kPrinterForSizeA0[] = u"__printer_papsize_A0";
inline constexpr char16_t kPrinterForSizeA1[] = u"__printer_papsize_A1";
inline constexpr char16_t kPrinterForSizeA2[] = u"__printer_papsize_A2";
inline constexpr char16_t kPrinterForSizeA3[] = u"__printer_papsize_A3";
inline constexpr char16_t kPrinterForSizeA4[] = u"__printer_papsize_A4";
inline constexpr char16_t kPrinterForSizeDefault[] = u"__printer_papsize_DEF";
inline constexpr char16_t kPrinterCopyCount[] = u"__printer_copycount";
inline constexpr char16_t kPrinterUseDrawingInfo[] = u"__printer_usedrwnfo";
inline constexpr char16_t kPrinterPaperSize[] = u"__printer_defpapsize";
inline constexpr char16_t kPrinterUserSizeChange[] = u"__printer_usersizechange";
inline constexpr char16_t kPrinterOrientation[] = u"__printer_deforientation";
inline constexpr char16_t kPrinterUserOrientationChange[] = u"__printer_userorientchange";
inline constexpr char16_t kPrinterMarginType[] = u"__printer_margintype";
inline constexpr char16_t kPrinterMarginTop[] = u"__printer_margintop";
inline constexpr char16_t kPrinterMarginBottom[] = u"__printer_marginbottom";
inline constexpr char16_t kPrinterMarginLeft[] = u"__printer_marginleft";
inline constexpr char16_t kPrinterMarginRight[] = u"__printer_marginright";
inline constexpr char16_t kPrinterHeaderType[] = u"__printer_headertype";
inline constexpr char16_t kPrinterFooterType[] = u"__printer_footertype";
inline constexpr char16_t kPrinterHeaderLeft[] = u"__printer_headerleft";
inline constexpr char16_t kPrinterHeaderCenter[] = u"__printer_headercenter";
inline constexpr char16_t kPrinterHeaderRight[] = u"__printer_headerright";
inline constexpr char16_t kPrinterFooterLeft[] = u"__printer_footerleft";
inline constexpr char16_t kPrinterFooterCenter[] = u"__printer_footercenter";
inline constexpr char16_t kPrinterFooterRight[] = u"__printer_footerright";
inline constexpr char16_t kPrinterShowDialog[] = u"__printer_showprintdlg";
inline constexpr char16_t kPrinterAutoSelectReferences[] = u"__printer_autoselectrefstype";
inline constexpr char16_t kPrinterReferenceVersion[] = u"__printer_refversiontype";

} // namespace variable

/// One task variable.
struct TaskVariable
{
    std::u16string_view name;
    VariableKind kind;
    /// What an absent number or truth value counts as; nothing where each reader has its own answer.
    std::optional<int32_t> whenAbsent = std::nullopt;
};

inline constexpr TaskVariable kTaskVariables[] = {
    // Task frame.
    {variable::kType, VariableKind::Int, 3},         // absent: execute script
    {variable::kScript, VariableKind::Text},         // absent: the run fails with E_UNEXPECTED
    {variable::kTvVersion, VariableKind::Int, 0},    // absent: any installed version
    {variable::kMenuCmdDisplay, VariableKind::Bool}, // absent: by task kind, see kTaskKinds
    {variable::kSelectionList, VariableKind::Text},  // absent: the selected files can't be shown
    {variable::kOutputList, VariableKind::Text},     // absent: the results can't be shown
    // Conversion.
    {variable::kFileFormat, VariableKind::Text},
    {variable::kOutputPath, VariableKind::Text},
    {variable::kOutputPath2, VariableKind::Text}, // absent: one copy
    {variable::kPromptOutput, VariableKind::Bool},
    {variable::kReplaceOutput, VariableKind::Bool},
    {variable::kRefToSource, VariableKind::Bool},
    {variable::kSourceRefs, VariableKind::Int},
    {variable::kErrorLogPath, VariableKind::Text}, // absent: no log file
    {variable::kOutputConfs, VariableKind::Int},
    {variable::kNamedConf, VariableKind::Text},
    {variable::kFileConfs, VariableKind::Int},
    {variable::kOutputSheets, VariableKind::Int},
    {variable::kNamedSheet, VariableKind::Text},
    {variable::kFileSheets, VariableKind::Int},
    {variable::kFileCardData, VariableKind::Text}, // absent: no rows
    // ACIS options.
    {variable::kAcisOutputAsUnit, VariableKind::Int, 0},
    {variable::kAcisGeometry, VariableKind::Int, 0},
    {variable::kAcisVersion, VariableKind::Int, 18},
    // Publishing format options.
    {variable::kZphrOkayToMeasure, VariableKind::Bool, 0},
    {variable::kZphrAllowExportOfSTL, VariableKind::Bool, 0},
    {variable::kZphrSaveShadedData, VariableKind::Bool, 1},
    {variable::kZphrSaveBOM, VariableKind::Bool, 1},
    {variable::kZphrSaveMotionStudies, VariableKind::Bool, 1},
    {variable::kZphrSaveMotionStudiesToAllConfs, VariableKind::Bool, 0},
    {variable::kZphrRecalcMotionStudies, VariableKind::Bool, 1},
    // IGES options.
    {variable::kIgesRepresentation, VariableKind::Int, 0},
    {variable::kIgesCurveRepresentation, VariableKind::Int, 0},
    {variable::kIgesSystem, VariableKind::Int, 0},
    {variable::kIgesExportSolidSurface, VariableKind::Bool, 1},
    {variable::kIgesExportWireframe, VariableKind::Bool, 0},
    {variable::kIgesExportFreeCurves, VariableKind::Bool, 1},
    {variable::kIgesExportSketchEntities, VariableKind::Bool, 0},
    {variable::kIgesHighCurveAccuracy, VariableKind::Bool, 1},
    {variable::kIgesComponentsIntoOneFile, VariableKind::Bool, 1},
    {variable::kIgesFlattenAssemblyHierarchy, VariableKind::Bool, 1},
    // Parasolid options.
    {variable::kParasolidVersion, VariableKind::Int, 17},
    {variable::kParasolidFlattenHierarchy, VariableKind::Bool, 0},
    // PDF options.
    {variable::kPdfInColor, VariableKind::Bool, 1},
    {variable::kPdfEmbedFonts, VariableKind::Bool, 1},
    {variable::kPdfHighQuality, VariableKind::Bool, 0},
    {variable::kPdfPrintHeaderFooter, VariableKind::Bool, 0},
    {variable::kPdfUsePrinterLineWeights, VariableKind::Bool, 1},
    // STEP options.
    {variable::kStepGeometry, VariableKind::Int, 0},
    {variable::kStepVersion, VariableKind::Int, 203},
    // STL options.
    {variable::kStlOutputAsUnit, VariableKind::Int, 0},
    {variable::kStlQuality, VariableKind::Int, 1},
    {variable::kStlOutputAs, VariableKind::Bool, 1},
    {variable::kStlDontTranslatePositive, VariableKind::Bool, 0},
    {variable::kStlComponentsIntoOneFile, VariableKind::Bool, 0},
    {variable::kStlCheckForInterferences, VariableKind::Bool, 0},
    // TIFF and PSD options.
    {variable::kTifImageType, VariableKind::Int, 1},
    {variable::kTifCompressionScheme, VariableKind::Int, 0},
    // VRML options.
    {variable::kVrmlOutputAsUnit, VariableKind::Int, 0},
    {variable::kVrmlSaveAssemblyAsOneFile, VariableKind::Bool, 0},
    // Printing.
    {variable::kPrinterSelection, VariableKind::Int},
    {variable::kPrinterName, VariableKind::Text},
    {variable::kPrinterNameList, VariableKind::Text},
    {variable::kPrinterForSizeA, VariableKind::Text},
    {variable::kPrinterForSizeB, VariableKind::Text},
    {variable::kPrinterForSizeC, VariableKind::Text},
    {variable::kPrinterForSizeD, VariableKind::Text},
    {variable::kPrinterForSizeE, VariableKind::Text},
    {variable::kPrinterForSizeA0, VariableKind::Text},
    {variable::kPrinterForSizeA1, VariableKind::Text},
    {variable::kPrinterForSizeA2, VariableKind::Text},
    {variable::kPrinterForSizeA3, VariableKind::Text},
    {variable::kPrinterForSizeA4, VariableKind::Text},
    {variable::kPrinterForSizeDefault, VariableKind::Text},
    {variable::kPrinterCopyCount, VariableKind::Int},
    {variable::kPrinterUseDrawingInfo, VariableKind::Bool},
    {variable::kPrinterPaperSize, VariableKind::Int},
    {variable::kPrinterUserSizeChange, VariableKind::Bool},
    {variable::kPrinterOrientation, VariableKind::Int},
    {variable::kPrinterUserOrientationChange, VariableKind::Bool},
    {variable::kPrinterMarginType, VariableKind::Int},
    {variable::kPrinterMarginTop, VariableKind::Float},
    {variable::kPrinterMarginBottom, VariableKind::Float},
    {variable::kPrinterMarginLeft, VariableKind::Float},
    {variable::kPrinterMarginRight, VariableKind::Float},
    {variable::kPrinterHeaderType, VariableKind::Int},
    {variable::kPrinterFooterType, VariableKind::Int},
    {variable::kPrinterHeaderLeft, VariableKind::Text},
    {variable::kPrinterHeaderCenter, VariableKind::Text},
    {variable::kPrinterHeaderRight, VariableKind::Text},
    {variable::kPrinterFooterLeft, VariableKind::Text},
    {variable::kPrinterFooterCenter, VariableKind::Text},
    {variable::kPrinterFooterRight, VariableKind::Text},
    {variable::kPrinterShowDialog, VariableKind::Bool},
    {variable::kPrinterAutoSelectReferences, VariableKind::Int},
    {variable::kPrinterReferenceVersion, VariableKind::Int},
};
static_assert(std::size(kTaskVariables) == 96);

/// The row of a variable, null for a name that isn't the program's own.
constexpr const TaskVariable* FindTaskVariable(std::u16string_view name)
{
    for (const TaskVariable& row : kTaskVariables) {
        if (row.name == name) {
            return &row;
        }
    }
    return nullptr;
}

/// The row of a task kind, null for a number that is none.
constexpr const TaskKindRow* FindTaskKind(int32_t kind)
{
    for (const TaskKindRow& row : kTaskKinds) {
        if (row.kind == kind) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace tv
