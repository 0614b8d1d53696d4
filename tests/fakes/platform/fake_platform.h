// FakePlatform: a whole machine in memory, for the component under test.
#pragma once

#include "fakes/platform/call_log.h"
#include "fakes/platform/fake_clock.h"
#include "fakes/platform/fake_desktop.h"
#include "fakes/platform/fake_files.h"
#include "fakes/platform/fake_installed_products.h"
#include "fakes/platform/fake_module.h"
#include "fakes/platform/fake_pipes.h"
#include "fakes/platform/fake_processes.h"
#include "fakes/platform/fake_registry.h"
#include "fakes/platform/fake_running_objects.h"
#include "fakes/platform/fake_threads.h"
#include "platform/platform.h"

namespace tv::fakes {

/// All services share one log, so the order of calls across services can be read and the nth of all can fail.
///
/// \code
/// FakePlatform machine;
/// machine.log.FailNth("files.MoveFile", 1, Failure::Once, 5);
/// TVManager manager(machine.platform);
/// \endcode
struct FakePlatform
{
    CallLog log;
    FakeRegistry registry{log};
    FakeFiles files{log};
    FakeProcesses processes{log};
    FakeRunningObjects runningObjects{log};
    FakeDesktop desktop{log};
    FakeClock clock{log};
    FakePipes pipes{log};
    FakeThreads threads{log};
    FakeModule module{log};
    FakeInstalledProducts products{log};
    Platform platform{registry, files, processes, runningObjects, desktop, clock, pipes, threads, module, products};
};

} // namespace tv::fakes
