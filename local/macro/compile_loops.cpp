// Loops, With blocks and jumps.

#include "macro/compiler.h"
#include "macro/convert.h"
#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

void Compiler::EmitBody(const ForStatement& statement)
{
    if (statement.variable->kind != ExpressionKind::Name) {
        Fail(statement.variable->at, u"Expected: variable");
    }
    Variable variable = VariableOrImplicit(*statement.variable);
    if (variable.isArray || variable.type.type == Type::Object || variable.type.record >= 0 ||
        variable.type.type == Type::String || variable.type.type == Type::Boolean) {
        Fail(statement.variable->at, u"Type mismatch");
    }
    int32_t hidden = NewSlot();
    NewSlot();
    EmitValue(*statement.first);
    EmitValue(*statement.last);
    if (statement.step) {
        EmitValue(*statement.step);
    } else {
        Emit(Op::Push, AddConstant(Value(int16_t{1})));
    }
    Emit(Op::ForBegin, 0, 0, static_cast<uint8_t>(variable.type.type), hidden);
    EmitStore(variable, false);
    EmitLoad(variable);
    size_t toExit = Emit(Op::ForTest, 0, 0, 0, hidden);
    FinishStatement();
    uint32_t body = Here();
    scope->loops.push_back(Loop{LoopKind::For, {}, scope->withs.size()});
    EmitBlock(statement.block);
    BeginStatement(statement.end);
    if (variable.place == Place::Local) {
        Emit(Op::ForFast, static_cast<int32_t>(body), static_cast<uint16_t>(variable.slot),
             static_cast<uint8_t>(variable.type.type), hidden);
    } else {
        EmitLoad(variable);
        Emit(Op::ForStep, 0, 0, static_cast<uint8_t>(variable.type.type), hidden);
        EmitStore(variable, false);
        EmitLoad(variable);
        size_t toEnd = Emit(Op::ForTest, 0, 0, 0, hidden);
        Emit(Op::Jump, static_cast<int32_t>(body));
        PatchToHere(toEnd);
    }
    FinishStatement();
    PatchToHere(toExit);
    PatchAllToHere(scope->loops.back().exits);
    scope->loops.pop_back();
}

void Compiler::EmitBody(const ForEachStatement& statement)
{
    if (statement.variable->kind != ExpressionKind::Name) {
        Fail(statement.variable->at, u"Expected: variable");
    }
    Variable variable = VariableOrImplicit(*statement.variable);
    if (variable.isArray || (variable.type.type != Type::Variant && variable.type.type != Type::Object)) {
        Fail(statement.variable->at, u"For Each control variable must be Variant or Object");
    }
    int32_t hidden = NewSlot();
    EmitValue(*statement.group);
    Emit(Op::EachBegin, 0, 0, 0, hidden);
    FinishStatement();
    uint32_t start = Here();
    BeginStatement(statement.end);
    size_t toExit = Emit(Op::EachNext, 0, 0, 0, hidden);
    if (variable.type.type == Type::Object) {
        Emit(Op::CheckObject, variable.type.className.empty() ? -1 : AddName(variable.type.className));
    }
    EmitStore(variable, true);
    FinishStatement();
    scope->loops.push_back(Loop{LoopKind::For, {}, scope->withs.size()});
    EmitBlock(statement.block);
    BeginStatement(statement.end);
    Emit(Op::Jump, static_cast<int32_t>(start));
    FinishStatement();
    PatchToHere(toExit);
    PatchAllToHere(scope->loops.back().exits);
    scope->loops.pop_back();
}

void Compiler::EmitBody(const DoStatement& statement)
{
    uint32_t start = Here();
    std::vector<size_t> exits;
    if (statement.before) {
        EmitCondition(*statement.before);
        exits.push_back(Emit(statement.untilBefore ? Op::JumpIfTrue : Op::JumpIfFalse));
    }
    FinishStatement();
    scope->loops.push_back(
        Loop{statement.isWhile ? LoopKind::While : LoopKind::Do, std::move(exits), scope->withs.size()});
    EmitBlock(statement.block);
    BeginStatement(statement.end);
    if (statement.after) {
        EmitCondition(*statement.after);
        Emit(statement.untilAfter ? Op::JumpIfFalse : Op::JumpIfTrue, static_cast<int32_t>(start));
    } else {
        Emit(Op::Jump, static_cast<int32_t>(start));
    }
    FinishStatement();
    PatchAllToHere(scope->loops.back().exits);
    scope->loops.pop_back();
}

void Compiler::EmitBody(const WithStatement& statement)
{
    WithBlock with;
    with.subject = NewHidden();
    AddressResult address = EmitAddress(*statement.subject);
    with.isReference = address.isReference && address.record >= 0 && !address.isArray;
    with.record = with.isReference ? address.record : -1;
    if (address.isReference && !with.isReference) {
        Emit(Op::LoadIndirect);
    }
    if (!with.isReference) {
        Emit(Op::CheckObject, -1);
    }
    Emit(Op::StoreLocal, with.subject.slot, 0, kRaw);
    FinishStatement();
    scope->withs.push_back(with);
    if (with.isReference) {
        scope->heldSlots.push_back(with.subject.slot);
    }
    EmitBlock(statement.block);
    scope->withs.pop_back();
    BeginStatement(statement.subject->at);
    EmitRelease(with.subject.slot);
    FinishStatement();
}

void Compiler::EmitBody(const LabelStatement& statement)
{
    Label& label = scope->labels[Lower(statement.name)];
    if (label.isDefined) {
        Fail(lastPosition, u"Ambiguous name detected: " + statement.name);
    }
    label.isDefined = true;
    label.address = static_cast<int32_t>(Here());
    label.withs = HeldAround();
    if (statement.name.front() >= u'0' && statement.name.front() <= u'9') {
        double number = ParseNumber(statement.name).value_or(0);
        scope->lineNumber = number <= 2147483647.0 ? static_cast<int>(number) : 0;
    }
}

void Compiler::EmitJumpToLabel(Op op, const std::u16string& name)
{
    Label& label = scope->labels[Lower(name)];
    if (label.uses.empty() && !label.isDefined) {
        label.at = lastPosition;
    }
    label.uses.push_back(Emit(op));
    if (op == Op::Jump || op == Op::JumpIfTrue) {
        scope->departures.push_back(Departure{label.uses.back(), Lower(name), HeldAround()});
    } else if (op == Op::ResumeAt) {
        // The error may have happened within any of them.
        scope->departures.push_back(Departure{label.uses.back(), Lower(name), {}});
    }
}

/// What a With block held is free again, so that its array can change its size.
void Compiler::EmitRelease(int32_t withSlot)
{
    Emit(Op::Push, AddConstant(Value()));
    Emit(Op::StoreLocal, withSlot, 0, kRaw);
}

std::vector<int32_t> Compiler::HeldAround() const
{
    std::vector<int32_t> slots;
    for (const WithBlock& with : scope->withs) {
        if (with.isReference) {
            slots.push_back(with.subject.slot);
        }
    }
    return slots;
}

/// Lets jumps out of With blocks give up their subjects on the way to the label.
void Compiler::RouteDepartures()
{
    Procedure& procedure = *scope->procedure;
    for (const Departure& departure : scope->departures) {
        const Label& label = scope->labels[departure.label];
        bool fromHandler = procedure.code[departure.jump].op == Op::ResumeAt;
        std::vector<int32_t> left = fromHandler ? scope->heldSlots : departure.withs;
        std::erase_if(left, [&](int32_t slot) {
            return std::find(label.withs.begin(), label.withs.end(), slot) != label.withs.end();
        });
        if (left.empty() || !label.isDefined) {
            continue;
        }
        procedure.code[departure.jump].target = static_cast<int32_t>(Here());
        BeginStatement(scope->syntax->end);
        for (int32_t slot : left) {
            EmitRelease(slot);
        }
        Emit(Op::Jump, label.address);
        FinishStatement();
    }
}

void Compiler::EmitBody(const GoToStatement& statement)
{
    EmitJumpToLabel(Op::Jump, statement.label);
}
void Compiler::EmitBody(const GoSubStatement& statement)
{
    EmitJumpToLabel(Op::GoSub, statement.label);
}
void Compiler::EmitBody(const ReturnStatement&)
{
    Emit(Op::ReturnFromSub);
}

void Compiler::EmitBody(const OnJumpStatement& statement)
{
    const Position where = lastPosition;
    Variable number = NewHidden();
    EmitValue(*statement.number);
    EmitInternal(u"#choice", 1);
    lastPosition = where;
    Emit(Op::StoreLocal, number.slot, 0, kRaw);
    std::vector<size_t> toEnd;
    for (size_t i = 0; i < statement.labels.size(); ++i) {
        Emit(Op::LoadLocal, number.slot);
        Emit(Op::Push, AddConstant(Value(static_cast<int32_t>(i) + 1)));
        Emit(Op::Binary, 0, 0, static_cast<uint8_t>(Operator::Equal));
        if (!statement.isGoSub) {
            EmitJumpToLabel(Op::JumpIfTrue, statement.labels[i]);
            continue;
        }
        size_t toNext = Emit(Op::JumpIfFalse);
        EmitJumpToLabel(Op::GoSub, statement.labels[i]);
        toEnd.push_back(Emit(Op::Jump));
        PatchToHere(toNext);
    }
    PatchAllToHere(toEnd);
}

void Compiler::EmitBody(const OnErrorStatement& statement)
{
    switch (statement.action) {
    case OnErrorStatement::Action::GoTo:
        EmitJumpToLabel(Op::OnErrorGoTo, statement.label);
        break;
    case OnErrorStatement::Action::Off:
        Emit(Op::OnErrorOff);
        break;
    case OnErrorStatement::Action::ClearActive:
        Emit(Op::OnErrorClear);
        break;
    case OnErrorStatement::Action::ResumeNext:
        Emit(Op::OnErrorResumeNext);
        break;
    }
}

void Compiler::EmitBody(const ResumeStatement& statement)
{
    switch (statement.target) {
    case ResumeStatement::Target::Same:
        Emit(Op::Resume);
        break;
    case ResumeStatement::Target::Next:
        Emit(Op::ResumeNext);
        break;
    case ResumeStatement::Target::Label:
        EmitJumpToLabel(Op::ResumeAt, statement.label);
        break;
    }
}

void Compiler::EmitBody(const ExitStatement& statement)
{
    using What = ExitStatement::What;
    if (statement.what == What::Do || statement.what == What::For) {
        bool wantsFor = statement.what == What::For;
        for (size_t i = scope->loops.size(); i-- > 0;) {
            if (scope->loops[i].kind == (wantsFor ? LoopKind::For : LoopKind::Do)) {
                for (size_t with = scope->withs.size(); with-- > scope->loops[i].withs;) {
                    EmitRelease(scope->withs[with].subject.slot);
                }
                scope->loops[i].exits.push_back(Emit(Op::Jump));
                return;
            }
        }
        Fail(lastPosition, wantsFor ? u"Exit For not within For...Next" : u"Exit Do not within Do...Loop");
    }
    ProcedureKind kind = scope->syntax->kind;
    What own = kind == ProcedureKind::Sub        ? What::Sub
               : kind == ProcedureKind::Function ? What::Function
                                                 : What::Property;
    if (statement.what != own) {
        Fail(lastPosition, statement.what == What::Sub        ? u"Exit Sub not allowed in Function or Property"
                           : statement.what == What::Function ? u"Exit Function not allowed in Sub or Property"
                                                              : u"Exit Property not allowed in Function or Sub");
    }
    Emit(Op::Return);
}

} // namespace tv::macro
