// Placeholders with a variable's name between two brackets, and the text form of a variable's value.
#pragma once

#include "com/variant.h"
#include "platform/module_service.h"

#include <functional>
#include <string>
#include <string_view>

namespace tv {

/// Finds the value of a placeholder's name: 0 found, 1 absent.
using VariableLookup = std::function<Result(const std::u16string& name, Variant& value)>;

/// Replaces each placeholder between `open` and `close` by the value of the name in it; an absent name vanishes. There
/// is no escape: every pair of brackets is a placeholder. A status of the look-up other than 0 and 1 is raised.
///
/// An `open` with no `close` behind it asks for the empty name and is left standing; a look-up that answers with no
/// text is then asked again without end.
std::u16string ExpandVariables(std::u16string text, char16_t open, char16_t close, const VariableLookup& lookup,
                               ModuleService& module);

/// The key of a curly placeholder: "#17" is the number 17, anything else the name itself.
Variant PlaceholderKey(std::u16string_view name);

/// The value as it stands in macro text: numbers and Boolean words are macro literals, an empty value is no text.
std::u16string VariantToText(const VARIANT& value, ModuleService& module);

} // namespace tv
