// How an error finds its handler, and how Resume goes on behind it.

#include "macro/runner.h"

namespace tv::macro {

RunResult Runner::Failure(const MacroError& error) const
{
    RunResult result;
    result.outcome = Outcome::RuntimeError;
    result.number = error.number;
    result.description = error.description;
    result.source = error.source.empty() ? u"TVMacro1" : error.source;
    result.line = errorLine;
    return result;
}

bool Runner::Handle(const MacroError& error)
{
    const Procedure* failed = frame == nullptr ? nullptr : frame->procedure;
    if (failed != nullptr && at > 0) {
        const StatementInfo& statement = failed->statements[failed->statementOf[at - 1]];
        errorLine = statement.line;
        runtime.err->line = statement.lineNumber;
    }
    while (frame != nullptr) {
        const Procedure& procedure = *frame->procedure;
        uint32_t statement = procedure.statementOf[at - 1];
        Value* evaluation = frame->base + procedure.parameters.size() + procedure.locals.size();
        bool guards = frame->handler != kNoHandler && frame->failedStatement < 0;
        if (guards && top >= evaluation) {
            Drop(static_cast<size_t>(top - evaluation));
            int erl = runtime.err->line;
            runtime.err->Take(error);
            runtime.err->line = erl;
            const StatementInfo& failedHere = procedure.statements[statement];
            for (int32_t slot = failedHere.heldFirst; slot < failedHere.heldEnd; ++slot) {
                frame->base[slot] = Value();
            }
            if (frame->handler == kResumeNext) {
                at = procedure.statements[statement].next;
            } else {
                frame->failedStatement = statement;
                at = static_cast<uint32_t>(frame->handler);
            }
            return true;
        }
        // Nobody here takes it: the caller's statement has failed.
        Drop(static_cast<size_t>(top - frame->base));
        goSubs.resize(frame->goSubs);
        at = frame->returnTo;
        frames.pop_back();
        frame = frames.empty() ? nullptr : &frames.back();
    }
    return false;
}

void Runner::ResumeAt(int64_t address, bool next)
{
    if (frame->failedStatement < 0) {
        Raise(kResumeWithoutError);
    }
    const StatementInfo& failed = frame->procedure->statements[static_cast<size_t>(frame->failedStatement)];
    frame->failedStatement = -1;
    runtime.err->Clear();
    at = address >= 0 ? static_cast<uint32_t>(address) : (next ? failed.next : failed.start);
    Checkpoint();
}

} // namespace tv::macro
