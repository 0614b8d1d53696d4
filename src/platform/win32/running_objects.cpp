#include "platform/win32/running_objects.h"

#include "platform/win32/handle.h"

namespace tv::win32 {

namespace {

class Win32RunningObjectTable final : public RunningObjectTable
{
  public:
    explicit Win32RunningObjectTable(ComPtr<IRunningObjectTable> running) : table(std::move(running)) {}

    Result GetObject(std::u16string_view itemName, ComPtr<IUnknown>& object) override
    {
        object.reset();
        ComPtr<IMoniker> moniker;
        const Result result = ::CreateItemMoniker(L"", ZeroTerminated(itemName), moniker.put());
        // The system's headers declare GetObject under the name of its macro.
        return result < 0 ? result : table->GetObjectW(moniker.get(), object.put());
    }

  private:
    ComPtr<IRunningObjectTable> table;
};

} // namespace

Result Win32RunningObjects::ClassFromProgId(std::u16string_view name, GUID& id)
{
    GUID found{};
    const Result result = ::CLSIDFromProgID(ZeroTerminated(name), &found);
    if (result >= 0) {
        id = found;
    }
    return result;
}

std::unique_ptr<RunningObjectTable> Win32RunningObjects::GetTable()
{
    ComPtr<IRunningObjectTable> table;
    if (::GetRunningObjectTable(0, table.put()) < 0 || !table) {
        return nullptr;
    }
    return std::make_unique<Win32RunningObjectTable>(std::move(table));
}

} // namespace tv::win32
