#include "support/dates.h"

#include <cmath>

namespace tv {

namespace {

constexpr double kSecondsOfDay = 86400.0;
constexpr double kFirstDay = -657434.0;  // 1 January 100
constexpr double kEndOfDays = 2958466.0; // 1 January 10000

/// Days from 1 March of year 0 to a date of the Gregorian calendar.
int64_t DaysFromMarch(int64_t year, int64_t month, int64_t day)
{
    const int64_t shifted = month > 2 ? month - 3 : month + 9;
    const int64_t years = month > 2 ? year : year - 1;
    return years * 365 + years / 4 - years / 100 + years / 400 + (shifted * 153 + 2) / 5 + day - 1;
}

const int64_t kDayZero = DaysFromMarch(1899, 12, 30);

void BreakDownDay(int64_t dayNumber, LocalTime& time)
{
    const int64_t days = dayNumber + kDayZero;
    const int64_t era = days / 146097;
    const int64_t dayOfEra = days % 146097;
    const int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int64_t dayOfYear = dayOfEra - (yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100);
    const int64_t shifted = (dayOfYear * 5 + 2) / 153;
    time.day = static_cast<int32_t>(dayOfYear - (shifted * 153 + 2) / 5 + 1);
    time.month = static_cast<int32_t>(shifted < 10 ? shifted + 3 : shifted - 9);
    time.year = static_cast<int32_t>(era * 400 + yearOfEra + (time.month <= 2 ? 1 : 0));
}

int32_t WindowedYear(int32_t year)
{
    if (year < 0 || year >= 100) {
        return year;
    }
    return year < 30 ? 2000 + year : 1900 + year;
}

} // namespace

bool DayCountFromLocalTime(const LocalTime& time, double& dayCount)
{
    const int32_t year = WindowedYear(time.year);
    if (year < 100 || year > 9999 || time.month < 0 || time.month > 12 || time.day < 0 || time.day > 31) {
        return false;
    }
    // A date that the calendar doesn't have rolls on, as the system lets it: 31 February is 3 March, and month 0 is the
    // December before.
    const bool isBefore = time.month == 0;
    const int64_t days = DaysFromMarch(isBefore ? year - 1 : year, isBefore ? 12 : time.month, time.day) - kDayZero;
    const double fraction = (time.hour * 3600.0 + time.minute * 60.0 + time.second) / kSecondsOfDay;
    dayCount = days < 0 ? static_cast<double>(days) - fraction : static_cast<double>(days) + fraction;
    return true;
}

bool LocalTimeFromDayCount(double dayCount, LocalTime& time)
{
    if (!(dayCount > kFirstDay - 1) || !(dayCount < kEndOfDays)) {
        return false;
    }
    double day = std::trunc(dayCount);
    double seconds = std::floor(std::fabs(dayCount - day) * kSecondsOfDay + 0.5);
    if (seconds >= kSecondsOfDay) {
        seconds = 0;
        day += 1;
    }
    if (day < kFirstDay || day >= kEndOfDays) {
        return false;
    }
    LocalTime result{};
    BreakDownDay(static_cast<int64_t>(day), result);
    const auto whole = static_cast<int32_t>(seconds);
    result.hour = whole / 3600;
    result.minute = whole / 60 % 60;
    result.second = whole % 60;
    time = result;
    return true;
}

} // namespace tv
