// CountedClock: counts the waits of the application's owner, and lets them last as a test needs it.
#pragma once

#include "platform/platform.h"
#include "platform/win32/clock.h"

#include <atomic>
#include <functional>
#include <utility>

namespace tv {

enum class Pace
{
    /// Every wait lasts as long as it is asked for.
    Real,
    /// A wait ends as soon as something happened since the last one, and has five times its length to see it happen:
    /// for waits that come to what they are for.
    Patient,
    /// A wait lasts a fixed part of its length: for waits that are in vain, such as the two minutes in which an
    /// application doesn't register and the eleven seconds in which it doesn't end. They run out by their count,
    /// whatever a second is.
    Hasty
};

/// What a wait may be for, as the clock sees it.
struct AwaitedWorld
{
    /// A number that is another one once something has happened.
    std::function<uint64_t()> state;
    /// Nothing can happen any more once this is false.
    std::function<bool()> isRunning;
    /// True once the application has registered or has come to its fault.
    std::function<bool()> hasSettled;
};

/// The rules wait in whole seconds, so what a test has to see is how many; a suite of all faults at full length would
/// take a quarter of an hour. Pauses of other threads, the watchdog's between two looks at the windows, last a
/// twentieth except at the real pace.
class CountedClock final : public ClockService
{
  public:
    static constexpr uint32_t kPatience = 5;
    static constexpr uint32_t kWatchdogDivisor = 20;
    /// An application that hasn't registered by then doesn't come.
    static constexpr uint32_t kAttachDivisor = 100;
    /// The same waits serve to see the end of a terminated process, which a busy machine needs some time for.
    static constexpr uint32_t kEndDivisor = 4;
    /// A machine that takes long to load a program must not pass for an application that doesn't come.
    static constexpr DWORD kLongestSettling = 60'000;

    explicit CountedClock(AwaitedWorld awaited) : world(std::move(awaited)) {}

    void Sleep(uint32_t milliseconds) override
    {
        if (GetCurrentThreadId() != runThread) {
            ::Sleep(pace == Pace::Real ? milliseconds : milliseconds / kWatchdogDivisor);
            ++looks;
            return;
        }
        waited += milliseconds / 1000;
        switch (pace) {
        case Pace::Real:
            ::Sleep(milliseconds);
            return;
        case Pace::Patient:
            SleepUntil(kPatience * milliseconds, [this] { return world.state() != lastState; });
            lastState = world.state();
            return;
        case Pace::Hasty:
            SleepUntil(kLongestSettling, world.hasSettled);
            SleepUntil(milliseconds / divisor, [] { return false; });
            return;
        }
    }

    bool GetLocalTime(LocalTime& now) override { return real.GetLocalTime(now); }

    void SetPace(Pace wanted) { pace = wanted; }
    void SetDivisor(uint32_t wanted) { divisor = wanted; }

    /// Seconds that the run thread has asked for.
    uint32_t Waited() const { return waited; }
    /// Looks at the windows that the watchdog has finished.
    uint32_t Looks() const { return looks; }

  private:
    static constexpr DWORD kStep = 5;

    void SleepUntil(DWORD longest, const std::function<bool()>& isOver) const
    {
        const ULONGLONG deadline = GetTickCount64() + longest;
        while (!isOver() && world.isRunning() && GetTickCount64() < deadline) {
            ::Sleep(kStep);
        }
    }

    AwaitedWorld world;
    DWORD runThread = GetCurrentThreadId();
    std::atomic<Pace> pace{Pace::Patient};
    uint32_t divisor = kAttachDivisor;
    uint32_t waited = 0;
    uint64_t lastState = 0;
    std::atomic<uint32_t> looks{0};
    win32::Win32Clock real;
};

} // namespace tv
