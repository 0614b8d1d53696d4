// The two machines that one contract suite runs on: the one in memory, and on Windows the real one.
#pragma once

#include "fakes/platform/fake_platform.h"

#include <gtest/gtest.h>

#include <chrono>
#ifdef _WIN32
#include "real_world.h"
#endif

namespace tv {

class FakeWorld
{
  public:
    FakeWorld() { machine.processes.Install(u"program.exe"); }

    Platform& Services() { return machine.platform; }
    std::u16string Folder() const { return u"C:\\Temp"; }
    std::string Content(std::u16string_view path) { return machine.files.Content(path).value_or("<missing>"); }
    void SetReadOnly(std::u16string_view path) { machine.files.SetReadOnly(path, true); }
    bool MayWriteReadOnly(std::u16string_view) { return false; }
    void SetEnvironment(std::u16string_view name, std::u16string_view value)
    {
        machine.registry.SetEnvironment(name, value);
    }
    std::u16string RegistryPath() const { return u"Software\\TorvaneContract"; }
    /// Lets nobody read or write that key of the current user.
    void DenyRegistryPath() { machine.registry.Deny(kCurrentUserRoot, RegistryPath()); }
    void AllowRegistryPath() { machine.registry.Allow(kCurrentUserRoot, RegistryPath()); }
    std::u16string PipeName() const { return u"\\\\.\\pipe\\contract"; }
    /// Answers each message with itself.
    void ListenForOneMessage()
    {
        machine.pipes.Listen(PipeName(), [](std::span<const uint8_t> message) {
            return std::vector<uint8_t>(message.begin(), message.end());
        });
    }
    std::u16string LongRunningCommand() const { return u"program.exe --sleep"; }
    WindowHandle AddWindow(const std::u16string& title, WindowHandle owner)
    {
        return machine.desktop.AddWindow(OwnProcess(), title, owner);
    }
    void CloseWindow(WindowHandle window) { machine.desktop.CloseWindow(window); }
    uint32_t OwnProcess() const { return 77; }
    void Register(std::u16string_view name, IUnknown* object)
    {
        machine.runningObjects.Register(name, ComPtr<IUnknown>::Share(object));
    }
    /// Installs a product of this name; returns its code, empty when this user may not.
    std::u16string InstallProduct(std::u16string_view name) { return machine.products.Add(std::u16string(name)); }
    void UseRealThreads() { machine.threads.SetMode(fakes::ThreadMode::Real); }

  private:
    fakes::FakePlatform machine;
};

#ifdef _WIN32
using Worlds = testing::Types<FakeWorld, RealWorld>;
#else
using Worlds = testing::Types<FakeWorld>;
#endif

} // namespace tv
