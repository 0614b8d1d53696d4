// The vault's tasks: whether their macros, versions, printers and places are such that a run here can work.
#include "host/doctor_checks.h"

#include "host/installed_applications.h"
#include "host/macro_commands.h"
#include "host/task_variables.h"
#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

constexpr int32_t kPrintTask = 2;
constexpr int32_t kPrinterBySize = 2;
constexpr int32_t kPrinterByUser = 1;
constexpr std::string_view kVaultPath = "<VaultPath>";

constexpr std::string_view kPrinterOfSize = "__printer_papsize_";

constexpr std::string_view kPlaces[] = {"OutputPath", "OutputPath2", "ErrorLogPath"};

std::string TaskText(const TaskRecord& task)
{
    return "task '" + task.name + "'";
}

int32_t Number(Examination& examination, const TaskRecord& task, std::string_view variable)
{
    const auto value = examination.context.store->TaskVariable(task.id, variable);
    return value ? value->ToVariant().ToInt() : 0;
}

std::string Text(Examination& examination, const TaskRecord& task, std::string_view variable)
{
    const auto value = examination.context.store->TaskVariable(task.id, variable);
    return value ? value->Display() : std::string();
}

std::optional<FileRecord> AnyFile(VaultStore& store, int32_t folder)
{
    if (auto files = store.FilesIn(folder); !files.empty()) {
        return files.front();
    }
    for (const FolderRecord& below : store.SubFolders(folder)) {
        if (auto file = AnyFile(store, below.id)) {
            return file;
        }
    }
    return std::nullopt;
}

void AddNames(std::vector<std::string>& names, const std::string& text)
{
    for (size_t from = 0; from < text.size();) {
        const size_t end = std::min(text.find_first_of("\r\n", from), text.size());
        std::string name = text.substr(from, end - from);
        const auto same = [&](const std::string& other) { return SameName(other, name); };
        if (!name.empty() && std::ranges::none_of(names, same)) {
            names.push_back(std::move(name));
        }
        from = end + 1;
    }
}

/// The printers that a run of the task may print on.
std::vector<std::string> PrintersOf(Examination& examination, const TaskRecord& task)
{
    std::vector<std::string> names;
    const int32_t selection = Number(examination, task, "__printer_prseltype");
    if (selection == kPrinterBySize) {
        for (const VariableRow& variable : KnownVariables()) {
            if (variable.name.starts_with(kPrinterOfSize)) {
                AddNames(names, Text(examination, task, variable.name));
            }
        }
        return names;
    }
    AddNames(names, Text(examination, task, "__printer_prname"));
    if (selection == kPrinterByUser) {
        AddNames(names, Text(examination, task, "__printer_prnamelist"));
    }
    return names;
}

std::optional<Finding> ExaminePrintersOf(Examination& examination, const TaskRecord& task)
{
    const auto installed = examination.machine.Printers();
    const std::string example = installed.empty() ? "PRINTER" : installed.front().name;
    const std::vector<std::string> set{
        examination.Tvtask("task set " + InQuotes(task.name) + " " + InQuotes("__printer_prname=" + example))};
    const auto named = PrintersOf(examination, task);
    if (named.empty()) {
        return Finding{Level::Warning, TaskText(task), "names no printer", "Name one:", set};
    }
    std::string missing;
    for (const std::string& name : named) {
        if (std::ranges::none_of(installed, [&](const Printer& printer) { return SameName(printer.name, name); })) {
            missing += (missing.empty() ? "'" : ", '") + name + "'";
        }
    }
    if (missing.empty()) {
        return std::nullopt;
    }
    return Finding{Level::Problem, TaskText(task), "prints on " + missing + ", which this machine doesn't have",
                   "Install that printer, or name one that is there:", set};
}

/// The folder in front of the first token of a place; empty when the place begins with one.
std::string FixedFolder(const std::string& place)
{
    const std::string fixed = place.substr(0, place.find('<'));
    const size_t end = fixed.find_last_of("\\/");
    return end == std::string::npos ? std::string() : fixed.substr(0, end);
}

/// The folder of the vault that is nearest to the place; what is missing below it is made by the run.
FolderRecord NearestFolder(VaultStore& store, VaultPath path)
{
    for (;; path.pop_back()) {
        if (const auto folder = store.FindFolder(path)) {
            return *folder;
        }
    }
}

std::optional<Finding> ExamineFolderOfVault(Examination& examination, const TaskRecord& task,
                                            const std::string& variable, const VaultPath& path)
{
    VaultStore& store = *examination.context.store;
    const FolderRecord folder = NearestFolder(store, path);
    const std::string place = VaultPathText(store.PathOfFolder(folder.id));
    const std::string& user = store.CurrentUser().user;
    const Rights rights = store.RightsIn(folder.id);
    if (!rights.Has(Right::Add) || !rights.Has(Right::CheckOut)) {
        return Finding{Level::Problem,
                       TaskText(task),
                       variable + " leads to " + place + ", where " + user + " may only: " + RightsText(rights),
                       "Let somebody who may permit give the right:",
                       {examination.Tvtask("permit " + InQuotes(place) + " " + user + " read,add,checkout,delete")}};
    }
    return std::nullopt;
}

/// What stands in the way of what a run writes to the place that a variable names.
std::optional<Finding> ExaminePlace(Examination& examination, const TaskRecord& task, const std::string& variable)
{
    std::string place = Text(examination, task, variable);
    const bool isLog = variable == "ErrorLogPath";
    if (isLog && !place.empty()) {
        // The log's folder is told from the vault's root on, and no file name stands behind it.
        place = std::string(kVaultPath) + "\\" + place + "\\";
    }
    VaultStore& store = *examination.context.store;
    if (place.starts_with(kVaultPath)) {
        const std::string below = FixedFolder(place.substr(kVaultPath.size()));
        return ExamineFolderOfVault(examination, task, variable, below.empty() ? VaultPath() : ParseVaultPath(below));
    }
    const std::string folder = FixedFolder(place);
    if (const auto path = folder.empty() ? std::nullopt : BelowRoot(store.Root(), folder)) {
        return ExamineFolderOfVault(examination, task, variable, *path);
    }
    if (folder.size() < 2 || folder[1] != ':' || !examination.machine.HasComponents()) {
        return std::nullopt;
    }
    auto finding = FolderFinding(examination, TaskText(task), folder);
    if (finding) {
        finding->found = variable + " leads outside of the vault, and " + finding->found;
    }
    return finding;
}

} // namespace

Findings ExamineTaskMacros(Examination& examination)
{
    HostContext& context = examination.context;
    const auto tasks = context.store->Tasks();
    const auto file = AnyFile(*context.store, kRootFolder);
    Findings findings;
    for (const TaskRecord& task : tasks) {
        const auto problem = TaskMacroProblem(context, task, examination.machine.HasComponents() ? file : std::nullopt);
        if (!problem) {
            continue;
        }
        Finding finding{Level::Problem,
                        TaskText(task),
                        *problem,
                        "Give it a macro that compiles:",
                        {examination.Tvtask("task script " + InQuotes(task.name) + " --template")}};
        if (file && examination.machine.HasComponents()) {
            finding.advice = "See all that is wrong, or give it the add-in's own macro:";
            finding.commands.insert(finding.commands.begin(),
                                    examination.Tvtask("macro " + InQuotes(task.name) + " " +
                                                       InQuotes(VaultPathText(context.store->PathOfFile(*file))) +
                                                       " --check --lint"));
        }
        findings.push_back(finding);
    }
    if (findings.empty()) {
        return {{Level::Ok, "macros", tasks.empty() ? "there are no tasks" : "the macro of every task compiles"}};
    }
    return findings;
}

Findings ExamineTaskVersions(Examination& examination)
{
    Findings findings;
    for (const TaskRecord& task : examination.context.store->Tasks()) {
        const int32_t year = Number(examination, task, "__tv_version");
        if (year == 0) {
            continue;
        }
        const InstalledApplication found = FindApplication(examination.Environment().component, year);
        if (found.year == year && found.CanStart()) {
            continue;
        }
        findings.push_back(
            {Level::Problem,
             TaskText(task),
             "asks for Torvane " + std::to_string(year) +
                 (found.CanStart() ? ", which isn't installed, and gets Torvane " + std::to_string(found.year)
                                   : ", which can't be started: " + found.problem),
             "Install that version, or let the task take whichever is there:",
             {examination.Tvtask("task set " + InQuotes(task.name) + " __tv_version=0")}});
    }
    if (findings.empty()) {
        return {{Level::Ok, "versions", "no task asks for a version that isn't here"}};
    }
    return findings;
}

Findings ExamineTaskPrinters(Examination& examination)
{
    Findings findings;
    for (const TaskRecord& task : examination.context.store->Tasks()) {
        if (Number(examination, task, "__type") == kPrintTask) {
            if (const auto finding = ExaminePrintersOf(examination, task)) {
                findings.push_back(*finding);
            }
        }
    }
    if (findings.empty()) {
        return {{Level::Ok, "printers", "no task asks for a printer that isn't here"}};
    }
    return findings;
}

Findings ExamineTaskOutputs(Examination& examination)
{
    Findings findings;
    for (const TaskRecord& task : examination.context.store->Tasks()) {
        for (const std::string_view variable : kPlaces) {
            if (const auto finding = ExaminePlace(examination, task, std::string(variable))) {
                findings.push_back(*finding);
            }
        }
    }
    if (findings.empty()) {
        return {{Level::Ok, "outputs", "every place that a task names can be written"}};
    }
    return findings;
}

} // namespace tv::local
