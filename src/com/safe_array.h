// Safe arrays: an owner, and a scoped lock that shows the elements as a span.
#pragma once

#include "com/base.h"
#include "com/result.h"

#include <span>
#include <utility>

namespace tv {

/// Owns one safe array.
class SafeArray
{
  public:
    SafeArray() = default;
    SafeArray(SafeArray&& other) noexcept : array(std::exchange(other.array, nullptr)) {}
    ~SafeArray() { reset(); }
    SafeArray& operator=(SafeArray&& other) noexcept
    {
        std::swap(array, other.array);
        return *this;
    }

    static SafeArray Adopt(SAFEARRAY* owned);
    /// A one-dimensional array from index 0 of a plain kind, such as VT_I4, VT_BSTR or VT_VARIANT. Raises E_OUTOFMEMORY.
    static SafeArray Vector(VARTYPE type, uint32_t count);

    SAFEARRAY* get() const { return array; }
    SAFEARRAY** put()
    {
        reset();
        return &array;
    }
    SAFEARRAY* release() { return std::exchange(array, nullptr); }
    void reset();
    explicit operator bool() const { return array != nullptr; }

  private:
    SAFEARRAY* array = nullptr;
};

/// Raises a failure with the words "Could not lock safe array.", "Could not get lower bound of array" or
/// "Could not get upper bound of array"; otherwise returns the number of elements and holds the lock.
uint32_t LockArray(SAFEARRAY* array, void** data);
void UnlockArray(SAFEARRAY* array);

/// Holds the lock of a one-dimensional array and shows its elements. The element size must be that of Element
/// (DISP_E_TYPEMISMATCH otherwise). A null array shows nothing.
template <typename Element>
class SafeArrayView
{
  public:
    explicit SafeArrayView(SAFEARRAY* borrowed) : array(borrowed)
    {
        if (array == nullptr) {
            return;
        }
        if (SafeArrayGetElemsize(array) != sizeof(Element)) {
            throw ResultError(DISP_E_TYPEMISMATCH);
        }
        void* data = nullptr;
        const uint32_t count = LockArray(array, &data);
        elements = std::span<Element>(static_cast<Element*>(data), count);
    }
    SafeArrayView(const SafeArrayView&) = delete;
    SafeArrayView& operator=(const SafeArrayView&) = delete;
    ~SafeArrayView()
    {
        if (array != nullptr) {
            UnlockArray(array);
        }
    }

    std::span<Element> Elements() const { return elements; }
    auto begin() const { return elements.begin(); }
    auto end() const { return elements.end(); }
    size_t size() const { return elements.size(); }
    Element& operator[](size_t index) const { return elements[index]; }

  private:
    SAFEARRAY* array;
    std::span<Element> elements;
};

} // namespace tv
