#include "cad/macro_library.h"

#include "cad/constants.h"

#include <algorithm>

namespace tv::app {

namespace {

/// Classes that may stand behind As, in small letters.
constexpr std::u16string_view kClasses[] = {
    u"application",
    u"assemblydoc",
    u"component2",
    u"configuration",
    u"configurationmanager",
    u"documentspecification",
    u"drawingdoc",
    u"exportpdfdata",
    u"frame",
    u"modeldoc2",
    u"modeldocextension",
    u"modelview",
    u"pagesetup",
    u"partdoc",
    u"sheet",
    u"torvane",
    u"view",
};

} // namespace

std::optional<macro::Value> MacroLibrary::Constant(std::u16string_view name) const
{
    const std::optional<int32_t> number = FindConstant(name);
    return number ? std::optional<macro::Value>(macro::Value(*number)) : std::nullopt;
}

bool MacroLibrary::HasGlobal(std::u16string_view name) const
{
    return name == u"application";
}

bool MacroLibrary::HasLibrary(std::u16string_view name) const
{
    return name == u"torvane";
}

bool MacroLibrary::HasType(std::u16string_view name) const
{
    return std::ranges::find(kClasses, name) != std::end(kClasses);
}

bool MacroLibrary::HasEnumeration(std::u16string_view) const
{
    return false;
}

} // namespace tv::app
