#include "host/app_commands.h"

#include "host/application_records.h"
#include "host/installed_applications.h"
#include "host/table.h"

#include "vault/disk.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace tv::local {

namespace {

using std::chrono::milliseconds;

/// Longer than an idle application needs on a busy machine.
constexpr std::chrono::seconds kAnswerPatience{10};

milliseconds Milliseconds(double seconds)
{
    constexpr double kMost = 1e9;
    return milliseconds(static_cast<int64_t>(std::min(std::ceil(seconds * 1000), kMost)));
}

/// "30", "0.5".
std::string SecondsText(double seconds)
{
    char text[32];
    std::snprintf(text, sizeof text, "%g", seconds);
    return text;
}

/// "2026-11-21T13:00:05Z".
std::string TimeOf(int64_t millisecondsSince1970)
{
    using namespace std::chrono;
    const sys_time<milliseconds> time{milliseconds(millisecondsSince1970)};
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(floor<seconds>(time - day));
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text;
}

/// "Torvane 2013". A registered class without a version has no year.
std::string VersionName(int32_t year)
{
    return year == 0 ? "Torvane of an unknown version" : "Torvane " + std::to_string(year);
}

/// An application that "app start" started and that still runs.
struct RunningApplication
{
    ApplicationRecord record;
    std::unique_ptr<ApplicationProcess> process;
};

ApplicationRecords RecordsOf(const HostContext& context)
{
    return ApplicationRecords(context.environment.applicationsFolder);
}

/// The records of those that have ended go.
std::vector<RunningApplication> RunningOnes(const HostContext& context)
{
    context.environment.applications.RequireSystem();
    const ApplicationRecords records = RecordsOf(context);
    std::vector<RunningApplication> running;
    for (const ApplicationRecord& record : records.All()) {
        if (auto process = context.environment.applications.Attach(record.process)) {
            running.push_back({record, std::move(process)});
        } else {
            records.Remove(record);
        }
    }
    return running;
}

constexpr std::string_view kNoneRuns = "No application that 'tvtask app start' started is running.";

[[noreturn]] void FailWithNone()
{
    throw NoApplicationError(std::string(kNoneRuns) + " Start one with: tvtask app start");
}

std::string ListText(const std::vector<RunningApplication>& running)
{
    std::string text;
    for (const RunningApplication& application : running) {
        text += (text.empty() ? "" : ", ") + std::to_string(application.record.process.id) + " (" +
                VersionName(application.record.year) + ", since " +
                TimeText(TimeOf(application.record.process.created)) + ")";
    }
    return text;
}

/// The one that is named, or else the only one.
RunningApplication Choose(std::vector<RunningApplication> running, std::optional<int32_t> processId)
{
    if (running.empty()) {
        FailWithNone();
    }
    if (!processId) {
        if (running.size() > 1) {
            throw UsageError("Several applications are running; say which one with --pid: " + ListText(running) + ".");
        }
        return std::move(running.front());
    }
    const auto chosen =
        std::ranges::find(running, *processId, [](const auto& application) { return application.record.process.id; });
    if (chosen == running.end()) {
        throw UsageError("No application that 'tvtask app start' started has the process id " +
                         std::to_string(*processId) + "; there are: " + ListText(running) + ".");
    }
    return std::move(*chosen);
}

Json ToJson(const InstalledApplication& application)
{
    return {{"className", application.className},
            {"classId", application.classId},
            {"source", SourceWords(application.source)},
            {"commandLine", application.commandLine},
            {"program", application.program},
            {"canStart", application.CanStart()},
            {"problem", application.problem}};
}

void PrintVersion(std::ostream& out, const InstalledApplication& version, bool isDefault)
{
    out << VersionName(version.year) << (isDefault ? " (default)" : "") << "\n"
        << "  class         " << version.className
        << (version.classId.empty() ? ", not registered" : " " + version.classId) << "\n";
    if (!version.commandLine.empty()) {
        out << "  found in      " << SourceWords(version.source) << "\n"
            << "  command line  " << version.commandLine << "\n";
    }
    if (!version.CanStart()) {
        out << "  problem       " << version.problem << "\n";
    }
}

void PrintDefault(std::ostream& out, const InstalledApplication& standard)
{
    if (standard.commandLine.empty()) {
        out << "Without a version asked for, nothing is started. " << standard.problem << "\n";
        return;
    }
    out << "Without a version asked for, " << VersionName(standard.year) << " is started ("
        << SourceWords(standard.source) << "):\n  command line  " << standard.commandLine << "\n";
    if (!standard.CanStart()) {
        out << "  problem       " << standard.problem << "\n";
    }
}

std::string YearsText(const InstalledApplications& installed)
{
    std::string years;
    for (const InstalledApplication& version : installed.versions) {
        if (version.CanStart()) {
            years += (years.empty() ? "" : ", ") + std::to_string(version.year);
        }
    }
    return years;
}

/// What the add-in would start. Raises NoApplicationError when that can't be started.
InstalledApplication RequireApplication(const HostContext& context, std::optional<int32_t> year)
{
    HostEnvironment& environment = context.environment;
    environment.applications.RequireSystem();
    const InstalledApplication application = FindApplication(environment.component, year.value_or(0));
    if (application.CanStart()) {
        return application;
    }
    const std::string years = YearsText(FindApplications(environment.component, environment.applications));
    throw NoApplicationError((year ? VersionName(*year) : std::string("The CAD application")) + " can't be started. " +
                             application.problem +
                             (years.empty() ? "" : " Versions that can be started: " + years + "."));
}

/// Lets Ctrl-C end the start.
class InterruptibleStart
{
  public:
    explicit InterruptibleStart(Machine& hostMachine) : machine(hostMachine)
    {
        machine.OnInterrupt([this] { interrupted = true; });
    }
    InterruptibleStart(const InterruptibleStart&) = delete;
    InterruptibleStart& operator=(const InterruptibleStart&) = delete;
    ~InterruptibleStart() { machine.OnInterrupt(nullptr); }

    bool IsInterrupted() const { return interrupted; }

  private:
    Machine& machine;
    std::atomic<bool> interrupted = false;
};

/// Starts it, has it recorded, and only then lets it outlive this process.
ApplicationRecord StartAndKeep(const HostContext& context, const AppStartOptions& options,
                               const InstalledApplication& application, const InterruptibleStart& interrupt)
{
    HostEnvironment& environment = context.environment;
    const ApplicationRecords records = RecordsOf(context);
    ApplicationStart start;
    start.commandLine = application.commandLine;
    start.isVisible = options.isVisible;
    start.eventsFile = records.NewEventsFile(environment.machine.ProcessId());
    start.isUnwanted = [&interrupt] { return interrupt.IsInterrupted(); };
    start.patience = Milliseconds(options.timeout);
    const auto process = environment.applications.Start(start);
    const ApplicationRecord record{process->Identity(), application.year, application.commandLine, start.eventsFile};
    records.Add(record);
    process->Keep();
    return record;
}

struct EndRow
{
    ApplicationEnd end;
    std::string_view json;
};

constexpr EndRow kEnds[] = {
    {ApplicationEnd::Politely, "politely"},
    {ApplicationEnd::ByForce, "by force"},
    {ApplicationEnd::NotEnded, "not ended"},
};

std::string EndWords(const ApplicationRecord& record, ApplicationEnd end, double timeout)
{
    const std::string name = VersionName(record.year) + " (process " + std::to_string(record.process.id) + ")";
    switch (end) {
    case ApplicationEnd::Politely:
        return name + " has ended";
    case ApplicationEnd::ByForce:
        return name + " didn't end when it was asked to, within " + SecondsText(timeout) +
               " seconds, and was ended by force";
    case ApplicationEnd::NotEnded:
        break;
    }
    return name + " can't be ended, not even by force; the system may want an administrator for it";
}

/// An application that somebody keeps: the macro is run in it and it goes on.
class KeptApplication final : public MacroPlace
{
  public:
    explicit KeptApplication(RunningApplication chosen) : application(std::move(chosen)) {}

    std::filesystem::path EventsFile() const override { return PathOf(application.record.eventsFile); }
    std::unique_ptr<ApplicationProcess> Enter(const std::function<bool()>&) override
    {
        return std::move(application.process);
    }
    void Leave(ApplicationProcess&) override {}
    std::string LostWithMacro() const override
    {
        return "; the CAD application (process " + std::to_string(application.record.process.id) + ") ended with it";
    }

  private:
    RunningApplication application;
};

} // namespace

int AppVersionsCommand(HostContext& context)
{
    HostEnvironment& environment = context.environment;
    environment.applications.RequireSystem();
    const InstalledApplications installed = FindApplications(environment.component, environment.applications);
    if (context.json) {
        Json versions = Json::array();
        for (const InstalledApplication& version : installed.versions) {
            Json row{{"year", version.year}, {"default", version.year == installed.standard.year}};
            row.update(ToJson(version));
            versions.push_back(std::move(row));
        }
        Json standard{{"year", installed.standard.year}};
        standard.update(ToJson(installed.standard));
        context.PrintJson({{"versions", versions}, {"default", standard}});
        return kExitDone;
    }
    for (const InstalledApplication& version : installed.versions) {
        PrintVersion(environment.out, version, version.year == installed.standard.year);
    }
    PrintDefault(environment.out, installed.standard);
    return kExitDone;
}

int AppStartCommand(HostContext& context, const AppStartOptions& options)
{
    const InstalledApplication application = RequireApplication(context, options.version);
    const InterruptibleStart interrupt(context.environment.machine);
    ApplicationRecord record;
    try {
        record = StartAndKeep(context, options, application, interrupt);
    } catch (const NoApplicationError&) {
        if (!interrupt.IsInterrupted()) {
            throw;
        }
        context.environment.out << "Ended by Ctrl-C\n";
        return kExitFailed;
    }
    if (context.json) {
        context.PrintJson({{"processId", record.process.id},
                           {"year", record.year},
                           {"source", SourceWords(application.source)},
                           {"commandLine", record.commandLine}});
        return kExitDone;
    }
    std::ostream& out = context.environment.out;
    if (options.version && *options.version != record.year) {
        out << VersionName(*options.version) << " isn't installed; as a task would, this takes "
            << VersionName(record.year) << " in its place\n";
    }
    out << "Started " << VersionName(record.year) << " as process " << record.process.id << ": " << record.commandLine
        << "\nIt runs until it is ended with: tvtask app stop\n";
    return kExitDone;
}

int AppRunCommand(HostContext& context, const MacroRunOptions& options, std::optional<int32_t> processId)
{
    RunningApplication chosen = Choose(RunningOnes(context), processId);
    KeptApplication place(std::move(chosen));
    const int code = RunMacroFile(context, options, place);
    // It may have gone with the macro.
    RunningOnes(context);
    return code;
}

int AppListCommand(HostContext& context)
{
    Json list = Json::array();
    Table table({{"Process", Align::Right}, {"Version", Align::Right}, {"Revision"}, {"Since (UTC)"}, {"Documents"}});
    for (const RunningApplication& application : RunningOnes(context)) {
        const ApplicationRecord& record = application.record;
        const ApplicationDetails details = application.process->Details(kAnswerPatience);
        std::string documents = details.documents.empty() ? "none" : "";
        for (const std::string& document : details.documents) {
            documents += (documents.empty() ? "" : ", ") + document;
        }
        list.push_back({{"processId", record.process.id},
                        {"year", record.year},
                        {"answers", details.answered},
                        {"revision", details.revision},
                        {"since", TimeOf(record.process.created)},
                        {"documents", details.documents},
                        {"commandLine", record.commandLine}});
        table.Add({std::to_string(record.process.id), std::to_string(record.year),
                   details.answered ? details.revision : "?", TimeText(TimeOf(record.process.created)),
                   details.answered ? documents : "doesn't answer: it is busy or hangs"});
    }
    if (context.json) {
        context.PrintJson(list);
    } else if (table.IsEmpty()) {
        context.environment.out << kNoneRuns << "\n";
    } else {
        table.Print(context.environment.out);
    }
    return kExitDone;
}

int AppStopCommand(HostContext& context, const AppStopOptions& options)
{
    std::vector<RunningApplication> running = RunningOnes(context);
    if (!options.all) {
        RunningApplication chosen = Choose(std::move(running), options.process);
        running.clear();
        running.push_back(std::move(chosen));
    }
    const ApplicationRecords records = RecordsOf(context);
    Json list = Json::array();
    int code = kExitDone;
    for (const RunningApplication& application : running) {
        const ApplicationEnd end = application.process->End(Milliseconds(options.timeout));
        if (end != ApplicationEnd::NotEnded) {
            records.Remove(application.record);
        }
        code = end == ApplicationEnd::Politely ? code : kExitFailed;
        if (context.json) {
            list.push_back({{"processId", application.record.process.id},
                            {"year", application.record.year},
                            {"ended", std::ranges::find(kEnds, end, &EndRow::end)->json}});
        } else {
            context.environment.out << EndWords(application.record, end, options.timeout) << "\n";
        }
    }
    if (context.json) {
        context.PrintJson(list);
    } else if (running.empty()) {
        context.environment.out << kNoneRuns << "\n";
    }
    return code;
}

} // namespace tv::local
