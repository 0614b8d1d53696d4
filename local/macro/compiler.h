#pragma once

#include "macro/builtins.h"
#include "macro/code.h"
#include "macro/syntax.h"

#include <functional>
#include <optional>
#include <unordered_map>

namespace tv::macro {

/// A declared type after its name was looked up.
struct ResolvedType
{
    Type type = Type::Variant;
    int32_t record = -1;
    /// Folded name of the class, when one was given that an object must belong to.
    std::u16string className;
    bool isNew = false;
    int32_t fixedLength = -1;
};

/// A variable or parameter that a name stands for.
struct Variable
{
    Place place = Place::Local;
    int32_t slot = 0;
    ResolvedType type;
    bool isArray = false;
    /// An array whose bounds stand in its declaration.
    bool isFixed = false;

    /// The type that a value takes when it is stored in it.
    Type StoredType() const
    {
        return isArray ? Type::Array : type.fixedLength >= 0 ? Type::FixedText : type.type;
    }
    /// Place among the compiler's undeclared variables, or -1.
    int32_t undeclared = -1;
};

/// Turns a syntax tree into a Module: looks up every name and writes the instructions.
class Compiler
{
public:
    Compiler(const ModuleSyntax& tree, const CompileOptions& compileOptions) : syntax(tree), options(compileOptions) {}

    /// Null when there were problems.
    std::shared_ptr<const Module> Run();

    std::vector<Problem> problems;
    /// Variables that were used without a declaration, when the module allows it.
    std::vector<UndeclaredVariable> undeclared;
    /// Whether undeclared names are compared with the declared ones, which takes a while in large modules.
    bool comparesNames = false;

private:
    // What a name at module level stands for.
    enum class SymbolKind
    {
        Variable,
        Constant,
        Procedure,
        Property,
        External,
        Record,
        Enum,
    };
    struct Symbol
    {
        SymbolKind kind = SymbolKind::Variable;
        int32_t index = -1;
        Variable variable;
    };
    /// The procedures of one property; -1 where there is none.
    struct PropertyGroup
    {
        int32_t get = -1;
        int32_t let = -1;
        int32_t set = -1;
    };
    struct ConstantEntry
    {
        const ConstantSyntax* syntax = nullptr;
        const EnumSyntax* enumeration = nullptr;
        size_t member = 0;
        std::optional<Value> value;
        bool isBeingEvaluated = false;
    };

    // The procedure that is being compiled.
    struct Label
    {
        int32_t address = -1;
        Position at;
        bool isDefined = false;
        std::vector<size_t> uses;
        /// Slots of the With blocks around it.
        std::vector<int32_t> withs;
    };
    /// A jump that may leave With blocks, whose subjects are given up on the way.
    struct Departure
    {
        size_t jump = 0;
        std::u16string label;
        std::vector<int32_t> withs;
    };
    enum class LoopKind
    {
        For,
        Do,
        /// While ... Wend, which no Exit leaves.
        While,
    };
    struct Loop
    {
        LoopKind kind = LoopKind::Do;
        std::vector<size_t> exits;
        /// How many With blocks stand around it.
        size_t withs = 0;
    };
    struct WithBlock
    {
        Variable subject;
        bool isReference = false;
        int32_t record = -1;
    };
    struct Scope
    {
        const ProcedureSyntax* syntax = nullptr;
        Procedure* procedure = nullptr;
        std::unordered_map<std::u16string, Variable> variables;
        std::unordered_map<std::u16string, Value> constants;
        std::map<std::u16string, Label> labels;
        std::vector<Loop> loops;
        std::vector<WithBlock> withs;
        /// Slots of all With blocks that hold an element or a record in place.
        std::vector<int32_t> heldSlots;
        std::vector<Departure> departures;
        std::vector<std::pair<int32_t, int32_t>> shapedLocals;
        uint32_t statement = 0;
        int lineNumber = 0;
    };

    // Declarations.
    void DeclareModule();
    void AddSymbol(const std::u16string& name, const Position& at, Symbol symbol);
    void DeclareConstants();
    void DeclareRecords();
    void DeclareVariables();
    void DeclareProcedures();
    void DeclareExternals();
    std::vector<Parameter> CompileParameters(const std::vector<ParameterSyntax>& parameters);
    ResolvedType Resolve(const TypeSyntax& type);
    Shape MakeShape(const VariableSyntax& variable, const ResolvedType& type);
    int32_t AddShape(Shape shape);
    bool IsKnownClass(const TypeSyntax& type) const;
    void CompileProcedure(size_t index);
    void WritePrologue(uint32_t body);
    void FinishProcedure();
    /// Notes a problem and goes on, so that one run names them all.
    template <typename Work>
    void Guarded(Work work)
    {
        try {
            work();
        } catch (const CompileFailure& failure) {
            problems.push_back(Problem{failure.at.line, failure.at.column, failure.message});
        } catch (const MacroError& error) {
            problems.push_back(Problem{lastPosition.line, lastPosition.column, error.description});
        }
    }
    [[noreturn]] static void Fail(const Position& at, std::u16string message);

    // Constants.
    Value EvaluateConstant(const Expression& expression);
    Value ConstantValue(int32_t index, const Position& at);
    std::optional<Value> NamedConstant(const std::u16string& name, const Position& at);
    std::optional<Value> MemberConstant(const Expression& member);
    /// The value of an expression when it is one already at compile time.
    std::optional<Value> TryConstant(const Expression& expression);

    // Instructions.
    size_t Emit(Op op, int32_t target = 0, uint16_t count = 0, uint8_t flags = 0, int32_t extra = 0);
    uint32_t Here() const;
    void PatchToHere(size_t instruction);
    void PatchAllToHere(const std::vector<size_t>& instructions);
    int32_t AddConstant(const Value& value);
    int32_t AddName(std::u16string_view name);
    int32_t NewSlot(const Value& initial = {});
    Variable NewHidden() { return Variable{Place::Local, NewSlot(), {}, false}; }
    void BeginStatement(const Position& at);
    /// Resume Next of the current statement goes on at the next instruction.
    void FinishStatement();

    // Statements.
    void EmitBlock(const Block& block);
    void EmitStatement(const Statement& statement);
    void EmitBody(const LetStatement& statement);
    bool EmitAppend(const LetStatement& statement);
    bool IsPure(const Expression& expression) const;
    void EmitBody(const SetStatement& statement);
    void EmitBody(const CallStatement& statement);
    void EmitBody(const DimStatement& statement);
    void EmitBody(const ConstStatement& statement);
    void EmitBody(const ReDimStatement& statement);
    void EmitBody(const EraseStatement& statement);
    void EmitBody(const IfStatement& statement);
    void EmitBody(const SelectStatement& statement);
    void EmitCaseTest(const SelectStatement::Test& test, const Variable& subject, Type subjectType);
    void EmitBody(const ForStatement& statement);
    void EmitBody(const ForEachStatement& statement);
    void EmitBody(const DoStatement& statement);
    void EmitBody(const WithStatement& statement);
    void EmitBody(const LabelStatement& statement);
    void EmitBody(const GoToStatement& statement);
    void EmitBody(const GoSubStatement& statement);
    void EmitBody(const ReturnStatement& statement);
    void EmitBody(const OnErrorStatement& statement);
    void EmitBody(const ResumeStatement& statement);
    void EmitBody(const ExitStatement& statement);
    void EmitBody(const EndStatement& statement);
    void EmitBody(const RaiseStatement& statement);
    void EmitBody(const MidStatement& statement);
    void EmitBody(const OpenStatement& statement);
    void EmitBody(const CloseStatement& statement);
    void EmitBody(const PrintStatement& statement);
    void EmitBody(const InputStatement& statement);
    void EmitBody(const TransferStatement& statement);
    void EmitBody(const SeekStatement& statement);
    void EmitBody(const NameStatement& statement);
    void EmitBody(const OnJumpStatement& statement);
    void EmitBody(const AlignStatement& statement);
    void EmitBody(const LockStatement& statement);
    void EmitInternal(std::u16string_view builtin, size_t count);
    void EmitCondition(const Expression& condition);
    void EmitJumpToLabel(Op op, const std::u16string& label);
    void EmitRelease(int32_t withSlot);
    std::vector<int32_t> HeldAround() const;
    void RouteDepartures();
    void DeclareLocal(const VariableSyntax& syntaxOfVariable, bool isStatic);
    void EmitBound(const BoundSyntax& bound);

    // Expressions. Each leaves one value and returns its declared type.
    Type EmitValue(const Expression& expression);
    Type EmitName(const Expression& expression);
    Type EmitMember(const Expression& expression);
    Type EmitBang(const Expression& expression);
    Type EmitIndex(const Expression& expression);
    Type EmitBinary(const Expression& expression);
    /// The operator over what was emitted from the two addresses on.
    void EmitOperation(Operator operation, OperandTraits traits, uint32_t leftStart, uint32_t rightStart);
    Type EmitUnary(const Expression& expression);
    void EmitNew(const std::u16string& name, const Position& at);
    Type EmitLoad(const Variable& variable);
    void EmitStore(const Variable& variable, bool raw);
    /// Leaves a reference when the expression is a variable, an element or a field, and its value otherwise.
    struct AddressResult
    {
        Type type = Type::Variant;
        int32_t record = -1;
        bool isArray = false;
        bool isReference = false;
        /// The type that a value takes when it is stored there.
        Type stored = Type::Variant;
    };
    AddressResult EmitAddress(const Expression& expression);
    Type DeclaredTypeOf(const Expression& target);
    AddressResult EmitVariableAddress(const Variable& variable);
    void EmitWithSubject(const Position& at);
    /// Leaves the value that is assigned and returns its declared type.
    using ValueEmitter = std::function<Type()>;
    void EmitAssignment(const Expression& target, const ValueEmitter& emitValue, bool isSet);
    void EmitAssignmentToName(const Expression& target, const ValueEmitter& emitValue, bool isSet);
    void EmitAssignmentToMember(const Expression& target, const ValueEmitter& emitValue, bool isSet);
    void EmitAssignmentToIndex(const Expression& target, const ValueEmitter& emitValue, bool isSet);
    void EmitPropertyAssignment(int32_t group, const std::vector<ArgumentSyntax>& arguments, const Position& at,
                                const ValueEmitter& emitValue, bool isSet);
    /// The value as an assignment without Set takes it: an object gives its default value.
    void EmitLetValue(const ValueEmitter& emitValue, bool isSet);
    /// Stores what stands on the stack.
    void EmitStoreTo(const Expression& target);
    void EmitIndices(const std::vector<ArgumentSyntax>& arguments, const Position& at);
    size_t FindField(int32_t record, const Expression& member) const;
    /// The user-defined type that an expression is of, or -1.
    int32_t RecordOf(const Expression& expression);

    // Calls.
    /// The variables that were given to a ParamArray, which are written back behind the call.
    struct ParamArrayUse
    {
        struct Item
        {
            int32_t slot = 0;
            int32_t index = 0;
            Type stored = Type::Variant;
        };
        int32_t array = -1;
        std::vector<Item> items;
    };
    /// Fails with its name when the function is one that this library leaves out.
    void RefuseLeftOut(const std::u16string& folded, const Position& at) const;
    std::optional<Type> EmitCallByName(const Expression& name, const std::vector<ArgumentSyntax>& arguments);
    Type EmitProcedureCall(int32_t index, const std::vector<ArgumentSyntax>& arguments, const Position& at);
    bool IsLanguageLibrary(const Expression& expression) const;
    Type EmitLibraryMember(const Expression& member, const std::vector<ArgumentSyntax>& arguments);
    void EmitParamArray(const std::vector<ArgumentSyntax>& arguments, size_t first, ParamArrayUse& use);
    void EmitWriteBack(const ParamArrayUse& use);
    void EmitArgument(const Parameter& parameter, const ArgumentSyntax* argument, const Position& at);
    Type EmitBuiltinCall(int32_t index, const std::vector<ArgumentSyntax>& arguments, const Position& at,
                         char16_t suffix, bool isQualified = false);
    int32_t SizeOfRecord(int32_t record) const;
    Type EmitExternalCall(int32_t index, const std::vector<ArgumentSyntax>& arguments);
    Type EmitMemberCall(const Expression& member, const std::vector<ArgumentSyntax>& arguments);
    /// Returns the index of the arguments' names, or -1.
    int32_t EmitLateArguments(const std::vector<ArgumentSyntax>& arguments);
    bool IsOwnName(const std::u16string& folded) const;
    Type EmitIndexedName(const Expression& expression);
    std::vector<const ArgumentSyntax*> MatchArguments(const std::vector<Parameter>& parameters,
                                                      const std::vector<ArgumentSyntax>& arguments,
                                                      const Position& at) const;

    // Names.
    const Variable* FindVariable(const std::u16string& folded) const;
    const Symbol* FindSymbol(const std::u16string& folded) const;
    bool IsHostGlobal(const std::u16string& folded) const;
    /// Whether the name means something other than a variable of this module.
    bool IsKnownName(const std::u16string& folded) const;
    bool IsQualifier(const std::u16string& folded) const;
    const Variable& VariableOrImplicit(const Expression& name);
    static void CheckSuffix(const Expression& name, const Variable& variable);
    /// The uses of a variable that nothing declares; null for one that is declared.
    UndeclaredVariable* UsesOf(const Variable& variable);
    void NoteHandedToMember(const Expression& argument);
    /// Looks, when a procedure has been compiled, for what its undeclared variables may have been meant to be.
    void FindSimilarNames(size_t firstUndeclared);

    const ModuleSyntax& syntax;
    const CompileOptions& options;
    std::shared_ptr<Module> module = std::make_shared<Module>();
    std::unordered_map<std::u16string, Symbol> symbols;
    std::vector<ConstantEntry> constantEntries;
    std::vector<PropertyGroup> properties;
    std::vector<std::vector<Parameter>> externalParameters;
    std::vector<int32_t> procedureOf;
    std::unordered_map<std::u16string, int32_t> nameIndex;
    Scope* scope = nullptr;
    int constantDepth = 0;
    /// Where problems are reported that don't know their place.
    Position lastPosition;
};

} // namespace tv::macro
