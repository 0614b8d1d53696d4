#include "macro/compiler.h"

#include "macro/convert.h"
#include "macro/text.h"

namespace tv::macro {

void Compiler::EmitLetValue(const ValueEmitter& emitValue, bool isSet)
{
    Type type = emitValue();
    if (isSet) {
        Emit(Op::CheckObject, -1);
    } else if (type == Type::Variant || type == Type::Object) {
        Emit(Op::LetValue);
    } else if (type == Type::Record) {
        Fail(lastPosition, u"Type mismatch");
    }
}

void Compiler::EmitAssignment(const Expression& target, const ValueEmitter& emitValue, bool isSet)
{
    switch (target.kind) {
    case ExpressionKind::Name:
        return EmitAssignmentToName(target, emitValue, isSet);
    case ExpressionKind::Member:
        return EmitAssignmentToMember(target, emitValue, isSet);
    case ExpressionKind::Index:
        return EmitAssignmentToIndex(target, emitValue, isSet);
    case ExpressionKind::Bang:
        if (target.base) {
            EmitValue(*target.base);
        } else {
            EmitWithSubject(target.at);
        }
        Emit(Op::Push, AddConstant(Value(target.name)));
        EmitLetValue(emitValue, isSet);
        Emit(isSet ? Op::SetMember : Op::LetMember, AddName(u""), 1, 0, -1);
        return;
    default:
        Fail(target.at, u"Expected: variable");
    }
}

void Compiler::EmitPropertyAssignment(int32_t index, const std::vector<ArgumentSyntax>& arguments, const Position& at,
                                      const ValueEmitter& emitValue, bool isSet)
{
    const PropertyGroup group = properties[static_cast<size_t>(index)];
    int32_t procedure = isSet ? group.set : group.let;
    if (procedure < 0) {
        Fail(at, u"Can't assign to read-only property");
    }
    const std::vector<Parameter>& parameters = module->procedures[static_cast<size_t>(procedure)].parameters;
    if (parameters.empty()) {
        Fail(at, u"Wrong number of arguments or invalid property assignment");
    }
    const std::vector<Parameter> indices(parameters.begin(), parameters.end() - 1);
    std::vector<const ArgumentSyntax*> matched = MatchArguments(indices, arguments, at);
    for (size_t i = 0; i < indices.size(); ++i) {
        EmitArgument(indices[i], matched[i], at);
    }
    Type type = emitValue();
    if (type != parameters.back().type) {
        Emit(Op::Coerce, 0, 0, static_cast<uint8_t>(parameters.back().type));
    }
    Emit(Op::Call, procedure, static_cast<uint16_t>(parameters.size()));
}

void Compiler::EmitAssignmentToName(const Expression& target, const ValueEmitter& emitValue, bool isSet)
{
    std::u16string folded = Lower(target.name);
    const Variable* found = FindVariable(folded);
    if (found == nullptr) {
        const Symbol* symbol = FindSymbol(folded);
        if (symbol != nullptr && symbol->kind == SymbolKind::Property) {
            static const std::vector<ArgumentSyntax> none;
            return EmitPropertyAssignment(symbol->index, none, target.at, emitValue, isSet);
        }
        if (NamedConstant(target.name, target.at)) {
            Fail(target.at, u"Assignment to constant not permitted");
        }
        if (folded == u"date" || folded == u"time") {
            Fail(target.at, u"Setting the " + folded + u" is not supported by this macro language");
        }
        if (IsKnownName(folded)) {
            Fail(target.at,
                 u"Function call on left-hand side of assignment must return Variant or Object: " + target.name);
        }
    }
    Variable variable = VariableOrImplicit(target);
    if (variable.isFixed) {
        Fail(target.at, u"Can't assign to array");
    }
    if (isSet) {
        if (variable.isArray || (variable.type.type != Type::Object && variable.type.type != Type::Variant)) {
            Fail(target.at, u"Object required");
        }
        emitValue();
        Emit(Op::CheckObject, variable.type.className.empty() ? -1 : AddName(variable.type.className));
        EmitStore(variable, true);
        return;
    }
    if (variable.type.type == Type::Object && !variable.isArray) {
        EmitLoad(variable);
        EmitLetValue(emitValue, false);
        Emit(Op::LetMember, AddName(u""), 0, 0, -1);
        return;
    }
    if (variable.type.type == Type::Variant && !variable.isArray) {
        EmitLetValue(emitValue, false);
    } else {
        emitValue();
    }
    EmitStore(variable, false);
}

void Compiler::EmitAssignmentToMember(const Expression& target, const ValueEmitter& emitValue, bool isSet)
{
    int32_t record = target.base ? RecordOf(*target.base) : (scope->withs.empty() ? -1 : scope->withs.back().record);
    if (record < 0) {
        if (MemberConstant(target)) {
            Fail(target.at, u"Assignment to constant not permitted");
        }
        if (target.base) {
            EmitValue(*target.base);
        } else {
            EmitWithSubject(target.at);
        }
        EmitLetValue(emitValue, isSet);
        Emit(isSet ? Op::SetMember : Op::LetMember, AddName(target.name), 0, 0, -1);
        return;
    }
    AddressResult address = EmitAddress(target);
    bool isObject = address.type == Type::Object && !address.isArray;
    if (isSet && !isObject && address.type != Type::Variant) {
        Fail(target.at, u"Object required");
    }
    if (isSet || (address.type == Type::Variant && !address.isArray)) {
        EmitLetValue(emitValue, isSet);
    } else if (isObject) {
        Emit(Op::LoadIndirect);
        EmitLetValue(emitValue, false);
        Emit(Op::LetMember, AddName(u""), 0, 0, -1);
        return;
    } else {
        emitValue();
    }
    Emit(Op::StoreIndirect, 0, 0, isSet ? kRaw : static_cast<uint8_t>(address.stored));
}

void Compiler::EmitAssignmentToIndex(const Expression& target, const ValueEmitter& emitValue, bool isSet)
{
    const Expression& base = *target.base;
    uint16_t count = static_cast<uint16_t>(target.arguments.size());
    auto emitElement = [&](bool elementIsRecord) {
        if (elementIsRecord) {
            emitValue();
        } else {
            EmitLetValue(emitValue, isSet);
        }
    };
    if (base.kind == ExpressionKind::Name) {
        std::u16string folded = Lower(base.name);
        const Variable* found = FindVariable(folded);
        const Symbol* symbol = FindSymbol(folded);
        if (found == nullptr && symbol != nullptr && symbol->kind == SymbolKind::Property) {
            return EmitPropertyAssignment(symbol->index, target.arguments, target.at, emitValue, isSet);
        }
        if (found == nullptr && IsHostGlobal(folded)) {
            EmitValue(base);
            int32_t names = EmitLateArguments(target.arguments);
            EmitLetValue(emitValue, isSet);
            Emit(isSet ? Op::SetMember : Op::LetMember, AddName(u""), count, 0, names);
            return;
        }
        if (found == nullptr) {
            Fail(base.at, u"Sub or Function not defined: " + base.name);
        }
        Variable variable = *found;
        if (!variable.isArray && variable.type.type == Type::Object) {
            EmitLoad(variable);
            int32_t names = EmitLateArguments(target.arguments);
            EmitLetValue(emitValue, isSet);
            Emit(isSet ? Op::SetMember : Op::LetMember, AddName(u""), count, 0, names);
            return;
        }
        if (!variable.isArray && variable.type.type != Type::Variant) {
            Fail(base.at, u"Expected: array");
        }
        if (count == 0) {
            Fail(target.at, u"Expected: index");
        }
        EmitIndices(target.arguments, target.at);
        emitElement(variable.isArray && variable.type.record >= 0);
        Emit(Op::StoreElement, variable.slot, count, static_cast<uint8_t>(variable.place), isSet ? 1 : 0);
        return;
    }
    if (base.kind == ExpressionKind::Member) {
        int32_t record = base.base ? RecordOf(*base.base) : (scope->withs.empty() ? -1 : scope->withs.back().record);
        if (record < 0) {
            if (base.base) {
                EmitValue(*base.base);
            } else {
                EmitWithSubject(base.at);
            }
            int32_t names = EmitLateArguments(target.arguments);
            EmitLetValue(emitValue, isSet);
            Emit(isSet ? Op::SetMember : Op::LetMember, AddName(base.name), count, 0, names);
            return;
        }
    }
    AddressResult outer = EmitAddress(base);
    EmitIndices(target.arguments, target.at);
    emitElement(outer.isArray && outer.record >= 0);
    Emit(Op::StoreIndexed, 0, count, 0, isSet ? 1 : 0);
}

void Compiler::EmitStoreTo(const Expression& target)
{
    Variable hidden = NewHidden();
    Emit(Op::StoreLocal, hidden.slot, 0, kRaw);
    EmitAssignment(
        target,
        [&] {
            Emit(Op::LoadLocal, hidden.slot);
            return Type::Variant;
        },
        false);
}

} // namespace tv::macro
