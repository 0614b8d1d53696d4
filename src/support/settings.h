// SettingsLight: the product's standard registry keys, the one door to its settings.
#pragma once

#include "support/registry.h"

namespace tv {

inline constexpr std::u16string_view kSettingsPath = u"Software\\Torvane\\Applications\\Quellor";
inline constexpr std::u16string_view kPolicyPath = u"Software\\Policies\\Torvane\\Quellor";

/// Branches below the standard keys.
enum class StandardKey : uint32_t
{
    MachineDatabases = 0,
    UserVaults = 1,
    UserNamespace = 2,
    UserViewSetup = 3,
    UserPolicies = 4,
    MachinePolicies = 5
};

enum class MissingKey
{
    Fail,
    Create
};

/// Modes of OpenVaultKey, the low byte of its flags.
inline constexpr uint32_t kMachineSideOnly = 1;
inline constexpr uint32_t kUserSideOnly = 2;
inline constexpr uint32_t kMachineSideFirst = 4;
inline constexpr uint32_t kUserSideFirst = 8;
/// Access, the rest of the flags.
inline constexpr uint32_t kOpenForReading = 0x100;
inline constexpr uint32_t kOpenForWriting = 0x200;
inline constexpr uint32_t kOpen32BitView = 0x400;

/// Opens the product's keys when they are first asked for. Made where it is needed, and not shared between threads.
class SettingsLight
{
  public:
    explicit SettingsLight(RegistryService& service);
    virtual ~SettingsLight() = default;

    /// The current user's settings, for reading and writing, created when missing. Null when the key can't be had; a
    /// later call tries again.
    Registry* GetUserKey();
    /// The machine's settings for reading, never created; null when there are none, and a later call tries again.
    Registry* GetMachineKey();
    Registry* GetMachine32Key();
    Registry* GetMachine64Key();

    /// Opens a branch. Both the machine's and the user's settings must be there.
    bool OpenStandardKey(StandardKey kind, Registry& key, MissingKey missing, uint32_t flags);

    /// Opens the key of one vault, by the order of sides that the mode in `flags` states. With a value name a key
    /// counts only if it holds that value; with an empty one the first key that opens is the result.
    bool OpenVaultKey(std::u16string_view vaultName, Registry& key, std::u16string_view valueName, MissingKey missing,
                      uint32_t flags);

  private:
    Registry* OpenOnce(Registry& key, uint32_t access);
    bool OpenVaultSide(StandardKey side, std::u16string_view vaultName, Registry& key, std::u16string_view valueName,
                       MissingKey missing, uint32_t flags);

    Registry userKey;
    Registry machineKey;
    Registry machine32Key;
    Registry machine64Key;
};

} // namespace tv
