// Starting the geometry kernel, which is a native program of the machine.
#pragma once

#include "client/kernel_client.h"

#include <string>

namespace tv::app {

/// The folder of this program, without a backslash at its end.
std::wstring FolderOfThisProgram();

/// The program that the environment variable TVKERNEL names, or "tvkernel" in the application's folder; empty for none.
std::wstring FindKernel(const std::wstring& folder);

/// The settings of a client that starts this program.
kernel::KernelClientSettings NativeKernelSettings(const std::wstring& folder = FolderOfThisProgram());

/// A Windows path (UTF-8) as the system that the kernel runs on writes it.
std::string NativePath(const std::string& path);

} // namespace tv::app
