#include "cad/add_in_suppression.h"

#include "fakes/platform/fake_platform.h"

#include <gtest/gtest.h>

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

} // namespace tv
