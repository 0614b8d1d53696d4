#include "cad/constants.h"
#include "cad/macro_library.h"
#include "cad/text.h"

#include <gtest/gtest.h>

#include <set>

namespace tv::app {

TEST(Constants, NumbersThatMacrosWriteAsNumbersAgreeWithTheNames)
{
    EXPECT_EQ(FindConstant(u"tvDocNONE"), 0);
    EXPECT_EQ(FindConstant(u"tvDocPART"), 1);
    EXPECT_EQ(FindConstant(u"tvDocASSEMBLY"), 2);
    EXPECT_EQ(FindConstant(u"tvDocDRAWING"), 3);
    EXPECT_EQ(FindConstant(u"tvExportPdfData"), 1);
    EXPECT_EQ(kSaveInvalidExtension, 256);
    EXPECT_EQ(kSaveNotSupported, 4096);
    EXPECT_EQ(kSaveMissingOleObjects, 512);
}

TEST(Constants, NamesAreFoundInAnyCase)
{
    EXPECT_EQ(FindConstant(u"TVDOCPART"), 1);
    EXPECT_EQ(FindConstant(u"tvdocpart"), 1);
    EXPECT_EQ(FindConstant(u"tvNoSuchName"), std::nullopt);
}

TEST(Constants, EveryNameStandsOnce)
{
    std::set<std::u16string> names;
    for (const Constant& constant : kConstants) {
        EXPECT_TRUE(names.insert(macro::FoldCase(constant.name)).second) << ToUtf8(constant.name);
    }
}

/// The names that the convert macro sets its options by.
TEST(Constants, EveryPreferenceOfTheConvertMacroHasANumberOfItsOwn)
{
    const char16_t* const names[] = {u"tvPDFExportInColor",
                                     u"tvPDFExportEmbedFonts",
                                     u"tvPDFExportHighQuality",
                                     u"tvPDFExportPrintHeaderFooter",
                                     u"tvPDFExportUseCurrentPrintLineWeights",
                                     u"tvIGESExportSolidAndSurface",
                                     u"tvIGESRepresentation",
                                     u"tvIGESExportAsWireframe",
                                     u"tvIGESCurveRepresentation",
                                     u"tvIGESSystem",
                                     u"tvIGESExportFreeCurves",
                                     u"tvIGESExportSketchEntities",
                                     u"tvIGESHighTrimCurveAccuracy",
                                     u"tvIGESComponentsIntoOneFile",
                                     u"tvIGESFlattenAssemHierarchy",
                                     u"tvAcisOutputGeometryPreference",
                                     u"tvOutputVersion",
                                     u"tvAcisOutputUnits",
                                     u"tvStepAP",
                                     u"tvParasolidOutputVersion",
                                     u"tvXTAssemSaveFormat",
                                     u"tvExportVrmlUnits",
                                     u"tvExportVrmlAllComponentsInSingleFile",
                                     u"tvSTLBinaryFormat",
                                     u"tvExportStlUnits",
                                     u"tvSTLQuality",
                                     u"tvSTLDontTranslateToPositive",
                                     u"tvSTLComponentsIntoOneFile",
                                     u"tvSTLCheckForInterference",
                                     u"tvTiffImageType",
                                     u"tvTiffCompressionScheme",
                                     u"tvZephrinOkayToMeasure",
                                     u"tvZephrinExportSTLOkay",
                                     u"tvZephrinSaveShadedDataInDrawings",
                                     u"tvZephrinSaveBOM",
                                     u"tvZephrinSaveAnimationOkay",
                                     u"tvZephrinSaveAnimationToAllConfigs",
                                     u"tvZephrinSaveAnimationRecalculate",
                                     u"tvZephrinSaveAsSelectionOption",
                                     u"tvZephrinSelectionList"};
    std::set<int32_t> numbers;
    for (const char16_t* name : names) {
        const std::optional<int32_t> number = FindConstant(name);
        ASSERT_TRUE(number) << ToUtf8(name);
        EXPECT_TRUE(numbers.insert(*number).second) << ToUtf8(name);
    }
}

TEST(Constants, EveryPreferenceOfThePrintMacroHasANumberOfItsOwn)
{
    std::set<int32_t> numbers;
    for (const char16_t* name :
         {u"tvPageSetupPrinterUsePrinterMargin", u"tvPageSetupPrinterTopMargin", u"tvPageSetupPrinterBottomMargin",
          u"tvPageSetupPrinterLeftMargin", u"tvPageSetupPrinterRightMargin", u"tvPageSetupInUse_Document"}) {
        const std::optional<int32_t> number = FindConstant(name);
        ASSERT_TRUE(number) << ToUtf8(name);
        EXPECT_TRUE(numbers.insert(*number).second) << ToUtf8(name);
    }
}

TEST(Constants, MacrosMayDeclareTheApplicationsClasses)
{
    const MacroLibrary library;
    for (const char16_t* name : {u"modeldoc2", u"drawingdoc", u"assemblydoc", u"modeldocextension",
                                 u"configurationmanager", u"exportpdfdata", u"documentspecification"}) {
        EXPECT_TRUE(library.HasType(name)) << ToUtf8(name);
    }
    EXPECT_TRUE(library.HasType(u"pagesetup"));
    EXPECT_FALSE(library.HasType(u"worksheet"));
    EXPECT_TRUE(library.HasGlobal(u"application"));
    EXPECT_TRUE(library.HasLibrary(u"torvane"));
}

} // namespace tv::app
