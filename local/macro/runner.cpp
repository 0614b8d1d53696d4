#include "macro/runner.h"

#include "macro/builtins.h"
#include "macro/convert.h"
#include "macro/fast_operators.h"
#include "macro/text.h"

#include <stdexcept>

namespace tv::macro {

namespace {

/// The stack's places: enough for calls of ordinary size to reach the limit of depth before they reach the stack's end.
size_t StackSlots(const Limits& limits)
{
    constexpr size_t kAtLeast = size_t{1} << 15;
    constexpr size_t kForEachCall = 200;
    return kAtLeast + kForEachCall * static_cast<size_t>(limits.callDepth);
}

/// The constants as values that share nothing with other runs.
std::vector<Value> OwnCopies(const std::vector<Value>& values)
{
    std::vector<Value> copies;
    copies.reserve(values.size());
    for (const Value& value : values) {
        copies.push_back(value.IsString() ? Value(std::u16string(value.Text())) : value);
    }
    return copies;
}

} // namespace

Runner::Runner(Host& host, const Limits& runLimits, const std::atomic<bool>& stopFlag, const Module& toRun)
    : module(toRun), limits(runLimits), stop(stopFlag), runtime(host), constants(OwnCopies(toRun.constants)),
      hostGlobals(toRun.names.size()), storage(new std::byte[StackSlots(limits) * sizeof(Value)])
{
    static_assert(alignof(Value) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);
    bottom = reinterpret_cast<Value*>(storage.get());
    limit = bottom + StackSlots(limits);
    top = bottom;
    frames.reserve(static_cast<size_t>(limits.callDepth) + 1);
    runtime.compareText = module.compareText;
    runtime.checkpoint = [this] { CheckTime(); };
    deadline = std::chrono::steady_clock::now() + limits.runTime;
}

Runner::~Runner()
{
    Drop(static_cast<size_t>(top - bottom));
}

RunResult Runner::Run(int32_t procedure, std::vector<Value> arguments)
{
    const Procedure& start = module.procedures[static_cast<size_t>(procedure)];
    try {
        for (int32_t shape : module.globals) {
            globals.push_back(MakeInitial(module, module.shapes[static_cast<size_t>(shape)]));
        }
        if (arguments.size() > start.parameters.size()) {
            Raise(kWrongArgumentCount);
        }
        for (size_t i = 0; i < start.parameters.size(); ++i) {
            const Parameter& parameter = start.parameters[i];
            if (i < arguments.size()) {
                Push(parameter.type == Type::Variant ? arguments[i] : CoerceTo(parameter.type, arguments[i]));
            } else if (parameter.isParamArray) {
                Push(Value(Array::FromValues({})));
            } else if (parameter.isOptional) {
                Push(OwnCopies({parameter.defaultValue}).front());
            } else {
                Raise(kArgumentNotOptional);
            }
        }
        Enter(procedure, start.parameters.size(), 0);
    } catch (const MacroError& error) {
        return Failure(error);
    }
    while (true) {
        try {
            Loop();
            RunResult result;
            if (start.hasResult && !ended && top > bottom) {
                result.value = Pop();
            }
            return result;
        } catch (const MacroError& error) {
            if (!Handle(error)) {
                return Failure(error);
            }
        } catch (const std::bad_alloc&) {
            MacroError error(kOutOfMemory);
            if (!Handle(error)) {
                return Failure(error);
            }
        } catch (const std::length_error&) {
            MacroError error(kOutOfMemory);
            if (!Handle(error)) {
                return Failure(error);
            }
        } catch (const Interrupt& interrupt) {
            RunResult result;
            result.outcome = interrupt.outcome;
            result.number = interrupt.outcome == Outcome::Stopped ? 18 : 17;
            result.description =
                interrupt.outcome == Outcome::Stopped ? u"The macro was stopped" : u"The macro ran longer than it may";
            result.line = errorLine;
            return result;
        }
    }
}

void Runner::CheckTime()
{
    if (stop.load(std::memory_order_relaxed)) {
        throw Interrupt{Outcome::Stopped};
    }
    if (limits.runTime.count() > 0 && std::chrono::steady_clock::now() > deadline) {
        throw Interrupt{Outcome::TimeLimit};
    }
}

// Calls.

inline void Runner::Enter(int32_t index, size_t count, uint32_t returnTo)
{
    Checkpoint();
    const Procedure& procedure = module.procedures[static_cast<size_t>(index)];
    size_t need = procedure.locals.size() + procedure.stackNeed;
    if (frames.size() >= static_cast<size_t>(limits.callDepth) || static_cast<size_t>(limit - top) < need) {
        Raise(kOutOfStackSpace);
    }
    Frame entered;
    entered.procedure = &procedure;
    entered.base = top - count;
    entered.returnTo = returnTo;
    entered.goSubs = goSubs.size();
    for (const Value& local : procedure.locals) {
        Push(local);
    }
    frames.push_back(entered);
    frame = &frames.back();
    at = procedure.entry;
}

inline void Runner::Leave()
{
    Value result;
    bool hasResult = frame->procedure->hasResult;
    if (hasResult) {
        result = std::move(frame->base[frame->procedure->resultSlot]);
    }
    if (frame->failedStatement >= 0) {
        runtime.err->Clear();
    }
    Drop(static_cast<size_t>(top - frame->base));
    goSubs.resize(frame->goSubs);
    at = frame->returnTo;
    frames.pop_back();
    frame = frames.empty() ? nullptr : &frames.back();
    if (hasResult) {
        Push(std::move(result));
    }
}

void Runner::CallBuiltin(const Instruction& instruction)
{
    std::span<Value> values(top - instruction.count, instruction.count);
    Value result = GetBuiltin(instruction.target).call(runtime, Arguments(values));
    Drop(instruction.count);
    Push(std::move(result));
}

// Loop.

/// Where the next instruction takes a plain result at once, it never lies on the stack. Returns what is to be done
/// next.
inline const Instruction* Runner::TakeResult(const Instruction* code, const Instruction* next)
{
    const Value& result = *(top - 1);
    if (next->op == Op::StoreLocal) {
        Type declared = static_cast<Type>(next->flags);
        Value& target = frame->base[next->target];
        if ((declared == result.Kind() || declared == Type::Variant) && target.IsPlain()) {
            target.SetPlain(result);
            --top;
            return next + 1;
        }
    } else if (next->op == Op::JumpIfFalse && result.Kind() == Type::Boolean && code + next->target > next) {
        --top;
        return result.Truth() ? next + 1 : code + next->target;
    }
    return next;
}

inline Value* Runner::PlainElement(const Value& base, const Value* indices, size_t count)
{
    if (!base.IsArray()) {
        return nullptr;
    }
    Array* array = base.ArrayPointer();
    if (array->dimensions.size() != count) {
        return nullptr;
    }
    size_t position = 0;
    size_t stride = 1;
    for (size_t i = 0; i < count; ++i) {
        const Dimension& dimension = array->dimensions[i];
        if (!IsPlainWhole(indices[i])) {
            return nullptr;
        }
        int64_t offset = indices[i].Whole() - dimension.lower;
        if (offset < 0 || offset >= dimension.count) {
            return nullptr;
        }
        position += static_cast<size_t>(offset) * stride;
        stride *= static_cast<size_t>(dimension.count);
    }
    return &array->items[position];
}

/// Indices and value lie on the stack. False when the rules of assignment are needed.
inline bool Runner::StorePlainElement(const Instruction& instruction)
{
    const Value& base = Slot(static_cast<Place>(instruction.flags), instruction.target);
    const Value& value = *(top - 1);
    Value* element = PlainElement(base, top - 1 - instruction.count, instruction.count);
    if (element == nullptr || !value.IsPlain() || !element->IsPlain() || instruction.extra == 1) {
        return false;
    }
    const Array& array = *base.ArrayPointer();
    Type declared = array.StoredType();
    if (array.References() - array.locks > 1 || (declared != value.Kind() && declared != Type::Variant)) {
        return false;
    }
    element->SetPlain(value);
    top -= instruction.count + 1;
    return true;
}

// The instructions that macros spend their time on are carried out here, with the place in the code in a register;
// everything else, and every case of them that needs a rule of the language, goes through Step.
void Runner::Loop()
{
    const Instruction* code = nullptr;
    const Instruction* next = nullptr;
    Value* base = nullptr;
    auto resume = [&] {
        code = frame->procedure->code.data();
        next = code + at;
        base = frame->base;
    };
    // What may fail or look at the frame needs to know where it stands.
    auto pause = [&] { at = static_cast<uint32_t>(next - code); };
    auto jump = [&](const Instruction& instruction) {
        const Instruction* to = code + instruction.target;
        if (to < next) {
            pause();
            Checkpoint();
        }
        next = to;
    };
    if (frame == nullptr || ended) {
        return;
    }
    resume();
    while (true) {
        const Instruction& instruction = *next++;
        const Operator operation = static_cast<Operator>(instruction.flags);
        switch (instruction.op) {
        case Op::Push:
            Push(constants[static_cast<size_t>(instruction.target)]);
            break;
        case Op::LoadLocal:
            Push(base[instruction.target]);
            break;
        case Op::LoadParam:
            Push(base[instruction.target].Resolved());
            break;
        case Op::LoadGlobal:
            Push(globals[static_cast<size_t>(instruction.target)]);
            break;
        case Op::StoreLocal: {
            Value& target = base[instruction.target];
            Type declared = static_cast<Type>(instruction.flags);
            const Value& plain = Top();
            if (plain.IsPlain() && target.IsPlain() && (plain.Kind() == declared || declared == Type::Variant)) {
                target.SetPlain(plain);
                --top;
                break;
            }
            pause();
            Value value = Pop();
            StoreInto(target, std::move(value), instruction.flags);
            break;
        }
        case Op::Binary:
            if (ComputeFast(operation, Top(1), Top(), top - 2)) {
                --top;
                next = TakeResult(code, next);
                break;
            }
            pause();
            Binary(instruction);
            break;
        case Op::BinaryWithLocal:
        case Op::BinaryWithConstant: {
            const Value& right = instruction.op == Op::BinaryWithLocal
                                     ? base[instruction.target].Resolved()
                                     : constants[static_cast<size_t>(instruction.target)];
            if (ComputeFast(operation, Top(), right, top - 1)) {
                next = TakeResult(code, next);
                break;
            }
            pause();
            BinaryElsewhere(instruction, nullptr, right);
            break;
        }
        case Op::BinaryLocals:
        case Op::BinaryLocalConstant: {
            const Value& left = base[instruction.extra].Resolved();
            const Value& right = instruction.op == Op::BinaryLocals
                                     ? base[instruction.target].Resolved()
                                     : constants[static_cast<size_t>(instruction.target)];
            if (ComputeFast(operation, left, right, top)) {
                ++top;
                next = TakeResult(code, next);
                break;
            }
            pause();
            BinaryElsewhere(instruction, &left, right);
            break;
        }
        case Op::IndexVariable: {
            const Value& array = Slot(static_cast<Place>(instruction.flags), instruction.target);
            Value* element = PlainElement(array, top - instruction.count, instruction.count);
            if (element != nullptr) {
                top -= instruction.count;
                Push(*element);
                break;
            }
            pause();
            Step(instruction);
            resume();
            break;
        }
        case Op::StoreElement:
            if (!StorePlainElement(instruction)) {
                pause();
                Step(instruction);
                resume();
            }
            break;
        case Op::Jump:
            jump(instruction);
            break;
        case Op::JumpIfFalse:
        case Op::JumpIfTrue: {
            const Value& condition = Top();
            pause();
            // Null is neither, and an If treats it like False.
            bool truth = condition.Kind() == Type::Boolean ? condition.Truth()
                                                           : !condition.Resolved().IsNull() && condition.ToBoolean();
            Drop(1);
            if (truth == (instruction.op == Op::JumpIfTrue)) {
                jump(instruction);
            }
            break;
        }
        case Op::Pop:
            Drop(1);
            break;
        case Op::ForFast: {
            pause();
            Checkpoint();
            Value& variable = base[instruction.count];
            const Value& last = base[instruction.extra];
            const Value& step = base[instruction.extra + 1];
            if (variable.Kind() == Type::Long && IsPlainWhole(last) && IsPlainWhole(step)) {
                int64_t number = variable.Whole() + step.Whole();
                if (number == static_cast<int32_t>(number)) {
                    variable.SetWhole(number);
                    bool lasts = step.Whole() >= 0 ? number <= last.Whole() : number >= last.Whole();
                    next = lasts ? code + instruction.target : next;
                    break;
                }
            }
            ForFast(instruction);
            next = code + at;
            break;
        }
        case Op::Call:
            pause();
            Enter(instruction.target, instruction.count, at);
            resume();
            break;
        case Op::Return:
            Leave();
            if (frame == nullptr) {
                return;
            }
            resume();
            break;
        default:
            pause();
            Step(instruction);
            if (ended) {
                return;
            }
            resume();
            break;
        }
    }
}

void Runner::Step(const Instruction& instruction)
{
    const int32_t target = instruction.target;
    switch (instruction.op) {
    case Op::PushMissing:
        return Push(Value::Missing());
    case Op::PushInitial:
        return Push(MakeInitial(module, module.shapes[static_cast<size_t>(target)]));
    case Op::StoreParam:
        return StoreParam(instruction);
    case Op::StoreGlobal: {
        Value value = Pop();
        return StoreInto(globals[static_cast<size_t>(target)], std::move(value), instruction.flags);
    }
    case Op::AddressLocal:
    case Op::AddressParam:
        return Push(Value::ReferenceTo(&frame->base[target], static_cast<Type>(instruction.flags)));
    case Op::AddressGlobal:
        return Push(Value::ReferenceTo(&globals[static_cast<size_t>(target)], static_cast<Type>(instruction.flags)));
    case Op::IndexVariable: {
        std::span<Value> indices(top - instruction.count, instruction.count);
        Value& base = Slot(static_cast<Place>(instruction.flags), target);
        Value element = ReadElement(base, indices);
        Drop(instruction.count);
        return Push(std::move(element));
    }
    case Op::StoreElement: {
        Value value = Pop();
        std::span<Value> indices(top - instruction.count, instruction.count);
        Value& base = Slot(static_cast<Place>(instruction.flags), target);
        WriteElement(base, indices, std::move(value), instruction.extra == 1);
        return Drop(instruction.count);
    }
    case Op::Index: {
        std::span<Value> indices(top - instruction.count, instruction.count);
        Value element = ReadElement(*(top - instruction.count - 1), indices);
        Drop(size_t{instruction.count} + 1);
        return Push(std::move(element));
    }
    case Op::StoreIndexed: {
        Value value = Pop();
        std::span<Value> indices(top - instruction.count, instruction.count);
        WriteElement((top - instruction.count - 1)->Resolved(), indices, std::move(value), instruction.extra == 1);
        return Drop(size_t{instruction.count} + 1);
    }
    case Op::AddressElement:
        return AddressElement(instruction);
    case Op::AddressField:
        return AddressField(instruction);
    case Op::Field: {
        Value record = Pop();
        const Value& held = record.Resolved();
        if (held.Kind() != Type::Record) {
            Raise(kObjectNotSet);
        }
        return Push(held.RecordPointer()->fields[static_cast<size_t>(target)]);
    }
    case Op::LoadIndirect: {
        Value value = Top().Resolved();
        Top() = std::move(value);
        return;
    }
    case Op::StoreIndirect: {
        Value value = Pop();
        Value reference = Pop();
        return StoreInto(reference.Resolved(), std::move(value), instruction.flags);
    }
    case Op::LetValue:
        if (Top().IsObject()) {
            Value value = DefaultValue(Top());
            Top() = std::move(value);
        }
        return;
    case Op::Coerce: {
        Type type = static_cast<Type>(instruction.flags);
        if (Top().Kind() != type) {
            Value value = CoerceTo(type, Top());
            Top() = std::move(value);
        }
        return;
    }
    case Op::CheckObject:
        return CheckObject(target);
    case Op::Unary: {
        Value value = ApplyUnary(static_cast<Operator>(instruction.flags), Top(), UnpackTraits(instruction.count));
        Top() = std::move(value);
        return;
    }
    case Op::TypeOf: {
        Value object = Pop();
        if (!object.IsObject()) {
            Raise(kObjectRequired);
        }
        if (object.IsNothing()) {
            Raise(kObjectNotSet);
        }
        return Push(Value(IsOfClass(object, target)));
    }
    case Op::GoSub:
        Checkpoint();
        if (goSubs.size() > 100000) {
            Raise(kOutOfStackSpace);
        }
        goSubs.push_back(at);
        at = static_cast<uint32_t>(target);
        return;
    case Op::ReturnFromSub:
        if (goSubs.size() <= frame->goSubs) {
            Raise(kReturnWithoutGoSub);
        }
        at = goSubs.back();
        return goSubs.pop_back();
    case Op::AppendText:
        return AppendText(instruction);
    case Op::ForBegin:
        return ForBegin(instruction);
    case Op::ForTest: {
        Value variable = Pop();
        at = ForIsOver(variable, instruction.extra) ? static_cast<uint32_t>(target) : at;
        return;
    }
    case Op::ForStep:
        return ForStep(instruction);
    case Op::EachBegin:
        return EachBegin(instruction);
    case Op::EachNext:
        return EachNext(instruction);
    case Op::CallExternal:
        return CallExternal(instruction);
    case Op::CallBuiltin:
        return CallBuiltin(instruction);
    case Op::GetMember:
        return CallMember(instruction, InvokeKind::Get);
    case Op::LetMember:
        return CallMember(instruction, InvokeKind::Let);
    case Op::SetMember:
        return CallMember(instruction, InvokeKind::Set);
    case Op::HostGlobal: {
        Value& cached = hostGlobals[static_cast<size_t>(target)];
        if (cached.IsEmpty()) {
            cached = runtime.host.Global(module.names[static_cast<size_t>(target)].folded);
        }
        return Push(cached);
    }
    case Op::PushErr:
        return Push(Value(runtime.err));
    case Op::New:
        return Push(NewObject(target));
    case Op::EnsureNew:
        return EnsureNew(instruction);
    case Op::MakeArray: {
        std::vector<Value> values(top - instruction.count, top);
        Drop(instruction.count);
        return Push(Value(Array::FromValues(std::move(values))));
    }
    case Op::ReDim:
        return ReDim(instruction);
    case Op::EraseArray:
        return EraseArray();
    case Op::OnErrorGoTo:
    case Op::OnErrorResumeNext:
    case Op::OnErrorOff:
        runtime.err->Clear();
        frame->handler = instruction.op == Op::OnErrorGoTo         ? target
                         : instruction.op == Op::OnErrorResumeNext ? kResumeNext
                                                                   : kNoHandler;
        return;
    case Op::OnErrorClear:
        // A handler that begins with this and fails at once is a loop without a jump.
        Checkpoint();
        runtime.err->Clear();
        frame->failedStatement = -1;
        return;
    case Op::Resume:
        return ResumeAt(-1, false);
    case Op::ResumeNext:
        return ResumeAt(-1, true);
    case Op::ResumeAt:
        return ResumeAt(target, false);
    case Op::RaiseError:
        throw MacroError(Pop().ToLong());
    case Op::End:
        ended = true;
        return;
    default:
        Raise(kInternalError);
    }
}

} // namespace tv::macro
