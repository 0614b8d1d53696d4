#include "host/doctor.h"

#include "host/doctor_checks.h"
#include "host/table.h"

#include <algorithm>

namespace tv::local {

namespace {

constexpr size_t kLevelWidth = 11;
constexpr size_t kSubjectWidth = 24;

struct LevelRow
{
    Level level;
    std::string_view word;
};

constexpr LevelRow kLevels[] = {
    {Level::Ok, "ok"},
    {Level::Warning, "warning"},
    {Level::Problem, "problem"},
    {Level::NotHere, "not here"},
};

std::string_view WordOf(Level level)
{
    return std::ranges::find(kLevels, level, &LevelRow::level)->word;
}

std::string Padded(std::string_view text, size_t width)
{
    return std::string(text) + std::string(width - std::min(width, CharacterCount(text)), ' ');
}

void Print(std::ostream& out, const Finding& finding)
{
    const std::string margin = "  ";
    const std::string indent(margin.size() + kLevelWidth, ' ');
    out << margin << Padded(WordOf(finding.level), kLevelWidth) << Padded(finding.subject, kSubjectWidth) << "  "
        << finding.found << "\n";
    if (!finding.advice.empty()) {
        out << indent << finding.advice << "\n";
    }
    for (const std::string& command : finding.commands) {
        out << indent << "  " << command << "\n";
    }
}

Json ToJson(const CheckRow& check, const Finding& finding)
{
    return {{"group", check.group},        {"check", check.name},    {"level", WordOf(finding.level)},
            {"subject", finding.subject},  {"found", finding.found}, {"advice", finding.advice},
            {"commands", finding.commands}};
}

std::string Counted(size_t count, const std::string& one, const std::string& several)
{
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

} // namespace

int DoctorCommand(HostContext& context)
{
    std::ostream& out = context.environment.out;
    Examination examination{context, context.environment.health};
    size_t counts[std::size(kLevels)] = {};
    Json json = Json::array();
    std::string_view group;
    for (const CheckRow& check : DoctorChecks()) {
        for (const Finding& finding : CarryOut(check, examination)) {
            ++counts[static_cast<size_t>(finding.level)];
            if (context.json) {
                json.push_back(ToJson(check, finding));
                continue;
            }
            if (check.group != group) {
                out << (group.empty() ? "" : "\n") << check.group << "\n";
                group = check.group;
            }
            Print(out, finding);
            // A start of the application takes its time; what is known by then is seen.
            out.flush();
        }
    }
    const size_t problems = counts[static_cast<size_t>(Level::Problem)];
    const size_t warnings = counts[static_cast<size_t>(Level::Warning)];
    if (context.json) {
        context.PrintJson({{"problems", problems}, {"warnings", warnings}, {"findings", json}});
    } else {
        out << "\n"
            << Counted(problems, "problem", "problems") << ", " << Counted(warnings, "warning", "warnings") << "\n";
    }
    return problems == 0 ? kExitDone : kExitFailed;
}

} // namespace tv::local
