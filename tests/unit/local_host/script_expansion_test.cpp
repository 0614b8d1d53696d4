// How variables are put into a script, and where each piece comes from.
#include "host/script_expansion.h"

#include <gtest/gtest.h>

#include <map>

namespace tv::local {

namespace {

using Values = std::map<std::u16string, StoredValue>;

ExpandedScript Expand(std::u16string_view script, const Values& values = {})
{
    return ExpandScript(script, [&](char16_t, const std::u16string& name) -> std::optional<StoredValue> {
        const auto found = values.find(name);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    });
}

StoredValue Text(std::string_view text)
{
    return StoredValue::FromText(text);
}

} // namespace

TEST(ScriptExpansion, BracesComeBeforeBrackets)
{
    EXPECT_EQ(Expand(u"{a} [b]", {{u"a", Text("[b]")}, {u"b", Text("x")}}).text, u"x x");
    EXPECT_EQ(Expand(u"[b] {a}", {{u"b", Text("{a}")}, {u"a", Text("x")}}).text, u"{a} x");
}

TEST(ScriptExpansion, AValueThatIsPutInIsNotLookedAtAgainAtItsPlace)
{
    EXPECT_EQ(Expand(u"[a]", {{u"a", Text("[b]")}, {u"b", Text("x")}}).text, u"[b]");
}

TEST(ScriptExpansion, EveryOccurrenceIsReplacedAtOnce)
{
    const ExpandedScript expanded = Expand(u"[a][a]", {{u"a", Text("x")}});
    EXPECT_EQ(expanded.text, u"xx");
    ASSERT_EQ(expanded.placeholders.size(), 2U);
    EXPECT_EQ(expanded.placeholders[0].offset, 0U);
    EXPECT_EQ(expanded.placeholders[1].offset, 3U);
}

TEST(ScriptExpansion, AnUnknownNameVanishes)
{
    const ExpandedScript expanded = Expand(u"a[b]c");
    EXPECT_EQ(expanded.text, u"ac");
    ASSERT_EQ(expanded.placeholders.size(), 1U);
    EXPECT_EQ(expanded.placeholders[0].value, std::nullopt);
    EXPECT_EQ(expanded.placeholders[0].length, 3U);
}

TEST(ScriptExpansion, RepeatedBracketsAreNoPartOfTheName)
{
    EXPECT_EQ(Expand(u"{{{a}", {{u"a", Text("x")}}).text, u"x");
    EXPECT_EQ(Expand(u"[a[b]", {{u"a[b", Text("x")}}).text, u"x");
}

TEST(ScriptExpansion, LineEndsOfATextAreJoined)
{
    EXPECT_EQ(Expand(u"\"[a]\"", {{u"a", Text("one\r\ntwo\nthree")}}).text, u"\"one\"+vbLf+\"two\nthree\"");
}

TEST(ScriptExpansion, ValuesHaveTheFormOfTheMacroLanguage)
{
    EXPECT_EQ(ValueText(StoredValue::FromBool(true)), u"True");
    EXPECT_EQ(ValueText(StoredValue::FromBool(false)), u"False");
    EXPECT_EQ(ValueText(StoredValue::FromInt(-4)), u"-4");
    EXPECT_EQ(ValueText(StoredValue::FromFloat(12.5F)), u"12.500000");
    EXPECT_EQ(ValueText(Text("as it is")), u"as it is");
    EXPECT_EQ(ValueText(StoredValue{}), u"");
}

TEST(ScriptExpansion, EachUnitKnowsItsPlaceInTheScript)
{
    const ExpandedScript expanded = Expand(u"x[a]y", {{u"a", Text("12")}});
    ASSERT_EQ(expanded.text, u"x12y");
    EXPECT_EQ(expanded.origins[0].offset, 0U);
    EXPECT_EQ(expanded.origins[0].placeholder, -1);
    EXPECT_EQ(expanded.origins[2].offset, 1U);
    EXPECT_EQ(expanded.origins[2].placeholder, 0);
    EXPECT_EQ(expanded.origins[3].offset, 4U);
    EXPECT_EQ(expanded.origins[3].placeholder, -1);
}

TEST(ScriptExpansion, APlaceholderInAValueKnowsWhoBroughtIt)
{
    const ExpandedScript expanded = Expand(u"a {b}", {{u"b", Text("[c]")}, {u"c", Text("x")}});
    ASSERT_EQ(expanded.placeholders.size(), 2U);
    EXPECT_EQ(expanded.placeholders[1].name, u"c");
    EXPECT_EQ(expanded.placeholders[1].broughtBy, u"b");
    EXPECT_EQ(expanded.placeholders[1].offset, 2U);
}

TEST(ScriptExpansion, AnOpenBracketWithNoneBehindItEndsThePassAndIsTold)
{
    const ExpandedScript expanded = Expand(u"[a] x = y[0", {{u"a", Text("1")}});
    EXPECT_EQ(expanded.text, u"1 x = y[0");
    ASSERT_EQ(expanded.endless.size(), 1U);
    EXPECT_EQ(expanded.endless[0].reason, EndlessPass::Reason::Unclosed);
    EXPECT_EQ(expanded.endless[0].open, u'[');
    EXPECT_EQ(expanded.endless[0].offset, 9U);
    EXPECT_EQ(expanded.endless[0].variable, u"");
}

TEST(ScriptExpansion, AValueThatBringsItselfInAgainAndAgainIsTold)
{
    const ExpandedScript expanded = Expand(u"[a] [a]", {{u"a", Text("[a][a]")}});
    ASSERT_EQ(expanded.endless.size(), 1U);
    EXPECT_EQ(expanded.endless[0].reason, EndlessPass::Reason::Growing);
    EXPECT_EQ(expanded.endless[0].variable, u"a");
}

TEST(ScriptExpansion, AValueThatHoldsItsOwnNameOnceEnds)
{
    const ExpandedScript expanded = Expand(u"[a] [a]", {{u"a", Text("-[a]")}});
    EXPECT_TRUE(expanded.endless.empty());
    EXPECT_EQ(expanded.text, u"--[a] --[a]");
}

} // namespace tv::local
