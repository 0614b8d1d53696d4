#include "cad/fault_plan.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace tv::app {

std::string WriteCounts(const FaultCounts& counts)
{
    std::string text;
    for (const auto& [name, count] : counts) {
        text += std::to_string(count) + " " + name + "\n";
    }
    return text;
}

FaultCounts ReadCounts(std::string_view text)
{
    FaultCounts counts;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        int32_t count = 0;
        const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), count);
        const std::string_view rest = line.substr(static_cast<size_t>(end - line.data()));
        if (error == std::errc() && count > 0 && rest.size() > 1 && rest.front() == ' ') {
            counts[std::string(rest.substr(1))] = count;
        }
    }
    return counts;
}

std::vector<Fault> FaultPlan::At(FaultMoment moment, std::string_view subject)
{
    std::map<std::string, int32_t> occurrences;
    std::vector<Fault> now;
    for (const Fault& fault : faults) {
        if (fault.moment != moment || (!fault.subject.empty() && fault.subject != subject)) {
            continue;
        }
        // A fault for any event counts all events, one for a single event its own.
        const std::string name = std::string(NameOf(moment)) + (fault.subject.empty() ? "" : " " + fault.subject);
        auto count = occurrences.find(name);
        if (count == occurrences.end()) {
            count = occurrences.emplace(name, counter.Next(name)).first;
        }
        if (count->second >= fault.first && count->second <= fault.last) {
            now.push_back(fault);
        }
    }
    return now;
}

} // namespace tv::app
