#pragma once

#include "macro/code.h"
#include "macro/long_work.h"
#include "macro/runtime.h"

namespace tv::macro {

/// One run of a module: the stack, the frames and the loop over the instructions.
class Runner
{
public:
    Runner(Host& host, const Limits& runLimits, const std::atomic<bool>& stopFlag, const Module& toRun);
    ~Runner();
    Runner(const Runner&) = delete;
    Runner& operator=(const Runner&) = delete;

    RunResult Run(int32_t procedure, std::vector<Value> arguments);

private:
    static constexpr int32_t kNoHandler = -1;
    static constexpr int32_t kResumeNext = -2;

    struct Frame
    {
        const Procedure* procedure = nullptr;
        Value* base = nullptr;
        /// Where the caller goes on.
        uint32_t returnTo = 0;
        /// Address of the handler, kNoHandler or kResumeNext.
        int32_t handler = kNoHandler;
        /// Statement whose error is being handled, or -1.
        int64_t failedStatement = -1;
        size_t goSubs = 0;
    };

    /// Ends the run without a handler being asked.
    struct Interrupt
    {
        Outcome outcome;
    };

    void Loop();
    /// Carries out everything but the few instructions that Loop does itself.
    void Step(const Instruction& instruction);
    void Checkpoint()
    {
        // A clock is read seldom, a stop request is heard at once.
        if ((++ticks & 0xFFF) == 0 || stop.load(std::memory_order_relaxed)) {
            CheckTime();
        }
    }
    void CheckTime();

    // Errors.
    /// Finds the handler for an error and goes on there. False when there is none.
    bool Handle(const MacroError& error);
    void ResumeAt(int64_t address, bool next);
    RunResult Failure(const MacroError& error) const;

    // Calls.
    void Enter(int32_t procedure, size_t count, uint32_t returnTo);
    void Leave();
    void CallExternal(const Instruction& instruction);
    void CallBuiltin(const Instruction& instruction);
    void CallMember(const Instruction& instruction, InvokeKind kind);
    Value InvokeObject(const Value& target, const MemberName& name, InvokeKind kind, std::span<Value> values,
                       std::span<const MemberName> names);

    // Variables.
    Value& Slot(Place place, int32_t slot);
    void StoreInto(Value& target, Value value, uint8_t flags);
    void StoreParam(const Instruction& instruction);
    void StoreArray(Value& target, Value value);
    Value ReadElement(const Value& base, std::span<Value> indices);
    void WriteElement(Value& base, std::span<Value> indices, Value value, bool isSet);
    static Array& UniqueArray(Value& holder);
    static Record& UniqueRecord(Value& holder);
    void AddressElement(const Instruction& instruction);
    void AddressField(const Instruction& instruction);
    void ReDim(const Instruction& instruction);
    void EraseArray();
    void EnsureNew(const Instruction& instruction);
    Value NewObject(int32_t name);
    void CheckObject(int32_t className);
    bool IsOfClass(const Value& object, int32_t className) const;

    // Operators and loops.
    void Binary(const Instruction& instruction);
    /// An operation whose operands, or one of them, aren't on the stack.
    void BinaryElsewhere(const Instruction& instruction, const Value* left, const Value& right);
    void AppendText(const Instruction& instruction);
    /// An element whose indices are whole numbers within the bounds, or null.
    static Value* PlainElement(const Value& base, const Value* indices, size_t count);
    bool StorePlainElement(const Instruction& instruction);
    const Instruction* TakeResult(const Instruction* code, const Instruction* next);
    void ForBegin(const Instruction& instruction);
    bool ForIsOver(const Value& variable, int32_t hidden) const;
    void ForStep(const Instruction& instruction);
    void ForFast(const Instruction& instruction);
    void EachBegin(const Instruction& instruction);
    void EachNext(const Instruction& instruction);

    void Push(Value value) { new (top++) Value(std::move(value)); }
    Value Pop()
    {
        Value value = std::move(Top());
        (--top)->~Value();
        return value;
    }
    void Drop(size_t count)
    {
        for (; count > 0; --count) {
            (--top)->~Value();
        }
    }
    Value& Top(size_t below = 0) { return *(top - 1 - below); }

    const Module& module;
    const Limits& limits;
    const std::atomic<bool>& stop;
    Runtime runtime;
    /// What takes long within an instruction hears of a stop by this.
    LongWork longWork{[this] { CheckTime(); }};
    /// Texts are counted without atomics, so every run has constants of its own.
    std::vector<Value> constants;
    std::vector<Value> globals;
    std::vector<Value> hostGlobals;
    std::vector<Frame> frames;
    std::vector<uint32_t> goSubs;
    std::unique_ptr<std::byte[]> storage;
    Value* bottom = nullptr;
    Value* limit = nullptr;
    Value* top = nullptr;
    Frame* frame = nullptr;
    uint32_t at = 0;
    uint32_t ticks = 0;
    int errorLine = 0;
    bool ended = false;
    std::chrono::steady_clock::time_point deadline;
};

} // namespace tv::macro
