#include "cad/export_options.h"

#include "cad/constants.h"

namespace tv::app {

namespace {

/// Preferences whose unset state isn't "off" or 0.
constexpr int32_t kTogglesOn[] = {toggle::kPdfInColor,
                                  toggle::kPdfEmbedFonts,
                                  toggle::kPdfCurrentPrintLineWeights,
                                  toggle::kIgesSolidAndSurface,
                                  toggle::kIgesFreeCurves,
                                  toggle::kIgesHighTrimCurveAccuracy,
                                  toggle::kIgesComponentsIntoOneFile,
                                  toggle::kIgesFlattenHierarchy,
                                  toggle::kStlBinary};

constexpr int32_t kManifoldSolid = 3; ///< of the IGES representation
constexpr int32_t kFineQuality = 2;

/// Units by their numbers in the preferences.
constexpr const char* kUnits[] = {"mm", "cm", "m", "in", "ft"};

const char* UnitName(int32_t number)
{
    return number >= 0 && static_cast<size_t>(number) < std::size(kUnits) ? kUnits[number] : kUnits[0];
}

const char* Word(bool truth)
{
    return truth ? "true" : "false";
}

} // namespace

Preferences::Preferences()
{
    for (int32_t number : kTogglesOn) {
        toggles[number] = true;
    }
    integers[integer::kStepProtocol] = 203;
    integers[integer::kStlQuality] = 1;
}

bool Preferences::Toggle(int32_t number) const
{
    const auto found = toggles.find(number);
    return found != toggles.end() && found->second;
}

int32_t Preferences::Integer(int32_t number) const
{
    const auto found = integers.find(number);
    return found == integers.end() ? 0 : found->second;
}

const std::u16string& Preferences::StringList(int32_t number) const
{
    static const std::u16string none;
    const auto found = stringLists.find(number);
    return found == stringLists.end() ? none : found->second;
}

std::map<std::string, std::string> ExportOptions(const Preferences& preferences, std::u16string_view extension)
{
    if (extension == u".step" || extension == u".stp") {
        return {{"schema", preferences.Integer(integer::kStepProtocol) == 214 ? "AP214" : "AP203"}};
    }
    if (extension == u".igs" || extension == u".iges") {
        const bool solids = preferences.Integer(integer::kIgesRepresentation) == kManifoldSolid;
        return {{"representation", solids ? "solids" : "surfaces"}};
    }
    if (extension == u".stl") {
        return {{"binary", Word(preferences.Toggle(toggle::kStlBinary))},
                {"unit", UnitName(preferences.Integer(integer::kStlUnits))},
                {"quality", preferences.Integer(integer::kStlQuality) == kFineQuality ? "fine" : "coarse"},
                {"positive", Word(!preferences.Toggle(toggle::kStlDontTranslateToPositive))}};
    }
    if (extension == u".wrl") {
        return {{"unit", UnitName(preferences.Integer(integer::kVrmlUnits))}};
    }
    if (extension == u".pdf") {
        return {{"color", Word(preferences.Toggle(toggle::kPdfInColor))},
                {"header-footer", Word(preferences.Toggle(toggle::kPdfPrintHeaderFooter))}};
    }
    return {};
}

} // namespace tv::app
