#include "host/macro_commands.h"

#include "host/add_in_session.h"
#include "host/macro_check.h"
#include "host/macro_lint.h"

#include "cad/macro_library.h"
#include "com/bstring.h"
#include "vault/error_table.h"
#include "vault/text.h"

#include <algorithm>
#include <charconv>

namespace tv::local {

namespace {

constexpr int32_t kFileItem = 1;
constexpr std::string_view kScriptVariable = "__script";

/// The key of a placeholder in braces: "#17" is the number 17, anything else the name itself.
Variant KeyOf(const std::u16string& name)
{
    if (!name.starts_with(u'#')) {
        return Variant::FromText(name);
    }
    const std::string digits =
        Utf8(std::u16string_view(name).substr(std::min(name.find_first_not_of(u'#'), name.size())));
    int32_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return Variant::FromInt(number);
}

/// What the placeholders of a task reach, asked as a run asks.
ScriptVariables VariablesOf(HostContext& context, const TaskRecord& task, IVyxTaskInstance* instance)
{
    ScriptVariables variables;
    variables.find = [instance](char16_t open, const std::u16string& name) -> std::optional<StoredValue> {
        Variant value;
        const Result result = open == u'{' ? instance->GetVariableByKey(KeyOf(name).get(), value.put())
                                           : instance->GetVariable(name.c_str(), value.put());
        if (result < 0) {
            Fail(result, "The variable " + Utf8(name) + " can't be read: " + WordsFor(result).description);
        }
        return result == 0 ? std::optional(StoredValue::FromVariant(*value.get())) : std::nullopt;
    };
    for (const NamedValue& variable : context.store->TaskVariables(task.id)) {
        variables.names.push_back(Utf16(variable.name));
    }
    return variables;
}

void Append(std::vector<MacroFinding>& to, const std::vector<MacroFinding>& more)
{
    to.insert(to.end(), more.begin(), more.end());
}

/// Undeclared names are an error of their own where the macro wants all names declared.
std::vector<MacroFinding> WithoutPlacesOf(std::vector<MacroFinding> warnings, const std::vector<MacroFinding>& errors)
{
    std::erase_if(warnings, [&](const MacroFinding& warning) {
        return std::ranges::any_of(errors, [&](const MacroFinding& error) {
            return error.line == warning.line && error.column == warning.column;
        });
    });
    return warnings;
}

int PrintFindings(HostContext& context, const FindingPrinter& printer, const std::vector<MacroFinding>& findings,
                  Json json)
{
    std::ostream& out = context.environment.out;
    if (context.json) {
        json["findings"] = Json::array();
        for (const MacroFinding& finding : findings) {
            json["findings"].push_back(printer.ToJson(finding));
        }
        context.PrintJson(json);
    } else {
        for (const MacroFinding& finding : findings) {
            printer.Print(out, finding);
        }
        const auto errors = std::ranges::count_if(findings, [](const auto& finding) { return finding.rule.empty(); });
        const auto warnings = static_cast<std::ptrdiff_t>(findings.size()) - errors;
        const auto counted = [](std::ptrdiff_t count, const std::string& noun) {
            return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
        };
        out << (findings.empty() ? "no problems" : counted(errors, "error") + ", " + counted(warnings, "warning"))
            << "\n";
    }
    return findings.empty() ? kExitDone : kExitFailed;
}

bool StopsRun(const MacroFinding& finding)
{
    return std::ranges::any_of(kLintRules, [&](const LintRuleRow& row) {
        return row.name == finding.rule &&
               (row.rule == LintRule::UnclosedPlaceholder || row.rule == LintRule::EndlessPlaceholder);
    });
}

SelectionItem ItemOf(HostContext& context, const FileRecord& file)
{
    return {file.id, file.folder, TextOf(context.Files().LocalPathOf(file)), {}, kFileItem, file.latestVersion};
}

/// The macro of a file as the add-in makes it; empty when the add-in can't be asked.
std::u16string MacroOfAddIn(HostContext& context, IVyxTaskInstance* instance, const FileRecord& file)
{
    try {
        AddInSession addIn(context.environment.component, context.store);
        return Utf16(addIn.MacroFor(instance, ItemOf(context, file)));
    } catch (const ResultError&) {
        return {};
    }
}

std::string PlaceAndWords(const MacroFinding& finding)
{
    return "line " + std::to_string(finding.line) + ": " + finding.message;
}

} // namespace

std::optional<std::string> TaskMacroProblem(HostContext& context, const TaskRecord& task,
                                            const std::optional<FileRecord>& file)
{
    const auto stored = context.store->TaskVariable(task.id, kScriptVariable);
    if (!stored) {
        return "has no macro";
    }
    const std::u16string script = Utf16(stored->Display());
    const auto instance = MakePreviewInstance(context.store, task);
    const ScriptVariables variables = VariablesOf(context, task, instance.get());
    const ScriptLint lint = LintScript(script, variables);
    if (lint.neverEnds) {
        return "a run would never be done with its script, " +
               PlaceAndWords(*std::ranges::find_if(lint.findings, StopsRun));
    }
    std::u16string macro = file ? MacroOfAddIn(context, instance.get(), *file) : std::u16string();
    if (macro.empty()) {
        macro = ExpandScript(script, variables.find).text;
    }
    const auto problems = CheckMacro(macro);
    if (problems.empty()) {
        return std::nullopt;
    }
    const std::string more = problems.size() > 1 ? " (and " + std::to_string(problems.size() - 1) + " more)" : "";
    return "its macro doesn't compile, " + PlaceAndWords(problems.front()) + more;
}

int MacroCommand(HostContext& context, const std::string& taskName, const std::string& path, MacroChecks checks)
{
    const TaskRecord task = context.RequireTask(taskName);
    const FileRecord file = context.RequireFile(path);
    const SelectionItem item = ItemOf(context, file);
    const auto instance = MakePreviewInstance(context.store, task);
    const auto stored = context.store->TaskVariable(task.id, kScriptVariable);
    const std::u16string script = stored ? Utf16(stored->Display()) : std::u16string();
    ScriptLint scriptLint = LintScript(script, VariablesOf(context, task, instance.get()));

    FindingPrinter printer;
    printer.SetText(FindingText::Script, task.name + " (script)", script);
    Json json{{"task", task.name}, {"path", VaultPathText(context.store->PathOfFile(file))}};
    if (scriptLint.neverEnds) {
        if (!checks.lint) {
            std::erase_if(scriptLint.findings, [](const MacroFinding& finding) { return !StopsRun(finding); });
        }
        return PrintFindings(context, printer, scriptLint.findings, std::move(json));
    }
    AddInSession addIn(context.environment.component, context.store);
    const std::string text = addIn.MacroFor(instance.get(), item);
    if (!checks.compile && !checks.lint) {
        if (context.json) {
            json["macro"] = text;
            context.PrintJson(json);
        } else {
            context.environment.out << text;
        }
        return kExitDone;
    }
    const std::u16string macro = Utf16(text);
    printer.SetText(FindingText::Macro, task.name + " (macro)", macro);
    std::vector<MacroFinding> findings;
    if (checks.lint) {
        Append(findings, scriptLint.findings);
    }
    const std::vector<MacroFinding> problems = checks.compile ? CheckMacro(macro) : std::vector<MacroFinding>();
    Append(findings, problems);
    if (checks.lint) {
        Append(findings, WithoutPlacesOf(LintMacro(macro, app::MacroLibrary()), problems));
    }
    return PrintFindings(context, printer, findings, std::move(json));
}

} // namespace tv::local
