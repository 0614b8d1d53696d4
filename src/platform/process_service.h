// Processes of the machine, by id.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace tv {

/// Access rights of an opened process.
inline constexpr uint32_t kProcessTerminate = 0x0001;
inline constexpr uint32_t kProcessReadMemory = 0x0010;
inline constexpr uint32_t kProcessQuery = 0x0400;

/// Exit code of a process that hasn't ended.
inline constexpr uint32_t kStillActive = 259;

/// First-window modes of a started process and modes of DesktopService::ShowWindow.
inline constexpr int32_t kShowHidden = 0;
inline constexpr int32_t kShowMaximized = 3;
inline constexpr int32_t kShowMinimized = 6;

/// An open process; closed with the object.
class Process
{
  public:
    virtual ~Process() = default;
    virtual bool Terminate(uint32_t exitCode) = 0;
    virtual bool GetExitCode(uint32_t& exitCode) = 0;
    /// Working set in bytes.
    virtual bool GetWorkingSet(uint64_t& bytes) = 0;
};

class ProcessService
{
  public:
    virtual ~ProcessService() = default;
    /// Starts a command line with no application name, no inheritance and the default environment and directory.
    /// `processId` is written in any case, 0 when there is no process. Returns the system's error number.
    virtual uint32_t Start(std::u16string_view commandLine, int32_t showMode, uint32_t& processId) = 0;
    /// Null when the process can't be opened.
    virtual std::unique_ptr<Process> Open(uint32_t processId, uint32_t rights) = 0;
};

} // namespace tv
