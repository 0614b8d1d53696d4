// The product's settings on the machine's own registry: the four standard keys, both views, and which side of a vault's
// settings counts.
#include "registry_place.h"
#include "vault_key_rows.h"

#include "platform/win32/registry.h"
#include "support/settings.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

const RegistryPlace kUser(HKEY_CURRENT_USER, L"Software\\Torvane\\Applications\\Quellor");
const RegistryPlace kMachine64(HKEY_LOCAL_MACHINE, L"Software\\Torvane\\Applications\\Quellor", KEY_WOW64_64KEY);
const RegistryPlace kMachine32(HKEY_LOCAL_MACHINE, L"Software\\Torvane\\Applications\\Quellor", KEY_WOW64_32KEY);
const RegistryPlace kUserPolicies(HKEY_CURRENT_USER, L"Software\\Policies\\Torvane\\Quellor");
const RegistryPlace kMachinePolicies(HKEY_LOCAL_MACHINE, L"Software\\Policies\\Torvane\\Quellor", KEY_WOW64_64KEY);

StoredValue Number(const wchar_t* name, BYTE number)
{
    return {name, REG_DWORD, {number, 0, 0, 0}};
}

class SettingsOnTheRegistry : public testing::Test
{
  protected:
    void SetUp() override
    {
        if (kMachine64.Make(L"") != ERROR_SUCCESS || kMachine32.Make(L"") != ERROR_SUCCESS) {
            GTEST_SKIP() << "this user may not write the machine's keys";
        }
        kMachine64.Delete();
        kMachine32.Delete();
    }

    /// A number of the key, 0 when it has none of that name.
    static uint32_t Mark(Registry& key, std::u16string_view name = u"Mark")
    {
        uint32_t number = 0;
        key.ReadNumber(name, number);
        return number;
    }

    BorrowedPlaces borrowed{{kUser, kMachine64, kMachine32, kUserPolicies, kMachinePolicies}};
    win32::Win32Registry registry;
    SettingsLight settings{registry};
    Registry key{registry};
};

TEST_F(SettingsOnTheRegistry, TheUsersKeyIsCreatedAndKeepsWhatIsWritten)
{
    Registry* user = settings.GetUserKey();
    ASSERT_NE(user, nullptr);
    EXPECT_EQ(user->WriteNumber(u"Mark", 7), 0u);
    EXPECT_TRUE(user->WriteString(u"Text", u"on"));
    const std::vector<std::string> expected = {
        "Quellor",
        "Quellor [Mark] type 4: 07 00 00 00",
        "Quellor [Text] type 1: 6f 00 6e 00 00 00",
    };
    EXPECT_EQ(kUser.Lines(), expected);
    SettingsLight later(registry);
    ASSERT_NE(later.GetUserKey(), nullptr);
    EXPECT_EQ(Mark(*later.GetUserKey()), 7u);
}

TEST_F(SettingsOnTheRegistry, TheMachinesKeysAreNotCreatedAndAreTriedAgain)
{
    EXPECT_EQ(settings.GetMachineKey(), nullptr);
    EXPECT_EQ(settings.GetMachine32Key(), nullptr);
    EXPECT_EQ(settings.GetMachine64Key(), nullptr);
    EXPECT_FALSE(kMachine64.Read());
    EXPECT_FALSE(kMachine32.Read());
    ASSERT_EQ(kMachine32.Put(L"", Number(L"Mark", 32)), ERROR_SUCCESS);
    EXPECT_EQ(settings.GetMachineKey(), nullptr);
    EXPECT_EQ(settings.GetMachine64Key(), nullptr);
    ASSERT_NE(settings.GetMachine32Key(), nullptr);
    ASSERT_EQ(kMachine64.Put(L"", Number(L"Mark", 64)), ERROR_SUCCESS);
    ASSERT_NE(settings.GetMachineKey(), nullptr);
    ASSERT_NE(settings.GetMachine64Key(), nullptr);
    EXPECT_EQ(Mark(*settings.GetMachineKey()), 64u);
    EXPECT_EQ(Mark(*settings.GetMachine64Key()), 64u);
    EXPECT_EQ(Mark(*settings.GetMachine32Key()), 32u);
}

TEST_F(SettingsOnTheRegistry, TheMachinesKeysCantBeWritten)
{
    ASSERT_EQ(kMachine64.Make(L""), ERROR_SUCCESS);
    ASSERT_EQ(kMachine32.Make(L""), ERROR_SUCCESS);
    for (Registry* machine : {settings.GetMachineKey(), settings.GetMachine32Key(), settings.GetMachine64Key()}) {
        ASSERT_NE(machine, nullptr);
        EXPECT_EQ(machine->WriteNumber(u"Mark", 1), 5u);
        EXPECT_FALSE(machine->WriteString(u"Text", u"x"));
    }
}

TEST_F(SettingsOnTheRegistry, EachKeyHoldsItsOwnValueOfTheSameName)
{
    ASSERT_EQ(kUser.Put(L"", {L"Location", REG_SZ, {'u', 0, 0, 0}}), ERROR_SUCCESS);
    ASSERT_EQ(kMachine64.Put(L"", {L"Location", REG_SZ, {'6', 0, 0, 0}}), ERROR_SUCCESS);
    ASSERT_EQ(kMachine32.Put(L"", {L"Location", REG_SZ, {'3', 0, 0, 0}}), ERROR_SUCCESS);
    std::u16string text;
    ASSERT_TRUE(settings.GetUserKey()->ReadString(u"Location", text));
    EXPECT_EQ(text, u"u");
    ASSERT_TRUE(settings.GetMachineKey()->ReadString(u"Location", text));
    EXPECT_EQ(text, u"6");
    ASSERT_TRUE(settings.GetMachine64Key()->ReadString(u"Location", text));
    EXPECT_EQ(text, u"6");
    ASSERT_TRUE(settings.GetMachine32Key()->ReadString(u"Location", text));
    EXPECT_EQ(text, u"3");
}

TEST_F(SettingsOnTheRegistry, EachBranchStandsInItsPlace)
{
    struct Row
    {
        uint32_t kind;
        RegistryPlace place;
        const wchar_t* subkey;
        BYTE mark;
    };
    const Row rows[] = {
        {0, kMachine64, L"Databases", 100}, {1, kUser, L"Vaults", 101},   {2, kUser, L"Namespace", 102},
        {3, kUser, L"ViewSetup", 103},      {4, kUserPolicies, L"", 104}, {5, kMachinePolicies, L"", 105},
    };
    ASSERT_EQ(kMachine64.Make(L""), ERROR_SUCCESS);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.kind);
        const auto kind = static_cast<StandardKey>(row.kind);
        EXPECT_FALSE(settings.OpenStandardKey(kind, key, MissingKey::Fail, 0x100));
        ASSERT_EQ(row.place.Put(row.subkey, Number(L"Mark", row.mark)), ERROR_SUCCESS);
        ASSERT_TRUE(settings.OpenStandardKey(kind, key, MissingKey::Fail, 0x100));
        EXPECT_EQ(Mark(key), row.mark);
        EXPECT_EQ(key.WriteNumber(u"Mark", 1), 5u);
    }
    EXPECT_FALSE(settings.OpenStandardKey(static_cast<StandardKey>(6), key, MissingKey::Create, 0x300));
}

TEST_F(SettingsOnTheRegistry, ABranchIsCreatedAndWrittenWhenAskedTo)
{
    ASSERT_EQ(kMachine64.Make(L""), ERROR_SUCCESS);
    ASSERT_TRUE(settings.OpenStandardKey(StandardKey::UserNamespace, key, MissingKey::Create, 0x300));
    EXPECT_EQ(key.WriteNumber(u"Mark", 3), 0u);
    const std::vector<std::string> expected = {
        "Quellor",
        "Quellor\\Namespace",
        "Quellor\\Namespace [Mark] type 4: 03 00 00 00",
    };
    EXPECT_EQ(kUser.Lines(), expected);
}

TEST_F(SettingsOnTheRegistry, ABranchNeedsTheMachinesKeyAndTheUsers)
{
    ASSERT_EQ(kUser.Make(L"Vaults"), ERROR_SUCCESS);
    EXPECT_FALSE(settings.OpenStandardKey(StandardKey::UserVaults, key, MissingKey::Fail, 0x100));
    ASSERT_EQ(kMachine32.Make(L""), ERROR_SUCCESS);
    EXPECT_FALSE(settings.OpenStandardKey(StandardKey::UserVaults, key, MissingKey::Fail, 0x100));
    ASSERT_EQ(kMachine64.Make(L""), ERROR_SUCCESS);
    EXPECT_TRUE(settings.OpenStandardKey(StandardKey::UserVaults, key, MissingKey::Fail, 0x100));
    kUser.Deny(L"", KEY_SET_VALUE);
    SettingsLight fresh(registry);
    EXPECT_FALSE(fresh.OpenStandardKey(StandardKey::UserVaults, key, MissingKey::Fail, 0x100));
    kUser.Deny(L"", 0);
    EXPECT_TRUE(fresh.OpenStandardKey(StandardKey::UserVaults, key, MissingKey::Fail, 0x100));
}

TEST_F(SettingsOnTheRegistry, EveryModeHasItsOrderOfSides)
{
    for (const VaultKeyRow& row : kVaultKeyRows) {
        SCOPED_TRACE(TextOf(row));
        kMachine64.Delete(L"Databases");
        kUser.Delete(L"Vaults");
        ASSERT_EQ(kMachine64.Make(L""), ERROR_SUCCESS);
        if (row.machineSide != VaultKeySide::Missing) {
            const StoredValue value = Number(row.machineSide == VaultKeySide::WithValue ? L"DateFmt" : L"Other", 1);
            ASSERT_EQ(kMachine64.Put(L"Databases\\Design", value), ERROR_SUCCESS);
        }
        if (row.userSide != VaultKeySide::Missing) {
            const StoredValue value = Number(row.userSide == VaultKeySide::WithValue ? L"DateFmt" : L"Other", 2);
            ASSERT_EQ(kUser.Put(L"Vaults\\Design", value), ERROR_SUCCESS);
        }
        EXPECT_EQ(settings.OpenVaultKey(u"Design", key, u"DateFmt", MissingKey::Fail, row.mode | 0x100),
                  row.found != 0);
        EXPECT_EQ(key.IsOpen(), row.found != 0);
        EXPECT_EQ(Mark(key, u"DateFmt"), row.found);
    }
}

TEST_F(SettingsOnTheRegistry, TheMachineSideIsThatOfTheViewOf64Bits)
{
    ASSERT_EQ(kMachine64.Put(L"Databases\\Design", Number(L"Mark", 64)), ERROR_SUCCESS);
    ASSERT_EQ(kMachine32.Put(L"Databases\\Design", Number(L"Mark", 32)), ERROR_SUCCESS);
    ASSERT_EQ(kMachine32.Put(L"Databases\\Old", Number(L"Mark", 32)), ERROR_SUCCESS);
    ASSERT_TRUE(settings.OpenVaultKey(u"Design", key, u"Mark", MissingKey::Fail, 0x101));
    EXPECT_EQ(Mark(key), 64u);
    EXPECT_FALSE(settings.OpenVaultKey(u"Old", key, u"Mark", MissingKey::Fail, 0x101));
}

TEST_F(SettingsOnTheRegistry, WithoutAValueNameTheFirstKeyThatOpensIsTheResult)
{
    ASSERT_EQ(kMachine64.Put(L"Databases\\Design", Number(L"Mark", 1)), ERROR_SUCCESS);
    ASSERT_EQ(kUser.Put(L"Vaults\\Design", Number(L"Mark", 2)), ERROR_SUCCESS);
    ASSERT_TRUE(settings.OpenVaultKey(u"Design", key, u"", MissingKey::Fail, 0x104));
    EXPECT_EQ(Mark(key), 1u);
    ASSERT_TRUE(settings.OpenVaultKey(u"Design", key, u"", MissingKey::Fail, 0x108));
    EXPECT_EQ(Mark(key), 2u);
    kMachine64.Delete(L"Databases\\Design");
    ASSERT_TRUE(settings.OpenVaultKey(u"Design", key, u"", MissingKey::Fail, 0x104));
    EXPECT_EQ(Mark(key), 2u);
    kUser.Delete(L"Vaults\\Design");
    EXPECT_FALSE(settings.OpenVaultKey(u"Design", key, u"", MissingKey::Fail, 0x104));
    EXPECT_FALSE(key.IsOpen());
}

TEST_F(SettingsOnTheRegistry, TheUserSideIsReadAndWrittenWithFlags770)
{
    EXPECT_FALSE(settings.OpenVaultKey(u"Design", key, u"", MissingKey::Fail, 770));
    EXPECT_EQ(kUser.Lines(), std::vector<std::string>{"Quellor"});
    ASSERT_TRUE(settings.OpenVaultKey(u"Design", key, u"", MissingKey::Create, 770));
    EXPECT_EQ(key.WriteNumber(u"DateFmt", 104), 0u);
    EXPECT_EQ(Mark(key, u"DateFmt"), 104u);
    EXPECT_FALSE(settings.OpenVaultKey(u"", key, u"", MissingKey::Create, 770));
    const std::vector<std::string> expected = {
        "Quellor",
        "Quellor\\Vaults",
        "Quellor\\Vaults\\Design",
        "Quellor\\Vaults\\Design [DateFmt] type 4: 68 00 00 00",
    };
    EXPECT_EQ(kUser.Lines(), expected);
}

TEST_F(SettingsOnTheRegistry, AValueIsReadAsItsTypeAndSizeAllow)
{
    struct Row
    {
        const char* what;
        StoredValue value;
        bool isText;
        std::u16string_view text;
    };
    SetEnvironmentVariableW(L"TV_SETTINGS_TEST", L"C:\\Place");
    const std::vector<BYTE> reference = {'%', 0, 'T', 0, 'V', 0, '_', 0, 'S', 0, 'E', 0, 'T', 0, 'T', 0, 'I', 0, 'N', 0,
                                         'G', 0, 'S', 0, '_', 0, 'T', 0, 'E', 0, 'S', 0, 'T', 0, '%', 0, 0,   0};
    const Row rows[] = {
        {"a text", {L"V", REG_SZ, {'o', 0, 'n', 0, 0, 0}}, true, u"on"},
        {"a text without a terminator", {L"V", REG_SZ, {'o', 0, 'n', 0}}, true, u"on"},
        {"a text of an odd size", {L"V", REG_SZ, {'o', 0, 'n', 0, 0}}, true, u"on"},
        {"a text of one byte", {L"V", REG_SZ, {'x'}}, true, u"x"},
        {"a text of no bytes", {L"V", REG_SZ, {}}, true, u""},
        {"an empty text", {L"V", REG_SZ, {0, 0}}, true, u""},
        {"a plain text with a reference", {L"V", REG_SZ, reference}, true, u"%TV_SETTINGS_TEST%"},
        {"an expandable text", {L"V", REG_EXPAND_SZ, reference}, true, u"C:\\Place"},
        {"a number", {L"V", REG_DWORD, {1, 0, 0, 0}}, false, u"old"},
        {"bytes", {L"V", REG_BINARY, {'o', 0, 0, 0}}, false, u"old"},
        {"a list of texts", {L"V", REG_MULTI_SZ, {'o', 0, 0, 0, 0, 0}}, false, u"old"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ASSERT_EQ(kUser.Put(L"", row.value), ERROR_SUCCESS);
        std::u16string text = u"old";
        EXPECT_EQ(settings.GetUserKey()->ReadString(u"V", text), row.isText);
        EXPECT_EQ(text, row.text);
    }
    SetEnvironmentVariableW(L"TV_SETTINGS_TEST", nullptr);
}

TEST_F(SettingsOnTheRegistry, ANumberIsReadInEitherOrderWhereThatIsAskedFor)
{
    struct Row
    {
        const char* what;
        StoredValue value;
        uint32_t result;
        uint32_t number;
        uint32_t plainResult; ///< of a reader that takes the one order alone
    };
    const Row rows[] = {
        {"a number", {L"V", REG_DWORD, {0x78, 0x56, 0x34, 0x12}}, 0, 0x12345678, 0},
        {"a big-endian number", {L"V", REG_DWORD_BIG_ENDIAN, {0x78, 0x56, 0x34, 0x12}}, 0, 0x56781234, 13},
        {"a number of two bytes", {L"V", REG_DWORD, {1, 0}}, 13, 9, 13},
        {"a number of eight bytes", {L"V", REG_QWORD, {1, 0, 0, 0, 0, 0, 0, 0}}, 13, 9, 13},
        {"four bytes", {L"V", REG_BINARY, {1, 0, 0, 0}}, 13, 9, 13},
        {"a text", {L"V", REG_SZ, {'1', 0, 0, 0}}, 13, 9, 13},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ASSERT_EQ(kUser.Put(L"", row.value), ERROR_SUCCESS);
        uint32_t number = 9;
        EXPECT_EQ(settings.GetUserKey()->ReadNumberOfEitherOrder(u"V", number), row.result);
        EXPECT_EQ(number, row.number);
        EXPECT_EQ(settings.GetUserKey()->ReadNumber(u"V", number), row.plainResult);
    }
}

TEST_F(SettingsOnTheRegistry, ATransactionThatTheSystemDoesNotKnowOpensNothing)
{
    ASSERT_EQ(kUser.Make(L""), ERROR_SUCCESS);
    EXPECT_NE(key.Open(kCurrentUserRoot, kSettingsPath, kKeyRead, 0x12344), 0u);
    EXPECT_FALSE(key.IsOpen());
    EXPECT_EQ(key.Open(kCurrentUserRoot, kSettingsPath, kKeyRead, kNoTransaction), 0u);
    EXPECT_TRUE(key.IsOpen());
}

} // namespace
} // namespace tv
