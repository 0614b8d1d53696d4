#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

namespace tv::macro {

/// Base of everything that values share. The count is not atomic: values belong to the thread that runs the macro.
class RefCounted
{
public:
    RefCounted() = default;
    RefCounted(const RefCounted&) = delete;
    RefCounted& operator=(const RefCounted&) = delete;
    virtual ~RefCounted() = default;

    void AddRef() const { ++references; }

    void Release() const
    {
        if (--references == 0) {
            Destroy(this);
        }
    }

    uint32_t References() const { return references; }

private:
    /// Deletes without deep recursion, however deeply values hold each other.
    static void Destroy(const RefCounted* object);

    mutable const RefCounted* nextToDestroy = nullptr;
    mutable uint32_t references = 0;
};

/// Owning pointer to a counted object.
template <typename T>
class Ref
{
public:
    Ref() = default;
    Ref(std::nullptr_t) {}

    explicit Ref(T* object) : target(object)
    {
        if (target != nullptr) {
            target->AddRef();
        }
    }

    Ref(const Ref& other) : Ref(other.target) {}
    Ref(Ref&& other) noexcept : target(std::exchange(other.target, nullptr)) {}

    template <typename U>
        requires std::is_convertible_v<U*, T*>
    Ref(const Ref<U>& other) : Ref(static_cast<T*>(other.get()))
    {
    }

    ~Ref() { reset(); }

    Ref& operator=(Ref other) noexcept
    {
        std::swap(target, other.target);
        return *this;
    }

    void reset()
    {
        if (T* old = std::exchange(target, nullptr)) {
            old->Release();
        }
    }

    T* get() const { return target; }
    /// Gives the counted pointer away.
    T* release() { return std::exchange(target, nullptr); }
    T* operator->() const { return target; }
    T& operator*() const { return *target; }
    explicit operator bool() const { return target != nullptr; }
    friend bool operator==(const Ref& left, const Ref& right) { return left.target == right.target; }

private:
    T* target = nullptr;
};

template <typename T, typename... Arguments>
Ref<T> MakeRef(Arguments&&... arguments)
{
    return Ref<T>(new T(std::forward<Arguments>(arguments)...));
}

} // namespace tv::macro
