// The application's enumerations: the names that a macro may write and their numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tv::app {

/// Kinds of document, as GetType returns them.
enum class DocumentType : int32_t
{
    None = 0,
    Part = 1,
    Assembly = 2,
    Drawing = 3
};

/// What OpenDoc7 and LoadFile4 report; 0 is success.
enum OpenError : int32_t
{
    kOpenGenericError = 1,
    kOpenFileNotFound = 2,
    kOpenInvalidFileType = 1024,
    kOpenFutureVersion = 8192,
    kOpenFileDamaged = 16384,
    kOpenNoGeometry = 32768,
};

/// What SaveAs reports; bits, 0 is success.
enum SaveError : int32_t
{
    kSaveGenericError = 1,
    kSaveReadOnly = 2,
    kSaveNameEmpty = 4,
    kSaveInvalidExtension = 256,
    kSaveNotSupported = 4096,
};

enum SaveWarning : int32_t
{
    kSaveMissingOleObjects = 512,
};

/// Preferences that are on or off, by number.
namespace toggle {
inline constexpr int32_t kPdfInColor = 401;
inline constexpr int32_t kPdfEmbedFonts = 402;
inline constexpr int32_t kPdfHighQuality = 403;
inline constexpr int32_t kPdfPrintHeaderFooter = 404;
inline constexpr int32_t kPdfCurrentPrintLineWeights = 405;
inline constexpr int32_t kIgesSolidAndSurface = 411;
inline constexpr int32_t kIgesWireframe = 412;
inline constexpr int32_t kIgesFreeCurves = 413;
inline constexpr int32_t kIgesSketchEntities = 414;
inline constexpr int32_t kIgesHighTrimCurveAccuracy = 415;
inline constexpr int32_t kIgesComponentsIntoOneFile = 416;
inline constexpr int32_t kIgesFlattenHierarchy = 417;
inline constexpr int32_t kParasolidFlattenHierarchy = 421;
inline constexpr int32_t kVrmlSingleFile = 431;
inline constexpr int32_t kStlBinary = 441;
inline constexpr int32_t kStlDontTranslateToPositive = 442;
inline constexpr int32_t kStlComponentsIntoOneFile = 443;
inline constexpr int32_t kStlCheckForInterference = 444;
inline constexpr int32_t kZephrinOkayToMeasure = 451;
inline constexpr int32_t kZephrinExportStl = 452;
inline constexpr int32_t kZephrinShadedData = 453;
inline constexpr int32_t kZephrinBom = 454;
inline constexpr int32_t kZephrinAnimation = 455;
inline constexpr int32_t kZephrinAnimationToAllConfigurations = 456;
inline constexpr int32_t kZephrinAnimationRecalculate = 457;
inline constexpr int32_t kPrinterMargin = 461;
} // namespace toggle

/// Preferences that are numbers, by number.
namespace integer {
inline constexpr int32_t kIgesRepresentation = 501;
inline constexpr int32_t kIgesCurveRepresentation = 502;
inline constexpr int32_t kIgesSystem = 503;
inline constexpr int32_t kAcisGeometry = 511;
inline constexpr int32_t kAcisVersion = 512;
inline constexpr int32_t kAcisUnits = 513;
inline constexpr int32_t kStepProtocol = 521;
inline constexpr int32_t kParasolidVersion = 531;
inline constexpr int32_t kVrmlUnits = 541;
inline constexpr int32_t kStlUnits = 551;
inline constexpr int32_t kStlQuality = 552;
inline constexpr int32_t kTiffImageType = 561;
inline constexpr int32_t kTiffCompression = 562;
inline constexpr int32_t kZephrinSelection = 571;
} // namespace integer

/// Preferences that are measures, by number.
namespace measure {
inline constexpr int32_t kTopMargin = 581;
inline constexpr int32_t kBottomMargin = 582;
inline constexpr int32_t kLeftMargin = 583;
inline constexpr int32_t kRightMargin = 584;
} // namespace measure

/// Preferences that are lists of texts, by number.
namespace stringlist {
inline constexpr int32_t kZephrinSelection = 601;
} // namespace stringlist

/// One name of one enumeration.
struct Constant
{
    std::u16string_view name;
    int32_t value;
};

/// Every name, in the order of the enumerations.
inline constexpr Constant kConstants[] = {
    {u"tvDocNONE", 0},
    {u"tvDocPART", 1},
    {u"tvDocASSEMBLY", 2},
    {u"tvDocDRAWING", 3},
    {u"tvFutureVersion", kOpenFutureVersion},
    {u"tvSaveAsCurrentVersion", 0},
    {u"tvSaveAsOptions_Silent", 1},
    {u"tvSaveAsOptions_Copy", 2},
    {u"tvExportPdfData", 1},
    {u"tvExportData_ExportAllSheets", 1},
    {u"tvExportData_ExportCurrentSheet", 2},
    {u"tvExportData_ExportSpecifiedSheets", 3},
    {u"tvPDFExportInColor", toggle::kPdfInColor},
    {u"tvPDFExportEmbedFonts", toggle::kPdfEmbedFonts},
    {u"tvPDFExportHighQuality", toggle::kPdfHighQuality},
    {u"tvPDFExportPrintHeaderFooter", toggle::kPdfPrintHeaderFooter},
    {u"tvPDFExportUseCurrentPrintLineWeights", toggle::kPdfCurrentPrintLineWeights},
    {u"tvIGESExportSolidAndSurface", toggle::kIgesSolidAndSurface},
    {u"tvIGESRepresentation", integer::kIgesRepresentation},
    {u"tvIGESExportAsWireframe", toggle::kIgesWireframe},
    {u"tvIGESCurveRepresentation", integer::kIgesCurveRepresentation},
    {u"tvIGESSystem", integer::kIgesSystem},
    {u"tvIGESExportFreeCurves", toggle::kIgesFreeCurves},
    {u"tvIGESExportSketchEntities", toggle::kIgesSketchEntities},
    {u"tvIGESHighTrimCurveAccuracy", toggle::kIgesHighTrimCurveAccuracy},
    {u"tvIGESComponentsIntoOneFile", toggle::kIgesComponentsIntoOneFile},
    {u"tvIGESFlattenAssemHierarchy", toggle::kIgesFlattenHierarchy},
    {u"tvAcisOutputGeometryPreference", integer::kAcisGeometry},
    {u"tvOutputVersion", integer::kAcisVersion},
    {u"tvAcisOutputUnits", integer::kAcisUnits},
    {u"tvStepAP", integer::kStepProtocol},
    {u"tvParasolidOutputVersion", integer::kParasolidVersion},
    {u"tvXTAssemSaveFormat", toggle::kParasolidFlattenHierarchy},
    {u"tvExportVrmlUnits", integer::kVrmlUnits},
    {u"tvExportVrmlAllComponentsInSingleFile", toggle::kVrmlSingleFile},
    {u"tvSTLBinaryFormat", toggle::kStlBinary},
    {u"tvExportStlUnits", integer::kStlUnits},
    {u"tvSTLQuality", integer::kStlQuality},
    {u"tvSTLDontTranslateToPositive", toggle::kStlDontTranslateToPositive},
    {u"tvSTLComponentsIntoOneFile", toggle::kStlComponentsIntoOneFile},
    {u"tvSTLCheckForInterference", toggle::kStlCheckForInterference},
    {u"tvTiffImageType", integer::kTiffImageType},
    {u"tvTiffCompressionScheme", integer::kTiffCompression},
    {u"tvZephrinOkayToMeasure", toggle::kZephrinOkayToMeasure},
    {u"tvZephrinExportSTLOkay", toggle::kZephrinExportStl},
    {u"tvZephrinSaveShadedDataInDrawings", toggle::kZephrinShadedData},
    {u"tvZephrinSaveBOM", toggle::kZephrinBom},
    {u"tvZephrinSaveAnimationOkay", toggle::kZephrinAnimation},
    {u"tvZephrinSaveAnimationToAllConfigs", toggle::kZephrinAnimationToAllConfigurations},
    {u"tvZephrinSaveAnimationRecalculate", toggle::kZephrinAnimationRecalculate},
    {u"tvZephrinSaveAsSelectionOption", integer::kZephrinSelection},
    {u"tvZephrinSaveActive", 0},
    {u"tvZephrinSaveAll", 1},
    {u"tvZephrinSaveSelected", 2},
    {u"tvZephrinSelectionList", stringlist::kZephrinSelection},
    {u"tvPageSetupPrinterUsePrinterMargin", toggle::kPrinterMargin},
    {u"tvPageSetupPrinterTopMargin", measure::kTopMargin},
    {u"tvPageSetupPrinterBottomMargin", measure::kBottomMargin},
    {u"tvPageSetupPrinterLeftMargin", measure::kLeftMargin},
    {u"tvPageSetupPrinterRightMargin", measure::kRightMargin},
    {u"tvPageSetupInUse_Application", 1},
    {u"tvPageSetupInUse_Document", 2},
};

/// The number behind a name, capitals and small letters alike; nothing for a name that no enumeration has.
std::optional<int32_t> FindConstant(std::u16string_view name);

} // namespace tv::app
