#include "cad/macro_event.h"

#include <nlohmann/json.hpp>

namespace tv::app {

namespace {

using Json = nlohmann::ordered_json;

struct KindName
{
    MacroEventKind kind;
    std::string_view name;
};

constexpr KindName kKinds[] = {
    {MacroEventKind::Began, "began"},
    {MacroEventKind::Printed, "printed"},
    {MacroEventKind::Saved, "saved"},
    {MacroEventKind::Asked, "asked"},
    {MacroEventKind::Failed, "failed"},
};

} // namespace

std::string WriteMacroEvent(const MacroEvent& event)
{
    Json json;
    for (const KindName& row : kKinds) {
        if (row.kind == event.kind) {
            json["event"] = row.name;
        }
    }
    json["text"] = event.text;
    if (event.kind == MacroEventKind::Failed) {
        json["number"] = event.number;
        json["line"] = event.line;
    }
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::optional<MacroEvent> ReadMacroEvent(std::string_view line)
{
    const Json json = Json::parse(line, nullptr, false);
    if (!json.is_object() || !json.contains("event") || !json.contains("text") || !json["text"].is_string()) {
        return std::nullopt;
    }
    for (const KindName& row : kKinds) {
        if (json["event"] == row.name) {
            return MacroEvent{row.kind, json["text"].get<std::string>(), json.value("number", int32_t{0}),
                              json.value("line", int32_t{0})};
        }
    }
    return std::nullopt;
}

} // namespace tv::app
