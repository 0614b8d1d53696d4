#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tv::macro {

/// The parts of a date. Weekday 1 is Sunday.
struct DateParts
{
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int weekday = 7;
    int dayOfYear = 364;
};

/// Dates are days since 30 December 1899; the fraction is the time of day, also of days before.
DateParts SplitDate(double days);
/// Months and days beyond their bounds move on to the neighbouring month or year, as DateSerial does.
double JoinDate(int64_t year, int64_t month, int64_t day);
double JoinTime(int64_t hour, int64_t minute, int64_t second);
/// A day number and a time of day as one date.
double CombineDate(double day, double time);
bool IsDateInRange(double days);
bool IsLeapYear(int64_t year);
int DaysInMonth(int64_t year, int month);

/// "3/15/2023 6:00:00 PM"; without the time at midnight, without the date on day 0.
std::u16string DateText(double days);
std::optional<double> ParseDate(std::u16string_view text);

std::u16string_view MonthName(int month);
std::u16string_view WeekdayName(int weekday);

} // namespace tv::macro
