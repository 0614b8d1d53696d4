// One value of a task variable or a card, in the form in which it is stored: kind and content.
#pragma once

#include "com/variant.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace tv::local {

/// The kind is the variant type code. Numbers and truth values are held as a whole number, floats and dates as a
/// floating number, texts as UTF-8.
struct StoredValue
{
    VARTYPE type = VT_EMPTY;
    std::variant<std::monostate, int64_t, double, std::string> content;

    bool operator==(const StoredValue&) const = default;

    static StoredValue FromInt(int32_t number) { return {VT_I4, int64_t{number}}; }
    static StoredValue FromFloat(float number) { return {VT_R4, static_cast<double>(number)}; }
    static StoredValue FromBool(bool truth) { return {VT_BOOL, int64_t{truth ? -1 : 0}}; }
    static StoredValue FromText(std::string_view text) { return {VT_BSTR, std::string(text)}; }

    /// A kind that can't be stored, such as an object or an array, is refused with E_INVALIDARG.
    static StoredValue FromVariant(const VARIANT& value);
    Variant ToVariant() const;

    /// The value in words for a person: "true" and "false", numbers in their shortest form, texts as they stand.
    std::string Display() const;
};

} // namespace tv::local
