#include "host/run_commands.h"

#include "host/add_in_session.h"
#include "host/run_progress.h"
#include "host/table.h"
#include "host/task_variables.h"
#include "vault/error_table.h"
#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

constexpr int32_t kFileItem = 1;
constexpr int32_t kFolderItem = 2;
constexpr std::u16string_view kOkButton = u"OK";

int32_t Number(TaskStatus status)
{
    return static_cast<int32_t>(status);
}

bool HasEnded(int32_t status)
{
    return status == Number(TaskStatus::Finished) || status == Number(TaskStatus::Cancelled) ||
           status == Number(TaskStatus::Failed);
}

SelectionItem Select(HostContext& context, const std::string& text)
{
    const VaultPath path = context.ReadPath(text);
    if (const auto folder = context.store->FindFolder(path)) {
        return {0,  folder->id,  TextOf(context.Files().LocalPath(context.store->PathOfFolder(folder->id))),
                {}, kFolderItem, 0};
    }
    const FileRecord file = context.RequireFile(text);
    return {file.id, file.folder, TextOf(context.Files().LocalPathOf(file)), {}, kFileItem, 0};
}

/// Removes an instance whose launch doesn't come to its end.
class LaunchGuard
{
  public:
    LaunchGuard(VaultStore& vault, int32_t instance) : store(vault), id(instance) {}
    LaunchGuard(const LaunchGuard&) = delete;
    LaunchGuard& operator=(const LaunchGuard&) = delete;
    ~LaunchGuard()
    {
        if (!kept) {
            try {
                store.RemoveInstance(id);
            } catch (const ResultError&) {
                // It stays behind as one that is being launched, which no run takes up.
            }
        }
    }
    void Keep() { kept = true; }

  private:
    VaultStore& store;
    int32_t id;
    bool kept = false;
};

void RequireDone(Result result, std::string_view what)
{
    if (result < 0) {
        const NameAndDescription words = WordsFor(result);
        Fail(result, std::string(what) + ": " + words.description + " (" + words.name + ")");
    }
}

/// Whether an instance can be run, with the reason where it can't.
std::optional<std::string> ReasonAgainstRun(HostContext& context, const InstanceRecord& instance)
{
    const std::string name = "The task instance " + std::to_string(instance.id);
    if (HasEnded(instance.status)) {
        return name + " has ended (" + std::string(StatusWord(instance.status)) + "); launch the task again.";
    }
    if (instance.status == Number(TaskStatus::Launching)) {
        return name + " was never launched to its end; launch the task again.";
    }
    if (instance.hostProcess != 0 && context.environment.machine.IsAlive(instance.hostProcess)) {
        return name + " is being run by the process " + std::to_string(instance.hostProcess) + ".";
    }
    return std::nullopt;
}

std::vector<InstanceRecord> InstancesToRun(HostContext& context, const std::vector<int32_t>& ids, bool all)
{
    std::vector<InstanceRecord> instances;
    if (all) {
        for (InstanceRecord& instance : context.store->Instances()) {
            if (instance.status == Number(TaskStatus::Waiting)) {
                instances.push_back(std::move(instance));
            }
        }
        return instances;
    }
    if (ids.empty()) {
        throw UsageError("Which instances? Give their ids, or --all for all that wait. To see them: tvtask status");
    }
    for (int32_t id : ids) {
        instances.push_back(context.RequireInstance(id));
        if (const auto reason = ReasonAgainstRun(context, instances.back())) {
            throw UsageError(*reason);
        }
    }
    return instances;
}

/// What a person is told who asked for an instance that another host has taken meanwhile.
void PrintTaken(HostContext& context, int32_t id)
{
    const auto instance = context.store->Instance(id);
    const auto reason = instance ? ReasonAgainstRun(context, *instance) : std::nullopt;
    context.environment.err << "tvtask: "
                            << reason.value_or("The task instance " + std::to_string(id) +
                                               " was taken by another host.")
                            << "\n";
}

/// Lets Ctrl-C ask the instance to stop. The request comes on a thread of the system, so it opens the vault anew.
class InterruptScope
{
  public:
    InterruptScope(HostContext& context, int32_t instance) : machine(context.environment.machine)
    {
        const auto root = context.store->Root();
        const StoreOptions options = context.environment.storeOptions;
        machine.OnInterrupt([root, options, instance] {
            (void)AtBoundary([&] {
                VaultStore::Open(root, options)->SetStatus(instance, Number(TaskStatus::CancelRequested));
                return 0;
            });
        });
    }
    InterruptScope(const InterruptScope&) = delete;
    InterruptScope& operator=(const InterruptScope&) = delete;
    ~InterruptScope() { machine.OnInterrupt(nullptr); }

  private:
    Machine& machine;
};

/// The framework's part of ending: a cancelled run gets its last status here, and so does one whose add-in wrote none.
void SettleStatus(HostContext& context, int32_t id, Result result)
{
    const InstanceRecord instance = context.RequireInstance(id);
    if (instance.status == Number(TaskStatus::CancelRequested)) {
        context.store->SetStatus(id, Number(TaskStatus::Cancelled), result, "Cancelled.");
    } else if (!HasEnded(instance.status)) {
        const NameAndDescription words = WordsFor(result);
        context.store->SetStatus(id, Number(TaskStatus::Failed), result,
                                 result < 0 ? words.description + " (" + words.name + ")"
                                            : "The add-in ended without a status.");
    }
}

Json RunOne(HostContext& context, AddInSession& addIn, const InstanceRecord& launched)
{
    const int32_t id = launched.id;
    RunProgress progress(context);
    if (!context.json) {
        context.environment.out << "Running " << id << " '" << launched.taskName << "'" << std::endl;
    }
    {
        const InterruptScope interrupt(context, id);
        const auto instance =
            MakeTaskInstance(context.store, id, [&](const InstanceRecord& changed) { progress.Update(changed); });
        const CommandOutcome outcome = addIn.Send(VyxCmd_TaskRun, instance.get(), context.store->Selection(id));
        progress.Finish();
        SettleStatus(context, id, outcome.result);
    }
    context.environment.machine.EndLeftApplications();
    const InstanceRecord ended = context.RequireInstance(id);
    const auto rows = MakeReport(context, ended, progress.Seconds());
    const auto log = LogPath(context, ended);
    Json json = ToJson(ended);
    json["log"] = log ? Json(*log) : Json(nullptr);
    json["files"] = ToJson(rows);
    if (!context.json) {
        PrintReport(context.environment.out, rows);
        context.environment.out << "Run " << id << " " << StatusWord(ended.status);
        if (!ended.message.empty()) {
            context.environment.out << ": " << ended.message;
        }
        context.environment.out << "\n";
        if (log) {
            context.environment.out << "The log is " << *log << "; to read it: tvtask log " << id << "\n";
        }
    }
    return json;
}

void PrintInstance(HostContext& context, const InstanceRecord& instance)
{
    std::ostream& out = context.environment.out;
    char code[16];
    std::snprintf(code, sizeof code, "0x%08X", static_cast<unsigned>(instance.result));
    const auto log = LogPath(context, instance);
    const auto line = [&](std::string_view title, const std::string& text) {
        if (!text.empty()) {
            out << title << std::string(11 - title.size(), ' ') << text << "\n";
        }
    };
    line("Instance", std::to_string(instance.id) + "  " + instance.guid);
    line("Task", instance.taskName);
    line("Status", std::string(StatusWord(instance.status)) + " (" + std::to_string(instance.status) + ")");
    line("Message", instance.message);
    line("Result", code);
    line("Progress", std::to_string(instance.progress.position) + "/" + std::to_string(instance.progress.upper) + " " +
                         instance.progress.text);
    line("Launched", TimeText(instance.launched) + " by " + instance.launchedBy.user);
    line("Started", TimeText(instance.started));
    line("Ended", TimeText(instance.ended));
    line("Log", log.value_or(""));
    PrintReport(out, MakeReport(context, instance, {}));
}

} // namespace

int LaunchCommand(HostContext& context, const std::string& taskName, const std::vector<std::string>& paths,
                  const std::vector<std::string>& assignments)
{
    const TaskRecord task = context.RequireTask(taskName);
    std::vector<NamedValue> values;
    for (const std::string& text : assignments) {
        values.push_back(ParseAssignment(
            text, [&](std::string_view variable) { return context.store->TaskVariable(task.id, variable); }));
    }
    std::vector<SelectionItem> selection;
    for (const std::string& path : paths) {
        selection.push_back(Select(context, path));
    }
    AddInSession addIn(context.environment.component, context.store);
    const InstanceRecord record = context.store->MakeInstance(task.id);
    LaunchGuard guard(*context.store, record.id);
    for (const NamedValue& value : values) {
        context.store->SetInstanceVariable(record.id, value.name, value.value);
    }
    const auto instance = MakeTaskInstance(context.store, record.id);
    const CommandOutcome launched = addIn.Send(VyxCmd_TaskLaunch, instance.get(), selection);
    RequireDone(launched.result, "The add-in refused the launch");
    if (launched.cancelled) {
        Fail(E_ABORT, "The launch was cancelled.");
    }
    if (!launched.page.empty()) {
        // The add-in left a page open for the user; its values are taken as they stand.
        const CommandOutcome closed =
            addIn.Send(VyxCmd_TaskLaunchButton, instance.get(), launched.selection, kOkButton);
        RequireDone(closed.result, "The page '" + launched.page + "' refused its values");
    }
    context.store->FinishLaunch(record.id, launched.selection);
    guard.Keep();
    if (context.json) {
        context.PrintJson({{"id", record.id}, {"task", task.name}, {"guid", record.guid}});
    } else {
        context.environment.out << record.id << "\n";
    }
    return kExitDone;
}

int RunCommand(HostContext& context, const std::vector<int32_t>& ids, bool all)
{
    const auto instances = InstancesToRun(context, ids, all);
    Json json = Json::array();
    bool allWell = true;
    if (!instances.empty()) {
        AddInSession addIn(context.environment.component, context.store);
        addIn.RequireHook(VyxCmd_TaskRun);
        context.environment.machine.LetApplicationsEndWithThisProcess();
        for (const InstanceRecord& instance : instances) {
            if (!context.store->BeginRun(instance, context.environment.machine.ProcessId())) {
                // Whoever asks for all that wait means those that no other host has taken since.
                if (!all) {
                    PrintTaken(context, instance.id);
                    allWell = false;
                }
                continue;
            }
            json.push_back(RunOne(context, addIn, instance));
            const int32_t status = context.RequireInstance(instance.id).status;
            allWell = allWell && status == Number(TaskStatus::Finished);
            if (status == Number(TaskStatus::Cancelled)) {
                break;
            }
        }
    }
    if (context.json) {
        context.PrintJson(json);
    } else if (all && json.empty()) {
        context.environment.out << "No task instance waits for a run.\n";
    }
    return allWell ? kExitDone : kExitFailed;
}

int StatusCommand(HostContext& context, std::optional<int32_t> id)
{
    if (id) {
        const InstanceRecord instance = context.RequireInstance(*id);
        if (context.json) {
            Json json = ToJson(instance);
            const auto log = LogPath(context, instance);
            json["log"] = log ? Json(*log) : Json(nullptr);
            json["files"] = ToJson(MakeReport(context, instance, {}));
            context.PrintJson(json);
        } else {
            PrintInstance(context, instance);
        }
        return kExitDone;
    }
    Table table({{"Id", Align::Right},
                 {"Task"},
                 {"Status"},
                 {"Progress", Align::Right},
                 {"Started (UTC)"},
                 {"Ended (UTC)"},
                 {"Message"}});
    Json json = Json::array();
    for (const InstanceRecord& instance : context.store->Instances()) {
        table.Add({std::to_string(instance.id), instance.taskName, std::string(StatusWord(instance.status)),
                   std::to_string(instance.progress.position) + "/" + std::to_string(instance.progress.upper),
                   TimeText(instance.started), TimeText(instance.ended), instance.message});
        json.push_back(ToJson(instance));
    }
    if (context.json) {
        context.PrintJson(json);
    } else if (table.IsEmpty()) {
        context.environment.out << "No task was launched yet. Launch one with: tvtask launch TASK PATH\n";
    } else {
        table.Print(context.environment.out);
    }
    return kExitDone;
}

int LogCommand(HostContext& context, int32_t id)
{
    const InstanceRecord instance = context.RequireInstance(id);
    const auto text = ReadLog(context, instance);
    if (context.json) {
        const auto path = LogPath(context, instance);
        context.PrintJson(
            {{"id", id}, {"path", path ? Json(*path) : Json(nullptr)}, {"text", text ? Json(*text) : Json(nullptr)}});
    } else if (text) {
        context.environment.out << *text << (text->ends_with('\n') ? "" : "\n");
    } else {
        context.environment.out << "The task instance " << id << " has no log.\n";
    }
    return kExitDone;
}

} // namespace tv::local
