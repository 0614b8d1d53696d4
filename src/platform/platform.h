// Platform: everything that the add-in needs of an operating system, handed to it at birth.
#pragma once

#include "platform/clock_service.h"
#include "platform/desktop_service.h"
#include "platform/file_service.h"
#include "platform/installed_products_service.h"
#include "platform/module_service.h"
#include "platform/pipe_service.h"
#include "platform/process_service.h"
#include "platform/registry_service.h"
#include "platform/running_objects_service.h"
#include "platform/thread_service.h"

namespace tv {

/// The services, borrowed: they outlive the add-in object. A test gives its own.
struct Platform
{
    RegistryService& registry;
    FileService& files;
    ProcessService& processes;
    RunningObjectsService& runningObjects;
    DesktopService& desktop;
    ClockService& clock;
    PipeService& pipes;
    ThreadService& threads;
    ModuleService& module;
    InstalledProductsService& products;
};

} // namespace tv
