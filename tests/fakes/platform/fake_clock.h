// FakeClock: time that passes only when somebody sleeps.
#pragma once

#include "fakes/platform/call_log.h"
#include "platform/clock_service.h"

#include <functional>
#include <map>
#include <mutex>

namespace tv::fakes {

class FakeClock final : public ClockService
{
  public:
    explicit FakeClock(CallLog& callLog) : log(callLog) {}

    void Sleep(uint32_t milliseconds) override;
    bool GetLocalTime(LocalTime& now) override;

    /// Sets the local time that stands for elapsed time 0. At first it is 15 November 2026, 12:00:00.
    void SetStart(const LocalTime& time);
    /// Lets something happen when this much time has passed; at once, in the next sleep, when it already has.
    void At(uint64_t milliseconds, std::function<void()> happening);
    void After(uint64_t milliseconds, std::function<void()> happening);
    /// Milliseconds slept so far, by all threads together.
    uint64_t Elapsed() const;
    size_t SleepCount() const;
    /// Length of each sleep, in order.
    std::vector<uint32_t> Sleeps() const;

  private:
    std::function<void()> TakeHappening(uint64_t until);

    CallLog& log;
    mutable std::mutex lock;
    LocalTime start{2026, 11, 15, 12, 0, 0};
    uint64_t elapsed = 0;
    std::vector<uint32_t> sleeps;
    std::multimap<uint64_t, std::function<void()>> happenings;
};

} // namespace tv::fakes
