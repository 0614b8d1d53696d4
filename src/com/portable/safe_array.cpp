// One-dimensional safe arrays.
#include "com/base.h"

#include <cstdlib>
#include <limits>

namespace {

// What the array knows beside its public header stands right before that header: the description of its records or,
// in the last four bytes, the kind of its elements.
constexpr size_t kHidden = 16;

/// One kind of element: its size, and the feature that tells how to free it.
struct ElementKind
{
    VARTYPE type;
    uint32_t size;
    USHORT feature;
};

constexpr ElementKind kElementKinds[] = {
    {VT_I1, 1, FADF_HAVEVARTYPE},
    {VT_UI1, 1, FADF_HAVEVARTYPE},
    {VT_I2, 2, FADF_HAVEVARTYPE},
    {VT_UI2, 2, FADF_HAVEVARTYPE},
    {VT_BOOL, 2, FADF_HAVEVARTYPE},
    {VT_I4, 4, FADF_HAVEVARTYPE},
    {VT_UI4, 4, FADF_HAVEVARTYPE},
    {VT_INT, 4, FADF_HAVEVARTYPE},
    {VT_UINT, 4, FADF_HAVEVARTYPE},
    {VT_R4, 4, FADF_HAVEVARTYPE},
    {VT_ERROR, 4, FADF_HAVEVARTYPE},
    {VT_I8, 8, FADF_HAVEVARTYPE},
    {VT_UI8, 8, FADF_HAVEVARTYPE},
    {VT_R8, 8, FADF_HAVEVARTYPE},
    {VT_CY, 8, FADF_HAVEVARTYPE},
    {VT_DATE, 8, FADF_HAVEVARTYPE},
    {VT_BSTR, sizeof(BSTR), FADF_BSTR | FADF_HAVEVARTYPE},
    {VT_UNKNOWN, sizeof(void*), FADF_UNKNOWN | FADF_HAVEIID},
    {VT_DISPATCH, sizeof(void*), FADF_DISPATCH | FADF_HAVEIID},
    {VT_VARIANT, sizeof(VARIANT), FADF_VARIANT | FADF_HAVEVARTYPE},
};

const ElementKind* FindKind(VARTYPE type)
{
    for (const ElementKind& kind : kElementKinds) {
        if (kind.type == type) {
            return &kind;
        }
    }
    return nullptr;
}

char* BlockOf(SAFEARRAY* array)
{
    return reinterpret_cast<char*>(array) - kHidden;
}

void SetType(SAFEARRAY* array, VARTYPE type)
{
    const uint32_t wide = type;
    std::memcpy(reinterpret_cast<char*>(array) - sizeof(wide), &wide, sizeof(wide));
}

VARTYPE TypeOf(SAFEARRAY* array)
{
    uint32_t wide = 0;
    std::memcpy(&wide, reinterpret_cast<char*>(array) - sizeof(wide), sizeof(wide));
    return static_cast<VARTYPE>(wide);
}

void SetDescription(SAFEARRAY* array, IRecordInfo* description)
{
    std::memcpy(reinterpret_cast<char*>(array) - sizeof(description), &description, sizeof(description));
}

IRecordInfo* DescriptionOf(SAFEARRAY* array)
{
    IRecordInfo* description = nullptr;
    std::memcpy(&description, reinterpret_cast<char*>(array) - sizeof(description), sizeof(description));
    return description;
}

char* ElementAt(SAFEARRAY* array, uint32_t position)
{
    return static_cast<char*>(array->pvData) + size_t{position} * array->cbElements;
}

bool IsObjectArray(const SAFEARRAY* array)
{
    return (array->fFeatures & (FADF_UNKNOWN | FADF_DISPATCH)) != 0;
}

void ClearElement(SAFEARRAY* array, char* element)
{
    if ((array->fFeatures & FADF_BSTR) != 0) {
        BSTR& text = *reinterpret_cast<BSTR*>(element);
        SysFreeString(text);
        text = nullptr;
    } else if (IsObjectArray(array)) {
        IUnknown*& object = *reinterpret_cast<IUnknown**>(element);
        if (object != nullptr) {
            object->Release();
        }
        object = nullptr;
    } else if ((array->fFeatures & FADF_VARIANT) != 0) {
        VariantClear(reinterpret_cast<VARIANT*>(element));
    } else if ((array->fFeatures & FADF_RECORD) != 0) {
        DescriptionOf(array)->RecordClear(element);
    }
}

/// Puts a copy of its own of `from` into `to`, which holds nothing to be freed.
HRESULT CopyIntoEmpty(SAFEARRAY* array, const char* from, char* to)
{
    if ((array->fFeatures & FADF_BSTR) != 0) {
        const BSTR text = *reinterpret_cast<const BSTR*>(from);
        const BSTR copy = text == nullptr ? nullptr : SysAllocStringLen(text, SysStringLen(text));
        *reinterpret_cast<BSTR*>(to) = copy;
        return text != nullptr && copy == nullptr ? E_OUTOFMEMORY : S_OK;
    }
    if ((array->fFeatures & FADF_VARIANT) != 0) {
        VariantInit(reinterpret_cast<VARIANT*>(to));
        return VariantCopy(reinterpret_cast<VARIANT*>(to), reinterpret_cast<const VARIANT*>(from));
    }
    if ((array->fFeatures & FADF_RECORD) != 0) {
        return DescriptionOf(array)->RecordCopy(const_cast<char*>(from), to);
    }
    std::memcpy(to, from, array->cbElements);
    if (IsObjectArray(array) && *reinterpret_cast<IUnknown**>(to) != nullptr) {
        (*reinterpret_cast<IUnknown**>(to))->AddRef();
    }
    return S_OK;
}

HRESULT FindElement(SAFEARRAY* array, const LONG* index, char** element)
{
    const int64_t position = int64_t{*index} - array->rgsabound[0].lLbound;
    if (position < 0 || position >= int64_t{array->rgsabound[0].cElements}) {
        return DISP_E_BADINDEX;
    }
    *element = ElementAt(array, static_cast<uint32_t>(position));
    return S_OK;
}

SAFEARRAY* MakeVector(USHORT features, uint32_t size, LONG lowerBound, ULONG count)
{
    if (int64_t{lowerBound} + count - 1 > std::numeric_limits<LONG>::max()) {
        return nullptr;
    }
    char* block = static_cast<char*>(std::calloc(1, kHidden + sizeof(SAFEARRAY)));
    void* data = std::calloc(count == 0 ? 1 : count, size);
    if (block == nullptr || data == nullptr) {
        std::free(block);
        std::free(data);
        return nullptr;
    }
    SAFEARRAY* array = reinterpret_cast<SAFEARRAY*>(block + kHidden);
    array->cDims = 1;
    array->fFeatures = features;
    array->cbElements = size;
    array->pvData = data;
    array->rgsabound[0] = {count, lowerBound};
    return array;
}

SAFEARRAY* MakeRecordVector(IRecordInfo* description, LONG lowerBound, ULONG count)
{
    ULONG size = 0;
    if (description == nullptr || description->GetSize(&size) < 0 || size == 0) {
        return nullptr;
    }
    SAFEARRAY* array = MakeVector(FADF_RECORD, size, lowerBound, count);
    if (array != nullptr) {
        description->AddRef();
        SetDescription(array, description);
    }
    return array;
}

SAFEARRAY* MakeLike(SAFEARRAY* array)
{
    const SAFEARRAYBOUND bound = array->rgsabound[0];
    return (array->fFeatures & FADF_RECORD) != 0
               ? MakeRecordVector(DescriptionOf(array), bound.lLbound, bound.cElements)
               : SafeArrayCreateVector(TypeOf(array), bound.lLbound, bound.cElements);
}

} // namespace

SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count)
{
    return type == VT_RECORD ? nullptr : SafeArrayCreateVectorEx(type, lowerBound, count, nullptr);
}

SAFEARRAY* SafeArrayCreateVectorEx(VARTYPE type, LONG lowerBound, ULONG count, PVOID extra)
{
    if (type == VT_RECORD) {
        return MakeRecordVector(static_cast<IRecordInfo*>(extra), lowerBound, count);
    }
    const ElementKind* kind = FindKind(type);
    if (kind == nullptr) {
        return nullptr;
    }
    SAFEARRAY* array = MakeVector(kind->feature, kind->size, lowerBound, count);
    if (array != nullptr) {
        SetType(array, type);
    }
    return array;
}

HRESULT SafeArrayDestroy(SAFEARRAY* array)
{
    if (array == nullptr) {
        return S_OK;
    }
    if (array->cLocks != 0) {
        return DISP_E_ARRAYISLOCKED;
    }
    for (uint32_t i = 0; i < array->rgsabound[0].cElements; ++i) {
        ClearElement(array, ElementAt(array, i));
    }
    if ((array->fFeatures & FADF_RECORD) != 0) {
        DescriptionOf(array)->Release();
    }
    std::free(array->pvData);
    std::free(BlockOf(array));
    return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy)
{
    if (copy == nullptr) {
        return E_INVALIDARG;
    }
    *copy = nullptr;
    if (array == nullptr) {
        return S_OK;
    }
    SAFEARRAY* made = MakeLike(array);
    if (made == nullptr) {
        return E_OUTOFMEMORY;
    }
    for (uint32_t i = 0; i < array->rgsabound[0].cElements; ++i) {
        const HRESULT result = CopyIntoEmpty(array, ElementAt(array, i), ElementAt(made, i));
        if (FAILED(result)) {
            SafeArrayDestroy(made);
            return result;
        }
    }
    *copy = made;
    return S_OK;
}

HRESULT SafeArrayLock(SAFEARRAY* array)
{
    if (array == nullptr) {
        return E_INVALIDARG;
    }
    // Windows counts to this and no further.
    constexpr ULONG kMostLocks = 0xFFFF;
    if (array->cLocks >= kMostLocks) {
        return E_UNEXPECTED;
    }
    ++array->cLocks;
    return S_OK;
}

HRESULT SafeArrayUnlock(SAFEARRAY* array)
{
    if (array == nullptr) {
        return E_INVALIDARG;
    }
    if (array->cLocks == 0) {
        return E_UNEXPECTED;
    }
    --array->cLocks;
    return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data)
{
    if (array == nullptr || data == nullptr) {
        return E_INVALIDARG;
    }
    const HRESULT result = SafeArrayLock(array);
    *data = SUCCEEDED(result) ? array->pvData : nullptr;
    return result;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY* array)
{
    return SafeArrayUnlock(array);
}

UINT SafeArrayGetDim(SAFEARRAY* array)
{
    return array == nullptr ? 0 : array->cDims;
}

UINT SafeArrayGetElemsize(SAFEARRAY* array)
{
    return array == nullptr ? 0 : array->cbElements;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound)
{
    if (array == nullptr || bound == nullptr) {
        return E_INVALIDARG;
    }
    if (dimension != 1) {
        return DISP_E_BADINDEX;
    }
    *bound = array->rgsabound[0].lLbound;
    return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound)
{
    if (array == nullptr || bound == nullptr) {
        return E_INVALIDARG;
    }
    if (dimension != 1) {
        return DISP_E_BADINDEX;
    }
    *bound = static_cast<LONG>(int64_t{array->rgsabound[0].lLbound} + array->rgsabound[0].cElements - 1);
    return S_OK;
}

HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type)
{
    if (array == nullptr || type == nullptr) {
        return E_INVALIDARG;
    }
    *type = (array->fFeatures & FADF_RECORD) != 0 ? static_cast<VARTYPE>(VT_RECORD) : TypeOf(array);
    return S_OK;
}

HRESULT SafeArrayGetRecordInfo(SAFEARRAY* array, IRecordInfo** info)
{
    if (array == nullptr || info == nullptr || (array->fFeatures & FADF_RECORD) == 0) {
        return E_INVALIDARG;
    }
    *info = DescriptionOf(array);
    (*info)->AddRef();
    return S_OK;
}

HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* index, void* element)
{
    if (array == nullptr || index == nullptr || element == nullptr) {
        return E_INVALIDARG;
    }
    char* place = nullptr;
    const HRESULT result = FindElement(array, index, &place);
    return FAILED(result) ? result : CopyIntoEmpty(array, place, static_cast<char*>(element));
}

HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* index, void* element)
{
    if (array == nullptr || index == nullptr) {
        return E_INVALIDARG;
    }
    char* place = nullptr;
    const HRESULT result = FindElement(array, index, &place);
    if (FAILED(result)) {
        return result;
    }
    // Texts and objects are passed as they are, everything else by its address.
    const bool byPointer = (array->fFeatures & FADF_BSTR) != 0 || IsObjectArray(array);
    if (!byPointer && element == nullptr) {
        return E_INVALIDARG;
    }
    const char* source = byPointer ? reinterpret_cast<const char*>(&element) : static_cast<const char*>(element);
    if ((array->fFeatures & FADF_RECORD) != 0) {
        return DescriptionOf(array)->RecordCopy(element, place);
    }
    alignas(8) char copy[sizeof(VARIANT)] = {};
    const HRESULT copied = CopyIntoEmpty(array, source, copy);
    if (SUCCEEDED(copied)) {
        ClearElement(array, place);
        std::memcpy(place, copy, array->cbElements);
    }
    return copied;
}
