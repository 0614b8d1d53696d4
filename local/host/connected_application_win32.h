// A process of the application and the object that it offers: called by name, waited for, ended.
#pragma once

#include "host/application_process.h"

#include "com/base.h"
#include "com/com_ptr.h"
#include "com/variant.h"

#include <string>
#include <utility>
#include <vector>

namespace tv::local {

/// Owns a handle of the system.
class Handle
{
  public:
    explicit Handle(HANDLE owned = nullptr) : handle(owned) {}
    Handle(Handle&& other) noexcept : handle(std::exchange(other.handle, nullptr)) {}
    Handle& operator=(Handle other) noexcept
    {
        std::swap(handle, other.handle);
        return *this;
    }
    ~Handle()
    {
        if (handle != nullptr) {
            CloseHandle(handle);
        }
    }
    HANDLE get() const { return handle; }

  private:
    HANDLE handle;
};

std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

/// When a process was created, in milliseconds since 1970; 0 when the system doesn't tell.
int64_t CreationTime(HANDLE process);

/// The rights that an application's process is opened with.
inline constexpr DWORD kApplicationRights = PROCESS_TERMINATE | PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE;

/// What a started application and one that was found running have in common. The object is used on the thread that
/// connected to it; Kill, HasEnded and Details may be called from any.
class ConnectedApplication : public ApplicationProcess
{
  public:
    ProcessIdentity Identity() const override;
    std::string Revision() override;
    MacroCall RunMacro(const std::string& path, const std::string& procedure) override;
    ApplicationDetails Details(std::chrono::milliseconds patience) override;
    ApplicationEnd End(std::chrono::milliseconds patience) override;
    void Kill() noexcept override;
    bool HasEnded(std::chrono::milliseconds patience) const override;

  protected:
    ConnectedApplication() = default;
    /// Takes the object that stands in the running object table under the process id; false while there is none.
    bool Connect();
    void Disconnect() { application.reset(); }

    Handle process;
    DWORD processId = 0;

  private:
    bool ExitPolitely();

    ComPtr<IDispatch> application;
};

} // namespace tv::local
