#include "support/registry.h"

#include "fakes/platform/fake_platform.h"

#include <gtest/gtest.h>

#include <functional>

namespace tv {
namespace {

constexpr std::u16string_view kPath = u"Software\\Torvane\\Test";

std::vector<uint8_t> Utf16(std::u16string_view text)
{
    std::vector<uint8_t> bytes;
    for (char16_t unit : text) {
        bytes.push_back(static_cast<uint8_t>(unit));
        bytes.push_back(static_cast<uint8_t>(unit >> 8));
    }
    return bytes;
}

class RegistryTest : public testing::Test
{
  protected:
    void Put(std::u16string_view name, uint32_t type, std::vector<uint8_t> bytes)
    {
        machine.registry.PutValue(kCurrentUserRoot, kPath, name, {type, std::move(bytes)});
    }

    void SetUp() override
    {
        machine.registry.AddKey(kCurrentUserRoot, kPath);
        ASSERT_EQ(key.Open(kCurrentUserRoot, kPath, kKeyReadWrite), kErrorSuccess);
    }

    fakes::FakePlatform machine;
    Registry key{machine.registry};
};

TEST_F(RegistryTest, AKeyThatIsMissingCantBeOpened)
{
    EXPECT_EQ(key.Open(kCurrentUserRoot, u"Software\\Nothing", kKeyRead), 2u);
    EXPECT_FALSE(key.IsOpen());
    EXPECT_EQ(key.LastResult(), 2u);
}

TEST_F(RegistryTest, OpeningClosesTheKeyThatWasHeld)
{
    EXPECT_EQ(machine.registry.OpenCount(), 1u);
    key.Open(kCurrentUserRoot, u"Software", kKeyRead);
    EXPECT_EQ(machine.registry.OpenCount(), 1u);
    key.Open(kCurrentUserRoot, u"Software\\Nothing", kKeyRead);
    EXPECT_EQ(machine.registry.OpenCount(), 0u);
}

TEST_F(RegistryTest, CreatingClosesTheKeyThatWasHeld)
{
    EXPECT_EQ(key.Create(kCurrentUserRoot, u"Software\\New", kKeyReadWrite), 0u);
    EXPECT_EQ(machine.registry.OpenCount(), 1u);
    EXPECT_TRUE(machine.registry.KeyExists(kCurrentUserRoot, u"Software\\New"));
}

TEST_F(RegistryTest, TheViewBitsGoThrough)
{
    key.Open(kLocalMachineRoot, u"Software", kKeyRead | kKeyView32);
    key.Open(kLocalMachineRoot, u"Software", kKeyRead | kKeyView64);
    const std::vector<uint32_t> masks = machine.registry.AccessMasks();
    EXPECT_EQ(masks.at(1), 0x20219u);
    EXPECT_EQ(masks.at(2), 0x20119u);
}

TEST_F(RegistryTest, TheDestructorClosesTheKey)
{
    {
        Registry other(machine.registry);
        other.Open(kCurrentUserRoot, kPath, kKeyRead);
        EXPECT_EQ(machine.registry.OpenCount(), 2u);
    }
    EXPECT_EQ(machine.registry.OpenCount(), 1u);
}

TEST_F(RegistryTest, ClosingTwiceIsNoFailure)
{
    EXPECT_EQ(key.Close(), 0u);
    EXPECT_EQ(key.Close(), 0u);
    EXPECT_FALSE(key.IsOpen());
}

TEST_F(RegistryTest, AClosedKeyAnswersWithAnError)
{
    key.Close();
    uint32_t number = 7;
    std::u16string text = u"old";
    EXPECT_EQ(key.ReadNumber(u"n", number), 6u);
    EXPECT_FALSE(key.ReadString(u"n", text));
    EXPECT_EQ(key.WriteNumber(u"n", 1), 6u);
    EXPECT_FALSE(key.WriteString(u"n", u"x"));
    EXPECT_EQ(number, 7u);
    EXPECT_EQ(text, u"old");
}

TEST_F(RegistryTest, ATransactionOpensTheKeyWhenTheSystemHasOne)
{
    EXPECT_EQ(key.Open(kCurrentUserRoot, kPath, kKeyRead, 0x55), 0u);
    EXPECT_TRUE(key.IsOpen());
}

TEST_F(RegistryTest, ATransactionGives1WhereTheSystemHasNone)
{
    machine.registry.SetHasTransactions(false);
    EXPECT_EQ(key.Open(kCurrentUserRoot, kPath, kKeyRead, 0x55), 1u);
    EXPECT_FALSE(key.IsOpen());
    EXPECT_EQ(key.Open(kCurrentUserRoot, kPath, kKeyRead, kNoTransaction), 0u);
}

TEST_F(RegistryTest, ANumberIsWrittenAndRead)
{
    EXPECT_EQ(key.WriteNumber(u"n", 0x12345678), 0u);
    uint32_t number = 0;
    EXPECT_EQ(key.ReadNumber(u"N", number), 0u);
    EXPECT_EQ(number, 0x12345678u);
    EXPECT_EQ(machine.registry.Value(kCurrentUserRoot, kPath, u"n")->type, 4u);
}

TEST_F(RegistryTest, AMissingNumberStays)
{
    uint32_t number = 7;
    EXPECT_EQ(key.ReadNumber(u"n", number), 2u);
    EXPECT_EQ(number, 7u);
}

TEST_F(RegistryTest, AValueOfAnotherTypeIsNoNumber)
{
    uint32_t number = 7;
    Put(u"binary", kRegBinary, {1, 0, 0, 0});
    EXPECT_EQ(key.ReadNumber(u"binary", number), 13u);
    Put(u"big", kRegNumberBigEndian, {0, 0, 0, 1});
    EXPECT_EQ(key.ReadNumber(u"big", number), 13u);
    Put(u"text", kRegString, Utf16(u"a long text"));
    EXPECT_EQ(key.ReadNumber(u"text", number), 13u);
    EXPECT_EQ(number, 7u);
    EXPECT_EQ(key.LastResult(), 13u);
}

TEST_F(RegistryTest, ANumberOfAnotherSizeIsNone)
{
    uint32_t number = 7;
    Put(u"short", kRegNumber, {1, 0});
    EXPECT_EQ(key.ReadNumber(u"short", number), 13u);
    Put(u"long", kRegNumber, {1, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(key.ReadNumber(u"long", number), 13u);
    EXPECT_EQ(number, 7u);
}

TEST_F(RegistryTest, ABigEndianNumberHasItsHalvesExchanged)
{
    uint32_t number = 0;
    Put(u"big", kRegNumberBigEndian, {0x01, 0x00, 0x00, 0x00});
    EXPECT_EQ(key.ReadNumberOfEitherOrder(u"big", number), 0u);
    EXPECT_EQ(number, 0x10000u);
    Put(u"big", kRegNumberBigEndian, {0x44, 0x33, 0x22, 0x11});
    EXPECT_EQ(key.ReadNumberOfEitherOrder(u"big", number), 0u);
    EXPECT_EQ(number, 0x33441122u);
    Put(u"plain", kRegNumber, {0x44, 0x33, 0x22, 0x11});
    EXPECT_EQ(key.ReadNumberOfEitherOrder(u"plain", number), 0u);
    EXPECT_EQ(number, 0x11223344u);
}

TEST_F(RegistryTest, ANumberOfEitherOrderHasFourBytesAndANumbersType)
{
    uint32_t number = 7;
    Put(u"short", kRegNumberBigEndian, {1, 0});
    EXPECT_EQ(key.ReadNumberOfEitherOrder(u"short", number), 13u);
    Put(u"long", kRegNumber, {1, 0, 0, 0, 0});
    EXPECT_EQ(key.ReadNumberOfEitherOrder(u"long", number), 13u);
    Put(u"binary", kRegBinary, {1, 0, 0, 0});
    EXPECT_EQ(key.ReadNumberOfEitherOrder(u"binary", number), 13u);
    EXPECT_EQ(key.ReadNumberOfEitherOrder(u"missing", number), 2u);
    EXPECT_EQ(number, 7u);
}

TEST_F(RegistryTest, ATextIsWrittenWithItsTerminator)
{
    EXPECT_TRUE(key.WriteString(u"t", u"ab"));
    const auto value = machine.registry.Value(kCurrentUserRoot, kPath, u"t");
    EXPECT_EQ(value->type, 1u);
    EXPECT_EQ(value->bytes, (std::vector<uint8_t>{'a', 0, 'b', 0, 0, 0}));
    std::u16string text;
    EXPECT_TRUE(key.ReadString(u"t", text));
    EXPECT_EQ(text, u"ab");
}

TEST_F(RegistryTest, ATextWithoutATerminatorIsRead)
{
    Put(u"t", kRegString, Utf16(u"abc"));
    std::u16string text;
    EXPECT_TRUE(key.ReadString(u"t", text));
    EXPECT_EQ(text, u"abc");
}

TEST_F(RegistryTest, ATextOfAnOddSizeIsReadWithoutAnOverrun)
{
    Put(u"t", kRegString, {'a', 0, 'b', 0, 'c'});
    std::u16string text;
    EXPECT_TRUE(key.ReadString(u"t", text));
    EXPECT_EQ(text, u"abc");
    Put(u"one", kRegString, {'x'});
    EXPECT_TRUE(key.ReadString(u"one", text));
    EXPECT_EQ(text, u"x");
}

TEST_F(RegistryTest, ATextOfNoBytesIsEmpty)
{
    Put(u"t", kRegString, {});
    std::u16string text = u"old";
    EXPECT_TRUE(key.ReadString(u"t", text));
    EXPECT_EQ(text, u"");
}

TEST_F(RegistryTest, AnExpandableTextIsExpanded)
{
    machine.registry.SetEnvironment(u"ProgramFiles", u"C:\\Program Files");
    Put(u"t", kRegExpandString, Utf16(std::u16string_view(u"%programfiles%\\Torvane\0", 23)));
    std::u16string text;
    EXPECT_TRUE(key.ReadString(u"t", text));
    EXPECT_EQ(text, u"C:\\Program Files\\Torvane");
}

TEST_F(RegistryTest, AnExpansionThatFailsFailsTheRead)
{
    Put(u"t", kRegExpandString, Utf16(u"%a%"));
    machine.log.FailNth("registry.ExpandEnvironment", 1);
    std::u16string text = u"old";
    EXPECT_FALSE(key.ReadString(u"t", text));
    EXPECT_EQ(text, u"old");
}

TEST_F(RegistryTest, ReadingANumberAsATextLeavesTheTextAsItWas)
{
    key.WriteNumber(u"n", 5);
    std::u16string text = u"old";
    EXPECT_FALSE(key.ReadString(u"n", text));
    EXPECT_EQ(text, u"old");
    EXPECT_FALSE(key.ReadString(u"missing", text));
    EXPECT_EQ(text, u"old");
}

TEST_F(RegistryTest, AReadThatFailsAfterTheSizeIsKnownLeavesTheTextAsItWas)
{
    key.WriteString(u"t", u"new");
    machine.log.FailNth("registry.QueryValue", 2);
    std::u16string text = u"old";
    EXPECT_FALSE(key.ReadString(u"t", text));
    EXPECT_EQ(text, u"old");
    EXPECT_EQ(key.LastResult(), 5u);
}

TEST_F(RegistryTest, ATextIsReadIntoABufferWithItsLengthAndTerminator)
{
    key.WriteString(u"t", u"abc");
    char16_t buffer[8] = {};
    uint32_t size = 8;
    EXPECT_EQ(key.ReadStringInto(u"t", buffer, size), 0u);
    EXPECT_EQ(std::u16string_view(buffer), u"abc");
    EXPECT_EQ(size, 4u);
}

TEST_F(RegistryTest, AnExpandableTextIsReadIntoABufferAsItIsStored)
{
    Put(u"t", kRegExpandString, Utf16(std::u16string_view(u"%a%\0", 4)));
    char16_t buffer[8] = {};
    uint32_t size = 8;
    EXPECT_EQ(key.ReadStringInto(u"t", buffer, size), 0u);
    EXPECT_EQ(std::u16string_view(buffer), u"%a%");
}

TEST_F(RegistryTest, ABufferThatIsTooSmallGivesMoreDataAndALengthOfZero)
{
    key.WriteString(u"t", u"abc");
    char16_t buffer[3] = {};
    uint32_t size = 3;
    EXPECT_EQ(key.ReadStringInto(u"t", buffer, size), 234u);
    EXPECT_EQ(size, 0u);
    size = 0;
    EXPECT_EQ(key.ReadStringInto(u"t", buffer, size), 234u);
}

TEST_F(RegistryTest, ATextInABufferMustBeTerminatedAndOfATextType)
{
    char16_t buffer[8] = {};
    uint32_t size = 8;
    Put(u"open", kRegString, Utf16(u"abc"));
    EXPECT_EQ(key.ReadStringInto(u"open", buffer, size), 13u);
    EXPECT_EQ(size, 0u);
    size = 8;
    Put(u"odd", kRegString, {'a', 0, 0});
    EXPECT_EQ(key.ReadStringInto(u"odd", buffer, size), 13u);
    size = 8;
    key.WriteNumber(u"n", 0);
    EXPECT_EQ(key.ReadStringInto(u"n", buffer, size), 13u);
    size = 8;
    EXPECT_EQ(key.ReadStringInto(u"missing", buffer, size), 2u);
    EXPECT_EQ(size, 0u);
}

TEST_F(RegistryTest, AValueOfNoBytesIsAnEmptyTextOfLengthZero)
{
    Put(u"t", kRegString, {});
    char16_t buffer[2] = {u'x', u'x'};
    uint32_t size = 2;
    EXPECT_EQ(key.ReadStringInto(u"t", buffer, size), 0u);
    EXPECT_EQ(buffer[0], u'\0');
    EXPECT_EQ(size, 0u);
}

TEST_F(RegistryTest, TheDefaultValueHasAnEmptyName)
{
    key.WriteString(u"", u"default");
    std::u16string text;
    EXPECT_TRUE(key.ReadString(u"", text));
    EXPECT_EQ(text, u"default");
}

TEST_F(RegistryTest, AKeyOpenedForReadingRefusesToBeWritten)
{
    key.Open(kCurrentUserRoot, kPath, kKeyRead);
    EXPECT_EQ(key.WriteNumber(u"n", 1), 5u);
    EXPECT_FALSE(key.WriteString(u"t", u"x"));
    EXPECT_EQ(key.LastResult(), 5u);
}

TEST_F(RegistryTest, AnExpandableTextOfNoBytesIsEmpty)
{
    Put(u"t", kRegExpandString, {});
    std::u16string text = u"old";
    EXPECT_TRUE(key.ReadString(u"t", text));
    EXPECT_EQ(text, u"");
}

TEST_F(RegistryTest, AnExpandableTextOfAnOddSizeIsReadWithoutAnOverrun)
{
    machine.registry.SetEnvironment(u"a", u"one");
    Put(u"t", kRegExpandString, {'%', 0, 'a', 0, '%'});
    std::u16string text;
    EXPECT_TRUE(key.ReadString(u"t", text));
    EXPECT_EQ(text, u"one");
}

TEST_F(RegistryTest, APlainTextIsNotExpanded)
{
    machine.registry.SetEnvironment(u"a", u"one");
    key.WriteString(u"t", u"%a%");
    std::u16string text;
    EXPECT_TRUE(key.ReadString(u"t", text));
    EXPECT_EQ(text, u"%a%");
}

TEST_F(RegistryTest, ATextEndsAtItsFirstZero)
{
    Put(u"t", kRegString, Utf16(std::u16string_view(u"ab\0cd\0", 6)));
    std::u16string text;
    EXPECT_TRUE(key.ReadString(u"t", text));
    EXPECT_EQ(text, u"ab");
}

TEST_F(RegistryTest, EveryTypeButTheTwoOfTextsIsNoText)
{
    for (const uint32_t type : {0u, 3u, 4u, 5u, 6u, 7u, 8u, 11u}) {
        Put(u"t", type, {'a', 0, 0, 0});
        std::u16string text = u"old";
        EXPECT_FALSE(key.ReadString(u"t", text)) << type;
        EXPECT_EQ(text, u"old");
        EXPECT_EQ(key.LastResult(), 13u);
        char16_t buffer[4] = {};
        uint32_t size = 4;
        EXPECT_EQ(key.ReadStringInto(u"t", buffer, size), 13u) << type;
    }
}

TEST_F(RegistryTest, EveryTypeButThatOfANumberIsNone)
{
    for (const uint32_t type : {0u, 1u, 2u, 3u, 5u, 6u, 7u, 11u}) {
        Put(u"n", type, {1, 0, 0, 0});
        uint32_t number = 7;
        EXPECT_EQ(key.ReadNumber(u"n", number), 13u) << type;
        EXPECT_EQ(number, 7u);
    }
}

TEST_F(RegistryTest, EachBigEndianNumberHasItsHalvesExchangedAndNoByteSwapped)
{
    struct Row
    {
        std::vector<uint8_t> bytes;
        uint32_t number;
    };
    const Row rows[] = {
        {{0, 0, 0, 0}, 0},
        {{1, 0, 0, 0}, 0x00010000},
        {{0, 1, 0, 0}, 0x01000000},
        {{0, 0, 1, 0}, 0x00000001},
        {{0, 0, 0, 1}, 0x00000100},
        {{0x78, 0x56, 0x34, 0x12}, 0x56781234},
        {{0xFF, 0xFF, 0, 0}, 0xFFFF0000},
        {{0xFF, 0xFF, 0xFF, 0xFF}, 0xFFFFFFFF},
    };
    for (const Row& row : rows) {
        Put(u"n", kRegNumberBigEndian, row.bytes);
        uint32_t number = 7;
        EXPECT_EQ(key.ReadNumberOfEitherOrder(u"n", number), 0u);
        EXPECT_EQ(number, row.number);
    }
}

TEST_F(RegistryTest, ANumberReplacesATextAndATextANumber)
{
    key.WriteString(u"v", u"text");
    EXPECT_EQ(key.WriteNumber(u"v", 3), 0u);
    uint32_t number = 0;
    EXPECT_EQ(key.ReadNumber(u"v", number), 0u);
    EXPECT_EQ(number, 3u);
    EXPECT_TRUE(key.WriteString(u"v", u""));
    EXPECT_EQ(machine.registry.Value(kCurrentUserRoot, kPath, u"v"), (fakes::RegistryValue{1, {0, 0}}));
}

TEST_F(RegistryTest, EachOperationKeepsItsResult)
{
    uint32_t number = 0;
    std::u16string text;
    char16_t buffer[4] = {};
    uint32_t size = 4;
    struct Row
    {
        const char* name;
        std::function<void()> operation;
        uint32_t result;
    };
    const Row rows[] = {
        {"writes a number", [&] { key.WriteNumber(u"n", 1); }, 0},
        {"reads no number", [&] { key.ReadNumber(u"missing", number); }, 2},
        {"reads a number", [&] { key.ReadNumber(u"n", number); }, 0},
        {"reads a number as a text", [&] { key.ReadString(u"n", text); }, 13},
        {"writes a text", [&] { key.WriteString(u"t", u"abcd"); }, 0},
        {"reads a text as a number", [&] { key.ReadNumberOfEitherOrder(u"t", number); }, 13},
        {"reads a text", [&] { key.ReadString(u"t", text); }, 0},
        {"reads a text into too small a buffer", [&] { key.ReadStringInto(u"t", buffer, size); }, 234},
        {"opens a missing key", [&] { key.Open(kCurrentUserRoot, u"Software\\Nothing", kKeyRead); }, 2},
        {"reads from no key", [&] { key.ReadString(u"t", text); }, 6},
        {"creates a key", [&] { key.Create(kCurrentUserRoot, u"Software\\New", kKeyRead); }, 0},
        {"writes where it may only read", [&] { key.WriteString(u"t", u"x"); }, 5},
        {"closes", [&] { key.Close(); }, 0},
    };
    for (const Row& row : rows) {
        row.operation();
        EXPECT_EQ(key.LastResult(), row.result) << row.name;
    }
}

TEST_F(RegistryTest, EachStoredTextIsReadSo)
{
    struct Row
    {
        uint32_t type;
        std::vector<uint8_t> bytes;
        std::u16string_view text;
    };
    machine.registry.SetEnvironment(u"a", u"one");
    const Row rows[] = {
        {kRegString, {}, u""},
        {kRegString, {0}, u""},
        {kRegString, {0, 0}, u""},
        {kRegString, {0, 0, 0}, u""},
        {kRegString, {'x'}, u"x"},
        {kRegString, {'x', 0}, u"x"},
        {kRegString, {'x', 0, 'y'}, u"xy"},
        {kRegString, {'x', 0, 0, 0}, u"x"},
        {kRegString, {'x', 0, 0, 0, 'y'}, u"x"},
        {kRegString, {'x', 0, 0, 0, 'y', 0, 0, 0}, u"x"},
        {kRegString, {0xE4, 0x00, 0x13, 0x20}, u"\u00E4\u2013"},
        {kRegString, {'%', 0, 'a', 0, '%', 0, 0, 0}, u"%a%"},
        {kRegExpandString, {}, u""},
        {kRegExpandString, {'x'}, u"x"},
        {kRegExpandString, {'%', 0, 'a', 0, '%', 0}, u"one"},
        {kRegExpandString, {'%', 0, 'a', 0, '%', 0, 0, 0}, u"one"},
        {kRegExpandString, {'%', 0, 'b', 0, '%', 0, 0, 0}, u"%b%"},
        {kRegExpandString, {'%', 0, 'a', 0}, u"%a"},
    };
    int number = 0;
    for (const Row& row : rows) {
        Put(u"t", row.type, row.bytes);
        std::u16string text = u"old";
        EXPECT_TRUE(key.ReadString(u"t", text)) << number;
        EXPECT_EQ(text, row.text) << number;
        ++number;
    }
}

TEST_F(RegistryTest, EachStoredTextIsReadIntoABufferSo)
{
    struct Row
    {
        uint32_t type;
        std::vector<uint8_t> bytes;
        uint32_t result;
        uint32_t size;
    };
    const Row rows[] = {
        {kRegString, {}, 0, 0},
        {kRegString, {0, 0}, 0, 1},
        {kRegString, {'x', 0, 0, 0}, 0, 2},
        {kRegString, {'x', 0, 'y', 0, 0, 0}, 0, 3},
        {kRegExpandString, {'%', 0, 0, 0}, 0, 2},
        {kRegString, {0}, 13, 0},
        {kRegString, {'x', 0}, 13, 0},
        {kRegString, {'x', 0, 0}, 13, 0},
        {kRegString, {'x', 0, 'y', 0, 'z', 0}, 13, 0},
        {kRegString, {'x', 0, 'y', 0, 'z', 0, 0, 0}, 234, 0},
    };
    int number = 0;
    for (const Row& row : rows) {
        Put(u"t", row.type, row.bytes);
        char16_t buffer[3] = {};
        uint32_t size = 3;
        EXPECT_EQ(key.ReadStringInto(u"t", buffer, size), row.result) << number;
        EXPECT_EQ(size, row.size) << number;
        ++number;
    }
}

} // namespace
} // namespace tv
