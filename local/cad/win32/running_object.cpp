#include "cad_win32/running_object.h"

#include "com/result.h"

#include <string>

TV_IID(IRunningObjectTable, "00000010-0000-0000-c000-000000000046");
TV_IID(IMoniker, "0000000f-0000-0000-c000-000000000046");

namespace tv::app {

RunningObject::RunningObject(IUnknown* object) : registered(ComPtr<IUnknown>::Share(object))
{
    ComPtr<IRunningObjectTable> table;
    ComPtr<IMoniker> moniker;
    const std::wstring name = L"Torvane_PID_" + std::to_wstring(GetCurrentProcessId());
    ThrowIfFailed(GetRunningObjectTable(0, table.put()));
    ThrowIfFailed(CreateItemMoniker(L"", name.c_str(), moniker.put()));
    ThrowIfFailed(table->Register(ROTFLAGS_REGISTRATIONKEEPSALIVE, object, moniker.get(), &cookie));
}

RunningObject::~RunningObject()
{
    ComPtr<IRunningObjectTable> table;
    if (GetRunningObjectTable(0, table.put()) >= 0) {
        table->Revoke(cookie);
    }
    CoDisconnectObject(registered.get(), 0);
}

} // namespace tv::app
