// Win32Threads: a thread of the process and the event that stops it.
#pragma once

#include "platform/thread_service.h"

namespace tv::win32 {

class Win32Threads final : public ThreadService
{
  public:
    std::unique_ptr<StopEvent> MakeStopEvent() override;
    std::unique_ptr<WorkerThread> StartThread(std::function<void()> body) override;
};

} // namespace tv::win32
