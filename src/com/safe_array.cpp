#include "com/safe_array.h"

namespace tv {

namespace {

Result ThrowWithWords(Result result, std::u16string_view words)
{
    if (result < 0) {
        throw ResultError(result, std::u16string(words));
    }
    return result;
}

uint32_t CountBetweenBounds(SAFEARRAY* array)
{
    LONG lower = 0;
    ThrowWithWords(SafeArrayGetLBound(array, 1, &lower), u"Could not get lower bound of array");
    LONG upper = 0;
    ThrowWithWords(SafeArrayGetUBound(array, 1, &upper), u"Could not get upper bound of array");
    return static_cast<uint32_t>(int64_t{upper} - lower + 1);
}

} // namespace

SafeArray SafeArray::Adopt(SAFEARRAY* owned)
{
    SafeArray result;
    result.array = owned;
    return result;
}

SafeArray SafeArray::Vector(VARTYPE type, uint32_t count)
{
    SAFEARRAY* made = SafeArrayCreateVector(type, 0, count);
    if (made == nullptr) {
        throw ResultError(E_OUTOFMEMORY);
    }
    return Adopt(made);
}

void SafeArray::reset()
{
    if (SAFEARRAY* old = std::exchange(array, nullptr)) {
        SafeArrayDestroy(old);
    }
}

uint32_t LockArray(SAFEARRAY* array, void** data)
{
    // The bounds of a table's first dimension say nothing about how its elements lie in memory.
    if (array != nullptr && SafeArrayGetDim(array) != 1) {
        throw ResultError(DISP_E_TYPEMISMATCH);
    }
    ThrowWithWords(SafeArrayAccessData(array, data), u"Could not lock safe array.");
    try {
        return CountBetweenBounds(array);
    } catch (...) {
        UnlockArray(array);
        throw;
    }
}

void UnlockArray(SAFEARRAY* array)
{
    SafeArrayUnaccessData(array);
}

} // namespace tv
