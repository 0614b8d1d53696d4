// The export options that the convert template hands to the application.

#include "local_macro/templates/template_world.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tv::macro {
namespace {

enum class Call
{
    Toggle,
    Integer
};

struct OptionRow
{
    std::string_view extension;
    Call call;
    std::string_view preference;
    std::u16string_view variable;
};

// clang-format off
constexpr OptionRow kOptionRows[] = {
    {".pdf", Call::Toggle, "tvPDFExportInColor", u"PdfInColor"},
    {".pdf", Call::Toggle, "tvPDFExportEmbedFonts", u"PdfEmbedFonts"},
    {".pdf", Call::Toggle, "tvPDFExportHighQuality", u"PdfHighQuality"},
    {".pdf", Call::Toggle, "tvPDFExportPrintHeaderFooter", u"PdfPrintHeaderFooter"},
    {".pdf", Call::Toggle, "tvPDFExportUseCurrentPrintLineWeights", u"PdfUsePrinterLineWeights"},
    {".igs", Call::Toggle, "tvIGESExportSolidAndSurface", u"IgesExportSolidSurface"},
    {".igs", Call::Integer, "tvIGESRepresentation", u"IgesRepresentation"},
    {".igs", Call::Toggle, "tvIGESExportAsWireframe", u"IgesExportWireframe"},
    {".igs", Call::Integer, "tvIGESCurveRepresentation", u"IgesCurveRepresentation"},
    {".igs", Call::Integer, "tvIGESSystem", u"IgesSystem"},
    {".igs", Call::Toggle, "tvIGESExportFreeCurves", u"IgesExportFreeCurves"},
    {".igs", Call::Toggle, "tvIGESExportSketchEntities", u"IgesExportSketchEntities"},
    {".igs", Call::Toggle, "tvIGESHighTrimCurveAccuracy", u"IgesHighCurveAccuracy"},
    {".igs", Call::Toggle, "tvIGESComponentsIntoOneFile", u"IgesComponentsIntoOneFile"},
    {".igs", Call::Toggle, "tvIGESFlattenAssemHierarchy", u"IgesFlattenAssemblyHierarchy"},
    {".sat", Call::Integer, "tvAcisOutputGeometryPreference", u"AcisGeometry"},
    {".sat", Call::Integer, "tvOutputVersion", u"AcisVersion"},
    {".sat", Call::Integer, "tvAcisOutputUnits", u"AcisOutputAsUnit"},
    {".step", Call::Integer, "tvAcisOutputGeometryPreference", u"StepGeometry"},
    {".step", Call::Integer, "tvStepAP", u"StepVersion"},
    {".x_t", Call::Integer, "tvParasolidOutputVersion", u"ParasolidVersion"},
    {".x_t", Call::Toggle, "tvXTAssemSaveFormat", u"ParasolidFlattenHierarchy"},
    {".x_b", Call::Integer, "tvParasolidOutputVersion", u"ParasolidVersion"},
    {".x_b", Call::Toggle, "tvXTAssemSaveFormat", u"ParasolidFlattenHierarchy"},
    {".wrl", Call::Integer, "tvExportVrmlUnits", u"VrmlOutputAsUnit"},
    {".wrl", Call::Toggle, "tvExportVrmlAllComponentsInSingleFile", u"VrmlSaveAssemblyAsOneFile"},
    {".stl", Call::Toggle, "tvSTLBinaryFormat", u"StlOutputAs"},
    {".stl", Call::Integer, "tvExportStlUnits", u"StlOutputAsUnit"},
    {".stl", Call::Integer, "tvSTLQuality", u"StlQuality"},
    {".stl", Call::Toggle, "tvSTLDontTranslateToPositive", u"StlDontTranslatePositive"},
    {".stl", Call::Toggle, "tvSTLComponentsIntoOneFile", u"StlComponentsIntoOneFile"},
    {".stl", Call::Toggle, "tvSTLCheckForInterference", u"StlCheckForInterferences"},
    {".tif", Call::Integer, "tvTiffImageType", u"TifImageType"},
    {".tif", Call::Integer, "tvTiffCompressionScheme", u"TifCompressionScheme"},
    {".psd", Call::Integer, "tvTiffImageType", u"TifImageType"},
    {".psd", Call::Integer, "tvTiffCompressionScheme", u"TifCompressionScheme"},
    {".zprt", Call::Toggle, "tvZephrinOkayToMeasure", u"ZphrOkayToMeasure"},
    {".zprt", Call::Toggle, "tvZephrinExportSTLOkay", u"ZphrAllowExportOfSTL"},
    {".zprt", Call::Toggle, "tvZephrinSaveShadedDataInDrawings", u"ZphrSaveShadedData"},
    {".zprt", Call::Toggle, "tvZephrinSaveBOM", u"ZphrSaveBOM"},
    {".zprt", Call::Toggle, "tvZephrinSaveAnimationOkay", u"ZphrSaveMotionStudies"},
    {".zprt", Call::Toggle, "tvZephrinSaveAnimationToAllConfigs", u"ZphrSaveMotionStudiesToAllConfs"},
    {".zprt", Call::Toggle, "tvZephrinSaveAnimationRecalculate", u"ZphrRecalcMotionStudies"},
    {".zasm", Call::Toggle, "tvZephrinOkayToMeasure", u"ZphrOkayToMeasure"},
    {".zasm", Call::Toggle, "tvZephrinExportSTLOkay", u"ZphrAllowExportOfSTL"},
    {".zasm", Call::Toggle, "tvZephrinSaveShadedDataInDrawings", u"ZphrSaveShadedData"},
    {".zasm", Call::Toggle, "tvZephrinSaveBOM", u"ZphrSaveBOM"},
    {".zasm", Call::Toggle, "tvZephrinSaveAnimationOkay", u"ZphrSaveMotionStudies"},
    {".zasm", Call::Toggle, "tvZephrinSaveAnimationToAllConfigs", u"ZphrSaveMotionStudiesToAllConfs"},
    {".zasm", Call::Toggle, "tvZephrinSaveAnimationRecalculate", u"ZphrRecalcMotionStudies"},
    {".zdrw", Call::Toggle, "tvZephrinOkayToMeasure", u"ZphrOkayToMeasure"},
    {".zdrw", Call::Toggle, "tvZephrinExportSTLOkay", u"ZphrAllowExportOfSTL"},
    {".zdrw", Call::Toggle, "tvZephrinSaveShadedDataInDrawings", u"ZphrSaveShadedData"},
    {".zdrw", Call::Toggle, "tvZephrinSaveBOM", u"ZphrSaveBOM"},
    {".zdrw", Call::Toggle, "tvZephrinSaveAnimationOkay", u"ZphrSaveMotionStudies"},
    {".zdrw", Call::Toggle, "tvZephrinSaveAnimationToAllConfigs", u"ZphrSaveMotionStudiesToAllConfs"},
    {".zdrw", Call::Toggle, "tvZephrinSaveAnimationRecalculate", u"ZphrRecalcMotionStudies"},
};
// clang-format on

/// The options that a conversion to the extension sets, in their order.
std::string OptionsSetFor(ConvertWorld& world, std::string_view extension)
{
    world.cad.calls.clear();
    world.RunStatements(u"Set tvApp = Application.Torvane\r\nSetConversionOptions \"" + Wide(extension) + u"\"");
    return world.Calls("Torvane.");
}

std::string CallText(const OptionRow& row, std::string_view toggle, std::string_view number)
{
    const bool isToggle = row.call == Call::Toggle;
    return (isToggle ? "Torvane.SetUserPreferenceToggle " : "Torvane.SetUserPreferenceIntegerValue ") +
           std::string(row.preference) + ", " + std::string(isToggle ? toggle : number) + "\n";
}

TEST(ConvertOptions, EachExtensionSetsItsOptionsInTheirOrderWhateverItsCase)
{
    std::map<std::string, std::string> expected;
    for (const OptionRow& row : kOptionRows) {
        expected[std::string(row.extension)] += CallText(row, "False", "0");
    }
    EXPECT_EQ(expected.size(), 13u);
    for (const auto& [extension, calls] : expected) {
        ConvertWorld world;
        EXPECT_EQ(OptionsSetFor(world, extension), calls) << extension;
        std::string capitals = extension;
        std::ranges::transform(capitals, capitals.begin(), [](char unit) {
            return unit >= 'a' && unit <= 'z' ? static_cast<char>(unit - 'a' + 'A') : unit;
        });
        EXPECT_EQ(OptionsSetFor(world, capitals), calls) << capitals;
    }
}

TEST(ConvertOptions, EachOptionTakesTheValueOfItsVariable)
{
    for (const OptionRow& row : kOptionRows) {
        ConvertWorld world;
        if (row.call == Call::Toggle) {
            world.Variables().SetBool(row.variable, true);
        } else {
            world.Variables().SetInt(row.variable, 7);
        }
        const std::string calls = OptionsSetFor(world, row.extension);
        EXPECT_NE(calls.find(CallText(row, "True", "7")), std::string::npos) << row.extension << " " << row.preference;
        const auto changed = [&](std::string_view end) {
            size_t count = 0;
            for (size_t at = calls.find(end); at != std::string::npos; at = calls.find(end, at + 1)) {
                ++count;
            }
            return count;
        };
        EXPECT_EQ(changed(", True\n") + changed(", 7\n"), 1u) << row.extension << " " << row.preference;
    }
}

TEST(ConvertOptions, OtherExtensionsHaveNone)
{
    for (std::string_view extension : {".jpg", ".png", ".dxf", ".stp", ".iges", ".tiff", ".vrml", ".", "", "pdf"}) {
        ConvertWorld world;
        EXPECT_EQ(OptionsSetFor(world, extension), "") << extension;
    }
}

} // namespace
} // namespace tv::macro
