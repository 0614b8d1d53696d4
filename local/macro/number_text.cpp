#include "macro/number_text.h"

#include "macro/error.h"
#include "macro/text.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace tv::macro {

namespace {

bool IsDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

bool IsWhite(char16_t unit)
{
    return unit == u' ' || (unit >= 9 && unit <= 13) || unit == 0xA0;
}

std::optional<int64_t> ParseRadix(std::u16string_view digits, int radix)
{
    bool isLong = digits.ends_with(u'&');
    digits.remove_suffix(isLong ? 1 : 0);
    if (digits.empty() || digits.size() > 22) {
        return std::nullopt;
    }
    uint64_t number = 0;
    size_t significant = 0;
    for (char16_t unit : digits) {
        int digit = IsDigit(unit)                                          ? unit - u'0'
                    : (LowerUnit(unit) >= u'a' && LowerUnit(unit) <= u'f') ? LowerUnit(unit) - u'a' + 10
                                                                           : 99;
        if (digit >= radix) {
            return std::nullopt;
        }
        number = number * static_cast<uint64_t>(radix) + static_cast<uint64_t>(digit);
        significant += significant > 0 || digit > 0 ? 1 : 0;
    }
    // Four hexadecimal digits are a signed Integer, eight a signed Long: "&HFFFF" is -1.
    size_t bits = radix == 16 ? significant * 4 : significant * 3;
    if (!isLong && (bits <= 16 || (radix == 8 && number <= 0xFFFF))) {
        return static_cast<int16_t>(number);
    }
    if (bits <= 32 || (radix == 8 && number <= 0xFFFFFFFF)) {
        return static_cast<int32_t>(number);
    }
    if (bits > 66) {
        return std::nullopt;
    }
    return static_cast<int64_t>(number);
}

/// A number as its text gives it: either digits in the form of C, without a sign, or the bits of a hexadecimal or octal
/// number.
struct NumberWords
{
    std::string plain;
    std::optional<int64_t> bits;
    bool negative = false;
};

/// Reads the text of a number from front to end.
class NumberReader
{
  public:
    explicit NumberReader(std::u16string_view given) : text(TrimWhite(given)) {}

    std::optional<NumberWords> Read()
    {
        if (text.size() > 2 && text.front() == u'(' && text.back() == u')') {
            words.negative = true;
            signSeen = true;
            text = text.substr(1, text.size() - 2);
        }
        if (text.starts_with(u'&')) {
            return ReadBits();
        }
        ReadFront();
        if (!ReadDigits() || !ReadExponent()) {
            return std::nullopt;
        }
        TakeSign();
        return at == text.size() ? std::optional(std::move(words)) : std::nullopt;
    }

  private:
    char16_t Unit() const { return at < text.size() ? text[at] : u'\0'; }
    void Take() { words.plain.push_back(static_cast<char>(text[at++])); }

    std::optional<NumberWords> ReadBits()
    {
        int radix = text.size() < 3 ? 0 : LowerUnit(text[1]) == u'h' ? 16 : LowerUnit(text[1]) == u'o' ? 8 : 0;
        words.bits = radix == 0 || signSeen ? std::nullopt : ParseRadix(text.substr(2), radix);
        return words.bits ? std::optional(std::move(words)) : std::nullopt;
    }

    /// One sign, in front of the digits or behind them.
    bool TakeSign()
    {
        if (signSeen || (Unit() != u'-' && Unit() != u'+')) {
            return false;
        }
        words.negative = text[at++] == u'-';
        signSeen = true;
        return true;
    }

    /// A sign and a currency sign, in any order, with blanks between them.
    void ReadFront()
    {
        bool currencySeen = false;
        while (true) {
            if (Unit() == u'$' && !currencySeen) {
                currencySeen = true;
                ++at;
            } else if (!TakeSign() && (at == 0 || Unit() != u' ')) {
                return;
            } else if (Unit() == u' ') {
                ++at;
            }
        }
    }

    bool ReadDigits()
    {
        bool digits = false;
        bool point = false;
        for (; at < text.size();) {
            if (IsDigit(Unit())) {
                digits = true;
                Take();
            } else if (Unit() == u'.' && !point) {
                point = true;
                Take();
            } else if (Unit() == u',' && digits && !point) {
                ++at;
            } else {
                break;
            }
        }
        return digits;
    }

    bool ReadExponent()
    {
        if (LowerUnit(Unit()) != u'e' && LowerUnit(Unit()) != u'd') {
            return true;
        }
        words.plain.push_back('e');
        ++at;
        if (Unit() == u'-' || Unit() == u'+') {
            Take();
        }
        bool digits = IsDigit(Unit());
        while (IsDigit(Unit())) {
            Take();
        }
        return digits;
    }

    std::u16string_view text;
    NumberWords words;
    size_t at = 0;
    bool signSeen = false;
};

std::optional<NumberWords> ReadNumberWords(std::u16string_view text)
{
    return NumberReader(text).Read();
}

/// Whether digits that are cut off round the last kept one up, half to even.
bool RoundsUp(std::string_view cutOff, bool isOdd)
{
    if (cutOff.empty() || cutOff[0] != '5') {
        return !cutOff.empty() && cutOff[0] > '5';
    }
    return isOdd || cutOff.find_first_not_of('0', 1) != std::string_view::npos;
}

/// Digits with an exponent only where the number needs more places than that many on either side of the point.
std::u16string FloatingText(double number, int places)
{
    char buffer[48];
    std::snprintf(buffer, sizeof buffer, "%.*E", places - 1, number == 0 ? 0.0 : number);
    std::string text = buffer;
    size_t mark = text.find('E');
    if (mark == std::string::npos) {
        return Widen(text);
    }
    int exponent = std::atoi(text.c_str() + mark + 1);
    std::string mantissa = text.substr(0, mark);
    size_t last = mantissa.find_last_not_of('0');
    mantissa.resize(mantissa[last] == '.' ? last : last + 1);
    int fraction = static_cast<int>(mantissa.size() - std::min(mantissa.find('.'), mantissa.size() - 1)) - 1;
    if (exponent >= places || fraction - exponent > places) {
        std::snprintf(buffer, sizeof buffer, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
        return Widen(mantissa + buffer);
    }
    std::snprintf(buffer, sizeof buffer, "%.*f", std::max(fraction - exponent, 0), number == 0 ? 0.0 : number);
    return Widen(buffer);
}

} // namespace

std::u16string_view TrimWhite(std::u16string_view text)
{
    while (!text.empty() && IsWhite(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsWhite(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::optional<int64_t> ReadScaled(std::u16string_view text, size_t decimals)
{
    std::optional<NumberWords> words = ReadNumberWords(text);
    if (!words || words->plain.find('e') != std::string::npos || (words->bits && decimals > 0)) {
        return std::nullopt;
    }
    if (words->bits) {
        return words->bits;
    }
    std::string_view plain = words->plain;
    size_t point = std::min(plain.find('.'), plain.size());
    std::string digits(plain.substr(0, point));
    std::string fraction(plain.substr(std::min(point + 1, plain.size())));
    fraction.resize(std::max(fraction.size(), decimals), '0');
    digits += fraction.substr(0, decimals);
    bool overflows = false;
    int64_t number = 0;
    for (char digit : digits) {
        overflows = overflows || __builtin_mul_overflow(number, int64_t{10}, &number) ||
                    __builtin_sub_overflow(number, int64_t{digit - '0'}, &number);
    }
    if (RoundsUp(std::string_view(fraction).substr(decimals), number % 2 != 0)) {
        overflows = overflows || __builtin_sub_overflow(number, int64_t{1}, &number);
    }
    // Counted downwards, since there is one more negative number than positive ones.
    if (overflows || (!words->negative && number == std::numeric_limits<int64_t>::min())) {
        Raise(kOverflow);
    }
    return words->negative ? number : -number;
}

std::optional<double> ParseNumber(std::u16string_view text)
{
    std::optional<NumberWords> words = ReadNumberWords(text);
    if (!words) {
        return std::nullopt;
    }
    double number = words->bits ? static_cast<double>(*words->bits) : std::strtod(words->plain.c_str(), nullptr);
    return words->negative ? -number : number;
}

std::u16string NumberText(double number)
{
    return FloatingText(number, 15);
}
std::u16string SingleText(double number)
{
    return FloatingText(number, 7);
}

std::u16string CurrencyText(int64_t scaled)
{
    uint64_t magnitude = scaled < 0 ? uint64_t{0} - static_cast<uint64_t>(scaled) : static_cast<uint64_t>(scaled);
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%s%llu.%04llu", scaled < 0 ? "-" : "",
                  static_cast<unsigned long long>(magnitude / 10000),
                  static_cast<unsigned long long>(magnitude % 10000));
    std::string text = buffer;
    while (text.back() == '0') {
        text.pop_back();
    }
    if (text.back() == '.') {
        text.pop_back();
    }
    return Widen(text);
}

} // namespace tv::macro
