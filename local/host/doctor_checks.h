// What "tvtask doctor" looks at: a table of checks, each a function that gives its findings.
#pragma once

#include "host/health_machine.h"
#include "host/host_context.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tv::local {

enum class Level
{
    Ok,
    Warning,
    Problem,
    NotHere, ///< nothing of the kind can be on this system
};

/// One thing that was looked at.
struct Finding
{
    Level level = Level::Ok;
    std::string subject;
    /// What was found, a sentence without an end mark.
    std::string found;
    /// What to do about it; empty for what is in order.
    std::string advice = {};
    /// What to type for that, each as it stands.
    std::vector<std::string> commands = {};
};

using Findings = std::vector<Finding>;

/// What all checks work on, and what an earlier one leaves for a later one.
struct Examination
{
    HostContext& context;
    HealthMachine& machine;

    /// A program of the CAD application that is there, and the product year that its registration gives it; 0 for none.
    struct Program
    {
        std::string path;
        int32_t year = 0;
    };
    std::vector<Program> programs = {};

    HostEnvironment& Environment() const { return context.environment; }
    bool HasVault() const { return context.store != nullptr; }
    void AddProgram(const std::string& path, int32_t year);
    /// A command line of tvtask, which names the vault unless it is the one that tvtask takes by itself.
    std::string Tvtask(const std::string& command) const;
};

enum class Needs
{
    Nothing,
    Components, ///< a system with a registry, components and the CAD application
    Vault,      ///< an open vault
    Both,
};

struct CheckRow
{
    std::string_view name;
    std::string_view group;
    Needs needs = Needs::Nothing;
    Findings (*examine)(Examination& examination) = nullptr;
};

/// In the order in which they are carried out.
std::span<const CheckRow> DoctorChecks();

/// Carries out one check; what it raises is a problem of its own. A check that needs a vault gives nothing without one.
Findings CarryOut(const CheckRow& check, Examination& examination);

/// "HKLM\SOFTWARE\Torvane", as reg takes it.
std::string KeyText(const RegistryKey& key);

/// What copies a key of the machine with all below it from the 32-bit view into the one that programs look in.
std::vector<std::string> CopyCommands(const std::string& path);

/// Between double quotes, as both shells take it.
std::string InQuotes(std::string_view text);

// doctor_registration.cpp
Findings ExamineAddInClass(Examination& examination);
Findings ExamineAddInFile(Examination& examination);
Findings ExamineThreadingModel(Examination& examination);
Findings ExamineAddInStart(Examination& examination);
Findings ExamineApplicationClasses(Examination& examination);
Findings ExamineSetUps(Examination& examination);
Findings ExamineVersions(Examination& examination);
Findings ExamineApplicationStart(Examination& examination);

// doctor_settings.cpp
Findings ExamineSettingsKeys(Examination& examination);
Findings ExamineSettings(Examination& examination);
Findings ExamineVaultSettings(Examination& examination);
Findings ExamineStartUpAddIns(Examination& examination);

// doctor_services.cpp
Findings ExamineListener(Examination& examination);
Findings ExaminePrinters(Examination& examination);
Findings ExamineKernel(Examination& examination);
Findings ExamineTemporaryFolder(Examination& examination);
Findings ExamineStrayMacros(Examination& examination);
Findings ExamineStrayApplications(Examination& examination);

// doctor_vault.cpp
Findings ExamineVaultFolders(Examination& examination);
/// Opens the vault for the checks behind it.
Findings ExamineVault(Examination& examination);
Findings ExamineContents(Examination& examination);
Findings ExamineClaims(Examination& examination);
Findings ExamineCheckOuts(Examination& examination);

// doctor_tasks.cpp
Findings ExamineTaskMacros(Examination& examination);
Findings ExamineTaskVersions(Examination& examination);
Findings ExamineTaskPrinters(Examination& examination);
Findings ExamineTaskOutputs(Examination& examination);

/// The file of a command line or a registered server, without quotes and arguments.
std::string ProgramOfServer(HealthMachine& machine, const std::string& text);

/// What can be done about a folder, and how it was found; nothing for one that can be written and has room.
std::optional<Finding> FolderFinding(Examination& examination, const std::string& subject, const std::string& path);

} // namespace tv::local
