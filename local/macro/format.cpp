#include "macro/format.h"

#include "macro/convert.h"
#include "macro/dates.h"
#include "macro/text.h"

#include <cmath>
#include <cstdio>

namespace tv::macro {

namespace {

struct NamedFormat
{
    std::u16string_view name;
    std::u16string_view pattern;
};

constexpr NamedFormat kNumberFormats[] = {
    {u"fixed", u"0.00"},       {u"standard", u"#,##0.00"},      {u"percent", u"0.00%"},
    {u"scientific", u"0.00E+00"}, {u"currency", u"$#,##0.00;($#,##0.00)"},
};

constexpr NamedFormat kDateFormats[] = {
    {u"general date", u"c"},         {u"long date", u"dddd, mmmm d, yyyy"}, {u"medium date", u"dd-mmm-yy"},
    {u"short date", u"m/d/yyyy"},    {u"long time", u"h:nn:ss AM/PM"},      {u"medium time", u"hh:nn AM/PM"},
    {u"short time", u"hh:nn"},
};

const NamedFormat* FindNamed(std::span<const NamedFormat> formats, std::u16string_view name)
{
    for (const NamedFormat& format : formats) {
        if (EqualIgnoringCase(format.name, name)) {
            return &format;
        }
    }
    return nullptr;
}

std::u16string Padded(int value, size_t width)
{
    std::u16string text = Widen(std::to_string(value));
    return std::u16string(text.size() < width ? width - text.size() : 0, u'0') + text;
}

/// Sections of a pattern, parted by ";" outside of quotes.
std::vector<std::u16string> Sections(std::u16string_view pattern)
{
    std::vector<std::u16string> sections(1);
    bool quoted = false;
    for (size_t i = 0; i < pattern.size(); ++i) {
        char16_t unit = pattern[i];
        quoted = unit == u'"' ? !quoted : quoted;
        if (unit == u'\\' && i + 1 < pattern.size()) {
            sections.back().append({unit, pattern[++i]});
        } else if (unit == u';' && !quoted) {
            sections.emplace_back();
        } else {
            sections.back().push_back(unit);
        }
    }
    return sections;
}

/// One pattern of a number, read into its parts.
struct NumberPattern
{
    size_t wholeDigits = 0;
    size_t leastWhole = 0;
    size_t decimals = 0;
    size_t leastDecimals = 0;
    bool hasPoint = false;
    bool grouped = false;
    int percents = 0;
    int thousands = 0;
    size_t exponentDigits = 0;
    bool exponentPlus = false;
    bool isScientific = false;
};

bool IsPlaceholder(char16_t unit) { return unit == u'0' || unit == u'#'; }

bool IsExponent(std::u16string_view pattern, size_t i)
{
    return (pattern[i] == u'E' || pattern[i] == u'e') && i + 2 < pattern.size() &&
           (pattern[i + 1] == u'+' || pattern[i + 1] == u'-') && pattern[i + 2] == u'0';
}

NumberPattern ReadNumberPattern(std::u16string_view pattern)
{
    NumberPattern read;
    bool quoted = false;
    for (size_t i = 0; i < pattern.size(); ++i) {
        char16_t unit = pattern[i];
        if (unit == u'"') {
            quoted = !quoted;
        } else if (quoted) {
            continue;
        } else if (unit == u'\\') {
            ++i;
        } else if (IsExponent(pattern, i)) {
            read.isScientific = true;
            read.exponentPlus = pattern[i + 1] == u'+';
            for (i += 2; i < pattern.size() && IsPlaceholder(pattern[i]); ++i) {
                ++read.exponentDigits;
            }
            --i;
        } else if (IsPlaceholder(unit)) {
            size_t& digits = read.hasPoint ? read.decimals : read.wholeDigits;
            ++digits;
            if (unit == u'0' && read.hasPoint) {
                read.leastDecimals = read.decimals;
            } else if (!read.hasPoint && (unit == u'0' || read.leastWhole > 0)) {
                ++read.leastWhole;
            }
        } else if (unit == u'.') {
            read.hasPoint = true;
        } else if (unit == u',' && !read.hasPoint && read.wholeDigits > 0) {
            bool followed = i + 1 < pattern.size() && (IsPlaceholder(pattern[i + 1]) || pattern[i + 1] == u',');
            read.grouped = read.grouped || followed;
            read.thousands += followed ? 0 : 1;
        } else if (unit == u'%') {
            ++read.percents;
        }
    }
    return read;
}

std::string FixedText(double number, size_t decimals)
{
    // Formatting rounds half away from zero, seen on 15 digits.
    char buffer[400];
    double scale = std::pow(10.0, static_cast<double>(decimals));
    double scaled = number * scale;
    if (scaled < 1e15) {
        std::snprintf(buffer, sizeof buffer, "%.15g", scaled);
        number = std::floor(std::strtod(buffer, nullptr) + 0.5) / scale;
    }
    std::snprintf(buffer, sizeof buffer, "%.*f", static_cast<int>(decimals), number);
    return buffer;
}

std::u16string Grouped(std::u16string digits)
{
    for (size_t i = digits.size(); i > 3; i -= 3) {
        digits.insert(i - 3, u",");
    }
    return digits;
}

/// Puts digits into the places of a pattern; everything else in it stands as it is.
std::u16string FillPattern(std::u16string_view pattern, const NumberPattern& read, std::u16string whole,
                           const std::u16string& decimals, int exponent)
{
    std::u16string result;
    bool quoted = false;
    bool wroteWhole = false;
    bool afterPoint = false;
    for (size_t i = 0; i < pattern.size(); ++i) {
        char16_t unit = pattern[i];
        if (unit == u'"') {
            quoted = !quoted;
        } else if (quoted) {
            result.push_back(unit);
        } else if (unit == u'\\') {
            if (i + 1 < pattern.size()) {
                result.push_back(pattern[++i]);
            }
        } else if (IsExponent(pattern, i)) {
            result.push_back(unit);
            result += exponent < 0 ? u"-" : (read.exponentPlus ? u"+" : u"");
            result += Padded(std::abs(exponent), read.exponentDigits);
            i += 1 + read.exponentDigits;
        } else if (IsPlaceholder(unit) && !afterPoint) {
            result += wroteWhole ? std::u16string() : whole;
            wroteWhole = true;
        } else if (IsPlaceholder(unit)) {
            continue;
        } else if (unit == u'.') {
            result += wroteWhole || afterPoint ? std::u16string() : whole;
            wroteWhole = true;
            if (!afterPoint) {
                result.push_back(u'.');
                result += decimals;
            }
            afterPoint = true;
        } else if (unit != u',' || read.wholeDigits == 0) {
            result.push_back(unit);
        }
    }
    return result;
}

std::u16string FormatNumber(double number, std::u16string_view pattern)
{
    NumberPattern read = ReadNumberPattern(pattern);
    if (read.decimals > 60) {
        read.decimals = 60;
    }
    number = std::abs(number) * std::pow(100.0, read.percents) / std::pow(1000.0, read.thousands);
    int exponent = 0;
    if (read.isScientific && number != 0) {
        exponent = static_cast<int>(std::floor(std::log10(number))) - static_cast<int>(read.wholeDigits) + 1;
        number /= std::pow(10.0, exponent);
    }
    std::string text = FixedText(number, read.decimals);
    size_t point = text.find('.');
    std::u16string whole = Widen(text.substr(0, point));
    std::u16string decimals = point == std::string::npos ? std::u16string() : Widen(text.substr(point + 1));
    while (decimals.size() > read.leastDecimals && decimals.back() == u'0') {
        decimals.pop_back();
    }
    if (whole == u"0" && read.leastWhole == 0) {
        whole.clear();
    }
    while (whole.size() < read.leastWhole) {
        whole.insert(whole.begin(), u'0');
    }
    return FillPattern(pattern, read, read.grouped ? Grouped(whole) : whole, decimals, exponent);
}

std::u16string FormatNumberSections(double number, std::u16string_view pattern)
{
    std::vector<std::u16string> sections = Sections(pattern);
    if (number < 0 && sections.size() > 1 && !sections[1].empty()) {
        return FormatNumber(number, sections[1]);
    }
    if (number == 0 && sections.size() > 2 && !sections[2].empty()) {
        return FormatNumber(0, sections[2]);
    }
    std::u16string text = FormatNumber(number, sections[0]);
    bool isZero = text.find_first_of(u"123456789") == std::u16string::npos;
    return number < 0 && !isZero ? u"-" + text : text;
}

std::u16string DateSymbol(char16_t symbol, size_t count, const DateParts& parts, bool clock12)
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
        return count >= 3 ? Padded(parts.year, 4) : count == 2 ? Padded(parts.year % 100, 2) : Padded(parts.dayOfYear, 1);
    case u'h':
        return Padded(clock12 ? (parts.hour % 12 == 0 ? 12 : parts.hour % 12) : parts.hour, count);
    case u'n':
        return Padded(parts.minute, count);
    case u's':
        return Padded(parts.second, count);
    case u'q':
        return Padded((parts.month - 1) / 3 + 1, 1);
    default:
        return Padded(parts.weekday, 1);
    }
}

std::u16string FormatDatePattern(double date, std::u16string_view pattern)
{
    DateParts parts = SplitDate(date);
    std::u16string lower = Lower(pattern);
    bool clock12 = lower.find(u"am/pm") != std::u16string::npos || lower.find(u"a/p") != std::u16string::npos;
    std::u16string result;
    bool afterHour = false;
    for (size_t i = 0; i < pattern.size();) {
        char16_t unit = lower[i];
        if (lower.compare(i, 5, u"am/pm") == 0) {
            bool capital = pattern[i] == u'A';
            result += parts.hour < 12 ? (capital ? u"AM" : u"am") : (capital ? u"PM" : u"pm");
            i += 5;
        } else if (lower.compare(i, 3, u"a/p") == 0) {
            result += parts.hour < 12 ? pattern[i] : pattern[i + 2];
            i += 3;
        } else if (unit == u'"') {
            size_t close = std::min(pattern.find(u'"', i + 1), pattern.size());
            result += pattern.substr(i + 1, close - i - 1);
            i = std::min(close + 1, pattern.size());
        } else if (unit == u'\\' && i + 1 < pattern.size()) {
            result.push_back(pattern[i + 1]);
            i += 2;
        } else if (unit == u'c') {
            result += DateText(date);
            ++i;
        } else if (std::u16string_view(u"dmyhnsqw").find(unit) != std::u16string_view::npos) {
            size_t count = 1;
            while (i + count < lower.size() && lower[i + count] == unit) {
                ++count;
            }
            // Behind the hour, "m" means minutes.
            char16_t symbol = unit == u'm' && afterHour && count <= 2 ? u'n' : unit;
            result += DateSymbol(symbol, count, parts, clock12);
            afterHour = unit == u'h';
            i += count;
        } else {
            result.push_back(pattern[i]);
            ++i;
        }
    }
    return result;
}

bool IsDatePattern(std::u16string_view pattern)
{
    bool quoted = false;
    for (char16_t unit : Lower(pattern)) {
        quoted = unit == u'"' ? !quoted : quoted;
        if (!quoted && std::u16string_view(u"dmyhnsqwc").find(unit) != std::u16string_view::npos) {
            return true;
        }
        if (!quoted && IsPlaceholder(unit)) {
            return false;
        }
    }
    return false;
}

std::u16string FormatTextPattern(const std::u16string& text, std::u16string_view pattern)
{
    bool rightToLeft = pattern.find(u'!') == std::u16string_view::npos;
    size_t places = 0;
    for (char16_t unit : pattern) {
        places += unit == u'@' || unit == u'&' ? 1 : 0;
    }
    size_t missing = places > text.size() ? places - text.size() : 0;
    std::u16string result;
    size_t taken = 0;
    size_t place = 0;
    char16_t letters = 0;
    for (char16_t unit : pattern) {
        if (unit == u'@' || unit == u'&') {
            bool empty = rightToLeft ? place < missing : taken >= text.size();
            if (!empty) {
                result.push_back(text[taken++]);
            } else if (unit == u'@') {
                result.push_back(u' ');
            }
            ++place;
        } else if (unit == u'<' || unit == u'>') {
            letters = unit;
        } else if (unit != u'!') {
            result.push_back(unit);
        }
    }
    result += text.substr(std::min(taken, text.size()));
    return letters == u'<' ? Lower(result) : letters == u'>' ? Upper(result) : result;
}

} // namespace

std::u16string FormatValue(const Value& given, std::u16string_view pattern)
{
    const Value& value = given.Resolved();
    if (value.IsNull()) {
        return {};
    }
    if (pattern.empty() || EqualIgnoringCase(pattern, u"general number")) {
        return value.ToText();
    }
    bool isText = value.IsString() || value.IsEmpty();
    if (pattern.find_first_of(u"@&<>") != std::u16string_view::npos) {
        return FormatTextPattern(value.ToText(), pattern);
    }
    struct Words
    {
        std::u16string_view name;
        std::u16string_view yes;
        std::u16string_view no;
    };
    constexpr Words kWords[] = {
        {u"yes/no", u"Yes", u"No"}, {u"true/false", u"True", u"False"}, {u"on/off", u"On", u"Off"}};
    for (const Words& words : kWords) {
        if (EqualIgnoringCase(pattern, words.name)) {
            return std::u16string(value.ToBoolean() ? words.yes : words.no);
        }
    }
    const NamedFormat* namedDate = FindNamed(kDateFormats, pattern);
    const NamedFormat* namedNumber = FindNamed(kNumberFormats, pattern);
    bool wantsDate = namedDate != nullptr || (namedNumber == nullptr && IsDatePattern(pattern));
    if (wantsDate) {
        std::optional<double> date =
            value.IsString() ? ParseDate(value.Text()) : std::optional(value.ToDouble());
        if (value.IsString() && !date) {
            date = ParseNumber(value.Text());
        }
        if (!date || !IsDateInRange(*date)) {
            return value.ToText();
        }
        return FormatDatePattern(*date, namedDate != nullptr ? namedDate->pattern : pattern);
    }
    std::optional<double> number = isText ? ParseNumber(value.ToText()) : std::optional(value.ToDouble());
    if (!number) {
        return value.ToText();
    }
    return FormatNumberSections(*number, namedNumber != nullptr ? namedNumber->pattern : pattern);
}

} // namespace tv::macro
