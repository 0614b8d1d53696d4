#include "host/task_variables.h"

#include "host/errors.h"
#include "vault/text.h"

#include <charconv>
#include <cstdlib>

namespace tv::local {

namespace {

struct KindRow
{
    ValueKind kind;
    std::string_view word;
    VARTYPE type;
};

constexpr KindRow kKinds[] = {
    {ValueKind::Int, "int", VT_I4},
    {ValueKind::Float, "float", VT_R4},
    {ValueKind::Text, "text", VT_BSTR},
    {ValueKind::Bool, "bool", VT_BOOL},
};

constexpr auto kInt = ValueKind::Int;
constexpr auto kFloat = ValueKind::Float;
constexpr auto kText = ValueKind::Text;
constexpr auto kBool = ValueKind::Bool;

// The defaults of a new convert task are those of the add-in's own pages, save that nothing is left open to the person
// who launches it: the host has no pages to ask with.
constexpr VariableRow kVariables[] = {
    {"__type", kInt, nullptr},
    {"__script", kText, nullptr},
    {"__tv_version", kInt, nullptr},
    {"__menucmd_display", kBool, nullptr},
    {"__selection_list", kText, nullptr},
    {"__output_list", kText, nullptr},
    {"FileFormat", kText, "STL (*.stl)"},
    {"OutputPath", kText, "<Path>\\<Filename>_<Extension>_<Configuration>"},
    {"OutputPath2", kText, ""},
    {"PromptOutput", kBool, "false"},
    {"ReplaceOutput", kBool, "true"},
    {"RefToSource", kBool, "false"},
    {"SourceRefs", kInt, "2"},
    {"ErrorLogPath", kText, nullptr},
    {"OutputConfs", kInt, "2"},
    {"NamedConf", kText, "Default"},
    {"FileConfs", kInt, "4"},
    {"OutputSheets", kInt, "2"},
    {"NamedSheet", kText, "Default"},
    {"FileSheets", kInt, "4"},
    {"FileCardData", kText, nullptr},
    {"AcisOutputAsUnit", kInt, "0"},
    {"AcisGeometry", kInt, "0"},
    {"AcisVersion", kInt, "18"},
    {"ZphrOkayToMeasure", kBool, "false"},
    {"ZphrAllowExportOfSTL", kBool, "false"},
    {"ZphrSaveShadedData", kBool, "true"},
    {"ZphrSaveBOM", kBool, "true"},
    {"ZphrSaveMotionStudies", kBool, "true"},
    {"ZphrSaveMotionStudiesToAllConfs", kBool, "false"},
    {"ZphrRecalcMotionStudies", kBool, "true"},
    {"IgesRepresentation", kInt, "0"},
    {"IgesCurveRepresentation", kInt, "0"},
    {"IgesSystem", kInt, "0"},
    {"IgesExportSolidSurface", kBool, "true"},
    {"IgesExportWireframe", kBool, "false"},
    {"IgesExportFreeCurves", kBool, "true"},
    {"IgesExportSketchEntities", kBool, "false"},
    {"IgesHighCurveAccuracy", kBool, "true"},
    {"IgesComponentsIntoOneFile", kBool, "true"},
    {"IgesFlattenAssemblyHierarchy", kBool, "true"},
    {"ParasolidVersion", kInt, "17"},
    {"ParasolidFlattenHierarchy", kBool, "false"},
    {"PdfInColor", kBool, "true"},
    {"PdfEmbedFonts", kBool, "true"},
    {"PdfHighQuality", kBool, "false"},
    {"PdfPrintHeaderFooter", kBool, "false"},
    {"PdfUsePrinterLineWeights", kBool, "true"},
    {"StepGeometry", kInt, "0"},
    {"StepVersion", kInt, "203"},
    {"StlOutputAsUnit", kInt, "0"},
    {"StlQuality", kInt, "1"},
    {"StlOutputAs", kBool, "true"},
    {"StlDontTranslatePositive", kBool, "false"},
    {"StlComponentsIntoOneFile", kBool, "false"},
    {"StlCheckForInterferences", kBool, "false"},
    {"TifImageType", kInt, "1"},
    {"TifCompressionScheme", kInt, "0"},
    {"VrmlOutputAsUnit", kInt, "0"},
    {"VrmlSaveAssemblyAsOneFile", kBool, "false"},
    {"__printer_prseltype", kInt, nullptr},
    {"__printer_prname", kText, nullptr},
    {"__printer_prnamelist", kText, nullptr},
    {"__printer_papsize_A", kText, nullptr},
    {"__printer_papsize_B", kText, nullptr},
    {"__printer_papsize_C", kText, nullptr},
    {"__printer_papsize_D", kText, nullptr},
    {"__printer_papsize_E", kText, nullptr},
    {"__printer_papsize_A0", kText, nullptr},
    {"__printer_papsize_A1", kText, nullptr},
    {"__printer_papsize_A2", kText, nullptr},
    {"__printer_papsize_A3", kText, nullptr},
    {"__printer_papsize_A4", kText, nullptr},
    {"__printer_papsize_DEF", kText, nullptr},
    {"__printer_copycount", kInt, nullptr},
    {"__printer_usedrwnfo", kBool, nullptr},
    {"__printer_defpapsize", kInt, nullptr},
    {"__printer_usersizechange", kBool, nullptr},
    {"__printer_deforientation", kInt, nullptr},
    {"__printer_userorientchange", kBool, nullptr},
    {"__printer_margintype", kInt, nullptr},
    {"__printer_margintop", kFloat, nullptr},
    {"__printer_marginbottom", kFloat, nullptr},
    {"__printer_marginleft", kFloat, nullptr},
    {"__printer_marginright", kFloat, nullptr},
    {"__printer_headertype", kInt, nullptr},
    {"__printer_footertype", kInt, nullptr},
    {"__printer_headerleft", kText, nullptr},
    {"__printer_headercenter", kText, nullptr},
    {"__printer_headerright", kText, nullptr},
    {"__printer_footerleft", kText, nullptr},
    {"__printer_footercenter", kText, nullptr},
    {"__printer_footerright", kText, nullptr},
    {"__printer_showprintdlg", kBool, nullptr},
    {"__printer_autoselectrefstype", kInt, nullptr},
    {"__printer_refversiontype", kInt, nullptr},
};

struct DefaultRow
{
    std::string_view name;
    const char* value;
};

// Likewise for a print task, save that its margins, header and footer are left to the printer and the document.
constexpr DefaultRow kPrintDefaults[] = {
    {"__printer_prseltype", "0"},          {"__printer_prname", ""},
    {"__printer_prnamelist", ""},          {"__printer_papsize_A", ""},
    {"__printer_papsize_B", ""},           {"__printer_papsize_C", ""},
    {"__printer_papsize_D", ""},           {"__printer_papsize_E", ""},
    {"__printer_papsize_A0", ""},          {"__printer_papsize_A1", ""},
    {"__printer_papsize_A2", ""},          {"__printer_papsize_A3", ""},
    {"__printer_papsize_A4", ""},          {"__printer_papsize_DEF", ""},
    {"__printer_copycount", "1"},          {"__printer_usedrwnfo", "true"},
    {"__printer_defpapsize", "10"},        {"__printer_usersizechange", "false"},
    {"__printer_deforientation", "1"},     {"__printer_userorientchange", "false"},
    {"__printer_margintype", "0"},         {"__printer_margintop", "0"},
    {"__printer_marginbottom", "0"},       {"__printer_marginleft", "0"},
    {"__printer_marginright", "0"},        {"__printer_headertype", "0"},
    {"__printer_footertype", "0"},         {"__printer_headerleft", ""},
    {"__printer_headercenter", ""},        {"__printer_headerright", ""},
    {"__printer_footerleft", ""},          {"__printer_footercenter", ""},
    {"__printer_footerright", ""},         {"__printer_showprintdlg", "false"},
    {"__printer_autoselectrefstype", "1"}, {"__printer_refversiontype", "1"},
};

constexpr std::string_view kFormats[] = {
    "Lattice XML (*.ltxml)",
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
    "VRML (*.wrl)",
};

constexpr std::string_view kFormatVariable = "FileFormat";

std::string FormatNames()
{
    std::string names;
    for (std::string_view format : kFormats) {
        names += (names.empty() ? "" : ", ") + std::string(format.substr(0, format.find(" (")));
    }
    return names;
}

/// A task may be called what a folder can't.
std::string FolderNameFor(std::string_view taskName)
{
    std::string name(taskName);
    for (char& character : name) {
        if (static_cast<unsigned char>(character) < 0x20 ||
            std::string_view("\\/:*?\"<>|").find(character) != std::string_view::npos) {
            character = '_';
        }
    }
    return name;
}

StoredValue ValueOf(ValueKind kind, std::string_view text)
{
    return *ParseValue(kind, text);
}

} // namespace

std::string_view KindWord(ValueKind kind)
{
    for (const KindRow& row : kKinds) {
        if (row.kind == kind) {
            return row.word;
        }
    }
    return {};
}

std::optional<ValueKind> KindOfWord(std::string_view word)
{
    for (const KindRow& row : kKinds) {
        if (row.word == word) {
            return row.kind;
        }
    }
    return std::nullopt;
}

std::optional<ValueKind> KindOfValue(const StoredValue& value)
{
    for (const KindRow& row : kKinds) {
        if (row.type == value.type) {
            return row.kind;
        }
    }
    return std::nullopt;
}

std::span<const VariableRow> KnownVariables()
{
    return kVariables;
}

std::optional<ValueKind> KindOfVariable(std::string_view name)
{
    for (const VariableRow& row : kVariables) {
        if (row.name == name) {
            return row.kind;
        }
    }
    return std::nullopt;
}

std::span<const std::string_view> OutputFormats()
{
    return kFormats;
}

std::optional<std::string_view> FindOutputFormat(std::string_view text)
{
    for (std::string_view format : kFormats) {
        const size_t bracket = format.find(" (");
        const std::string_view name = format.substr(0, bracket);
        const size_t dot = format.find('.', bracket);
        const std::string_view extension = format.substr(dot + 1, format.find_first_of(";)", dot) - dot - 1);
        if (SameName(text, format) || SameName(text, name) || SameName(text, extension)) {
            return format;
        }
    }
    return std::nullopt;
}

std::optional<StoredValue> ParseValue(ValueKind kind, std::string_view text)
{
    const char* const end = text.data() + text.size();
    switch (kind) {
    case ValueKind::Text:
        return StoredValue::FromText(text);
    case ValueKind::Int: {
        int32_t number = 0;
        const auto [rest, error] = std::from_chars(text.data(), end, number);
        return error == std::errc{} && rest == end ? std::optional(StoredValue::FromInt(number)) : std::nullopt;
    }
    case ValueKind::Float: {
        float number = 0;
        const auto [rest, error] = std::from_chars(text.data(), end, number);
        return error == std::errc{} && rest == end ? std::optional(StoredValue::FromFloat(number)) : std::nullopt;
    }
    case ValueKind::Bool: {
        for (std::string_view word : {"true", "yes", "1", "-1"}) {
            if (SameName(text, word)) {
                return StoredValue::FromBool(true);
            }
        }
        for (std::string_view word : {"false", "no", "0"}) {
            if (SameName(text, word)) {
                return StoredValue::FromBool(false);
            }
        }
        return std::nullopt;
    }
    }
    return std::nullopt;
}

NamedValue ParseAssignment(std::string_view text,
                           const std::function<std::optional<StoredValue>(std::string_view)>& current)
{
    const size_t equals = text.find('=');
    if (equals == std::string_view::npos || equals == 0) {
        throw UsageError(std::string("'") + std::string(text) + "' isn't an assignment; write VARIABLE=VALUE.");
    }
    std::string_view name = text.substr(0, equals);
    const std::string_view value = text.substr(equals + 1);
    std::optional<ValueKind> kind;
    if (const size_t colon = name.find(':'); colon != std::string_view::npos) {
        const std::string_view word = name.substr(colon + 1);
        kind = KindOfWord(word);
        if (!kind) {
            throw UsageError(std::string("'") + std::string(word) +
                             "' is no kind of value; write int, float, text or bool.");
        }
        name = name.substr(0, colon);
    }
    if (!kind) {
        kind = KindOfVariable(name);
    }
    if (!kind) {
        const auto stored = current(name);
        kind = stored ? KindOfValue(*stored) : std::nullopt;
    }
    if (!kind) {
        throw UsageError(std::string("'") + std::string(name) +
                         "' isn't a variable of the add-in; for one of your own write " + std::string(name) +
                         ":text=…, or int, float or bool in place of text.");
    }
    if (name == kFormatVariable) {
        const auto format = FindOutputFormat(value);
        if (!format) {
            throw UsageError(std::string("'") + std::string(value) +
                             "' is no output format; there are: " + FormatNames() + ".");
        }
        return {std::string(name), StoredValue::FromText(*format)};
    }
    const auto parsed = ParseValue(*kind, value);
    if (!parsed) {
        constexpr std::string_view kExamples[] = {"a whole number such as 4", "a number such as 12.5", "a text",
                                                  "true or false"};
        throw UsageError(std::string("'") + std::string(value) + "' can't be the value of " + std::string(name) +
                         "; it takes " + std::string(kExamples[static_cast<size_t>(*kind)]) + ".");
    }
    return {std::string(name), *parsed};
}

std::vector<NamedValue> NewTaskVariables(int32_t kind, std::string_view taskName, std::string_view script)
{
    constexpr int32_t kConvert = 1;
    constexpr int32_t kPrint = 2;
    std::vector<NamedValue> variables = {
        {"__type", StoredValue::FromInt(kind)},
        {"__script", StoredValue::FromText(script)},
        {"__tv_version", StoredValue::FromInt(0)},
        {"ErrorLogPath", StoredValue::FromText("\\Logs\\" + FolderNameFor(taskName))},
    };
    if (kind == kConvert) {
        for (const VariableRow& row : kVariables) {
            if (row.convertDefault != nullptr) {
                variables.push_back({std::string(row.name), ValueOf(row.kind, row.convertDefault)});
            }
        }
    }
    if (kind == kPrint) {
        for (const DefaultRow& row : kPrintDefaults) {
            variables.push_back({std::string(row.name), ValueOf(*KindOfVariable(row.name), row.value)});
        }
    }
    return variables;
}

} // namespace tv::local
