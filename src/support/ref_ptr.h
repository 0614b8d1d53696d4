// RefObj and RefPtr: objects with shared ownership.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace tv {

/// Base of a counted object. The count starts at 0: the first RefPtr makes it 1, and the last one destroys the object.
/// The count is safe across threads; nothing else is.
class RefObj
{
  public:
    RefObj() = default;
    /// A copy is an object of its own that nobody holds yet.
    RefObj(const RefObj&) {}
    RefObj& operator=(const RefObj&) { return *this; }
    virtual ~RefObj() = default;

    uint32_t AddRef() { return ++references; }
    uint32_t Release()
    {
        const uint32_t left = --references;
        if (left == 0) {
            delete this;
        }
        return left;
    }

  private:
    std::atomic<uint32_t> references{0};
};

/// Holds a counted object, or none. T counts by AddRef and Release, through RefObj or through an IUnknown of its own.
template <typename T> class RefPtr
{
  public:
    RefPtr() = default;
    RefPtr(std::nullptr_t) {}
    explicit RefPtr(T* object) : pointer(object) { AddRefIfAny(); }
    RefPtr(const RefPtr& other) : pointer(other.pointer) { AddRefIfAny(); }
    RefPtr(RefPtr&& other) noexcept : pointer(std::exchange(other.pointer, nullptr)) {}
    virtual ~RefPtr() { reset(); }

    RefPtr& operator=(const RefPtr& other)
    {
        RefPtr copy(other);
        std::swap(pointer, copy.pointer);
        return *this;
    }
    RefPtr& operator=(RefPtr&& other) noexcept
    {
        RefPtr taken(std::move(other));
        std::swap(pointer, taken.pointer);
        return *this;
    }

    T* get() const { return pointer; }
    T* operator->() const { return pointer; }
    T& operator*() const { return *pointer; }
    explicit operator bool() const { return pointer != nullptr; }
    void reset()
    {
        if (T* old = std::exchange(pointer, nullptr)) {
            old->Release();
        }
    }

    friend bool operator==(const RefPtr& left, const RefPtr& right) { return left.pointer == right.pointer; }

  private:
    void AddRefIfAny()
    {
        if (pointer != nullptr) {
            pointer->AddRef();
        }
    }

    T* pointer = nullptr;
};

} // namespace tv
