#include "macro/compiler.h"

#include "macro/convert.h"
#include "macro/parser.h"
#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

size_t Compiler::Emit(Op op, int32_t target, uint16_t count, uint8_t flags, int32_t extra)
{
    Procedure& procedure = *scope->procedure;
    procedure.code.push_back(Instruction{op, flags, count, target, extra});
    procedure.statementOf.push_back(scope->statement);
    return procedure.code.size() - 1;
}

uint32_t Compiler::Here() const
{
    return static_cast<uint32_t>(scope->procedure->code.size());
}

void Compiler::PatchToHere(size_t instruction)
{
    scope->procedure->code[instruction].target = static_cast<int32_t>(Here());
}

void Compiler::PatchAllToHere(const std::vector<size_t>& instructions)
{
    for (size_t instruction : instructions) {
        PatchToHere(instruction);
    }
}

int32_t Compiler::AddConstant(const Value& value)
{
    module->constants.push_back(value);
    return static_cast<int32_t>(module->constants.size()) - 1;
}

int32_t Compiler::AddName(std::u16string_view name)
{
    auto [found, isNew] = nameIndex.emplace(std::u16string(name), static_cast<int32_t>(module->names.size()));
    if (isNew) {
        module->names.emplace_back(name);
    }
    return found->second;
}

int32_t Compiler::NewSlot(const Value& initial)
{
    Procedure& procedure = *scope->procedure;
    // An instruction names a slot with sixteen bits.
    constexpr size_t kMostSlots = 20000;
    if (procedure.parameters.size() + procedure.locals.size() > kMostSlots) {
        Fail(lastPosition, u"Too many local variables");
    }
    procedure.locals.push_back(initial);
    return static_cast<int32_t>(procedure.parameters.size() + procedure.locals.size()) - 1;
}

void Compiler::BeginStatement(const Position& at)
{
    lastPosition = at;
    std::vector<StatementInfo>& statements = scope->procedure->statements;
    scope->statement = static_cast<uint32_t>(statements.size());
    statements.push_back(StatementInfo{at.line, scope->lineNumber, Here(), Here(), 0, 0});
}

void Compiler::FinishStatement()
{
    scope->procedure->statements[scope->statement].next = Here();
}

void Compiler::EmitBlock(const Block& block)
{
    for (const Statement& statement : block) {
        Guarded([&] { EmitStatement(statement); });
    }
}

void Compiler::EmitStatement(const Statement& statement)
{
    BeginStatement(statement.at);
    uint32_t own = scope->statement;
    std::visit([this](const auto& body) { EmitBody(body); }, statement.body);
    // Statements with blocks have set where they go on; a simple one goes on behind itself.
    if (scope->statement == own) {
        FinishStatement();
    }
}

void Compiler::EmitBody(const LetStatement& statement)
{
    if (EmitAppend(statement)) {
        return;
    }
    EmitAssignment(
        *statement.target, [&] { return EmitValue(*statement.value); }, false);
}

/// `s = s & a & b` adds to the text in place, or building a text piece by piece would copy it each time.
bool Compiler::EmitAppend(const LetStatement& statement)
{
    const Expression& target = *statement.target;
    if (target.kind != ExpressionKind::Name) {
        return false;
    }
    std::vector<const Expression*> terms;
    const Expression* left = statement.value.get();
    for (; left->kind == ExpressionKind::Binary && left->operation == Operator::Concatenate; left = left->base.get()) {
        terms.push_back(left->right.get());
    }
    const std::u16string folded = Lower(target.name);
    bool isAppend = !terms.empty() && left->kind == ExpressionKind::Name && Lower(left->name) == folded &&
                    (FindVariable(folded) != nullptr || !IsKnownName(folded)) &&
                    std::all_of(terms.begin(), terms.end(), [this](const Expression* term) { return IsPure(*term); });
    if (!isAppend) {
        return false;
    }
    VariableOrImplicit(*left);
    const Variable variable = VariableOrImplicit(target);
    bool holdsText = variable.type.type == Type::String || variable.type.type == Type::Variant;
    if (!holdsText || variable.isArray || variable.type.fixedLength >= 0) {
        return false;
    }
    if (UndeclaredVariable* uses = UsesOf(variable)) {
        ++uses->reads;
        ++uses->assignments;
    }
    EmitValue(*terms.back());
    for (size_t i = terms.size() - 1; i-- > 0;) {
        const uint32_t start = Here();
        EmitValue(*terms[i]);
        EmitOperation(Operator::Concatenate, {}, start, start);
    }
    Emit(Op::AppendText, variable.slot, static_cast<uint16_t>(variable.place),
         static_cast<uint8_t>(variable.type.type));
    return true;
}

/// Whether evaluating the expression can't change a variable of this module.
bool Compiler::IsPure(const Expression& expression) const
{
    auto isPure = [this](const ExpressionPtr& part) { return part == nullptr || IsPure(*part); };
    auto callsNothing = [this](const Expression& name) {
        const Symbol* symbol = FindSymbol(Lower(name.name));
        return FindVariable(Lower(name.name)) != nullptr || symbol == nullptr || symbol->kind == SymbolKind::Variable ||
               symbol->kind == SymbolKind::Constant;
    };
    switch (expression.kind) {
    case ExpressionKind::Literal:
        return true;
    case ExpressionKind::Name:
        return callsNothing(expression);
    case ExpressionKind::Parenthesized:
    case ExpressionKind::Unary:
    case ExpressionKind::Member:
        return isPure(expression.base);
    case ExpressionKind::Binary:
        // Chains of operators may be long; each link is looked at by itself.
        for (const Expression* node = &expression;; node = node->base.get()) {
            if (node->kind != ExpressionKind::Binary) {
                return IsPure(*node);
            }
            if (!IsPure(*node->right)) {
                return false;
            }
        }
    case ExpressionKind::Index:
        return expression.base->kind == ExpressionKind::Name && callsNothing(*expression.base) &&
               !IsHostGlobal(Lower(expression.base->name)) &&
               std::all_of(expression.arguments.begin(), expression.arguments.end(),
                           [&](const ArgumentSyntax& argument) { return isPure(argument.value); });
    default:
        return false;
    }
}

void Compiler::EmitBody(const SetStatement& statement)
{
    EmitAssignment(
        *statement.target, [&] { return EmitValue(*statement.value); }, true);
}

void Compiler::EmitBody(const CallStatement& statement)
{
    const Expression& call = *statement.call;
    const bool hasArguments = call.kind == ExpressionKind::Index;
    const Expression& target = hasArguments ? *call.base : call;
    static const std::vector<ArgumentSyntax> none;
    const std::vector<ArgumentSyntax>& arguments = hasArguments ? call.arguments : none;
    Type result = Type::Variant;
    if (target.kind == ExpressionKind::Name) {
        // A recursive call of a function from within names the function, not its result.
        std::optional<Type> called = EmitCallByName(target, arguments);
        if (!called) {
            Fail(target.at, u"Sub or Function not defined: " + target.name);
        }
        result = *called;
    } else if (target.kind == ExpressionKind::Member && !MemberConstant(target)) {
        result = EmitMemberCall(target, arguments);
    } else {
        result = EmitValue(call);
    }
    if (result != Type::Empty) {
        Emit(Op::Pop);
    }
}

void Compiler::EmitBody(const DimStatement& statement)
{
    for (const VariableSyntax& variable : statement.variables) {
        DeclareLocal(variable, statement.isStatic || scope->syntax->isStatic);
    }
}

void Compiler::DeclareLocal(const VariableSyntax& written, bool isStatic)
{
    std::u16string folded = Lower(written.name);
    ResolvedType type = Resolve(written.type);
    Shape shape = MakeShape(written, type);
    Variable variable;
    variable.type = type;
    variable.isArray = written.isArray;
    variable.isFixed = !written.bounds.empty();
    if (isStatic) {
        variable.place = Place::Global;
        variable.slot = static_cast<int32_t>(module->globals.size());
        module->globals.push_back(AddShape(std::move(shape)));
    } else {
        bool isShaped = written.isArray || type.record >= 0 || type.fixedLength >= 0;
        variable.slot = NewSlot(isShaped ? Value() : InitialValue(type.type));
        if (isShaped) {
            scope->shapedLocals.emplace_back(variable.slot, AddShape(std::move(shape)));
        }
    }
    if (scope->constants.contains(folded) || !scope->variables.emplace(folded, variable).second) {
        Fail(written.at, u"Duplicate declaration in current scope: " + written.name);
    }
}

void Compiler::EmitBody(const ConstStatement& statement)
{
    for (const ConstantSyntax& constant : statement.constants) {
        Value value = EvaluateConstant(*constant.value);
        Type type = Resolve(constant.type).type;
        std::u16string folded = Lower(constant.name);
        if (scope->variables.contains(folded) || !scope->constants.emplace(folded, CoerceTo(type, value)).second) {
            Fail(constant.at, u"Duplicate declaration in current scope: " + constant.name);
        }
    }
}

void Compiler::EmitBound(const BoundSyntax& bound)
{
    if (bound.lower) {
        EmitValue(*bound.lower);
    } else {
        Emit(Op::Push, AddConstant(Value(syntax.optionBase)));
    }
    EmitValue(*bound.upper);
}

void Compiler::EmitBody(const ReDimStatement& statement)
{
    for (const ReDimStatement::Item& item : statement.items) {
        ResolvedType given = Resolve(item.type);
        if (item.target->kind == ExpressionKind::Name) {
            std::u16string folded = Lower(item.target->name);
            if (FindVariable(folded) == nullptr) {
                // ReDim declares an array that nothing else declares.
                VariableSyntax declared;
                declared.name = item.target->name;
                declared.at = item.target->at;
                declared.isArray = true;
                declared.type.type = item.type.isGiven ? Type::Variant : LetterType(syntax.letterTypes, folded);
                DeclareLocal(declared, false);
                if (item.type.isGiven) {
                    scope->variables[folded].type = given;
                    Shape& shape = module->shapes[static_cast<size_t>(scope->shapedLocals.back().second)];
                    shape.type = given.type;
                    shape.record = given.record;
                    shape.fixedLength = given.fixedLength;
                }
            }
        }
        AddressResult address = EmitAddress(*item.target);
        if (!address.isReference) {
            Fail(item.target->at, u"Expected: array");
        }
        if (!address.isArray && address.type != Type::Variant) {
            Fail(item.target->at, u"Expected: array");
        }
        bool changesType =
            item.type.isGiven && address.isArray && (given.type != address.type || given.record != address.record);
        if (changesType) {
            Fail(item.type.at, u"Can't change data types of array elements");
        }
        Shape element;
        element.type = item.type.isGiven ? given.type : (address.isArray ? address.type : Type::Variant);
        element.record = item.type.isGiven ? given.record : (address.isArray ? address.record : -1);
        for (const BoundSyntax& bound : item.bounds) {
            EmitBound(bound);
        }
        Emit(Op::ReDim, AddShape(element), static_cast<uint16_t>(item.bounds.size()), statement.preserve ? 1 : 0);
    }
}

void Compiler::EmitBody(const EraseStatement& statement)
{
    for (const ExpressionPtr& target : statement.targets) {
        AddressResult address = EmitAddress(*target);
        if (!address.isReference || (!address.isArray && address.type != Type::Variant)) {
            Fail(target->at, u"Expected: array");
        }
        Emit(Op::EraseArray);
    }
}

void Compiler::EmitCondition(const Expression& condition)
{
    EmitValue(condition);
}

void Compiler::EmitBody(const IfStatement& statement)
{
    std::vector<size_t> toEnd;
    for (size_t i = 0; i < statement.branches.size(); ++i) {
        const IfStatement::Branch& branch = statement.branches[i];
        if (i > 0) {
            BeginStatement(branch.at);
        }
        EmitCondition(*branch.condition);
        size_t toNext = Emit(Op::JumpIfFalse);
        FinishStatement();
        EmitBlock(branch.block);
        bool isLast = i + 1 == statement.branches.size() && statement.otherwise.empty();
        if (!isLast) {
            BeginStatement(branch.at);
            toEnd.push_back(Emit(Op::Jump));
            FinishStatement();
        }
        PatchToHere(toNext);
    }
    EmitBlock(statement.otherwise);
    PatchAllToHere(toEnd);
    // Statements that follow begin their own record; what is patched here belongs to none.
    BeginStatement(statement.branches.front().at);
    FinishStatement();
}

void Compiler::EmitBody(const SelectStatement& statement)
{
    Type subjectType = EmitValue(*statement.subject);
    if (subjectType == Type::Variant || subjectType == Type::Object) {
        Emit(Op::LetValue);
    }
    Variable subject = NewHidden();
    Emit(Op::StoreLocal, subject.slot, 0, kRaw);
    FinishStatement();
    std::vector<size_t> toEnd;
    for (const SelectStatement::Case& arm : statement.cases) {
        BeginStatement(arm.at);
        std::vector<size_t> toBlock;
        for (const SelectStatement::Test& test : arm.tests) {
            EmitCaseTest(test, subject, subjectType);
            toBlock.push_back(Emit(Op::JumpIfTrue));
        }
        size_t toNext = arm.isElse ? 0 : Emit(Op::Jump);
        FinishStatement();
        PatchAllToHere(toBlock);
        EmitBlock(arm.block);
        BeginStatement(arm.at);
        toEnd.push_back(Emit(Op::Jump));
        FinishStatement();
        if (!arm.isElse) {
            PatchToHere(toNext);
        }
    }
    PatchAllToHere(toEnd);
}

void Compiler::EmitCaseTest(const SelectStatement::Test& test, const Variable& subject, Type subjectType)
{
    auto compare = [&](Operator operation, const Expression& value) {
        const uint32_t start = Here();
        Emit(Op::LoadLocal, subject.slot);
        Type type = EmitValue(value);
        OperandTraits traits{subjectType == Type::Variant, type == Type::Variant, module->compareText};
        EmitOperation(operation, traits, start, start + 1);
    };
    if (!test.upTo) {
        compare(test.operation, *test.value);
        return;
    }
    compare(Operator::GreaterOrEqual, *test.value);
    compare(Operator::LessOrEqual, *test.upTo);
    Emit(Op::Binary, 0, 0, static_cast<uint8_t>(Operator::And));
}

void Compiler::EmitBody(const EndStatement&)
{
    Emit(Op::End);
}

void Compiler::EmitBody(const RaiseStatement& statement)
{
    EmitValue(*statement.number);
    Emit(Op::RaiseError);
}

void Compiler::EmitBody(const MidStatement& statement)
{
    // Kept on the stack while the text is built, then stored like any other value.
    EmitValue(*statement.target);
    EmitValue(*statement.start);
    if (statement.length) {
        EmitValue(*statement.length);
    } else {
        Emit(Op::PushMissing);
    }
    EmitValue(*statement.value);
    EmitInternal(statement.countsBytes ? u"#midb" : u"#mid", 4);
    EmitStoreTo(*statement.target);
}

void Compiler::EmitInternal(std::u16string_view builtin, size_t count)
{
    int32_t index = FindBuiltin(builtin);
    Emit(Op::CallBuiltin, index, static_cast<uint16_t>(count));
    if (GetBuiltin(index).result == Type::Empty) {
        Emit(Op::Pop);
    }
}

void Compiler::EmitBody(const AlignStatement& statement)
{
    int32_t record = RecordOf(*statement.target);
    if (record >= 0) {
        // Between values of the same type it is an assignment.
        if (statement.isRight) {
            Fail(statement.target->at, u"Type mismatch");
        }
        if (RecordOf(*statement.value) != record) {
            Fail(statement.value->at,
                 u"LSet between different user-defined types is not supported by this macro language");
        }
        EmitAssignment(
            *statement.target, [&] { return EmitValue(*statement.value); }, false);
        return;
    }
    EmitValue(*statement.target);
    EmitValue(*statement.value);
    EmitInternal(statement.isRight ? u"#rset" : u"#lset", 2);
    EmitStoreTo(*statement.target);
}

} // namespace tv::macro
