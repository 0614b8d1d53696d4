#include "com/portable/text_forms.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace tv::portable {

namespace {

bool IsDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

bool IsSpace(char16_t c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r') || c == 0xA0;
}

int DigitValue(char16_t c)
{
    if (IsDigit(c)) {
        return c - u'0';
    }
    const char16_t lower = static_cast<char16_t>(c | 0x20);
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : 16;
}

/// Reads one number from front to back.
class NumberReader
{
  public:
    explicit NumberReader(std::u16string_view text) : rest(text) {}

    std::optional<ParsedNumber> Read()
    {
        ReadPrefix();
        const bool body = ReadPattern() || ReadDecimal();
        if (!body) {
            return std::nullopt;
        }
        ReadSuffix();
        if (!rest.empty() || openParenthesis) {
            return std::nullopt;
        }
        if (!number.isPattern && !Evaluate()) {
            return std::nullopt;
        }
        return number;
    }

  private:
    char16_t Next() const { return rest.empty() ? u'\0' : rest.front(); }

    bool Take(char16_t c)
    {
        if (Next() != c || rest.empty()) {
            return false;
        }
        rest.remove_prefix(1);
        return true;
    }

    bool TakeSpace()
    {
        if (rest.empty() || !IsSpace(rest.front())) {
            return false;
        }
        rest.remove_prefix(1);
        return true;
    }

    bool TakeSign()
    {
        if (hasSign) {
            return false;
        }
        if (Take(u'-')) {
            number.negative = true;
        } else if (!Take(u'+')) {
            return false;
        }
        hasSign = true;
        return true;
    }

    bool TakeCurrency()
    {
        if (hasCurrency || !Take(u'$')) {
            return false;
        }
        hasCurrency = true;
        return true;
    }

    bool TakeOpening()
    {
        if (hasParenthesis || !Take(u'(')) {
            return false;
        }
        hasParenthesis = true;
        openParenthesis = true;
        number.negative = true;
        return true;
    }

    bool TakeClosing()
    {
        if (!openParenthesis || !Take(u')')) {
            return false;
        }
        openParenthesis = false;
        return true;
    }

    void ReadPrefix()
    {
        while (TakeSpace() || TakeSign() || TakeCurrency() || TakeOpening()) {
        }
    }

    void ReadSuffix()
    {
        while (TakeSpace() || TakeSign() || TakeCurrency() || TakeClosing()) {
        }
    }

    bool ReadPattern()
    {
        if (rest.size() < 3 || rest[0] != u'&') {
            return false;
        }
        const char16_t kind = static_cast<char16_t>(rest[1] | 0x20);
        if (kind != u'h' && kind != u'o') {
            return false;
        }
        const int base = kind == u'h' ? 16 : 8;
        rest.remove_prefix(2);
        uint64_t pattern = 0;
        size_t count = 0;
        for (; !rest.empty() && DigitValue(rest.front()) < base; ++count) {
            if (pattern > std::numeric_limits<uint64_t>::max() / static_cast<uint64_t>(base)) {
                return false;
            }
            pattern = pattern * static_cast<uint64_t>(base) + static_cast<uint64_t>(DigitValue(rest.front()));
            rest.remove_prefix(1);
        }
        number.isPattern = true;
        // A sign before a bit pattern is read over.
        number.negative = false;
        number.whole = pattern;
        number.value = static_cast<double>(static_cast<int64_t>(pattern));
        return count != 0;
    }

    bool ReadDecimal()
    {
        bool hasPoint = false;
        bool hasDigits = false;
        for (; !rest.empty(); rest.remove_prefix(1)) {
            const char16_t c = rest.front();
            if (IsDigit(c)) {
                hasDigits = true;
                decimal += static_cast<char>(c);
            } else if (c == u'.' && !hasPoint) {
                hasPoint = true;
                isWhole = false;
                decimal += '.';
            } else if (c != u',' || decimal.empty()) {
                break;
            }
        }
        if (hasDigits) {
            ReadExponent();
        }
        return hasDigits;
    }

    void ReadExponent()
    {
        const char16_t mark = static_cast<char16_t>(Next() | 0x20);
        if (mark != u'e') {
            return;
        }
        const std::u16string_view before = rest;
        rest.remove_prefix(1);
        std::string exponent = "e";
        if (Take(u'-')) {
            exponent += '-';
        } else {
            Take(u'+');
        }
        const size_t signLength = exponent.size();
        while (IsDigit(Next())) {
            exponent += static_cast<char>(Next());
            rest.remove_prefix(1);
        }
        if (exponent.size() == signLength) {
            rest = before;
            return;
        }
        decimal += exponent;
        isWhole = false;
    }

    bool Evaluate()
    {
        const char* end = decimal.data() + decimal.size();
        const std::from_chars_result read = std::from_chars(decimal.data(), end, number.value);
        if (read.ec == std::errc::result_out_of_range) {
            number.value = IsTiny() ? 0.0 : std::numeric_limits<double>::infinity();
        } else if (read.ec != std::errc()) {
            return false;
        }
        if (isWhole) {
            uint64_t magnitude = 0;
            if (std::from_chars(decimal.data(), end, magnitude).ec == std::errc()) {
                number.whole = magnitude;
            }
        }
        if (number.negative) {
            number.value = -number.value;
        }
        return true;
    }

    /// Of a number that no double holds: whether it is too small rather than too large.
    bool IsTiny() const { return decimal.find("e-") != std::string::npos || decimal.front() == '.'; }

    std::u16string_view rest;
    std::string decimal;
    ParsedNumber number;
    bool isWhole = true;
    bool hasSign = false;
    bool hasCurrency = false;
    bool hasParenthesis = false;
    bool openParenthesis = false;
};

} // namespace

std::optional<ParsedNumber> ParseNumber(std::u16string_view text)
{
    return NumberReader(text).Read();
}

std::u16string NumberText(double number, int digits)
{
    if (std::isnan(number)) {
        return u"1.#QNAN";
    }
    if (std::isinf(number)) {
        return number < 0 ? u"-1.#INF" : u"1.#INF";
    }
    if (number == 0) {
        return u"0";
    }
    char buffer[64];
    const std::to_chars_result written =
        std::to_chars(std::begin(buffer), std::end(buffer), number, std::chars_format::general, digits);
    std::u16string text(std::begin(buffer), written.ptr);
    for (char16_t& c : text) {
        if (c == u'e') {
            c = u'E';
        }
    }
    return text;
}

std::u16string CurrencyText(int64_t tenThousandths)
{
    const bool negative = tenThousandths < 0;
    const uint64_t magnitude =
        negative ? uint64_t{0} - static_cast<uint64_t>(tenThousandths) : static_cast<uint64_t>(tenThousandths);
    std::u16string text = WholeText(negative, magnitude / 10000);
    uint64_t decimals = magnitude % 10000;
    if (decimals != 0) {
        text += u'.';
        for (uint64_t place = 1000; decimals != 0; decimals %= place, place /= 10) {
            text += static_cast<char16_t>(u'0' + decimals / place);
        }
    }
    return text;
}

std::u16string WholeText(bool negative, uint64_t magnitude)
{
    char buffer[24];
    const std::to_chars_result written = std::to_chars(std::begin(buffer), std::end(buffer), magnitude);
    std::u16string text = negative ? u"-" : u"";
    text.append(std::begin(buffer), written.ptr);
    return text;
}

} // namespace tv::portable
