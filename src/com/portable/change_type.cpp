// Changes of kind between variants, with the results that Windows gives in US English.
#include "com/portable/text_forms.h"

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>
#include <variant>

namespace {

using tv::portable::ParsedNumber;

/// A number of any kind, as wide as it needs to be.
using Number = std::variant<int64_t, uint64_t, double>;

constexpr int64_t kCurrencyScale = 10000;

std::u16string_view ViewOf(BSTR text)
{
    return text == nullptr ? std::u16string_view() : std::u16string_view(text, SysStringLen(text));
}

HRESULT SetText(VARIANT* to, std::u16string_view text)
{
    to->bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (to->bstrVal == nullptr) {
        return E_OUTOFMEMORY;
    }
    to->vt = VT_BSTR;
    return S_OK;
}

/// Stores a whole number in an integer kind that has to have room for it.
template <typename Target, typename Whole> HRESULT StoreWhole(Target* to, Whole value)
{
    if (!std::in_range<Target>(value)) {
        return DISP_E_OVERFLOW;
    }
    *to = static_cast<Target>(value);
    return S_OK;
}

/// Stores a real number in an integer kind; a half goes to the even neighbour.
template <typename Target> HRESULT StoreRounded(Target* to, double value)
{
    const double rounded = std::nearbyint(value);
    // The limit above the largest value is a power of two and so exact, which the largest value itself need not be.
    const double above = std::ldexp(1.0, std::numeric_limits<Target>::digits);
    const double lowest = std::is_signed_v<Target> ? -above : 0.0;
    if (!(rounded >= lowest && rounded < above)) {
        return DISP_E_OVERFLOW;
    }
    *to = static_cast<Target>(rounded);
    return S_OK;
}

template <typename Target> HRESULT StoreInteger(Target* to, const Number& number)
{
    if (const double* real = std::get_if<double>(&number)) {
        return StoreRounded(to, *real);
    }
    if (const int64_t* whole = std::get_if<int64_t>(&number)) {
        return StoreWhole(to, *whole);
    }
    return StoreWhole(to, std::get<uint64_t>(number));
}

double AsDouble(const Number& number)
{
    return std::visit([](auto value) { return static_cast<double>(value); }, number);
}

HRESULT StoreDouble(double* to, double value)
{
    if (std::isinf(value)) {
        return DISP_E_OVERFLOW;
    }
    *to = value;
    return S_OK;
}

HRESULT StoreFloat(float* to, double value)
{
    if (std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
        return DISP_E_OVERFLOW;
    }
    *to = static_cast<float>(value);
    return S_OK;
}

HRESULT StoreDate(DATE* to, double value)
{
    if (!tv::portable::IsDate(value)) {
        return DISP_E_OVERFLOW;
    }
    *to = value;
    return S_OK;
}

HRESULT StoreCurrency(CY* to, const Number& number)
{
    if (const double* real = std::get_if<double>(&number)) {
        return StoreRounded(&to->int64, *real * static_cast<double>(kCurrencyScale));
    }
    int64_t whole = 0;
    const HRESULT result = StoreInteger(&whole, number);
    constexpr int64_t kMost = std::numeric_limits<int64_t>::max() / kCurrencyScale;
    if (FAILED(result) || whole > kMost || whole < -kMost) {
        return DISP_E_OVERFLOW;
    }
    to->int64 = whole * kCurrencyScale;
    return S_OK;
}

HRESULT StoreTruth(VARIANT_BOOL* to, bool truth)
{
    *to = truth ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

/// Stores a number in a numeric kind; DISP_E_BADVARTYPE when the kind is none.
HRESULT StoreNumber(VARIANT* to, VARTYPE type, const Number& number)
{
    switch (type) {
    case VT_I1:
        return StoreInteger(&to->cVal, number);
    case VT_UI1:
        return StoreInteger(&to->bVal, number);
    case VT_I2:
        return StoreInteger(&to->iVal, number);
    case VT_UI2:
        return StoreInteger(&to->uiVal, number);
    case VT_I4:
    case VT_INT:
        return StoreInteger(&to->lVal, number);
    case VT_UI4:
    case VT_UINT:
        return StoreInteger(&to->ulVal, number);
    case VT_I8:
        return StoreInteger(&to->llVal, number);
    case VT_UI8:
        return StoreInteger(&to->ullVal, number);
    case VT_R4:
        return StoreFloat(&to->fltVal, AsDouble(number));
    case VT_R8:
        return StoreDouble(&to->dblVal, AsDouble(number));
    case VT_DATE:
        return StoreDate(&to->date, AsDouble(number));
    case VT_CY:
        return StoreCurrency(&to->cyVal, number);
    case VT_BOOL:
        return StoreTruth(&to->boolVal, AsDouble(number) != 0);
    default:
        return DISP_E_BADVARTYPE;
    }
}

/// The value of a numeric kind; empty for any other.
std::optional<Number> NumberOf(const VARIANT& from)
{
    switch (from.vt) {
    case VT_EMPTY:
        return Number(int64_t{0});
    case VT_I1:
        return Number(int64_t{from.cVal});
    case VT_UI1:
        return Number(int64_t{from.bVal});
    case VT_I2:
        return Number(int64_t{from.iVal});
    case VT_UI2:
        return Number(int64_t{from.uiVal});
    case VT_I4:
    case VT_INT:
        return Number(int64_t{from.lVal});
    case VT_UI4:
    case VT_UINT:
        return Number(int64_t{from.ulVal});
    case VT_I8:
        return Number(from.llVal);
    case VT_UI8:
        return Number(from.ullVal);
    case VT_R4:
        return Number(static_cast<double>(from.fltVal));
    case VT_R8:
        return Number(from.dblVal);
    case VT_DATE:
        return Number(from.date);
    case VT_CY:
        return Number(static_cast<double>(from.cyVal.int64) / static_cast<double>(kCurrencyScale));
    case VT_BOOL:
        return Number(int64_t{from.boolVal});
    default:
        return std::nullopt;
    }
}

/// True in an unsigned kind is the kind's highest value, all bits set.
bool StoreTruthAsBits(VARIANT* to, VARTYPE type, VARIANT_BOOL truth)
{
    switch (type) {
    case VT_UI1:
        to->bVal = static_cast<uint8_t>(truth);
        return true;
    case VT_UI2:
        to->uiVal = static_cast<uint16_t>(truth);
        return true;
    case VT_UI4:
    case VT_UINT:
        to->ulVal = static_cast<uint32_t>(int32_t{truth});
        return true;
    case VT_UI8:
        to->ullVal = static_cast<uint64_t>(int64_t{truth});
        return true;
    default:
        return false;
    }
}

/// A bit pattern as the number that it is in a kind of that many bits.
Number PatternAsNumber(uint64_t pattern, VARTYPE type)
{
    switch (type) {
    case VT_I1:
        return pattern <= 0xFFu ? Number(int64_t{static_cast<int8_t>(pattern)}) : Number(pattern);
    case VT_I2:
        return pattern <= 0xFFFFu ? Number(int64_t{static_cast<int16_t>(pattern)}) : Number(pattern);
    case VT_I4:
    case VT_INT:
        return pattern <= 0xFFFFFFFFu ? Number(int64_t{static_cast<int32_t>(pattern)}) : Number(pattern);
    case VT_I8:
        return static_cast<int64_t>(pattern);
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_BOOL:
        // Kinds without bits of their own read the pattern as 32 bits.
        return pattern <= 0xFFFFFFFFu ? Number(int64_t{static_cast<int32_t>(pattern)})
                                      : Number(std::numeric_limits<double>::infinity());
    default:
        return pattern;
    }
}

Number AsNumber(const ParsedNumber& parsed, VARTYPE type)
{
    if (parsed.isPattern && !parsed.negative) {
        return PatternAsNumber(*parsed.whole, type);
    }
    constexpr uint64_t kMost = static_cast<uint64_t>(std::numeric_limits<int64_t>::max());
    if (parsed.whole && !parsed.negative) {
        return *parsed.whole;
    }
    if (parsed.whole && *parsed.whole <= kMost) {
        return -static_cast<int64_t>(*parsed.whole);
    }
    if (parsed.whole && *parsed.whole > kMost + 1 && type == VT_I8) {
        // Read as a double it may have been rounded to the lowest number of 64 bits.
        return -std::numeric_limits<double>::infinity();
    }
    return parsed.value;
}

bool EqualsIgnoringCase(std::u16string_view text, std::u16string_view lower)
{
    if (text.size() != lower.size()) {
        return false;
    }
    for (size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i] >= u'A' && text[i] <= u'Z' ? static_cast<char16_t>(text[i] | 0x20) : text[i];
        if (c != lower[i]) {
            return false;
        }
    }
    return true;
}

std::optional<bool> TruthOfText(std::u16string_view text)
{
    if (EqualsIgnoringCase(text, u"true") || text == u"#TRUE#") {
        return true;
    }
    if (EqualsIgnoringCase(text, u"false") || text == u"#FALSE#") {
        return false;
    }
    return std::nullopt;
}

HRESULT ChangeText(VARIANT* to, std::u16string_view text, VARTYPE type)
{
    if (type == VT_DATE) {
        const std::optional<DATE> date = tv::portable::ParseDate(text);
        return date ? StoreDate(&to->date, *date) : DISP_E_TYPEMISMATCH;
    }
    if (type == VT_BOOL) {
        if (const std::optional<bool> truth = TruthOfText(text)) {
            return StoreTruth(&to->boolVal, *truth);
        }
    }
    const std::optional<ParsedNumber> parsed = tv::portable::ParseNumber(text);
    if (!parsed) {
        return DISP_E_TYPEMISMATCH;
    }
    const Number number = AsNumber(*parsed, type);
    // Such a text is too large for any kind, truth included.
    return std::isinf(AsDouble(number)) ? DISP_E_OVERFLOW : StoreNumber(to, type, number);
}

std::u16string TruthText(VARIANT_BOOL truth, USHORT flags)
{
    if ((flags & VARIANT_ALPHABOOL) != 0) {
        return truth != VARIANT_FALSE ? u"True" : u"False";
    }
    return truth != VARIANT_FALSE ? u"-1" : u"0";
}

std::u16string WholeText(const Number& number)
{
    if (const int64_t* whole = std::get_if<int64_t>(&number)) {
        const uint64_t bits = static_cast<uint64_t>(*whole);
        return tv::portable::WholeText(*whole < 0, *whole < 0 ? uint64_t{0} - bits : bits);
    }
    return tv::portable::WholeText(false, std::get<uint64_t>(number));
}

HRESULT ChangeToText(VARIANT* to, const VARIANT& from, USHORT flags)
{
    constexpr int kDoubleDigits = 15;
    constexpr int kFloatDigits = 7;
    switch (from.vt) {
    case VT_EMPTY:
        return SetText(to, u"");
    case VT_BOOL:
        return SetText(to, TruthText(from.boolVal, flags));
    case VT_R8:
        return SetText(to, tv::portable::NumberText(from.dblVal, kDoubleDigits));
    case VT_R4:
        return SetText(to, tv::portable::NumberText(static_cast<double>(from.fltVal), kFloatDigits));
    case VT_CY:
        return SetText(to, tv::portable::CurrencyText(from.cyVal.int64));
    case VT_DATE:
        return VarBstrFromDate(from.date, LOCALE_USER_DEFAULT, 0, &to->bstrVal);
    default:
        break;
    }
    const std::optional<Number> number = NumberOf(from);
    return number ? SetText(to, WholeText(*number)) : DISP_E_TYPEMISMATCH;
}

bool IsObject(VARTYPE type)
{
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

constexpr GUID kUnknownId = {0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr GUID kDispatchId = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr GUID kNoId = {};

HRESULT ChangeObject(VARIANT* to, const VARIANT& from, VARTYPE type)
{
    if (from.punkVal == nullptr) {
        to->punkVal = nullptr;
        return S_OK;
    }
    void* other = nullptr;
    const HRESULT result = from.punkVal->QueryInterface(type == VT_DISPATCH ? kDispatchId : kUnknownId, &other);
    to->punkVal = static_cast<IUnknown*>(other);
    return result;
}

/// An object stands for the value of its default property.
HRESULT ChangeDefaultValue(VARIANT* to, const VARIANT& from, USHORT flags, VARTYPE type)
{
    if (from.vt != VT_DISPATCH || (flags & VARIANT_NOVALUEPROP) != 0) {
        return DISP_E_TYPEMISMATCH;
    }
    if (from.pdispVal == nullptr) {
        return DISP_E_BADVARTYPE;
    }
    DISPPARAMS none{};
    VARIANT value;
    VariantInit(&value);
    HRESULT result = from.pdispVal->Invoke(DISPID_VALUE, kNoId, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                           &value, nullptr, nullptr);
    result = FAILED(result) ? DISP_E_TYPEMISMATCH : VariantChangeType(to, &value, flags, type);
    VariantClear(&value);
    return result;
}

bool IsTarget(VARTYPE type)
{
    switch (type) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_VARIANT:
    case VT_ERROR:
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return true;
    default:
        VARIANT probe;
        return StoreNumber(&probe, type, Number(int64_t{0})) != DISP_E_BADVARTYPE;
    }
}

/// Changes a value that is no reference and of another kind than the wanted one.
HRESULT Change(VARIANT* to, const VARIANT& from, USHORT flags, VARTYPE type)
{
    if (type == VT_EMPTY || type == VT_NULL) {
        return from.vt == VT_NULL || from.vt == VT_ERROR ? DISP_E_TYPEMISMATCH : S_OK;
    }
    if (type == VT_ERROR || type == VT_VARIANT || from.vt == VT_NULL || from.vt == VT_ERROR) {
        return DISP_E_TYPEMISMATCH;
    }
    if (IsObject(from.vt) && IsObject(type)) {
        return ChangeObject(to, from, type);
    }
    if (IsObject(from.vt)) {
        return ChangeDefaultValue(to, from, flags, type);
    }
    if (type == VT_BSTR) {
        return ChangeToText(to, from, flags);
    }
    if (from.vt == VT_BSTR && !IsObject(type)) {
        return ChangeText(to, ViewOf(from.bstrVal), type);
    }
    if (from.vt == VT_BOOL && StoreTruthAsBits(to, type, from.boolVal)) {
        return S_OK;
    }
    const std::optional<Number> number = NumberOf(from);
    const HRESULT result = number ? StoreNumber(to, type, *number) : DISP_E_TYPEMISMATCH;
    return result == DISP_E_BADVARTYPE ? DISP_E_TYPEMISMATCH : result;
}

HRESULT ChangeValue(VARIANT* to, const VARIANT& from, USHORT flags, VARTYPE type)
{
    if (from.vt == type) {
        return VariantCopy(to, &from);
    }
    if (((from.vt | type) & (VT_ARRAY | VT_BYREF)) != 0) {
        return DISP_E_TYPEMISMATCH;
    }
    if (!IsTarget(type)) {
        return DISP_E_BADVARTYPE;
    }
    const HRESULT result = Change(to, from, flags, type);
    if (FAILED(result)) {
        VariantInit(to);
        return result;
    }
    to->vt = type;
    return result;
}

} // namespace

HRESULT VariantChangeType(VARIANT* to, const VARIANT* from, USHORT flags, VARTYPE type)
{
    VARIANT value;
    VariantInit(&value);
    HRESULT result = VariantCopyInd(&value, from);
    VARIANT changed;
    VariantInit(&changed);
    if (SUCCEEDED(result)) {
        result = ChangeValue(&changed, value, flags, type);
    }
    VariantClear(&value);
    if (SUCCEEDED(result)) {
        result = VariantClear(to);
        if (SUCCEEDED(result)) {
            *to = changed;
            return result;
        }
        VariantClear(&changed);
    }
    return result;
}

HRESULT VarBstrFromDate(DATE date, LCID, ULONG flags, BSTR* text)
{
    constexpr ULONG kTimeOnly = 1;
    constexpr ULONG kDateOnly = 2;
    using tv::portable::DateParts;
    if (text == nullptr) {
        return E_INVALIDARG;
    }
    *text = nullptr;
    const DateParts parts = (flags & kTimeOnly) != 0   ? DateParts::TimeOnly
                            : (flags & kDateOnly) != 0 ? DateParts::DateOnly
                                                       : DateParts::All;
    const std::optional<std::u16string> written = tv::portable::DateText(date, parts);
    if (!written) {
        return E_INVALIDARG;
    }
    *text = SysAllocStringLen(written->data(), static_cast<UINT>(written->size()));
    return *text == nullptr ? E_OUTOFMEMORY : S_OK;
}
