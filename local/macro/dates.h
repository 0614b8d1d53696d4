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

/// How weeks are counted: the day that starts one, and which week of a year is its first.
struct WeekRule
{
    /// 1 is Sunday.
    int firstDay = 1;
    /// 1: the week of 1 January; 2: the first with four days of the year; 3: the first with all seven.
    int firstWeek = 1;
};
/// The number of a weekday counted from another one, from 1 on.
int WeekdayFrom(int weekday, int firstDay);
int WeekOfYear(double days, const WeekRule& rule);

/// The year of dates whose text names none, on the thread where a macro runs. Without it such a text is no date.
class CurrentYear
{
  public:
    explicit CurrentYear(double today);
    CurrentYear(const CurrentYear&) = delete;
    CurrentYear& operator=(const CurrentYear&) = delete;
    ~CurrentYear();

  private:
    int previous;
};

/// "3/15/2023 6:00:00 PM"; without the time at midnight, without the date on day 0.
std::u16string DateText(double days);
std::optional<double> ParseDate(std::u16string_view text);

std::u16string_view MonthName(int month);
std::u16string_view WeekdayName(int weekday);

} // namespace tv::macro
