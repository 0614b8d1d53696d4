#include "script/date_format.h"

#include "fakes/platform/fake_platform.h"
#include "script/date_format_table.h"
#include "support/dates.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

namespace tv {
namespace {

DateValue DateOf(const LocalTime& time)
{
    DateValue date;
    EXPECT_TRUE(DayCountFromLocalTime(time, date.days));
    return date;
}

std::u16string Format(const LocalTime& time, int32_t formatId, int32_t style)
{
    std::u16string text = u"untouched";
    EXPECT_TRUE(FormatDate(text, DateOf(time), formatId, static_cast<DateStyle>(style)));
    return text;
}

constexpr LocalTime kAfternoon{2026, 3, 3, 14, 7, 9};

TEST(FormatDate, PrintsEveryOtherFormatInTheLongFormWithTheTime)
{
    std::vector<int32_t> others = {8, 9, 108, 114, 115, 116, 117, 118, 119, 122, 1000, -1, -100};
    for (int32_t id = 13; id < 100; ++id) {
        others.push_back(id);
    }
    others.push_back(std::numeric_limits<int32_t>::max());
    others.push_back(std::numeric_limits<int32_t>::min());
    for (int32_t id : others) {
        EXPECT_EQ(Format(kAfternoon, id, 2), u"03 Mars 2026 14:07:09:000") << id;
    }
}

TEST(FormatDate, TreatsAnyOtherStyleAsDateOnly)
{
    for (int32_t style : {0, 4, -1, 99}) {
        EXPECT_EQ(Format(kAfternoon, 103, style), u"03/03/2026");
        EXPECT_EQ(Format(kAfternoon, 0, style), u"Mar 03 2026");
        EXPECT_EQ(Format(kAfternoon, 121, style), u"2026-03-03");
    }
}

TEST(FormatDate, ReducesTheHourOnlyAboveTwelve)
{
    EXPECT_EQ(Format({2026, 1, 2, 12, 30, 0}, 0, 1), u"Jan 02 2026 12:30 AM");
    EXPECT_EQ(Format({2026, 1, 2, 13, 5, 0}, 0, 1), u"Jan 02 2026 01:05 PM");
    EXPECT_EQ(Format({2026, 1, 2, 0, 15, 0}, 0, 1), u"Jan 02 2026 00:15 AM");
    EXPECT_EQ(Format({2026, 1, 2, 12, 30, 0}, 109, 1), u"Jan 02 2026 12:30:00:000 AM");
    EXPECT_EQ(Format({2026, 1, 2, 13, 5, 1}, 109, 3), u"Jan 02 2026 01:05:01:000 PM");
    EXPECT_EQ(Format({2026, 1, 2, 23, 59, 59}, 100, 3), u"Jan 02 2026 11:59 PM");
}

TEST(FormatDate, PrintsTheYear2000AsTwoZeros)
{
    EXPECT_EQ(Format({2000, 12, 31, 1, 1, 1}, 1, 2), u"12/31/00");
    EXPECT_EQ(Format({2000, 12, 31, 1, 1, 1}, 12, 2), u"001231");
}

TEST(FormatDate, WritesNothingForNoDate)
{
    std::u16string text = u"untouched";
    EXPECT_FALSE(FormatDate(text, DateValue{0.0, true}, 103, DateStyle::DateOnly));
    EXPECT_EQ(text, u"untouched");
    EXPECT_FALSE(FormatDate(text, DateValue{0.0, false}, 8, DateStyle::WithSeconds));
    EXPECT_EQ(text, u"untouched");
}

TEST(FormatDate, PrintsMinusOneAndNoNameForWhatCantBeBrokenDown)
{
    std::u16string text;
    EXPECT_TRUE(FormatDate(text, DateValue{46000.0, false}, 101, DateStyle::DateOnly));
    EXPECT_EQ(text, u"-1/-1/-001");
    EXPECT_TRUE(FormatDate(text, DateValue{46000.0, false}, 1, DateStyle::DateOnly));
    EXPECT_EQ(text, u"-1/-1/-1");
    EXPECT_TRUE(FormatDate(text, DateValue{46000.0, false}, 106, DateStyle::DateOnly));
    EXPECT_EQ(text, u"-1  -001");
    EXPECT_TRUE(FormatDate(text, DateValue{46000.0, false}, 0, DateStyle::WithSeconds));
    EXPECT_EQ(text, u" -1 -001 -1:-1 AM");
    // A day count that stands for no date is no better.
    EXPECT_TRUE(FormatDate(text, DateValue{1e9, true}, 1, DateStyle::WithMinutes));
    EXPECT_EQ(text, u"-1/-1/-1 -1:-1");
}

TEST(FormatDate, KnowsTheMonthsByTheseNames)
{
    struct Row
    {
        const char16_t* longName;
        const char16_t* shortName;
    };
    const Row rows[] = {{u"January", u"Jan"},   {u"February", u"Feb"}, {u"Mars", u"Mar"},     {u"April", u"Apr"},
                        {u"May", u"May"},       {u"June", u"Jun"},     {u"July", u"Jul"},     {u"August", u"Aug"},
                        {u"September", u"Sep"}, {u"October", u"Oct"},  {u"November", u"Nov"}, {u"December", u"Dec"}};
    for (int32_t month = 1; month <= 12; ++month) {
        const Row& row = rows[month - 1];
        EXPECT_EQ(Format({2026, month, 5, 0, 0, 0}, 113, 2), u"05 " + std::u16string(row.longName) + u" 2026");
        EXPECT_EQ(Format({2026, month, 5, 0, 0, 0}, 106, 2), u"05 " + std::u16string(row.shortName) + u" 2026");
        EXPECT_EQ(kMonthNames[month - 1].number, month);
    }
}

/// Tells one moment that a test sets, also one that no calendar has.
class StoppedClock final : public ClockService
{
  public:
    explicit StoppedClock(const LocalTime& time) : moment(time) {}
    void Sleep(uint32_t) override {}
    bool GetLocalTime(LocalTime& now) override
    {
        now = moment;
        return true;
    }

  private:
    LocalTime moment;
};

TEST(CurrentDate, IsInvalidWhenItDoesntComeBackFromItsDayCount)
{
    // 31 February rolls on to 3 March.
    StoppedClock clock({2026, 2, 31, 14, 7, 9});
    const DateValue date = CurrentDate(clock);
    EXPECT_FALSE(date.valid);
    EXPECT_NE(date.days, 0.0);
    std::u16string text;
    EXPECT_TRUE(FormatDate(text, date, 101, DateStyle::WithMinutes));
    EXPECT_EQ(text, u"-1/-1/-001 -1:-1");
}

TEST(CurrentDate, IsInvalidWhenOnlyTheTimeOfDayDiffers)
{
    StoppedClock clock({2026, 2, 3, 14, 7, 60});
    EXPECT_FALSE(CurrentDate(clock).valid);
}

TEST(CurrentDate, ComparesEverySecondOfADay)
{
    for (int32_t second = 0; second < 86400; ++second) {
        StoppedClock clock({2026, 11, 15, second / 3600, second / 60 % 60, second % 60});
        ASSERT_TRUE(CurrentDate(clock).valid) << second;
    }
}

TEST(CurrentDate, IsNoneWhenItCantBeConverted)
{
    StoppedClock clock({2026, 13, 1, 0, 0, 0});
    const DateValue date = CurrentDate(clock);
    EXPECT_FALSE(date.valid);
    EXPECT_EQ(date.days, 0.0);
}

class VaultDate : public testing::Test
{
  protected:
    void SetFormat(uint32_t number) { machine.registry.PutNumber(kCurrentUserRoot, kVaultKey, u"DateFmt", number); }
    void SetRaw(uint32_t type, std::vector<uint8_t> bytes)
    {
        machine.registry.PutValue(kCurrentUserRoot, kVaultKey, u"DateFmt", {type, std::move(bytes)});
    }
    void SetUp() override { machine.registry.AddKey(kLocalMachineRoot, u"Software\\Torvane\\Applications\\Quellor"); }

    static constexpr std::u16string_view kVaultKey = u"Software\\Torvane\\Applications\\Quellor\\Vaults\\Main";
    fakes::FakePlatform machine;
};

TEST_F(VaultDate, ANumberIsTheFormatAsItStands)
{
    SetFormat(103);
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Main"), 103);
}

TEST_F(VaultDate, ABigEndianNumberHasItsHalvesExchanged)
{
    SetRaw(kRegNumberBigEndian, {0x01, 0x02, 0x03, 0x04});
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Main"), 0x02010403);
}

TEST_F(VaultDate, AnythingElseIsFormatZero)
{
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Main"), 0);
    machine.registry.AddKey(kCurrentUserRoot, kVaultKey);
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Main"), 0);
    SetRaw(kRegNumber, {1, 0});
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Main"), 0);
    SetRaw(kRegBinary, {103, 0, 0, 0});
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Main"), 0);
    SetFormat(103);
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Other"), 0);
    EXPECT_EQ(ReadDateFmt(machine.platform, u""), 0);
}

TEST_F(VaultDate, ANumberOfEightBytesIsFormatZero)
{
    SetRaw(kRegNumber, {103, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Main"), 0);
}

TEST_F(VaultDate, ABigEndianNumberOfAnotherSizeIsFormatZero)
{
    SetRaw(kRegNumberBigEndian, {0, 103});
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Main"), 0);
}

TEST_F(VaultDate, ANumberMayBeNegative)
{
    SetFormat(0xFFFFFFFF);
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Main"), -1);
}

TEST_F(VaultDate, ReadingMakesNoKeyForTheVault)
{
    ReadDateFmt(machine.platform, u"Main");
    EXPECT_FALSE(machine.registry.KeyExists(kCurrentUserRoot, kVaultKey));
}

TEST_F(VaultDate, EachVaultHasItsOwnFormat)
{
    SetFormat(103);
    machine.registry.PutNumber(kCurrentUserRoot, u"Software\\Torvane\\Applications\\Quellor\\Vaults\\Other", u"DateFmt",
                               2);
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Main"), 103);
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Other"), 2);
}

TEST_F(VaultDate, TheMachinesSettingDoesntCount)
{
    machine.registry.PutNumber(kLocalMachineRoot, u"Software\\Torvane\\Applications\\Quellor\\Databases\\Main",
                               u"DateFmt", 103);
    EXPECT_EQ(ReadDateFmt(machine.platform, u"Main"), 0);
}

TEST_F(VaultDate, TodayIsTheClocksDate)
{
    machine.clock.SetStart({2026, 11, 15, 14, 7, 9});
    const DateValue now = CurrentDate(machine.clock);
    EXPECT_TRUE(now.valid);
    std::u16string text;
    EXPECT_TRUE(FormatDate(text, now, 121, DateStyle::WithSeconds));
    EXPECT_EQ(text, u"2026-11-15 14:07:09.000");
}

TEST_F(VaultDate, AClockThatCantBeReadGivesNoDate)
{
    machine.log.FailNthOfAll(1, fakes::Failure::Lasting);
    const DateValue now = CurrentDate(machine.clock);
    EXPECT_EQ(now.days, 0.0);
    EXPECT_FALSE(now.valid);
    EXPECT_EQ(DateForFileNames(machine.platform, u"Main"), u"");
}

TEST_F(VaultDate, ATimeThatCantBeConvertedGivesNoDate)
{
    machine.clock.SetStart({2026, 13, 15, 14, 7, 9});
    EXPECT_EQ(CurrentDate(machine.clock).days, 0.0);
    EXPECT_EQ(DateForFileNames(machine.platform, u"Main"), u"");
}

TEST_F(VaultDate, SlashesBecomeUnderscoresInFileNames)
{
    machine.clock.SetStart({2026, 11, 15, 14, 7, 9});
    EXPECT_EQ(DateForFileNames(machine.platform, u"Main"), u"Nov 15 2026");
    SetFormat(1);
    EXPECT_EQ(DateForFileNames(machine.platform, u"Main"), u"11_15_26");
    SetFormat(104);
    EXPECT_EQ(DateForFileNames(machine.platform, u"Main"), u"15.11.2026");
    SetFormat(8);
    EXPECT_EQ(DateForFileNames(machine.platform, u"Main"), u"15 November 2026 14:07:09:000");
    machine.clock.SetStart({2026, 3, 3, 14, 7, 9});
    SetFormat(103);
    EXPECT_EQ(DateForFileNames(machine.platform, u"Main"), u"03_03_2026");
}

} // namespace
} // namespace tv
