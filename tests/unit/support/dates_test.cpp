#include "support/dates.h"

#include "com/base.h"

#include <gtest/gtest.h>

#include <limits>

namespace tv {
namespace {

double DaysOf(const LocalTime& time)
{
    double days = 0;
    EXPECT_TRUE(DayCountFromLocalTime(time, days));
    return days;
}

TEST(Dates, DaysCountFromTheEndOf1899)
{
    EXPECT_EQ(DaysOf({1899, 12, 30, 0, 0, 0}), 0.0);
    EXPECT_EQ(DaysOf({1899, 12, 31, 0, 0, 0}), 1.0);
    EXPECT_EQ(DaysOf({1900, 3, 1, 0, 0, 0}), 61.0);
    EXPECT_EQ(DaysOf({2023, 3, 15, 18, 0, 0}), 45000.75);
    EXPECT_EQ(DaysOf({100, 1, 1, 0, 0, 0}), -657434.0);
    EXPECT_EQ(DaysOf({9999, 12, 31, 0, 0, 0}), 2958465.0);
}

TEST(Dates, TheTimeOfDayOfANegativeCountStillRunsOnwards)
{
    EXPECT_EQ(DaysOf({1899, 12, 29, 6, 0, 0}), -1.25);
    LocalTime time{};
    ASSERT_TRUE(LocalTimeFromDayCount(-1.25, time));
    EXPECT_EQ(time, (LocalTime{1899, 12, 29, 6, 0, 0}));
}

TEST(Dates, AnImpossibleTimeIsRefused)
{
    double days = 5;
    EXPECT_FALSE(DayCountFromLocalTime({2026, 13, 1, 0, 0, 0}, days));
    EXPECT_FALSE(DayCountFromLocalTime({2026, 1, 32, 0, 0, 0}, days));
    EXPECT_FALSE(DayCountFromLocalTime({10000, 1, 1, 0, 0, 0}, days));
    EXPECT_FALSE(DayCountFromLocalTime({-1, 1, 1, 0, 0, 0}, days));
    EXPECT_EQ(days, 5.0);
}

TEST(Dates, ADayThatTheMonthDoesNotHaveRollsOn)
{
    EXPECT_EQ(DaysOf({2026, 2, 31, 0, 0, 0}), DaysOf({2026, 3, 3, 0, 0, 0}));
    EXPECT_EQ(DaysOf({2024, 2, 30, 0, 0, 0}), DaysOf({2024, 3, 1, 0, 0, 0}));
}

TEST(Dates, ATwoDigitYearIsReadIntoThisAge)
{
    EXPECT_EQ(DaysOf({29, 1, 1, 0, 0, 0}), DaysOf({2029, 1, 1, 0, 0, 0}));
    EXPECT_EQ(DaysOf({30, 1, 1, 0, 0, 0}), DaysOf({1930, 1, 1, 0, 0, 0}));
}

TEST(Dates, ACountOutsideOfTheCalendarIsRefused)
{
    LocalTime time{1, 2, 3, 4, 5, 6};
    EXPECT_FALSE(LocalTimeFromDayCount(-657435.0, time));
    EXPECT_FALSE(LocalTimeFromDayCount(2958466.0, time));
    EXPECT_FALSE(LocalTimeFromDayCount(std::numeric_limits<double>::quiet_NaN(), time));
    EXPECT_EQ(time, (LocalTime{1, 2, 3, 4, 5, 6}));
}

TEST(Dates, SecondsAreRounded)
{
    LocalTime time{};
    ASSERT_TRUE(LocalTimeFromDayCount(45000.0 + 59.6 / 86400.0, time));
    EXPECT_EQ(time, (LocalTime{2023, 3, 15, 0, 1, 0}));
    ASSERT_TRUE(LocalTimeFromDayCount(45000.0 + 86399.7 / 86400.0, time));
    EXPECT_EQ(time, (LocalTime{2023, 3, 16, 0, 0, 0}));
}

TEST(Dates, EveryDayAndEverySecondComeBack)
{
    LocalTime last{1899, 12, 29, 0, 0, 0};
    for (int day = 0; day < 110000; ++day) {
        LocalTime time{};
        ASSERT_TRUE(LocalTimeFromDayCount(day, time));
        ASSERT_EQ(DaysOf(time), day);
        ASSERT_TRUE(time.year != last.year || time.month != last.month ? time.day == 1 || day == 0
                                                                       : time.day == last.day + 1)
            << day;
        last = time;
    }
    for (int second = 0; second < 86400; ++second) {
        const LocalTime given{2026, 11, 15, second / 3600, second / 60 % 60, second % 60};
        LocalTime time{};
        ASSERT_TRUE(LocalTimeFromDayCount(DaysOf(given), time));
        ASSERT_EQ(time, given);
    }
}

TEST(Dates, LeapYearsFollowTheGregorianRule)
{
    LocalTime time{};
    ASSERT_TRUE(LocalTimeFromDayCount(DaysOf({2000, 2, 28, 0, 0, 0}) + 1, time));
    EXPECT_EQ(time, (LocalTime{2000, 2, 29, 0, 0, 0}));
    ASSERT_TRUE(LocalTimeFromDayCount(DaysOf({2100, 2, 28, 0, 0, 0}) + 1, time));
    EXPECT_EQ(time, (LocalTime{2100, 3, 1, 0, 0, 0}));
}

#ifdef _WIN32
TEST(Dates, TheSystemAgrees)
{
    for (const int year : {1900, 1999, 2000, 2026, 2100, 9999}) {
        for (uint16_t month = 1; month <= 12; ++month) {
            for (const uint16_t day : std::initializer_list<uint16_t>{1, 15, 28}) {
                const SYSTEMTIME native{static_cast<WORD>(year), month, 0, day, 23, 59, 58, 0};
                double expected = 0;
                double days = 0;
                SYSTEMTIME copy = native;
                ASSERT_NE(SystemTimeToVariantTime(&copy, &expected), FALSE);
                ASSERT_TRUE(DayCountFromLocalTime({year, month, day, 23, 59, 58}, days));
                ASSERT_DOUBLE_EQ(days, expected) << year << ' ' << month << ' ' << day;
                SYSTEMTIME back{};
                LocalTime time{};
                ASSERT_NE(VariantTimeToSystemTime(expected, &back), FALSE);
                ASSERT_TRUE(LocalTimeFromDayCount(expected, time));
                ASSERT_EQ(time,
                          (LocalTime{back.wYear, back.wMonth, back.wDay, back.wHour, back.wMinute, back.wSecond}));
            }
        }
    }
}
#endif

} // namespace
} // namespace tv
