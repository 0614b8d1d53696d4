#include "cad/installed_versions.h"

#include "com/guid.h"
#include "support/format.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/settings.h"

#include <algorithm>
#include <array>

namespace tv {

namespace {

constexpr uint32_t kTextCapacity = 260;
constexpr std::u16string_view kSetupKey = u"SOFTWARE\\Torvane\\Torvane %d\\Setup";
constexpr std::u16string_view kServerKey = u"SOFTWARE\\Classes\\CLSID\\%s\\LocalServer32";
constexpr std::u16string_view kProgIdKey = u"SOFTWARE\\Classes\\CLSID\\%s\\ProgID";
constexpr std::u16string_view kRunSwitch = u" /B";
constexpr std::u16string_view kRegressionSwitch = u" /R";

bool OpenSetup(Registry& key, int32_t requestedVersion, uint32_t access)
{
    return key.Open(kLocalMachineRoot, FormatText(kSetupKey, requestedVersion), access) == kErrorSuccess;
}

/// Reads a text whose type must be right; whether it ends in a zero doesn't matter.
std::u16string ReadUncheckedText(RegistryService& registry, KeyHandle key, std::u16string_view name)
{
    std::array<char16_t, kTextCapacity> buffer{};
    uint32_t type = 0;
    uint32_t size = sizeof(buffer);
    const uint32_t read = registry.QueryValue(key, name, type, reinterpret_cast<uint8_t*>(buffer.data()), size);
    if (read != kErrorSuccess || (type != kRegString && type != kRegExpandString)) {
        return {};
    }
    const std::u16string text(buffer.data(), std::min<size_t>(size / sizeof(char16_t), kTextCapacity));
    return text.substr(0, text.find(u'\0'));
}

std::u16string ReadDefaultText(RegistryService& registry, std::u16string_view keyPath)
{
    Registry key(registry);
    std::array<char16_t, kTextCapacity> buffer{};
    uint32_t size = kTextCapacity;
    if (key.Open(kLocalMachineRoot, keyPath, kKeyRead) != kErrorSuccess ||
        key.ReadStringInto(u"", buffer.data(), size) != kErrorSuccess || size == 0) {
        return {};
    }
    return std::u16string(buffer.data());
}

void TakeExecutableOfSetup(RegistryService& registry, StartCommand& command)
{
    command.source = StartSource::Setup64;
    std::u16string folder = GetInstallFolder(registry, command.requestedVersion, kReadView64);
    if (folder.empty()) {
        command.source = StartSource::Setup32;
        folder = GetInstallFolder(registry, command.requestedVersion, kReadView32);
    }
    if (!folder.empty()) {
        command.commandLine = WithoutTrailingBackslashes(folder) + u"\\TORVANE.EXE";
    }
}

/// The year of a versioned class name; a name with no number behind its last dot gives 1992.
void TakeYear(std::u16string_view progId, int32_t& requestedVersion)
{
    const size_t dot = progId.rfind(u'.');
    if (dot != std::u16string_view::npos && dot > 0) {
        requestedVersion = ParseDecimal(progId.substr(dot + 1)) + kYearOfRevisionZero;
    }
}

bool IsRegressionForcedBySetting(RegistryService& registry)
{
    SettingsLight settings(registry);
    Registry* user = settings.GetUserKey();
    if (user == nullptr) {
        return false;
    }
    Registry key(registry);
    uint32_t number = 0;
    return key.Create(user->Key(), u"TVTaskAddIn", kKeyReadWrite) == kErrorSuccess &&
           key.ReadNumberOfEitherOrder(u"ForceRegressionMode", number) == kErrorSuccess && number != 0;
}

bool IsOfficeInstalled(RegistryService& registry, int32_t requestedVersion)
{
    int32_t office = GetOfficeInstalled(registry, requestedVersion, kReadView64);
    if (office == -1) {
        office = GetOfficeInstalled(registry, requestedVersion, kReadView32);
    }
    return office > 0;
}

} // namespace

std::u16string GetInstallFolder(RegistryService& registry, int32_t requestedVersion, uint32_t access)
{
    Registry key(registry);
    if (!OpenSetup(key, requestedVersion, access)) {
        return {};
    }
    std::array<char16_t, kTextCapacity> buffer{};
    uint32_t size = kTextCapacity;
    if (key.ReadStringInto(u"Torvane Folder", buffer.data(), size) == kErrorSuccess) {
        return size == 0 ? std::u16string() : std::u16string(buffer.data());
    }
    return ReadUncheckedText(registry, key.Key(), u"Torvane Location");
}

int32_t GetOfficeInstalled(RegistryService& registry, int32_t requestedVersion, uint32_t access)
{
    Registry key(registry);
    uint32_t number = 0;
    if (!OpenSetup(key, requestedVersion, access) ||
        key.ReadNumber(u"Torvane Office Installed", number) != kErrorSuccess) {
        return -1;
    }
    return static_cast<int32_t>(number);
}

StartCommand GetCommandLine(RegistryService& registry, const GUID& classId, const StartCommand& before,
                            bool forceRegression)
{
    StartCommand command = before;
    command.commandLine.clear();
    if (command.requestedVersion != 0) {
        TakeExecutableOfSetup(registry, command);
    }
    if (command.commandLine.empty()) {
        const std::u16string id = GuidText(classId);
        command.source = StartSource::RegisteredServer;
        command.commandLine = ReadDefaultText(registry, FormatText(kServerKey, id));
        TakeYear(ReadDefaultText(registry, FormatText(kProgIdKey, id)), command.requestedVersion);
    }
    if (command.commandLine.empty()) {
        command.source = StartSource::None;
        return command;
    }
    const bool forced = IsRegressionForcedBySetting(registry) || forceRegression;
    command.regressionMode = forced || !IsOfficeInstalled(registry, command.requestedVersion);
    command.commandLine += command.regressionMode ? kRegressionSwitch : kRunSwitch;
    return command;
}

} // namespace tv
