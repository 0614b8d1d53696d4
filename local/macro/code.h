#pragma once

#include "macro/macro.h"
#include "macro/operators.h"

#include <map>
#include <string>
#include <vector>

// What a macro is compiled to: instructions for a stack machine. Every variable has become a slot, every procedure,
// built-in function and member name a number, so nothing is looked up by name while a macro runs.

namespace tv::macro {

enum class Op : uint8_t
{
    Push,        // constant [target]
    PushMissing, // an argument that was left out
    PushInitial, // a new variable's value by shape [target]
    Pop,

    LoadLocal,  // slot [target]
    LoadParam,  // slot [target], through its reference
    LoadGlobal, // slot [target]
    // value -> ; flags: declared type, or kRaw to take the value as it is
    StoreLocal,
    StoreParam,
    StoreGlobal,
    // -> reference; flags: declared type
    AddressLocal,
    AddressGlobal,
    AddressParam,

    // count indices on top; flags: place of the variable, target: its slot
    IndexVariable,
    StoreElement, // indices, value ->; extra: 1 for Set
    Index,        // base, indices -> value
    StoreIndexed, // base or reference, indices, value ->; extra: 1 for Set
    // reference, indices -> reference
    AddressElement,
    Field,         // record -> value of field [target]
    AddressField,  // reference -> reference of field [target]; flags: declared type
    LoadIndirect,  // reference -> value
    StoreIndirect, // reference, value ->; flags as for stores

    LetValue,   // an object becomes its default value
    Coerce,     // flags: type
    CheckObject, // error 424 unless an object; target: class name or -1
    Binary,     // flags: operator, count: operand traits
    // The same with operands that needn't go over the stack; target: slot or constant on the right, extra: slot on the left
    BinaryWithLocal,    // value -> value
    BinaryWithConstant, // value -> value
    BinaryLocals,
    BinaryLocalConstant,
    AppendText, // value ->; target: slot, count: place, flags: declared type
    Unary,      // flags: operator, count: operand traits
    TypeOf,     // object -> Boolean; target: class name

    Jump,
    JumpIfFalse,
    JumpIfTrue,
    GoSub,
    ReturnFromSub,
    ForBegin,    // start, limit, step -> start; hidden slots from extra; flags: declared type
    ForTest,     // value of the variable ->; leaves to target when the loop is over
    ForStep,     // value of the variable -> stepped value
    ForFast,     // steps local [count] of hidden slots [extra] and continues at target while it lasts
    EachBegin,   // group ->; hidden slot [extra]
    EachNext,    // -> element; leaves to target at the end

    Call,         // procedure [target], count arguments
    CallExternal, // declared function [target]
    CallBuiltin,  // built-in function [target]
    GetMember,    // object, arguments -> value; name [target], argument names [extra]
    LetMember,    // object, arguments, value ->
    SetMember,
    HostGlobal, // name [target]
    PushErr,
    New,       // class name [target]
    EnsureNew, // flags: place, count: slot, target: class name
    MakeArray, // count values -> Variant array

    ReDim,     // reference, bounds in pairs ->; flags: 1 for Preserve, count: dimensions, target: shape
    EraseArray,     // reference ->; target: shape or -1
    MidAssign,      // reference, start, length, value ->

    OnErrorGoTo, // target
    OnErrorResumeNext,
    OnErrorOff,
    OnErrorClear,
    Resume,
    ResumeNext,
    ResumeAt, // target
    RaiseError,

    Return,
    End,
};

/// A store that takes the value as it is.
inline constexpr uint8_t kRaw = 0xFF;

/// Where a variable lives.
enum class Place : uint8_t
{
    Local,
    /// A parameter, whose slot may hold a reference.
    Param,
    Global,
};

struct Instruction
{
    Op op = Op::Pop;
    uint8_t flags = 0;
    uint16_t count = 0;
    int32_t target = 0;
    int32_t extra = 0;
};

/// Packs OperandTraits into an instruction.
inline constexpr uint16_t PackTraits(OperandTraits traits)
{
    return static_cast<uint16_t>((traits.leftIsVariant ? 1 : 0) | (traits.rightIsVariant ? 2 : 0) |
                                 (traits.ignoreCase ? 4 : 0));
}

inline constexpr OperandTraits UnpackTraits(uint16_t packed)
{
    return OperandTraits{(packed & 1) != 0, (packed & 2) != 0, (packed & 4) != 0};
}

/// What a variable holds before it is used.
struct Shape
{
    Type type = Type::Variant;
    bool isArray = false;
    bool isFixed = false;
    std::vector<Dimension> dimensions;
    /// Index of the user-defined type, or -1.
    int32_t record = -1;
    /// Length of a fixed-length String, or -1.
    int32_t fixedLength = -1;

    /// The type that a value takes when it is stored in such a variable.
    Type StoredType() const
    {
        return isArray ? Type::Array : fixedLength >= 0 ? Type::FixedText : type;
    }
};

struct RecordDefinition
{
    std::u16string name;
    std::vector<std::u16string> fieldNames;
    std::vector<Shape> fields;
};

struct Parameter
{
    std::u16string name;
    Type type = Type::Variant;
    int32_t record = -1;
    std::u16string className;
    bool byValue = false;
    bool isOptional = false;
    bool isParamArray = false;
    bool isArray = false;
    /// What a caller passes who leaves it out.
    Value defaultValue;
};

/// A range of instructions that belongs to one statement of the text.
struct StatementInfo
{
    int line = 0;
    /// Number label in front of it, for Erl.
    int lineNumber = 0;
    uint32_t start = 0;
    /// Where Resume Next goes on.
    uint32_t next = 0;
    /// Slots of references that are given up when the statement fails, from the first up to but without the end.
    int32_t heldFirst = 0;
    int32_t heldEnd = 0;
};

struct Procedure
{
    std::u16string name;
    std::vector<Parameter> parameters;
    bool hasResult = false;
    bool isFunction = false;
    int32_t resultSlot = -1;
    uint32_t entry = 0;
    std::vector<Instruction> code;
    /// For each instruction the index of its statement.
    std::vector<uint32_t> statementOf;
    std::vector<StatementInfo> statements;
    /// Initial values of the slots behind the parameters.
    std::vector<Value> locals;
    /// Most values that one statement stacks up.
    uint32_t stackNeed = 0;
};

struct External
{
    std::u16string library;
    std::u16string entry;
    std::u16string shownLibrary;
    std::u16string shownEntry;
    Type result = Type::Variant;
};

class Module
{
public:
    std::vector<Procedure> procedures;
    /// Folded names of what Machine::Run can start.
    std::map<std::u16string, int32_t> procedureNames;
    std::vector<Value> constants;
    std::vector<MemberName> names;
    std::vector<std::vector<MemberName>> argumentNames;
    std::vector<External> externals;
    std::vector<Shape> shapes;
    std::vector<RecordDefinition> records;
    /// Shapes of the module-level and Static variables.
    std::vector<int32_t> globals;
    bool compareText = false;
};

/// The value of a new variable.
Value MakeInitial(const Module& module, const Shape& shape);

} // namespace tv::macro
