#include "fakes/platform/call_log.h"

#include <algorithm>

namespace tv::fakes {

void CallLog::FailNth(std::string operation, uint32_t n, Failure failure, uint32_t error)
{
    const std::lock_guard guard(lock);
    plans.push_back({std::move(operation), n, failure, error});
}

void CallLog::FailNthOfAll(uint32_t n, Failure failure, uint32_t error)
{
    FailNth({}, n, failure, error);
}

void CallLog::StopFailing()
{
    const std::lock_guard guard(lock);
    plans.clear();
    hasFailed = false;
}

bool CallLog::HasFailed() const
{
    const std::lock_guard guard(lock);
    return hasFailed;
}

uint32_t CallLog::Enter(std::string_view operation, std::u16string_view subject)
{
    const std::lock_guard guard(lock);
    if (isNoting) {
        calls.push_back({std::string(operation), std::u16string(subject)});
    }
    uint32_t error = 0;
    for (Plan& plan : plans) {
        if (!plan.operation.empty() && plan.operation != operation) {
            continue;
        }
        if (plan.callsLeft > 1) {
            --plan.callsLeft;
        } else if (plan.callsLeft == 1) {
            error = plan.error;
            plan.callsLeft = plan.failure == Failure::Lasting ? 1 : 0;
        }
    }
    hasFailed = hasFailed || error != 0;
    return error;
}

void CallLog::Note(std::string_view operation, std::u16string_view subject)
{
    const std::lock_guard guard(lock);
    if (isNoting) {
        calls.push_back({std::string(operation), std::u16string(subject)});
    }
}

std::vector<Call> CallLog::Calls() const
{
    const std::lock_guard guard(lock);
    return calls;
}

std::vector<std::string> CallLog::Operations() const
{
    const std::lock_guard guard(lock);
    std::vector<std::string> operations;
    for (const Call& call : calls) {
        operations.push_back(call.operation);
    }
    return operations;
}

size_t CallLog::CountOf(std::string_view operation) const
{
    const std::lock_guard guard(lock);
    return static_cast<size_t>(
        std::count_if(calls.begin(), calls.end(), [&](const Call& call) { return call.operation == operation; }));
}

std::vector<std::u16string> CallLog::SubjectsOf(std::string_view operation) const
{
    const std::lock_guard guard(lock);
    std::vector<std::u16string> subjects;
    for (const Call& call : calls) {
        if (call.operation == operation) {
            subjects.push_back(call.subject);
        }
    }
    return subjects;
}

void CallLog::Clear()
{
    const std::lock_guard guard(lock);
    calls.clear();
}

void CallLog::StopNoting()
{
    const std::lock_guard guard(lock);
    isNoting = false;
}

} // namespace tv::fakes
