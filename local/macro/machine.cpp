#include "macro/builtins.h"
#include "macro/code.h"
#include "macro/dates.h"
#include "macro/runner.h"

namespace tv::macro {

Machine::Machine(Host& outside, const Limits& runLimits) : host(outside), limits(runLimits) {}
Machine::~Machine() = default;

void Machine::RequestStop()
{
    stopRequested = true;
}

RunResult Machine::Run(const Module& module, std::u16string_view procedure, std::vector<Value> arguments)
{
    stopRequested = false;
    auto found = module.procedureNames.find(FoldCase(procedure));
    RunResult result;
    if (found == module.procedureNames.end()) {
        result.outcome = Outcome::NoSuchProcedure;
        result.number = 35;
        result.description = u"Sub or Function not defined: " + std::u16string(procedure);
        return result;
    }
    MemoryBudget budget(limits.memory);
    CurrentYear year(host.Now());
    Runner runner(host, limits, stopRequested, module);
    return runner.Run(found->second, std::move(arguments));
}

} // namespace tv::macro
