// What a run needs of the machine beside the add-in: whether a process lives, the end of applications that a run left
// behind, and the user's wish to stop.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace tv::local {

class Machine
{
  public:
    virtual ~Machine() = default;

    virtual int32_t ProcessId() const = 0;
    virtual bool IsAlive(int32_t process) const = 0;
    /// Ends CAD applications that this process has started and that still live; returns how many there were.
    virtual int EndLeftApplications() = 0;
    /// From now on CAD applications that this process starts end with it, also when it is ended from outside.
    virtual void LetApplicationsEndWithThisProcess() = 0;
    /// Calls `action`, on another thread, when the user presses Ctrl-C; null for the system's own handling. A second
    /// Ctrl-C ends this process, and the applications that it has started with it.
    virtual void OnInterrupt(std::function<void()> action) = 0;
};

std::unique_ptr<Machine> MakeMachine();

} // namespace tv::local
