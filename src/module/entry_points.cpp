// The entry points by which the system loads, asks, registers and unloads the module.
#include "com/result.h"
#include "interfaces/ids.h"
#include "module/class_factory.h"
#include "module/registration.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*)
{
    if (reason == DLL_PROCESS_ATTACH) {
        tv::StartServer(module);
        DisableThreadLibraryCalls(module);
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object)
{
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (classId != tv::kTaskAddInClass) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
    return tv::AtBoundary([&] { return tv::MakeObject<tv::ClassFactory>()->QueryInterface(id, object); });
}

STDAPI DllCanUnloadNow()
{
    return tv::ThisServer().CanUnload() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer()
{
    return tv::RegisterServer(tv::ThisServer().Module());
}

STDAPI DllUnregisterServer()
{
    return tv::UnregisterServer();
}
