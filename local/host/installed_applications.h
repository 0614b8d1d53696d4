// The versions of the CAD application that this machine knows, and how the add-in would start each of them. The rules
// are the add-in's: it is asked.
#pragma once

#include "host/application_process.h"
#include "host/component.h"
#include "interfaces/addin.h"

#include <string>
#include <string_view>
#include <vector>

namespace tv::local {

/// A product year is this plus the number of its class: "Torvane.Application.21" is 2013's.
inline constexpr int32_t kYearOfRevisionZero = 1992;

/// How one version would be started.
struct InstalledApplication
{
    /// The product year that would be started; for a class name that tells none, the 1992 that a run takes it for.
    int32_t year = 0;
    /// "Torvane.Application.21", or "Torvane.Application" where no version is asked for.
    std::string className;
    /// In braces; empty when the class isn't registered.
    std::string classId;
    /// Where the program comes from: a view of the registry's Setup key, or the registered server.
    StartSource source = StartSource::None;
    /// As the system gets it, with its switch; empty when no program is known.
    std::string commandLine;
    /// The file that the command line would start; the one that is missing when there is none.
    std::string program;
    /// Why it can't be started and what to do, a sentence; empty when it can.
    std::string problem;

    bool CanStart() const { return problem.empty(); }
};

struct InstalledApplications
{
    /// Every product year that the registry speaks of, the oldest first.
    std::vector<InstalledApplication> versions;
    /// What is started when no version is asked for. It has a problem of its own when there is nothing.
    InstalledApplication standard;
};

/// "Setup key, 64-bit view", "Setup key, 32-bit view", "registered server", "nowhere".
std::string_view SourceWords(StartSource source);

/// How a version would be started, 0 for whichever is registered. A year whose class isn't registered comes back as the
/// year that a run takes in its place.
/// Raises ResultError when the add-in isn't registered or is one that can't be asked.
InstalledApplication FindApplication(Component& component, int32_t year);

/// All of them. Raises NoApplicationError on a system that can't have any, ResultError as FindApplication.
InstalledApplications FindApplications(Component& component, ApplicationStarter& applications);

/// The file that the system would start for a command line: up to the closing quote, or else up to the first blank
/// before which a file stands. All up to the switch where there is none. \param exists tells whether a file is there
std::string ProgramOf(std::string_view commandLine, const std::function<bool(const std::string&)>& exists);

} // namespace tv::local
