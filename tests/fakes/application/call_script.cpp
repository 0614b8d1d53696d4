#include "fakes/application/call_script.h"

namespace tv::fakes {

void CallScript::FailNthOfAll(int nth, Result code, bool lasting)
{
    nthOfAll = nth;
    resultOfAll = code;
    isLasting = lasting;
}

Result CallScript::Enter(std::u16string_view name, std::u16string_view arguments)
{
    const std::u16string call(name);
    calls.push_back(call + u"(" + std::u16string(arguments) + u")");
    const Result planned = PlannedFor(call, ++counts[call]);
    hasFailed = hasFailed || planned < 0;
    return planned;
}

Result CallScript::PlannedFor(const std::u16string& name, int nth) const
{
    const int total = static_cast<int>(calls.size());
    if (nthOfAll > 0 && (total == nthOfAll || (isLasting && total > nthOfAll))) {
        return resultOfAll;
    }
    for (const int place : {nth, 0}) {
        if (const auto rule = rules.find({name, place}); rule != rules.end()) {
            return rule->second.Planned();
        }
    }
    return 0;
}

int CallScript::CountOf(std::u16string_view name) const
{
    const auto found = counts.find(name);
    return found == counts.end() ? 0 : found->second;
}

} // namespace tv::fakes
