#include "com/variant.h"

#include "com/result.h"

#include <cstring>

namespace tv {

namespace {

// Some headers of the system declare the source of a conversion as changeable although nothing changes it.
VARIANT* Source(const VARIANT& value)
{
    return const_cast<VARIANT*>(&value);
}

Variant Converted(const VARIANT& value, VARTYPE type)
{
    Variant result;
    ThrowIfFailed(VariantChangeType(result.get(), Source(value), 0, type));
    return result;
}

} // namespace

Variant::Variant(const Variant& other) : Variant()
{
    ThrowIfFailed(VariantCopy(&value, Source(other.value)));
}

Variant::Variant(Variant&& other) noexcept : Variant()
{
    std::swap(value, other.value);
}

Variant& Variant::operator=(Variant other) noexcept
{
    std::swap(value, other.value);
    return *this;
}

Variant Variant::FromInt(int32_t number)
{
    Variant result;
    result.value.vt = VT_I4;
    result.value.lVal = number;
    return result;
}

Variant Variant::FromFloat(float number)
{
    Variant result;
    result.value.vt = VT_R4;
    result.value.fltVal = number;
    return result;
}

Variant Variant::FromDouble(double number)
{
    Variant result;
    result.value.vt = VT_R8;
    result.value.dblVal = number;
    return result;
}

Variant Variant::FromDate(double date)
{
    Variant result;
    result.value.vt = VT_DATE;
    result.value.date = date;
    return result;
}

Variant Variant::FromBool(bool truth)
{
    Variant result;
    result.value.vt = VT_BOOL;
    result.value.boolVal = truth ? kVariantTrue : kVariantFalse;
    return result;
}

Variant Variant::FromText(std::u16string_view text)
{
    Variant result;
    result.value.bstrVal = reinterpret_cast<BSTR>(AllocateText(text));
    result.value.vt = VT_BSTR;
    return result;
}

Variant Variant::FromUnknown(IUnknown* object)
{
    Variant result;
    result.value.vt = VT_UNKNOWN;
    result.value.punkVal = ComPtr<IUnknown>::Share(object).release();
    return result;
}

Variant Variant::FromDispatch(IDispatch* object)
{
    Variant result;
    result.value.vt = VT_DISPATCH;
    result.value.pdispVal = ComPtr<IDispatch>::Share(object).release();
    return result;
}

Variant Variant::FromArray(SAFEARRAY* owned, VARTYPE elementType)
{
    Variant result;
    result.value.vt = static_cast<VARTYPE>(VT_ARRAY | elementType);
    result.value.parray = owned;
    return result;
}

Variant Variant::Copy(const VARIANT& borrowed)
{
    Variant result;
    ThrowIfFailed(VariantCopyInd(&result.value, Source(borrowed)));
    return result;
}

VARIANT* Variant::put()
{
    VariantClear(&value);
    return &value;
}

void Variant::MoveTo(VARIANT* to)
{
    *to = value;
    VariantInit(&value);
}

Result Variant::ChangeType(VARTYPE type)
{
    Variant changed;
    const Result result = VariantChangeType(changed.get(), &value, 0, type);
    if (result >= 0) {
        *this = std::move(changed);
    }
    return result;
}

int32_t Variant::ToInt() const
{
    return static_cast<int32_t>(Converted(value, VT_I4).value.lVal);
}

double Variant::ToDouble() const
{
    return Converted(value, VT_R8).value.dblVal;
}

bool Variant::ToBool() const
{
    return Converted(value, VT_BOOL).value.boolVal != kVariantFalse;
}

std::u16string Variant::ToText() const
{
    const Variant text = Converted(value, VT_BSTR);
    return std::u16string(TextOf(reinterpret_cast<BStr>(text.value.bstrVal)));
}

} // namespace tv
