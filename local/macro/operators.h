#pragma once

#include "macro/value.h"

namespace tv::macro {

enum class Operator : uint8_t
{
    Add,
    Subtract,
    Multiply,
    Divide,
    IntegerDivide,
    Modulo,
    Power,
    Concatenate,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessOrEqual,
    GreaterOrEqual,
    Like,
    Is,
    And,
    Or,
    Xor,
    Eqv,
    Imp,
    // Unary.
    Negate,
    Plus,
    Not,
};

/// What the compiler knows about the operands of an operator; the language's rules depend on it.
struct OperandTraits
{
    bool leftIsVariant = true;
    bool rightIsVariant = true;
    /// Option Compare Text.
    bool ignoreCase = false;

    /// Only a Variant grows when a result doesn't fit; declared operands overflow.
    bool Widens() const { return leftIsVariant || rightIsVariant; }
};

Value Apply(Operator operation, const Value& left, const Value& right, OperandTraits traits);
Value ApplyUnary(Operator operation, const Value& operand, OperandTraits traits);

/// The type of a result when both operands' declared types are known; Variant when either is.
Type ResultType(Operator operation, Type left, Type right);

/// -1, 0 or 1 by the rules of the comparison operators for two Variants that aren't Null.
int CompareValues(const Value& left, const Value& right, OperandTraits traits);

} // namespace tv::macro
