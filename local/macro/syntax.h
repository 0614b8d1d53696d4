#pragma once

#include "macro/operators.h"
#include "macro/value.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

// The syntax tree of a macro. It exists only while a text is compiled.

namespace tv::macro {

struct Position
{
    int line = 0;
    int column = 0;
};

/// Ends a compilation.
struct CompileFailure
{
    Position at;
    std::u16string message;
};

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

struct ArgumentSyntax
{
    /// Null when the argument was left out between commas.
    ExpressionPtr value;
    std::u16string name;
};

enum class ExpressionKind
{
    Literal,
    Name,
    /// `base.name`; without a base inside a With block.
    Member,
    /// `base!name`
    Bang,
    /// `base(arguments)`: an element, a call or a default member.
    Index,
    Unary,
    Binary,
    /// `TypeOf base Is name`
    TypeOf,
    /// `New name`
    New,
    /// `(base)`, which is passed as a copy.
    Parenthesized,
};

struct Expression
{
    Expression(ExpressionKind k, Position p) : kind(k), at(p) {}
    Expression(const Expression&) = delete;
    Expression& operator=(const Expression&) = delete;
    ~Expression();

    ExpressionKind kind;
    Position at;
    Value literal;
    std::u16string name;
    char16_t suffix = 0;
    Operator operation = Operator::Add;
    ExpressionPtr base;
    ExpressionPtr right;
    std::vector<ArgumentSyntax> arguments;
};

struct TypeSyntax
{
    Type type = Type::Variant;
    /// Name of a class, a user-defined type or an enumeration, with its library when one was given.
    std::u16string name;
    std::u16string qualifier;
    bool isNew = false;
    bool isGiven = false;
    ExpressionPtr fixedLength;
    Position at;
};

struct BoundSyntax
{
    ExpressionPtr lower;
    ExpressionPtr upper;
};

struct VariableSyntax
{
    std::u16string name;
    Position at;
    TypeSyntax type;
    bool isArray = false;
    std::vector<BoundSyntax> bounds;
};

struct ConstantSyntax
{
    std::u16string name;
    Position at;
    TypeSyntax type;
    ExpressionPtr value;
};

struct Statement;
using Block = std::vector<Statement>;

struct LetStatement
{
    ExpressionPtr target;
    ExpressionPtr value;
};
struct SetStatement
{
    ExpressionPtr target;
    ExpressionPtr value;
};
struct CallStatement
{
    ExpressionPtr call;
};
struct DimStatement
{
    std::vector<VariableSyntax> variables;
    bool isStatic = false;
};
struct ConstStatement
{
    std::vector<ConstantSyntax> constants;
};
struct ReDimStatement
{
    struct Item
    {
        ExpressionPtr target;
        TypeSyntax type;
        std::vector<BoundSyntax> bounds;
    };
    std::vector<Item> items;
    bool preserve = false;
};
struct EraseStatement
{
    std::vector<ExpressionPtr> targets;
};
struct IfStatement
{
    struct Branch
    {
        Position at;
        ExpressionPtr condition;
        Block block;
    };
    std::vector<Branch> branches;
    Block otherwise;
};
struct SelectStatement
{
    struct Test
    {
        /// Equal for a plain value or `To`, else the operator behind Is.
        Operator operation = Operator::Equal;
        ExpressionPtr value;
        ExpressionPtr upTo;
    };
    struct Case
    {
        Position at;
        std::vector<Test> tests;
        bool isElse = false;
        Block block;
    };
    ExpressionPtr subject;
    std::vector<Case> cases;
};
struct ForStatement
{
    ExpressionPtr variable;
    ExpressionPtr first;
    ExpressionPtr last;
    ExpressionPtr step;
    Block block;
    Position end;
};
struct ForEachStatement
{
    ExpressionPtr variable;
    ExpressionPtr group;
    Block block;
    Position end;
};
struct DoStatement
{
    ExpressionPtr before;
    bool untilBefore = false;
    ExpressionPtr after;
    bool untilAfter = false;
    bool isWhile = false;
    Block block;
    Position end;
};
struct WithStatement
{
    ExpressionPtr subject;
    Block block;
};
struct LabelStatement
{
    std::u16string name;
};
struct GoToStatement
{
    std::u16string label;
};
struct GoSubStatement
{
    std::u16string label;
};
struct ReturnStatement
{
};
/// `On number GoTo labels` and `On number GoSub labels`.
struct OnJumpStatement
{
    ExpressionPtr number;
    std::vector<std::u16string> labels;
    bool isGoSub = false;
};
struct OnErrorStatement
{
    enum class Action
    {
        GoTo,
        Off,
        ClearActive,
        ResumeNext,
    };
    Action action = Action::Off;
    std::u16string label;
};
struct ResumeStatement
{
    enum class Target
    {
        Same,
        Next,
        Label,
    };
    Target target = Target::Same;
    std::u16string label;
};
struct ExitStatement
{
    enum class What
    {
        Do,
        For,
        Sub,
        Function,
        Property,
    };
    What what = What::Sub;
};
struct EndStatement
{
};
struct RaiseStatement
{
    ExpressionPtr number;
};
/// Mid and MidB.
struct MidStatement
{
    bool countsBytes = false;
    ExpressionPtr target;
    ExpressionPtr start;
    ExpressionPtr length;
    ExpressionPtr value;
};
/// LSet and RSet.
struct AlignStatement
{
    ExpressionPtr target;
    ExpressionPtr value;
    bool isRight = false;
};
struct OpenStatement
{
    enum class Mode
    {
        Input,
        Output,
        Append,
        Binary,
        Random,
    };
    ExpressionPtr path;
    Mode mode = Mode::Random;
    bool readOnly = false;
    bool writeOnly = false;
    /// What others may not do meanwhile.
    bool locksReading = false;
    bool locksWriting = false;
    ExpressionPtr number;
    ExpressionPtr recordLength;
};
struct CloseStatement
{
    std::vector<ExpressionPtr> numbers;
};
/// Print # and Debug.Print, and Write #.
struct PrintStatement
{
    struct Item
    {
        enum class Kind
        {
            Value,
            Comma,
            Semicolon,
            Spaces,
            Tab,
        };
        Kind kind = Kind::Value;
        ExpressionPtr value;
    };
    /// Null for Debug.Print.
    ExpressionPtr number;
    bool isWrite = false;
    std::vector<Item> items;
};
struct InputStatement
{
    ExpressionPtr number;
    bool wholeLine = false;
    std::vector<ExpressionPtr> targets;
};
/// Get and Put.
struct TransferStatement
{
    ExpressionPtr number;
    ExpressionPtr position;
    ExpressionPtr variable;
    bool isPut = false;
};
struct SeekStatement
{
    ExpressionPtr number;
    ExpressionPtr position;
};
/// Lock and Unlock of records or bytes; without a range of the whole file.
struct LockStatement
{
    ExpressionPtr number;
    ExpressionPtr first;
    ExpressionPtr last;
    bool isUnlock = false;
};
struct NameStatement
{
    ExpressionPtr from;
    ExpressionPtr to;
};

using StatementBody =
    std::variant<LetStatement, SetStatement, CallStatement, DimStatement, ConstStatement, ReDimStatement,
                 EraseStatement, IfStatement, SelectStatement, ForStatement, ForEachStatement, DoStatement,
                 WithStatement, LabelStatement, GoToStatement, GoSubStatement, ReturnStatement, OnErrorStatement,
                 ResumeStatement, ExitStatement, EndStatement, RaiseStatement, MidStatement, OpenStatement,
                 CloseStatement, PrintStatement, InputStatement, TransferStatement, SeekStatement, NameStatement,
                 OnJumpStatement, AlignStatement, LockStatement>;

struct Statement
{
    Position at;
    StatementBody body;
};

struct ParameterSyntax
{
    std::u16string name;
    Position at;
    TypeSyntax type;
    bool byValue = false;
    bool isOptional = false;
    bool isParamArray = false;
    bool isArray = false;
    ExpressionPtr defaultValue;
};

enum class ProcedureKind
{
    Sub,
    Function,
    PropertyGet,
    PropertyLet,
    PropertySet,
};

struct ProcedureSyntax
{
    ProcedureKind kind = ProcedureKind::Sub;
    std::u16string name;
    Position at;
    std::vector<ParameterSyntax> parameters;
    TypeSyntax result;
    bool resultIsArray = false;
    bool isStatic = false;
    Block body;
    Position end;
};

struct DeclareSyntax
{
    std::u16string name;
    Position at;
    std::u16string library;
    std::u16string entry;
    std::vector<ParameterSyntax> parameters;
    TypeSyntax result;
    bool isFunction = false;
};

struct RecordSyntax
{
    std::u16string name;
    Position at;
    std::vector<VariableSyntax> fields;
};

struct EnumSyntax
{
    struct Member
    {
        std::u16string name;
        Position at;
        ExpressionPtr value;
    };
    std::u16string name;
    Position at;
    std::vector<Member> members;
};

constexpr std::array<Type, 26> EveryLetter(Type type)
{
    std::array<Type, 26> types{};
    types.fill(type);
    return types;
}

struct ModuleSyntax
{
    bool optionExplicit = false;
    bool compareText = false;
    int32_t optionBase = 0;
    /// Types of names without a type of their own, by first letter (DefInt and its kind).
    std::array<Type, 26> letterTypes = EveryLetter(Type::Variant);
    std::vector<VariableSyntax> variables;
    std::vector<ConstantSyntax> constants;
    std::vector<RecordSyntax> records;
    std::vector<EnumSyntax> enums;
    std::vector<DeclareSyntax> declares;
    std::vector<ProcedureSyntax> procedures;
};

} // namespace tv::macro
