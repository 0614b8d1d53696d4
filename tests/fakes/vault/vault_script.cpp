#include "fakes/vault/vault_script.h"

#include "support/narrow_text.h"

namespace tv::fakes {

void VaultScript::FailNth(int n, Result code, FaultSpan span)
{
    faults.push_back({{}, n, code, span});
}

void VaultScript::Fail(std::string_view operation, int n, Result code, FaultSpan span)
{
    faults.push_back({std::string(operation), n, code, span});
}

void VaultScript::ClearFaults()
{
    faults.clear();
    fired = false;
}

std::vector<std::string> VaultScript::CallsOf(std::string_view operation) const
{
    std::vector<std::string> found;
    for (const std::string& call : calls) {
        const std::string_view name = std::string_view(call).substr(0, call.find(' '));
        if (name == operation) {
            found.push_back(call);
        }
    }
    return found;
}

Result VaultScript::Enter(std::string_view operation, std::u16string_view details)
{
    if (isNoting) {
        std::string call(operation);
        if (!details.empty()) {
            call += ' ';
            call += NarrowWesternText(details);
        }
        calls.push_back(std::move(call));
    }

    Result result = 0;
    for (Fault& fault : faults) {
        if (!fault.operation.empty() && fault.operation != operation) {
            continue;
        }
        --fault.callsLeft;
        const bool fails = fault.callsLeft == 0 || (fault.callsLeft < 0 && fault.span == FaultSpan::Lasting);
        if (fails && result == 0) {
            result = fault.code;
            fired = true;
        }
    }
    return result;
}

} // namespace tv::fakes
