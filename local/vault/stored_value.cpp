#include "vault/stored_value.h"

#include "vault/error_table.h"
#include "vault/text.h"

#include <cstdio>

namespace tv::local {

namespace {

StoredValue WholeNumber(VARTYPE type, int64_t number)
{
    return {type, number};
}

} // namespace

StoredValue StoredValue::FromVariant(const VARIANT& value)
{
    const Variant copy = Variant::Copy(value);
    const VARIANT& plain = *copy.get();
    switch (plain.vt) {
    case VT_EMPTY:
    case VT_NULL:
        return {plain.vt, std::monostate{}};
    case VT_I1:
        return WholeNumber(VT_I4, plain.cVal);
    case VT_UI1:
        return WholeNumber(VT_UI1, plain.bVal);
    case VT_I2:
        return WholeNumber(VT_I2, plain.iVal);
    case VT_UI2:
        return WholeNumber(VT_I4, plain.uiVal);
    case VT_I4:
    case VT_INT:
        return WholeNumber(VT_I4, plain.lVal);
    case VT_UI4:
    case VT_UINT:
        return WholeNumber(VT_UI4, plain.ulVal);
    case VT_BOOL:
        return FromBool(plain.boolVal != 0);
    case VT_R4:
        return FromFloat(plain.fltVal);
    case VT_R8:
        return {VT_R8, plain.dblVal};
    case VT_DATE:
        return {VT_DATE, plain.date};
    case VT_BSTR:
        return FromText(Utf8(tv::TextOf(reinterpret_cast<BStr>(plain.bstrVal))));
    default:
        Fail(E_INVALIDARG, "A value of this kind can't be stored.");
    }
}

Variant StoredValue::ToVariant() const
{
    Variant result;
    VARIANT& plain = *result.get();
    const auto* number = std::get_if<int64_t>(&content);
    switch (type) {
    case VT_BSTR:
        return Variant::FromText(Utf16(std::get<std::string>(content)));
    case VT_R4:
        return Variant::FromFloat(static_cast<float>(std::get<double>(content)));
    case VT_R8:
        return Variant::FromDouble(std::get<double>(content));
    case VT_DATE:
        return Variant::FromDate(std::get<double>(content));
    case VT_BOOL:
        return Variant::FromBool(*number != 0);
    case VT_I4:
        return Variant::FromInt(static_cast<int32_t>(*number));
    case VT_I2:
        plain.iVal = static_cast<int16_t>(*number);
        break;
    case VT_UI1:
        plain.bVal = static_cast<uint8_t>(*number);
        break;
    case VT_UI4:
        plain.ulVal = static_cast<uint32_t>(*number);
        break;
    default:
        break;
    }
    plain.vt = type;
    return result;
}

std::string StoredValue::Display() const
{
    if (const auto* text = std::get_if<std::string>(&content)) {
        return *text;
    }
    if (const auto* number = std::get_if<int64_t>(&content)) {
        return type == VT_BOOL ? (*number != 0 ? "true" : "false") : std::to_string(*number);
    }
    if (const auto* number = std::get_if<double>(&content)) {
        char text[40];
        std::snprintf(text, sizeof text, "%g", *number);
        return text;
    }
    return {};
}

} // namespace tv::local
