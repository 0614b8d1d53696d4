#include "support/format.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tv {

double FormatArgument::Real() const
{
    return kind == Kind::Float ? real : static_cast<double>(Signed());
}

int64_t FormatArgument::Signed() const
{
    return isWide ? static_cast<int64_t>(bits) : static_cast<int32_t>(bits);
}

uint64_t FormatArgument::Unsigned() const
{
    return isWide ? bits : static_cast<uint32_t>(bits);
}

char16_t FormatArgument::NaturalConversion() const
{
    switch (kind) {
    case Kind::Text:
        return u's';
    case Kind::Float:
        return u'f';
    case Kind::Number:
        break;
    }
    return u'd';
}

namespace {

/// One conversion of a format, from its percent sign to its letter.
struct Conversion
{
    bool left = false;
    bool zeros = false;
    bool plus = false;
    bool blank = false;
    bool alternate = false;
    int32_t width = 0;
    int32_t precision = -1;
    char16_t letter = 0;
};

// Wider than any text a person reads; keeps a damaged translation from asking for gigabytes.
constexpr int32_t kWidestField = 4096;

constexpr std::u16string_view kLetters = u"diuxXocsfFeEgG";

std::u16string Widen(std::string_view ascii)
{
    return std::u16string(ascii.begin(), ascii.end());
}

class Formatter
{
  public:
    Formatter(std::u16string_view pattern, std::span<const FormatArgument> values) : format(pattern), arguments(values)
    {}

    std::u16string Run()
    {
        while (position < format.size()) {
            const size_t percent = std::min(format.find(u'%', position), format.size());
            result.append(format.substr(position, percent - position));
            position = percent;
            if (position < format.size()) {
                AppendConversion();
            }
        }
        return std::move(result);
    }

  private:
    void AppendConversion()
    {
        const size_t start = position++;
        if (Peek() == u'%') {
            ++position;
            result += u'%';
            return;
        }
        const Conversion conversion = ParseConversion();
        if (!IsKnown(conversion.letter) || next == arguments.size()) {
            result.append(format.substr(start, position - start));
            return;
        }
        AppendValue(conversion, arguments[next++]);
    }

    char16_t Peek() const { return position < format.size() ? format[position] : u'\0'; }

    static bool IsKnown(char16_t letter) { return letter != 0 && kLetters.find(letter) != kLetters.npos; }

    Conversion ParseConversion()
    {
        Conversion conversion;
        ParseFlags(conversion);
        conversion.width = ParseNumber();
        if (conversion.width < 0) {
            conversion.left = true;
            conversion.width = -conversion.width;
        }
        if (Peek() == u'.') {
            ++position;
            conversion.precision = ParseNumber();
        }
        SkipSize();
        conversion.letter = Peek();
        if (conversion.letter != 0) {
            ++position;
        }
        return conversion;
    }

    void ParseFlags(Conversion& conversion)
    {
        for (;; ++position) {
            switch (Peek()) {
            case u'-':
                conversion.left = true;
                break;
            case u'0':
                conversion.zeros = true;
                break;
            case u'+':
                conversion.plus = true;
                break;
            case u' ':
                conversion.blank = true;
                break;
            case u'#':
                conversion.alternate = true;
                break;
            default:
                return;
            }
        }
    }

    int32_t ParseNumber()
    {
        if (Peek() == u'*') {
            ++position;
            if (next == arguments.size()) {
                return 0;
            }
            const int64_t value = arguments[next++].Signed();
            return static_cast<int32_t>(std::clamp<int64_t>(value, -kWidestField, kWidestField));
        }
        int32_t number = 0;
        while (Peek() >= u'0' && Peek() <= u'9') {
            number = std::min(number * 10 + (Peek() - u'0'), kWidestField);
            ++position;
        }
        return number;
    }

    void SkipSize()
    {
        while (Peek() == u'l' || Peek() == u'h' || Peek() == u'w' || Peek() == u'z') {
            ++position;
        }
        if (format.substr(position).starts_with(u"I64") || format.substr(position).starts_with(u"I32")) {
            position += 3;
        }
    }

    void AppendValue(const Conversion& conversion, const FormatArgument& argument)
    {
        char16_t letter = conversion.letter;
        if ((letter == u's') != argument.IsText()) {
            letter = argument.NaturalConversion();
        }
        switch (letter) {
        case u's':
            AppendText(conversion, argument.Text());
            break;
        case u'c':
            Pad(conversion, u"", std::u16string(1, static_cast<char16_t>(argument.Unsigned())), false);
            break;
        case u'd':
        case u'i':
            AppendSigned(conversion, argument.Signed());
            break;
        case u'u':
        case u'x':
        case u'X':
        case u'o':
            AppendUnsigned(conversion, letter, argument.Unsigned());
            break;
        default:
            AppendReal(conversion, letter, argument.Real());
            break;
        }
    }

    void AppendText(const Conversion& conversion, std::u16string_view text)
    {
        if (conversion.precision >= 0) {
            text = text.substr(0, static_cast<size_t>(conversion.precision));
        }
        Pad(conversion, u"", std::u16string(text), false);
    }

    static std::u16string_view SignOf(const Conversion& conversion, bool isNegative)
    {
        if (isNegative) {
            return u"-";
        }
        if (conversion.plus) {
            return u"+";
        }
        return conversion.blank ? u" " : u"";
    }

    void AppendSigned(const Conversion& conversion, int64_t value)
    {
        const uint64_t magnitude = value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
        AppendDigits(conversion, SignOf(conversion, value < 0), Digits(magnitude, 10));
    }

    void AppendUnsigned(const Conversion& conversion, char16_t letter, uint64_t value)
    {
        std::u16string digits = Digits(value, letter == u'u' ? 10 : letter == u'o' ? 8 : 16);
        if (letter == u'X') {
            MakeCapitals(digits);
        }
        std::u16string_view prefix;
        if (conversion.alternate && value != 0) {
            prefix = letter == u'x' ? u"0x" : letter == u'X' ? u"0X" : letter == u'o' ? u"0" : u"";
        }
        AppendDigits(conversion, prefix, std::move(digits));
    }

    static std::u16string Digits(uint64_t value, int base)
    {
        char buffer[24];
        const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value, base);
        return Widen(std::string_view(buffer, end));
    }

    static void MakeCapitals(std::u16string& text)
    {
        for (char16_t& unit : text) {
            if (unit >= u'a' && unit <= u'z') {
                unit = static_cast<char16_t>(unit - u'a' + u'A');
            }
        }
    }

    void AppendDigits(const Conversion& conversion, std::u16string_view prefix, std::u16string digits)
    {
        if (conversion.precision >= 0) {
            const size_t least = static_cast<size_t>(conversion.precision);
            if (digits.size() < least) {
                digits.insert(0, least - digits.size(), u'0');
            }
        }
        Pad(conversion, prefix, std::move(digits), conversion.precision < 0);
    }

    /// Written without the C library, whose decimal point is the host process's to choose.
    void AppendReal(const Conversion& conversion, char16_t letter, double value)
    {
        if (!std::isfinite(value)) {
            Pad(conversion, SignOf(conversion, std::signbit(value)), std::isnan(value) ? u"nan" : u"inf", false);
            return;
        }
        const int precision = conversion.precision < 0 ? 6 : conversion.precision;
        const bool capitals = letter == u'E' || letter == u'G';
        const auto form = letter == u'e' || letter == u'E'   ? std::chars_format::scientific
                          : letter == u'g' || letter == u'G' ? std::chars_format::general
                                                             : std::chars_format::fixed;
        std::string buffer(static_cast<size_t>(precision) + 340, '\0');
        const auto [end, error] =
            std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value), form, precision);
        std::u16string digits = Widen(std::string_view(buffer.data(), end));
        if (capitals) {
            MakeCapitals(digits);
        }
        Pad(conversion, SignOf(conversion, std::signbit(value)), std::move(digits), true);
    }

    void Pad(const Conversion& conversion, std::u16string_view prefix, std::u16string body, bool allowZeros)
    {
        const size_t length = prefix.size() + body.size();
        const size_t width = static_cast<size_t>(conversion.width);
        const size_t missing = width > length ? width - length : 0;
        const bool zeros = allowZeros && conversion.zeros && !conversion.left;
        if (!conversion.left && !zeros) {
            result.append(missing, u' ');
        }
        result.append(prefix);
        if (zeros) {
            result.append(missing, u'0');
        }
        result.append(body);
        if (conversion.left) {
            result.append(missing, u' ');
        }
    }

    std::u16string_view format;
    std::span<const FormatArgument> arguments;
    std::u16string result;
    size_t position = 0;
    size_t next = 0;
};

} // namespace

std::u16string FormatArguments(std::u16string_view format, std::span<const FormatArgument> arguments)
{
    return Formatter(format, arguments).Run();
}

} // namespace tv
