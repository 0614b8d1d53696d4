#include "document/document_io.h"

#include "document/geometry_rules.h"
#include "document/json_node.h"
#include "document/vocabulary.h"

#include <algorithm>
#include <set>

namespace tv::document {

namespace {

/// Virtual assemblies may hold virtual assemblies, but a text that nests without end must not exhaust the stack.
constexpr int kDeepestNesting = 32;

Document ReadContent(const JsonNode& node, int depth);

template <class T, size_t N> T ReadWord(const JsonNode& node, const Word<T> (&words)[N])
{
    const std::string text = node.Text();
    std::string choices;
    for (const Word<T>& word : words) {
        if (word.text == text) {
            return word.value;
        }
        choices += (choices.empty() ? "" : ", ") + std::string(word.text);
    }
    node.Fail("\"" + text + "\" is not one of " + choices);
}

Properties ReadProperties(const JsonNode& owner)
{
    Properties properties;
    if (const auto node = owner.Find("properties")) {
        for (const auto& [name, value] : node->Members()) {
            properties[name] = value.Text();
        }
    }
    return properties;
}

std::string OptionalText(const JsonNode& owner, const char* name)
{
    const auto node = owner.Find(name);
    return node ? node->Text() : std::string();
}

/// References stay inside the world of the document, so that a folder of documents can be moved.
std::string ReadReference(const JsonNode& node)
{
    std::string path = node.NonEmptyText();
    if (path.front() == '/' || path.find('\\') != std::string::npos || path.find(':') != std::string::npos) {
        node.Fail("must be a path relative to the document, with \"/\" between names");
    }
    return path;
}

Placement ReadPlacement(const JsonNode& owner)
{
    Placement placement;
    const auto node = owner.Find("placement");
    if (!node) {
        return placement;
    }
    node->AllowMembers({"origin", "axis", "reference"});
    if (const auto origin = node->Find("origin")) {
        placement.origin = origin->Numbers<3>();
    }
    if (const auto axis = node->Find("axis")) {
        placement.axis = axis->Numbers<3>();
        const bool alongX = std::abs(placement.axis[1]) < 1e-9 && std::abs(placement.axis[2]) < 1e-9;
        placement.reference = alongX ? Point3{0, 1, 0} : Point3{1, 0, 0};
    }
    if (const auto reference = node->Find("reference")) {
        placement.reference = reference->Numbers<3>();
    }
    if (!IsUsable(placement)) {
        node->Fail("\"axis\" and \"reference\" must be directions that don't lie on one line");
    }
    return placement;
}

Block ReadBlock(const JsonNode& node)
{
    node.AllowMembers({"name", "type", "operation", "placement", "size"});
    const JsonNode size = node.Member("size");
    Block block{size.Numbers<3>()};
    for (const JsonNode& side : size.Elements()) {
        side.PositiveLength();
    }
    return block;
}

Cylinder ReadCylinder(const JsonNode& node)
{
    node.AllowMembers({"name", "type", "operation", "placement", "radius", "height"});
    return {node.Member("radius").PositiveLength(), node.Member("height").PositiveLength()};
}

Cone ReadCone(const JsonNode& node)
{
    node.AllowMembers({"name", "type", "operation", "placement", "bottomRadius", "topRadius", "height"});
    const Cone cone{node.Member("bottomRadius").Number(), node.Member("topRadius").Number(),
                    node.Member("height").PositiveLength()};
    if (cone.bottomRadius < 0 || cone.topRadius < 0 || cone.bottomRadius == cone.topRadius) {
        node.Fail("the two radii of a cone must differ and must not be negative");
    }
    return cone;
}

Sphere ReadSphere(const JsonNode& node)
{
    node.AllowMembers({"name", "type", "operation", "placement", "radius"});
    return {node.Member("radius").PositiveLength()};
}

Extrusion ReadExtrusion(const JsonNode& node)
{
    node.AllowMembers({"name", "type", "operation", "placement", "polygon", "height"});
    Extrusion extrusion;
    const JsonNode polygon = node.Member("polygon");
    for (const JsonNode& point : polygon.Elements()) {
        extrusion.polygon.push_back(point.Numbers<2>());
    }
    const std::string fault = PolygonFault(extrusion.polygon);
    if (!fault.empty()) {
        polygon.Fail(fault);
    }
    extrusion.height = node.Member("height").PositiveLength();
    return extrusion;
}

Import ReadImport(const JsonNode& node)
{
    node.AllowMembers({"name", "type", "operation", "placement", "file"});
    return {ReadReference(node.Member("file"))};
}

struct SolidReader
{
    std::string_view type;
    Solid (*read)(const JsonNode&);
};

constexpr SolidReader kSolidReaders[] = {
    {"box", [](const JsonNode& node) -> Solid { return ReadBlock(node); }},
    {"cylinder", [](const JsonNode& node) -> Solid { return ReadCylinder(node); }},
    {"cone", [](const JsonNode& node) -> Solid { return ReadCone(node); }},
    {"sphere", [](const JsonNode& node) -> Solid { return ReadSphere(node); }},
    {"extrusion", [](const JsonNode& node) -> Solid { return ReadExtrusion(node); }},
    {"import", [](const JsonNode& node) -> Solid { return ReadImport(node); }},
};

Feature ReadFeature(const JsonNode& node)
{
    const JsonNode typeNode = node.Member("type");
    const std::string type = typeNode.Text();
    const auto reader = std::ranges::find(kSolidReaders, type, &SolidReader::type);
    if (reader == std::end(kSolidReaders)) {
        typeNode.Fail("\"" + type + "\" is not one of box, cylinder, cone, sphere, extrusion, import");
    }
    Feature feature;
    feature.solid = reader->read(node);
    feature.name = OptionalText(node, "name");
    feature.placement = ReadPlacement(node);
    if (const auto operation = node.Find("operation")) {
        feature.operation = ReadWord(*operation, kOperations);
    }
    return feature;
}

/// Reads a list of named things, whose names must differ.
template <class T> std::vector<T> ReadNamed(const JsonNode& list, T (*read)(const JsonNode&))
{
    std::vector<T> items;
    std::set<std::string> names;
    for (const JsonNode& element : list.Elements()) {
        items.push_back(read(element));
        if (!names.insert(items.back().name).second) {
            element.Member("name").Fail("\"" + items.back().name + "\" is used twice");
        }
    }
    return items;
}

template <class T> std::vector<T> ReadAtLeastOneNamed(const JsonNode& list, T (*read)(const JsonNode&))
{
    std::vector<T> items = ReadNamed(list, read);
    if (items.empty()) {
        list.Fail("must have at least one entry");
    }
    return items;
}

/// The active configuration or sheet; the first one unless the document says otherwise.
template <class T> std::string ReadActive(const JsonNode& owner, const char* member, const std::vector<T>& items)
{
    const auto node = owner.Find(member);
    if (!node) {
        return items.front().name;
    }
    std::string name = node->Text();
    if (std::ranges::find(items, name, &T::name) == items.end()) {
        node->Fail("there is no \"" + name + "\"");
    }
    return name;
}

PartConfiguration ReadPartConfiguration(const JsonNode& node)
{
    node.AllowMembers({"name", "properties", "features"});
    PartConfiguration configuration;
    configuration.name = node.Member("name").NonEmptyText();
    configuration.properties = ReadProperties(node);
    const JsonNode features = node.Member("features");
    for (const JsonNode& feature : features.Elements()) {
        configuration.features.push_back(ReadFeature(feature));
        if (configuration.features.size() == 1 && configuration.features.front().operation == Operation::Cut) {
            feature.Member("operation").Fail("the first feature has nothing to cut from");
        }
    }
    if (configuration.features.empty()) {
        features.Fail("must have at least one entry");
    }
    return configuration;
}

Part ReadPart(const JsonNode& node)
{
    node.AllowMembers({"format", "version", "units", "properties", "activeConfiguration", "configurations"});
    Part part;
    part.properties = ReadProperties(node);
    part.configurations = ReadAtLeastOneNamed(node.Member("configurations"), ReadPartConfiguration);
    part.activeConfiguration = ReadActive(node, "activeConfiguration", part.configurations);
    return part;
}

AssemblyConfiguration ReadAssemblyConfiguration(const JsonNode& node)
{
    node.AllowMembers({"name", "properties", "suppressed"});
    AssemblyConfiguration configuration;
    configuration.name = node.Member("name").NonEmptyText();
    configuration.properties = ReadProperties(node);
    if (const auto suppressed = node.Find("suppressed")) {
        for (const JsonNode& name : suppressed->Elements()) {
            configuration.suppressed.push_back(name.NonEmptyText());
        }
    }
    return configuration;
}

Component ReadComponent(const JsonNode& node, int depth)
{
    node.AllowMembers({"name", "path", "document", "configuration", "placement"});
    Component component;
    component.name = node.Member("name").NonEmptyText();
    component.placement = ReadPlacement(node);
    component.configuration = OptionalText(node, "configuration");
    const auto path = node.Find("path");
    const auto embedded = node.Find("document");
    if (path.has_value() == embedded.has_value()) {
        node.Fail("must have either \"path\" or, for a virtual component, \"document\"");
    }
    if (path) {
        component.path = ReadReference(*path);
        return component;
    }
    component.embedded = std::make_shared<const Document>(ReadContent(*embedded, depth + 1));
    if (KindOf(*component.embedded) == Kind::Drawing) {
        embedded->Fail("a component can't be a drawing");
    }
    const std::vector<std::string> names = ItemNames(*component.embedded);
    if (!component.configuration.empty() && std::ranges::find(names, component.configuration) == names.end()) {
        node.Member("configuration").Fail("there is no \"" + component.configuration + "\"");
    }
    return component;
}

void CheckSuppressed(const JsonNode& configurations, const Assembly& assembly)
{
    for (const JsonNode& configuration : configurations.Elements()) {
        const auto suppressed = configuration.Find("suppressed");
        for (const JsonNode& name : suppressed ? suppressed->Elements() : std::vector<JsonNode>()) {
            if (!FindComponent(assembly, name.Text())) {
                name.Fail("there is no component \"" + name.Text() + "\"");
            }
        }
    }
}

Assembly ReadAssembly(const JsonNode& node, int depth)
{
    node.AllowMembers(
        {"format", "version", "units", "properties", "activeConfiguration", "configurations", "components"});
    Assembly assembly;
    assembly.properties = ReadProperties(node);
    const JsonNode components = node.Member("components");
    std::set<std::string> names;
    for (const JsonNode& element : components.Elements()) {
        assembly.components.push_back(ReadComponent(element, depth));
        if (!names.insert(assembly.components.back().name).second) {
            element.Member("name").Fail("\"" + assembly.components.back().name + "\" is used twice");
        }
    }
    if (const auto configurations = node.Find("configurations")) {
        assembly.configurations = ReadAtLeastOneNamed(*configurations, ReadAssemblyConfiguration);
        CheckSuppressed(*configurations, assembly);
    } else {
        assembly.configurations.push_back({std::string(kDefaultConfiguration), {}, {}});
    }
    assembly.activeConfiguration = ReadActive(node, "activeConfiguration", assembly.configurations);
    return assembly;
}

View ReadView(const JsonNode& node)
{
    node.AllowMembers({"name", "model", "configuration", "projection", "position", "scale", "hiddenLines"});
    View view;
    view.name = OptionalText(node, "name");
    const JsonNode model = node.Member("model");
    view.model = ReadReference(model);
    const KindInfo* kind = KindOfPath(view.model);
    if (kind && kind->kind == Kind::Drawing) {
        model.Fail("a view can't show a drawing");
    }
    view.configuration = OptionalText(node, "configuration");
    view.projection = ReadWord(node.Member("projection"), kProjections);
    view.position = node.Member("position").Numbers<2>();
    if (const auto scale = node.Find("scale")) {
        view.scale = scale->PositiveLength();
    }
    if (const auto hiddenLines = node.Find("hiddenLines")) {
        view.hiddenLines = ReadWord(*hiddenLines, kHiddenLines);
    }
    return view;
}

Note ReadNote(const JsonNode& node)
{
    node.AllowMembers({"text", "position", "height"});
    Note note;
    note.text = node.Member("text").Text();
    note.position = node.Member("position").Numbers<2>();
    if (const auto height = node.Find("height")) {
        note.height = height->PositiveLength();
    }
    return note;
}

void ReadSheetSize(const JsonNode& node, Sheet& sheet)
{
    const auto format = node.Find("format");
    const auto size = node.Find("size");
    if (format.has_value() == size.has_value()) {
        node.Fail("must have either \"format\" or \"size\"");
    }
    if (size) {
        sheet.size = size->Numbers<2>();
        for (const JsonNode& side : size->Elements()) {
            if (side.PositiveLength() > 5000) {
                side.Fail("a sheet can't be larger than 5000 mm");
            }
        }
        return;
    }
    sheet.format = format->Text();
    const auto known = std::ranges::find(kSheetFormats, sheet.format, &SheetFormat::name);
    if (known == std::end(kSheetFormats)) {
        format->Fail("\"" + sheet.format + "\" is not a known sheet format");
    }
    sheet.size = {known->width, known->height};
}

Sheet ReadSheet(const JsonNode& node)
{
    node.AllowMembers({"name", "format", "size", "scale", "views", "notes"});
    Sheet sheet;
    sheet.name = node.Member("name").NonEmptyText();
    ReadSheetSize(node, sheet);
    if (const auto scale = node.Find("scale")) {
        sheet.scale = scale->PositiveLength();
    }
    if (const auto views = node.Find("views")) {
        for (const JsonNode& view : views->Elements()) {
            sheet.views.push_back(ReadView(view));
        }
    }
    if (const auto notes = node.Find("notes")) {
        for (const JsonNode& note : notes->Elements()) {
            sheet.notes.push_back(ReadNote(note));
        }
    }
    return sheet;
}

Drawing ReadDrawing(const JsonNode& node)
{
    node.AllowMembers({"format", "version", "units", "properties", "activeSheet", "sheets"});
    Drawing drawing;
    drawing.properties = ReadProperties(node);
    drawing.sheets = ReadAtLeastOneNamed(node.Member("sheets"), ReadSheet);
    drawing.activeSheet = ReadActive(node, "activeSheet", drawing.sheets);
    return drawing;
}

void CheckHead(const JsonNode& node)
{
    const JsonNode version = node.Member("version");
    const int number = version.Integer();
    if (number > kFormatVersion) {
        try {
            version.Fail("written by a later version (" + std::to_string(number) + "; this one reads up to " +
                         std::to_string(kFormatVersion) + ")");
        } catch (const DocumentError& error) {
            throw DocumentError(Fault::FutureVersion, error.what());
        }
    }
    if (number < 1) {
        version.Fail("must be 1 or more");
    }
    const auto units = node.Find("units");
    if (units && units->Text() != "mm") {
        units->Fail("must be \"mm\"");
    }
}

Document ReadContent(const JsonNode& node, int depth)
{
    if (depth > kDeepestNesting) {
        node.Fail("virtual components are nested more than " + std::to_string(kDeepestNesting) + " deep");
    }
    const JsonNode format = node.Member("format");
    const std::string name = format.Text();
    const auto kind = std::ranges::find(kKinds, name, &KindInfo::format);
    if (kind == std::end(kKinds)) {
        format.Fail("\"" + name + "\" is not one of torvane-part, torvane-assembly, torvane-drawing");
    }
    CheckHead(node);
    switch (kind->kind) {
    case Kind::Part:
        return {ReadPart(node)};
    case Kind::Assembly:
        return {ReadAssembly(node, depth)};
    case Kind::Drawing:
        break;
    }
    return {ReadDrawing(node)};
}

std::string LineAndColumn(std::string_view text, size_t offset)
{
    const std::string_view before = text.substr(0, std::min(offset, text.size()));
    const auto line = 1 + std::ranges::count(before, '\n');
    const size_t lineStart = before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
    return "line " + std::to_string(line) + ", column " + std::to_string(before.size() - lineStart + 1);
}

nlohmann::json ParseJson(std::string_view text, std::string_view fileName)
{
    try {
        return nlohmann::json::parse(text);
    } catch (const nlohmann::json::parse_error& error) {
        const size_t offset = error.byte > 0 ? error.byte - 1 : 0;
        const std::string reason = offset >= text.size() ? "the text ends too early" : "the text is not valid JSON";
        throw DocumentError(Fault::NotJson, std::string(fileName) + ": " + LineAndColumn(text, offset) + ": " + reason);
    } catch (const nlohmann::json::exception& error) {
        throw DocumentError(Fault::NotJson, std::string(fileName) + ": " + error.what());
    }
}

} // namespace

Document ReadDocument(std::string_view text, std::string_view fileName)
{
    const nlohmann::json json = ParseJson(text, fileName);
    const JsonNode root(json, fileName);
    Document document = ReadContent(root, 0);
    const KindInfo* expected = KindOfPath(fileName);
    if (expected && expected->kind != KindOf(document)) {
        root.Member("format").Fail("the file's extension says " + std::string(expected->noun) +
                                   ", and the document is a" + (KindOf(document) == Kind::Assembly ? "n " : " ") +
                                   std::string(InfoOf(KindOf(document)).noun));
    }
    return document;
}

} // namespace tv::document
