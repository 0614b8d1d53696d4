#include "macro/format.h"

#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

namespace {

struct NamedDate
{
    std::u16string_view name;
    std::u16string_view pattern;
};

constexpr NamedDate kNamedDates[] = {
    {u"general date", u"c"},      {u"long date", u"dddd, mmmm d, yyyy"}, {u"medium date", u"dd-mmm-yy"},
    {u"short date", u"m/d/yyyy"}, {u"long time", u"h:nn:ss AM/PM"},      {u"medium time", u"hh:nn AM/PM"},
    {u"short time", u"hh:nn"},
};

/// Runs of letters that stand for a whole date or time.
constexpr NamedDate kWholeForms[] = {
    {u"dddddd", u"dddd, mmmm d, yyyy"},
    {u"ddddd", u"m/d/yyyy"},
    {u"ttttt", u"h:nn:ss AM/PM"},
};

struct HalfOfDay
{
    std::u16string_view sign;
    size_t morning;
    size_t afternoon;
    size_t length;
};

/// The letters of the sign that show the half of the day, as they are written.
constexpr HalfOfDay kHalvesOfDay[] = {
    {u"am/pm", 0, 3, 2},
    {u"a/p", 0, 2, 1},
};

std::u16string Padded(int value, size_t width)
{
    std::u16string text = Widen(std::to_string(value));
    return std::u16string(text.size() < width ? width - text.size() : 0, u'0') + text;
}

/// Writes one date by one pattern.
class DateWriter
{
  public:
    DateWriter(double days, std::u16string_view form, const WeekRule& rule)
        : date(days), parts(SplitDate(days)), pattern(form), lower(Lower(form)), weeks(rule)
    {
        clock12 = lower.find(u"am/pm") != std::u16string::npos || lower.find(u"a/p") != std::u16string::npos ||
                  lower.find(u"ampm") != std::u16string::npos;
    }

    std::u16string Write()
    {
        while (at < pattern.size()) {
            if (!WriteHalfOfDay() && !WriteLiteral() && !WriteWholeForm() && !WriteSymbol()) {
                result.push_back(pattern[at++]);
            }
        }
        return std::move(result);
    }

  private:
    bool WriteHalfOfDay()
    {
        for (const HalfOfDay& half : kHalvesOfDay) {
            if (lower.compare(at, half.sign.size(), half.sign) == 0) {
                result += pattern.substr(at + (parts.hour < 12 ? half.morning : half.afternoon), half.length);
                at += half.sign.size();
                return true;
            }
        }
        if (lower.compare(at, 4, u"ampm") == 0) {
            result += parts.hour < 12 ? u"AM" : u"PM";
            at += 4;
            return true;
        }
        return false;
    }

    bool WriteLiteral()
    {
        if (pattern[at] == u'"') {
            size_t close = std::min(pattern.find(u'"', at + 1), pattern.size());
            result += pattern.substr(at + 1, close - at - 1);
            at = std::min(close + 1, pattern.size());
            return true;
        }
        if (pattern[at] == u'\\' && at + 1 < pattern.size()) {
            result.push_back(pattern[at + 1]);
            at += 2;
            return true;
        }
        return false;
    }

    bool WriteWholeForm()
    {
        for (const NamedDate& form : kWholeForms) {
            if (lower.compare(at, form.name.size(), form.name) == 0) {
                result += FormatDate(date, form.pattern, weeks);
                at += form.name.size();
                return true;
            }
        }
        if (lower[at] == u'c') {
            result += DateText(date);
            ++at;
            return true;
        }
        return false;
    }

    bool WriteSymbol()
    {
        char16_t unit = lower[at];
        if (std::u16string_view(u"dmyhnsqw").find(unit) == std::u16string_view::npos) {
            return false;
        }
        size_t count = std::min(lower.find_first_not_of(unit, at), lower.size()) - at;
        // Behind the hour, "m" means minutes.
        char16_t symbol = unit == u'm' && afterHour && count <= 2 ? u'n' : unit;
        result += Symbol(symbol, count);
        afterHour = unit == u'h';
        at += count;
        return true;
    }

    std::u16string Symbol(char16_t symbol, size_t count) const
    {
        switch (symbol) {
        case u'd':
            return count >= 4   ? std::u16string(WeekdayName(parts.weekday))
                   : count == 3 ? std::u16string(WeekdayName(parts.weekday).substr(0, 3))
                                : Padded(parts.day, count);
        case u'm':
            return count >= 4   ? std::u16string(MonthName(parts.month))
                   : count == 3 ? std::u16string(MonthName(parts.month).substr(0, 3))
                                : Padded(parts.month, count);
        case u'y':
            return count >= 3   ? Padded(parts.year, 4)
                   : count == 2 ? Padded(parts.year % 100, 2)
                                : Padded(parts.dayOfYear, 1);
        case u'h':
            return Padded(clock12 ? (parts.hour % 12 == 0 ? 12 : parts.hour % 12) : parts.hour, count);
        case u'n':
            return Padded(parts.minute, count);
        case u's':
            return Padded(parts.second, count);
        case u'q':
            return Padded((parts.month - 1) / 3 + 1, 1);
        default:
            return Padded(count == 1 ? WeekdayFrom(parts.weekday, weeks.firstDay) : WeekOfYear(date, weeks), 1);
        }
    }

    double date;
    DateParts parts;
    std::u16string_view pattern;
    std::u16string lower;
    WeekRule weeks;
    std::u16string result;
    size_t at = 0;
    bool clock12 = false;
    bool afterHour = false;
};

} // namespace

std::u16string_view NamedDatePattern(std::u16string_view name)
{
    for (const NamedDate& named : kNamedDates) {
        if (EqualIgnoringCase(named.name, name)) {
            return named.pattern;
        }
    }
    return {};
}

bool IsDatePattern(std::u16string_view pattern)
{
    std::u16string lower = Lower(pattern);
    if (lower.find(u"ttttt") != std::u16string::npos) {
        return true;
    }
    bool quoted = false;
    for (size_t i = 0; i < lower.size(); ++i) {
        char16_t unit = lower[i];
        if (unit == u'\\' && !quoted) {
            ++i;
            continue;
        }
        quoted = unit == u'"' ? !quoted : quoted;
        if (!quoted && std::u16string_view(u"dmyhnsqwc").find(unit) != std::u16string_view::npos) {
            return true;
        }
        if (!quoted && (unit == u'0' || unit == u'#')) {
            return false;
        }
    }
    return false;
}

std::u16string FormatDate(double date, std::u16string_view pattern, const WeekRule& weeks)
{
    return DateWriter(date, pattern, weeks).Write();
}

} // namespace tv::macro
