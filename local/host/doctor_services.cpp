// The notification pipe, printers, the geometry kernel, the temporary folder, and what ended runs left behind.
#include "host/doctor_checks.h"

#include "host/application_records.h"
#include "vault/disk.h"
#include "vault/text.h"

#include "com/guid.h"
#include "interfaces/ids.h"

#include <algorithm>
#include <charconv>

namespace tv::local {

namespace {

constexpr std::chrono::milliseconds kListenerPatience{15'000};
/// A macro file lives as long as its macro runs; the application is there the whole time but for a restart.
constexpr std::chrono::minutes kYoungMacro{10};
constexpr std::chrono::hours kOldMacro{24};
constexpr size_t kMostNamed = 5;
constexpr std::string_view kAddInMacro = "TFR";
constexpr std::string_view kOwnMacro = "tvtask_";

struct MacroNameRow
{
    std::string_view begin;
    std::string_view end;
};

constexpr MacroNameRow kMacroNames[] = {
    {kAddInMacro, ".tvb"},
    {kAddInMacro, ".tmp"},
    {kOwnMacro, ".tvb"},
    {kOwnMacro, ".events"},
};

std::string KillCommand(int32_t process)
{
    return "taskkill /F /PID " + std::to_string(process);
}

std::string SecondsText(std::chrono::milliseconds time)
{
    return std::to_string(std::chrono::duration_cast<std::chrono::seconds>(time).count()) + " seconds";
}

/// The process whose number stands in the name of a macro file of tvtask; 0 for any other file.
int32_t OwnerOf(const std::string& path)
{
    const std::string name = path.substr(path.find_last_of("\\/") + 1);
    int32_t process = 0;
    if (SameName(name.substr(0, kOwnMacro.size()), kOwnMacro)) {
        std::from_chars(name.data() + kOwnMacro.size(), name.data() + name.size(), process);
    }
    return process;
}

bool IsStray(Examination& examination, const FoundFile& file, bool applicationRuns)
{
    if (const int32_t owner = OwnerOf(file.path)) {
        return !examination.Environment().machine.IsAlive(owner);
    }
    return file.age > (applicationRuns ? std::chrono::seconds(kOldMacro) : std::chrono::seconds(kYoungMacro));
}

bool IsLocalEdition(Examination& examination)
{
    const auto id =
        examination.machine.ReadValue({RegistryRoot::Machine, "SOFTWARE\\Classes\\Torvane.Application\\CLSID"}, "");
    return !id || SameName(id->text, Utf8(GuidText(kLocalApplicationClass)));
}

} // namespace

Findings ExamineListener(Examination& examination)
{
    const std::string subject = "listener";
    const std::string pipe = Utf8(kNotificationPipe);
    const Listener listener = examination.machine.AskListener(kListenerPatience);
    const std::string process = listener.process == 0 ? "" : " (process " + std::to_string(listener.process) + ")";
    Finding hung{Level::Problem, subject, {}, "End the listener; its own program may start it again:"};
    if (listener.process != 0) {
        hung.commands = {KillCommand(listener.process)};
    } else {
        hung.advice = "End the program that listens, or start the machine again";
    }
    switch (listener.state) {
    case ListenerState::None:
        return {{Level::Ok, subject, "none at " + pipe + "; runs work the same"}};
    case ListenerState::Answers:
        return {{Level::Ok, subject, "answers at " + pipe + process}};
    case ListenerState::Silent:
        hung.found = "it" + process + " takes messages at " + pipe + " and didn't answer within " +
                     SecondsText(kListenerPatience) + ": a run that saves a file waits for it without end";
        break;
    case ListenerState::KeepsSenderWaiting:
        hung.found = "a run has waited for the listener" + process + " at " + pipe + " for more than " +
                     SecondsText(kListenerPatience) + ", and all others wait behind it";
        break;
    case ListenerState::Busy:
        hung.level = Level::Warning;
        hung.found = "it" + process + " takes no message at " + pipe + " within " + SecondsText(kListenerPatience) +
                     ", so nobody hears of a run's files";
        break;
    }
    return {hung};
}

Findings ExaminePrinters(Examination& examination)
{
    const std::string subject = "printers";
    const auto printers = examination.machine.Printers();
    if (printers.empty()) {
        return {{Level::Warning,
                 subject,
                 "none, so print tasks can't work on this machine",
                 "Install one before a print task runs here:",
                 {"control printers"}}};
    }
    std::string names;
    for (const Printer& printer : printers) {
        names += (names.empty() ? "" : ", ") + printer.name + (printer.isDefault ? " (default)" : "");
    }
    if (std::ranges::none_of(printers, &Printer::isDefault)) {
        return {{Level::Warning,
                 subject,
                 names + "; none is the default",
                 "Choose the default one:",
                 {"rundll32 printui.dll,PrintUIEntry /y /n " + InQuotes(printers.front().name)}}};
    }
    return {{Level::Ok, subject, names}};
}

Findings ExamineKernel(Examination& examination)
{
    const std::string subject = "geometry kernel";
    if (examination.machine.HasComponents() && !IsLocalEdition(examination)) {
        return {{Level::Ok, subject, "the registered application brings its own"}};
    }
    std::string folder = examination.machine.ProgramFolder();
    if (!examination.programs.empty()) {
        folder = TextOf(PathOf(examination.programs.front().path).parent_path());
    }
    const bool windows = examination.machine.HasComponents();
    Finding broken{Level::Problem,
                   subject,
                   {},
                   "Put tvkernel beside TORVANE.EXE, or name it by a variable of the environment:",
                   {windows ? "setx TVKERNEL \"C:\\PATH\\TO\\tvkernel.exe\"" : "export TVKERNEL=/PATH/TO/tvkernel"}};
    const std::string kernel = examination.machine.KernelProgram(folder);
    if (kernel.empty()) {
        broken.found = "there is none, so the local application can't read or write shapes";
        return {broken};
    }
    if (const Trouble trouble = examination.machine.TryKernel(folder)) {
        broken.found = InQuotes(kernel) + " " + *trouble;
        return {broken};
    }
    return {{Level::Ok, subject, kernel + " answers"}};
}

Findings ExamineTemporaryFolder(Examination& examination)
{
    const std::string folder = examination.machine.TemporaryFolder();
    if (const auto finding = FolderFinding(examination, "temporary folder", folder)) {
        return {*finding};
    }
    return {{Level::Ok, "temporary folder", folder + ", where macros go, can be written"}};
}

Findings ExamineStrayMacros(Examination& examination)
{
    const std::string folder = examination.machine.TemporaryFolder();
    const bool applicationRuns = !examination.machine.Applications().empty();
    std::vector<std::string> stray;
    for (const MacroNameRow& row : kMacroNames) {
        for (const FoundFile& file : examination.machine.Files(folder, row.begin, row.end)) {
            if (IsStray(examination, file, applicationRuns)) {
                stray.push_back(file.path);
            }
        }
    }
    if (stray.empty()) {
        return {{Level::Ok, "left macro files", "none"}};
    }
    const std::string count = std::to_string(stray.size());
    Finding finding{Level::Warning, "left macro files",
                    count + (stray.size() == 1 ? " of a run that has" : " of runs that have") + " ended, in " + folder,
                    "Delete " + std::string(stray.size() == 1 ? "it" : "them") + ":"};
    const std::string_view deletes = examination.machine.HasComponents() ? "del " : "rm ";
    if (stray.size() > kMostNamed) {
        finding.advice = "Delete them, these first; tvtask doctor names the others then:";
        stray.resize(kMostNamed);
    }
    for (const std::string& path : stray) {
        finding.commands.push_back(std::string(deletes) + InQuotes(path));
    }
    return {finding};
}

Findings ExamineStrayApplications(Examination& examination)
{
    Findings findings;
    size_t others = 0;
    size_t kept = 0;
    const auto records = ApplicationRecords(examination.Environment().applicationsFolder).All();
    for (const RunningProcess& process : examination.machine.Applications()) {
        const bool isKept = std::ranges::any_of(
            records, [&](const ApplicationRecord& record) { return record.process.id == process.id; });
        if (isKept || process.hasParent) {
            ++(isKept ? kept : others);
            continue;
        }
        findings.push_back({Level::Warning,
                            "TORVANE.EXE " + std::to_string(process.id),
                            "runs, and the program that started it is gone",
                            "End it, unless somebody works with it:",
                            {KillCommand(process.id)}});
    }
    if (findings.empty()) {
        return {{Level::Ok, "running applications",
                 others + kept == 0 ? "none"
                                    : std::to_string(others) + " with the program that started them, " +
                                          std::to_string(kept) + " started to stay"}};
    }
    return findings;
}

} // namespace tv::local
