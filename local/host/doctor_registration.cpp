// Whether the add-in and the CAD application are registered, and whether what is registered works.
#include "host/doctor_checks.h"

#include "host/installed_applications.h"
#include "vault/error_table.h"
#include "vault/text.h"

#include "com/guid.h"
#include "interfaces/ids.h"

#include <algorithm>
#include <charconv>

namespace tv::local {

namespace {

constexpr std::string_view kApplicationClass = "Torvane.Application";
constexpr std::string_view kProgram = "TORVANE.EXE";
constexpr std::string_view kComponent = "TVTaskAddIn.dll";
const std::string kClasses = "SOFTWARE\\Classes\\";
const std::string kProduct = "SOFTWARE\\Torvane";

std::string DeleteCommand(const RegistryKey& key)
{
    return "reg delete " + InQuotes(KeyText(key)) + " /f /reg:" + (key.view == RegistryView::Bits64 ? "64" : "32");
}

std::string ReadText(Examination& examination, const RegistryKey& key, std::string_view name = {})
{
    const auto value = examination.machine.ReadValue(key, name);
    if (!value || (value->type != RegistryType::Text && value->type != RegistryType::ExpandableText)) {
        return {};
    }
    return value->type == RegistryType::ExpandableText ? examination.machine.Expand(value->text) : value->text;
}

std::string PathBelow(const std::string& folder, std::string_view name)
{
    return folder.substr(0, folder.find_last_not_of("\\/") + 1) + "\\" + std::string(name);
}

// The add-in.

std::string AddInKey()
{
    return kClasses + "CLSID\\" + Utf8(GuidText(kTaskAddInClass));
}

RegistryKey AddInServer(RegistryRoot root, RegistryView view = RegistryView::Bits64)
{
    return {root, AddInKey() + "\\InprocServer32", view};
}

/// The user's registration counts before the machine's.
std::optional<RegistryKey> RegisteredAddIn(Examination& examination)
{
    for (const RegistryRoot root : {RegistryRoot::User, RegistryRoot::Machine}) {
        if (!ReadText(examination, AddInServer(root)).empty()) {
            return AddInServer(root);
        }
    }
    return std::nullopt;
}

std::string AddInFile(Examination& examination)
{
    const auto key = RegisteredAddIn(examination);
    return key ? ReadText(examination, *key) : std::string();
}

/// Registers the add-in that stands beside this program, or else a file of that name.
std::vector<std::string> RegisterAddIn(Examination& examination)
{
    const std::string beside = PathBelow(examination.machine.ProgramFolder(), kComponent);
    return {"regsvr32 " + InQuotes(examination.machine.FileExists(beside) ? beside : std::string(kComponent))};
}

constexpr char kRegisterAddIn[] = "Register the add-in, as administrator:";

// The application.

/// 21 of "Torvane.Application.21"; 0 for any other name.
int32_t SuffixOf(std::string_view name)
{
    int32_t suffix = 0;
    if (name.size() > kApplicationClass.size() + 1) {
        const std::string_view digits = name.substr(kApplicationClass.size() + 1);
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), suffix);
        suffix = read.ec == std::errc() && read.ptr == digits.data() + digits.size() ? suffix : 0;
    }
    return suffix;
}

int32_t YearOfName(std::string_view name)
{
    const int32_t suffix = SuffixOf(name);
    return suffix == 0 ? 0 : suffix + kYearOfRevisionZero;
}

std::vector<std::string> ApplicationNames(Examination& examination, RegistryView view)
{
    std::vector<std::string> names;
    for (std::string& name : examination.machine.SubKeys({RegistryRoot::Machine, "SOFTWARE\\Classes", view})) {
        if (SameName(name, kApplicationClass) ||
            (SameName(name.substr(0, kApplicationClass.size()), kApplicationClass) && SuffixOf(name) != 0)) {
            names.push_back(std::move(name));
        }
    }
    std::ranges::sort(names, {}, SuffixOf);
    return names;
}

/// Registers an application that is there: one that is registered elsewhere, or the one beside this program.
std::vector<std::string> RegisterApplication(Examination& examination)
{
    const std::string beside = PathBelow(examination.machine.ProgramFolder(), kProgram);
    std::string program(kProgram);
    if (!examination.programs.empty()) {
        program = examination.programs.front().path;
    } else if (examination.machine.FileExists(beside)) {
        program = beside;
    }
    return {InQuotes(program) + " /regserver"};
}

constexpr char kRegisterApplication[] = "Register the application, as administrator:";

struct RegisteredClass
{
    std::string name;
    std::string classId;
    std::string server;
    std::string program;
    bool hasServerIn32 = false;
};

RegisteredClass ReadClass(Examination& examination, const std::string& name)
{
    RegisteredClass found;
    found.name = name;
    found.classId = ReadText(examination, {RegistryRoot::Machine, kClasses + name + "\\CLSID"});
    if (found.classId.empty()) {
        return found;
    }
    const std::string server = kClasses + "CLSID\\" + found.classId + "\\LocalServer32";
    found.server = ReadText(examination, {RegistryRoot::Machine, server});
    found.hasServerIn32 = !ReadText(examination, {RegistryRoot::Machine, server, RegistryView::Bits32}).empty();
    found.program = found.server.empty() ? "" : ProgramOfServer(examination.machine, found.server);
    return found;
}

bool IsThere(Examination& examination, const std::string& program)
{
    // A bare name is looked for along the system's search path.
    return program.find_first_of("\\/") == std::string::npos || examination.machine.FileExists(program);
}

Finding ExamineClass(Examination& examination, const RegisteredClass& found)
{
    const std::string key = kClasses + "CLSID\\" + found.classId;
    if (found.classId.empty()) {
        return {Level::Problem, found.name, "has no class id, so nothing can be started by it", kRegisterApplication,
                RegisterApplication(examination)};
    }
    if (found.server.empty() && found.hasServerIn32) {
        return {Level::Problem, found.name,
                "the class " + found.classId +
                    " has its server in the 32-bit view of the registry only, and a run "
                    "looks in the 64-bit one",
                "Copy it there, as administrator:", CopyCommands(key)};
    }
    if (found.server.empty()) {
        return {Level::Problem, found.name, "the class " + found.classId + " names no server", kRegisterApplication,
                RegisterApplication(examination)};
    }
    if (IsThere(examination, found.program)) {
        examination.AddProgram(found.program, YearOfName(found.name));
        return {Level::Ok, found.name, found.classId + " is " + found.program};
    }
    Finding finding{Level::Problem, found.name,
                    "the class " + found.classId + " names the program " + InQuotes(found.program) +
                        ", which isn't there"};
    finding.commands = RegisterApplication(examination);
    if (finding.commands.front() != InQuotes(kProgram) + " /regserver") {
        finding.advice = "Register the application that is there, as administrator:";
    } else {
        finding.advice = "Install the application again, or take out what is left of it, as administrator:";
        finding.commands = {DeleteCommand({RegistryRoot::Machine, kClasses + found.name}),
                            DeleteCommand({RegistryRoot::Machine, key})};
    }
    return finding;
}

/// The Setup key of one product year in one view.
struct SetUp
{
    int32_t year = 0;
    RegistryKey key;
    std::string folder;
    std::string program;
};

std::vector<SetUp> SetUpsIn(Examination& examination, RegistryView view)
{
    constexpr std::string_view kBegin = "Torvane ";
    std::vector<SetUp> setUps;
    for (const std::string& name : examination.machine.SubKeys({RegistryRoot::Machine, kProduct, view})) {
        SetUp setUp;
        const char* const end = name.data() + name.size();
        if (!name.starts_with(kBegin) || std::from_chars(name.data() + kBegin.size(), end, setUp.year).ptr != end ||
            setUp.year <= 0) {
            continue;
        }
        setUp.key = {RegistryRoot::Machine, kProduct + "\\" + name, view};
        const RegistryKey setup{RegistryRoot::Machine, setUp.key.path + "\\Setup", view};
        for (const char* value : {"Torvane Folder", "Torvane Location"}) {
            const auto stored = examination.machine.ReadValue(setup, value);
            if (stored && (stored->type == RegistryType::Text || stored->type == RegistryType::ExpandableText)) {
                // A run takes references to the environment as they stand.
                setUp.folder = stored->text;
                break;
            }
        }
        setUp.program = setUp.folder.empty() ? "" : PathBelow(setUp.folder, kProgram);
        setUps.push_back(std::move(setUp));
    }
    std::ranges::sort(setUps, {}, &SetUp::year);
    return setUps;
}

std::string ViewText(RegistryView view)
{
    return view == RegistryView::Bits64 ? "64-bit view" : "32-bit view";
}

Finding ExamineSetUp(Examination& examination, const SetUp& setUp)
{
    const std::string subject = "Torvane " + std::to_string(setUp.year);
    const std::string name = std::string(kApplicationClass) + "." + std::to_string(setUp.year - kYearOfRevisionZero);
    if (setUp.folder.empty()) {
        return {Level::Warning,
                subject,
                "its Setup key (" + ViewText(setUp.key.view) + ") names no folder, so the registered server is taken",
                "Repair the installation, or take out what is left of it, as administrator:",
                {DeleteCommand(setUp.key)}};
    }
    if (!examination.machine.FileExists(setUp.program)) {
        return {Level::Problem,
                subject,
                "its Setup key (" + ViewText(setUp.key.view) + ") leads to " + InQuotes(setUp.program) +
                    ", which isn't there",
                "Install it again, or take out what is left of it, as administrator:",
                {DeleteCommand(setUp.key)}};
    }
    const auto known = examination.machine.ReadValue({RegistryRoot::Machine, kClasses + name + "\\CLSID"}, "");
    if (!known) {
        return {Level::Warning,
                subject,
                "is installed in " + InQuotes(setUp.folder) + ", and its class " + name +
                    " isn't registered: a task that asks for it gets another version",
                kRegisterApplication,
                {InQuotes(setUp.program) + " /regserver"}};
    }
    examination.AddProgram(setUp.program, setUp.year);
    return {Level::Ok, subject, setUp.program + " (Setup key, " + ViewText(setUp.key.view) + ")"};
}

/// The number that leads a revision; 0 when none does.
int32_t MajorRevision(const std::string& revision)
{
    int32_t major = 0;
    std::from_chars(revision.data(), revision.data() + revision.size(), major);
    return major;
}

Finding StartProgram(Examination& examination, const Examination::Program& program)
{
    const std::string subject = "start";
    Finding broken{Level::Problem,
                   subject,
                   {},
                   "Repair the installation of that version, or register it again:",
                   {InQuotes(program.path) + " /regserver"}};
    try {
        ApplicationStart start;
        start.commandLine = InQuotes(program.path) + " /B";
        const auto application = examination.Environment().applications.Start(start);
        const std::string revision = application->Revision();
        application->Close();
        const int32_t major = MajorRevision(revision);
        if (major == 0) {
            broken.found = program.path + " started and didn't tell its revision";
            return broken;
        }
        if (program.year != 0 && major != program.year - kYearOfRevisionZero) {
            broken.found = program.path + " is registered as Torvane " + std::to_string(program.year) + ", revision " +
                           std::to_string(program.year - kYearOfRevisionZero) + ", and says that it is revision " +
                           revision;
            return broken;
        }
        return {Level::Ok, subject, program.path + " is revision " + revision};
    } catch (const NoApplicationError& error) {
        broken.found = program.path + ": " + error.what();
        return broken;
    }
}

} // namespace

Findings ExamineAddInClass(Examination& examination)
{
    const std::string subject = "class";
    const std::string id = Utf8(GuidText(kTaskAddInClass));
    const auto key = RegisteredAddIn(examination);
    if (!key) {
        const bool in32 = !ReadText(examination, AddInServer(RegistryRoot::Machine, RegistryView::Bits32)).empty();
        return {{Level::Problem, subject,
                 in32 ? id + " is registered for 32-bit programs only, and the vault's are 64-bit"
                      : id + " isn't registered",
                 kRegisterAddIn, RegisterAddIn(examination)}};
    }
    const std::string user = ReadText(examination, AddInServer(RegistryRoot::User));
    const std::string machine = ReadText(examination, AddInServer(RegistryRoot::Machine));
    if (!user.empty() && !machine.empty() && !SameName(user, machine)) {
        return {{Level::Warning,
                 subject,
                 id + " is " + InQuotes(user) + " for this user, who doesn't get the machine's " + InQuotes(machine),
                 "Take out the user's, unless it is wanted:",
                 {DeleteCommand({RegistryRoot::User, AddInKey()})}}};
    }
    return {{Level::Ok, subject, id + " is registered" + (user.empty() ? "" : " for this user")}};
}

Findings ExamineAddInFile(Examination& examination)
{
    const std::string file = AddInFile(examination);
    if (file.empty()) {
        return {};
    }
    Finding finding{Level::Problem, "file", InQuotes(file), kRegisterAddIn, RegisterAddIn(examination)};
    switch (examination.machine.LookAtProgram(file)) {
    case ProgramKind::Missing:
        finding.found += " isn't there";
        return {finding};
    case ProgramKind::NoProgram:
        finding.found += " is no library";
        return {finding};
    case ProgramKind::Bits32:
        finding.found += " is a 32-bit library, and the vault's programs are 64-bit";
        return {finding};
    case ProgramKind::Bits64:
        break;
    }
    return {{Level::Ok, "file", file + ", 64-bit"}};
}

Findings ExamineThreadingModel(Examination& examination)
{
    const auto key = RegisteredAddIn(examination);
    if (!key) {
        return {};
    }
    const std::string subject = "threading model";
    const std::string model = ReadText(examination, *key, "ThreadingModel");
    if (SameName(model, "Both") || SameName(model, "Apartment")) {
        return {{Level::Ok, subject, model}};
    }
    // In another apartment than its host's it couldn't be called at all: its interfaces have no proxies.
    return {{model.empty() ? Level::Warning : Level::Problem,
             subject,
             (model.empty() ? std::string("none") : InQuotes(model)) +
                 " stands there, so that the add-in isn't made on the thread of a run",
             kRegisterAddIn,
             {"regsvr32 " + InQuotes(ReadText(examination, *key))}}};
}

Findings ExamineAddInStart(Examination& examination)
{
    const std::string file = AddInFile(examination);
    if (file.empty() || examination.machine.LookAtProgram(file) != ProgramKind::Bits64) {
        return {};
    }
    Finding finding{Level::Problem, "start", {}, kRegisterAddIn, RegisterAddIn(examination)};
    if (const Trouble trouble = examination.machine.LoadLibraryFile(file)) {
        finding.found = InQuotes(file) + " can't be loaded: " + *trouble;
        return {finding};
    }
    try {
        examination.Environment().component.Create();
    } catch (const ResultError& error) {
        finding.found = WordsOf(error);
        return {finding};
    }
    return {{Level::Ok, "start", "it loads and makes its object"}};
}

Findings ExamineApplicationClasses(Examination& examination)
{
    const auto names = ApplicationNames(examination, RegistryView::Bits64);
    if (names.empty()) {
        const auto names32 = ApplicationNames(examination, RegistryView::Bits32);
        if (names32.empty()) {
            return {{Level::Problem, std::string(kApplicationClass), "isn't registered", kRegisterApplication,
                     RegisterApplication(examination)}};
        }
        Finding finding{Level::Problem, std::string(kApplicationClass),
                        "is registered in the 32-bit view of the registry only, and a run looks in the 64-bit one",
                        "Copy it there, as administrator:"};
        for (const std::string& name : names32) {
            std::ranges::copy(CopyCommands(kClasses + name), std::back_inserter(finding.commands));
        }
        return {finding};
    }
    // What is there is known before anything is said about what isn't.
    std::vector<RegisteredClass> classes;
    for (const std::string& name : names) {
        classes.push_back(ReadClass(examination, name));
        if (!classes.back().program.empty() && IsThere(examination, classes.back().program)) {
            examination.AddProgram(classes.back().program, YearOfName(name));
        }
    }
    Findings findings;
    if (!SameName(names.front(), kApplicationClass)) {
        findings.push_back({Level::Problem, std::string(kApplicationClass),
                            "isn't registered, so a task that asks for no version can't start any",
                            kRegisterApplication, RegisterApplication(examination)});
    }
    for (const RegisteredClass& found : classes) {
        findings.push_back(ExamineClass(examination, found));
    }
    return findings;
}

Findings ExamineSetUps(Examination& examination)
{
    Findings findings;
    const auto in64 = SetUpsIn(examination, RegistryView::Bits64);
    for (const SetUp& setUp : in64) {
        findings.push_back(ExamineSetUp(examination, setUp));
    }
    for (const SetUp& setUp : SetUpsIn(examination, RegistryView::Bits32)) {
        // A run looks there only for what the 64-bit view doesn't tell.
        const bool isHidden = std::ranges::any_of(
            in64, [&](const SetUp& other) { return other.year == setUp.year && !other.folder.empty(); });
        if (!isHidden) {
            findings.push_back(ExamineSetUp(examination, setUp));
        }
    }
    if (findings.empty()) {
        return {{Level::Ok, "Setup keys", "none; the registered server is started, with the switch /R"}};
    }
    return findings;
}

Findings ExamineVersions(Examination& examination)
{
    if (AddInFile(examination).empty()) {
        return {{Level::Warning, "versions", "can't be told while the add-in isn't registered"}};
    }
    const InstalledApplications found =
        FindApplications(examination.Environment().component, examination.Environment().applications);
    Findings findings;
    const auto add = [&](const std::string& subject, const InstalledApplication& application, Level whenBroken) {
        if (application.CanStart()) {
            findings.push_back({Level::Ok, subject,
                                application.commandLine + " (" + std::string(SourceWords(application.source)) + ")"});
        } else {
            findings.push_back(
                {whenBroken, subject, application.problem,
                 "Register the version that is to be started, as administrator:", RegisterApplication(examination)});
        }
    };
    for (const InstalledApplication& application : found.versions) {
        add("tasks for " + std::to_string(application.year), application, Level::Warning);
    }
    add("tasks for any version", found.standard, Level::Problem);
    return findings;
}

Findings ExamineApplicationStart(Examination& examination)
{
    Findings findings;
    for (const Examination::Program& program : examination.programs) {
        findings.push_back(StartProgram(examination, program));
    }
    return findings;
}

} // namespace tv::local
