// Starting the geometry kernel, which is a native program of the machine.
#pragma once

#include "client/kernel_client.h"

#include <string>

namespace tv::app {

/// Starts the program that the environment variable TVKERNEL names, or "tvkernel" beside this program. The settings of
/// a client that does so.
kernel::KernelClientSettings NativeKernelSettings();

/// A Windows path (UTF-8) as the system that the kernel runs on writes it.
std::string NativePath(const std::string& path);

} // namespace tv::app
