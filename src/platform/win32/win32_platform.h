// Win32Platform: the real machine.
#pragma once

#include "platform/platform.h"
#include "platform/win32/clock.h"
#include "platform/win32/desktop.h"
#include "platform/win32/files.h"
#include "platform/win32/installed_products.h"
#include "platform/win32/module.h"
#include "platform/win32/pipes.h"
#include "platform/win32/processes.h"
#include "platform/win32/registry.h"
#include "platform/win32/running_objects.h"
#include "platform/win32/threads.h"

namespace tv::win32 {

/// Holds one of each service and lends them together. Outlives every object that it was lent to.
class Win32Platform
{
  public:
    /// \param instance the module whose resources belong to the program
    explicit Win32Platform(HINSTANCE instance) : module(instance) {}
    Win32Platform(const Win32Platform&) = delete;
    Win32Platform& operator=(const Win32Platform&) = delete;

    Platform& Get() { return services; }

  private:
    Win32Registry registry;
    Win32Files files;
    Win32Processes processes;
    Win32RunningObjects runningObjects;
    Win32Desktop desktop;
    Win32Clock clock;
    Win32Pipes pipes;
    Win32Threads threads;
    Win32Module module;
    Win32InstalledProducts products;
    Platform services{registry, files,   processes, runningObjects, desktop,
                      clock,    pipes,   threads,   module,         products};
};

} // namespace tv::win32
