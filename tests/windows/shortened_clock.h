// ShortenedClock: the machine's time without the idle part of it, for tests that run the application's owner on real
// processes. The rules wait in steps of a second; a test of hundreds of macros can't.
#pragma once

#include "platform/platform.h"
#include "platform/win32/clock.h"

#include <cstdint>
#include <functional>
#include <utility>

namespace tv {

/// A wait of the thread that made the clock, which is the run thread, ends as soon as something happened that it may be
/// for, and otherwise lasts five times as long as asked: a busy machine gets more patience than a real run has, and no
/// test waits for nothing. Waits of other threads, the watchdog's pauses between two looks at the windows, last a
/// hundredth.
class ShortenedClock final : public ClockService
{
  public:
    static constexpr uint32_t kPatience = 5;
    static constexpr uint32_t kHaste = 100;

    /// \param state a number that is another one once something has happened that a wait may be for
    explicit ShortenedClock(std::function<uint64_t()> state) : stateOfWorld(std::move(state)) {}

    void Sleep(uint32_t milliseconds) override
    {
        if (GetCurrentThreadId() != runThread) {
            ::Sleep(milliseconds / kHaste);
            return;
        }
        const uint64_t before = stateOfWorld();
        const ULONGLONG deadline = GetTickCount64() + static_cast<ULONGLONG>(kPatience) * milliseconds;
        while (stateOfWorld() == before && GetTickCount64() < deadline) {
            ::Sleep(kStep);
        }
    }

    bool GetLocalTime(LocalTime& now) override { return real.GetLocalTime(now); }

  private:
    static constexpr DWORD kStep = 5;

    std::function<uint64_t()> stateOfWorld;
    DWORD runThread = GetCurrentThreadId();
    win32::Win32Clock real;
};

/// The same machine with another clock.
inline Platform WithClock(const Platform& machine, ClockService& clock)
{
    return {machine.registry, machine.files,   machine.processes, machine.runningObjects, machine.desktop, clock,
            machine.pipes,    machine.threads, machine.module,    machine.products};
}

} // namespace tv
