#include "macro/convert.h"

#include "macro/dates.h"
#include "macro/object.h"
#include "macro/text.h"

#include <cmath>
#include <limits>

namespace tv::macro {

namespace {

constexpr double kCurrencyScale = 10000.0;

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

double RoundHalfEven(double number)
{
    return std::nearbyint(number);
}

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
        return SingleText(value.Number());
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
