#include "support/settings.h"

#include "vault_key_rows.h"

#include "fakes/platform/fake_platform.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

constexpr std::u16string_view kProduct = u"Software\\Torvane\\Applications\\Quellor";

std::u16string Below(std::u16string_view path)
{
    return std::u16string(kProduct).append(u"\\").append(path);
}

class SettingsTest : public testing::Test
{
  protected:
    bool OpenVault(uint32_t mode, std::u16string_view valueName = u"DateFmt")
    {
        return settings.OpenVaultKey(u"Design", key, valueName, MissingKey::Fail, mode | kOpenForReading);
    }

    uint32_t Value()
    {
        uint32_t number = 0;
        key.ReadNumber(u"DateFmt", number);
        return number;
    }

    void PutMachine(std::u16string_view name, uint32_t number)
    {
        machine.registry.PutNumber(kLocalMachineRoot, Below(u"Databases\\Design"), name, number);
    }

    void PutUser(std::u16string_view name, uint32_t number)
    {
        machine.registry.PutNumber(kCurrentUserRoot, Below(u"Vaults\\Design"), name, number);
    }

    fakes::FakePlatform machine;
    SettingsLight settings{machine.registry};
    Registry key{machine.registry};
};

TEST_F(SettingsTest, TheUsersKeyIsCreatedWhenItIsMissing)
{
    Registry* user = settings.GetUserKey();
    ASSERT_NE(user, nullptr);
    EXPECT_TRUE(machine.registry.KeyExists(kCurrentUserRoot, kProduct));
    EXPECT_EQ(user->WriteNumber(u"n", 1), 0u);
    uint32_t number = 0;
    EXPECT_EQ(user->ReadNumber(u"n", number), 0u);
}

TEST_F(SettingsTest, TheMachinesKeyIsNeverCreated)
{
    EXPECT_EQ(settings.GetMachineKey(), nullptr);
    EXPECT_EQ(settings.GetMachine32Key(), nullptr);
    EXPECT_EQ(settings.GetMachine64Key(), nullptr);
    EXPECT_FALSE(machine.registry.KeyExists(kLocalMachineRoot, kProduct, kKeyView64));
    EXPECT_FALSE(machine.registry.KeyExists(kLocalMachineRoot, kProduct, kKeyView32));
}

TEST_F(SettingsTest, AKeyThatWasMissingIsTriedAgain)
{
    EXPECT_EQ(settings.GetMachineKey(), nullptr);
    machine.registry.AddKey(kLocalMachineRoot, kProduct);
    EXPECT_NE(settings.GetMachineKey(), nullptr);
}

TEST_F(SettingsTest, AKeyIsOpenedOnce)
{
    Registry* first = settings.GetUserKey();
    EXPECT_EQ(settings.GetUserKey(), first);
    EXPECT_EQ(machine.log.CountOf("registry.CreateKey"), 1u);
}

TEST_F(SettingsTest, EachKeyIsOpenedWithItsOwnAccess)
{
    machine.registry.AddKey(kLocalMachineRoot, kProduct, kKeyView32);
    machine.registry.AddKey(kLocalMachineRoot, kProduct, kKeyView64);
    settings.GetUserKey();
    settings.GetMachineKey();
    settings.GetMachine32Key();
    settings.GetMachine64Key();
    EXPECT_EQ(machine.registry.AccessMasks(), (std::vector<uint32_t>{0x2001F, 0x20019, 0x20219, 0x20119}));
}

TEST_F(SettingsTest, TheViewsHoldTheirOwnValues)
{
    machine.registry.PutText(kLocalMachineRoot, kProduct, u"Location", u"C:\\64", kKeyView64);
    machine.registry.PutText(kLocalMachineRoot, kProduct, u"Location", u"C:\\32", kKeyView32);
    std::u16string text;
    ASSERT_TRUE(settings.GetMachine64Key()->ReadString(u"Location", text));
    EXPECT_EQ(text, u"C:\\64");
    ASSERT_TRUE(settings.GetMachine32Key()->ReadString(u"Location", text));
    EXPECT_EQ(text, u"C:\\32");
}

TEST_F(SettingsTest, AllKeysAreClosedInTheEnd)
{
    {
        SettingsLight other(machine.registry);
        other.GetUserKey();
        EXPECT_EQ(machine.registry.OpenCount(), 1u);
    }
    EXPECT_EQ(machine.registry.OpenCount(), 0u);
}

struct BranchRow
{
    StandardKey kind;
    KeyHandle root;
    std::u16string_view path;
};

const BranchRow kExpectedBranches[] = {
    {static_cast<StandardKey>(0), kLocalMachineRoot, u"Software\\Torvane\\Applications\\Quellor\\Databases"},
    {static_cast<StandardKey>(1), kCurrentUserRoot, u"Software\\Torvane\\Applications\\Quellor\\Vaults"},
    {static_cast<StandardKey>(2), kCurrentUserRoot, u"Software\\Torvane\\Applications\\Quellor\\Namespace"},
    {static_cast<StandardKey>(3), kCurrentUserRoot, u"Software\\Torvane\\Applications\\Quellor\\ViewSetup"},
    {static_cast<StandardKey>(4), kCurrentUserRoot, u"Software\\Policies\\Torvane\\Quellor"},
    {static_cast<StandardKey>(5), kLocalMachineRoot, u"Software\\Policies\\Torvane\\Quellor"},
};

TEST_F(SettingsTest, EachBranchStandsInItsPlace)
{
    machine.registry.AddKey(kLocalMachineRoot, kProduct);
    uint32_t mark = 100;
    for (const BranchRow& row : kExpectedBranches) {
        EXPECT_FALSE(settings.OpenStandardKey(row.kind, key, MissingKey::Fail, kOpenForReading));
        machine.registry.PutNumber(row.root, row.path, u"mark", ++mark);
        ASSERT_TRUE(settings.OpenStandardKey(row.kind, key, MissingKey::Fail, kOpenForReading));
        uint32_t number = 0;
        EXPECT_EQ(key.ReadNumber(u"mark", number), 0u);
        EXPECT_EQ(number, mark);
    }
}

TEST_F(SettingsTest, AnUnknownBranchFails)
{
    machine.registry.AddKey(kLocalMachineRoot, kProduct);
    EXPECT_FALSE(settings.OpenStandardKey(static_cast<StandardKey>(6), key, MissingKey::Create, kOpenForReading));
    EXPECT_FALSE(settings.OpenStandardKey(static_cast<StandardKey>(255), key, MissingKey::Create, kOpenForReading));
}

TEST_F(SettingsTest, ABranchNeedsBothTheMachinesAndTheUsersKey)
{
    machine.registry.AddKey(kCurrentUserRoot, Below(u"Vaults"));
    EXPECT_FALSE(settings.OpenStandardKey(StandardKey::UserVaults, key, MissingKey::Fail, kOpenForReading));
    machine.registry.AddKey(kLocalMachineRoot, kProduct);
    machine.registry.Deny(kCurrentUserRoot, kProduct);
    SettingsLight fresh(machine.registry);
    EXPECT_FALSE(fresh.OpenStandardKey(StandardKey::UserVaults, key, MissingKey::Fail, kOpenForReading));
    machine.registry.Allow(kCurrentUserRoot, kProduct);
    EXPECT_TRUE(fresh.OpenStandardKey(StandardKey::UserVaults, key, MissingKey::Fail, kOpenForReading));
}

TEST_F(SettingsTest, ABranchIsCreatedWhenAskedTo)
{
    machine.registry.AddKey(kLocalMachineRoot, kProduct);
    EXPECT_TRUE(settings.OpenStandardKey(StandardKey::UserNamespace, key, MissingKey::Create,
                                         kOpenForReading | kOpenForWriting));
    EXPECT_TRUE(machine.registry.KeyExists(kCurrentUserRoot, Below(u"Namespace")));
}

TEST_F(SettingsTest, TheFlagsBecomeAccess)
{
    machine.registry.AddKey(kLocalMachineRoot, Below(u"Databases"));
    settings.GetMachineKey();
    settings.GetUserKey();
    const size_t before = machine.registry.AccessMasks().size();
    settings.OpenStandardKey(StandardKey::MachineDatabases, key, MissingKey::Fail, 0x100);
    settings.OpenStandardKey(StandardKey::MachineDatabases, key, MissingKey::Fail, 0x200);
    settings.OpenStandardKey(StandardKey::MachineDatabases, key, MissingKey::Fail, 0x300);
    settings.OpenStandardKey(StandardKey::MachineDatabases, key, MissingKey::Fail, 0x500);
    settings.OpenStandardKey(StandardKey::UserVaults, key, MissingKey::Fail, 0x500);
    const std::vector<uint32_t>& masks = machine.registry.AccessMasks();
    EXPECT_EQ(std::vector<uint32_t>(masks.begin() + static_cast<ptrdiff_t>(before), masks.end()),
              (std::vector<uint32_t>{0x20019, 0x20006, 0x2001F, 0x20219, 0x20019}));
}

TEST_F(SettingsTest, AVaultWithoutANameFails)
{
    PutUser(u"DateFmt", 1);
    EXPECT_FALSE(settings.OpenVaultKey(u"", key, u"", MissingKey::Create, kUserSideOnly | kOpenForReading));
    EXPECT_FALSE(settings.OpenVaultKey({}, key, u"", MissingKey::Create, kUserSideOnly | kOpenForReading));
}

TEST_F(SettingsTest, Mode1LooksAtTheMachineSideAlone)
{
    PutUser(u"DateFmt", 2);
    EXPECT_FALSE(OpenVault(1));
    PutMachine(u"DateFmt", 1);
    EXPECT_TRUE(OpenVault(1));
    EXPECT_EQ(Value(), 1u);
}

TEST_F(SettingsTest, Mode2LooksAtTheUserSideAlone)
{
    PutMachine(u"DateFmt", 1);
    EXPECT_FALSE(OpenVault(2));
    PutUser(u"DateFmt", 2);
    EXPECT_TRUE(OpenVault(2));
    EXPECT_EQ(Value(), 2u);
}

TEST_F(SettingsTest, Mode4PrefersTheMachineSide)
{
    PutMachine(u"DateFmt", 1);
    PutUser(u"DateFmt", 2);
    EXPECT_TRUE(OpenVault(4));
    EXPECT_EQ(Value(), 1u);
}

TEST_F(SettingsTest, Mode4FallsToTheUserSideWhenTheMachinesKeyLacksTheValue)
{
    PutMachine(u"Other", 1);
    PutUser(u"DateFmt", 2);
    EXPECT_TRUE(OpenVault(4));
    EXPECT_EQ(Value(), 2u);
}

TEST_F(SettingsTest, Mode8PrefersTheUserSide)
{
    PutMachine(u"DateFmt", 1);
    PutUser(u"DateFmt", 2);
    EXPECT_TRUE(OpenVault(8));
    EXPECT_EQ(Value(), 2u);
}

TEST_F(SettingsTest, Mode8FallsToTheMachineSideWhenTheUsersKeyLacksTheValue)
{
    PutMachine(u"DateFmt", 1);
    PutUser(u"Other", 2);
    EXPECT_TRUE(OpenVault(8));
    EXPECT_EQ(Value(), 1u);
}

TEST_F(SettingsTest, WithoutAValueNameTheFirstKeyThatOpensIsTheResult)
{
    PutMachine(u"Other", 1);
    PutUser(u"DateFmt", 2);
    ASSERT_TRUE(OpenVault(4, u""));
    EXPECT_TRUE(key.HasValue(u"Other"));
    ASSERT_TRUE(OpenVault(8, u""));
    EXPECT_TRUE(key.HasValue(u"DateFmt"));
    machine.registry.DeleteKey(kLocalMachineRoot, Below(u"Databases\\Design"));
    ASSERT_TRUE(OpenVault(4, u""));
    EXPECT_TRUE(key.HasValue(u"DateFmt"));
}

TEST_F(SettingsTest, AKeyThatDoesNotCountIsNotLeftOpen)
{
    PutMachine(u"Other", 1);
    PutUser(u"Other", 2);
    EXPECT_FALSE(OpenVault(4));
    EXPECT_FALSE(key.IsOpen());
}

TEST_F(SettingsTest, OtherModesFail)
{
    PutMachine(u"DateFmt", 1);
    PutUser(u"DateFmt", 2);
    for (const uint32_t mode : {0u, 3u, 5u, 6u, 7u, 9u, 10u, 12u, 16u, 32u, 64u, 128u, 255u}) {
        EXPECT_FALSE(OpenVault(mode)) << mode;
    }
}

TEST_F(SettingsTest, TheUserSideNeedsNoMachineSettings)
{
    PutUser(u"DateFmt", 103);
    ASSERT_TRUE(settings.OpenVaultKey(u"Design", key, u"", MissingKey::Fail, 770));
    EXPECT_EQ(Value(), 103u);
    EXPECT_EQ(key.WriteNumber(u"DateFmt", 104), 0u);
}

TEST_F(SettingsTest, AVaultsKeyIsCreatedWhenAskedTo)
{
    EXPECT_FALSE(settings.OpenVaultKey(u"Design", key, u"", MissingKey::Fail, 770));
    EXPECT_FALSE(machine.registry.KeyExists(kCurrentUserRoot, Below(u"Vaults\\Design")));
    EXPECT_TRUE(settings.OpenVaultKey(u"Design", key, u"", MissingKey::Create, 770));
    EXPECT_TRUE(machine.registry.KeyExists(kCurrentUserRoot, Below(u"Vaults\\Design")));
}

TEST_F(SettingsTest, EveryModeHasItsOrderOfSides)
{
    for (const VaultKeyRow& row : kVaultKeyRows) {
        SCOPED_TRACE(TextOf(row));
        fakes::FakePlatform other;
        other.registry.AddKey(kLocalMachineRoot, kProduct);
        const std::u16string machinePath = Below(u"Databases\\Design");
        const std::u16string userPath = Below(u"Vaults\\Design");
        if (row.machineSide != VaultKeySide::Missing) {
            other.registry.PutNumber(kLocalMachineRoot, machinePath,
                                     row.machineSide == VaultKeySide::WithValue ? u"V" : u"W", 1);
        }
        if (row.userSide != VaultKeySide::Missing) {
            other.registry.PutNumber(kCurrentUserRoot, userPath, row.userSide == VaultKeySide::WithValue ? u"V" : u"W",
                                     2);
        }
        SettingsLight ours(other.registry);
        Registry vault(other.registry);
        EXPECT_EQ(ours.OpenVaultKey(u"Design", vault, u"V", MissingKey::Fail, row.mode | 0x100), row.found != 0);
        uint32_t number = 0;
        vault.ReadNumber(u"V", number);
        EXPECT_EQ(number, row.found);
        EXPECT_EQ(vault.IsOpen(), row.found != 0);
    }
}

TEST_F(SettingsTest, ASideThatIsLeftOutIsNotEvenOpened)
{
    PutMachine(u"DateFmt", 1);
    PutUser(u"DateFmt", 2);
    OpenVault(1);
    EXPECT_EQ(machine.log.CountOf("registry.CreateKey"), 0u);
    machine.log.Clear();
    OpenVault(2);
    EXPECT_EQ(machine.log.SubjectsOf("registry.OpenKey"), std::vector<std::u16string>{u"Vaults\\Design"});
}

TEST_F(SettingsTest, TheMachinesPoliciesAreOpenedInThe32BitViewWhenAskedTo)
{
    machine.registry.AddKey(kLocalMachineRoot, kProduct);
    machine.registry.PutNumber(kLocalMachineRoot, u"Software\\Policies\\Torvane\\Quellor", u"v", 32, kKeyView32);
    machine.registry.PutNumber(kLocalMachineRoot, u"Software\\Policies\\Torvane\\Quellor", u"v", 64);
    uint32_t number = 0;
    ASSERT_TRUE(settings.OpenStandardKey(StandardKey::MachinePolicies, key, MissingKey::Fail, 0x500));
    key.ReadNumber(u"v", number);
    EXPECT_EQ(number, 32u);
    ASSERT_TRUE(settings.OpenStandardKey(StandardKey::MachinePolicies, key, MissingKey::Fail, 0x100));
    key.ReadNumber(u"v", number);
    EXPECT_EQ(number, 64u);
}

TEST_F(SettingsTest, AVaultsKeyOfTheMachineIsOpenedWithTheAccessOfTheFlags)
{
    PutMachine(u"DateFmt", 1);
    settings.GetMachineKey();
    const size_t before = machine.registry.AccessMasks().size();
    for (const uint32_t flags : {0x101u, 0x201u, 0x301u, 0x501u}) {
        settings.OpenVaultKey(u"Design", key, u"", MissingKey::Fail, flags);
    }
    const std::vector<uint32_t>& masks = machine.registry.AccessMasks();
    EXPECT_EQ(std::vector<uint32_t>(masks.begin() + static_cast<ptrdiff_t>(before), masks.end()),
              (std::vector<uint32_t>{0x20019, 0x20006, 0x2001F, 0x20219}));
}

TEST_F(SettingsTest, AUsersKeyThatCannotBeHadIsTriedAgain)
{
    machine.registry.Deny(kCurrentUserRoot, kProduct);
    EXPECT_EQ(settings.GetUserKey(), nullptr);
    machine.registry.Allow(kCurrentUserRoot, kProduct);
    EXPECT_NE(settings.GetUserKey(), nullptr);
}

TEST_F(SettingsTest, EachBranchIsCreatedWhereItStands)
{
    for (const BranchRow& row : kExpectedBranches) {
        fakes::FakePlatform other;
        other.registry.AddKey(kLocalMachineRoot, kProduct);
        SettingsLight ours(other.registry);
        Registry branch(other.registry);
        EXPECT_TRUE(ours.OpenStandardKey(row.kind, branch, MissingKey::Create, kOpenForReading));
        for (const BranchRow& any : kExpectedBranches) {
            EXPECT_EQ(other.registry.KeyExists(any.root, any.path), any.kind == row.kind)
                << static_cast<uint32_t>(row.kind) << ' ' << static_cast<uint32_t>(any.kind);
        }
    }
}

TEST_F(SettingsTest, EachSetOfFlagsHasItsAccessOnEachSide)
{
    struct Row
    {
        uint32_t flags;
        uint32_t machineAccess;
        uint32_t userAccess;
    };
    const Row rows[] = {
        {0x000, 0x00000, 0x00000}, {0x100, 0x20019, 0x20019}, {0x200, 0x20006, 0x20006}, {0x300, 0x2001F, 0x2001F},
        {0x400, 0x00200, 0x00000}, {0x500, 0x20219, 0x20019}, {0x600, 0x20206, 0x20006}, {0x700, 0x2021F, 0x2001F},
        {0x800, 0x00000, 0x00000}, {0x1ff, 0x20019, 0x20019},
    };
    machine.registry.AddKey(kLocalMachineRoot, Below(u"Databases"));
    machine.registry.AddKey(kCurrentUserRoot, Below(u"Vaults"));
    for (const Row& row : rows) {
        settings.OpenStandardKey(StandardKey::MachineDatabases, key, MissingKey::Fail, row.flags);
        EXPECT_EQ(machine.registry.AccessMasks().back(), row.machineAccess) << row.flags;
        settings.OpenStandardKey(StandardKey::UserVaults, key, MissingKey::Fail, row.flags);
        EXPECT_EQ(machine.registry.AccessMasks().back(), row.userAccess) << row.flags;
    }
}

TEST_F(SettingsTest, AVaultsKeyOfTheUserIsOpenedWithTheAccessOfTheFlagsAndInNoView)
{
    PutUser(u"DateFmt", 2);
    for (const auto& [flags, access] : {std::pair{0x102u, 0x20019u},
                                        {0x202u, 0x20006u},
                                        {0x302u, 0x2001Fu},
                                        {0x502u, 0x20019u},
                                        {0x702u, 0x2001Fu}}) {
        EXPECT_TRUE(settings.OpenVaultKey(u"Design", key, u"", MissingKey::Fail, flags));
        EXPECT_EQ(machine.registry.AccessMasks().back(), access) << flags;
    }
}

TEST_F(SettingsTest, WithoutAValueNameEveryModeTakesTheFirstKeyThatOpens)
{
    struct Row
    {
        uint32_t mode;
        bool hasMachine;
        bool hasUser;
        uint32_t found; ///< 1 the machine's key, 2 the user's, 0 none
    };
    const Row rows[] = {
        {1, false, false, 0}, {1, false, true, 0}, {1, true, false, 1}, {1, true, true, 1},
        {2, false, false, 0}, {2, false, true, 2}, {2, true, false, 0}, {2, true, true, 2},
        {4, false, false, 0}, {4, false, true, 2}, {4, true, false, 1}, {4, true, true, 1},
        {8, false, false, 0}, {8, false, true, 2}, {8, true, false, 1}, {8, true, true, 2},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.mode << ' ' << row.hasMachine << ' ' << row.hasUser);
        fakes::FakePlatform other;
        other.registry.AddKey(kLocalMachineRoot, kProduct);
        if (row.hasMachine) {
            other.registry.PutNumber(kLocalMachineRoot, Below(u"Databases\\Design"), u"V", 1);
        }
        if (row.hasUser) {
            other.registry.PutNumber(kCurrentUserRoot, Below(u"Vaults\\Design"), u"V", 2);
        }
        SettingsLight ours(other.registry);
        Registry vault(other.registry);
        EXPECT_EQ(ours.OpenVaultKey(u"Design", vault, u"", MissingKey::Fail, row.mode | 0x100), row.found != 0);
        uint32_t number = 0;
        vault.ReadNumber(u"V", number);
        EXPECT_EQ(number, row.found);
    }
}

TEST_F(SettingsTest, AVaultsKeyIsThatOfItsNameAlone)
{
    PutUser(u"DateFmt", 2);
    machine.registry.PutNumber(kCurrentUserRoot, Below(u"Vaults\\Other"), u"DateFmt", 3);
    ASSERT_TRUE(settings.OpenVaultKey(u"Other", key, u"DateFmt", MissingKey::Fail, 770));
    EXPECT_EQ(Value(), 3u);
    ASSERT_TRUE(settings.OpenVaultKey(u"DESIGN", key, u"DateFmt", MissingKey::Fail, 770));
    EXPECT_EQ(Value(), 2u);
    EXPECT_FALSE(settings.OpenVaultKey(u"Desig", key, u"DateFmt", MissingKey::Fail, 770));
}

} // namespace
} // namespace tv
