// The one thread besides the run thread, and the event that stops it.
#pragma once

#include <functional>
#include <memory>

namespace tv {

/// An auto-reset event, unsignalled at first.
class StopEvent
{
  public:
    virtual ~StopEvent() = default;
    virtual void Signal() = 0;
    /// Tests without waiting; a signalled event becomes unsignalled by the test.
    virtual bool IsSignalled() = 0;
};

class WorkerThread
{
  public:
    virtual ~WorkerThread() = default;
    /// Waits without limit until the thread has ended.
    virtual void Join() = 0;
};

class ThreadService
{
  public:
    virtual ~ThreadService() = default;
    virtual std::unique_ptr<StopEvent> MakeStopEvent() = 0;
    virtual std::unique_ptr<WorkerThread> StartThread(std::function<void()> body) = 0;
};

} // namespace tv
