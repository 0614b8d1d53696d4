#include "macro/operators.h"

#include "macro/convert.h"
#include "macro/dates.h"
#include "macro/object.h"
#include "macro/text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tv::macro {

namespace {

const Value& Plain(const Value& operand, Value& storage)
{
    const Value& value = operand.Resolved();
    switch (value.Kind()) {
    case Type::Object:
        storage = DefaultValue(value);
        return Plain(storage, storage);
    case Type::Array:
    case Type::Record:
    case Type::Error:
    case Type::Internal:
        Raise(kTypeMismatch);
    default:
        return value;
    }
}

/// The kind in which an operand takes part in arithmetic.
Type NumberKind(Type type)
{
    switch (type) {
    case Type::Empty:
    case Type::Boolean:
        return Type::Integer;
    case Type::String:
        return Type::Double;
    default:
        return type;
    }
}

bool IsWholeKind(Type type)
{
    return type == Type::Byte || type == Type::Integer || type == Type::Long || type == Type::LongLong;
}

int WholeRank(Type type)
{
    return type == Type::Byte ? 0 : type == Type::Integer ? 1 : type == Type::Long ? 2 : 3;
}

Type LargerWhole(Type left, Type right)
{
    return WholeRank(left) >= WholeRank(right) ? left : right;
}

Type ArithmeticKind(Operator operation, Type leftType, Type rightType)
{
    Type left = NumberKind(leftType);
    Type right = NumberKind(rightType);
    bool isSum = operation == Operator::Add || operation == Operator::Subtract;
    if (left == Type::Date || right == Type::Date) {
        if (operation == Operator::Subtract && left == right) {
            return Type::Double;
        }
        return isSum ? Type::Date : Type::Double;
    }
    if (left == Type::Currency || right == Type::Currency) {
        Type other = left == Type::Currency ? right : left;
        bool floating = other == Type::Single || other == Type::Double;
        return floating && !isSum ? Type::Double : Type::Currency;
    }
    if (IsWholeKind(left) && IsWholeKind(right)) {
        return LargerWhole(left, right);
    }
    if (left == Type::Double || right == Type::Double) {
        return Type::Double;
    }
    Type other = left == Type::Single ? right : left;
    return other == Type::Long || other == Type::LongLong ? Type::Double : Type::Single;
}

Type NextWhole(Type kind)
{
    return kind == Type::Byte ? Type::Integer : kind == Type::Integer ? Type::Long : Type::Double;
}

/// A whole result in its kind; a Variant widens to the first kind that holds it.
Value FitWhole(Type kind, int64_t number, bool widens)
{
    while (!FitsInto(kind, number)) {
        if (!widens) {
            Raise(kOverflow);
        }
        kind = NextWhole(kind);
    }
    return kind == Type::Double ? Value(static_cast<double>(number)) : WholeNumber(kind, number);
}

Value FitFloating(Type kind, double number, bool widens)
{
    if (kind == Type::Single && std::abs(number) > static_cast<double>(std::numeric_limits<float>::max()) && widens) {
        kind = Type::Double;
    }
    if (std::isinf(number) || std::isnan(number)) {
        Raise(kOverflow);
    }
    if (kind == Type::Date) {
        if (!IsDateInRange(number)) {
            if (!widens) {
                Raise(kOverflow);
            }
            return Value(number);
        }
        return Value::FromDate(number);
    }
    return CoerceTo(kind, Value(number));
}

bool WholeOverflows(Operator operation, int64_t left, int64_t right, int64_t& result)
{
    switch (operation) {
    case Operator::Add:
        return __builtin_add_overflow(left, right, &result);
    case Operator::Subtract:
        return __builtin_sub_overflow(left, right, &result);
    default:
        return __builtin_mul_overflow(left, right, &result);
    }
}

double FloatingResult(Operator operation, double left, double right)
{
    switch (operation) {
    case Operator::Add:
        return left + right;
    case Operator::Subtract:
        return left - right;
    default:
        return left * right;
    }
}

/// The product of two amounts in ten-thousandths, rounded half to even.
int64_t CurrencyProduct(int64_t a, int64_t b)
{
    __extension__ using Wide = __int128;
    const Wide product = static_cast<Wide>(a) * b;
    Wide quotient = product / 10000;
    const Wide rest = product < 0 ? -(product % 10000) : product % 10000;
    if (rest > 5000 || (rest == 5000 && quotient % 2 != 0)) {
        quotient += product < 0 ? -1 : 1;
    }
    if (quotient > std::numeric_limits<int64_t>::max() || quotient < std::numeric_limits<int64_t>::min()) {
        Raise(kOverflow);
    }
    return static_cast<int64_t>(quotient);
}

Value CurrencyResult(Operator operation, const Value& left, const Value& right)
{
    int64_t a = CoerceTo(Type::Currency, left).Whole();
    int64_t b = CoerceTo(Type::Currency, right).Whole();
    int64_t result = 0;
    if (operation == Operator::Multiply) {
        return Value::FromCurrency(CurrencyProduct(a, b));
    }
    if (WholeOverflows(operation, a, b, result)) {
        Raise(kOverflow);
    }
    return Value::FromCurrency(result);
}

Value Arithmetic(Operator operation, const Value& left, const Value& right, bool widens)
{
    Type kind = ArithmeticKind(operation, left.Kind(), right.Kind());
    if (kind == Type::Currency) {
        return CurrencyResult(operation, left, right);
    }
    if (IsWholeKind(kind)) {
        int64_t a = left.Kind() == Type::Boolean ? (left.Truth() ? -1 : 0) : left.Whole();
        int64_t b = right.Kind() == Type::Boolean ? (right.Truth() ? -1 : 0) : right.Whole();
        int64_t result = 0;
        if (WholeOverflows(operation, a, b, result)) {
            return widens ? Value(FloatingResult(operation, static_cast<double>(a), static_cast<double>(b)))
                          : (Raise(kOverflow), Value());
        }
        return FitWhole(kind, result, widens);
    }
    return FitFloating(kind, FloatingResult(operation, ConvertToDouble(left), ConvertToDouble(right)), widens);
}

Value Add(const Value& left, const Value& right, bool widens)
{
    bool leftText = left.Kind() == Type::String;
    bool rightText = right.Kind() == Type::String;
    if ((leftText && (rightText || right.IsEmpty())) || (rightText && left.IsEmpty())) {
        return Value(ConvertToText(left) + ConvertToText(right));
    }
    return Arithmetic(Operator::Add, left, right, widens);
}

Value Divide(const Value& left, const Value& right, bool widens)
{
    double a = ConvertToDouble(left);
    double b = ConvertToDouble(right);
    if (b == 0) {
        Raise(a == 0 ? kOverflow : kDivisionByZero);
    }
    auto fitsSingle = [](Type type) { return type == Type::Single || type == Type::Integer || type == Type::Byte; };
    Type x = NumberKind(left.Kind());
    Type y = NumberKind(right.Kind());
    bool single = (x == Type::Single || y == Type::Single) && fitsSingle(x) && fitsSingle(y);
    return FitFloating(single ? Type::Single : Type::Double, a / b, widens);
}

/// The kind in which `\`, Mod and the bit operators work: whole numbers as they are, everything else as Long.
Type WholeKindOf(Type type)
{
    Type kind = NumberKind(type);
    return IsWholeKind(kind) ? kind : Type::Long;
}

Value DivideWhole(Operator operation, const Value& left, const Value& right, bool widens)
{
    Type kind = LargerWhole(WholeKindOf(left.Kind()), WholeKindOf(right.Kind()));
    auto whole = [](const Value& value) { return CoerceTo(WholeKindOf(value.Kind()), value).Whole(); };
    int64_t a = whole(left);
    int64_t b = whole(right);
    if (b == 0) {
        Raise(kDivisionByZero);
    }
    if (b == -1) {
        if (operation == Operator::Modulo) {
            return WholeNumber(kind, int64_t{0});
        }
        if (a == std::numeric_limits<int64_t>::min()) {
            Raise(kOverflow);
        }
        return FitWhole(kind, -a, widens);
    }
    return WholeNumber(kind, operation == Operator::Modulo ? a % b : a / b);
}

Value Power(const Value& left, const Value& right)
{
    double base = ConvertToDouble(left);
    double exponent = ConvertToDouble(right);
    if ((base < 0 && exponent != std::trunc(exponent)) || (base == 0 && exponent < 0)) {
        Raise(kInvalidCall);
    }
    return FitFloating(Type::Double, std::pow(base, exponent), true);
}

int64_t Bits(Operator operation, int64_t a, int64_t b)
{
    switch (operation) {
    case Operator::And:
        return a & b;
    case Operator::Or:
        return a | b;
    case Operator::Xor:
        return a ^ b;
    case Operator::Eqv:
        return ~(a ^ b);
    default:
        return ~a | b;
    }
}

int64_t BitsOf(const Value& value, Type kind)
{
    return value.Kind() == Type::Boolean ? (value.Truth() ? -1 : 0) : CoerceTo(kind, value).Whole();
}

/// Null keeps a result open unless the other operand decides it alone.
Value LogicWithNull(Operator operation, const Value& left, const Value& right)
{
    const Value& known = left.IsNull() ? right : left;
    if (known.IsNull()) {
        return Value::Null();
    }
    bool zero = !ConvertToBoolean(known);
    bool ones = known.Kind() == Type::Boolean ? known.Truth() : BitsOf(known, WholeKindOf(known.Kind())) == -1;
    switch (operation) {
    case Operator::And:
        return zero ? known : Value::Null();
    case Operator::Or:
        return ones ? known : Value::Null();
    case Operator::Imp:
        if (left.IsNull()) {
            return ones ? known : Value::Null();
        }
        return zero ? Value(true) : Value::Null();
    default:
        return Value::Null();
    }
}

Value Logic(Operator operation, const Value& left, const Value& right)
{
    if (left.IsNull() || right.IsNull()) {
        return LogicWithNull(operation, left, right);
    }
    if (left.Kind() == Type::Boolean && right.Kind() == Type::Boolean) {
        return Value((Bits(operation, left.Truth() ? -1 : 0, right.Truth() ? -1 : 0) & 1) != 0);
    }
    Type kind = LargerWhole(WholeKindOf(left.Kind()), WholeKindOf(right.Kind()));
    int64_t result = Bits(operation, BitsOf(left, kind), BitsOf(right, kind));
    if (kind == Type::Byte) {
        result &= 0xFF;
    }
    return WholeNumber(kind, result);
}

int CompareNumbers(const Value& left, const Value& right)
{
    auto isWhole = [](const Value& value) { return IsWholeKind(value.Kind()); };
    if (isWhole(left) && isWhole(right)) {
        return left.Whole() < right.Whole() ? -1 : (left.Whole() > right.Whole() ? 1 : 0);
    }
    if (left.Kind() == Type::Currency && right.Kind() == Type::Currency) {
        return left.Whole() < right.Whole() ? -1 : (left.Whole() > right.Whole() ? 1 : 0);
    }
    double a = ConvertToDouble(left);
    double b = ConvertToDouble(right);
    if (left.Kind() == Type::Single || right.Kind() == Type::Single) {
        a = static_cast<double>(static_cast<float>(a));
        b = static_cast<double>(static_cast<float>(b));
    }
    return a < b ? -1 : (a > b ? 1 : 0);
}

/// A text against a number: what is declared as text or number decides; of two Variants a number is always the less.
int CompareTextWithNumber(const Value& left, const Value& right, OperandTraits traits)
{
    bool leftIsText = left.Kind() == Type::String;
    bool textIsVariant = leftIsText ? traits.leftIsVariant : traits.rightIsVariant;
    bool numberIsVariant = leftIsText ? traits.rightIsVariant : traits.leftIsVariant;
    const Value& number = leftIsText ? right : left;
    const Value& text = leftIsText ? left : right;
    if (textIsVariant && numberIsVariant) {
        return leftIsText ? 1 : -1;
    }
    if (!textIsVariant && numberIsVariant) {
        int order = CompareTexts(text.Text(), ConvertToText(number), traits.ignoreCase);
        return leftIsText ? order : -order;
    }
    int order = number.Kind() == Type::Boolean
                    ? CompareNumbers(Value(ConvertToBoolean(text)), number)
                    : CompareNumbers(CoerceTo(number.Kind() == Type::Date ? Type::Date : Type::Double, text), number);
    return leftIsText ? order : -order;
}

int ComparePlain(const Value& left, const Value& right, OperandTraits traits)
{
    bool leftText = left.Kind() == Type::String;
    bool rightText = right.Kind() == Type::String;
    if (leftText && rightText) {
        return CompareTexts(left.Text(), right.Text(), traits.ignoreCase);
    }
    if ((leftText && right.IsEmpty()) || (rightText && left.IsEmpty())) {
        return CompareTexts(ConvertToText(left), ConvertToText(right), traits.ignoreCase);
    }
    if (leftText || rightText) {
        return CompareTextWithNumber(left, right, traits);
    }
    return CompareNumbers(left, right);
}

bool IsComparison(Operator operation)
{
    return operation >= Operator::Equal && operation <= Operator::GreaterOrEqual;
}

bool Holds(Operator operation, int order)
{
    switch (operation) {
    case Operator::Equal:
        return order == 0;
    case Operator::NotEqual:
        return order != 0;
    case Operator::Less:
        return order < 0;
    case Operator::Greater:
        return order > 0;
    case Operator::LessOrEqual:
        return order <= 0;
    default:
        return order >= 0;
    }
}

bool IsSameObject(const Value& left, const Value& right)
{
    const Value& a = left.Resolved();
    const Value& b = right.Resolved();
    if (!a.IsObject() || !b.IsObject()) {
        Raise(kObjectRequired);
    }
    if (a.IsNothing() || b.IsNothing()) {
        return a.IsNothing() && b.IsNothing();
    }
    return a.ObjectPointer()->IsSame(*b.ObjectPointer());
}

Value Concatenate(const Value& left, const Value& right)
{
    if (left.IsNull() && right.IsNull()) {
        return Value::Null();
    }
    if (left.IsString() && right.IsString() && (left.EndsInHalf() || right.EndsInHalf())) {
        return Value::FromBytes(left.TextBytes() + right.TextBytes());
    }
    std::u16string text = left.IsNull() ? std::u16string() : ConvertToText(left);
    text += right.IsNull() ? std::u16string() : ConvertToText(right);
    return Value(std::move(text));
}

} // namespace

int CompareValues(const Value& left, const Value& right, OperandTraits traits)
{
    Value leftStorage;
    Value rightStorage;
    return ComparePlain(Plain(left, leftStorage), Plain(right, rightStorage), traits);
}

Value Apply(Operator operation, const Value& leftOperand, const Value& rightOperand, OperandTraits traits)
{
    if (operation == Operator::Is) {
        return Value(IsSameObject(leftOperand, rightOperand));
    }
    if (IsComparison(operation) && leftOperand.Resolved().Kind() == Type::Error &&
        rightOperand.Resolved().Kind() == Type::Error) {
        int64_t order = leftOperand.Resolved().Whole() - rightOperand.Resolved().Whole();
        return Value(Holds(operation, order < 0 ? -1 : (order > 0 ? 1 : 0)));
    }
    Value leftStorage;
    Value rightStorage;
    const Value& left = Plain(leftOperand, leftStorage);
    const Value& right = Plain(rightOperand, rightStorage);
    if (operation == Operator::Concatenate) {
        return Concatenate(left, right);
    }
    if (operation >= Operator::And && operation <= Operator::Imp) {
        return Logic(operation, left, right);
    }
    if (left.IsNull() || right.IsNull()) {
        return Value::Null();
    }
    switch (operation) {
    case Operator::Add:
        return Add(left, right, traits.Widens());
    case Operator::Subtract:
    case Operator::Multiply:
        return Arithmetic(operation, left, right, traits.Widens());
    case Operator::Divide:
        return Divide(left, right, traits.Widens());
    case Operator::IntegerDivide:
    case Operator::Modulo:
        return DivideWhole(operation, left, right, traits.Widens());
    case Operator::Power:
        return Power(left, right);
    case Operator::Like:
        return Value(MatchesPattern(ConvertToText(left), ConvertToText(right), traits.ignoreCase));
    default:
        return Value(Holds(operation, ComparePlain(left, right, traits)));
    }
}

Value ApplyUnary(Operator operation, const Value& operand, OperandTraits traits)
{
    Value storage;
    const Value& value = Plain(operand, storage);
    if (value.IsNull()) {
        return Value::Null();
    }
    if (operation == Operator::Not) {
        if (value.Kind() == Type::Boolean) {
            return Value(!value.Truth());
        }
        Type kind = WholeKindOf(value.Kind());
        int64_t bits = ~BitsOf(value, kind);
        return WholeNumber(kind, kind == Type::Byte ? bits & 0xFF : bits);
    }
    if (operation == Operator::Plus) {
        return value.Kind() == Type::String ? Value(ConvertToDouble(value)) : value;
    }
    if (value.Kind() == Type::Date) {
        return FitFloating(Type::Date, -value.Number(), true);
    }
    Type zero = value.Kind() == Type::Byte || value.Kind() == Type::Boolean ? Type::Integer : NumberKind(value.Kind());
    return Arithmetic(Operator::Subtract, InitialValue(zero), value, traits.leftIsVariant);
}

Type ResultType(Operator operation, Type left, Type right)
{
    if (operation == Operator::Is) {
        return Type::Boolean;
    }
    auto isPlain = [](Type type) {
        return type != Type::Variant && type != Type::Object && type != Type::Array && type != Type::Record;
    };
    if (!isPlain(left) || !isPlain(right)) {
        return Type::Variant;
    }
    switch (operation) {
    case Operator::Add:
        if (left == Type::String && right == Type::String) {
            return Type::String;
        }
        return ArithmeticKind(operation, left, right);
    case Operator::Subtract:
    case Operator::Multiply:
        return ArithmeticKind(operation, left, right);
    case Operator::Divide:
    case Operator::Power:
        return Type::Double;
    case Operator::Concatenate:
        return Type::String;
    case Operator::IntegerDivide:
    case Operator::Modulo:
        return LargerWhole(WholeKindOf(left), WholeKindOf(right));
    case Operator::And:
    case Operator::Or:
    case Operator::Xor:
    case Operator::Eqv:
    case Operator::Imp:
        return left == Type::Boolean && right == Type::Boolean ? Type::Boolean
                                                               : LargerWhole(WholeKindOf(left), WholeKindOf(right));
    case Operator::Not:
        return left == Type::Boolean ? Type::Boolean : WholeKindOf(left);
    case Operator::Negate:
        return left == Type::Boolean || left == Type::Byte ? Type::Integer : NumberKind(left);
    case Operator::Plus:
        return NumberKind(left);
    default:
        return Type::Boolean;
    }
}

} // namespace tv::macro
