#include "disk_world.h"

#include "vault/error_table.h"
#include "vault/guid_text.h"
#include "vault/sha256.h"
#include "vault/text.h"

#include "com/safe_array.h"

#include <set>

namespace tv::local {

namespace {

std::string HashOf(std::string_view text)
{
    Sha256 hash;
    hash.Add(std::as_bytes(std::span(text.data(), text.size())));
    return hash.Finish();
}

TEST(Text, GoesToUtf16AndBackUnharmed)
{
    EXPECT_EQ(Utf16("Ω Größe \U0001F600"), u"Ω Größe \U0001F600");
    EXPECT_EQ(Utf8(u"Ω Größe \U0001F600"), "Ω Größe \U0001F600");
}

TEST(Text, BrokenBytesBecomeTheReplacementCharacter)
{
    EXPECT_EQ(Utf16("a\xC3"), u"a\xFFFD");
    EXPECT_EQ(Utf16("\xFFz"), u"\xFFFDz");
    EXPECT_EQ(Utf8(std::u16string{u'a', char16_t{0xD800}}), "a\xEF\xBF\xBD");
}

TEST(Text, NamesDifferInCaseOnlyAreTheSame)
{
    EXPECT_TRUE(SameName("SCREW.step", "screw.STEP"));
    EXPECT_TRUE(SameName("größe", "GRÖßE"));
    EXPECT_TRUE(SameName("ωμέγα", "ΩΜέΓΑ"));
    EXPECT_TRUE(SameName("деталь", "ДЕТАЛЬ"));
    EXPECT_FALSE(SameName("screw", "screws"));
}

TEST(Hash, AgreesWithThePublishedExamples)
{
    EXPECT_EQ(HashOf(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(HashOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(HashOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(HashOf(std::string(1000000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Guid, IsInBracesAndNeverTheSame)
{
    const std::string guid = NewGuidText();
    EXPECT_EQ(guid.size(), 38u);
    EXPECT_EQ(guid.front(), '{');
    EXPECT_EQ(guid.back(), '}');
    EXPECT_NE(guid, NewGuidText());
}

struct ExpectedError
{
    uint32_t code;
    std::string_view name;
};

TEST(ErrorWords, EachCodeOfTheVaultHasItsName)
{
    constexpr ExpectedError kExpected[] = {
        {0x00000000, "S_OK"},
        {0x00000001, "S_FALSE"},
        {0x80004001, "E_NOTIMPL"},
        {0x80004002, "E_NOINTERFACE"},
        {0x80004003, "E_POINTER"},
        {0x80004005, "E_FAIL"},
        {0x8000FFFF, "E_UNEXPECTED"},
        {0x80040203, "E_VYX_PERMISSION_DENIED"},
        {0x80040207, "E_VYX_DATABASE_ACCESS"},
        {0x80040208, "E_VYX_END_OF_LIST"},
        {0x8004020A, "E_VYX_LOCKED"},
        {0x8004020F, "E_VYX_NAME_ALREADY_EXISTS"},
        {0x80040210, "E_VYX_FILE_NOT_LOCKED_BY_YOU"},
        {0x80040211, "E_VYX_FILE_IS_LOCKED"},
        {0x80040212, "E_VYX_LOCKED_BY_ANOTHER_USER"},
        {0x80040213, "E_VYX_FILE_NOT_FOUND"},
        {0x80040214, "E_VYX_FOLDER_NOT_FOUND"},
        {0x80040215, "E_VYX_LOCKED_ON_OTHER_COMPUTER"},
        {0x8004021D, "E_VYX_INVALID_NAME"},
        {0x80040224, "E_VYX_INVALID_REVISION_NUMBER"},
        {0x80040228, "E_VYX_IO_ERROR"},
        {0x80040229, "E_VYX_INVALID_FILE"},
        {0x8004022E, "E_VYX_VERSION_MISMATCH"},
        {0x80040230, "E_VYX_INVALID_QUERY"},
        {0x80040239, "E_VYX_DISK_FULL"},
        {0x80040252, "E_VYX_VARIABLE_NOT_FOUND"},
        {0x8004025F, "E_VYX_REVNUM_EXISTS"},
        {0x8004026D, "E_VYX_FILE_DELETED"},
        {0x80040287, "E_VYX_INVALID_USER_NAME"},
        {0x8007000E, "E_OUTOFMEMORY"},
        {0x80070057, "E_INVALIDARG"},
    };
    EXPECT_EQ(ErrorTable().size(), std::size(kExpected));
    for (const ExpectedError& expected : kExpected) {
        const NameAndDescription words = WordsFor(static_cast<Result>(expected.code));
        EXPECT_EQ(words.name, expected.name);
        EXPECT_FALSE(words.description.empty()) << expected.name;
    }
}

TEST(ErrorWords, AnUnknownCodeGetsItsNumberForAName)
{
    EXPECT_EQ(WordsFor(static_cast<Result>(0x80041234u)).name, "0x80041234");
}

TEST(VaultPaths, BothSlashesAndDotsAreUnderstood)
{
    EXPECT_EQ(ParseVaultPath("\\Parts\\screw.step"), (VaultPath{"Parts", "screw.step"}));
    EXPECT_EQ(ParseVaultPath("/Parts/../Other/./a.b/"), (VaultPath{"Other", "a.b"}));
    EXPECT_EQ(ParseVaultPath("\\"), VaultPath{});
    EXPECT_EQ(VaultPathText({"Parts", "screw.step"}), "\\Parts\\screw.step");
    EXPECT_EQ(VaultPathText({}), "\\");
}

TEST(VaultPaths, NamesThatWindowsWouldNotTakeAreRefused)
{
    for (const char* name :
         {"", "a:b", "a*b", "a?b", "a\"b", "a<b", "a>b", "a|b", "a\tb", "dot.", "blank ", ".quellor", ".QUELLOR"}) {
        EXPECT_EQ(CodeOf([&] { CheckName(name); }), kErrorInvalidName) << name;
    }
    EXPECT_EQ(CodeOf([] { CheckName("Größe 1 (Ω).step"); }), 0);
}

TEST(VaultPaths, AFullPathIsTakenApartBelowTheRootOnly)
{
    const std::filesystem::path root = PathOf("/data/Vault");
    EXPECT_EQ(BelowRoot(root, "/data/vault/Parts/a.step"), (VaultPath{"Parts", "a.step"}));
    EXPECT_EQ(BelowRoot(root, "/data/Vault"), VaultPath{});
    EXPECT_EQ(BelowRoot(root, "/data/VaultOther/a"), std::nullopt);
    EXPECT_EQ(BelowRoot(root, "/data"), std::nullopt);
    EXPECT_EQ(BelowRoot(root, "Parts/a.step"), std::nullopt);
    EXPECT_EQ(BelowRoot(root, "/data/Vault/.quellor/vault.db"), std::nullopt);
}

TEST(VaultPaths, TheExtensionIsWhatFollowsTheLastDot)
{
    EXPECT_EQ(ExtensionOf("a.b.STEP"), "step");
    EXPECT_EQ(ExtensionOf("none"), "");
}

TEST(StoredValues, EachKindComesBackAsItWas)
{
    for (const Variant& value :
         {Variant::FromInt(-7), Variant::FromFloat(2.5f), Variant::FromDouble(1e300), Variant::FromDate(45000.5),
          Variant::FromBool(true), Variant::FromText(u"Ω"), Variant()}) {
        const Variant back = StoredValue::FromVariant(*value.get()).ToVariant();
        EXPECT_EQ(back.Type(), value.Type());
        EXPECT_EQ(StoredValue::FromVariant(*back.get()), StoredValue::FromVariant(*value.get()));
    }
    EXPECT_EQ(StoredValue::FromVariant(*Variant::FromText(u"Ω").get()).Display(), "Ω");
    EXPECT_EQ(StoredValue::FromBool(true).Display(), "true");
    EXPECT_EQ(StoredValue::FromFloat(2.5f).Display(), "2.5");
}

TEST(StoredValues, AnArrayIsRefused)
{
    const Variant array = Variant::FromArray(SafeArray::Vector(VT_I4, 2).release(), VT_I4);
    EXPECT_EQ(CodeOf([&] { StoredValue::FromVariant(*array.get()); }), E_INVALIDARG);
}

} // namespace

} // namespace tv::local
