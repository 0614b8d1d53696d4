#include "script/version_list.h"

#include "fakes/platform/fake_platform.h"
#include "memory_choice_list.h"

#include <gtest/gtest.h>

#include <array>

namespace tv {
namespace {

using Rows = std::vector<MemoryChoiceList::Row>;

class VersionList : public testing::Test
{
  protected:
    void Install(std::initializer_list<const char16_t*> names)
    {
        for (const char16_t* name : names) {
            machine.products.Add(name);
        }
    }
    const Rows& List(int32_t selectedYear = 0)
    {
        ListInstalledVersions(machine.products, list, selectedYear);
        return list.Rows();
    }
    /// The labels that a single product of this name gives beside the default row.
    static std::vector<std::u16string> LabelsFor(const char16_t* name)
    {
        fakes::FakePlatform other;
        MemoryChoiceList rows;
        other.products.Add(name);
        ListInstalledVersions(other.products, rows, 0);
        std::vector<std::u16string> labels;
        for (const MemoryChoiceList::Row& row : rows.Rows()) {
            if (row.value != 0) {
                labels.push_back(row.label);
            }
        }
        return labels;
    }

    fakes::FakePlatform machine;
    MemoryChoiceList list;
};

TEST_F(VersionList, WithoutProductsOffersTheDefaultAlone)
{
    EXPECT_EQ(List(), (Rows{{u"<Use default>", 0}}));
    EXPECT_EQ(list.SelectedLabel(), u"<Use default>");
}

TEST_F(VersionList, OffersTheInstalledYearsWithTheYearAsTheirValue)
{
    Install({u"Torvane 2013 x64 Edition SP1", u"Some Office 2010 SP1", u"Torvane 2012 x64 Edition SP0.1"});
    EXPECT_EQ(List(), (Rows{{u"<Use default>", 0}, {u"Torvane 2012", 2012}, {u"Torvane 2013", 2013}}));
}

TEST_F(VersionList, TakesProductsByTheirNames)
{
    struct Row
    {
        const char16_t* name;
        const char16_t* label; // empty when the product doesn't count
    };
    const Row rows[] = {
        {u"Torvane 2012 x64 Edition SP0.1", u"Torvane 2012"},
        {u"Torvane 2012 SP0", u"Torvane 2012"},
        {u"Torvane 2012 Alpha 3", u"Torvane 2012"},
        {u"Torvane 2012 Beta", u"Torvane 2012"},
        {u"Torvane 2012 PreRelease 1", u"Torvane 2012"},
        {u"Torvane 2012 x64 Edition Beta 2", u"Torvane 2012"},
        // The first word counts without regard to case; the label is written as always.
        {u"TORVANE 2012 SP1", u"Torvane 2012"},
        {u"torvane 2012 SP1", u"Torvane 2012"},
        {u"Torvanes 2012 SP1", u""},
        {u"My Torvane 2012 SP1", u""},
        {u"Torvane2012 SP1", u""},
        // So does "x64", and a word that begins so.
        {u"Torvane 2012 X64 edition SP1", u"Torvane 2012"},
        {u"Torvane 2012 x64-bit Edition SP1", u"Torvane 2012"},
        {u"Torvane 2012 x86 Edition SP1", u""},
        // Whatever word stands behind it is dropped.
        {u"Torvane 2012 x64 SP1", u""},
        {u"Torvane 2012 x64 SP0 SP1", u"Torvane 2012"},
        {u"Torvane 2012 x64", u""},
        // The release is compared with case.
        {u"Torvane 2012 sp1", u""},
        {u"Torvane 2012 alpha", u""},
        {u"Torvane 2012 BETA", u""},
        {u"Torvane 2012 pre", u""},
        {u"Torvane 2012 ASP1", u""},
        // Add-ons have another third word.
        {u"Torvane 2012 Explorer SP1", u""},
        {u"Torvane 2012 x64 Edition Explorer SP1", u""},
        {u"Torvane 2012", u""},
        {u"Torvane", u""},
        {u"", u""},
        {u"Torvane SP1", u""},
        // Words may stand further apart.
        {u"  Torvane  2012   x64  Edition  SP1", u"Torvane 2012"},
    };
    for (const Row& row : rows) {
        const std::vector<std::u16string> expected =
            *row.label == 0 ? std::vector<std::u16string>() : std::vector<std::u16string>{row.label};
        EXPECT_EQ(LabelsFor(row.name), expected) << testing::PrintToString(std::u16string(row.name));
    }
}

TEST_F(VersionList, OffersNoYearBefore2008)
{
    Install({u"Torvane 2007 SP5", u"Torvane 2008 SP0", u"Torvane -1 SP0", u"Torvane Next SP0"});
    EXPECT_EQ(List(2007), (Rows{{u"<Use default>", 0}, {u"Torvane 2008", 2008}}));
    EXPECT_EQ(list.SelectedLabel(), u"<Use default>");
}

TEST_F(VersionList, OffersAYearWithTwoServicePacksOnce)
{
    Install({u"Torvane 2012 SP0", u"Torvane 2012 x64 Edition SP1", u"TORVANE 2012 SP2"});
    EXPECT_EQ(List(), (Rows{{u"<Use default>", 0}, {u"Torvane 2012", 2012}}));
}

TEST_F(VersionList, TakesALongerYearTextForTheSameYear)
{
    Install({u"Torvane 2012x SP0", u"Torvane 2012 SP1"});
    EXPECT_EQ(List(), (Rows{{u"<Use default>", 0}, {u"Torvane 2012x", 2012}}));
}

TEST_F(VersionList, OffersALongerYearTextBesideAShorterOneThatCameFirst)
{
    Install({u"Torvane 2012 SP1", u"Torvane 2012x SP0"});
    EXPECT_EQ(List(), (Rows{{u"<Use default>", 0}, {u"Torvane 2012", 2012}, {u"Torvane 2012x", 2012}}));
}

TEST_F(VersionList, SelectsTheRowOfTheYear)
{
    Install({u"Torvane 2012 SP0", u"Torvane 2013 SP0", u"Torvane 2011 SP0"});
    List(2012);
    EXPECT_EQ(list.SelectedLabel(), u"Torvane 2012");
}

TEST_F(VersionList, KeepsTheSelectionWhenTheYearComesAgain)
{
    Install({u"Torvane 2012 SP0", u"Torvane 2013 SP0", u"Torvane 2012 SP1"});
    List(2012);
    EXPECT_EQ(list.SelectedLabel(), u"Torvane 2012");
}

TEST_F(VersionList, SelectsTheDefaultForAYearThatIsNoLongerInstalled)
{
    Install({u"Torvane 2012 SP0"});
    List(2011);
    EXPECT_EQ(list.SelectedLabel(), u"<Use default>");
    EXPECT_EQ(list.Rows().at(static_cast<size_t>(*list.SelectedRow())).value, 0);
}

TEST_F(VersionList, SelectsTheDefaultForNoYear)
{
    Install({u"Torvane 2012 SP0"});
    List(0);
    EXPECT_EQ(list.SelectedLabel(), u"<Use default>");
}

TEST_F(VersionList, AsksForANameUntilItCanBeRead)
{
    Install({u"Torvane 2012 SP0", u"Torvane 2013 SP0"});
    for (uint32_t n = 1; n <= 1000; ++n) {
        machine.log.FailNth("products.GetProductInfo", n);
    }
    EXPECT_EQ(List(), (Rows{{u"<Use default>", 0}, {u"Torvane 2012", 2012}, {u"Torvane 2013", 2013}}));
    EXPECT_EQ(machine.log.CountOf("products.GetProductInfo"), 1002u);
    const std::vector<std::u16string> indexes = machine.log.SubjectsOf("products.EnumProduct");
    ASSERT_EQ(indexes.size(), 1003u);
    EXPECT_EQ(std::ranges::count(indexes, u"0"), 1001);
    EXPECT_EQ(indexes[1001], u"1");
    EXPECT_EQ(indexes[1002], u"2");
}

TEST_F(VersionList, IsNotFilledByAnInstallerThatRefuses)
{
    Install({u"Torvane 2012 SP0"});
    machine.log.FailNth("products.EnumProduct", 1, fakes::Failure::Once, kErrorAccessDenied);
    EXPECT_EQ(List(2012), (Rows{{u"<Use default>", 0}}));
    EXPECT_EQ(machine.log.CountOf("products.EnumProduct"), 1u);
}

TEST_F(VersionList, EndsTheWalkAtAnyErrorOfTheInstaller)
{
    Install({u"Torvane 2012 SP0", u"Torvane 2013 SP0"});
    machine.log.FailNth("products.EnumProduct", 2, fakes::Failure::Once, kErrorAccessDenied);
    EXPECT_EQ(List(2013), (Rows{{u"<Use default>", 0}, {u"Torvane 2012", 2012}}));
    EXPECT_EQ(list.SelectedLabel(), u"<Use default>");
}

} // namespace
} // namespace tv
