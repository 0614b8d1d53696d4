#include "fakes/platform/fake_clock.h"

#include "support/dates.h"
#include "support/format.h"

#include <algorithm>
#include <string>

namespace tv::fakes {

void FakeClock::Sleep(uint32_t milliseconds)
{
    log.Note("clock.Sleep", FormatText(u"%u", milliseconds));
    uint64_t until = 0;
    {
        const std::lock_guard guard(lock);
        sleeps.push_back(milliseconds);
        until = elapsed + milliseconds;
    }
    // What happens may itself sleep, signal or start something, so it runs with the clock unlocked.
    while (const std::function<void()> happening = TakeHappening(until)) {
        happening();
    }
    const std::lock_guard guard(lock);
    elapsed = std::max(elapsed, until);
}

std::function<void()> FakeClock::TakeHappening(uint64_t until)
{
    const std::lock_guard guard(lock);
    const auto first = happenings.begin();
    if (first == happenings.end() || first->first > until) {
        return nullptr;
    }
    elapsed = std::max(elapsed, first->first);
    std::function<void()> happening = std::move(first->second);
    happenings.erase(first);
    return happening;
}

bool FakeClock::GetLocalTime(LocalTime& now)
{
    if (log.Enter("clock.GetLocalTime") != 0) {
        return false;
    }
    const std::lock_guard guard(lock);
    double days = 0;
    return DayCountFromLocalTime(start, days) &&
           LocalTimeFromDayCount(days + static_cast<double>(elapsed / 1000) / 86400.0, now);
}

void FakeClock::SetStart(const LocalTime& time)
{
    const std::lock_guard guard(lock);
    start = time;
}

void FakeClock::At(uint64_t milliseconds, std::function<void()> happening)
{
    const std::lock_guard guard(lock);
    happenings.emplace(milliseconds, std::move(happening));
}

void FakeClock::After(uint64_t milliseconds, std::function<void()> happening)
{
    At(Elapsed() + milliseconds, std::move(happening));
}

uint64_t FakeClock::Elapsed() const
{
    const std::lock_guard guard(lock);
    return elapsed;
}

size_t FakeClock::SleepCount() const
{
    const std::lock_guard guard(lock);
    return sleeps.size();
}

std::vector<uint32_t> FakeClock::Sleeps() const
{
    const std::lock_guard guard(lock);
    return sleeps;
}

} // namespace tv::fakes
