#include "macro/convert.h"

#include "macro/dates.h"
#include "macro/object.h"
#include "macro/text.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace tv::macro {

namespace {

constexpr double kCurrencyScale = 10000.0;

std::optional<int64_t> ReadScaled(std::u16string_view text, size_t decimals);

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

bool IsWhite(char16_t unit) { return unit == u' ' || (unit >= 9 && unit <= 13) || unit == 0xA0; }

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
        int digit = IsDigit(unit) ? unit - u'0' : (LowerUnit(unit) >= u'a' && LowerUnit(unit) <= u'f')
                                                      ? LowerUnit(unit) - u'a' + 10
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

Value CoerceObject(const Value& value)
{
    if (value.Kind() != Type::Object) {
        Raise(kObjectRequired);
    }
    return value;
}

Value CoerceArray(const Value& value)
{
    if (value.Kind() != Type::Array) {
        Raise(kTypeMismatch);
    }
    return value;
}

Value ToCurrency(const Value& value)
{
    switch (value.Kind()) {
    case Type::Currency:
        return value;
    case Type::LongLong:
    case Type::Long:
    case Type::Integer:
    case Type::Byte: {
        int64_t scaled = 0;
        if (__builtin_mul_overflow(value.Whole(), int64_t{10000}, &scaled)) {
            Raise(kOverflow);
        }
        return Value::FromCurrency(scaled);
    }
    case Type::String:
        if (std::optional<int64_t> scaled = ReadScaled(value.Text(), 4)) {
            return Value::FromCurrency(*scaled);
        }
        [[fallthrough]];
    default: {
        double scaled = RoundHalfEven(ConvertToDouble(value) * kCurrencyScale);
        if (!(scaled >= -9223372036854775808.0 && scaled < 9223372036854775808.0)) {
            Raise(kOverflow);
        }
        return Value::FromCurrency(static_cast<int64_t>(scaled));
    }
    }
}

Value ToDate(const Value& value)
{
    if (value.Kind() == Type::String) {
        if (std::optional<double> date = ParseDate(value.Text())) {
            return Value::FromDate(*date);
        }
        std::optional<double> number = ParseNumber(value.Text());
        if (!number) {
            Raise(kTypeMismatch);
        }
        return ToDate(Value(*number));
    }
    double days = ConvertToDouble(value);
    if (!IsDateInRange(days)) {
        Raise(kOverflow);
    }
    return Value::FromDate(days);
}

Value ToSingle(const Value& value)
{
    double number = ConvertToDouble(value);
    if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max())) {
        Raise(kOverflow);
    }
    return Value(static_cast<float>(number));
}

Value ToWhole(Type kind, const Value& value)
{
    switch (value.Kind()) {
    case Type::Integer:
    case Type::Long:
    case Type::LongLong:
    case Type::Byte:
        return WholeNumber(kind, value.Whole());
    case Type::Boolean:
        if (kind == Type::Byte) {
            return Value::FromByte(value.Truth() ? 255 : 0);
        }
        return WholeNumber(kind, value.Truth() ? int64_t{-1} : int64_t{0});
    case Type::String:
        if (std::optional<int64_t> number = ReadScaled(value.Text(), 0)) {
            return WholeNumber(kind, *number);
        }
        [[fallthrough]];
    default:
        return WholeNumber(kind, ConvertToDouble(value));
    }
}

} // namespace

double RoundHalfEven(double number) { return std::nearbyint(number); }

bool FitsInto(Type kind, int64_t number)
{
    switch (kind) {
    case Type::Byte:
        return number >= 0 && number <= 255;
    case Type::Integer:
        return number >= std::numeric_limits<int16_t>::min() && number <= std::numeric_limits<int16_t>::max();
    case Type::Long:
        return number >= std::numeric_limits<int32_t>::min() && number <= std::numeric_limits<int32_t>::max();
    default:
        return true;
    }
}

Value WholeNumber(Type kind, int64_t number)
{
    if (!FitsInto(kind, number)) {
        Raise(kOverflow);
    }
    switch (kind) {
    case Type::Byte:
        return Value::FromByte(static_cast<uint8_t>(number));
    case Type::Integer:
        return Value(static_cast<int16_t>(number));
    case Type::Long:
        return Value(static_cast<int32_t>(number));
    default:
        return Value(number);
    }
}

Value WholeNumber(Type kind, double number)
{
    double rounded = RoundHalfEven(number);
    if (!(rounded >= -9223372036854775808.0 && rounded < 9223372036854775808.0)) {
        Raise(kOverflow);
    }
    return WholeNumber(kind, static_cast<int64_t>(rounded));
}

namespace {

/// A number as its text gives it: either digits in the form of C, or the bits of a hexadecimal or octal number.
struct NumberWords
{
    std::string plain;
    std::optional<int64_t> bits;
    bool negative = false;
};

std::optional<NumberWords> ReadNumberWords(std::u16string_view text)
{
    text = TrimWhite(text);
    bool negative = false;
    if (text.size() > 2 && text.front() == u'(' && text.back() == u')') {
        negative = true;
        text = text.substr(1, text.size() - 2);
    }
    if (!text.empty() && text[0] == u'$') {
        text.remove_prefix(1);
    }
    if (text.size() > 2 && text[0] == u'&') {
        int radix = LowerUnit(text[1]) == u'h' ? 16 : LowerUnit(text[1]) == u'o' ? 8 : 0;
        std::optional<int64_t> bits = radix == 0 ? std::nullopt : ParseRadix(text.substr(2), radix);
        return bits ? std::optional(NumberWords{{}, bits, negative}) : std::nullopt;
    }
    std::string plain;
    size_t at = 0;
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) {
        plain.push_back(static_cast<char>(text[at++]));
        while (at < text.size() && text[at] == u' ') {
            ++at;
        }
    }
    bool digits = false;
    bool point = false;
    for (; at < text.size(); ++at) {
        if (IsDigit(text[at])) {
            digits = true;
            plain.push_back(static_cast<char>(text[at]));
        } else if (text[at] == u'.' && !point) {
            point = true;
            plain.push_back('.');
        } else if (!(text[at] == u',' && digits && !point)) {
            break;
        }
    }
    if (!digits) {
        return std::nullopt;
    }
    if (at < text.size() && (LowerUnit(text[at]) == u'e' || LowerUnit(text[at]) == u'd')) {
        plain.push_back('e');
        ++at;
        if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) {
            plain.push_back(static_cast<char>(text[at++]));
        }
        if (at == text.size()) {
            return std::nullopt;
        }
        for (; at < text.size() && IsDigit(text[at]); ++at) {
            plain.push_back(static_cast<char>(text[at]));
        }
    }
    if (at != text.size()) {
        return std::nullopt;
    }
    return NumberWords{std::move(plain), std::nullopt, negative};
}

/// Whether digits that are cut off round the last kept one up, half to even.
bool RoundsUp(std::string_view cutOff, bool isOdd)
{
    if (cutOff.empty() || cutOff[0] != '5') {
        return !cutOff.empty() && cutOff[0] > '5';
    }
    return isOdd || cutOff.find_first_not_of('0', 1) != std::string_view::npos;
}

/// A text's number times a power of ten, to the last digit, which a Double can't give beyond 15 of them. Nothing when
/// the text has an exponent or is no number; error 6 when the result is too large.
std::optional<int64_t> ReadScaled(std::u16string_view text, size_t decimals)
{
    std::optional<NumberWords> words = ReadNumberWords(text);
    if (!words || words->plain.find('e') != std::string::npos || (words->bits && decimals > 0)) {
        return std::nullopt;
    }
    if (words->bits) {
        return words->negative ? -*words->bits : *words->bits;
    }
    std::string_view plain = words->plain;
    bool negative = words->negative != plain.starts_with('-');
    plain.remove_prefix(plain[0] == '-' || plain[0] == '+' ? 1 : 0);
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
    if (overflows || (!negative && number == std::numeric_limits<int64_t>::min())) {
        Raise(kOverflow);
    }
    return negative ? number : -number;
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
        return Widen(mantissa + text.substr(mark));
    }
    std::snprintf(buffer, sizeof buffer, "%.*f", std::max(fraction - exponent, 0), number == 0 ? 0.0 : number);
    return Widen(buffer);
}

} // namespace

std::optional<double> ParseNumber(std::u16string_view text)
{
    std::optional<NumberWords> words = ReadNumberWords(text);
    if (!words) {
        return std::nullopt;
    }
    double number = words->bits ? static_cast<double>(*words->bits) : std::strtod(words->plain.c_str(), nullptr);
    return words->negative ? -number : number;
}

std::u16string NumberText(double number) { return FloatingText(number, 15); }

std::u16string CurrencyText(int64_t scaled)
{
    uint64_t magnitude = scaled < 0 ? uint64_t{0} - static_cast<uint64_t>(scaled) : static_cast<uint64_t>(scaled);
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%s%llu.%04llu", scaled < 0 ? "-" : "",
                  static_cast<unsigned long long>(magnitude / 10000), static_cast<unsigned long long>(magnitude % 10000));
    std::string text = buffer;
    while (text.back() == '0') {
        text.pop_back();
    }
    if (text.back() == '.') {
        text.pop_back();
    }
    return Widen(text);
}

bool ConvertToBoolean(const Value& given)
{
    const Value& value = given.Resolved();
    switch (value.Kind()) {
    case Type::Boolean:
        return value.Truth();
    case Type::Integer:
    case Type::Long:
    case Type::LongLong:
    case Type::Byte:
    case Type::Currency:
        return value.Whole() != 0;
    case Type::String: {
        std::u16string_view text = TrimWhite(value.Text());
        if (EqualIgnoringCase(text, u"true") || EqualIgnoringCase(text, u"#true#")) {
            return true;
        }
        if (EqualIgnoringCase(text, u"false") || EqualIgnoringCase(text, u"#false#")) {
            return false;
        }
        return ConvertToDouble(value) != 0;
    }
    default:
        return ConvertToDouble(value) != 0;
    }
}

int32_t ConvertToLong(const Value& given)
{
    const Value& value = given.Resolved();
    if (value.Kind() == Type::Long || value.Kind() == Type::Integer) {
        return static_cast<int32_t>(value.Whole());
    }
    return static_cast<int32_t>(CoerceTo(Type::Long, value).Whole());
}

double ConvertToDouble(const Value& given)
{
    const Value& value = given.Resolved();
    switch (value.Kind()) {
    case Type::Empty:
        return 0;
    case Type::Null:
        Raise(kInvalidUseOfNull);
    case Type::Integer:
    case Type::Long:
    case Type::LongLong:
    case Type::Byte:
        return static_cast<double>(value.Whole());
    case Type::Single:
    case Type::Double:
    case Type::Date:
        return value.Number();
    case Type::Currency:
        return static_cast<double>(value.Whole()) / kCurrencyScale;
    case Type::Boolean:
        return value.Truth() ? -1 : 0;
    case Type::String: {
        std::optional<double> number = ParseNumber(value.Text());
        if (!number) {
            Raise(kTypeMismatch);
        }
        if (std::isinf(*number)) {
            Raise(kOverflow);
        }
        return *number;
    }
    case Type::Object:
        return ConvertToDouble(DefaultValue(value));
    default:
        Raise(kTypeMismatch);
    }
}

std::u16string ConvertToText(const Value& given)
{
    const Value& value = given.Resolved();
    switch (value.Kind()) {
    case Type::Empty:
        return {};
    case Type::Null:
        Raise(kInvalidUseOfNull);
    case Type::Integer:
    case Type::Long:
    case Type::LongLong:
    case Type::Byte:
        return Widen(std::to_string(value.Whole()));
    case Type::Single:
        return FloatingText(value.Number(), 7);
    case Type::Double:
        return NumberText(value.Number());
    case Type::Currency:
        return CurrencyText(value.Whole());
    case Type::Date:
        return DateText(value.Number());
    case Type::String:
        return value.Text();
    case Type::Boolean:
        return value.Truth() ? u"True" : u"False";
    case Type::Error:
        if (value.IsMissing()) {
            Raise(kTypeMismatch);
        }
        return u"Error " + Widen(std::to_string(value.Whole()));
    case Type::Object:
        return ConvertToText(DefaultValue(value));
    case Type::Array:
        return TextOfBytes(*value.ArrayPointer()).Text();
    default:
        Raise(kTypeMismatch);
    }
}

Value CoerceTo(Type declared, const Value& given)
{
    const Value& value = given.Resolved();
    if (value.Kind() == declared && declared != Type::Object) {
        return value;
    }
    if (declared == Type::Variant) {
        return value;
    }
    if (declared == Type::Object) {
        return CoerceObject(value);
    }
    if (declared == Type::Array) {
        return CoerceArray(value);
    }
    if (value.Kind() == Type::Object) {
        return CoerceTo(declared, DefaultValue(value));
    }
    if (value.Kind() == Type::Null) {
        Raise(kInvalidUseOfNull);
    }
    switch (declared) {
    case Type::Byte:
    case Type::Integer:
    case Type::Long:
    case Type::LongLong:
        return ToWhole(declared, value);
    case Type::Single:
        return ToSingle(value);
    case Type::Double:
        return Value(ConvertToDouble(value));
    case Type::Currency:
        return ToCurrency(value);
    case Type::Date:
        return ToDate(value);
    case Type::String:
        return value.IsArray() ? TextOfBytes(*value.ArrayPointer()) : Value(ConvertToText(value));
    case Type::Boolean:
        return Value(ConvertToBoolean(value));
    default:
        Raise(kTypeMismatch);
    }
}

Value FitText(std::u16string text, size_t length)
{
    text.resize(length, u' ');
    return Value(std::move(text));
}

Ref<Array> BytesOfText(const Value& text)
{
    std::string bytes = text.TextBytes();
    Ref<Array> array =
        MakeRef<Array>(Type::Byte, std::vector{Dimension{0, static_cast<int32_t>(bytes.size())}}, Value::FromByte(0));
    for (size_t i = 0; i < bytes.size(); ++i) {
        array->items[i] = Value::FromByte(static_cast<uint8_t>(bytes[i]));
    }
    return array;
}

Value TextOfBytes(const Array& bytes)
{
    if (bytes.elementType != Type::Byte || bytes.dimensions.size() > 1) {
        Raise(kTypeMismatch);
    }
    std::string text;
    for (const Value& item : bytes.items) {
        text.push_back(static_cast<char>(item.Whole()));
    }
    return Value::FromBytes(text);
}

Value InitialValue(Type declared)
{
    switch (declared) {
    case Type::Byte:
        return Value::FromByte(0);
    case Type::Integer:
        return Value(int16_t{0});
    case Type::Long:
        return Value(int32_t{0});
    case Type::LongLong:
        return Value(int64_t{0});
    case Type::Single:
        return Value(0.0F);
    case Type::Double:
        return Value(0.0);
    case Type::Currency:
        return Value::FromCurrency(0);
    case Type::Date:
        return Value::FromDate(0);
    case Type::String:
        return Value(std::u16string());
    case Type::Boolean:
        return Value(false);
    case Type::Object:
        return Value::Nothing();
    default:
        return Value();
    }
}

std::u16string_view TypeText(Type type)
{
    switch (type) {
    case Type::Empty:
        return u"Empty";
    case Type::Null:
        return u"Null";
    case Type::Integer:
        return u"Integer";
    case Type::Long:
        return u"Long";
    case Type::Single:
        return u"Single";
    case Type::Double:
        return u"Double";
    case Type::Currency:
        return u"Currency";
    case Type::Date:
        return u"Date";
    case Type::String:
        return u"String";
    case Type::Object:
        return u"Object";
    case Type::Error:
        return u"Error";
    case Type::Boolean:
        return u"Boolean";
    case Type::Byte:
        return u"Byte";
    case Type::LongLong:
        return u"LongLong";
    case Type::Record:
        return u"user-defined type";
    case Type::Array:
        return u"array";
    default:
        return u"Variant";
    }
}

} // namespace tv::macro
