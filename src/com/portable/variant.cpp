// Life of variants: what is freed, shared and copied with a value.
#include "com/base.h"

namespace {

constexpr VARTYPE kHighestPlainType = VT_UINT;
constexpr VARTYPE kUnusedType = 15;

bool IsReference(const VARIANT& value)
{
    return (value.vt & VT_BYREF) != 0;
}

bool IsArray(const VARIANT& value)
{
    return (value.vt & VT_ARRAY) != 0;
}

/// Whether the type code names a kind of value at all.
bool IsKnownType(VARTYPE vt)
{
    const int type = vt & VT_TYPEMASK;
    const int flags = vt & ~VT_TYPEMASK;
    if ((flags & ~(VT_ARRAY | VT_BYREF)) != 0) {
        return false;
    }
    if (type == VT_RECORD || type == VT_VARIANT) {
        return flags != 0 || type == VT_RECORD;
    }
    const bool known = type <= kHighestPlainType && type != kUnusedType && type != VT_DECIMAL;
    return known && (flags == 0 || type > VT_NULL);
}

HRESULT CopyRecord(VARIANT* to, const VARIANT* from)
{
    PVOID copy = nullptr;
    if (from->pRecInfo != nullptr && from->pvRecord != nullptr) {
        const HRESULT result = from->pRecInfo->RecordCreateCopy(from->pvRecord, &copy);
        if (FAILED(result)) {
            return result;
        }
    }
    to->pvRecord = copy;
    to->pRecInfo = from->pRecInfo;
    if (to->pRecInfo != nullptr) {
        to->pRecInfo->AddRef();
    }
    return S_OK;
}

HRESULT CopyText(VARIANT* to, BSTR text)
{
    to->bstrVal = text == nullptr ? nullptr : SysAllocStringLen(text, SysStringLen(text));
    return text != nullptr && to->bstrVal == nullptr ? E_OUTOFMEMORY : S_OK;
}

void AddRefIfAny(IUnknown* object)
{
    if (object != nullptr) {
        object->AddRef();
    }
}

/// Gives `copy`, which is a plain copy of `from`, what it has to own.
HRESULT OwnContents(VARIANT* copy, const VARIANT* from)
{
    if (IsReference(*from)) {
        return S_OK;
    }
    if (IsArray(*from)) {
        return SafeArrayCopy(from->parray, &copy->parray);
    }
    switch (from->vt) {
    case VT_BSTR:
        return CopyText(copy, from->bstrVal);
    case VT_DISPATCH:
    case VT_UNKNOWN:
        AddRefIfAny(from->punkVal);
        return S_OK;
    case VT_RECORD:
        return CopyRecord(copy, from);
    default:
        return S_OK;
    }
}

/// Bytes of the value that a reference of this kind points at.
size_t ReferencedSize(VARTYPE type)
{
    switch (type) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        return 4;
    default:
        return 8;
    }
}

/// Sets `value` to what the reference `from` points at, still owned by its owner.
HRESULT Follow(VARIANT* value, const VARIANT* from)
{
    const VARTYPE type = static_cast<VARTYPE>(from->vt & ~VT_BYREF);
    if (from->byref == nullptr) {
        return E_INVALIDARG;
    }
    if (type == VT_VARIANT) {
        // A reference to a reference to a value is one step too far, in Windows too.
        if (from->pvarVal->vt == (VT_VARIANT | VT_BYREF)) {
            return E_INVALIDARG;
        }
        if (IsReference(*from->pvarVal)) {
            return Follow(value, from->pvarVal);
        }
        *value = *from->pvarVal;
        return S_OK;
    }
    if (type == VT_RECORD) {
        *value = *from;
        value->vt = VT_RECORD;
        return S_OK;
    }
    VariantInit(value);
    value->vt = type;
    std::memcpy(&value->llVal, from->byref, IsArray(*value) ? sizeof(void*) : ReferencedSize(type));
    return S_OK;
}

} // namespace

void VariantInit(VARIANT* value)
{
    std::memset(static_cast<void*>(value), 0, sizeof(*value));
}

HRESULT VariantClear(VARIANT* value)
{
    if (!IsKnownType(value->vt)) {
        return DISP_E_BADVARTYPE;
    }
    if (!IsReference(*value)) {
        if (IsArray(*value)) {
            const HRESULT result = SafeArrayDestroy(value->parray);
            if (FAILED(result)) {
                return result;
            }
        } else if (value->vt == VT_BSTR) {
            SysFreeString(value->bstrVal);
        } else if (value->vt == VT_DISPATCH || value->vt == VT_UNKNOWN) {
            if (value->punkVal != nullptr) {
                value->punkVal->Release();
            }
        } else if (value->vt == VT_RECORD && value->pRecInfo != nullptr) {
            if (value->pvRecord != nullptr) {
                value->pRecInfo->RecordDestroy(value->pvRecord);
            }
            value->pRecInfo->Release();
        }
    }
    VariantInit(value);
    return S_OK;
}

HRESULT VariantCopy(VARIANT* to, const VARIANT* from)
{
    if (!IsKnownType(from->vt)) {
        return DISP_E_BADVARTYPE;
    }
    if (to == from) {
        return S_OK;
    }
    const HRESULT cleared = VariantClear(to);
    if (FAILED(cleared)) {
        return cleared;
    }
    VARIANT copy = *from;
    const HRESULT result = OwnContents(&copy, from);
    if (SUCCEEDED(result)) {
        *to = copy;
    }
    return result;
}

HRESULT VariantCopyInd(VARIANT* to, const VARIANT* from)
{
    if (!IsKnownType(from->vt)) {
        return DISP_E_BADVARTYPE;
    }
    if (!IsReference(*from)) {
        return VariantCopy(to, from);
    }
    VARIANT followed;
    const HRESULT result = Follow(&followed, from);
    if (FAILED(result)) {
        return result;
    }
    VARIANT copy;
    VariantInit(&copy);
    const HRESULT copied = VariantCopy(&copy, &followed);
    if (FAILED(copied)) {
        return copied;
    }
    // Only now: the reference may point into the place that the copy goes to.
    const HRESULT cleared = VariantClear(to);
    if (FAILED(cleared)) {
        VariantClear(&copy);
        return cleared;
    }
    *to = copy;
    return S_OK;
}
