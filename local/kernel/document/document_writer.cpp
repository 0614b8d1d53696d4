#include "document/document_io.h"

#include "document/vocabulary.h"

#include <nlohmann/json.hpp>

namespace tv::document {

namespace {

using Json = nlohmann::ordered_json;

Json ToJson(const Document& document);
Json ToJson(const Sheet& sheet);

void AddText(Json& json, const char* name, const std::string& text)
{
    if (!text.empty()) {
        json[name] = text;
    }
}

void AddProperties(Json& json, const Properties& properties)
{
    if (!properties.empty()) {
        json["properties"] = properties;
    }
}

void AddPlacement(Json& json, const Placement& placement)
{
    const Placement standard;
    if (placement == standard) {
        return;
    }
    Json written;
    written["origin"] = placement.origin;
    if (placement.axis != standard.axis || placement.reference != standard.reference) {
        written["axis"] = placement.axis;
        written["reference"] = placement.reference;
    }
    json["placement"] = written;
}

struct SolidWriter
{
    Json& json;

    void operator()(const Block& block) const
    {
        json["type"] = "box";
        json["size"] = block.size;
    }
    void operator()(const Cylinder& cylinder) const
    {
        json["type"] = "cylinder";
        json["radius"] = cylinder.radius;
        json["height"] = cylinder.height;
    }
    void operator()(const Cone& cone) const
    {
        json["type"] = "cone";
        json["bottomRadius"] = cone.bottomRadius;
        json["topRadius"] = cone.topRadius;
        json["height"] = cone.height;
    }
    void operator()(const Sphere& sphere) const
    {
        json["type"] = "sphere";
        json["radius"] = sphere.radius;
    }
    void operator()(const Extrusion& extrusion) const
    {
        json["type"] = "extrusion";
        json["polygon"] = extrusion.polygon;
        json["height"] = extrusion.height;
    }
    void operator()(const Import& import) const
    {
        json["type"] = "import";
        json["file"] = import.file;
    }
};

Json ToJson(const Feature& feature)
{
    Json json;
    AddText(json, "name", feature.name);
    std::visit(SolidWriter{json}, feature.solid);
    if (feature.operation != Operation::Join) {
        json["operation"] = WordFor(kOperations, feature.operation);
    }
    AddPlacement(json, feature.placement);
    return json;
}

Json ToJson(const PartConfiguration& configuration)
{
    Json json;
    json["name"] = configuration.name;
    AddProperties(json, configuration.properties);
    json["features"] = Json::array();
    for (const Feature& feature : configuration.features) {
        json["features"].push_back(ToJson(feature));
    }
    return json;
}

Json ToJson(const AssemblyConfiguration& configuration)
{
    Json json;
    json["name"] = configuration.name;
    AddProperties(json, configuration.properties);
    if (!configuration.suppressed.empty()) {
        json["suppressed"] = configuration.suppressed;
    }
    return json;
}

Json ToJson(const Component& component)
{
    Json json;
    json["name"] = component.name;
    AddText(json, "path", component.path);
    AddText(json, "configuration", component.configuration);
    AddPlacement(json, component.placement);
    if (component.IsVirtual()) {
        json["document"] = ToJson(*component.embedded);
    }
    return json;
}

Json ToJson(const View& view)
{
    Json json;
    AddText(json, "name", view.name);
    json["model"] = view.model;
    AddText(json, "configuration", view.configuration);
    json["projection"] = WordFor(kProjections, view.projection);
    json["position"] = view.position;
    if (view.scale > 0) {
        json["scale"] = view.scale;
    }
    json["hiddenLines"] = WordFor(kHiddenLines, view.hiddenLines);
    return json;
}

Json ToJson(const Note& note)
{
    return {{"text", note.text}, {"position", note.position}, {"height", note.height}};
}

template <class T> Json ToJsonList(const std::vector<T>& items)
{
    Json list = Json::array();
    for (const T& item : items) {
        list.push_back(ToJson(item));
    }
    return list;
}

Json ToJson(const Sheet& sheet)
{
    Json json;
    json["name"] = sheet.name;
    if (sheet.format.empty()) {
        json["size"] = sheet.size;
    } else {
        json["format"] = sheet.format;
    }
    json["scale"] = sheet.scale;
    json["views"] = ToJsonList(sheet.views);
    json["notes"] = ToJsonList(sheet.notes);
    return json;
}

void AddContent(Json& json, const Part& part)
{
    AddProperties(json, part.properties);
    json["activeConfiguration"] = part.activeConfiguration;
    json["configurations"] = ToJsonList(part.configurations);
}

void AddContent(Json& json, const Assembly& assembly)
{
    AddProperties(json, assembly.properties);
    json["activeConfiguration"] = assembly.activeConfiguration;
    json["configurations"] = ToJsonList(assembly.configurations);
    json["components"] = ToJsonList(assembly.components);
}

void AddContent(Json& json, const Drawing& drawing)
{
    AddProperties(json, drawing.properties);
    json["activeSheet"] = drawing.activeSheet;
    json["sheets"] = ToJsonList(drawing.sheets);
}

Json ToJson(const Document& document)
{
    Json json;
    json["format"] = InfoOf(KindOf(document)).format;
    json["version"] = kFormatVersion;
    json["units"] = "mm";
    std::visit([&json](const auto& content) { AddContent(json, content); }, document.content);
    return json;
}

} // namespace

std::string WriteDocument(const Document& document)
{
    return ToJson(document).dump(2) + "\n";
}

} // namespace tv::document
