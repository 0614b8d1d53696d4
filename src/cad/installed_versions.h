// How a product year becomes the command line that starts the application. Reads the registry only.
#pragma once

#include "com/base.h"
#include "interfaces/addin.h"
#include "platform/registry_service.h"

#include <string>

namespace tv {

/// Product year minus this is the suffix of the class name and the major revision: 2013 is 21.
inline constexpr int32_t kYearOfRevisionZero = 1992;

/// Views of the Setup key, in the order in which they are tried.
inline constexpr uint32_t kReadView64 = 0x20119;
inline constexpr uint32_t kReadView32 = 0x20219;

/// A command line longer than this, in characters, is cut before the system gets it.
inline constexpr size_t kLongestCommandLine = 259;

/// Command line to start the application with, and what was found on the way.
struct StartCommand
{
    std::u16string commandLine;             ///< empty when no executable is known
    bool regressionMode = false;            ///< started with " /R" and not " /B"
    int32_t requestedVersion = 0;           ///< the year, found by the registered class when it was 0
    StartSource source = StartSource::None; ///< where the executable stands
};

/// Returns the install folder of a product year, empty when there is none.
std::u16string GetInstallFolder(RegistryService& registry, int32_t requestedVersion, uint32_t access);

/// Returns -1 when the key or the value is missing or isn't a 32-bit number.
int32_t GetOfficeInstalled(RegistryService& registry, int32_t requestedVersion, uint32_t access);

/// \param before state to start from; regressionMode stays as it is when no executable is known
StartCommand GetCommandLine(RegistryService& registry, const GUID& classId, const StartCommand& before,
                            bool forceRegression);

} // namespace tv
