#include "host/doctor_checks.h"

#include "host/installed_applications.h"
#include "host/table.h"
#include "vault/error_table.h"
#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

constexpr uint64_t kMegabyte = 1024 * 1024;
constexpr uint64_t kTooLittleRoom = 100 * kMegabyte;
constexpr uint64_t kLittleRoom = 1024 * kMegabyte;

constexpr CheckRow kChecks[] = {
    {"add-in class", "Add-in", Needs::Components, ExamineAddInClass},
    {"add-in file", "Add-in", Needs::Components, ExamineAddInFile},
    {"threading model", "Add-in", Needs::Components, ExamineThreadingModel},
    {"add-in start", "Add-in", Needs::Components, ExamineAddInStart},
    {"application classes", "CAD application", Needs::Components, ExamineApplicationClasses},
    {"set-ups", "CAD application", Needs::Components, ExamineSetUps},
    {"versions", "CAD application", Needs::Components, ExamineVersions},
    {"application start", "CAD application", Needs::Components, ExamineApplicationStart},
    {"kernel", "CAD application", Needs::Nothing, ExamineKernel},
    {"stray applications", "CAD application", Needs::Components, ExamineStrayApplications},
    {"start-up add-ins", "CAD application", Needs::Components, ExamineStartUpAddIns},
    {"settings keys", "Settings", Needs::Components, ExamineSettingsKeys},
    {"settings", "Settings", Needs::Components, ExamineSettings},
    {"listener", "Machine", Needs::Components, ExamineListener},
    {"printers", "Machine", Needs::Components, ExaminePrinters},
    {"temporary folder", "Machine", Needs::Nothing, ExamineTemporaryFolder},
    {"stray macros", "Machine", Needs::Nothing, ExamineStrayMacros},
    {"vault folders", "Vault", Needs::Nothing, ExamineVaultFolders},
    {"vault", "Vault", Needs::Nothing, ExamineVault},
    {"contents", "Vault", Needs::Vault, ExamineContents},
    {"vault settings", "Vault", Needs::Both, ExamineVaultSettings},
    {"claimed runs", "Vault", Needs::Vault, ExamineClaims},
    {"check-outs", "Vault", Needs::Vault, ExamineCheckOuts},
    {"task macros", "Tasks", Needs::Vault, ExamineTaskMacros},
    {"task versions", "Tasks", Needs::Both, ExamineTaskVersions},
    {"task printers", "Tasks", Needs::Both, ExamineTaskPrinters},
    {"task outputs", "Tasks", Needs::Vault, ExamineTaskOutputs},
};

bool NeedsVault(Needs needs)
{
    return needs == Needs::Vault || needs == Needs::Both;
}

bool NeedsComponents(Needs needs)
{
    return needs == Needs::Components || needs == Needs::Both;
}

struct FolderRow
{
    FolderState state;
    std::string_view found;
    std::string_view advice;
    /// With the path between quotes behind it; the first for Windows.
    std::string_view command;
    std::string_view commandElsewhere;
    std::string_view behind;
};

constexpr FolderRow kFolderRows[] = {
    {FolderState::Missing, "isn't there", "Make it:", "mkdir", "mkdir -p", ""},
    {FolderState::NoFolder, "is a file and no folder", "Move the file away and make the folder:", "mkdir", "mkdir -p",
     ""},
    {FolderState::Refused, "can't be written", "Give yourself the right to, or ask whoever administers the disk:",
     "icacls", "chmod u+rwx", " /grant \"%USERNAME%:(OI)(CI)M\""},
    {FolderState::Full, "has no room left", "Make room on its disk", "", "", ""},
};

} // namespace

std::span<const CheckRow> DoctorChecks()
{
    return kChecks;
}

Findings CarryOut(const CheckRow& check, Examination& examination)
{
    if (NeedsVault(check.needs) && !examination.HasVault()) {
        return {};
    }
    const std::string name(check.name);
    if (NeedsComponents(check.needs) && !examination.machine.HasComponents()) {
        return {{Level::NotHere, name, "not on this system"}};
    }
    try {
        return check.examine(examination);
    } catch (const ResultError& error) {
        return {{Level::Problem, name, "couldn't be looked at: " + WordsOf(error)}};
    } catch (const std::exception& error) {
        return {{Level::Problem, name, "couldn't be looked at: " + std::string(error.what())}};
    }
}

void Examination::AddProgram(const std::string& path, int32_t year)
{
    const auto same = std::ranges::find_if(programs, [&](const Program& other) { return SameName(other.path, path); });
    if (same == programs.end()) {
        programs.push_back({path, year});
    } else if (same->year == 0) {
        same->year = year;
    }
}

std::string Examination::Tvtask(const std::string& command) const
{
    return "tvtask " + command +
           (context.vaultFolder == context.environment.defaultVault ? "" : " --vault " + InQuotes(context.vaultFolder));
}

std::string KeyText(const RegistryKey& key)
{
    return (key.root == RegistryRoot::User ? "HKCU\\" : "HKLM\\") + key.path;
}

std::vector<std::string> CopyCommands(const std::string& path)
{
    const std::string file = "\"%TEMP%\\torvane.reg\"";
    return {"reg export " + InQuotes(KeyText({RegistryRoot::Machine, path})) + " " + file + " /y /reg:32",
            "reg import " + file + " /reg:64"};
}

std::string InQuotes(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

std::string ProgramOfServer(HealthMachine& machine, const std::string& text)
{
    return ProgramOf(text, [&](const std::string& path) { return machine.FileExists(path); });
}

std::optional<Finding> FolderFinding(Examination& examination, const std::string& subject, const std::string& path)
{
    const FolderState state = examination.machine.TryFolder(path);
    for (const FolderRow& row : kFolderRows) {
        if (row.state == state) {
            const bool windows = examination.machine.HasComponents();
            const std::string_view command = windows ? row.command : row.commandElsewhere;
            Finding finding{Level::Problem, subject, InQuotes(path) + " " + std::string(row.found),
                            std::string(row.advice)};
            if (!command.empty()) {
                finding.commands.push_back(std::string(command) + " " + InQuotes(path) +
                                           std::string(windows ? row.behind : ""));
            }
            return finding;
        }
    }
    const auto room = examination.machine.FreeBytes(path);
    if (room && *room < kLittleRoom) {
        return Finding{*room < kTooLittleRoom ? Level::Problem : Level::Warning, subject,
                       "the disk of " + InQuotes(path) + " has " + SizeText(static_cast<int64_t>(*room)) + " left",
                       "Make room on that disk"};
    }
    return std::nullopt;
}

} // namespace tv::local
