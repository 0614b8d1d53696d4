#include "module/class_factory.h"

#include "addin/tv_task_addin.h"
#include "com/result.h"
#include "platform/win32/win32_platform.h"

namespace tv {

namespace {

/// The machine that an add-in object works on; a base, so that it is there before the object and goes after it.
struct OwnPlatform
{
    win32::Win32Platform services{ThisServer().Module()};
};

class ServedAddIn final : private OwnPlatform, public CTVTaskAddIn
{
  public:
    ServedAddIn() : CTVTaskAddIn(services.Get()) {}

  private:
    ServerHold hold;
};

} // namespace

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object)
{
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (outer != nullptr) {
        return CLASS_E_NOAGGREGATION;
    }
    return AtBoundary([&] { return MakeObject<ServedAddIn>()->QueryInterface(id, object); });
}

HRESULT ClassFactory::LockServer(BOOL lock)
{
    if (lock) {
        ThisServer().Hold();
    } else {
        ThisServer().LetGo();
    }
    return S_OK;
}

} // namespace tv
