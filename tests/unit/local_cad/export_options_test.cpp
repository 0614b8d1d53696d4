#include "cad/constants.h"
#include "cad/export_options.h"

#include <gtest/gtest.h>

namespace tv::app {

using Options = std::map<std::string, std::string>;

TEST(ExportOptions, StlIsBinaryCoarseAndInMillimetresUnlessSet)
{
    Preferences preferences;
    EXPECT_EQ(ExportOptions(preferences, u".stl"),
              (Options{{"binary", "true"}, {"unit", "mm"}, {"quality", "coarse"}, {"positive", "true"}}));
    preferences.SetToggle(toggle::kStlBinary, false);
    preferences.SetInteger(integer::kStlUnits, 3);
    preferences.SetInteger(integer::kStlQuality, 2);
    preferences.SetToggle(toggle::kStlDontTranslateToPositive, true);
    EXPECT_EQ(ExportOptions(preferences, u".stl"),
              (Options{{"binary", "false"}, {"unit", "in"}, {"quality", "fine"}, {"positive", "false"}}));
}

TEST(ExportOptions, StepFollowsTheProtocol)
{
    Preferences preferences;
    EXPECT_EQ(ExportOptions(preferences, u".step"), (Options{{"schema", "AP203"}}));
    preferences.SetInteger(integer::kStepProtocol, 214);
    EXPECT_EQ(ExportOptions(preferences, u".stp"), (Options{{"schema", "AP214"}}));
}

TEST(ExportOptions, IgesFollowsTheRepresentation)
{
    Preferences preferences;
    EXPECT_EQ(ExportOptions(preferences, u".igs"), (Options{{"representation", "surfaces"}}));
    preferences.SetInteger(integer::kIgesRepresentation, 3);
    EXPECT_EQ(ExportOptions(preferences, u".igs"), (Options{{"representation", "solids"}}));
}

TEST(ExportOptions, VrmlFollowsTheUnit)
{
    Preferences preferences;
    preferences.SetInteger(integer::kVrmlUnits, 2);
    EXPECT_EQ(ExportOptions(preferences, u".wrl"), (Options{{"unit", "m"}}));
}

TEST(ExportOptions, PdfFollowsColourAndHeader)
{
    Preferences preferences;
    EXPECT_EQ(ExportOptions(preferences, u".pdf"), (Options{{"color", "true"}, {"header-footer", "false"}}));
    preferences.SetToggle(toggle::kPdfInColor, false);
    preferences.SetToggle(toggle::kPdfPrintHeaderFooter, true);
    EXPECT_EQ(ExportOptions(preferences, u".pdf"), (Options{{"color", "false"}, {"header-footer", "true"}}));
}

TEST(ExportOptions, AnUnknownUnitIsMillimetres)
{
    Preferences preferences;
    preferences.SetInteger(integer::kVrmlUnits, 17);
    EXPECT_EQ(ExportOptions(preferences, u".wrl"), (Options{{"unit", "mm"}}));
}

} // namespace tv::app
