// The application in the running object table, under a name that carries the process id.
#pragma once

#include "com/com_ptr.h"

namespace tv::app {

/// Registers an object as "Torvane_PID_%d" for as long as this lives.
class RunningObject
{
  public:
    /// Raises ResultError when the table refuses.
    explicit RunningObject(IUnknown* object);
    RunningObject(const RunningObject&) = delete;
    RunningObject& operator=(const RunningObject&) = delete;
    ~RunningObject();

  private:
    ComPtr<IUnknown> registered;
    DWORD cookie = 0;
};

} // namespace tv::app
