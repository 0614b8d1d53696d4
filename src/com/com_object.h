// ComObject: the one implementation of IUnknown for every object of the program.
#pragma once

#include "com/com_ptr.h"

#include <atomic>
#include <cstring>
#include <type_traits>

namespace tv {

/// Implements counting and queries for a class that offers the given interfaces. The object is born with one reference,
/// which MakeObject hands to its caller, and destroys itself with the last one. A class that answers for further ids
/// (a base interface such as IDispatch, an event interface) overrides FindInterface.
///
/// \code
/// class Folder final : public ComObject<IVyxFolder> { … };
/// ComPtr<IVyxFolder> folder = MakeObject<Folder>(arguments…);
/// \endcode
template <typename First, typename... Others>
class ComObject : public First, public Others...
{
  public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        // The system's own calls hand over ids that stand where a GUID isn't aligned.
        GUID wanted;
        std::memcpy(&wanted, &id, sizeof wanted);
        if (wanted == kInterfaceId<IUnknown>) {
            *object = static_cast<IUnknown*>(static_cast<First*>(this));
        } else if (!Offer<First>(wanted, object)) {
            (void)(Offer<Others>(wanted, object) || ...);
        }
        if (*object == nullptr) {
            *object = FindInterface(wanted);
        }
        if (*object == nullptr) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }

    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --references;
        if (left == 0) {
            // What the destructor calls may take and give back a reference; that must not destroy a second time.
            references = kDestroying;
            delete this;
        }
        return left;
    }

  protected:
    virtual ~ComObject() = default;

    /// Returns the pointer for an interface that isn't in the list, or null. No reference is added here.
    virtual void* FindInterface(REFIID) { return nullptr; }

  private:
    template <typename Interface>
    bool Offer(REFIID id, void** object)
    {
        if (id == kInterfaceId<Interface>) {
            *object = static_cast<Interface*>(this);
            return true;
        }
        return false;
    }

    static constexpr ULONG kDestroying = 0x40000000;

    std::atomic<ULONG> references{1};
};

/// Makes a counted object and hands over its first reference.
template <typename Class, typename... Arguments>
ComPtr<Class> MakeObject(Arguments&&... arguments)
{
    return ComPtr<Class>::Adopt(new Class(std::forward<Arguments>(arguments)...));
}

} // namespace tv
