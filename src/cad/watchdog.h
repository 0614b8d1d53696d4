// Watchdog: the thread that answers the dialogs of the hidden application while it starts and while a macro runs.
#pragma once

#include "cad/watchdog_rules.h"
#include "platform/platform.h"

#include <atomic>
#include <functional>
#include <memory>

namespace tv {

/// Set when the scheduler's dialog was met. One for the whole process: the watchdog thread writes it, the run thread reads
/// it after it has joined that thread.
std::atomic<bool>& SchedulerDialogSeen();

/// At most one thread at a time.
class Watchdog
{
  public:
    /// \param process        id of the application's process, may change while the thread runs
    /// \param lateStop       called on the watchdog thread when the stop comes during the very last scan
    Watchdog(Platform& services, const std::atomic<uint32_t>& process, std::function<void()> lateStop);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    void Start();
    void Stop();
    bool IsRunning() const { return stop != nullptr; }

    /// Body of the thread: one look at the desktop a second, 1800 at most.
    void ScanWindows(StopEvent& stopEvent);

  private:
    void ScanOnce();
    void Answer(WindowHandle window, const WatchdogRule& rule);
    void Press(WindowHandle window, uint32_t key);

    Platform& platform;
    const std::atomic<uint32_t>& processId;
    std::function<void()> onLateStop;
    std::unique_ptr<StopEvent> stop;
    std::unique_ptr<WorkerThread> thread;
};

/// Keeps the watchdog running for a scope.
class WatchedSection
{
  public:
    explicit WatchedSection(Watchdog& guard) : watchdog(guard) { watchdog.Start(); }
    WatchedSection(const WatchedSection&) = delete;
    WatchedSection& operator=(const WatchedSection&) = delete;
    ~WatchedSection() { watchdog.Stop(); }

  private:
    Watchdog& watchdog;
};

} // namespace tv
