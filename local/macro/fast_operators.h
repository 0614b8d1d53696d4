#pragma once

#include "macro/operators.h"

#include <cmath>
#include <new>

// The operations that macros spend their time on, without a call: whole numbers of 16 and 32 bits, and Doubles.
// Whatever needs a rule of the language beyond them, such as an overflow, is left to Apply.

namespace tv::macro {

inline bool IsPlainWhole(Type kind)
{
    return kind == Type::Integer || kind == Type::Long;
}
inline bool IsPlainWhole(const Value& value)
{
    return IsPlainWhole(value.Kind());
}

/// Writes the result over `result`, which holds nothing counted; it may be an operand. False when Apply has to do it.
template <typename T> bool CompareFast(Operator operation, T left, T right, Value* result)
{
    switch (operation) {
    case Operator::Equal:
        new (result) Value(left == right);
        return true;
    case Operator::NotEqual:
        new (result) Value(left != right);
        return true;
    case Operator::Less:
        new (result) Value(left < right);
        return true;
    case Operator::Greater:
        new (result) Value(left > right);
        return true;
    case Operator::LessOrEqual:
        new (result) Value(left <= right);
        return true;
    case Operator::GreaterOrEqual:
        new (result) Value(left >= right);
        return true;
    default:
        return false;
    }
}

[[gnu::always_inline]] inline bool ComputeWholeFast(Operator operation, Type kind, int32_t left, int32_t right, Value* result)
{
    int64_t number = 0;
    switch (operation) {
    case Operator::Add:
        number = int64_t{left} + right;
        break;
    case Operator::Subtract:
        number = int64_t{left} - right;
        break;
    case Operator::Multiply:
        number = int64_t{left} * right;
        break;
    case Operator::IntegerDivide:
    case Operator::Modulo:
        if (right == 0 || right == -1) {
            return false;
        }
        number = operation == Operator::Modulo ? left % right : left / right;
        break;
    case Operator::Divide:
        if (right == 0) {
            return false;
        }
        new (result) Value(static_cast<double>(left) / static_cast<double>(right));
        return true;
    case Operator::And:
        number = left & right;
        break;
    case Operator::Or:
        number = left | right;
        break;
    default:
        return CompareFast(operation, left, right, result);
    }
    if (kind == Type::Long) {
        int32_t whole = static_cast<int32_t>(number);
        if (whole != number) {
            return false;
        }
        new (result) Value(whole);
        return true;
    }
    int16_t whole = static_cast<int16_t>(number);
    if (whole != number) {
        return false;
    }
    new (result) Value(whole);
    return true;
}

inline bool ComputeDoubleFast(Operator operation, double left, double right, Value* result)
{
    double number = 0;
    switch (operation) {
    case Operator::Add:
        number = left + right;
        break;
    case Operator::Subtract:
        number = left - right;
        break;
    case Operator::Multiply:
        number = left * right;
        break;
    case Operator::Divide:
        if (right == 0) {
            return false;
        }
        number = left / right;
        break;
    default:
        return CompareFast(operation, left, right, result);
    }
    if (!std::isfinite(number)) {
        return false;
    }
    new (result) Value(number);
    return true;
}

// The interpreter's loop has a copy at each place, with its own branches to predict.
[[gnu::always_inline]] inline bool ComputeFast(Operator operation, const Value& left, const Value& right, Value* result)
{
    Type leftKind = left.Kind();
    Type rightKind = right.Kind();
    if (IsPlainWhole(leftKind) && IsPlainWhole(rightKind)) {
        // The larger kind of the two is the kind of the result.
        return ComputeWholeFast(operation, leftKind == Type::Long ? leftKind : rightKind,
                                static_cast<int32_t>(left.Whole()), static_cast<int32_t>(right.Whole()), result);
    }
    if (leftKind == Type::Double && rightKind == Type::Double) {
        return ComputeDoubleFast(operation, left.Number(), right.Number(), result);
    }
    if (leftKind == Type::Double && IsPlainWhole(rightKind)) {
        return ComputeDoubleFast(operation, left.Number(), static_cast<double>(right.Whole()), result);
    }
    if (rightKind == Type::Double && IsPlainWhole(leftKind)) {
        return ComputeDoubleFast(operation, static_cast<double>(left.Whole()), right.Number(), result);
    }
    return false;
}

} // namespace tv::macro
