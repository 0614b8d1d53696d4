#include "fakes/platform/fake_threads.h"

#include <thread>
#include <utility>

namespace tv::fakes {

class FakeStopEvent final : public StopEvent
{
  public:
    explicit FakeStopEvent(FakeThreads& owner) : threads(owner) { ++threads.liveEvents; }
    ~FakeStopEvent() override { --threads.liveEvents; }

    void Signal() override
    {
        // In this order, so that who sees the call in the log may count on the signal.
        isSignalled = true;
        threads.log.Note("threads.Signal");
    }

    bool IsSignalled() override { return isSignalled.exchange(false); }

  private:
    FakeThreads& threads;
    std::atomic<bool> isSignalled{false};
};

class InlineThread final : public WorkerThread
{
  public:
    InlineThread(FakeThreads& owner, std::shared_ptr<std::function<void()>> thread)
        : threads(owner), body(std::move(thread))
    {
        ++threads.liveThreads;
    }
    ~InlineThread() override { InlineThread::Join(); }

    void Join() override
    {
        if (isJoined) {
            return;
        }
        isJoined = true;
        threads.log.Note("threads.Join");
        --threads.liveThreads;
        if (*body) {
            std::exchange(*body, nullptr)();
        }
    }

  private:
    FakeThreads& threads;
    std::shared_ptr<std::function<void()>> body;
    bool isJoined = false;
};

class RealThread final : public WorkerThread
{
  public:
    RealThread(FakeThreads& owner, std::function<void()> body) : threads(owner), thread(std::move(body))
    {
        ++threads.liveThreads;
    }
    ~RealThread() override { RealThread::Join(); }

    void Join() override
    {
        if (thread.joinable()) {
            threads.log.Note("threads.Join");
            thread.join();
            --threads.liveThreads;
        }
    }

  private:
    FakeThreads& threads;
    std::thread thread;
};

std::unique_ptr<StopEvent> FakeThreads::MakeStopEvent()
{
    return std::make_unique<FakeStopEvent>(*this);
}

std::unique_ptr<WorkerThread> FakeThreads::StartThread(std::function<void()> body)
{
    log.Note("threads.StartThread");
    ++startedCount;
    if (mode == ThreadMode::Real) {
        return std::make_unique<RealThread>(*this, std::move(body));
    }
    waiting.push_back(std::make_shared<std::function<void()>>(std::move(body)));
    return std::make_unique<InlineThread>(*this, waiting.back());
}

size_t FakeThreads::RunWaiting()
{
    size_t count = 0;
    for (const auto& body : std::exchange(waiting, {})) {
        if (*body) {
            std::exchange(*body, nullptr)();
            ++count;
        }
    }
    return count;
}

} // namespace tv::fakes
