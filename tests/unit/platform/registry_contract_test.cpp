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

    /// Makes a key below an open one.
    void AddBelow(KeyHandle parent, std::u16string_view name)
    {
        KeyHandle key = kNoKey;
        EXPECT_EQ(registry.CreateKey(parent, name, kKeyRead, key), 0u);
        EXPECT_EQ(registry.CloseKey(key), 0u);
    }

    /// Type and bytes of a value, the error number alone when it can't be read.
    struct Answer
    {
        uint32_t error;
        uint32_t type;
        std::vector<uint8_t> bytes;
        friend bool operator==(const Answer&, const Answer&) = default;
    };

    Answer Get(KeyHandle key, std::u16string_view name)
    {
        std::vector<uint8_t> bytes(65536);
        uint32_t type = 0;
        uint32_t size = static_cast<uint32_t>(bytes.size());
        const uint32_t error = registry.QueryValue(key, name, type, bytes.data(), size);
        bytes.resize(error == 0 ? size : 0);
        return {error, error == 0 ? type : 0, std::move(bytes)};
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

TYPED_TEST(RegistryContract, CreatingAKeyThatIsThereKeepsWhatItHolds)
{
    const KeyHandle key = this->UserKey();
    this->Put(key, u"n", kRegBinary, {1});
    this->AddBelow(key, u"below");
    const KeyHandle again = this->UserKey();
    std::u16string name;
    EXPECT_EQ(this->Get(again, u"n").bytes, std::vector<uint8_t>{1});
    EXPECT_EQ(this->registry.EnumKey(again, 0, name), 0u);
    EXPECT_EQ(name, u"below");
}

TYPED_TEST(RegistryContract, CreatingAKeyMakesThoseAboveIt)
{
    const KeyHandle key = this->UserKey();
    this->AddBelow(key, u"one\\two\\three");
    KeyHandle below = kNoKey;
    EXPECT_EQ(this->registry.OpenKey(key, u"one\\two", kKeyRead, below), 0u);
    std::u16string name;
    EXPECT_EQ(this->registry.EnumKey(below, 0, name), 0u);
    EXPECT_EQ(name, u"three");
    EXPECT_EQ(this->registry.CloseKey(below), 0u);
    EXPECT_EQ(this->registry.OpenKey(key, u"one\\three", kKeyRead, below), 2u);
    EXPECT_EQ(this->registry.OpenKey(key, u"two", kKeyRead, below), 2u);
}

TYPED_TEST(RegistryContract, AKeyIsCreatedBelowOneThatIsOpenForReading)
{
    const KeyHandle key = this->UserKey(kKeyRead);
    this->AddBelow(key, u"below");
    std::u16string name;
    EXPECT_EQ(this->registry.EnumKey(key, 0, name), 0u);
    EXPECT_EQ(name, u"below");
}

TYPED_TEST(RegistryContract, AnEmptyPathOpensTheSameKeyAgain)
{
    const KeyHandle key = this->UserKey();
    this->Put(key, u"n", kRegBinary, {1});
    KeyHandle again = kNoKey;
    ASSERT_EQ(this->registry.OpenKey(key, u"", kKeyRead, again), 0u);
    EXPECT_NE(again, key);
    EXPECT_EQ(this->Get(again, u"n").bytes, std::vector<uint8_t>{1});
    EXPECT_EQ(this->Put(again, u"n", kRegBinary, {2}), 5u);
    EXPECT_EQ(this->registry.CloseKey(again), 0u);
}

TYPED_TEST(RegistryContract, AKeyThatWasClosedIsAnInvalidHandle)
{
    const KeyHandle key = this->Create(kCurrentUserRoot, kKeyReadWrite);
    EXPECT_EQ(this->registry.CloseKey(key), 0u);
    EXPECT_EQ(this->registry.CloseKey(key), 6u);
    EXPECT_EQ(this->Get(key, u"n").error, 6u);
    EXPECT_EQ(this->Put(key, u"n", kRegBinary, {1}), 6u);
    KeyHandle below = 99;
    EXPECT_EQ(this->registry.OpenKey(key, u"below", kKeyRead, below), 6u);
    EXPECT_EQ(below, kNoKey);
    below = 99;
    EXPECT_EQ(this->registry.CreateKey(key, u"below", kKeyRead, below), 6u);
    EXPECT_EQ(below, kNoKey);
}

TYPED_TEST(RegistryContract, AKeyOpenedForWritingRefusesToBeRead)
{
    this->UserKey();
    KeyHandle key = kNoKey;
    ASSERT_EQ(this->registry.OpenKey(kCurrentUserRoot, this->world.RegistryPath(), kKeyWrite, key), 0u);
    EXPECT_EQ(this->Put(key, u"n", kRegBinary, {1}), 0u);
    EXPECT_EQ(this->Get(key, u"n").error, 5u);
    std::u16string name;
    EXPECT_EQ(this->registry.EnumKey(key, 0, name), 5u);
    EXPECT_EQ(this->registry.CloseKey(key), 0u);
}

TYPED_TEST(RegistryContract, WhatOneHandleWritesAnotherReadsAtOnce)
{
    const KeyHandle writer = this->UserKey();
    const KeyHandle reader = this->UserKey(kKeyRead);
    this->Put(writer, u"n", kRegBinary, {1});
    EXPECT_EQ(this->Get(reader, u"n").bytes, std::vector<uint8_t>{1});
    this->Put(writer, u"n", kRegBinary, {2, 3});
    EXPECT_EQ(this->Get(reader, u"n").bytes, (std::vector<uint8_t>{2, 3}));
}

TYPED_TEST(RegistryContract, EachTypeAndSizeIsKeptByteForByte)
{
    struct Row
    {
        uint32_t type;
        std::vector<uint8_t> bytes;
    };
    const Row rows[] = {
        {0, {1, 2}},
        {kRegString, {0, 0}},
        {kRegString, {'o', 0, 'n', 0, 0, 0}},
        {kRegString, {'o', 0, 0, 0, 'n', 0, 0, 0}},
        {kRegString, {'o', 0, 'n', 0, 0, 0, 0, 0}},
        {kRegString, {}},
        {kRegExpandString, {'%', 0, 'O', 0, 'S', 0, '%', 0, 0, 0}},
        {kRegExpandString, {}},
        {kRegBinary, {}},
        {kRegBinary, {0}},
        {kRegBinary, std::vector<uint8_t>(60000, 7)},
        {kRegNumber, {1, 0, 0, 0}},
        {kRegNumber, {1, 0}},
        {kRegNumber, {1, 0, 0, 0, 0, 0, 0, 0}},
        {kRegNumberBigEndian, {0, 0, 0, 1}},
        {7, {'a', 0, 0, 0, 0, 0}},
        {11, {1, 0, 0, 0, 0, 0, 0, 0}},
    };
    const KeyHandle key = this->UserKey();
    for (const Row& row : rows) {
        for (const std::u16string_view name : {u"", u"named"}) {
            EXPECT_EQ(this->Put(key, name, row.type, row.bytes), 0u);
            const auto answer = this->Get(key, name);
            EXPECT_EQ(answer.error, 0u);
            EXPECT_EQ(answer.type, row.type);
            EXPECT_EQ(answer.bytes, row.bytes);
            uint32_t type = 99;
            uint32_t size = 99;
            EXPECT_EQ(this->registry.QueryValue(key, name, type, nullptr, size), 0u);
            EXPECT_EQ(type, row.type);
            EXPECT_EQ(size, row.bytes.size());
        }
    }
}

TYPED_TEST(RegistryContract, ABufferOfExactlyTheSizeHoldsTheValue)
{
    const KeyHandle key = this->UserKey();
    this->Put(key, u"", kRegString, {'o', 0, 'n', 0, 0, 0});
    uint8_t buffer[7] = {9, 9, 9, 9, 9, 9, 9};
    uint32_t type = 0;
    uint32_t size = 6;
    EXPECT_EQ(this->registry.QueryValue(key, u"", type, buffer, size), 0u);
    EXPECT_EQ(size, 6u);
    EXPECT_EQ(std::vector<uint8_t>(buffer, buffer + 7), (std::vector<uint8_t>{'o', 0, 'n', 0, 0, 0, 9}));
    size = 5;
    EXPECT_EQ(this->registry.QueryValue(key, u"", type, buffer, size), 234u);
    EXPECT_EQ(size, 6u);
    EXPECT_EQ(type, 1u);
}

TYPED_TEST(RegistryContract, ValuesAreToldApartByNameWithoutRegardToCase)
{
    const KeyHandle key = this->UserKey();
    this->Put(key, u"name", kRegBinary, {1});
    this->Put(key, u"NAME", kRegBinary, {2});
    this->Put(key, u"", kRegBinary, {3});
    this->Put(key, u"other name", kRegBinary, {4});
    EXPECT_EQ(this->Get(key, u"name").bytes, std::vector<uint8_t>{2});
    EXPECT_EQ(this->Get(key, u"").bytes, std::vector<uint8_t>{3});
    EXPECT_EQ(this->Get(key, u"Other Name").bytes, std::vector<uint8_t>{4});
}

TYPED_TEST(RegistryContract, AKeyHasNoDefaultValueUntilOneIsWritten)
{
    const KeyHandle key = this->UserKey();
    EXPECT_EQ(this->Get(key, u"").error, 2u);
    this->Put(key, u"", kRegString, {0, 0});
    EXPECT_EQ(this->Get(key, u"").bytes, (std::vector<uint8_t>{0, 0}));
}

TYPED_TEST(RegistryContract, SubkeysAreListedByNameAsTheyWereWritten)
{
    const KeyHandle key = this->UserKey();
    for (const std::u16string_view name : {u"{b}", u"{C}", u"{A}", u"10", u"9"}) {
        this->AddBelow(key, name);
    }
    this->AddBelow(key, u"{c}");
    std::vector<std::u16string> names;
    std::u16string name;
    while (this->registry.EnumKey(key, static_cast<uint32_t>(names.size()), name) == 0) {
        names.push_back(name);
    }
    EXPECT_EQ(names, (std::vector<std::u16string>{u"10", u"9", u"{A}", u"{b}", u"{C}"}));
}

TYPED_TEST(RegistryContract, ANameOf255CharactersIsListedWhole)
{
    const KeyHandle key = this->UserKey();
    const std::u16string longest(255, u'n');
    this->AddBelow(key, longest);
    std::u16string name;
    EXPECT_EQ(this->registry.EnumKey(key, 0, name), 0u);
    EXPECT_EQ(name, longest);
    EXPECT_EQ(this->registry.EnumKey(key, 1, name), 259u);
    EXPECT_EQ(name, longest);
}

TYPED_TEST(RegistryContract, AKeyWithoutSubkeysListsNone)
{
    const KeyHandle key = this->UserKey();
    std::u16string name = u"as it was";
    EXPECT_EQ(this->registry.EnumKey(key, 0, name), 259u);
    EXPECT_EQ(name, u"as it was");
}

TYPED_TEST(RegistryContract, AKeyThatMayNotBeUsedIsDenied)
{
    this->UserKey();
    this->world.DenyRegistryPath();
    KeyHandle key = 99;
    EXPECT_EQ(this->registry.OpenKey(kCurrentUserRoot, this->world.RegistryPath(), kKeyRead, key), 5u);
    EXPECT_EQ(key, kNoKey);
    key = 99;
    EXPECT_EQ(this->registry.OpenKey(kCurrentUserRoot, this->world.RegistryPath(), kKeyReadWrite, key), 5u);
    EXPECT_EQ(key, kNoKey);
    key = 99;
    EXPECT_EQ(this->registry.CreateKey(kCurrentUserRoot, this->world.RegistryPath(), kKeyReadWrite, key), 5u);
    EXPECT_EQ(key, kNoKey);
    this->world.AllowRegistryPath();
    EXPECT_EQ(this->registry.OpenKey(kCurrentUserRoot, this->world.RegistryPath(), kKeyReadWrite, key), 0u);
    EXPECT_EQ(this->registry.CloseKey(key), 0u);
}

TYPED_TEST(RegistryContract, AKeyThatWasOpenBeforeItWasDeniedGoesOn)
{
    const KeyHandle key = this->UserKey();
    this->world.DenyRegistryPath();
    EXPECT_EQ(this->Put(key, u"n", kRegBinary, {1}), 0u);
    EXPECT_EQ(this->Get(key, u"n").bytes, std::vector<uint8_t>{1});
    this->world.AllowRegistryPath();
}

TYPED_TEST(RegistryContract, TheUsersTreeHasOneView)
{
    KeyHandle key = kNoKey;
    ASSERT_EQ(this->registry.CreateKey(kCurrentUserRoot, this->world.RegistryPath(), kKeyReadWrite | kKeyView32, key),
              0u);
    this->Put(key, u"n", kRegBinary, {32});
    EXPECT_EQ(this->registry.CloseKey(key), 0u);
    for (const uint32_t view : {0u, kKeyView32, kKeyView64}) {
        ASSERT_EQ(this->registry.OpenKey(kCurrentUserRoot, this->world.RegistryPath(), kKeyRead | view, key), 0u);
        EXPECT_EQ(this->Get(key, u"n").bytes, std::vector<uint8_t>{32});
        EXPECT_EQ(this->registry.CloseKey(key), 0u);
    }
}

TYPED_TEST(RegistryContract, NoViewChosenIsThe64BitOne)
{
    KeyHandle key = kNoKey;
    const uint32_t result =
        this->registry.CreateKey(kLocalMachineRoot, this->world.RegistryPath(), kKeyReadWrite | kKeyView64, key);
    if (result == kErrorAccessDenied) {
        GTEST_SKIP() << "this user may not write the machine's keys";
    }
    ASSERT_EQ(result, 0u);
    this->Put(key, u"n", kRegBinary, {64});
    this->registry.CloseKey(key);
    ASSERT_EQ(this->registry.OpenKey(kLocalMachineRoot, this->world.RegistryPath(), kKeyRead, key), 0u);
    EXPECT_EQ(this->Get(key, u"n").bytes, std::vector<uint8_t>{64});
    this->registry.CloseKey(key);
    EXPECT_EQ(this->registry.OpenKey(kLocalMachineRoot, this->world.RegistryPath(), kKeyRead | kKeyView32, key), 2u);
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
