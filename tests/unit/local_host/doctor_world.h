// A machine on which everything is in order, for tests that break one thing.
#pragma once

#include "host_world.h"

#include "host/doctor_checks.h"

namespace tv::local {

class DoctorWorld : public HostWorld
{
  protected:
    DoctorWorld();

    /// The findings of one check in `tvtask doctor --json`, "level | subject | found" with advice and commands below.
    std::string Check(std::string_view name);
    std::string WithoutBase(std::string text) const;

    static RegistryKey Classes(const std::string& path, RegistryView view = RegistryView::Bits64);
    static RegistryKey ClassKey(const std::string& id, const std::string& below = {},
                                RegistryView view = RegistryView::Bits64);
    static RegistryKey UserClassKey(const std::string& id, const std::string& below = {});
    static RegistryKey SetupKey(int year, RegistryView view = RegistryView::Bits64);
    static RegistryKey StartUp(const std::string& path);
    static RegistryKey AddInSettings();
    void RemoveApplication();
};

} // namespace tv::local
