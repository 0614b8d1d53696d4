// The statements that work on files, as calls of the library.

#include "macro/compiler.h"

namespace tv::macro {

/// What a variable, element or field is declared to store; Variant where it isn't known.
Type Compiler::DeclaredTypeOf(const Expression& target)
{
    if (target.kind == ExpressionKind::Name) {
        const Variable* variable = FindVariable(FoldCase(target.name));
        return variable != nullptr ? variable->StoredType() : Type::Variant;
    }
    if (target.kind == ExpressionKind::Index && target.base->kind == ExpressionKind::Name) {
        const Variable* variable = FindVariable(FoldCase(target.base->name));
        if (variable == nullptr || !variable->isArray) {
            return Type::Variant;
        }
        return variable->type.fixedLength >= 0 ? Type::FixedText : variable->type.type;
    }
    if (target.kind == ExpressionKind::Member) {
        int32_t record =
            target.base ? RecordOf(*target.base) : (scope->withs.empty() ? -1 : scope->withs.back().record);
        if (record >= 0) {
            return module->records[static_cast<size_t>(record)].fields[FindField(record, target)].StoredType();
        }
    }
    return Type::Variant;
}

void Compiler::EmitBody(const OpenStatement& statement)
{
    EmitValue(*statement.path);
    Emit(Op::Push, AddConstant(Value(static_cast<int32_t>(statement.mode))));
    int32_t sharing = (statement.readOnly ? 1 : 0) + (statement.writeOnly ? 2 : 0) + (statement.locksReading ? 4 : 0) +
                      (statement.locksWriting ? 8 : 0);
    Emit(Op::Push, AddConstant(Value(sharing)));
    EmitValue(*statement.number);
    if (statement.recordLength) {
        EmitValue(*statement.recordLength);
    } else {
        Emit(Op::PushMissing);
    }
    EmitInternal(u"#open", 5);
}

void Compiler::EmitBody(const CloseStatement& statement)
{
    for (const ExpressionPtr& number : statement.numbers) {
        EmitValue(*number);
    }
    EmitInternal(u"#close", statement.numbers.size());
}

void Compiler::EmitBody(const PrintStatement& statement)
{
    // The layout travels as a text with one letter an item.
    std::u16string layout;
    for (const PrintStatement::Item& item : statement.items) {
        using Kind = PrintStatement::Item::Kind;
        bool bareTab = item.kind == Kind::Tab && !item.value;
        constexpr std::u16string_view kLetters = u"v,;st";
        layout.push_back(bareTab ? u',' : kLetters[static_cast<size_t>(item.kind)]);
    }
    Emit(Op::Push, AddConstant(Value(layout)));
    if (statement.number) {
        EmitValue(*statement.number);
    } else {
        Emit(Op::PushMissing);
    }
    size_t count = 2;
    for (const PrintStatement::Item& item : statement.items) {
        if (item.value) {
            EmitValue(*item.value);
            ++count;
        }
    }
    EmitInternal(statement.isWrite ? u"#write" : u"#print", count);
}

void Compiler::EmitBody(const InputStatement& statement)
{
    Variable number = NewHidden();
    EmitValue(*statement.number);
    Emit(Op::StoreLocal, number.slot, 0, kRaw);
    for (const ExpressionPtr& target : statement.targets) {
        Emit(Op::LoadLocal, number.slot);
        if (statement.wholeLine) {
            EmitInternal(u"#lineinput", 1);
        } else {
            // A field that goes into a String is its text, whatever it looks like.
            Emit(Op::Push, AddConstant(Value(static_cast<int32_t>(DeclaredTypeOf(*target)))));
            EmitInternal(u"#input", 2);
        }
        EmitStoreTo(*target);
    }
}

void Compiler::EmitBody(const TransferStatement& statement)
{
    EmitValue(*statement.number);
    if (statement.position) {
        EmitValue(*statement.position);
    } else {
        Emit(Op::PushMissing);
    }
    Type type = EmitValue(*statement.variable);
    type = DeclaredTypeOf(*statement.variable) == Type::FixedText ? Type::FixedText : type;
    Emit(Op::Push, AddConstant(Value(static_cast<int32_t>(type))));
    EmitInternal(statement.isPut ? u"#put" : u"#get", 4);
    if (statement.isPut) {
        return;
    }
    if (type != Type::Array) {
        return EmitStoreTo(*statement.variable);
    }
    // An array keeps its bounds, fixed or not.
    Variable filled = NewHidden();
    Emit(Op::StoreLocal, filled.slot, 0, kRaw);
    EmitAddress(*statement.variable);
    Emit(Op::LoadLocal, filled.slot);
    Emit(Op::StoreIndirect, 0, 0, kRaw);
}

void Compiler::EmitBody(const LockStatement& statement)
{
    EmitValue(*statement.number);
    for (const ExpressionPtr* border : {&statement.first, &statement.last}) {
        if (*border) {
            EmitValue(**border);
        } else {
            Emit(Op::PushMissing);
        }
    }
    EmitInternal(statement.isUnlock ? u"#unlock" : u"#lock", 3);
}

void Compiler::EmitBody(const SeekStatement& statement)
{
    EmitValue(*statement.number);
    EmitValue(*statement.position);
    EmitInternal(u"#seek", 2);
}

void Compiler::EmitBody(const NameStatement& statement)
{
    EmitValue(*statement.from);
    EmitValue(*statement.to);
    EmitInternal(u"#name", 2);
}

} // namespace tv::macro
