#include "com/portable/text_forms.h"

#include <array>
#include <chrono>
#include <cmath>
#include <vector>

namespace tv::portable {

namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kDayZero = sys_days{year{1899} / 12 / 30};
constexpr int kSecondsOfDay = 24 * 60 * 60;

constexpr std::array<std::u16string_view, 12> kMonths = {u"january",   u"february", u"march",    u"april",
                                                         u"may",       u"june",     u"july",     u"august",
                                                         u"september", u"october",  u"november", u"december"};

std::u16string Number(int value, size_t digits)
{
    std::u16string text = WholeText(false, static_cast<uint64_t>(value));
    return text.size() < digits ? std::u16string(digits - text.size(), u'0') + text : text;
}

std::u16string DayText(const year_month_day& date)
{
    return Number(static_cast<int>(unsigned{date.month()}), 1) + u'/' +
           Number(static_cast<int>(unsigned{date.day()}), 1) + u'/' + Number(int{date.year()}, 1);
}

std::u16string TimeText(int seconds)
{
    const int hour = seconds / 3600;
    const int shown = hour % 12 == 0 ? 12 : hour % 12;
    return Number(shown, 1) + u':' + Number(seconds / 60 % 60, 2) + u':' + Number(seconds % 60, 2) +
           (hour < 12 ? u" AM" : u" PM");
}

/// One piece of a date's text: a number, a word in small letters, or a single separator.
struct Token
{
    enum class Kind
    {
        Number,
        Word,
        Mark
    };
    Kind kind;
    int number = 0;
    size_t length = 0;
    std::u16string word = {};
    char16_t mark = 0;
};

std::optional<std::vector<Token>> Split(std::u16string_view text)
{
    std::vector<Token> tokens;
    for (size_t i = 0; i < text.size();) {
        const char16_t c = text[i];
        if (c == u' ' || c == u'\t') {
            ++i;
        } else if (c >= u'0' && c <= u'9') {
            Token token{Token::Kind::Number};
            for (; i < text.size() && text[i] >= u'0' && text[i] <= u'9'; ++i) {
                if (++token.length > 4) {
                    return std::nullopt;
                }
                token.number = token.number * 10 + (text[i] - u'0');
            }
            tokens.push_back(token);
        } else if ((c | 0x20) >= u'a' && (c | 0x20) <= u'z') {
            Token token{Token::Kind::Word};
            for (; i < text.size() && (text[i] | 0x20) >= u'a' && (text[i] | 0x20) <= u'z'; ++i) {
                token.word += static_cast<char16_t>(text[i] | 0x20);
            }
            tokens.push_back(token);
        } else if (c == u'/' || c == u'-' || c == u':' || c == u',') {
            tokens.push_back({Token::Kind::Mark, 0, 0, {}, c});
            ++i;
        } else {
            return std::nullopt;
        }
    }
    return tokens;
}

int MonthOfWord(const std::u16string& word)
{
    for (size_t i = 0; i < kMonths.size(); ++i) {
        if (word == kMonths[i] || word == kMonths[i].substr(0, 3)) {
            return static_cast<int>(i) + 1;
        }
    }
    return 0;
}

int FullYear(const Token& token)
{
    if (token.length > 2 || token.number > 99) {
        return token.number;
    }
    return token.number < 30 ? token.number + 2000 : token.number + 1900;
}

int ThisYear()
{
    return int{year_month_day{std::chrono::floor<days>(std::chrono::system_clock::now())}.year()};
}

std::optional<DATE> DayNumber(int yearNumber, int monthNumber, int dayNumber)
{
    const year_month_day date{year{yearNumber}, month{static_cast<unsigned>(monthNumber)},
                              day{static_cast<unsigned>(dayNumber)}};
    if (yearNumber < 100 || !date.ok()) {
        return std::nullopt;
    }
    return static_cast<DATE>((sys_days{date} - kDayZero).count());
}

/// Reads the tokens of a date and a time, which may stand in either order.
class DateReader
{
  public:
    explicit DateReader(std::vector<Token> split) : tokens(std::move(split)) {}

    std::optional<DATE> Read()
    {
        while (at < tokens.size()) {
            if (!(IsTime() ? ReadTime() : ReadDay())) {
                return std::nullopt;
            }
        }
        if (!dayPart && !timePart) {
            return std::nullopt;
        }
        const DATE whole = dayPart.value_or(0);
        const DATE time = timePart.value_or(0);
        return whole < 0 ? whole - time : whole + time;
    }

  private:
    bool IsKind(size_t index, Token::Kind kind) const { return index < tokens.size() && tokens[index].kind == kind; }
    bool IsNumber(size_t index) const { return IsKind(index, Token::Kind::Number); }
    bool IsMark(size_t index, char16_t mark) const
    {
        return IsKind(index, Token::Kind::Mark) && tokens[index].mark == mark;
    }
    bool IsDaySeparator(size_t index) const { return IsMark(index, u'/') || IsMark(index, u'-'); }
    bool IsHalfOfDay(size_t index) const
    {
        return IsKind(index, Token::Kind::Word) && (tokens[index].word == u"am" || tokens[index].word == u"pm");
    }
    bool IsTime() const { return IsNumber(at) && (IsMark(at + 1, u':') || IsHalfOfDay(at + 1)); }

    bool ReadTime()
    {
        if (timePart) {
            return false;
        }
        int parts[3] = {tokens[at++].number, 0, 0};
        for (int i = 1; i < 3 && IsMark(at, u':'); ++i) {
            if (!IsNumber(at + 1)) {
                return false;
            }
            parts[i] = tokens[at + 1].number;
            at += 2;
        }
        if (IsHalfOfDay(at)) {
            const bool afternoon = tokens[at++].word.front() == u'p';
            // An hour after twelve o'clock needs no such word, and one is read over.
            if (parts[0] <= 12) {
                parts[0] = parts[0] % 12 + (afternoon ? 12 : 0);
            }
        }
        return SetTime(parts);
    }

    bool SetTime(const int (&parts)[3])
    {
        if (parts[0] > 23 || parts[1] > 59 || parts[2] > 59) {
            return false;
        }
        timePart = (parts[0] * 3600 + parts[1] * 60 + parts[2]) / static_cast<DATE>(kSecondsOfDay);
        return true;
    }

    bool ReadDay()
    {
        if (dayPart) {
            return false;
        }
        dayPart = IsNumber(at) && IsDaySeparator(at + 1) && IsNumber(at + 2) ? ReadNumericDay() : ReadNamedDay();
        return dayPart.has_value();
    }

    std::optional<DATE> ReadNumericDay()
    {
        const Token first = tokens[at];
        const Token second = tokens[at + 2];
        at += 3;
        if (!IsDaySeparator(at) || !IsNumber(at + 1)) {
            return second.number > 31 ? DayNumber(FullYear(second), first.number, 1)
                                      : AmericanDay(ThisYear(), first.number, second.number);
        }
        const Token third = tokens[at + 1];
        at += 2;
        if (first.length > 2 || first.number > 31) {
            return AmericanDay(FullYear(first), second.number, third.number);
        }
        return AmericanDay(FullYear(third), first.number, second.number);
    }

    /// Month before day; the other way round when it can't be so.
    static std::optional<DATE> AmericanDay(int yearNumber, int first, int second)
    {
        return first > 12 && second <= 12 ? DayNumber(yearNumber, second, first) : DayNumber(yearNumber, first, second);
    }

    /// "March 15, 2023", "15 March 2023", "15-Mar-2023", with or without the year.
    std::optional<DATE> ReadNamedDay()
    {
        std::vector<Token> numbers;
        int monthNumber = 0;
        for (; at < tokens.size() && numbers.size() < 2 && !IsTime(); ++at) {
            if (IsNumber(at)) {
                numbers.push_back(tokens[at]);
            } else if (IsKind(at, Token::Kind::Word)) {
                const int named = MonthOfWord(tokens[at].word);
                if (named == 0 || monthNumber != 0) {
                    return std::nullopt;
                }
                monthNumber = named;
            } else if (!IsMark(at, u',') && !IsDaySeparator(at)) {
                return std::nullopt;
            }
        }
        if (monthNumber == 0 || numbers.empty()) {
            return std::nullopt;
        }
        const bool yearOnly = numbers.size() == 1 && numbers[0].number > 31;
        if (yearOnly) {
            return DayNumber(FullYear(numbers[0]), monthNumber, 1);
        }
        return DayNumber(numbers.size() == 2 ? FullYear(numbers[1]) : ThisYear(), monthNumber, numbers[0].number);
    }

    std::vector<Token> tokens;
    size_t at = 0;
    std::optional<DATE> dayPart;
    std::optional<DATE> timePart;
};

} // namespace

bool IsDate(double number)
{
    return number > -657435.0 && number < 2958466.0;
}

std::optional<std::u16string> DateText(DATE date, DateParts parts)
{
    if (!IsDate(date)) {
        return std::nullopt;
    }
    // The time of a day before day 0 counts forward from its midnight too: -1.25 is six o'clock of 29 December 1899.
    const double wholeDay = std::trunc(date);
    int dayNumber = static_cast<int>(wholeDay);
    int seconds = static_cast<int>(std::floor(std::fabs(date - wholeDay) * kSecondsOfDay + 0.5));
    if (seconds == kSecondsOfDay) {
        seconds = 0;
        ++dayNumber;
    }
    const year_month_day calendarDay{kDayZero + days{dayNumber}};
    // What is shown depends on the number and not on the seconds it is rounded to: a blink before midnight is shown as
    // the next day's 12:00:00 AM.
    const bool showsTime = parts == DateParts::TimeOnly || (parts == DateParts::All && (date != wholeDay || date == 0));
    const bool showsDay = parts == DateParts::DateOnly || (parts == DateParts::All && wholeDay != 0);
    std::u16string text = showsDay ? DayText(calendarDay) : std::u16string();
    if (showsTime) {
        text += (showsDay ? u" " : u"") + TimeText(seconds);
    }
    return text;
}

std::optional<DATE> ParseDate(std::u16string_view text)
{
    std::optional<std::vector<Token>> tokens = Split(text);
    return tokens ? DateReader(std::move(*tokens)).Read() : std::nullopt;
}

} // namespace tv::portable
