#include "fakes/platform/fake_platform.h"
#include "script/variable_expansion.h"

#include "com/result.h"

#include <gtest/gtest.h>

#include <map>

namespace tv {
namespace {

/// A task's values, and the names that were asked for.
class Expansion : public testing::Test
{
  protected:
    std::u16string Expand(std::u16string text, char16_t open = u'[', char16_t close = u']')
    {
        return ExpandVariables(
            std::move(text), open, close,
            [&](const std::u16string& name, Variant& value) -> Result {
                asked.push_back(name);
                const auto found = values.find(name);
                if (found == values.end()) {
                    return 1;
                }
                value = found->second;
                return 0;
            },
            machine.module);
    }

    void SetText(const std::u16string& name, std::u16string_view text) { values[name] = Variant::FromText(text); }

    fakes::FakePlatform machine;
    std::map<std::u16string, Variant> values;
    std::vector<std::u16string> asked;
};

TEST_F(Expansion, ATextWithoutBracketsStays)
{
    EXPECT_EQ(Expand(u"no placeholder ] here"), u"no placeholder ] here");
    EXPECT_TRUE(asked.empty());
}

TEST_F(Expansion, APlaceholderBecomesItsValue)
{
    SetText(u"OutputPath", u"C:\\Out");
    EXPECT_EQ(Expand(u"p = \"[OutputPath]\""), u"p = \"C:\\Out\"");
}

TEST_F(Expansion, AnAbsentNameVanishes)
{
    EXPECT_EQ(Expand(u"a[Nobody]b"), u"ab");
}

TEST_F(Expansion, AnEmptyValueLeavesAnEmptyLiteral)
{
    SetText(u"Name", u"");
    EXPECT_EQ(Expand(u"x = \"[Name]\" & [Name]"), u"x = \"\" & ");
}

TEST_F(Expansion, AValueThatHoldsNothingVanishes)
{
    values[u"e"] = Variant();
    EXPECT_EQ(Expand(u"a[e]b"), u"ab");
}

TEST_F(Expansion, PlaceholdersInCommentsAndLiteralsCountToo)
{
    SetText(u"a", u"1");
    EXPECT_EQ(Expand(u"' [a]\r\nx = \"[a]\""), u"' 1\r\nx = \"1\"");
}

TEST_F(Expansion, AllOccurrencesAreReplacedByOneLookup)
{
    SetText(u"a", u"X");
    EXPECT_EQ(Expand(u"[a] and [a]"), u"X and X");
    EXPECT_EQ(asked, (std::vector<std::u16string>{u"a"}));
}

TEST_F(Expansion, InnerBracketsArePartOfTheName)
{
    SetText(u"a[b", u"V");
    EXPECT_EQ(Expand(u"[a[b]"), u"V");
    EXPECT_EQ(asked, (std::vector<std::u16string>{u"a[b"}));
}

TEST_F(Expansion, LeadingBracketsAreRemovedFromTheName)
{
    SetText(u"a", u"V");
    EXPECT_EQ(Expand(u"[[[a]"), u"V");
}

TEST_F(Expansion, TheTokenEndsAtTheFirstClosingBracket)
{
    SetText(u"a", u"V");
    EXPECT_EQ(Expand(u"[a]]"), u"V]");
}

TEST_F(Expansion, EmptyBracketsAskForTheEmptyName)
{
    SetText(u"", u"nothing");
    EXPECT_EQ(Expand(u"x[]y"), u"xnothingy");
    EXPECT_EQ(asked, (std::vector<std::u16string>{u""}));
}

TEST_F(Expansion, NamesAreComparedWithTheirCase)
{
    SetText(u"outputpath", u"V");
    EXPECT_EQ(Expand(u"[OutputPath]"), u"");
}

TEST_F(Expansion, APlaceholderInAValueIsSkippedAtItsFirstOccurrence)
{
    SetText(u"a", u"[b]");
    SetText(u"b", u"B");
    EXPECT_EQ(Expand(u"<[a]>"), u"<[b]>");
    EXPECT_EQ(asked, (std::vector<std::u16string>{u"a"}));
}

TEST_F(Expansion, APlaceholderInAValueIsExpandedWhereALaterOccurrenceStood)
{
    SetText(u"a", u"[b]");
    SetText(u"b", u"B");
    // The second occurrence brings "[b]" behind the scan position; its replacement reaches the first one as well.
    EXPECT_EQ(Expand(u"[a] [a]"), u"B B");
}

TEST_F(Expansion, TheScanGoesOnBehindTheLengthOfTheValue)
{
    SetText(u"a", u"long value");
    SetText(u"b", u"B");
    EXPECT_EQ(Expand(u"[a][b]"), u"long valueB");
}

TEST_F(Expansion, LineEndsOfATextBecomeAConcatenation)
{
    SetText(u"a", u"one\r\ntwo\r\n");
    EXPECT_EQ(Expand(u"\"[a]\""), u"\"one\"+vbLf+\"two\"+vbLf+\"\"");
}

TEST_F(Expansion, LoneCarriageReturnsAndLineFeedsStay)
{
    SetText(u"a", u"one\rtwo\nthree\n\r");
    EXPECT_EQ(Expand(u"[a]"), u"one\rtwo\nthree\n\r");
}

TEST_F(Expansion, QuotesAndWideUnitsOfAValueStayAsTheyAre)
{
    SetText(u"a", u"say \"\u03A9\"");
    EXPECT_EQ(Expand(u"[a]"), u"say \"\u03A9\"");
}

TEST_F(Expansion, ANumberOrATruthValueEntersAsALiteral)
{
    values[u"n"] = Variant::FromInt(-7);
    values[u"t"] = Variant::FromBool(true);
    SetText(u"s", u"True");
    EXPECT_EQ(Expand(u"[n] [t] [s]"), u"-7 True True");
}

TEST_F(Expansion, AnyOtherStatusOfTheLookupIsRaised)
{
    for (const Result status : {Result{E_FAIL}, Result{2}}) {
        try {
            ExpandVariables(
                u"[a]", u'[', u']', [&](const std::u16string&, Variant&) { return status; }, machine.module);
            ADD_FAILURE() << "nothing was raised";
        } catch (const ResultError& error) {
            EXPECT_EQ(error.Code(), status);
        }
    }
}

TEST_F(Expansion, AnOpenBracketWithoutEndAsksForTheEmptyNameAgainAndAgain)
{
    int calls = 0;
    const auto lookup = [&](const std::u16string& name, Variant&) -> Result {
        EXPECT_EQ(name, u"");
        return ++calls < 1000 ? 1 : E_ABORT;
    };
    EXPECT_THROW(ExpandVariables(u"text [without end", u'[', u']', lookup, machine.module), ResultError);
    EXPECT_EQ(calls, 1000);
}

TEST_F(Expansion, AnOpenBracketWithoutEndIsPassedWhenTheEmptyNameHasAValue)
{
    SetText(u"", u"four");
    EXPECT_EQ(Expand(u"a[bc [d"), u"a[bc [d");
    EXPECT_EQ(asked.size(), 2u);
}

TEST_F(Expansion, CurlyBracketsWorkAlike)
{
    SetText(u"a", u"[b]");
    SetText(u"b", u"B");
    EXPECT_EQ(Expand(u"{a} [b]", u'{', u'}'), u"[b] [b]");
}

TEST(PlaceholderKey, ANameIsAText)
{
    EXPECT_EQ(PlaceholderKey(u"Name").Type(), VT_BSTR);
    EXPECT_EQ(PlaceholderKey(u"Name").ToText(), u"Name");
    EXPECT_EQ(PlaceholderKey(u"").Type(), VT_BSTR);
    EXPECT_EQ(PlaceholderKey(u"a#1").Type(), VT_BSTR);
}

TEST(PlaceholderKey, AHashMakesANumber)
{
    struct Row
    {
        const char16_t* name;
        int32_t number;
    };
    const Row rows[] = {{u"#17", 17}, {u"##17", 17}, {u"#x", 0}, {u"#", 0}, {u"# 42abc", 42}, {u"#-3", -3}};
    for (const Row& row : rows) {
        const Variant key = PlaceholderKey(row.name);
        EXPECT_EQ(key.Type(), VT_I4) << testing::PrintToString(std::u16string(row.name));
        EXPECT_EQ(key.get()->lVal, row.number) << testing::PrintToString(std::u16string(row.name));
    }
}

} // namespace
} // namespace tv
