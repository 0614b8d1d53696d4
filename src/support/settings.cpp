#include "support/settings.h"

namespace tv {

namespace {

constexpr uint32_t kModeMask = 0xFF;

/// One branch: the root it hangs under and its path there.
struct Branch
{
    StandardKey kind;
    bool isMachine;
    std::u16string_view path;
    KeyHandle root; ///< kNoKey when the branch hangs under the product's own key
};

constexpr Branch kBranches[] = {
    {StandardKey::MachineDatabases, true, u"Databases", kNoKey},
    {StandardKey::UserVaults, false, u"Vaults", kNoKey},
    {StandardKey::UserNamespace, false, u"Namespace", kNoKey},
    {StandardKey::UserViewSetup, false, u"ViewSetup", kNoKey},
    {StandardKey::UserPolicies, false, kPolicyPath, kCurrentUserRoot},
    {StandardKey::MachinePolicies, true, kPolicyPath, kLocalMachineRoot},
};

uint32_t AccessOf(uint32_t flags, bool isMachine)
{
    uint32_t access = 0;
    if ((flags & kOpenForReading) != 0) {
        access |= kKeyRead;
    }
    if ((flags & kOpenForWriting) != 0) {
        access |= kKeyWrite;
    }
    if (isMachine && (flags & kOpen32BitView) != 0) {
        access |= kKeyView32;
    }
    return access;
}

bool OpenOrCreate(Registry& key, KeyHandle parent, std::u16string_view path, uint32_t access, MissingKey missing)
{
    const uint32_t result =
        missing == MissingKey::Create ? key.Create(parent, path, access) : key.Open(parent, path, access);
    return result == kErrorSuccess;
}

} // namespace

SettingsLight::SettingsLight(RegistryService& service)
    : userKey(service), machineKey(service), machine32Key(service), machine64Key(service)
{}

Registry* SettingsLight::GetUserKey()
{
    if (!userKey.IsOpen() && userKey.Create(kCurrentUserRoot, kSettingsPath, kKeyReadWrite) != kErrorSuccess) {
        return nullptr;
    }
    return &userKey;
}

Registry* SettingsLight::GetMachineKey()
{
    return OpenOnce(machineKey, kKeyRead);
}

Registry* SettingsLight::GetMachine32Key()
{
    return OpenOnce(machine32Key, kKeyRead | kKeyView32);
}

Registry* SettingsLight::GetMachine64Key()
{
    return OpenOnce(machine64Key, kKeyRead | kKeyView64);
}

Registry* SettingsLight::OpenOnce(Registry& key, uint32_t access)
{
    if (!key.IsOpen() && key.Open(kLocalMachineRoot, kSettingsPath, access) != kErrorSuccess) {
        return nullptr;
    }
    return &key;
}

bool SettingsLight::OpenStandardKey(StandardKey kind, Registry& key, MissingKey missing, uint32_t flags)
{
    Registry* machine = GetMachineKey();
    Registry* user = GetUserKey();
    if (machine == nullptr || user == nullptr) {
        return false;
    }
    for (const Branch& branch : kBranches) {
        if (branch.kind == kind) {
            const KeyHandle own = (branch.isMachine ? machine : user)->Key();
            const KeyHandle parent = branch.root != kNoKey ? branch.root : own;
            return OpenOrCreate(key, parent, branch.path, AccessOf(flags, branch.isMachine), missing);
        }
    }
    return false;
}

bool SettingsLight::OpenVaultKey(std::u16string_view vaultName, Registry& key, std::u16string_view valueName,
                                 MissingKey missing, uint32_t flags)
{
    if (vaultName.empty()) {
        return false;
    }
    const auto opens = [&](StandardKey side) { return OpenVaultSide(side, vaultName, key, valueName, missing, flags); };
    bool found = false;
    switch (flags & kModeMask) {
    case kMachineSideOnly:
        found = opens(StandardKey::MachineDatabases);
        break;
    case kUserSideOnly:
        found = opens(StandardKey::UserVaults);
        break;
    case kMachineSideFirst:
        found = opens(StandardKey::MachineDatabases) || opens(StandardKey::UserVaults);
        break;
    case kUserSideFirst:
        found = opens(StandardKey::UserVaults) || opens(StandardKey::MachineDatabases);
        break;
    default:
        break;
    }
    if (!found) {
        key.Close();
    }
    return found;
}

bool SettingsLight::OpenVaultSide(StandardKey side, std::u16string_view vaultName, Registry& key,
                                  std::u16string_view valueName, MissingKey missing, uint32_t flags)
{
    const bool isMachine = side == StandardKey::MachineDatabases;
    Registry* parent = isMachine ? GetMachineKey() : GetUserKey();
    if (parent == nullptr) {
        return false;
    }
    const std::u16string path = std::u16string(isMachine ? u"Databases\\" : u"Vaults\\").append(vaultName);
    return OpenOrCreate(key, parent->Key(), path, AccessOf(flags, isMachine), missing) &&
           (valueName.empty() || key.HasValue(valueName));
}

} // namespace tv
