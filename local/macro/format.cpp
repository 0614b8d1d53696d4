#include "macro/format.h"

#include "macro/convert.h"
#include "macro/dates.h"
#include "macro/text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tv::macro {

namespace {

struct NamedFormat
{
    std::u16string_view name;
    std::u16string_view pattern;
};

constexpr NamedFormat kNumberFormats[] = {
    {u"fixed", u"0.00"},
    {u"standard", u"#,##0.00"},
    {u"percent", u"0.00%"},
    {u"scientific", u"0.00E+00"},
    {u"currency", u"$#,##0.00;($#,##0.00)"},
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

/// What a pattern of a number consists of.
struct PatternPart
{
    enum class Kind
    {
        Literal,
        /// "0" or "#" in front of the point.
        Whole,
        Point,
        /// "0" or "#" behind the point.
        Decimal,
        Exponent,
    };
    Kind kind = Kind::Literal;
    char16_t unit = 0;
};

/// One pattern of a number, read into its parts.
struct NumberPattern
{
    std::vector<PatternPart> parts;
    size_t wholePlaces = 0;
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

    void Add(PatternPart::Kind kind, char16_t unit) { parts.push_back(PatternPart{kind, unit}); }
};

bool IsPlaceholder(char16_t unit)
{
    return unit == u'0' || unit == u'#';
}

bool IsExponent(std::u16string_view pattern, size_t i)
{
    return (pattern[i] == u'E' || pattern[i] == u'e') && i + 2 < pattern.size() &&
           (pattern[i + 1] == u'+' || pattern[i + 1] == u'-') && pattern[i + 2] == u'0';
}

void AddPlaceholder(NumberPattern& read, char16_t unit)
{
    if (read.hasPoint) {
        read.Add(PatternPart::Kind::Decimal, unit);
        ++read.decimals;
        read.leastDecimals = unit == u'0' ? read.decimals : read.leastDecimals;
        return;
    }
    read.Add(PatternPart::Kind::Whole, unit);
    // Commas between digits group them; only those behind the last digit divide.
    read.grouped = read.grouped || read.thousands > 0;
    read.thousands = 0;
    ++read.wholePlaces;
    read.leastWhole += unit == u'0' || read.leastWhole > 0 ? 1 : 0;
}

/// Reads an exponent such as "E+00" and returns how many units it takes.
size_t AddExponent(NumberPattern& read, std::u16string_view pattern, size_t i)
{
    read.Add(PatternPart::Kind::Exponent, pattern[i]);
    read.isScientific = true;
    read.exponentPlus = pattern[i + 1] == u'+';
    read.exponentDigits = 0;
    for (size_t at = i + 2; at < pattern.size() && IsPlaceholder(pattern[at]); ++at) {
        ++read.exponentDigits;
    }
    return 2 + read.exponentDigits;
}

NumberPattern ReadNumberPattern(std::u16string_view pattern)
{
    NumberPattern read;
    for (size_t i = 0; i < pattern.size(); ++i) {
        char16_t unit = pattern[i];
        if (unit == u'"') {
            for (++i; i < pattern.size() && pattern[i] != u'"'; ++i) {
                read.Add(PatternPart::Kind::Literal, pattern[i]);
            }
        } else if (unit == u'\\') {
            if (++i < pattern.size()) {
                read.Add(PatternPart::Kind::Literal, pattern[i]);
            }
        } else if (IsExponent(pattern, i)) {
            i += AddExponent(read, pattern, i) - 1;
        } else if (IsPlaceholder(unit)) {
            AddPlaceholder(read, unit);
        } else if (unit == u'.' && !read.hasPoint) {
            read.hasPoint = true;
            read.Add(PatternPart::Kind::Point, unit);
        } else if (unit == u',' && read.wholePlaces > 0) {
            read.thousands += read.hasPoint ? 0 : 1;
        } else {
            read.percents += unit == u'%' ? 1 : 0;
            read.Add(PatternPart::Kind::Literal, unit);
        }
    }
    return read;
}

/// The digits of a number and where its point stands: 0.digits times ten to the power of point. Zero has no digits.
struct Decimal
{
    std::string digits;
    int point = 0;
    bool negative = false;

    bool IsZero() const { return digits.empty(); }

    /// Leading and trailing zeros tell nothing.
    void Trim()
    {
        size_t zeros = std::min(digits.find_first_not_of('0'), digits.size());
        digits.erase(0, zeros);
        point -= static_cast<int>(zeros);
        digits.erase(digits.find_last_not_of('0') + 1);
    }

    char Digit(int index) const
    {
        return index >= 0 && static_cast<size_t>(index) < digits.size() ? digits[static_cast<size_t>(index)] : '0';
    }

    /// Leaves so many digits behind the point; a half is rounded away from zero.
    void Round(int decimals)
    {
        int kept = point + decimals;
        if (kept >= static_cast<int>(digits.size())) {
            return;
        }
        bool up = kept >= 0 && Digit(kept) >= '5';
        digits.erase(static_cast<size_t>(std::max(kept, 0)));
        if (up) {
            int at = kept - 1;
            while (at >= 0 && digits[static_cast<size_t>(at)] == '9') {
                --at;
            }
            digits.erase(static_cast<size_t>(at + 1));
            if (at >= 0) {
                ++digits[static_cast<size_t>(at)];
            } else {
                digits = "1";
                ++point;
            }
        }
        Trim();
    }
};

/// Whole numbers and amounts to the last digit, floating numbers to the fifteen or seven that they show.
Decimal DecimalOf(const Value& value)
{
    Decimal decimal;
    switch (value.Kind()) {
    case Type::Byte:
    case Type::Integer:
    case Type::Long:
    case Type::LongLong:
    case Type::Currency: {
        decimal.negative = value.Whole() < 0;
        decimal.digits = std::to_string(value.Whole()).substr(decimal.negative ? 1 : 0);
        decimal.point = static_cast<int>(decimal.digits.size()) - (value.Kind() == Type::Currency ? 4 : 0);
        break;
    }
    default: {
        double number = value.ToDouble();
        char buffer[48];
        std::snprintf(buffer, sizeof buffer, "%.*E", value.Kind() == Type::Single ? 6 : 14, std::abs(number));
        std::string text = buffer;
        size_t mark = text.find('E');
        decimal.negative = number < 0;
        decimal.digits = text.substr(0, 1) + text.substr(2, mark - 2);
        decimal.point = std::atoi(text.c_str() + mark + 1) + 1;
    }
    }
    decimal.Trim();
    return decimal;
}

/// Hands out the digits in front of the point, with commas between the thousands where they are grouped.
class WholeDigits
{
  public:
    WholeDigits(std::u16string text, bool grouped) : digits(std::move(text)), withCommas(grouped) {}

    /// Appends digits until only so many are left.
    void TakeUntil(size_t left, std::u16string& result)
    {
        while (digits.size() - taken > left) {
            result.push_back(digits[taken++]);
            size_t rest = digits.size() - taken;
            if (withCommas && rest > 0 && rest % 3 == 0) {
                result.push_back(u',');
            }
        }
    }

  private:
    std::u16string digits;
    bool withCommas;
    size_t taken = 0;
};

std::u16string ExponentText(const NumberPattern& read, int exponent)
{
    std::u16string digits = Widen(std::to_string(std::abs(exponent)));
    std::u16string sign = exponent < 0 ? u"-" : (read.exponentPlus ? u"+" : u"");
    return sign + std::u16string(read.exponentDigits - std::min(read.exponentDigits, digits.size()), u'0') + digits;
}

/// Puts digits into the places of a pattern, from the right; everything else in it stands as it is.
std::u16string FillPattern(const NumberPattern& read, std::u16string wholeText, const std::u16string& decimals,
                           int exponent)
{
    std::u16string result;
    WholeDigits whole(std::move(wholeText), read.grouped);
    size_t placesLeft = read.wholePlaces;
    size_t decimal = 0;
    for (const PatternPart& part : read.parts) {
        switch (part.kind) {
        case PatternPart::Kind::Literal:
            result.push_back(part.unit);
            break;
        case PatternPart::Kind::Whole:
            whole.TakeUntil(--placesLeft, result);
            break;
        case PatternPart::Kind::Point:
            whole.TakeUntil(0, result);
            result.push_back(u'.');
            break;
        case PatternPart::Kind::Decimal:
            if (decimal < decimals.size()) {
                result.push_back(decimals[decimal++]);
            }
            break;
        case PatternPart::Kind::Exponent:
            result.push_back(part.unit);
            result += ExponentText(read, exponent);
            break;
        }
    }
    return result;
}

/// Shows a number without its sign. Zero is what the number was rounded to.
std::u16string FormatNumber(Decimal& number, std::u16string_view pattern)
{
    NumberPattern read = ReadNumberPattern(pattern);
    number.point += 2 * read.percents - 3 * read.thousands;
    const int decimals = static_cast<int>(read.decimals);
    int exponent = 0;
    if (read.isScientific && !number.IsZero()) {
        const int wholePlaces = static_cast<int>(read.wholePlaces);
        exponent = number.point - wholePlaces;
        number.point = wholePlaces;
        number.Round(decimals);
        // Rounding may have made one digit more.
        exponent += number.point - wholePlaces;
        number.point = wholePlaces;
    }
    number.Round(decimals);
    std::u16string whole;
    for (int i = 0; i < number.point && !number.IsZero(); ++i) {
        whole.push_back(static_cast<char16_t>(number.Digit(i)));
    }
    whole.insert(0, read.leastWhole - std::min(read.leastWhole, whole.size()), u'0');
    std::u16string fraction;
    for (int i = 0; i < decimals; ++i) {
        fraction.push_back(static_cast<char16_t>(number.Digit(number.point + i)));
    }
    while (fraction.size() > read.leastDecimals && fraction.back() == u'0') {
        fraction.pop_back();
    }
    return FillPattern(read, std::move(whole), fraction, exponent);
}

std::u16string FormatNumberSections(Decimal number, std::u16string_view pattern)
{
    std::vector<std::u16string> sections = Sections(pattern);
    if (number.negative && sections.size() > 1 && !sections[1].empty()) {
        return FormatNumber(number, sections[1]);
    }
    if (number.IsZero() && sections.size() > 2 && !sections[2].empty()) {
        return FormatNumber(number, sections[2]);
    }
    std::u16string text = FormatNumber(number, sections[0]);
    return number.negative && !number.IsZero() ? u"-" + text : text;
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
    bool quoted = false;
    for (size_t i = 0; i < pattern.size(); ++i) {
        char16_t unit = pattern[i];
        if (unit == u'"') {
            quoted = !quoted;
        } else if (quoted) {
            result.push_back(unit);
        } else if (unit == u'\\' && i + 1 < pattern.size()) {
            result.push_back(pattern[++i]);
        } else if (unit == u'@' || unit == u'&') {
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

/// A second section of a text's format is for the empty text and Null.
std::u16string FormatTextSections(const Value& value, std::u16string_view pattern)
{
    std::vector<std::u16string> sections = Sections(pattern);
    std::u16string text = value.IsNull() ? std::u16string() : value.ToText();
    return FormatTextPattern(text, text.empty() && sections.size() > 1 ? sections[1] : sections[0]);
}

/// Yes/No and its like; nothing when the pattern is none of them.
std::optional<std::u16string> FormatTruth(const Value& value, std::u16string_view pattern)
{
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
    return std::nullopt;
}

} // namespace

std::u16string FormatValue(const Value& given, std::u16string_view pattern, const WeekRule& weeks)
{
    const Value& value = given.Resolved();
    if (pattern.find_first_of(u"@&<>") != std::u16string_view::npos) {
        return FormatTextSections(value, pattern);
    }
    if (value.IsNull()) {
        std::vector<std::u16string> sections = Sections(pattern);
        Decimal zero;
        return sections.size() > 3 ? FormatNumber(zero, sections[3]) : std::u16string();
    }
    if (pattern.empty() || EqualIgnoringCase(pattern, u"general number")) {
        return value.ToText();
    }
    if (std::optional<std::u16string> truth = FormatTruth(value, pattern)) {
        return *truth;
    }
    std::u16string_view namedDate = NamedDatePattern(pattern);
    const NamedFormat* namedNumber = FindNamed(kNumberFormats, pattern);
    if (!namedDate.empty() || (namedNumber == nullptr && IsDatePattern(pattern))) {
        std::optional<double> date = value.IsString() ? ParseDate(value.Text()) : std::optional(value.ToDouble());
        if (value.IsString() && !date) {
            date = ParseNumber(value.Text());
        }
        if (!date || !IsDateInRange(*date)) {
            return value.ToText();
        }
        return FormatDate(*date, namedDate.empty() ? pattern : namedDate, weeks);
    }
    if (!value.IsNumeric()) {
        // A text that is a number counts as one.
        std::optional<double> number = ParseNumber(value.ToText());
        if (!number || !std::isfinite(*number)) {
            return value.ToText();
        }
        return FormatNumberSections(DecimalOf(Value(*number)), namedNumber != nullptr ? namedNumber->pattern : pattern);
    }
    return FormatNumberSections(DecimalOf(value), namedNumber != nullptr ? namedNumber->pattern : pattern);
}

} // namespace tv::macro
