// CadInstallation: the simulated application installed on a simulated machine, so that starting its process gives an
// object in the running object table.
#pragma once

#include "fakes/application/fake_application.h"
#include "fakes/platform/fake_platform.h"

#include <functional>
#include <optional>

namespace tv::fakes {

/// Version 2013 in C:\CAD, its class registered with and without a version.
class CadInstallation
{
  public:
    explicit CadInstallation(FakePlatform& onMachine);

    /// Milliseconds from the start of a process to its registration; nothing for never.
    std::optional<uint32_t> registersAfter = 0;
    /// Prepares the object of a process before it registers; gets the number of the start, counted from 1.
    std::function<void(FakeApplication&, int start)> prepare;
    /// Whether leaving the application ends its process, and after how many milliseconds.
    std::optional<uint32_t> endsAfter = 0;

    /// The objects of all processes, in the order of their start. Those of ended processes answer kServerDied.
    std::vector<ComPtr<FakeApplication>> started;
    FakeApplication& Last() const { return *started.back().get(); }
    int StartCount() const { return static_cast<int>(started.size()); }

  private:
    void OnStart(FakeProcess& process);
    void OnEnd(const FakeProcess& process);

    FakePlatform& machine;
    std::map<uint32_t, ComPtr<FakeApplication>> byProcess;
};

} // namespace tv::fakes
