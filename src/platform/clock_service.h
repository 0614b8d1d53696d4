// Time. All waits of the add-in go through here.
#pragma once

#include <cstdint>

namespace tv {

/// A moment in local time, broken down; month and day count from 1.
struct LocalTime
{
    int32_t year;
    int32_t month;
    int32_t day;
    int32_t hour;
    int32_t minute;
    int32_t second;
    friend bool operator==(const LocalTime&, const LocalTime&) = default;
};

class ClockService
{
  public:
    virtual ~ClockService() = default;
    virtual void Sleep(uint32_t milliseconds) = 0;
    /// False when the time can't be read.
    virtual bool GetLocalTime(LocalTime& now) = 0;
};

} // namespace tv
