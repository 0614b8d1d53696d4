#include "script/tokens.h"

#include <gtest/gtest.h>

#include <random>

namespace tv {
namespace {

TokenValues SomeValues()
{
    TokenValues values;
    values.filePath = u"C:\\Vault\\Sub\\Part.tvnprt";
    values.folderPath = u"C:\\Vault\\Sub";
    values.vaultPath = u"C:\\Vault";
    values.taskInstanceGuid = u"{GUID}";
    values.configurationOrSheet = u"Default";
    values.revision = u"B";
    values.version = u"3";
    values.workflowState = u"Approved";
    values.today = u"11_15_26";
    return values;
}

/// Both ways to expand must agree.
std::u16string Expand(std::u16string_view text, const TokenValues& values)
{
    const std::u16string expanded = ExpandTokens(text, values);
    EXPECT_EQ(ScriptText(std::u16string(text)).Expand(values), expanded);
    return expanded;
}

TEST(Tokens, AreReplacedInAFixedOrder)
{
    const std::u16string_view order[] = {u"<Filepath>",         u"<Path>",          u"<VaultPath>",
                                         u"<TaskInstanceGuid>", u"<SelCfgOrSheet>", u"<Revision>",
                                         u"<Version>",          u"<WorkflowState>", u"<Today>"};
    ASSERT_EQ(std::size(kTokens), std::size(order));
    for (size_t i = 0; i < std::size(order); ++i) {
        EXPECT_EQ(kTokens[i].text, order[i]);
    }
}

TEST(Tokens, EachHasItsValue)
{
    struct Row
    {
        const char16_t* token;
        const char16_t* value;
    };
    const Row rows[] = {
        {u"<Filepath>", u"C:\\Vault\\Sub\\Part.tvnprt"},
        {u"<Path>", u"C:\\Vault\\Sub"},
        {u"<VaultPath>", u"C:\\Vault"},
        {u"<TaskInstanceGuid>", u"{GUID}"},
        {u"<SelCfgOrSheet>", u"Default"},
        {u"<Revision>", u"B"},
        {u"<Version>", u"3"},
        {u"<WorkflowState>", u"Approved"},
        {u"<Today>", u"11_15_26"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Expand(row.token, SomeValues()), row.value);
        EXPECT_EQ(Expand(std::u16string(u"x") + row.token + row.token + u"y", SomeValues()),
                  std::u16string(u"x") + row.value + row.value + u"y");
    }
}

TEST(Tokens, ThoseOfTheMacroStay)
{
    EXPECT_EQ(Expand(u"<Filename> <Extension> <Configuration>", SomeValues()),
              u"<Filename> <Extension> <Configuration>");
}

TEST(Tokens, AnUnknownOneStays)
{
    EXPECT_EQ(Expand(u"<Foo>_<Path>", SomeValues()), u"<Foo>_C:\\Vault\\Sub");
}

TEST(Tokens, OneInLowerCaseIsNone)
{
    EXPECT_EQ(Expand(u"<path> <REVISION>", SomeValues()), u"<path> <REVISION>");
}

TEST(Tokens, SixEnterAsLiterals)
{
    TokenValues values;
    values.filePath = values.folderPath = values.vaultPath = u"\u0416";
    values.configurationOrSheet = values.revision = values.workflowState = u"\u0416";
    for (const char16_t* token :
         {u"<Filepath>", u"<Path>", u"<VaultPath>", u"<SelCfgOrSheet>", u"<Revision>", u"<WorkflowState>"}) {
        EXPECT_EQ(Expand(token, values), u"\" & ChrW(1046) & \"");
    }
}

TEST(Tokens, ThreeEnterAsTheyStand)
{
    TokenValues values;
    values.taskInstanceGuid = values.version = values.today = u"\u0416";
    for (const char16_t* token : {u"<TaskInstanceGuid>", u"<Version>", u"<Today>"}) {
        EXPECT_EQ(Expand(token, values), u"\u0416");
    }
}

TEST(Tokens, AValueThatHoldsALaterTokenIsExpandedAgain)
{
    TokenValues values = SomeValues();
    values.configurationOrSheet = u"<Revision>";
    EXPECT_EQ(Expand(u"<SelCfgOrSheet>", values), u"B");
    values.configurationOrSheet = u"<Today> of <Version>";
    EXPECT_EQ(Expand(u"<SelCfgOrSheet>", values), u"11_15_26 of 3");
}

TEST(Tokens, AValueThatHoldsAnEarlierTokenIsNot)
{
    TokenValues values = SomeValues();
    values.revision = u"<Path>";
    EXPECT_EQ(Expand(u"<Revision>", values), u"<Path>");
}

TEST(Tokens, ATokenThatAValueCompletesIsExpanded)
{
    TokenValues values = SomeValues();
    values.folderPath = u"Ver";
    EXPECT_EQ(Expand(u"<<Path>sion>", values), u"3");
    values.folderPath = u"";
    EXPECT_EQ(Expand(u"<Ver<Path>sion>", values), u"3");
    EXPECT_EQ(Expand(u"<<Path><SelCfgOrSheet>>", values), u"<Default>");
    values.folderPath = u"<Ver";
    EXPECT_EQ(Expand(u"<Path>sion>", values), u"3");
    values.folderPath = u"sion>";
    EXPECT_EQ(Expand(u"<Ver<Path>", values), u"3");
}

TEST(Tokens, AnEmptyValueLeavesNothing)
{
    EXPECT_EQ(Expand(u"a<Today>b", TokenValues()), u"ab");
}

TEST(ScriptText, StaysAsItWasForTheNextFile)
{
    const ScriptText script(u"<Version>");
    TokenValues values;
    values.version = u"1";
    EXPECT_EQ(script.Expand(values), u"1");
    values.version = u"2";
    EXPECT_EQ(script.Expand(values), u"2");
    EXPECT_EQ(script.Text(), u"<Version>");
}

TEST(ScriptText, ExpandsEveryTextAsOneReplacementAfterTheOtherDoes)
{
    const std::u16string_view pieces[] = {
        u"<Filepath>", u"<Path>", u"<VaultPath>", u"<Version>", u"<Revision>", u"<Today>", u"<Ver",   u"sion>", u"<",
        u">",          u"<Rev",   u"ision>",      u"Path",      u"x",          u" & ",     u"\u0416", u""};
    std::mt19937 random(20261115);
    const auto pick = [&](size_t length) {
        std::u16string text;
        for (size_t i = 0; i < length; ++i) {
            text += pieces[random() % std::size(pieces)];
        }
        return text;
    };
    for (int round = 0; round < 20000; ++round) {
        TokenValues values;
        for (const Token& token : kTokens) {
            values.*token.value = pick(random() % 3);
        }
        Expand(pick(random() % 8), values);
        if (testing::Test::HasFailure()) {
            break;
        }
    }
}

} // namespace
} // namespace tv
