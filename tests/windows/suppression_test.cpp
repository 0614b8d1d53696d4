// Start-up add-ins on the machine's own registry: what stands there during a run, and that it stands there again, byte
// for byte, afterwards.
#include "registry_place.h"

#include "cad/add_in_suppression.h"
#include "platform/win32/registry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>

namespace tv {
namespace {

constexpr DWORD kPatience = 60'000;
constexpr DWORD kDiedCode = 77;

using Bytes = std::vector<BYTE>;

const Bytes kOne = {1, 0, 0, 0};
const Bytes kZero = {0, 0, 0, 0};
const Bytes kTwo = {2, 0, 0, 0};
const Bytes kEmpty = {0, 0};
const Bytes kOn = {'o', 0, 'n', 0, 0, 0};
const Bytes kYes = {'j', 0, 'a', 0, 0, 0};
const Bytes kFour = {'f', 0, 'o', 0, 'u', 0, 'r', 0, 0, 0};
const Bytes kX = {'x', 0, 0, 0};

StoredValue Default(DWORD type, Bytes bytes)
{
    return {L"", type, std::move(bytes)};
}

/// A text of one letter, with its terminator.
Bytes Repeated(char letter, size_t times)
{
    Bytes bytes;
    for (size_t n = 0; n < times; ++n) {
        bytes.insert(bytes.end(), {static_cast<BYTE>(letter), 0});
    }
    bytes.insert(bytes.end(), {0, 0});
    return bytes;
}

std::wstring Long(size_t length)
{
    return std::wstring(length, L'n');
}

/// Default values by the name of the key below the parent key. A key without one is in `without`.
using AddIns = std::map<std::wstring, StoredValue>;

struct Row
{
    const char* what;
    AddIns before;
    AddIns during; ///< those that stand otherwise during the run
    AddIns after;  ///< those that stand otherwise than before after it
    std::vector<std::wstring> without = {};
};

const Row kRows[] = {
    {"the number 1", {{L"{A}", Default(REG_DWORD, kOne)}}, {{L"{A}", Default(REG_DWORD, kZero)}}, {}},
    {"the number 0", {{L"{A}", Default(REG_DWORD, kZero)}}, {}, {}},
    {"the number 2", {{L"{A}", Default(REG_DWORD, kTwo)}}, {}, {}},
    {"the number 0x01000000", {{L"{A}", Default(REG_DWORD, {0, 0, 0, 1})}}, {}, {}},
    {"the number -1", {{L"{A}", Default(REG_DWORD, {0xFF, 0xFF, 0xFF, 0xFF})}}, {}, {}},
    {"a number of two bytes", {{L"{A}", Default(REG_DWORD, {1, 0})}}, {}, {}},
    {"a number of eight bytes", {{L"{A}", Default(REG_DWORD, {1, 0, 0, 0, 0, 0, 0, 0})}}, {}, {}},
    {"a number of no bytes", {{L"{A}", Default(REG_DWORD, {})}}, {}, {}},
    {"the big-endian number 1", {{L"{A}", Default(REG_DWORD_BIG_ENDIAN, {0, 0, 0, 1})}}, {}, {}},
    {"the 64-bit number 1", {{L"{A}", Default(REG_QWORD, {1, 0, 0, 0, 0, 0, 0, 0})}}, {}, {}},
    {"four bytes that read 1", {{L"{A}", Default(REG_BINARY, kOne)}}, {}, {}},
    {"four bytes without a type", {{L"{A}", Default(REG_NONE, kOne)}}, {}, {}},
    {"a list of texts", {{L"{A}", Default(REG_MULTI_SZ, {'o', 0, 'n', 0, 0, 0, 0, 0})}}, {}, {}},
    {"a text", {{L"{A}", Default(REG_SZ, kOn)}}, {{L"{A}", Default(REG_SZ, kEmpty)}}, {}},
    {"a text of one letter", {{L"{A}", Default(REG_SZ, kX)}}, {{L"{A}", Default(REG_SZ, kEmpty)}}, {}},
    {"a text of letters beyond the basic ones",
     {{L"{A}", Default(REG_SZ, {0xC4, 0, 0x3D, 0xD8, 0x00, 0xDE, 0, 0})}},
     {{L"{A}", Default(REG_SZ, kEmpty)}},
     {}},
    {"an empty text", {{L"{A}", Default(REG_SZ, kEmpty)}}, {}, {}},
    {"a text of no bytes", {{L"{A}", Default(REG_SZ, {})}}, {}, {}},
    {"a text that lacks its terminator", {{L"{A}", Default(REG_SZ, {'o', 0, 'n', 0})}}, {}, {}},
    {"a text of an odd size", {{L"{A}", Default(REG_SZ, {'o', 0, 'n', 0, 0})}}, {}, {}},
    {"a text with two terminators",
     {{L"{A}", Default(REG_SZ, {'o', 0, 'n', 0, 0, 0, 0, 0})}},
     {{L"{A}", Default(REG_SZ, kEmpty)}},
     {}},
    {"a text with a zero inside",
     {{L"{A}", Default(REG_SZ, {'o', 0, 0, 0, 'n', 0, 0, 0})}},
     {{L"{A}", Default(REG_SZ, kEmpty)}},
     {}},
    {"an expandable text, which comes back as a plain one and not expanded",
     {{L"{A}", Default(REG_EXPAND_SZ, {'%', 0, 'O', 0, 'S', 0, '%', 0, 0, 0})}},
     {{L"{A}", Default(REG_SZ, kEmpty)}},
     {{L"{A}", Default(REG_SZ, {'%', 0, 'O', 0, 'S', 0, '%', 0, 0, 0})}}},
    {"an empty expandable text", {{L"{A}", Default(REG_EXPAND_SZ, kEmpty)}}, {}, {}},
    {"the text 1, which comes back as a number",
     {{L"{A}", Default(REG_SZ, {'1', 0, 0, 0})}},
     {{L"{A}", Default(REG_SZ, kEmpty)}},
     {{L"{A}", Default(REG_DWORD, kOne)}}},
    {"the text 0", {{L"{A}", Default(REG_SZ, {'0', 0, 0, 0})}}, {{L"{A}", Default(REG_SZ, kEmpty)}}, {}},
    {"the text 01", {{L"{A}", Default(REG_SZ, {'0', 0, '1', 0, 0, 0})}}, {{L"{A}", Default(REG_SZ, kEmpty)}}, {}},
    {"a key without a default value", {}, {}, {}, {L"{A}"}},
    {"a long name, which is not too long",
     {{Long(255), Default(REG_DWORD, kOne)}},
     {{Long(255), Default(REG_DWORD, kZero)}},
     {}},
    {"a name of other letters",
     {{L"Zus\u00E4tze \u4E2D", Default(REG_DWORD, kOne)}},
     {{L"Zus\u00E4tze \u4E2D", Default(REG_DWORD, kZero)}},
     {}},
    {"a first text of 259 characters",
     {{L"{A}", Default(REG_SZ, Repeated('a', 259))}},
     {{L"{A}", Default(REG_SZ, kEmpty)}},
     {}},
    {"a first text of 260 characters", {{L"{A}", Default(REG_SZ, Repeated('a', 260))}}, {}, {}},
    {"a first text of 5000 characters, behind which none is read",
     {{L"{A}", Default(REG_SZ, Repeated('a', 5000))}, {L"{B}", Default(REG_SZ, kX)}},
     {},
     {}},
    {"a text as long as the one before it",
     {{L"{A}", Default(REG_SZ, kOn)}, {L"{B}", Default(REG_SZ, kYes)}},
     {{L"{A}", Default(REG_SZ, kEmpty)}, {L"{B}", Default(REG_SZ, kEmpty)}},
     {}},
    {"a text longer than the one before it",
     {{L"{A}", Default(REG_SZ, kOn)}, {L"{B}", Default(REG_SZ, kFour)}},
     {{L"{A}", Default(REG_SZ, kEmpty)}},
     {}},
    {"shorter and shorter texts, a longer one, and a short one behind it",
     {{L"{A}", Default(REG_SZ, kFour)},
      {L"{B}", Default(REG_SZ, kOn)},
      {L"{C}", Default(REG_SZ, kFour)},
      {L"{D}", Default(REG_SZ, kX)}},
     {{L"{A}", Default(REG_SZ, kEmpty)}, {L"{B}", Default(REG_SZ, kEmpty)}},
     {}},
    {"a text behind an empty one", {{L"{A}", Default(REG_SZ, kEmpty)}, {L"{B}", Default(REG_SZ, kX)}}, {}, {}},
    {"a text behind one of no bytes", {{L"{A}", Default(REG_SZ, {})}, {L"{B}", Default(REG_SZ, kX)}}, {}, {}},
    {"a text behind a key without a default value", {{L"{B}", Default(REG_SZ, kX)}}, {}, {}, {L"{A}"}},
    {"a text behind bytes", {{L"{A}", Default(REG_BINARY, kOne)}, {L"{B}", Default(REG_SZ, kX)}}, {}, {}},
    {"a text with a number before it",
     {{L"{A}", Default(REG_DWORD, kOne)}, {L"{B}", Default(REG_SZ, kFour)}},
     {{L"{A}", Default(REG_DWORD, kZero)}, {L"{B}", Default(REG_SZ, kEmpty)}},
     {}},
    {"numbers between texts, which leave room for a text as long as the last",
     {{L"{A}", Default(REG_SZ, kOn)},
      {L"{B}", Default(REG_DWORD, kOne)},
      {L"{C}", Default(REG_DWORD, kZero)},
      {L"{D}", Default(REG_SZ, kYes)}},
     {{L"{A}", Default(REG_SZ, kEmpty)}, {L"{B}", Default(REG_DWORD, kZero)}, {L"{D}", Default(REG_SZ, kEmpty)}},
     {}},
    {"numbers behind a text that can't be read",
     {{L"{A}", Default(REG_BINARY, kOne)}, {L"{B}", Default(REG_DWORD, kOne)}, {L"{C}", Default(REG_DWORD, kTwo)}},
     {{L"{B}", Default(REG_DWORD, kZero)}},
     {}},
};

bool RunTool(const std::wstring& arguments)
{
    std::wstring command = L"reg.exe " + arguments;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process)) {
        return false;
    }
    DWORD code = 1;
    const bool ended = WaitForSingleObject(process.hProcess, kPatience) == WAIT_OBJECT_0 &&
                       GetExitCodeProcess(process.hProcess, &code) != FALSE;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return ended && code == 0;
}

/// What the system's own tool exports of a key of the current user.
std::string ExportOf(const std::wstring& path)
{
    wchar_t folder[MAX_PATH + 1] = {};
    GetTempPathW(MAX_PATH + 1, folder);
    const std::wstring file = folder + (L"suppression_" + std::to_wstring(GetCurrentProcessId()) + L".reg");
    EXPECT_TRUE(RunTool(L"export \"HKCU\\" + path + L"\" \"" + file + L"\" /y"));
    std::string bytes;
    {
        std::ifstream stream(std::string(file.begin(), file.end()), std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(stream), {});
    }
    DeleteFileW(file.c_str());
    return bytes;
}

const RegistryPlace kFirst(HKEY_CURRENT_USER, L"Software\\Torvane\\AddInsStartup");
const RegistryPlace kStartup(HKEY_CURRENT_USER, L"Software\\Torvane\\Startup");
const RegistryPlace kSecond(HKEY_CURRENT_USER, L"Software\\Torvane\\Startup\\Applications");
const RegistryPlace kBoth[] = {kFirst, kSecond};

/// Places that look like those of the current user and aren't.
const RegistryPlace kOthers[] = {
    {HKEY_USERS, L".DEFAULT\\Software\\Torvane\\AddInsStartup"},
    {HKEY_USERS, L".DEFAULT\\Software\\Torvane\\Startup"},
    {HKEY_LOCAL_MACHINE, L"Software\\Torvane\\AddInsStartup", KEY_WOW64_64KEY},
    {HKEY_LOCAL_MACHINE, L"Software\\Torvane\\AddInsStartup", KEY_WOW64_32KEY},
    {HKEY_LOCAL_MACHINE, L"Software\\Torvane\\Startup", KEY_WOW64_64KEY},
    {HKEY_LOCAL_MACHINE, L"Software\\Torvane\\Startup", KEY_WOW64_32KEY},
};

class SuppressionOnTheRegistry : public testing::Test
{
  protected:
    static void PutAll(const RegistryPlace& place, const AddIns& addIns)
    {
        for (const auto& [name, value] : addIns) {
            ASSERT_EQ(place.Put(name, value), ERROR_SUCCESS);
        }
    }

    /// Default value of a key; none when it or the key is missing.
    static std::optional<StoredValue> DefaultOf(const RegistryPlace& place, const std::wstring& name)
    {
        const auto parent = place.Read();
        if (!parent) {
            return std::nullopt;
        }
        const auto key = std::ranges::find(parent->subkeys, name, &StoredKey::name);
        if (key == parent->subkeys.end()) {
            return std::nullopt;
        }
        const auto value = std::ranges::find(key->values, std::wstring(), &StoredValue::name);
        return value == key->values.end() ? std::nullopt : std::optional(*value);
    }

    static std::optional<Bytes> BytesOf(const RegistryPlace& place, const std::wstring& name)
    {
        const auto value = DefaultOf(place, name);
        return value ? std::optional(value->bytes) : std::nullopt;
    }

    /// The state that is expected of a row, written by hand: what stood there before with some default values replaced.
    static StoredKey With(StoredKey parent, const AddIns& changed)
    {
        for (StoredKey& key : parent.subkeys) {
            if (const auto found = changed.find(key.name); found != changed.end()) {
                key.values = {found->second};
            }
        }
        return parent;
    }

    /// A tree with something of everything below one parent key.
    static void PutOfEverything(const RegistryPlace& place)
    {
        PutAll(place, {{L"{A}", Default(REG_DWORD, kOne)},
                       {L"{B}", Default(REG_SZ, kFour)},
                       {L"{C}", Default(REG_DWORD, kZero)},
                       {L"{D}", Default(REG_SZ, kOn)},
                       {L"{E}", Default(REG_SZ, kFour)},
                       {L"{G}", Default(REG_DWORD, kOne)},
                       {L"{A}\\Below", Default(REG_DWORD, kOne)},
                       {L"{A}\\Below\\Deeper", Default(REG_SZ, kOn)}});
        ASSERT_EQ(place.Make(L"{F}"), ERROR_SUCCESS);
        ASSERT_EQ(place.Put(L"{A}", {L"Title", REG_SZ, kOn}), ERROR_SUCCESS);
        ASSERT_EQ(place.Put(L"{A}", {L"Number", REG_DWORD, kOne}), ERROR_SUCCESS);
        ASSERT_EQ(place.Put(L"{B}", {L"Bytes", REG_BINARY, {1, 2, 3}}), ERROR_SUCCESS);
        ASSERT_EQ(place.Put(L"", Default(REG_DWORD, kOne)), ERROR_SUCCESS);
        ASSERT_EQ(place.Put(L"", {L"{A}", REG_DWORD, kOne}), ERROR_SUCCESS);
    }

    BorrowedPlaces borrowed{{kFirst, kStartup}};
    win32::Win32Registry registry;
    AddInSuppression suppression{registry};
};

TEST_F(SuppressionOnTheRegistry, EachValueStandsAsItShouldDuringTheRunAndAfterwards)
{
    for (const Row& row : kRows) {
        for (const RegistryPlace& place : kBoth) {
            SCOPED_TRACE(row.what);
            kFirst.Delete();
            kStartup.Delete();
            ASSERT_EQ(place.Make(L""), ERROR_SUCCESS);
            for (const std::wstring& name : row.without) {
                ASSERT_EQ(place.Make(name), ERROR_SUCCESS);
            }
            PutAll(place, row.before);
            const auto before = place.Read();
            ASSERT_TRUE(before);
            ASSERT_EQ(before->subkeys.size(), row.before.size() + row.without.size());
            AddInSuppression ours(registry);
            ours.Suppress();
            EXPECT_EQ(*place.Read(), With(*before, row.during));
            EXPECT_EQ(ours.Saved().size(), row.during.size());
            ours.Restore();
            EXPECT_EQ(*place.Read(), With(*before, row.after));
        }
    }
}

TEST_F(SuppressionOnTheRegistry, WhatIsSavedHasTheWholePathAndTheValueAsText)
{
    PutAll(kFirst, {{L"{B}", Default(REG_SZ, kOn)}, {L"{A}", Default(REG_DWORD, kOne)}});
    PutAll(kSecond, {{L"{A}", Default(REG_SZ, kFour)}});
    suppression.Suppress();
    const std::map<std::u16string, std::u16string> expected = {
        {u"Software\\Torvane\\AddInsStartup\\{A}", u"1"},
        {u"Software\\Torvane\\AddInsStartup\\{B}", u"on"},
        {u"Software\\Torvane\\Startup\\Applications\\{A}", u"four"},
    };
    EXPECT_EQ(suppression.Saved(), expected);
}

TEST_F(SuppressionOnTheRegistry, NothingButTheDefaultValuesOfTheAddInsIsTouched)
{
    PutOfEverything(kFirst);
    suppression.Suppress();
    const std::vector<std::string> expected = {
        "AddInsStartup",
        "AddInsStartup [] type 4: 01 00 00 00",
        "AddInsStartup [{A}] type 4: 01 00 00 00",
        "AddInsStartup\\{A}",
        "AddInsStartup\\{A} [] type 4: 00 00 00 00",
        "AddInsStartup\\{A} [Number] type 4: 01 00 00 00",
        "AddInsStartup\\{A} [Title] type 1: 6f 00 6e 00 00 00",
        "AddInsStartup\\{A}\\Below",
        "AddInsStartup\\{A}\\Below [] type 4: 01 00 00 00",
        "AddInsStartup\\{A}\\Below\\Deeper",
        "AddInsStartup\\{A}\\Below\\Deeper [] type 1: 6f 00 6e 00 00 00",
        "AddInsStartup\\{B}",
        "AddInsStartup\\{B} [] type 1: 00 00",
        "AddInsStartup\\{B} [Bytes] type 3: 01 02 03",
        "AddInsStartup\\{C}",
        "AddInsStartup\\{C} [] type 4: 00 00 00 00",
        "AddInsStartup\\{D}",
        "AddInsStartup\\{D} [] type 1: 00 00",
        "AddInsStartup\\{E}",
        "AddInsStartup\\{E} [] type 1: 66 00 6f 00 75 00 72 00 00 00",
        "AddInsStartup\\{F}",
        "AddInsStartup\\{G}",
        "AddInsStartup\\{G} [] type 4: 00 00 00 00",
    };
    std::vector<std::string> lines = kFirst.Lines();
    // Values of a key have no order that could be relied on; keys are listed by name.
    std::ranges::stable_sort(lines, {}, [](const std::string& line) { return line.substr(0, line.find(']')); });
    EXPECT_EQ(lines, expected);
}

TEST_F(SuppressionOnTheRegistry, TheExportOfTheSystemsOwnToolIsTheSameByteForByteAfterwards)
{
    PutOfEverything(kFirst);
    PutOfEverything(kSecond);
    const std::string firstBefore = ExportOf(L"Software\\Torvane\\AddInsStartup");
    const std::string secondBefore = ExportOf(L"Software\\Torvane\\Startup");
    ASSERT_GT(firstBefore.size(), 500u);
    ASSERT_GT(secondBefore.size(), 500u);
    suppression.Suppress();
    EXPECT_NE(ExportOf(L"Software\\Torvane\\AddInsStartup"), firstBefore);
    EXPECT_NE(ExportOf(L"Software\\Torvane\\Startup"), secondBefore);
    suppression.Restore();
    EXPECT_EQ(ExportOf(L"Software\\Torvane\\AddInsStartup"), firstBefore);
    EXPECT_EQ(ExportOf(L"Software\\Torvane\\Startup"), secondBefore);
}

TEST_F(SuppressionOnTheRegistry, WhatStandsBesideTheAddInsKeyIsNoAddIn)
{
    PutAll(kStartup, {{L"", Default(REG_DWORD, kOne)},
                      {L"Documents", Default(REG_DWORD, kOne)},
                      {L"Applications", Default(REG_SZ, kOn)},
                      {L"Applications\\{A}", Default(REG_DWORD, kOne)}});
    suppression.Suppress();
    const std::vector<std::string> expected = {
        "Startup",
        "Startup [] type 4: 01 00 00 00",
        "Startup\\Applications",
        "Startup\\Applications [] type 1: 6f 00 6e 00 00 00",
        "Startup\\Applications\\{A}",
        "Startup\\Applications\\{A} [] type 4: 00 00 00 00",
        "Startup\\Documents",
        "Startup\\Documents [] type 4: 01 00 00 00",
    };
    EXPECT_EQ(kStartup.Lines(), expected);
}

TEST_F(SuppressionOnTheRegistry, WithoutTheParentKeysNothingHappensAndNoneIsMade)
{
    suppression.Suppress();
    EXPECT_TRUE(suppression.Saved().empty());
    suppression.Restore();
    EXPECT_FALSE(kFirst.Read());
    EXPECT_FALSE(kStartup.Read());
}

TEST_F(SuppressionOnTheRegistry, ParentKeysWithoutAddInsStayAsTheyAre)
{
    ASSERT_EQ(kFirst.Put(L"", Default(REG_DWORD, kOne)), ERROR_SUCCESS);
    ASSERT_EQ(kSecond.Make(L""), ERROR_SUCCESS);
    suppression.Suppress();
    suppression.Restore();
    EXPECT_EQ(kFirst.Lines(), (std::vector<std::string>{"AddInsStartup", "AddInsStartup [] type 4: 01 00 00 00"}));
    EXPECT_EQ(kSecond.Lines(), std::vector<std::string>{"Applications"});
}

TEST_F(SuppressionOnTheRegistry, EachParentKeyBeginsWithRoomForALongText)
{
    PutAll(kFirst, {{L"{A}", Default(REG_BINARY, kOne)}, {L"{B}", Default(REG_SZ, kX)}});
    PutAll(kSecond, {{L"{A}", Default(REG_SZ, Repeated('a', 259))}});
    suppression.Suppress();
    EXPECT_EQ(BytesOf(kFirst, L"{B}"), kX);
    EXPECT_EQ(BytesOf(kSecond, L"{A}"), kEmpty);
}

TEST_F(SuppressionOnTheRegistry, BothViewsOfTheUsersTreeShowTheSame)
{
    PutAll(kFirst, {{L"{A}", Default(REG_DWORD, kOne)}});
    suppression.Suppress();
    for (const REGSAM view : {KEY_WOW64_32KEY, KEY_WOW64_64KEY}) {
        const RegistryPlace seen(HKEY_CURRENT_USER, L"Software\\Torvane\\AddInsStartup", view);
        EXPECT_EQ(BytesOf(seen, L"{A}"), kZero);
    }
    suppression.Restore();
    for (const REGSAM view : {KEY_WOW64_32KEY, KEY_WOW64_64KEY}) {
        const RegistryPlace seen(HKEY_CURRENT_USER, L"Software\\Torvane\\AddInsStartup", view);
        EXPECT_EQ(BytesOf(seen, L"{A}"), kOne);
    }
}

TEST_F(SuppressionOnTheRegistry, OtherUsersAndBothViewsOfTheMachinesTreeAreLeftAlone)
{
    const BorrowedPlaces others({std::begin(kOthers), std::end(kOthers)});
    std::vector<std::vector<std::string>> before;
    for (const RegistryPlace& place : kOthers) {
        if (place.Put(L"{A}", Default(REG_DWORD, kOne)) != ERROR_SUCCESS) {
            GTEST_SKIP() << "this user may not write other trees";
        }
        ASSERT_EQ(place.Put(L"Applications\\{A}", Default(REG_DWORD, kOne)), ERROR_SUCCESS);
        before.push_back(place.Lines());
    }
    PutAll(kFirst, {{L"{A}", Default(REG_DWORD, kOne)}});
    suppression.Suppress();
    EXPECT_EQ(suppression.Saved().size(), 1u);
    for (size_t index = 0; index < before.size(); ++index) {
        EXPECT_EQ(kOthers[index].Lines(), before[index]);
    }
    suppression.Restore();
    for (size_t index = 0; index < before.size(); ++index) {
        EXPECT_EQ(kOthers[index].Lines(), before[index]);
    }
}

/// A key that lets nobody use some rights, until the end of the test.
class DeniedKey
{
  public:
    DeniedKey(const RegistryPlace& of, std::wstring name, REGSAM rights) : place(of), subkey(std::move(name))
    {
        place.Deny(subkey, rights);
    }
    DeniedKey(const DeniedKey&) = delete;
    DeniedKey& operator=(const DeniedKey&) = delete;
    ~DeniedKey() { place.Deny(subkey, 0); }

  private:
    RegistryPlace place;
    std::wstring subkey;
};

TEST_F(SuppressionOnTheRegistry, AKeyThatMayOnlyBeReadIsPassedOverAndTheWalkGoesOn)
{
    PutAll(kFirst, {{L"{A}", Default(REG_SZ, kOn)},
                    {L"{B}", Default(REG_DWORD, kOne)},
                    {L"{C}", Default(REG_SZ, kFour)},
                    {L"{D}", Default(REG_SZ, kYes)}});
    const DeniedKey number(kFirst, L"{B}", KEY_SET_VALUE);
    const DeniedKey text(kFirst, L"{C}", KEY_SET_VALUE);
    const auto before = kFirst.Read();
    suppression.Suppress();
    EXPECT_EQ(BytesOf(kFirst, L"{A}"), kEmpty);
    EXPECT_EQ(BytesOf(kFirst, L"{B}"), kOne);
    EXPECT_EQ(BytesOf(kFirst, L"{C}"), kFour);
    EXPECT_EQ(BytesOf(kFirst, L"{D}"), kEmpty);
    EXPECT_EQ(suppression.Saved().size(), 2u);
    suppression.Restore();
    EXPECT_EQ(kFirst.Read(), before);
}

TEST_F(SuppressionOnTheRegistry, AParentKeyThatMayNotBeReadLeavesTheOtherOne)
{
    PutAll(kFirst, {{L"{A}", Default(REG_DWORD, kOne)}});
    PutAll(kSecond, {{L"{A}", Default(REG_DWORD, kOne)}});
    {
        const DeniedKey parent(kFirst, L"", KEY_ENUMERATE_SUB_KEYS);
        suppression.Suppress();
    }
    EXPECT_EQ(BytesOf(kFirst, L"{A}"), kOne);
    EXPECT_EQ(BytesOf(kSecond, L"{A}"), kZero);
    suppression.Restore();
    EXPECT_EQ(BytesOf(kSecond, L"{A}"), kOne);
}

TEST_F(SuppressionOnTheRegistry, AKeyThatCanNoLongerBeWrittenDoesNotKeepTheOthersFromComingBack)
{
    PutAll(kFirst,
           {{L"{A}", Default(REG_DWORD, kOne)}, {L"{B}", Default(REG_DWORD, kOne)}, {L"{C}", Default(REG_SZ, kOn)}});
    suppression.Suppress();
    kFirst.Delete(L"{A}");
    {
        const DeniedKey key(kFirst, L"{B}", KEY_SET_VALUE);
        suppression.Restore();
    }
    const std::vector<std::string> expected = {
        "AddInsStartup",
        "AddInsStartup\\{B}",
        "AddInsStartup\\{B} [] type 4: 00 00 00 00",
        "AddInsStartup\\{C}",
        "AddInsStartup\\{C} [] type 1: 6f 00 6e 00 00 00",
    };
    EXPECT_EQ(kFirst.Lines(), expected);
}

TEST_F(SuppressionOnTheRegistry, WhatSomebodyAddsDuringTheRunStays)
{
    PutAll(kFirst, {{L"{B}", Default(REG_DWORD, kOne)}});
    suppression.Suppress();
    PutAll(kFirst, {{L"{A}", Default(REG_DWORD, kOne)}, {L"{C}", Default(REG_DWORD, kZero)}});
    ASSERT_EQ(kFirst.Put(L"{B}", {L"Title", REG_SZ, kOn}), ERROR_SUCCESS);
    PutAll(kSecond, {{L"{A}", Default(REG_SZ, kFour)}});
    suppression.Restore();
    const std::vector<std::string> expected = {
        "AddInsStartup",
        "AddInsStartup\\{A}",
        "AddInsStartup\\{A} [] type 4: 01 00 00 00",
        "AddInsStartup\\{B}",
        "AddInsStartup\\{B} [] type 4: 01 00 00 00",
        "AddInsStartup\\{B} [Title] type 1: 6f 00 6e 00 00 00",
        "AddInsStartup\\{C}",
        "AddInsStartup\\{C} [] type 4: 00 00 00 00",
    };
    EXPECT_EQ(kFirst.Lines(), expected);
    EXPECT_EQ(BytesOf(kSecond, L"{A}"), kFour);
}

TEST_F(SuppressionOnTheRegistry, WhatSomebodyWritesOverASwitchedOffValueGivesWayToTheSavedOne)
{
    PutAll(kFirst, {{L"{A}", Default(REG_DWORD, kOne)}, {L"{B}", Default(REG_SZ, kOn)}});
    suppression.Suppress();
    PutAll(kFirst, {{L"{A}", Default(REG_SZ, kFour)}, {L"{B}", Default(REG_DWORD, kTwo)}});
    suppression.Restore();
    EXPECT_EQ(DefaultOf(kFirst, L"{A}"), Default(REG_DWORD, kOne));
    EXPECT_EQ(DefaultOf(kFirst, L"{B}"), Default(REG_SZ, kOn));
}

TEST_F(SuppressionOnTheRegistry, ASecondSuppressForgetsWhatTheFirstSaved)
{
    PutAll(kFirst, {{L"{A}", Default(REG_DWORD, kOne)}, {L"{B}", Default(REG_SZ, kOn)}});
    suppression.Suppress();
    suppression.Suppress();
    EXPECT_TRUE(suppression.Saved().empty());
    suppression.Restore();
    EXPECT_EQ(BytesOf(kFirst, L"{A}"), kZero);
    EXPECT_EQ(BytesOf(kFirst, L"{B}"), kEmpty);
}

TEST_F(SuppressionOnTheRegistry, ASecondRestoreWritesTheSameAgain)
{
    PutAll(kFirst, {{L"{A}", Default(REG_DWORD, kOne)}});
    suppression.Suppress();
    suppression.Restore();
    PutAll(kFirst, {{L"{A}", Default(REG_DWORD, kZero)}});
    suppression.Restore();
    EXPECT_EQ(BytesOf(kFirst, L"{A}"), kOne);
}

TEST_F(SuppressionOnTheRegistry, ARestoreWithoutASuppressChangesNothing)
{
    PutOfEverything(kFirst);
    const auto before = kFirst.Read();
    suppression.Restore();
    EXPECT_EQ(kFirst.Read(), before);
    EXPECT_FALSE(kStartup.Read());
}

TEST_F(SuppressionOnTheRegistry, ManyRunsOneBehindTheOtherChangeNothing)
{
    PutOfEverything(kFirst);
    PutOfEverything(kSecond);
    const auto first = kFirst.Read();
    const auto second = kSecond.Read();
    for (int run = 0; run < 20; ++run) {
        suppression.Suppress();
        suppression.Restore();
    }
    EXPECT_EQ(kFirst.Read(), first);
    EXPECT_EQ(kSecond.Read(), second);
}

TEST_F(SuppressionOnTheRegistry, AfterAProcessThatDiedTheAddInsStayOffAndTheNextRunLeavesThemSo)
{
    PutAll(kFirst, {{L"{A}", Default(REG_DWORD, kOne)}, {L"{B}", Default(REG_SZ, kOn)}});
    PutAll(kSecond, {{L"{A}", Default(REG_DWORD, kTwo)}});
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring command = L"\"" + std::wstring(program) +
                           L"\" --gtest_also_run_disabled_tests --gtest_filter=Child.DISABLED_SuppressesAndDies";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION child{};
    ASSERT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &child));
    DWORD code = 0;
    EXPECT_EQ(WaitForSingleObject(child.hProcess, kPatience), WAIT_OBJECT_0);
    GetExitCodeProcess(child.hProcess, &code);
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
    ASSERT_EQ(code, kDiedCode);
    const std::vector<std::string> left = {
        "AddInsStartup",
        "AddInsStartup\\{A}",
        "AddInsStartup\\{A} [] type 4: 00 00 00 00",
        "AddInsStartup\\{B}",
        "AddInsStartup\\{B} [] type 1: 00 00",
    };
    EXPECT_EQ(kFirst.Lines(), left);
    suppression.Suppress();
    EXPECT_TRUE(suppression.Saved().empty());
    suppression.Restore();
    EXPECT_EQ(kFirst.Lines(), left);
    EXPECT_EQ(BytesOf(kSecond, L"{A}"), kTwo);
}

/// Played by a second process of this program.
TEST(Child, DISABLED_SuppressesAndDies)
{
    win32::Win32Registry registry;
    AddInSuppression suppression(registry);
    suppression.Suppress();
    TerminateProcess(GetCurrentProcess(), kDiedCode);
}

TEST(BorrowedPlacesTest, APlaceStandsAsItWasBeforeHoweverATestLeavesIt)
{
    const RegistryPlace place(HKEY_CURRENT_USER, L"Software\\TorvaneBorrowed\\Below");
    const RegistryPlace above(HKEY_CURRENT_USER, L"Software\\TorvaneBorrowed");
    above.Delete();
    {
        const BorrowedPlaces borrowed({place});
        ASSERT_EQ(place.Put(L"{A}", Default(REG_DWORD, kOne)), ERROR_SUCCESS);
    }
    EXPECT_FALSE(above.Read());
    ASSERT_EQ(place.Put(L"{A}", Default(REG_DWORD, kOne)), ERROR_SUCCESS);
    ASSERT_EQ(place.Put(L"", {L"Text", REG_SZ, {'o', 0, 'n', 0}}), ERROR_SUCCESS);
    const std::vector<std::string> before = {
        "Below",
        "Below [Text] type 1: 6f 00 6e 00",
        "Below\\{A}",
        "Below\\{A} [] type 4: 01 00 00 00",
    };
    EXPECT_EQ(place.Lines(), before);
    {
        const BorrowedPlaces borrowed({place});
        EXPECT_FALSE(place.Read());
        ASSERT_EQ(place.Put(L"{B}\\Deep", Default(REG_SZ, kOn)), ERROR_SUCCESS);
    }
    EXPECT_EQ(place.Lines(), before);
    above.Delete();
    EXPECT_FALSE(above.Read());
}

} // namespace
} // namespace tv
