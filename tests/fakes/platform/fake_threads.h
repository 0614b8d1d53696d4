// FakeThreads: threads that run where and when a test wants.
#pragma once

#include "fakes/platform/call_log.h"
#include "platform/thread_service.h"

#include <atomic>
#include <functional>
#include <memory>

namespace tv::fakes {

enum class ThreadMode
{
    Inline, ///< a body runs when the test says so, and at the latest when it is joined
    Real    ///< a body runs on a thread of its own
};

class FakeThreads final : public ThreadService
{
  public:
    explicit FakeThreads(CallLog& callLog) : log(callLog) {}

    std::unique_ptr<StopEvent> MakeStopEvent() override;
    std::unique_ptr<WorkerThread> StartThread(std::function<void()> body) override;

    void SetMode(ThreadMode newMode) { mode = newMode; }
    /// Runs the bodies that wait, in the order of their start, on this thread. Returns how many ran.
    size_t RunWaiting();
    size_t StartedCount() const { return startedCount; }
    /// Threads that were started and not yet joined, and events that nobody has let go of.
    size_t LiveThreads() const { return liveThreads; }
    size_t LiveEvents() const { return liveEvents; }

  private:
    friend class FakeStopEvent;
    friend class InlineThread;
    friend class RealThread;

    CallLog& log;
    ThreadMode mode = ThreadMode::Inline;
    std::vector<std::shared_ptr<std::function<void()>>> waiting;
    size_t startedCount = 0;
    std::atomic<size_t> liveThreads{0};
    std::atomic<size_t> liveEvents{0};
};

} // namespace tv::fakes
