// Functions of numbers and the conversions.

#include "macro/builtins.h"
#include "macro/convert.h"
#include "macro/dates.h"
#include "macro/operators.h"
#include "macro/runtime.h"

#include <cmath>

namespace tv::macro {

namespace {

template <Type Kind> Value Convert(Runtime&, const Arguments& a)
{
    return CoerceTo(Kind, a[0]);
}

Value ToVariant(Runtime&, const Arguments& a)
{
    return a[0];
}

Value ToError(Runtime&, const Arguments& a)
{
    int32_t number = a[0].ToLong();
    if (number < 0 || number > 65535) {
        Raise(kInvalidCall);
    }
    return Value::FromError(number);
}

Value Checked(double number)
{
    if (std::isnan(number)) {
        Raise(kInvalidCall);
    }
    if (std::isinf(number)) {
        Raise(kOverflow);
    }
    return Value(number);
}

template <double (*Function)(double)> Value OfNumber(Runtime&, const Arguments& a)
{
    return Checked(Function(a[0].ToDouble()));
}

double SquareRoot(double x)
{
    return std::sqrt(x);
}
double Exponential(double x)
{
    return std::exp(x);
}
double Logarithm(double x)
{
    return x <= 0 ? std::nan("") : std::log(x);
}
double Sine(double x)
{
    return std::sin(x);
}
double Cosine(double x)
{
    return std::cos(x);
}
double Tangent(double x)
{
    return std::tan(x);
}
double ArcTangent(double x)
{
    return std::atan(x);
}

/// A number in the kind it came in; texts become Double.
Value Numeric(const Value& value)
{
    if (value.IsString()) {
        return Value(value.ToDouble());
    }
    if (value.IsObject()) {
        return Numeric(DefaultValue(value));
    }
    if (value.IsEmpty() || value.Kind() == Type::Boolean) {
        return CoerceTo(Type::Integer, value);
    }
    if (!value.IsNumeric()) {
        Raise(kTypeMismatch);
    }
    return value;
}

Value Abs(Runtime&, const Arguments& a)
{
    if (a[0].IsNull()) {
        return Value::Null();
    }
    Value number = Numeric(a[0]);
    return number.ToDouble() < 0 ? ApplyUnary(Operator::Negate, number, {}) : number;
}

Value Sgn(Runtime&, const Arguments& a)
{
    double number = a[0].ToDouble();
    return Value(static_cast<int16_t>(number > 0 ? 1 : number < 0 ? -1 : 0));
}

template <double (*Function)(double)> Value WholePart(Runtime&, const Arguments& a)
{
    if (a[0].IsNull()) {
        return Value::Null();
    }
    Value number = Numeric(a[0]);
    switch (number.Kind()) {
    case Type::Single:
        return Value(static_cast<float>(Function(number.Number())));
    case Type::Double:
        return Value(Function(number.Number()));
    case Type::Date:
        return Value::FromDate(Function(number.Number()));
    case Type::Currency:
        return CoerceTo(Type::Currency, Value(Function(number.ToDouble())));
    default:
        return number;
    }
}

double Floor(double x)
{
    return std::floor(x);
}
double Truncate(double x)
{
    return std::trunc(x);
}

Value Round(Runtime&, const Arguments& a)
{
    if (a[0].IsNull()) {
        return Value::Null();
    }
    int32_t digits = a.Has(1) ? a[1].ToLong() : 0;
    if (digits < 0 || digits > 22) {
        Raise(kInvalidCall);
    }
    Value number = Numeric(a[0]);
    if (number.Kind() == Type::Integer || number.Kind() == Type::Long || number.Kind() == Type::LongLong ||
        number.Kind() == Type::Byte) {
        return number;
    }
    double scale = std::pow(10.0, digits);
    double scaled = number.ToDouble() * scale;
    // Seen on 15 digits, so that 2.345 lies halfway although no binary number does.
    scaled = ParseNumber(NumberText(scaled)).value_or(scaled);
    double rounded = std::isfinite(scaled) ? RoundHalfEven(scaled) / scale : number.ToDouble();
    return CoerceTo(number.Kind() == Type::Date ? Type::Double : number.Kind(), Value(rounded));
}

/// The generator of the language: 24 bits, linear congruential, so that a seed gives the known sequence.
Value Rnd(Runtime& runtime, const Arguments& a)
{
    float argument = a.Has(0) ? static_cast<float>(a[0].ToDouble()) : 1.0F;
    if (argument < 0) {
        uint32_t bits = 0;
        static_assert(sizeof bits == sizeof argument);
        __builtin_memcpy(&bits, &argument, sizeof bits);
        runtime.random = (bits + (bits >> 24)) & 0xFFFFFF;
    }
    if (argument != 0) {
        runtime.random = (runtime.random * 0x43FD43FDU + 0xC39EC3U) & 0xFFFFFF;
    }
    return Value(static_cast<float>(runtime.random) / 16777216.0F);
}

Value Randomize(Runtime& runtime, const Arguments& a)
{
    double seed = a.Has(0) ? a[0].ToDouble() : std::fmod(runtime.host.Now(), 1.0) * 86400;
    uint64_t bits = 0;
    static_assert(sizeof bits == sizeof seed);
    __builtin_memcpy(&bits, &seed, sizeof bits);
    uint32_t high = static_cast<uint32_t>(bits >> 32);
    uint32_t mixed = (high & 0xFFFF) ^ (high >> 16);
    runtime.random = (runtime.random & 0xFF) | (mixed << 8);
    return Value();
}

constexpr Builtin kFunctions[] = {
    {u"abs", 1, 1, Type::Variant, Abs, u"Number"},
    {u"atn", 1, 1, Type::Double, OfNumber<ArcTangent>, u"Number"},
    {u"cbool", 1, 1, Type::Boolean, Convert<Type::Boolean>, u"Expression"},
    {u"cbyte", 1, 1, Type::Byte, Convert<Type::Byte>, u"Expression"},
    {u"ccur", 1, 1, Type::Currency, Convert<Type::Currency>, u"Expression"},
    {u"cdate", 1, 1, Type::Date, Convert<Type::Date>, u"Expression"},
    {u"cdbl", 1, 1, Type::Double, Convert<Type::Double>, u"Expression"},
    {u"cint", 1, 1, Type::Integer, Convert<Type::Integer>, u"Expression"},
    {u"clng", 1, 1, Type::Long, Convert<Type::Long>, u"Expression"},
    {u"clnglng", 1, 1, Type::LongLong, Convert<Type::LongLong>, u"Expression"},
    {u"clngptr", 1, 1, Type::LongLong, Convert<Type::LongLong>, u"Expression"},
    {u"cos", 1, 1, Type::Double, OfNumber<Cosine>, u"Number"},
    {u"csng", 1, 1, Type::Single, Convert<Type::Single>, u"Expression"},
    {u"cstr", 1, 1, Type::String, Convert<Type::String>, u"Expression"},
    {u"cvar", 1, 1, Type::Variant, ToVariant, u"Expression"},
    {u"cvdate", 1, 1, Type::Variant, Convert<Type::Date>, u"Expression"},
    {u"cverr", 1, 1, Type::Variant, ToError, u"Expression"},
    {u"exp", 1, 1, Type::Double, OfNumber<Exponential>, u"Number"},
    {u"fix", 1, 1, Type::Variant, WholePart<Truncate>, u"Number"},
    {u"int", 1, 1, Type::Variant, WholePart<Floor>, u"Number"},
    {u"log", 1, 1, Type::Double, OfNumber<Logarithm>, u"Number"},
    {u"randomize", 0, 1, Type::Empty, Randomize, u"Number"},
    {u"rnd", 0, 1, Type::Single, Rnd, u"Number"},
    {u"round", 1, 2, Type::Variant, Round, u"Number NumDigitsAfterDecimal"},
    {u"sgn", 1, 1, Type::Variant, Sgn, u"Number"},
    {u"sin", 1, 1, Type::Double, OfNumber<Sine>, u"Number"},
    {u"sqr", 1, 1, Type::Double, OfNumber<SquareRoot>, u"Number"},
    {u"tan", 1, 1, Type::Double, OfNumber<Tangent>, u"Number"},
};

} // namespace

std::span<const Builtin> NumberFunctions()
{
    return kFunctions;
}

} // namespace tv::macro
