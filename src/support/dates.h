// Dates as a count of days, the form in which a date travels in a variant.
#pragma once

#include "platform/clock_service.h"

namespace tv {

/// Days since 30 December 1899, the time of day as the fraction. In counts below 0 the fraction still counts onwards
/// from midnight, so -1.25 is 29 December 1899, 6:00. False, with `dayCount` untouched, for a time that the system
/// refuses: a month above 12, a day above 31, or a year outside of 100 to 9999. A year below 100 is read as 1930 to
/// 2029.
bool DayCountFromLocalTime(const LocalTime& time, double& dayCount);

/// The opposite, rounded to the nearest second. False, with `time` untouched, outside of the years 100 to 9999.
bool LocalTimeFromDayCount(double dayCount, LocalTime& time);

} // namespace tv
