// The date formats and the names of the months. The names are English words whatever the user's language.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tv {

struct MonthName
{
    int32_t number;
    std::u16string_view longName;
    std::u16string_view shortName;
};

/// In month order. "Mars" is how dates have always been printed here; existing file names depend on it.
// clang-format off
inline constexpr MonthName kMonthNames[] = {
    {1, u"January", u"Jan"},
    {2, u"February", u"Feb"},
    {3, u"Mars", u"Mar"},
    {4, u"April", u"Apr"},
    {5, u"May", u"May"},
    {6, u"June", u"Jun"},
    {7, u"July", u"Jul"},
    {8, u"August", u"Aug"},
    {9, u"September", u"Sep"},
    {10, u"October", u"Oct"},
    {11, u"November", u"Nov"},
    {12, u"December", u"Dec"},
};
// clang-format on
static_assert(std::size(kMonthNames) == 12);

enum class DatePart
{
    None,
    Year,
    YearOfCentury,
    Month,
    ShortMonth,
    LongMonth,
    Day,
    Hour,
    Hour12,
    HalfOfDay,
    Minute,
    Second
};
using DateParts = std::array<DatePart, 7>;

/// One format. The parts are the arguments of the pattern; a date-only pattern takes the first three of them.
struct DateRow
{
    int32_t id;
    std::u16string_view pattern;
    DateParts parts;
    bool holdsTime = false;                   ///< the pattern prints the time, so no style appends it
    std::u16string_view dateOnlyPattern = {}; ///< for the date-only style, if that differs
};

namespace date_rows {
using enum DatePart;

inline constexpr DateRow kRows[] = {
    {0, u"%s %02d %04d %02d:%02d %s", {ShortMonth, Day, Year, Hour12, Minute, HalfOfDay}, true, u"%s %02d %04d"},
    {1, u"%02d/%02d/%02d", {Month, Day, YearOfCentury}},
    {2, u"%02d.%02d.%02d", {YearOfCentury, Month, Day}},
    {3, u"%02d/%02d/%02d", {Day, Month, YearOfCentury}},
    {4, u"%02d.%02d.%02d", {Day, Month, YearOfCentury}},
    {5, u"%02d-%02d-%02d", {Day, Month, YearOfCentury}},
    {6, u"%02d %s %02d", {Day, ShortMonth, YearOfCentury}},
    {7, u"%s %02d, %02d", {ShortMonth, Day, YearOfCentury}},
    {10, u"%02d-%02d-%02d", {Month, Day, YearOfCentury}},
    {11, u"%02d/%02d/%02d", {YearOfCentury, Month, Day}},
    {12, u"%02d%02d%02d", {YearOfCentury, Month, Day}},
    {100, u"%s %02d %04d %02d:%02d %s", {ShortMonth, Day, Year, Hour12, Minute, HalfOfDay}, true, u"%s %02d %04d"},
    {101, u"%02d/%02d/%04d", {Month, Day, Year}},
    {102, u"%04d.%02d.%02d", {Year, Month, Day}},
    {103, u"%02d/%02d/%04d", {Day, Month, Year}},
    {104, u"%02d.%02d.%04d", {Day, Month, Year}},
    {105, u"%02d-%02d-%04d", {Day, Month, Year}},
    {106, u"%02d %s %04d", {Day, ShortMonth, Year}},
    {107, u"%s %02d, %04d", {ShortMonth, Day, Year}},
    {109,
     u"%s %02d %04d %02d:%02d:%02d:000 %s",
     {ShortMonth, Day, Year, Hour12, Minute, Second, HalfOfDay},
     true,
     u"%s %02d %04d"},
    {110, u"%02d-%02d-%04d", {Month, Day, Year}},
    {111, u"%04d/%02d/%02d", {Year, Month, Day}},
    {112, u"%04d%02d%02d", {Year, Month, Day}},
    {113, u"%02d %s %04d %02d:%02d:%02d:000", {Day, LongMonth, Year, Hour, Minute, Second}, true, u"%02d %s %04d"},
    {120, u"%04d-%02d-%02d", {Year, Month, Day}},
    {121, u"%04d-%02d-%02d %02d:%02d:%02d.000", {Year, Month, Day, Hour, Minute, Second}, true, u"%04d-%02d-%02d"},
};

/// Every other number. It keeps its time in the date-only style too.
inline constexpr DateRow kOther = {
    -1, u"%02d %s %04d %02d:%02d:%02d:000", {Day, LongMonth, Year, Hour, Minute, Second}, true};

} // namespace date_rows

inline constexpr auto& kDateRows = date_rows::kRows;
inline constexpr const DateRow& kOtherDateRow = date_rows::kOther;

constexpr bool DateRowsAreSorted()
{
    for (size_t i = 1; i < std::size(kDateRows); ++i) {
        if (kDateRows[i - 1].id >= kDateRows[i].id) {
            return false;
        }
    }
    return true;
}
static_assert(DateRowsAreSorted() && std::size(kDateRows) == 26);

} // namespace tv
