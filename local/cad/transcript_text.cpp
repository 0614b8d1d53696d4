#include "cad/transcript_text.h"

#include "cad/text.h"
#include "cad/value_conversion.h"
#include "interfaces/application.h"
#include "interfaces/ids.h"
#include "macro/object.h"

namespace tv::app {

namespace {

using macro::Value;

struct EventInterface
{
    GUID id;
    std::string_view name;
};

constexpr EventInterface kEventInterfaces[] = {
    {kInterfaceId<DTorvaneEvents>, "DTorvaneEvents"},         {kInterfaceId<DPartDocEvents>, "DPartDocEvents"},
    {kInterfaceId<DAssemblyDocEvents>, "DAssemblyDocEvents"}, {kInterfaceId<DDrawingDocEvents>, "DDrawingDocEvents"},
    {kInterfaceId<DModelViewEvents>, "DModelViewEvents"},
};

std::string NameOfEvents(const GUID& id)
{
    for (const EventInterface& row : kEventInterfaces) {
        if (row.id == id) {
            return std::string(row.name);
        }
    }
    return "events";
}

std::string ArgumentText(const Value& value)
{
    if (value.IsEmpty()) {
        return "Empty";
    }
    if (value.IsNull()) {
        return "Null";
    }
    if (value.IsMissing()) {
        return "Missing";
    }
    if (value.IsArray()) {
        return "<Array>";
    }
    if (value.IsObject()) {
        const macro::Object* const object = value.ObjectPointer();
        return object == nullptr ? "Nothing" : "<" + ToUtf8(object->ClassName()) + ">";
    }
    if (value.IsString()) {
        return QuotedText(ToUtf8(value.Text()));
    }
    try {
        return ToUtf8(value.ToText());
    } catch (const macro::MacroError&) {
        return "?";
    }
}

} // namespace

std::string QuotedText(std::string_view text)
{
    std::string quoted = "\"";
    for (const char unit : text) {
        quoted += unit == '\r' || unit == '\n' ? ' ' : unit;
        if (unit == '"') {
            quoted += unit;
        }
    }
    return quoted + "\"";
}

std::string CallLine(std::u16string_view className, std::u16string_view member, std::span<const Value> arguments)
{
    std::string line = "call " + ToUtf8(className) + "." + ToUtf8(member);
    for (const Value& argument : arguments) {
        line += " " + ArgumentText(argument);
    }
    return line;
}

std::string EventLine(const GUID& eventInterface, int32_t event, std::span<const Variant> arguments)
{
    std::string line = "event " + NameOfEvents(eventInterface) + " " + std::to_string(event);
    for (const Variant& argument : arguments) {
        line += " " + ArgumentText(FromVariant(*argument.get()));
    }
    return line;
}

} // namespace tv::app
