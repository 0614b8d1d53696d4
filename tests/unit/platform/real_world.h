// RealWorld: the machine that the tests run on, and a place of their own in it that is cleaned up afterwards.
#pragma once

#include "installer_entries.h"
#include "platform/win32/win32_platform.h"

#include <string>
#include <thread>
#include <vector>

namespace tv {

class RealWorld
{
  public:
    RealWorld();
    RealWorld(const RealWorld&) = delete;
    RealWorld& operator=(const RealWorld&) = delete;
    ~RealWorld();

    Platform& Services() { return machine.Get(); }
    std::u16string Folder() const { return folder; }
    std::string Content(std::u16string_view path);
    void SetReadOnly(std::u16string_view path);
    /// True where the disk lets this user write a read-only file, as it lets a superuser on a foreign one.
    bool MayWriteReadOnly(std::u16string_view path);
    void SetEnvironment(std::u16string_view name, std::u16string_view value);
    std::u16string RegistryPath() const { return u"Software\\TorvaneContract"; }
    /// Lets nobody read or write that key of the current user.
    void DenyRegistryPath() { SetAccess(L"D:P(D;;0x1F;;;WD)(A;;KA;;;WD)"); }
    void AllowRegistryPath() { SetAccess(L"D:P(A;;KA;;;WD)"); }
    std::u16string PipeName() const;
    /// Answers the first message with itself, on a thread of its own.
    void ListenForOneMessage();
    std::u16string LongRunningCommand() const;
    WindowHandle AddWindow(const std::u16string& title, WindowHandle owner);
    void CloseWindow(WindowHandle window);
    uint32_t OwnProcess() const;
    void Register(std::u16string_view name, IUnknown* object);
    /// Enters a product into the installer's lists; returns its code, empty when this user may not.
    std::u16string InstallProduct(std::u16string_view name);
    void UseRealThreads() {}

  private:
    /// Gives that key the access that a text of the system's security language describes.
    void SetAccess(const wchar_t* description);

    win32::Win32Platform machine;
    std::u16string folder;
    std::thread server;
    std::vector<uint32_t> registrations;
    InstallerEntries products;
};

} // namespace tv
