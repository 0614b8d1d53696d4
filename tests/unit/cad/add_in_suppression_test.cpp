#include "cad/add_in_suppression.h"

#include "fakes/platform/fake_platform.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace tv {

namespace {

constexpr char16_t kFirst[] = u"Software\\Torvane\\AddInsStartup";
constexpr char16_t kSecond[] = u"Software\\Torvane\\Startup\\Applications";

std::u16string Below(const std::u16string& parent, const std::u16string& name)
{
    return parent + u"\\" + name;
}

class AddInSuppressionTest : public testing::Test
{
  protected:
    std::optional<uint32_t> Number(const std::u16string& path)
    {
        return machine.registry.Number(kCurrentUserRoot, path, u"");
    }
    std::optional<std::u16string> Text(const std::u16string& path)
    {
        return machine.registry.Text(kCurrentUserRoot, path, u"");
    }
    void PutNumber(const std::u16string& path, uint32_t number)
    {
        machine.registry.PutNumber(kCurrentUserRoot, path, u"", number);
    }
    void PutText(const std::u16string& path, const std::u16string& text)
    {
        machine.registry.PutText(kCurrentUserRoot, path, u"", text);
    }

    fakes::FakePlatform machine;
    AddInSuppression suppression{machine.registry};
};

/// The registry as one of two programs sees it, which the other interrupts: `beforeCall` is told the number of each
/// call, counted from 1.
class InterruptedRegistry final : public RegistryService
{
  public:
    explicit InterruptedRegistry(RegistryService& service) : registry(service) {}

    uint32_t OpenKey(KeyHandle parent, std::u16string_view subkey, uint32_t access, KeyHandle& key) override
    {
        return Next().OpenKey(parent, subkey, access, key);
    }
    uint32_t CreateKey(KeyHandle parent, std::u16string_view subkey, uint32_t access, KeyHandle& key) override
    {
        return Next().CreateKey(parent, subkey, access, key);
    }
    uint32_t OpenKeyTransacted(KeyHandle parent, std::u16string_view subkey, uint32_t access,
                               TransactionHandle transaction, KeyHandle& key) override
    {
        return Next().OpenKeyTransacted(parent, subkey, access, transaction, key);
    }
    uint32_t CloseKey(KeyHandle key) override { return Next().CloseKey(key); }
    uint32_t QueryValue(KeyHandle key, std::u16string_view name, uint32_t& type, uint8_t* buffer,
                        uint32_t& size) override
    {
        return Next().QueryValue(key, name, type, buffer, size);
    }
    uint32_t SetValue(KeyHandle key, std::u16string_view name, uint32_t type, std::span<const uint8_t> data) override
    {
        return Next().SetValue(key, name, type, data);
    }
    uint32_t EnumKey(KeyHandle key, uint32_t index, std::u16string& name) override
    {
        return Next().EnumKey(key, index, name);
    }
    bool ExpandEnvironment(std::u16string_view text, std::u16string& expanded) override
    {
        return Next().ExpandEnvironment(text, expanded);
    }

    std::function<void(uint32_t)> beforeCall = [](uint32_t) {};
    uint32_t calls = 0;

  private:
    RegistryService& Next()
    {
        beforeCall(++calls);
        return registry;
    }

    RegistryService& registry;
};

void PutAddInsOfEachKind(fakes::FakeRegistry& registry)
{
    for (const std::u16string parent : {kFirst, kSecond}) {
        registry.PutNumber(kCurrentUserRoot, Below(parent, u"{A}"), u"", 1);
        registry.PutText(kCurrentUserRoot, Below(parent, u"{B}"), u"", u"four");
        registry.PutNumber(kCurrentUserRoot, Below(parent, u"{C}"), u"", 0);
        registry.PutText(kCurrentUserRoot, Below(parent, u"{D}"), u"", u"on");
    }
}

void RunOnce(RegistryService& registry)
{
    AddInSuppression suppression(registry);
    suppression.Suppress();
    suppression.Restore();
}

} // namespace

TEST_F(AddInSuppressionTest, ANumberOneReadsZeroDuringTheRunAndOneAfterwards)
{
    PutNumber(Below(kFirst, u"{A}"), 1);
    suppression.Suppress();
    EXPECT_EQ(Number(Below(kFirst, u"{A}")), 0u);
    suppression.Restore();
    EXPECT_EQ(Number(Below(kFirst, u"{A}")), 1u);
}

TEST_F(AddInSuppressionTest, AnyOtherNumberIsLeftAloneAndNotRecorded)
{
    PutNumber(Below(kFirst, u"{A}"), 0);
    PutNumber(Below(kFirst, u"{B}"), 2);
    suppression.Suppress();
    EXPECT_EQ(Number(Below(kFirst, u"{A}")), 0u);
    EXPECT_EQ(Number(Below(kFirst, u"{B}")), 2u);
    EXPECT_TRUE(suppression.Saved().empty());
}

TEST_F(AddInSuppressionTest, ATextIsEmptyDuringTheRunAndBackAfterwards)
{
    PutText(Below(kSecond, u"{A}"), u"on");
    suppression.Suppress();
    EXPECT_EQ(Text(Below(kSecond, u"{A}")), u"");
    suppression.Restore();
    EXPECT_EQ(Text(Below(kSecond, u"{A}")), u"on");
}

TEST_F(AddInSuppressionTest, AnExpandableTextComesBackAsAPlainOneWithItsTerminator)
{
    const fakes::RegistryValue expandable{kRegExpandString, {'o', 0, 'n', 0, 0, 0}};
    machine.registry.PutValue(kCurrentUserRoot, Below(kFirst, u"{A}"), u"", expandable);
    suppression.Suppress();
    suppression.Restore();
    const fakes::RegistryValue plain{kRegString, {'o', 0, 'n', 0, 0, 0}};
    EXPECT_EQ(machine.registry.Value(kCurrentUserRoot, Below(kFirst, u"{A}"), u""), plain);
}

TEST_F(AddInSuppressionTest, ATextThatReadsOneComesBackAsANumber)
{
    PutText(Below(kFirst, u"{A}"), u"1");
    suppression.Suppress();
    EXPECT_EQ(Text(Below(kFirst, u"{A}")), u"");
    suppression.Restore();
    EXPECT_EQ(Number(Below(kFirst, u"{A}")), 1u);
}

TEST_F(AddInSuppressionTest, ATextLongerThanTheOneBeforeItStaysInForce)
{
    PutText(Below(kFirst, u"{A}"), u"on");
    PutText(Below(kFirst, u"{B}"), u"four");
    suppression.Suppress();
    EXPECT_EQ(Text(Below(kFirst, u"{A}")), u"");
    EXPECT_EQ(Text(Below(kFirst, u"{B}")), u"four");
}

TEST_F(AddInSuppressionTest, ATextAsLongAsTheOneBeforeItIsSuppressed)
{
    PutText(Below(kFirst, u"{A}"), u"on");
    PutText(Below(kFirst, u"{B}"), u"ja");
    suppression.Suppress();
    EXPECT_EQ(Text(Below(kFirst, u"{B}")), u"");
}

TEST_F(AddInSuppressionTest, NoTextIsReadBehindASubkeyWithNoDefaultValue)
{
    machine.registry.AddKey(kCurrentUserRoot, Below(kFirst, u"{A}"));
    PutText(Below(kFirst, u"{B}"), u"on");
    PutText(Below(kFirst, u"{C}"), u"x");
    suppression.Suppress();
    EXPECT_EQ(Text(Below(kFirst, u"{B}")), u"on");
    EXPECT_EQ(Text(Below(kFirst, u"{C}")), u"x");
}

TEST_F(AddInSuppressionTest, ANumberBetweenTwoTextsDoesNotChangeWhatCanBeRead)
{
    PutText(Below(kFirst, u"{A}"), u"on");
    PutNumber(Below(kFirst, u"{B}"), 1);
    PutText(Below(kFirst, u"{C}"), u"ja");
    suppression.Suppress();
    EXPECT_EQ(Text(Below(kFirst, u"{C}")), u"");
}

TEST_F(AddInSuppressionTest, EachParentKeyBeginsWithRoomForALongText)
{
    machine.registry.AddKey(kCurrentUserRoot, Below(kFirst, u"{A}"));
    PutText(Below(kSecond, u"{B}"), std::u16string(259, u'x'));
    PutText(Below(kSecond, u"{C}"), u"on");
    suppression.Suppress();
    EXPECT_EQ(Text(Below(kSecond, u"{B}")), u"");
    EXPECT_EQ(Text(Below(kSecond, u"{C}")), u"");
}

TEST_F(AddInSuppressionTest, AnEmptyTextIsLeftAlone)
{
    PutText(Below(kFirst, u"{A}"), u"");
    suppression.Suppress();
    EXPECT_TRUE(suppression.Saved().empty());
}

TEST_F(AddInSuppressionTest, ASubkeyThatCannotBeOpenedIsPassedOver)
{
    PutNumber(Below(kFirst, u"{A}"), 1);
    PutNumber(Below(kFirst, u"{B}"), 1);
    machine.registry.Deny(kCurrentUserRoot, Below(kFirst, u"{A}"));
    suppression.Suppress();
    EXPECT_EQ(Number(Below(kFirst, u"{B}")), 0u);
    EXPECT_EQ(suppression.Saved().size(), 1u);
}

TEST_F(AddInSuppressionTest, NothingHappensWithoutTheParentKeys)
{
    suppression.Suppress();
    suppression.Restore();
    EXPECT_TRUE(suppression.Saved().empty());
    EXPECT_EQ(machine.log.CountOf("registry.SetValue"), 0u);
    EXPECT_FALSE(machine.registry.KeyExists(kCurrentUserRoot, kFirst));
}

TEST_F(AddInSuppressionTest, AnAddInRegisteredDuringTheRunIsNotTouchedByTheRestore)
{
    PutNumber(Below(kFirst, u"{A}"), 1);
    suppression.Suppress();
    PutNumber(Below(kFirst, u"{B}"), 0);
    suppression.Restore();
    EXPECT_EQ(Number(Below(kFirst, u"{A}")), 1u);
    EXPECT_EQ(Number(Below(kFirst, u"{B}")), 0u);
}

TEST_F(AddInSuppressionTest, TheMapIsKeptByTheRestoreAndEmptiedByTheNextSuppress)
{
    PutNumber(Below(kFirst, u"{A}"), 1);
    suppression.Suppress();
    suppression.Restore();
    EXPECT_EQ(suppression.Saved().size(), 1u);
    EXPECT_EQ(suppression.Saved().begin()->first, u"Software\\Torvane\\AddInsStartup\\{A}");
    EXPECT_EQ(suppression.Saved().begin()->second, u"1");
    PutNumber(Below(kFirst, u"{A}"), 0);
    suppression.Suppress();
    EXPECT_TRUE(suppression.Saved().empty());
}

TEST_F(AddInSuppressionTest, AValueThatCouldNotBeWrittenIsNotRecorded)
{
    PutNumber(Below(kFirst, u"{A}"), 1);
    machine.log.FailNth("registry.SetValue", 1);
    suppression.Suppress();
    EXPECT_TRUE(suppression.Saved().empty());
    EXPECT_EQ(machine.registry.OpenCount(), 0u);
}

TEST_F(AddInSuppressionTest, ATextThatCouldNotBeWrittenIsNotRecorded)
{
    PutText(Below(kFirst, u"{A}"), u"on");
    machine.log.FailNth("registry.SetValue", 1);
    suppression.Suppress();
    EXPECT_TRUE(suppression.Saved().empty());
    EXPECT_EQ(Text(Below(kFirst, u"{A}")), u"on");
}

TEST_F(AddInSuppressionTest, BehindAnEmptyTextNoOtherIsRead)
{
    PutText(Below(kFirst, u"{A}"), u"");
    PutText(Below(kFirst, u"{B}"), u"x");
    suppression.Suppress();
    EXPECT_EQ(Text(Below(kFirst, u"{B}")), u"x");
}

TEST_F(AddInSuppressionTest, TheFirstTextOfAParentKeyMayHave259CharactersAndNoMore)
{
    PutText(Below(kFirst, u"{A}"), std::u16string(260, u'x'));
    PutText(Below(kSecond, u"{A}"), std::u16string(259, u'y'));
    suppression.Suppress();
    EXPECT_EQ(Text(Below(kFirst, u"{A}")), std::u16string(260, u'x'));
    EXPECT_EQ(Text(Below(kSecond, u"{A}")), u"");
}

TEST_F(AddInSuppressionTest, TheRoomShrinksFromTextToTextAndNeverGrowsAgain)
{
    PutText(Below(kFirst, u"{A}"), u"four");
    PutText(Below(kFirst, u"{B}"), u"on");
    PutText(Below(kFirst, u"{C}"), u"four");
    PutText(Below(kFirst, u"{D}"), u"x");
    suppression.Suppress();
    EXPECT_EQ(Text(Below(kFirst, u"{A}")), u"");
    EXPECT_EQ(Text(Below(kFirst, u"{B}")), u"");
    EXPECT_EQ(Text(Below(kFirst, u"{C}")), u"four");
    EXPECT_EQ(Text(Below(kFirst, u"{D}")), u"x");
}

TEST_F(AddInSuppressionTest, AValueThatIsNeitherNumberNorTerminatedTextEndsTheReadingOfTexts)
{
    const fakes::RegistryValue unreadable[] = {
        {kRegBinary, {1, 0, 0, 0}},
        {kRegNumberBigEndian, {0, 0, 0, 1}},
        {kRegString, {'o', 0, 'n', 0}},
        {kRegString, {'o', 0, 'n'}},
    };
    for (const fakes::RegistryValue& value : unreadable) {
        machine.registry.PutValue(kCurrentUserRoot, Below(kFirst, u"{A}"), u"", value);
        PutText(Below(kFirst, u"{B}"), u"x");
        suppression.Suppress();
        EXPECT_EQ(machine.registry.Value(kCurrentUserRoot, Below(kFirst, u"{A}"), u""), value);
        EXPECT_EQ(Text(Below(kFirst, u"{B}")), u"x");
        EXPECT_TRUE(suppression.Saved().empty());
    }
}

TEST_F(AddInSuppressionTest, ASubkeyThatCannotBeOpenedDoesNotChangeWhatCanBeRead)
{
    PutText(Below(kFirst, u"{A}"), u"on");
    PutText(Below(kFirst, u"{B}"), u"longer");
    PutText(Below(kFirst, u"{C}"), u"ja");
    machine.registry.Deny(kCurrentUserRoot, Below(kFirst, u"{B}"));
    suppression.Suppress();
    EXPECT_EQ(Text(Below(kFirst, u"{C}")), u"");
}

TEST_F(AddInSuppressionTest, ASubkeyWhoseNameIsTooLongIsPassedOver)
{
    const std::u16string longName(261, u'a');
    PutNumber(Below(kFirst, longName), 1);
    PutNumber(Below(kFirst, u"b"), 1);
    suppression.Suppress();
    EXPECT_EQ(Number(Below(kFirst, longName)), 1u);
    EXPECT_EQ(Number(Below(kFirst, u"b")), 0u);
}

TEST_F(AddInSuppressionTest, AParentKeyThatCannotBeOpenedLeavesTheOtherOne)
{
    PutNumber(Below(kFirst, u"{A}"), 1);
    PutNumber(Below(kSecond, u"{A}"), 1);
    machine.registry.Deny(kCurrentUserRoot, kFirst);
    suppression.Suppress();
    EXPECT_EQ(Number(Below(kFirst, u"{A}")), 1u);
    EXPECT_EQ(Number(Below(kSecond, u"{A}")), 0u);
}

TEST_F(AddInSuppressionTest, OnlyTheDefaultValueOfASubkeyCounts)
{
    machine.registry.PutNumber(kCurrentUserRoot, Below(kFirst, u"{A}"), u"Other", 1);
    machine.registry.PutNumber(kCurrentUserRoot, kFirst, u"", 1);
    suppression.Suppress();
    EXPECT_EQ(machine.registry.Number(kCurrentUserRoot, Below(kFirst, u"{A}"), u"Other"), 1u);
    EXPECT_EQ(Number(kFirst), 1u);
    EXPECT_TRUE(suppression.Saved().empty());
}

TEST_F(AddInSuppressionTest, AKeyThatWentDuringTheRunDoesNotKeepTheOthersFromBeingRestored)
{
    PutNumber(Below(kFirst, u"{A}"), 1);
    PutNumber(Below(kFirst, u"{B}"), 1);
    PutText(Below(kFirst, u"{C}"), u"on");
    suppression.Suppress();
    machine.registry.DeleteKey(kCurrentUserRoot, Below(kFirst, u"{A}"));
    machine.registry.Deny(kCurrentUserRoot, Below(kFirst, u"{B}"));
    suppression.Restore();
    EXPECT_FALSE(machine.registry.KeyExists(kCurrentUserRoot, Below(kFirst, u"{A}")));
    EXPECT_EQ(Text(Below(kFirst, u"{C}")), u"on");
}

TEST_F(AddInSuppressionTest, ARestoreWithoutASuppressDoesNothing)
{
    PutNumber(Below(kFirst, u"{A}"), 0);
    suppression.Restore();
    EXPECT_EQ(Number(Below(kFirst, u"{A}")), 0u);
    EXPECT_EQ(machine.log.CountOf("registry.SetValue"), 0u);
}

TEST_F(AddInSuppressionTest, AnyValueStandsByteForByteAsItWasAfterwards)
{
    const fakes::RegistryValue values[] = {
        {kRegNumber, {1, 0, 0, 0}},
        {kRegNumber, {0, 0, 0, 0}},
        {kRegNumber, {2, 0, 0, 0}},
        {kRegNumber, {0, 0, 0, 1}},
        {kRegNumber, {1, 0, 0, 0, 0, 0, 0, 0}},
        {kRegNumberBigEndian, {1, 0, 0, 0}},
        {kRegBinary, {1, 0, 0, 0}},
        {kRegBinary, {}},
        {kRegString, {}},
        {kRegString, {0, 0}},
        {kRegString, {0, 0, 0, 0}},
        {kRegString, {'o', 0, 'n', 0, 0, 0}},
        {kRegString, {'o', 0, 'n', 0}},
        {kRegString, {'o', 0, 'n', 0, 0}},
        {kRegString, {'o', 0, 'n', 0, 0, 0, 0, 0}},
        {kRegString, {'o', 0, 0, 0, 'n', 0, 0, 0}},
        {kRegString, {'0', 0, 0, 0}},
        {kRegString, {'1', 0, '1', 0, 0, 0}},
        {kRegExpandString, {'o', 0, 'n', 0}},
        {kRegExpandString, {0, 0}},
    };
    for (const fakes::RegistryValue& value : values) {
        for (const std::u16string parent : {kFirst, kSecond}) {
            fakes::FakePlatform other;
            other.registry.PutValue(kCurrentUserRoot, Below(parent, u"{A}"), u"", value);
            const std::vector<std::u16string> before = other.registry.Export();
            AddInSuppression ours(other.registry);
            ours.Suppress();
            ours.Restore();
            EXPECT_EQ(other.registry.Export(), before);
            EXPECT_EQ(other.registry.OpenCount(), 0u);
        }
    }
}

TEST_F(AddInSuppressionTest, AWholeHiveStandsByteForByteAsItWasAfterwards)
{
    PutNumber(Below(kFirst, u"{A}"), 1);
    PutText(Below(kFirst, u"{B}"), u"four");
    PutNumber(Below(kFirst, u"{C}"), 0);
    PutText(Below(kFirst, u"{D}"), u"on");
    PutText(Below(kFirst, u"{E}"), u"four");
    machine.registry.AddKey(kCurrentUserRoot, Below(kFirst, u"{F}"));
    PutText(Below(kFirst, u"{G}"), u"x");
    PutNumber(Below(kFirst, u"{H}"), 1);
    PutText(Below(kSecond, u"{A}"), u"on");
    PutNumber(Below(kSecond, u"{B}"), 1);
    PutNumber(u"Software\\Other\\AddInsStartup\\{A}", 1);
    machine.registry.PutNumber(kLocalMachineRoot, Below(kFirst, u"{A}"), u"", 1);
    const std::vector<std::u16string> before = machine.registry.Export();
    suppression.Suppress();
    const std::map<std::u16string, std::u16string> expected = {
        {Below(kFirst, u"{A}"), u"1"}, {Below(kFirst, u"{B}"), u"four"}, {Below(kFirst, u"{D}"), u"on"},
        {Below(kFirst, u"{H}"), u"1"}, {Below(kSecond, u"{A}"), u"on"},  {Below(kSecond, u"{B}"), u"1"},
    };
    EXPECT_EQ(suppression.Saved(), expected);
    EXPECT_NE(machine.registry.Export(), before);
    suppression.Restore();
    EXPECT_EQ(machine.registry.Export(), before);
}

TEST_F(AddInSuppressionTest, AFailingRegistryLeavesNothingSwitchedOffThatCanBeSwitchedOnAgain)
{
    for (uint32_t n = 1;; ++n) {
        fakes::FakePlatform other;
        for (const std::u16string parent : {kFirst, kSecond}) {
            other.registry.PutNumber(kCurrentUserRoot, Below(parent, u"{A}"), u"", 1);
            other.registry.PutText(kCurrentUserRoot, Below(parent, u"{B}"), u"", u"on");
        }
        const std::vector<std::u16string> before = other.registry.Export();
        AddInSuppression ours(other.registry);
        other.log.FailNthOfAll(n);
        ours.Suppress();
        const bool failed = other.log.HasFailed();
        other.log.StopFailing();
        ours.Restore();
        EXPECT_EQ(other.registry.Export(), before) << n;
        EXPECT_EQ(other.registry.OpenCount(), 0u) << n;
        if (!failed) {
            EXPECT_GT(n, 20u);
            break;
        }
    }
}

TEST_F(AddInSuppressionTest, OfTwoRunsThatOverlapTheFirstOnePutsBackWhatItSwitchedOffWhileTheOtherGoesOn)
{
    PutAddInsOfEachKind(machine.registry);
    const std::vector<std::u16string> before = machine.registry.Export();
    AddInSuppression other(machine.registry);
    suppression.Suppress();
    const std::vector<std::u16string> during = machine.registry.Export();
    other.Suppress();
    EXPECT_TRUE(other.Saved().empty());
    EXPECT_EQ(machine.registry.Export(), during);
    suppression.Restore();
    EXPECT_EQ(machine.registry.Export(), before);
    other.Restore();
    EXPECT_EQ(machine.registry.Export(), before);
}

TEST_F(AddInSuppressionTest, OfTwoRunsThatOverlapTheLastOneChangesNothingWhenItEndsFirst)
{
    PutAddInsOfEachKind(machine.registry);
    const std::vector<std::u16string> before = machine.registry.Export();
    AddInSuppression other(machine.registry);
    suppression.Suppress();
    const std::vector<std::u16string> during = machine.registry.Export();
    other.Suppress();
    other.Restore();
    EXPECT_EQ(machine.registry.Export(), during);
    suppression.Restore();
    EXPECT_EQ(machine.registry.Export(), before);
}

TEST_F(AddInSuppressionTest, WhereverTheTwoHalvesOfARunFallIntoAnotherNothingIsLost)
{
    PutAddInsOfEachKind(machine.registry);
    const std::vector<std::u16string> before = machine.registry.Export();
    InterruptedRegistry counted(machine.registry);
    RunOnce(counted);
    ASSERT_GT(counted.calls, 60u);
    for (uint32_t begin = 1; begin <= counted.calls; ++begin) {
        for (uint32_t end = begin; end <= counted.calls + 1; ++end) {
            AddInSuppression other(machine.registry);
            InterruptedRegistry interrupted(machine.registry);
            interrupted.beforeCall = [&](uint32_t call) {
                if (call == begin) {
                    other.Suppress();
                }
                if (call == end) {
                    other.Restore();
                }
            };
            RunOnce(interrupted);
            if (interrupted.calls < end) {
                other.Restore();
            }
            ASSERT_EQ(machine.registry.Export(), before) << begin << " to " << end;
        }
        machine.log.Clear();
    }
}

/// A mark that one thread sets and another waits for.
class Mark
{
  public:
    void Set()
    {
        const std::lock_guard guard(lock);
        isSet = true;
        changed.notify_all();
    }
    void Wait()
    {
        std::unique_lock guard(lock);
        changed.wait(guard, [&] { return isSet; });
    }

  private:
    std::mutex lock;
    std::condition_variable changed;
    bool isSet = false;
};

/// Two runs, one on a thread of its own, that take turns: the first up to a call, the second up to one or to its end if
/// that comes before, and each to its end in the same order.
void RunInTurns(RegistryService& registry, uint32_t firstTurn, uint32_t secondTurn)
{
    Mark secondStops;
    Mark secondGoesOn;
    std::thread other;
    InterruptedRegistry first(registry);
    InterruptedRegistry second(registry);
    second.beforeCall = [&](uint32_t call) {
        if (call == secondTurn) {
            secondStops.Set();
            secondGoesOn.Wait();
        }
    };
    first.beforeCall = [&](uint32_t call) {
        if (call == firstTurn) {
            other = std::thread([&] {
                RunOnce(second);
                secondStops.Set();
            });
            secondStops.Wait();
        }
    };
    RunOnce(first);
    secondGoesOn.Set();
    other.join();
}

TEST_F(AddInSuppressionTest, HoweverTwoRunsTakeTurnsInTheirCallsNothingIsLost)
{
    PutAddInsOfEachKind(machine.registry);
    const std::vector<std::u16string> before = machine.registry.Export();
    InterruptedRegistry counted(machine.registry);
    RunOnce(counted);
    machine.log.StopNoting();
    for (uint32_t firstTurn = 1; firstTurn <= counted.calls; ++firstTurn) {
        for (uint32_t secondTurn = 1; secondTurn <= counted.calls; ++secondTurn) {
            RunInTurns(machine.registry, firstTurn, secondTurn);
            ASSERT_EQ(machine.registry.Export(), before) << firstTurn << ' ' << secondTurn;
        }
    }
}

} // namespace tv
