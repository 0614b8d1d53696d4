#include "script/variable_expansion.h"

#include "com/result.h"
#include "support/format.h"
#include "support/numbers.h"
#include "support/text_replace.h"

namespace tv {

namespace {

constexpr int32_t kInvalidDateString = 55296;
constexpr std::u16string_view kLineEnd = u"\r\n";
/// A line end inside a string literal becomes a concatenation.
constexpr std::u16string_view kLineEndInLiteral = u"\"+vbLf+\"";

std::u16string_view WithoutLeading(std::u16string_view text, char16_t unit)
{
    const size_t first = text.find_first_not_of(unit);
    return first == std::u16string_view::npos ? std::u16string_view() : text.substr(first);
}

std::u16string_view WithoutTrailing(std::u16string_view text, char16_t unit)
{
    return text.substr(0, text.find_last_not_of(unit) + 1);
}

std::u16string TokenAt(std::u16string_view text, size_t position, char16_t close)
{
    const size_t end = text.find(close, position);
    return end == std::u16string_view::npos ? std::u16string()
                                            : std::u16string(text.substr(position, end - position + 1));
}

std::u16string ValueOf(std::u16string_view token, char16_t open, char16_t close, const VariableLookup& lookup,
                       ModuleService& module)
{
    const std::u16string name(WithoutTrailing(WithoutLeading(token, open), close));
    Variant found;
    const Result status = lookup(name, found);
    if (status == 1) {
        return {};
    }
    if (status != 0) {
        throw ResultError(status);
    }
    std::u16string value = VariantToText(*found.get(), module);
    return found.Type() == VT_BSTR ? ReplaceAll(value, kLineEnd, kLineEndInLiteral) : value;
}

std::u16string DateText(double date, ModuleService& module)
{
    BString text;
    if (VarBstrFromDate(date, LOCALE_USER_DEFAULT, 0, reinterpret_cast<BSTR*>(text.put())) >= 0) {
        return text.Text();
    }
    return module.ReadString(kInvalidDateString).value_or(u"Invalid DateTime");
}

} // namespace

std::u16string ExpandVariables(std::u16string text, char16_t open, char16_t close, const VariableLookup& lookup,
                               ModuleService& module)
{
    size_t position = text.find(open);
    while (position != std::u16string::npos) {
        const std::u16string token = TokenAt(text, position, close);
        const std::u16string value = ValueOf(token, open, close, lookup, module);
        text = ReplaceAll(text, token, value);
        position = text.find(open, position + value.size());
    }
    return text;
}

Variant PlaceholderKey(std::u16string_view name)
{
    if (name.starts_with(u'#')) {
        return Variant::FromInt(ParseDecimal(WithoutLeading(name, u'#')));
    }
    return Variant::FromText(name);
}

std::u16string VariantToText(const VARIANT& value, ModuleService& module)
{
    switch (value.vt) {
    case VT_I2:
        return FormatText(u"%d", value.iVal);
    case VT_I4:
        return FormatText(u"%d", value.lVal);
    case VT_UI1:
        return FormatText(u"%d", value.bVal);
    case VT_R4:
        return FormatText(u"%f", static_cast<double>(value.fltVal));
    case VT_R8:
        return FormatText(u"%f", value.dblVal);
    case VT_DATE:
        return DateText(value.date, module);
    case VT_BSTR:
        return std::u16string(TextOf(reinterpret_cast<BStr>(value.bstrVal)));
    case VT_BOOL:
        return value.boolVal != kVariantFalse ? u"True" : u"False";
    default:
        return {};
    }
}

} // namespace tv
