#include "worlds.h"

#include <algorithm>
#include <set>

namespace tv {
namespace {

template <typename World> class RegistryContract : public testing::Test
{
  protected:
    KeyHandle Create(KeyHandle root, uint32_t access)
    {
        KeyHandle key = kNoKey;
        EXPECT_EQ(registry.CreateKey(root, world.RegistryPath(), access, key), 0u);
        return key;
    }

    void TearDown() override
    {
        for (KeyHandle key : opened) {
            EXPECT_EQ(registry.CloseKey(key), 0u);
        }
    }

    KeyHandle UserKey(uint32_t access = kKeyReadWrite)
    {
        opened.push_back(Create(kCurrentUserRoot, access));
        return opened.back();
    }

    uint32_t Put(KeyHandle key, std::u16string_view name, uint32_t type, std::vector<uint8_t> bytes)
    {
        return registry.SetValue(key, name, type, bytes);
    }

    World world;
    RegistryService& registry = world.Services().registry;
    std::vector<KeyHandle> opened;
};

TYPED_TEST_SUITE(RegistryContract, Worlds);

TYPED_TEST(RegistryContract, AMissingKeyIsNotFound)
{
    KeyHandle key = 99;
    EXPECT_EQ(this->registry.OpenKey(kCurrentUserRoot, this->world.RegistryPath(), kKeyRead, key), 2u);
    EXPECT_EQ(key, kNoKey);
}

TYPED_TEST(RegistryContract, ACreatedKeyOpens)
{
    this->UserKey();
    KeyHandle key = kNoKey;
    EXPECT_EQ(this->registry.OpenKey(kCurrentUserRoot, u"SOFTWARE\\torvanecontract", kKeyRead, key), 0u);
    EXPECT_NE(key, kNoKey);
    EXPECT_EQ(this->registry.CloseKey(key), 0u);
}

TYPED_TEST(RegistryContract, AValueIsReadAsItWasWritten)
{
    const KeyHandle key = this->UserKey();
    EXPECT_EQ(this->Put(key, u"n", kRegBinary, {1, 2, 3}), 0u);
    uint8_t buffer[8] = {};
    uint32_t type = 0;
    uint32_t size = sizeof buffer;
    EXPECT_EQ(this->registry.QueryValue(key, u"N", type, buffer, size), 0u);
    EXPECT_EQ(type, 3u);
    EXPECT_EQ(size, 3u);
    EXPECT_EQ((std::vector<uint8_t>{buffer[0], buffer[1], buffer[2]}), (std::vector<uint8_t>{1, 2, 3}));
}

TYPED_TEST(RegistryContract, WithoutABufferTypeAndSizeAreTold)
{
    const KeyHandle key = this->UserKey();
    this->Put(key, u"", kRegNumberBigEndian, {1, 2, 3, 4});
    uint32_t type = 0;
    uint32_t size = 0;
    EXPECT_EQ(this->registry.QueryValue(key, u"", type, nullptr, size), 0u);
    EXPECT_EQ(type, 5u);
    EXPECT_EQ(size, 4u);
}

TYPED_TEST(RegistryContract, ASmallBufferGivesMoreDataAndTheSize)
{
    const KeyHandle key = this->UserKey();
    this->Put(key, u"n", kRegBinary, {1, 2, 3});
    uint8_t buffer[2] = {};
    uint32_t type = 0;
    uint32_t size = 2;
    EXPECT_EQ(this->registry.QueryValue(key, u"n", type, buffer, size), 234u);
    EXPECT_EQ(size, 3u);
    size = 0;
    EXPECT_EQ(this->registry.QueryValue(key, u"n", type, buffer, size), 234u);
}

TYPED_TEST(RegistryContract, AMissingValueIsNotFound)
{
    const KeyHandle key = this->UserKey();
    uint32_t type = 0;
    uint32_t size = 0;
    EXPECT_EQ(this->registry.QueryValue(key, u"missing", type, nullptr, size), 2u);
}

TYPED_TEST(RegistryContract, ANullKeyIsAnInvalidHandle)
{
    uint32_t type = 0;
    uint32_t size = 0;
    std::u16string name;
    EXPECT_EQ(this->registry.QueryValue(kNoKey, u"n", type, nullptr, size), 6u);
    EXPECT_EQ(this->Put(kNoKey, u"n", kRegBinary, {1}), 6u);
    EXPECT_EQ(this->registry.EnumKey(kNoKey, 0, name), 6u);
    EXPECT_EQ(this->registry.CloseKey(kNoKey), 6u);
}

TYPED_TEST(RegistryContract, AKeyOpenedForReadingRefusesToBeWritten)
{
    const KeyHandle key = this->UserKey(kKeyRead);
    EXPECT_EQ(this->Put(key, u"n", kRegBinary, {1}), 5u);
}

TYPED_TEST(RegistryContract, SubkeysAreEnumeratedUntilThereAreNoMore)
{
    const KeyHandle key = this->UserKey();
    for (const std::u16string_view name : {u"b", u"a", u"c"}) {
        KeyHandle subkey = kNoKey;
        EXPECT_EQ(this->registry.CreateKey(key, name, kKeyRead, subkey), 0u);
        this->registry.CloseKey(subkey);
    }
    std::set<std::u16string> names;
    std::u16string name;
    for (uint32_t index = 0; index < 3; ++index) {
        EXPECT_EQ(this->registry.EnumKey(key, index, name), 0u);
        names.insert(name);
    }
    EXPECT_EQ(names, (std::set<std::u16string>{u"a", u"b", u"c"}));
    EXPECT_EQ(this->registry.EnumKey(key, 3, name), 259u);
}

TYPED_TEST(RegistryContract, TheMachinesSoftwareHasTwoViews)
{
    KeyHandle key = kNoKey;
    const uint32_t result =
        this->registry.CreateKey(kLocalMachineRoot, this->world.RegistryPath(), kKeyReadWrite | kKeyView32, key);
    if (result == kErrorAccessDenied) {
        GTEST_SKIP() << "this user may not write the machine's keys";
    }
    ASSERT_EQ(result, 0u);
    this->Put(key, u"n", kRegBinary, {32});
    this->registry.CloseKey(key);
    EXPECT_EQ(this->registry.OpenKey(kLocalMachineRoot, this->world.RegistryPath(), kKeyRead | kKeyView64, key), 2u);
    EXPECT_EQ(this->registry.OpenKey(kLocalMachineRoot, this->world.RegistryPath(), kKeyRead, key), 2u);
    ASSERT_EQ(this->registry.OpenKey(kLocalMachineRoot, this->world.RegistryPath(), kKeyRead | kKeyView32, key), 0u);
    uint32_t type = 0;
    uint32_t size = 0;
    EXPECT_EQ(this->registry.QueryValue(key, u"n", type, nullptr, size), 0u);
    this->registry.CloseKey(key);
}

TYPED_TEST(RegistryContract, ReferencesToTheEnvironmentAreReplaced)
{
    this->world.SetEnvironment(u"TV_CONTRACT", u"value");
    std::u16string expanded;
    EXPECT_TRUE(this->registry.ExpandEnvironment(u"a %tv_contract% b", expanded));
    EXPECT_EQ(expanded, u"a value b");
    EXPECT_TRUE(this->registry.ExpandEnvironment(u"%TV_NOTHING% 100%", expanded));
    EXPECT_EQ(expanded, u"%TV_NOTHING% 100%");
    EXPECT_TRUE(this->registry.ExpandEnvironment(u"", expanded));
    EXPECT_EQ(expanded, u"");
}

} // namespace
} // namespace tv
