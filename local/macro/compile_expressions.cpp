#include "macro/compiler.h"

#include "macro/convert.h"
#include "macro/parser.h"
#include "macro/text.h"

namespace tv::macro {

namespace {

bool IsLoose(Type type)
{
    return type == Type::Variant || type == Type::Object;
}

} // namespace

// Names.

const Variable* Compiler::FindVariable(const std::u16string& folded) const
{
    if (scope != nullptr) {
        auto local = scope->variables.find(folded);
        if (local != scope->variables.end()) {
            return &local->second;
        }
        if (scope->constants.contains(folded)) {
            return nullptr;
        }
    }
    const Symbol* symbol = FindSymbol(folded);
    return symbol != nullptr && symbol->kind == SymbolKind::Variable ? &symbol->variable : nullptr;
}

const Compiler::Symbol* Compiler::FindSymbol(const std::u16string& folded) const
{
    auto found = symbols.find(folded);
    return found == symbols.end() ? nullptr : &found->second;
}

bool Compiler::IsHostGlobal(const std::u16string& folded) const
{
    return options.library != nullptr && options.library->HasGlobal(folded);
}

bool Compiler::IsKnownName(const std::u16string& folded) const
{
    return (scope != nullptr && scope->constants.contains(folded)) || FindSymbol(folded) != nullptr ||
           FindBuiltinConstant(folded).has_value() || FindBuiltin(folded) >= 0 || folded == u"err" ||
           IsHostGlobal(folded) || (options.library != nullptr && options.library->Constant(folded).has_value());
}

bool Compiler::IsOwnName(const std::u16string& folded) const
{
    return scope->syntax->kind == ProcedureKind::Function && Lower(scope->syntax->name) == folded;
}

void Compiler::CheckSuffix(const Expression& name, const Variable& variable)
{
    if (name.suffix != 0 && variable.type.type != SuffixType(name.suffix)) {
        Fail(name.at, u"Type-declaration character does not match declared data type");
    }
}

const Variable& Compiler::VariableOrImplicit(const Expression& name)
{
    std::u16string folded = Lower(name.name);
    if (const Variable* variable = FindVariable(folded)) {
        CheckSuffix(name, *variable);
        return *variable;
    }
    if (IsKnownName(folded)) {
        Fail(name.at, u"Expected: variable instead of " + name.name);
    }
    if (syntax.optionExplicit) {
        Fail(name.at, u"Variable not defined: " + name.name);
    }
    undeclared.push_back(UndeclaredVariable{name.name, name.at.line, name.at.column, 0, 0, 0, 0, {}});
    Variable variable;
    variable.type.type = name.suffix == 0 ? LetterType(syntax.letterTypes, folded) : SuffixType(name.suffix);
    variable.slot = NewSlot(InitialValue(variable.type.type));
    variable.undeclared = static_cast<int32_t>(undeclared.size()) - 1;
    return scope->variables.emplace(folded, variable).first->second;
}

// Values.

Type Compiler::EmitValue(const Expression& expression)
{
    lastPosition = expression.at;
    if (std::optional<Value> constant = TryConstant(expression)) {
        Emit(Op::Push, AddConstant(*constant));
        return constant->IsEmpty() || constant->IsNull() ? Type::Variant : constant->Kind();
    }
    switch (expression.kind) {
    case ExpressionKind::Name:
        return EmitName(expression);
    case ExpressionKind::Member:
        return EmitMember(expression);
    case ExpressionKind::Bang:
        return EmitBang(expression);
    case ExpressionKind::Index:
        return EmitIndex(expression);
    case ExpressionKind::Unary:
        return EmitUnary(expression);
    case ExpressionKind::Binary:
        return EmitBinary(expression);
    case ExpressionKind::TypeOf:
        EmitValue(*expression.base);
        Emit(Op::TypeOf, AddName(Lower(expression.name)));
        return Type::Boolean;
    case ExpressionKind::New:
        EmitNew(expression.name, expression.at);
        return Type::Object;
    case ExpressionKind::Parenthesized: {
        Type type = EmitValue(*expression.base);
        return type;
    }
    default:
        Fail(expression.at, u"Expected: expression");
    }
}

Type Compiler::EmitLoad(const Variable& variable)
{
    if (UndeclaredVariable* uses = UsesOf(variable)) {
        ++uses->reads;
    }
    if (variable.type.isNew) {
        Emit(Op::EnsureNew, AddName(variable.type.className), static_cast<uint16_t>(variable.slot),
             static_cast<uint8_t>(variable.place));
    }
    constexpr Op kLoads[] = {Op::LoadLocal, Op::LoadParam, Op::LoadGlobal};
    Emit(kLoads[static_cast<size_t>(variable.place)], variable.slot);
    return variable.isArray ? Type::Array : variable.type.type;
}

void Compiler::EmitStore(const Variable& variable, bool raw)
{
    if (UndeclaredVariable* uses = UsesOf(variable)) {
        ++uses->assignments;
    }
    constexpr Op kStores[] = {Op::StoreLocal, Op::StoreParam, Op::StoreGlobal};
    uint8_t flags = raw ? kRaw : static_cast<uint8_t>(variable.StoredType());
    Emit(kStores[static_cast<size_t>(variable.place)], variable.slot, 0, flags);
}

Type Compiler::EmitName(const Expression& expression)
{
    std::u16string folded = Lower(expression.name);
    if (const Variable* variable = FindVariable(folded)) {
        CheckSuffix(expression, *variable);
        return EmitLoad(*variable);
    }
    if (std::optional<Value> constant = NamedConstant(expression.name, expression.at)) {
        Emit(Op::Push, AddConstant(*constant));
        return constant->IsEmpty() || constant->IsNull() ? Type::Variant : constant->Kind();
    }
    static const std::vector<ArgumentSyntax> none;
    if (std::optional<Type> called = EmitCallByName(expression, none)) {
        if (*called == Type::Empty) {
            Fail(expression.at, u"Expected: function or variable");
        }
        return *called;
    }
    return EmitLoad(VariableOrImplicit(expression));
}

void Compiler::EmitWithSubject(const Position& at)
{
    if (scope->withs.empty()) {
        Fail(at, u"Invalid or unqualified reference");
    }
    Emit(Op::LoadLocal, scope->withs.back().subject.slot);
}

size_t Compiler::FindField(int32_t record, const Expression& member) const
{
    const RecordDefinition& definition = module->records[static_cast<size_t>(record)];
    std::u16string folded = Lower(member.name);
    for (size_t i = 0; i < definition.fieldNames.size(); ++i) {
        if (definition.fieldNames[i] == folded) {
            return i;
        }
    }
    Fail(member.at, u"Method or data member not found: " + member.name);
}

int32_t Compiler::RecordOf(const Expression& expression)
{
    switch (expression.kind) {
    case ExpressionKind::Name: {
        std::u16string folded = Lower(expression.name);
        if (const Variable* variable = FindVariable(folded)) {
            return variable->isArray ? -1 : variable->type.record;
        }
        return -1;
    }
    case ExpressionKind::Parenthesized:
        return RecordOf(*expression.base);
    case ExpressionKind::Member: {
        int32_t outer = -1;
        if (expression.base) {
            outer = RecordOf(*expression.base);
        } else if (!scope->withs.empty()) {
            outer = scope->withs.back().record;
        }
        if (outer < 0) {
            return -1;
        }
        const Shape& field = module->records[static_cast<size_t>(outer)].fields[FindField(outer, expression)];
        return field.isArray ? -1 : field.record;
    }
    case ExpressionKind::Index: {
        const Expression& base = *expression.base;
        if (base.kind == ExpressionKind::Name) {
            std::u16string folded = Lower(base.name);
            if (const Variable* variable = FindVariable(folded)) {
                if (variable->isArray) {
                    return variable->type.record;
                }
            }
            const Symbol* symbol = FindSymbol(folded);
            if (symbol != nullptr && symbol->kind == SymbolKind::Procedure) {
                for (const ProcedureSyntax& procedure : syntax.procedures) {
                    if (Lower(procedure.name) == folded && !procedure.resultIsArray) {
                        return Resolve(procedure.result).record;
                    }
                }
            }
            return -1;
        }
        if (base.kind == ExpressionKind::Member) {
            int32_t outer = base.base ? RecordOf(*base.base) : (scope->withs.empty() ? -1 : scope->withs.back().record);
            if (outer >= 0) {
                const Shape& field = module->records[static_cast<size_t>(outer)].fields[FindField(outer, base)];
                return field.isArray ? field.record : -1;
            }
        }
        return -1;
    }
    default:
        return -1;
    }
}

Type Compiler::EmitMember(const Expression& expression)
{
    if (std::optional<Value> constant = MemberConstant(expression)) {
        Emit(Op::Push, AddConstant(*constant));
        return constant->Kind();
    }
    int32_t record =
        expression.base ? RecordOf(*expression.base) : (scope->withs.empty() ? -1 : scope->withs.back().record);
    if (record >= 0) {
        size_t field = FindField(record, expression);
        if (expression.base) {
            EmitValue(*expression.base);
        } else {
            EmitWithSubject(expression.at);
            Emit(Op::LoadIndirect);
        }
        Emit(Op::Field, static_cast<int32_t>(field));
        const Shape& shape = module->records[static_cast<size_t>(record)].fields[field];
        return shape.isArray ? Type::Array : shape.type;
    }
    static const std::vector<ArgumentSyntax> none;
    Type type = EmitMemberCall(expression, none);
    if (type == Type::Empty) {
        Fail(expression.at, u"Expected: function or variable");
    }
    return type;
}

Type Compiler::EmitBang(const Expression& expression)
{
    if (expression.base) {
        EmitValue(*expression.base);
    } else {
        EmitWithSubject(expression.at);
    }
    Emit(Op::Push, AddConstant(Value(expression.name)));
    Emit(Op::GetMember, AddName(u""), 1, 0, -1);
    return Type::Variant;
}

Type Compiler::EmitUnary(const Expression& expression)
{
    Type type = EmitValue(*expression.base);
    bool loose = IsLoose(type);
    Emit(Op::Unary, 0, PackTraits({loose, loose, false}), static_cast<uint8_t>(expression.operation));
    return ResultType(expression.operation, type, type);
}

Type Compiler::EmitBinary(const Expression& expression)
{
    // A chain of operators leans to the left and may be thousands of terms long.
    std::vector<const Expression*> spine;
    const Expression* left = &expression;
    for (; left->kind == ExpressionKind::Binary; left = left->base.get()) {
        spine.push_back(left);
    }
    const uint32_t start = Here();
    Type type = EmitValue(*left);
    for (size_t i = spine.size(); i-- > 0;) {
        const Expression& node = *spine[i];
        const uint32_t rightStart = Here();
        Type right = EmitValue(*node.right);
        OperandTraits traits{IsLoose(type), IsLoose(right), module->compareText};
        EmitOperation(node.operation, traits, start, rightStart);
        type = ResultType(node.operation, type, right);
    }
    return type;
}

void Compiler::EmitOperation(Operator operation, OperandTraits traits, uint32_t leftStart, uint32_t rightStart)
{
    std::vector<Instruction>& code = scope->procedure->code;
    auto isVariable = [](const Instruction& loads) { return loads.op == Op::LoadLocal || loads.op == Op::LoadParam; };
    auto takeBack = [&] {
        int32_t target = code.back().target;
        code.pop_back();
        scope->procedure->statementOf.pop_back();
        return target;
    };
    // An operand that is one load becomes part of the operation. Nothing jumps between the two.
    Op op = Op::Binary;
    int32_t right = 0;
    int32_t left = 0;
    if (Here() == rightStart + 1 && (isVariable(code.back()) || code.back().op == Op::Push)) {
        bool isConstant = code.back().op == Op::Push;
        right = takeBack();
        op = isConstant ? Op::BinaryWithConstant : Op::BinaryWithLocal;
        if (Here() == leftStart + 1 && isVariable(code.back())) {
            left = takeBack();
            op = isConstant ? Op::BinaryLocalConstant : Op::BinaryLocals;
        }
    }
    Emit(op, right, PackTraits(traits), static_cast<uint8_t>(operation), left);
}

void Compiler::EmitNew(const std::u16string& name, const Position& at)
{
    std::u16string folded = Lower(name);
    if (!IsBuiltinClass(folded)) {
        Fail(at, u"Invalid use of New keyword: " + name);
    }
    Emit(Op::New, AddName(folded));
}

void Compiler::EmitIndices(const std::vector<ArgumentSyntax>& arguments, const Position& at)
{
    for (const ArgumentSyntax& argument : arguments) {
        if (!argument.value || !argument.name.empty()) {
            Fail(at, u"Expected: index");
        }
        EmitValue(*argument.value);
    }
}

Type Compiler::EmitIndexedName(const Expression& expression)
{
    const Expression& base = *expression.base;
    std::u16string folded = Lower(base.name);
    const Variable* found = FindVariable(folded);
    bool isRecursion = found != nullptr && IsOwnName(folded) && !scope->procedure->parameters.empty();
    if (found == nullptr || isRecursion) {
        std::optional<Type> called = EmitCallByName(base, expression.arguments);
        if (!called) {
            Fail(base.at, u"Sub or Function not defined: " + base.name);
        }
        if (*called == Type::Empty) {
            Fail(base.at, u"Expected: function or variable");
        }
        return *called;
    }
    Variable variable = *found;
    if (expression.arguments.empty()) {
        return EmitLoad(variable);
    }
    if (variable.type.type == Type::Object && !variable.isArray) {
        EmitLoad(variable);
        int32_t names = EmitLateArguments(expression.arguments);
        Emit(Op::GetMember, AddName(u""), static_cast<uint16_t>(expression.arguments.size()), 0, names);
        return Type::Variant;
    }
    if (!variable.isArray && variable.type.type != Type::Variant) {
        Fail(base.at, u"Expected: array");
    }
    if (UndeclaredVariable* uses = UsesOf(variable)) {
        ++uses->reads;
    }
    EmitIndices(expression.arguments, expression.at);
    Emit(Op::IndexVariable, variable.slot, static_cast<uint16_t>(expression.arguments.size()),
         static_cast<uint8_t>(variable.place));
    return variable.isArray ? variable.type.type : Type::Variant;
}

Type Compiler::EmitIndex(const Expression& expression)
{
    const Expression& base = *expression.base;
    if (base.kind == ExpressionKind::Name) {
        return EmitIndexedName(expression);
    }
    Type element = Type::Variant;
    if (base.kind == ExpressionKind::Member) {
        int32_t record = base.base ? RecordOf(*base.base) : (scope->withs.empty() ? -1 : scope->withs.back().record);
        if (record < 0) {
            Type type = EmitMemberCall(base, expression.arguments);
            if (type == Type::Empty) {
                Fail(base.at, u"Expected: function or variable");
            }
            return type;
        }
        const Shape& field = module->records[static_cast<size_t>(record)].fields[FindField(record, base)];
        element = field.isArray ? field.type : Type::Variant;
    }
    EmitValue(base);
    if (expression.arguments.empty()) {
        return Type::Variant;
    }
    EmitIndices(expression.arguments, expression.at);
    Emit(Op::Index, 0, static_cast<uint16_t>(expression.arguments.size()));
    return element;
}

Compiler::AddressResult Compiler::EmitVariableAddress(const Variable& variable)
{
    if (UndeclaredVariable* uses = UsesOf(variable)) {
        ++uses->handedToProcedures;
    }
    if (variable.type.isNew) {
        Emit(Op::EnsureNew, AddName(variable.type.className), static_cast<uint16_t>(variable.slot),
             static_cast<uint8_t>(variable.place));
    }
    constexpr Op kAddresses[] = {Op::AddressLocal, Op::AddressParam, Op::AddressGlobal};
    Type stored = variable.StoredType();
    Emit(kAddresses[static_cast<size_t>(variable.place)], variable.slot, 0, static_cast<uint8_t>(stored));
    return AddressResult{variable.type.type, variable.type.record, variable.isArray, true, stored};
}

Compiler::AddressResult Compiler::EmitAddress(const Expression& expression)
{
    if (expression.kind == ExpressionKind::Name) {
        std::u16string folded = Lower(expression.name);
        if (FindVariable(folded) != nullptr || !IsKnownName(folded)) {
            Variable variable = VariableOrImplicit(expression);
            return EmitVariableAddress(variable);
        }
    }
    if (expression.kind == ExpressionKind::Member) {
        int32_t record =
            expression.base ? RecordOf(*expression.base) : (scope->withs.empty() ? -1 : scope->withs.back().record);
        if (record >= 0) {
            size_t field = FindField(record, expression);
            if (expression.base) {
                EmitAddress(*expression.base);
            } else {
                EmitWithSubject(expression.at);
            }
            const Shape shape = module->records[static_cast<size_t>(record)].fields[field];
            Type stored = shape.StoredType();
            Emit(Op::AddressField, static_cast<int32_t>(field), 0, static_cast<uint8_t>(stored));
            return AddressResult{shape.type, shape.record, shape.isArray, true, stored};
        }
    }
    if (expression.kind == ExpressionKind::Index && !expression.arguments.empty()) {
        const Expression& base = *expression.base;
        bool reachesArray = false;
        if (base.kind == ExpressionKind::Name) {
            std::u16string folded = Lower(base.name);
            const Variable* variable = FindVariable(folded);
            bool isRecursion = IsOwnName(folded) && !scope->procedure->parameters.empty();
            reachesArray =
                variable != nullptr && !isRecursion && (variable->isArray || variable->type.type == Type::Variant);
        } else if (base.kind == ExpressionKind::Member) {
            int32_t record =
                base.base ? RecordOf(*base.base) : (scope->withs.empty() ? -1 : scope->withs.back().record);
            reachesArray = record >= 0;
        } else {
            reachesArray = base.kind == ExpressionKind::Index;
        }
        if (reachesArray) {
            AddressResult outer = EmitAddress(base);
            EmitIndices(expression.arguments, expression.at);
            Emit(Op::AddressElement, 0, static_cast<uint16_t>(expression.arguments.size()));
            Type element = outer.isArray ? outer.type : Type::Variant;
            return AddressResult{element, outer.isArray ? outer.record : -1, false, true, element};
        }
    }
    Type type = EmitValue(expression);
    return AddressResult{type, -1, type == Type::Array, false, type};
}

} // namespace tv::macro
