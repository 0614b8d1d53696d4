// ComPtr: the owner of one counted interface pointer.
#pragma once

#include "com/guid.h"

#include <cstddef>
#include <type_traits>
#include <utility>

namespace tv {

/// Owns one reference to an interface. No implicit conversion to the raw pointer and no overloaded operator&: `get`
/// lends, `put` receives (freeing first), `release` gives up, `reset` frees.
template <typename Interface>
class ComPtr
{
  public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    ComPtr(const ComPtr& other) : pointer(other.pointer) { AddRefIfAny(); }
    ComPtr(ComPtr&& other) noexcept : pointer(std::exchange(other.pointer, nullptr)) {}
    /// An object is held by any interface that its class derives from.
    template <typename Derived>
        requires(!std::is_same_v<Derived, Interface> && std::is_convertible_v<Derived*, Interface*>)
    ComPtr(ComPtr<Derived> other) : pointer(other.release())
    {
    }
    ~ComPtr() { reset(); }

    ComPtr& operator=(ComPtr other) noexcept
    {
        std::swap(pointer, other.pointer);
        return *this;
    }

    /// Takes over a reference that the caller already holds.
    static ComPtr Adopt(Interface* owned)
    {
        ComPtr result;
        result.pointer = owned;
        return result;
    }

    /// Adds a reference of its own to a borrowed pointer.
    static ComPtr Share(Interface* borrowed)
    {
        ComPtr result = Adopt(borrowed);
        result.AddRefIfAny();
        return result;
    }

    Interface* get() const { return pointer; }
    Interface* operator->() const { return pointer; }
    explicit operator bool() const { return pointer != nullptr; }

    /// Frees what is held and lends the place to an operation that returns a new reference.
    Interface** put()
    {
        reset();
        return &pointer;
    }

    /// As `put`, for operations that return an untyped interface pointer.
    void** putVoid() { return reinterpret_cast<void**>(put()); }

    Interface* release() { return std::exchange(pointer, nullptr); }

    void reset()
    {
        if (Interface* old = std::exchange(pointer, nullptr)) {
            old->Release();
        }
    }

    /// Asks the object for another interface; the result code of the query, `other` empty when it has none.
    template <typename Other>
    Result As(ComPtr<Other>& other) const
    {
        if (pointer == nullptr) {
            other.reset();
            return E_POINTER;
        }
        return pointer->QueryInterface(kInterfaceId<Other>, other.putVoid());
    }

  private:
    void AddRefIfAny()
    {
        if (pointer != nullptr) {
            pointer->AddRef();
        }
    }

    Interface* pointer = nullptr;
};

/// Asks a borrowed object for an interface; E_POINTER when there is no object.
template <typename Other>
Result QueryFor(IUnknown* object, ComPtr<Other>& other)
{
    other.reset();
    if (object == nullptr) {
        return E_POINTER;
    }
    return object->QueryInterface(kInterfaceId<Other>, other.putVoid());
}

} // namespace tv
