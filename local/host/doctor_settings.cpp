// How the product's settings stand in the registry, and how the add-in reads them.
#include "host/doctor_checks.h"

#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

const std::string kSettings = "Software\\Torvane\\Applications\\Quellor";
const std::string kAddIn = kSettings + "\\TVTaskAddIn";

std::string_view TypeText(RegistryType type)
{
    switch (type) {
    case RegistryType::Text:
        return "REG_SZ";
    case RegistryType::ExpandableText:
        return "REG_EXPAND_SZ";
    case RegistryType::Number:
        return "REG_DWORD";
    case RegistryType::BigEndianNumber:
        return "REG_DWORD_BIG_ENDIAN";
    case RegistryType::Other:
        break;
    }
    return "of another type";
}

bool IsText(const RegistryValue& value)
{
    return value.type == RegistryType::Text || value.type == RegistryType::ExpandableText;
}

bool IsNumber(const RegistryValue& value)
{
    return value.type == RegistryType::Number || value.type == RegistryType::BigEndianNumber;
}

/// A number as the add-in takes it: of the other byte order it exchanges the halves and not the bytes.
uint32_t NumberAsRead(const RegistryValue& value)
{
    return value.type == RegistryType::BigEndianNumber ? (value.number << 16) | (value.number >> 16) : value.number;
}

std::string AddCommand(const RegistryKey& key, std::string_view name, std::string_view type, std::string_view data)
{
    return "reg add " + InQuotes(KeyText(key)) + (name.empty() ? " /ve" : " /v " + std::string(name)) + " /t " +
           std::string(type) + " /d " + std::string(data) + " /f";
}

/// A number of either byte order; `name` names it with what it does.
Finding ExamineNumber(const RegistryKey& key, std::string_view name, const RegistryValue& value,
                      const std::string& effect)
{
    const std::string subject(name);
    const std::string stored = std::to_string(value.number);
    if (!IsNumber(value)) {
        return {Level::Warning,
                subject,
                "is " + std::string(TypeText(value.type)) + " and no number, and is read as 0",
                "Store a number:",
                {AddCommand(key, name, "REG_DWORD", "0")}};
    }
    if (value.type == RegistryType::BigEndianNumber) {
        return {Level::Warning,
                subject,
                stored + " is REG_DWORD_BIG_ENDIAN, and is read as " + std::to_string(NumberAsRead(value)),
                "Store it as REG_DWORD:",
                {AddCommand(key, name, "REG_DWORD", stored)}};
    }
    return {Level::Ok, subject, stored + effect};
}

Finding ExamineCopyPath(Examination& examination, const RegistryKey& key, const RegistryValue& value)
{
    constexpr char kName[] = "ScriptCopyPath";
    if (!IsText(value)) {
        return {Level::Warning,
                kName,
                "is " + std::string(TypeText(value.type)) + " and no text, and isn't read",
                "Store the path of a file, or take it out:",
                {"reg delete " + InQuotes(KeyText(key)) + " /v " + kName + " /f"}};
    }
    const std::string path =
        value.type == RegistryType::ExpandableText ? examination.machine.Expand(value.text) : value.text;
    const std::string folder = path.substr(0, path.find_last_of("\\/"));
    if (!path.empty() && examination.machine.TryFolder(folder) != FolderState::Writable) {
        return {Level::Warning,
                kName,
                "macros can't be copied to " + InQuotes(path) + ", because nothing can be written into its folder",
                "Make the folder, or take the setting out:",
                {"mkdir " + InQuotes(folder), "reg delete " + InQuotes(KeyText(key)) + " /v " + kName + " /f"}};
    }
    return {Level::Ok, kName, path.empty() ? "empty" : "each macro is copied to " + InQuotes(path)};
}

struct SettingsKeyRow
{
    std::string_view words;
    RegistryRoot root;
    RegistryView view;
};

/// The keys that the add-in opens. The one without a view is the 64-bit one for a 64-bit program.
constexpr SettingsKeyRow kSettingsKeys[] = {
    {"the user's", RegistryRoot::User, RegistryView::Bits64},
    {"the machine's", RegistryRoot::Machine, RegistryView::Bits64},
    {"the machine's, 32-bit view", RegistryRoot::Machine, RegistryView::Bits32},
    {"the machine's, 64-bit view", RegistryRoot::Machine, RegistryView::Bits64},
};

struct VaultModeRow
{
    int mode;
    bool machineFirst;
    bool asksMachine;
    bool asksUser;
};

/// The orders in which the two sides of a vault's settings are asked.
constexpr VaultModeRow kVaultModes[] = {
    {1, true, true, false},
    {2, false, false, true},
    {4, true, true, true},
    {8, false, true, true},
};

std::string_view SideOf(const VaultModeRow& row, bool hasMachine, bool hasUser)
{
    const bool machine = hasMachine && row.asksMachine;
    const bool user = hasUser && row.asksUser;
    if (!machine && !user) {
        return "none";
    }
    return machine && (row.machineFirst || !user) ? "the machine's" : "the user's";
}

constexpr std::string_view kStartUpKeys[] = {
    "Software\\Torvane\\AddInsStartup",
    "Software\\Torvane\\Startup\\Applications",
};

std::optional<Finding> ExamineStartUpAddIn(const RegistryKey& key, const std::string& name, const RegistryValue& value)
{
    const std::string leaveIt = " Leave it if it was you who switched it off";
    const std::string crash = "; a run that ended by force may have left it so";
    if (value.type == RegistryType::Number && value.number == 0) {
        return Finding{Level::Warning,
                       name,
                       "is switched off (0)" + crash,
                       "Switch it on again." + leaveIt + ":",
                       {AddCommand(key, {}, "REG_DWORD", "1")}};
    }
    if (IsText(value) && value.text.empty()) {
        return Finding{Level::Warning, name, "is switched off (an empty text)" + crash,
                       "Switch it on in the application, or import a saved export of its key: the text that stood "
                       "there isn't kept." +
                           leaveIt};
    }
    return std::nullopt;
}

} // namespace

Findings ExamineSettingsKeys(Examination& examination)
{
    std::string found;
    for (const SettingsKeyRow& row : kSettingsKeys) {
        const bool there = examination.machine.HasKey({row.root, kSettings, row.view});
        found += (found.empty() ? "" : "; ") + std::string(row.words) + ": " + (there ? "there" : "none");
    }
    const bool in64 = examination.machine.HasKey({RegistryRoot::Machine, kSettings, RegistryView::Bits64});
    const bool in32 = examination.machine.HasKey({RegistryRoot::Machine, kSettings, RegistryView::Bits32});
    if (in32 && !in64) {
        return {{Level::Warning, "keys", found + ". Settings of the machine are looked for in the 64-bit view",
                 "Copy them there, as administrator:", CopyCommands(kSettings)}};
    }
    return {{Level::Ok, "keys", found}};
}

Findings ExamineSettings(Examination& examination)
{
    const RegistryKey key{RegistryRoot::User, kAddIn};
    Findings findings;
    if (const auto value = examination.machine.ReadValue(key, "ForceRegressionMode")) {
        findings.push_back(ExamineNumber(key, "ForceRegressionMode", *value,
                                         value->number != 0 ? ": the application is always started with /R" : ""));
    }
    if (const auto value = examination.machine.ReadValue(key, "ScriptCopyPath")) {
        findings.push_back(ExamineCopyPath(examination, key, *value));
    }
    if (findings.empty()) {
        return {{Level::Ok, "values", "none, so the defaults count"}};
    }
    return findings;
}

Findings ExamineVaultSettings(Examination& examination)
{
    const std::string vault = examination.context.store->Name();
    const RegistryKey machineSide{RegistryRoot::Machine, kSettings + "\\Databases\\" + vault};
    const RegistryKey userSide{RegistryRoot::User, kSettings + "\\Vaults\\" + vault};
    const bool hasMachine = examination.machine.HasKey(machineSide);
    const bool hasUser = examination.machine.HasKey(userSide);
    std::string found;
    for (const VaultModeRow& row : kVaultModes) {
        found += (found.empty() ? "opened by mode " : ", ") + std::to_string(row.mode) + ": " +
                 std::string(SideOf(row, hasMachine, hasUser));
    }
    Findings findings{{Level::Ok, "settings of " + InQuotes(vault), found}};
    if (const auto value = examination.machine.ReadValue(userSide, "DateFmt")) {
        findings.push_back(ExamineNumber(userSide, "DateFmt", *value, ": how dates in file names are written"));
    }
    return findings;
}

Findings ExamineStartUpAddIns(Examination& examination)
{
    Findings findings;
    size_t count = 0;
    for (const std::string_view parent : kStartUpKeys) {
        for (const std::string& name : examination.machine.SubKeys({RegistryRoot::User, std::string(parent)})) {
            const RegistryKey key{RegistryRoot::User, std::string(parent) + "\\" + name};
            const auto value = examination.machine.ReadValue(key, "");
            ++count;
            if (const auto finding = value ? ExamineStartUpAddIn(key, name, *value) : std::nullopt) {
                findings.push_back(*finding);
            }
        }
    }
    const std::string subject = "start-up add-ins";
    const auto running = examination.machine.Applications();
    const bool isRunning = std::ranges::any_of(running, &RunningProcess::hasParent);
    if (!findings.empty() && isRunning) {
        return {{Level::Ok, subject,
                 std::to_string(findings.size()) +
                     " switched off while the application is running for a task; look again when "
                     "it has ended"}};
    }
    if (findings.empty()) {
        return {{Level::Ok, subject, count == 0 ? "none" : std::to_string(count) + ", all switched on"}};
    }
    return findings;
}

} // namespace tv::local
