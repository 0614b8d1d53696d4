#include "macro/dates.h"

#include "macro/text.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

namespace tv::macro {

namespace {

constexpr double kFirstDay = -657434; // 1 January 100
constexpr double kLastDay = 2958466;  // 1 January 10000
constexpr int kSecondsADay = 86400;

constexpr std::array<std::u16string_view, 12> kMonths = {
    u"January", u"February", u"March",     u"April",   u"May",      u"June",
    u"July",    u"August",   u"September", u"October", u"November", u"December",
};

constexpr std::array<std::u16string_view, 7> kWeekdays = {
    u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday",
};

/// Days from 30 December 1899 to a day of the Gregorian calendar.
int64_t DayNumber(int64_t year, int64_t month, int64_t day)
{
    int64_t y = month <= 2 ? year - 1 : year;
    int64_t era = (y >= 0 ? y : y - 399) / 400;
    int64_t yearOfEra = y - era * 400;
    int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    constexpr int64_t kEpoch = 693899;
    return era * 146097 + dayOfEra - kEpoch;
}

void SetCalendarDay(DateParts& parts, int64_t dayNumber)
{
    int64_t z = dayNumber + 693899;
    int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    int64_t dayOfEra = z - era * 146097;
    int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    int64_t shifted = (5 * dayOfYear + 2) / 153;
    parts.day = static_cast<int>(dayOfYear - (153 * shifted + 2) / 5 + 1);
    parts.month = static_cast<int>(shifted < 10 ? shifted + 3 : shifted - 9);
    parts.year = static_cast<int>(yearOfEra + era * 400 + (parts.month <= 2 ? 1 : 0));
    parts.dayOfYear = static_cast<int>(dayNumber - DayNumber(parts.year, 1, 1) + 1);
    parts.weekday = static_cast<int>(((dayNumber + 6) % 7 + 7) % 7) + 1;
}

/// A word or a number of a date text, and what stood in front of it.
struct DateToken
{
    bool isNumber = false;
    int64_t number = 0;
    size_t digits = 0;
    std::u16string word;
    char16_t separator = u' ';
};

bool IsDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}
bool IsLetter(char16_t unit)
{
    return LowerUnit(unit) >= u'a' && LowerUnit(unit) <= u'z';
}

std::optional<std::vector<DateToken>> ReadTokens(std::u16string_view text)
{
    std::vector<DateToken> tokens;
    char16_t separator = u' ';
    for (size_t i = 0; i < text.size();) {
        DateToken token;
        if (IsDigit(text[i])) {
            token.isNumber = true;
            for (; i < text.size() && IsDigit(text[i]); ++i) {
                token.number = token.number * 10 + (text[i] - u'0');
                if (++token.digits > 5) {
                    return std::nullopt;
                }
            }
        } else if (IsLetter(text[i])) {
            for (; i < text.size() && IsLetter(text[i]); ++i) {
                token.word.push_back(LowerUnit(text[i]));
            }
        } else {
            if (std::u16string_view(u" /-:,.").find(text[i]) == std::u16string_view::npos) {
                return std::nullopt;
            }
            separator = text[i] == u' ' && separator != u' ' ? separator : text[i];
            ++i;
            continue;
        }
        token.separator = separator;
        separator = u' ';
        tokens.push_back(std::move(token));
    }
    return separator == u' ' ? std::optional(tokens) : std::nullopt;
}

int MonthFromWord(std::u16string_view word)
{
    for (size_t i = 0; i < kMonths.size(); ++i) {
        std::u16string full = Lower(kMonths[i]);
        if (word.size() >= 3 && (word == full || word == full.substr(0, 3))) {
            return static_cast<int>(i) + 1;
        }
    }
    return 0;
}

bool IsWeekdayWord(std::u16string_view word)
{
    for (std::u16string_view name : kWeekdays) {
        std::u16string full = Lower(name);
        if (word == full || word == full.substr(0, 3)) {
            return true;
        }
    }
    return false;
}

int64_t WindowedYear(const DateToken& token)
{
    if (token.digits > 2) {
        return token.number;
    }
    return token.number < 30 ? 2000 + token.number : 1900 + token.number;
}

/// Takes the clock time out of the tokens. Nothing when it is malformed.
std::optional<double> TakeTime(std::vector<DateToken>& tokens)
{
    bool afternoon = false;
    bool marked = false;
    if (!tokens.empty() && (tokens.back().word == u"am" || tokens.back().word == u"pm")) {
        marked = true;
        afternoon = tokens.back().word == u"pm";
        tokens.pop_back();
    }
    size_t first = tokens.size();
    for (size_t i = 1; i < tokens.size(); ++i) {
        if (tokens[i].separator == u':') {
            first = i - 1;
            break;
        }
    }
    if (first == tokens.size()) {
        if (!marked) {
            return 0;
        }
        if (tokens.empty()) {
            return std::nullopt;
        }
        first = tokens.size() - 1;
    }
    size_t count = tokens.size() - first;
    if (count > 3) {
        return std::nullopt;
    }
    int64_t parts[3] = {0, 0, 0};
    for (size_t i = 0; i < count; ++i) {
        if (!tokens[first + i].isNumber) {
            return std::nullopt;
        }
        parts[i] = tokens[first + i].number;
    }
    if (parts[0] > 23 || parts[1] > 59 || parts[2] > 59 || (marked && parts[0] > 12)) {
        return std::nullopt;
    }
    if (marked) {
        parts[0] = parts[0] % 12 + (afternoon ? 12 : 0);
    }
    tokens.resize(first);
    return JoinTime(parts[0], parts[1], parts[2]);
}

std::optional<double> CheckedDay(int64_t year, int64_t month, int64_t day)
{
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 ||
        day > DaysInMonth(year, static_cast<int>(month))) {
        return std::nullopt;
    }
    return static_cast<double>(DayNumber(year, month, day));
}

thread_local int currentYear = 0;

/// A day and a month without a year, or a month and a year without a day.
std::optional<double> DayFromTwoNumbers(const DateToken& first, const DateToken& second)
{
    if (second.separator != u'/' && second.separator != u'-') {
        return std::nullopt;
    }
    if (second.digits > 2) {
        return CheckedDay(second.number, first.number, 1);
    }
    if (first.digits > 2) {
        return CheckedDay(first.number, second.number, 1);
    }
    std::optional<double> day = CheckedDay(currentYear, first.number, second.number);
    return day ? day : CheckedDay(currentYear, second.number, first.number);
}

std::optional<double> DayFromNumbers(const std::vector<DateToken>& n)
{
    if (n.size() == 2) {
        return DayFromTwoNumbers(n[0], n[1]);
    }
    if (n.size() == 3 && n[0].digits > 2) {
        return CheckedDay(n[0].number, n[1].number, n[2].number);
    }
    if (n.size() != 3) {
        return std::nullopt;
    }
    int64_t year = WindowedYear(n[2]);
    std::optional<double> day = CheckedDay(year, n[0].number, n[1].number);
    return day ? day : CheckedDay(year, n[1].number, n[0].number);
}

} // namespace

bool IsLeapYear(int64_t year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int64_t year, int month)
{
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

bool IsDateInRange(double days)
{
    return days > kFirstDay - 1 && days < kLastDay;
}

DateParts SplitDate(double days)
{
    double whole = std::trunc(days);
    int64_t seconds = static_cast<int64_t>(std::llround(std::abs(days - whole) * kSecondsADay));
    int64_t day = static_cast<int64_t>(whole);
    if (seconds == kSecondsADay) {
        seconds = 0;
        day += days < 0 ? -1 : 1;
    }
    DateParts parts;
    SetCalendarDay(parts, day);
    parts.hour = static_cast<int>(seconds / 3600);
    parts.minute = static_cast<int>(seconds / 60 % 60);
    parts.second = static_cast<int>(seconds % 60);
    return parts;
}

double JoinDate(int64_t year, int64_t month, int64_t day)
{
    int64_t months = year * 12 + month - 1;
    int64_t realYear = months >= 0 ? months / 12 : (months - 11) / 12;
    return static_cast<double>(DayNumber(realYear, months - realYear * 12 + 1, 1) + day - 1);
}

double JoinTime(int64_t hour, int64_t minute, int64_t second)
{
    return static_cast<double>(hour * 3600 + minute * 60 + second) / kSecondsADay;
}

int WeekdayFrom(int weekday, int firstDay)
{
    return (weekday - firstDay + 7) % 7 + 1;
}

int WeekOfYear(double days, const WeekRule& rule)
{
    constexpr int kLeastDays[] = {1, 4, 7};
    const int least = kLeastDays[rule.firstWeek - 1];
    // Days of a year's first week that lie in the year before, or how many days of the year come before that week.
    auto offset = [&](int64_t year) {
        int before = WeekdayFrom(SplitDate(JoinDate(year, 1, 1)).weekday, rule.firstDay) - 1;
        return 7 - before >= least ? before : before - 7;
    };
    DateParts parts = SplitDate(days);
    int untilNewYear = (IsLeapYear(parts.year) ? 366 : 365) - parts.dayOfYear + 1;
    if (least > 1 && untilNewYear <= offset(parts.year + 1)) {
        return 1;
    }
    int day = parts.dayOfYear - 1 + offset(parts.year);
    if (day < 0) {
        return WeekOfYear(JoinDate(parts.year - 1, 12, 31), rule);
    }
    return day / 7 + 1;
}

CurrentYear::CurrentYear(double today) : previous(currentYear)
{
    currentYear = SplitDate(today).year;
}
CurrentYear::~CurrentYear()
{
    currentYear = previous;
}

double CombineDate(double day, double time)
{
    return day < 0 ? day - time : day + time;
}

std::u16string DateText(double days)
{
    DateParts parts = SplitDate(days);
    char buffer[64];
    std::string text;
    bool midnight = parts.hour == 0 && parts.minute == 0 && parts.second == 0;
    bool dayZero = std::trunc(days) == 0;
    if (!dayZero || midnight) {
        std::snprintf(buffer, sizeof buffer, "%d/%d/%d", parts.month, parts.day, parts.year);
        text = dayZero ? "12:00:00 AM" : buffer;
    }
    if (!midnight) {
        int hour = parts.hour % 12 == 0 ? 12 : parts.hour % 12;
        std::snprintf(buffer, sizeof buffer, "%s%d:%02d:%02d %s", text.empty() ? "" : " ", hour, parts.minute,
                      parts.second, parts.hour < 12 ? "AM" : "PM");
        text += buffer;
    }
    return Widen(text);
}

std::optional<double> ParseDate(std::u16string_view text)
{
    std::optional<std::vector<DateToken>> read = ReadTokens(TrimBlanks(text));
    if (!read || read->empty()) {
        return std::nullopt;
    }
    std::vector<DateToken> tokens = std::move(*read);
    size_t before = tokens.size();
    std::optional<double> time = TakeTime(tokens);
    if (!time) {
        return std::nullopt;
    }
    if (!tokens.empty() && !tokens.front().isNumber && IsWeekdayWord(tokens.front().word)) {
        tokens.erase(tokens.begin());
    }
    if (tokens.empty()) {
        return before > 1 ? time : std::nullopt;
    }
    int month = 0;
    std::vector<DateToken> numbers;
    for (const DateToken& token : tokens) {
        if (token.isNumber) {
            numbers.push_back(token);
        } else {
            int named = MonthFromWord(token.word);
            if (named == 0 || month != 0) {
                return std::nullopt;
            }
            month = named;
        }
    }
    std::optional<double> day;
    if (month == 0) {
        day = DayFromNumbers(numbers);
    } else if (numbers.size() == 2) {
        day = numbers[0].digits > 2 ? CheckedDay(numbers[0].number, month, numbers[1].number)
                                    : CheckedDay(WindowedYear(numbers[1]), month, numbers[0].number);
    } else if (numbers.size() == 1) {
        day = numbers[0].digits > 2 ? CheckedDay(numbers[0].number, month, 1)
                                    : CheckedDay(currentYear, month, numbers[0].number);
    }
    return day ? std::optional(CombineDate(*day, *time)) : std::nullopt;
}

std::u16string_view MonthName(int month)
{
    return kMonths[static_cast<size_t>(month - 1)];
}
std::u16string_view WeekdayName(int weekday)
{
    return kWeekdays[static_cast<size_t>(weekday - 1)];
}

} // namespace tv::macro
