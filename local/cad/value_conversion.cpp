#include "cad/value_conversion.h"

#include "cad/dispatch_object.h"
#include "com/safe_array.h"

namespace tv::app {

namespace {

using macro::Type;
using macro::Value;

Variant ArrayToVariant(const Value& value)
{
    const macro::Ref<macro::Array> array = value.ToArray();
    if (array->dimensions.size() > 1) {
        throw macro::MacroError(macro::kTypeNotSupported);
    }
    SafeArray out = SafeArray::Vector(VT_VARIANT, static_cast<uint32_t>(array->items.size()));
    {
        SafeArrayView<VARIANT> elements(out.get());
        for (size_t i = 0; i < array->items.size(); ++i) {
            ToVariant(array->items[i]).MoveTo(&elements[i]);
        }
    }
    return Variant::FromArray(out.release(), VT_VARIANT);
}

template <typename Element, typename Convert> Value ElementsToArray(SAFEARRAY* array, Convert convert)
{
    SafeArrayView<Element> elements(array);
    std::vector<Value> values;
    values.reserve(elements.size());
    for (const Element& element : elements) {
        values.push_back(convert(element));
    }
    return Value(macro::Array::FromValues(std::move(values)));
}

Value ArrayFromVariant(VARTYPE elementType, SAFEARRAY* array)
{
    if (array == nullptr || SafeArrayGetDim(array) != 1) {
        throw macro::MacroError(macro::kTypeNotSupported);
    }
    switch (elementType) {
    case VT_VARIANT:
        return ElementsToArray<VARIANT>(array, [](const VARIANT& element) { return FromVariant(element); });
    case VT_BSTR:
        return ElementsToArray<BStr>(array, [](BStr element) { return Value(TextOf(element)); });
    case VT_I2:
        return ElementsToArray<int16_t>(array, [](int16_t element) { return Value(element); });
    case VT_I4:
        return ElementsToArray<int32_t>(array, [](int32_t element) { return Value(element); });
    case VT_R8:
        return ElementsToArray<double>(array, [](double element) { return Value(element); });
    case VT_BOOL:
        return ElementsToArray<VariantBool>(array, [](VariantBool element) { return Value(element != 0); });
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return ElementsToArray<IUnknown*>(array, [](IUnknown* element) {
            return element == nullptr ? Value::Nothing() : FromVariant(*Variant::FromUnknown(element).get());
        });
    default:
        throw macro::MacroError(macro::kTypeNotSupported);
    }
}

Value FromObject(IUnknown* object)
{
    if (object == nullptr) {
        return Value::Nothing();
    }
    const macro::Ref<macro::Object> own = ObjectBehind(object);
    if (!own) {
        throw macro::MacroError(macro::kTypeNotSupported);
    }
    return Value(own);
}

} // namespace

Variant ToVariant(const Value& given)
{
    const Value& value = given.Resolved();
    Variant out;
    switch (value.Kind()) {
    case Type::Empty:
        return out;
    case Type::Null:
        out.get()->vt = VT_NULL;
        return out;
    case Type::Byte:
        out.get()->vt = VT_UI1;
        out.get()->bVal = static_cast<uint8_t>(value.Whole());
        return out;
    case Type::Integer:
        out.get()->vt = VT_I2;
        out.get()->iVal = static_cast<int16_t>(value.Whole());
        return out;
    case Type::Long:
        return Variant::FromInt(static_cast<int32_t>(value.Whole()));
    case Type::LongLong:
        out.get()->vt = VT_I8;
        out.get()->llVal = value.Whole();
        return out;
    case Type::Single:
        return Variant::FromFloat(static_cast<float>(value.Number()));
    case Type::Double:
        return Variant::FromDouble(value.Number());
    case Type::Currency:
        out.get()->vt = VT_CY;
        out.get()->cyVal.int64 = value.Whole();
        return out;
    case Type::Date:
        return Variant::FromDate(value.Number());
    case Type::String:
        return Variant::FromText(value.Text());
    case Type::Boolean:
        return Variant::FromBool(value.Truth());
    case Type::Error:
        out.get()->vt = VT_ERROR;
        out.get()->scode = static_cast<SCODE>(value.Whole());
        return out;
    case Type::Object: {
        const macro::Ref<macro::Object> object = value.ToObject();
        out.get()->vt = VT_DISPATCH;
        out.get()->pdispVal = object ? DispatchFor(object).release() : nullptr;
        return out;
    }
    case Type::Array:
        return ArrayToVariant(value);
    default:
        throw macro::MacroError(macro::kTypeNotSupported);
    }
}

Value FromVariant(const VARIANT& given)
{
    const Variant copy = Variant::Copy(given);
    const VARIANT& value = *copy.get();
    if ((value.vt & VT_ARRAY) != 0) {
        return ArrayFromVariant(static_cast<VARTYPE>(value.vt & VT_TYPEMASK), value.parray);
    }
    switch (value.vt) {
    case VT_EMPTY:
        return Value();
    case VT_NULL:
        return Value::Null();
    case VT_I1:
        return Value(static_cast<int16_t>(static_cast<int8_t>(value.cVal)));
    case VT_UI1:
        return Value::FromByte(value.bVal);
    case VT_I2:
        return Value(static_cast<int16_t>(value.iVal));
    case VT_UI2:
        return Value(static_cast<int32_t>(value.uiVal));
    case VT_I4:
    case VT_INT:
        return Value(static_cast<int32_t>(value.lVal));
    case VT_UI4:
    case VT_UINT:
        return Value(static_cast<int64_t>(value.ulVal));
    case VT_I8:
        return Value(static_cast<int64_t>(value.llVal));
    case VT_R4:
        return Value(value.fltVal);
    case VT_R8:
        return Value(value.dblVal);
    case VT_CY:
        return Value::FromCurrency(value.cyVal.int64);
    case VT_DATE:
        return Value::FromDate(value.date);
    case VT_BSTR:
        return Value(TextOf(reinterpret_cast<BStr>(value.bstrVal)));
    case VT_BOOL:
        return Value(value.boolVal != 0);
    case VT_ERROR:
        return value.scode == DISP_E_PARAMNOTFOUND ? Value::Missing()
                                                   : Value::FromError(static_cast<int32_t>(value.scode));
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return FromObject(value.punkVal);
    default:
        throw macro::MacroError(macro::kTypeNotSupported);
    }
}

void WriteBack(VARIANT& reference, const Value& value)
{
    if ((reference.vt & VT_BYREF) == 0) {
        return;
    }
    const auto kind = static_cast<VARTYPE>(reference.vt & ~static_cast<int>(VT_BYREF));
    if (kind == VT_VARIANT) {
        VariantClear(reference.pvarVal);
        ToVariant(value).MoveTo(reference.pvarVal);
        return;
    }
    switch (kind) {
    case VT_I2:
        *reference.piVal = value.ToInteger();
        break;
    case VT_I4:
    case VT_INT:
        *reference.plVal = value.ToLong();
        break;
    case VT_BOOL:
        *reference.pboolVal = value.ToBoolean() ? kVariantTrue : kVariantFalse;
        break;
    case VT_BSTR: {
        BStr text = AllocateText(value.ToText());
        SysFreeString(*reference.pbstrVal);
        *reference.pbstrVal = reinterpret_cast<BSTR>(text);
        break;
    }
    default:
        throw macro::MacroError(macro::kTypeNotSupported);
    }
}

} // namespace tv::app
