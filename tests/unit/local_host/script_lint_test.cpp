// Warnings about the script of a task.
#include "host/macro_lint.h"
#include "host/script_contexts.h"

#include "vault/text.h"

#include <gtest/gtest.h>

#include <map>

namespace tv::local {

namespace {

using Lines = std::vector<std::string>;

/// A task's variables, and what is found wrong with a script on them.
class ScriptLintTest : public ::testing::Test
{
  protected:
    ScriptLint Find(std::u16string_view script) const
    {
        ScriptVariables variables;
        variables.find = [this](char16_t, const std::u16string& name) -> std::optional<StoredValue> {
            const auto found = values.find(name);
            return found == values.end() ? std::nullopt : std::optional(found->second);
        };
        for (const auto& [name, value] : values) {
            variables.names.push_back(name);
        }
        return LintScript(script, variables);
    }

    Lines Lint(std::u16string_view script) const
    {
        Lines lines;
        for (const MacroFinding& finding : Find(script).findings) {
            EXPECT_EQ(finding.text, FindingText::Script);
            lines.push_back(std::to_string(finding.line) + ":" + std::to_string(finding.column) + " " + finding.rule +
                            ": " + finding.message);
        }
        return lines;
    }

    void Set(std::u16string name, std::string_view text) { values[std::move(name)] = StoredValue::FromText(text); }

    std::map<std::u16string, StoredValue> values;
};

} // namespace

TEST_F(ScriptLintTest, AnOpenBracketWithNoneBehindItNeverEnds)
{
    const ScriptLint found = Find(u"Sub main()\r\n  x = \"a[b\"\r\nEnd Sub\r\n");
    EXPECT_TRUE(found.neverEnds);
    ASSERT_EQ(found.findings.size(), 1U);
    EXPECT_EQ(found.findings[0].rule, "unclosed-placeholder");
    EXPECT_EQ(found.findings[0].line, 2);
    EXPECT_EQ(found.findings[0].column, 9);
    EXPECT_EQ(found.findings[0].message,
              "This [ has no ] behind it, and a run never ends there; close it, or write ChrW(91) outside of the "
              "double quotes for the character itself.");
}

TEST_F(ScriptLintTest, AnOpenBraceWithNoneBehindItNeverEndsAlsoInAComment)
{
    const ScriptLint found = Find(u"' a { here\r\n");
    EXPECT_TRUE(found.neverEnds);
    ASSERT_EQ(found.findings.size(), 1U);
    EXPECT_EQ(found.findings[0].message,
              "This { has no } behind it, and a run never ends there; close it, or write ChrW(123) outside of the "
              "double quotes for the character itself.");
}

TEST_F(ScriptLintTest, AnOpenBracketThatAValueBringsInBehindItsFirstPlaceNeverEnds)
{
    Set(u"a", "[");
    EXPECT_FALSE(Find(u"x = \"[a]\"").neverEnds);
    const ScriptLint found = Find(u"x = \"[a]\"\r\ny = \"[a]\"");
    EXPECT_TRUE(found.neverEnds);
    ASSERT_EQ(found.findings.size(), 1U);
    EXPECT_EQ(found.findings[0].line, 2);
    EXPECT_EQ(found.findings[0].message,
              "The value of a holds a [ with no ] behind it, and a run never ends there; close it, or write ChrW(91) "
              "outside of the double quotes for the character itself.");
}

TEST_F(ScriptLintTest, ABracketInABracesValueIsMetInTheSecondPass)
{
    Set(u"a", "[");
    EXPECT_TRUE(Find(u"x = \"{a}\"").neverEnds);
}

TEST_F(ScriptLintTest, ClosingBracketsAloneAreFine)
{
    EXPECT_EQ(Lint(u"x = \"a]\" ' }"), Lines{});
}

TEST_F(ScriptLintTest, ValuesThatBringEachOtherInNeverEnd)
{
    Set(u"a", "[a][a]");
    const ScriptLint found = Find(u"x = \"[a]\" & \"[a]\"");
    EXPECT_TRUE(found.neverEnds);
    ASSERT_FALSE(found.findings.empty());
    EXPECT_EQ(found.findings[0].rule, "endless-placeholder");
    EXPECT_EQ(found.findings[0].message, "A run never ends here: the value of a holds placeholders that bring it in "
                                         "again and again; take them out of the value.");
}

TEST_F(ScriptLintTest, APlaceholderWithoutAVariableIsTold)
{
    EXPECT_EQ(Lint(u"x = \"[Folder]\""),
              Lines{"1:6 unknown-variable: [Folder] names no variable of the task, so nothing stands here at a run; to "
                    "make it: tvtask task set TASK Folder:text=VALUE"});
    EXPECT_EQ(Lint(u"x = \"{Folder}\""),
              Lines{"1:6 unknown-variable: {Folder} names no variable of the task, so nothing stands here at a run; to "
                    "make it: tvtask task set TASK Folder:text=VALUE"});
    Set(u"Folder", "x");
    EXPECT_EQ(Lint(u"x = \"[Folder]\""), Lines{});
}

TEST_F(ScriptLintTest, AMisspelledVariableIsToldWithTheOneThatIsMeant)
{
    Set(u"OutputPath", "x");
    EXPECT_EQ(Lint(u"x = \"[OutptPath]\""), Lines{"1:6 unknown-variable: [OutptPath] names no variable of the task, so "
                                                  "nothing stands here at a run; is OutputPath meant?"});
    EXPECT_EQ(Lint(u"x = \"[outputpath]\""), Lines{"1:6 unknown-variable: [outputpath] names no variable of the task, "
                                                   "so nothing stands here at a run; is OutputPath meant?"});
}

TEST_F(ScriptLintTest, BracketsThatAreMeantAsTheyStandAreToldHowToBeWritten)
{
    EXPECT_EQ(Lint(u"If x Like \"[a-z]*\" Then"),
              Lines{"1:12 unknown-variable: [a-z] names no variable of the task, so nothing stands here at a run; "
                    "brackets make a placeholder wherever they stand, so write ChrW(91) outside of the double quotes "
                    "for the character itself."});
}

TEST_F(ScriptLintTest, APlaceholderThatSwallowsLinesIsToldAlsoInAComment)
{
    EXPECT_EQ(Lint(u"' see [1\r\nx = 1\r\ny = \"]\""),
              Lines{"1:7 unknown-variable: [1… names no variable of the task, so everything up to line 3 vanishes at a "
                    "run; brackets make a placeholder wherever they stand, so write ChrW(91) outside of the double "
                    "quotes for the character itself."});
}

TEST_F(ScriptLintTest, WhatVanishesFromACommentIsFine)
{
    EXPECT_EQ(Lint(u"x = 1 ' an item[i]\r\nRem {here}\r\n"), Lines{});
}

TEST_F(ScriptLintTest, AnUnknownVariableInAValueIsToldWhereTheValueStands)
{
    Set(u"a", "[b]");
    EXPECT_EQ(
        Lint(u"x = \"{a}\""),
        Lines{"1:6 unknown-variable: In the value of a: [b] names no variable of the task, so nothing stands here "
              "at a run; to make it: tvtask task set TASK b:text=VALUE"});
}

TEST_F(ScriptLintTest, AnEmptyValueInCodeIsTold)
{
    Set(u"Copies", "");
    EXPECT_EQ(
        Lint(u"x = [Copies]"),
        Lines{"1:5 nothing-in-code: Copies is empty, so nothing stands here in the statement; give it a value, or "
              "set the placeholder between double quotes."});
}

TEST_F(ScriptLintTest, AnEmptyValueInATextOrACommentOrOnALineOfItsOwnIsFine)
{
    Set(u"Copies", "");
    EXPECT_EQ(Lint(u"x = \"[Copies]\" ' [Copies]\r\n  [Copies]\r\n"), Lines{});
}

TEST_F(ScriptLintTest, ANumberAndATruthValueInCodeAreFine)
{
    values[u"Copies"] = StoredValue::FromInt(0);
    values[u"Color"] = StoredValue::FromBool(false);
    EXPECT_EQ(Lint(u"x = [Copies]: y = [Color]"), Lines{});
}

TEST_F(ScriptLintTest, AQuoteInTheValueOfATextIsTold)
{
    Set(u"Title", "12\" pipe");
    EXPECT_EQ(Lint(u"x = \"[Title]\""),
              Lines{"1:6 quote-in-value: The value of Title holds a double quote, which ends the text around it early; "
                    "write the quote twice in the value."});
}

TEST_F(ScriptLintTest, AQuoteWrittenTwiceOrInCodeIsFine)
{
    Set(u"Title", "12\"\" pipe");
    Set(u"Code", "\"a\"");
    EXPECT_EQ(Lint(u"x = \"[Title]\" & [Code]"), Lines{});
}

TEST_F(ScriptLintTest, ALoneLineEndInAValueIsToldWhereverItStands)
{
    Set(u"Note", "one\ntwo");
    EXPECT_EQ(
        Lint(u"x = \"[Note]\"\r\n' [Note]"),
        (Lines{"1:6 line-end-in-value: The value of Note holds a CR or LF on its own, which breaks the line here; "
               "let its lines end in CR LF.",
               "2:3 line-end-in-value: The value of Note holds a CR or LF on its own, which breaks the line here; "
               "let its lines end in CR LF."}));
    Set(u"Note", "one\rtwo");
    EXPECT_EQ(Lint(u"x = \"[Note]\"").size(), 1U);
}

TEST_F(ScriptLintTest, LinesOfAValueInCodeAreTold)
{
    Set(u"Note", "one\r\ntwo");
    EXPECT_EQ(Lint(u"x = [Note]"),
              Lines{"1:5 line-end-in-value: The value of Note has several lines, which a run joins by \"+vbLf+\"; that "
                    "is wrong in code, so set the placeholder between double quotes."});
    EXPECT_EQ(Lint(u"x = \"[Note]\""), Lines{});
}

TEST_F(ScriptLintTest, AWordInAngleBracketsThatIsNoTokenIsTold)
{
    EXPECT_EQ(Lint(u"x = \"<Folder>\\a\""), Lines{"1:6 unknown-token: <Folder> is no token, so it stays as it is."});
    EXPECT_EQ(Lint(u"x = \"<Filpath>\""),
              Lines{"1:6 unknown-token: <Filpath> is no token, so it stays as it is; is <Filepath> meant?"});
}

TEST_F(ScriptLintTest, AWordInAngleBracketsInAValueIsTold)
{
    Set(u"OutputPath", "<Path>\\<Nmae>");
    EXPECT_EQ(Lint(u"x = \"[OutputPath]\""),
              Lines{"1:6 unknown-token: In the value of OutputPath: <Nmae> is no token, so it stays as it is."});
}

TEST_F(ScriptLintTest, ComparisonsAreNoTokens)
{
    EXPECT_EQ(Lint(u"x = a < b > c\r\ny = a<b>c\r\nz = f(1)<b>c\r\nIf \"a\"<b>c Then"), Lines{});
}

TEST_F(ScriptLintTest, AWordInCodeWhereAValueIsWantedIsToldAsOneThatIsNoToken)
{
    EXPECT_EQ(Lint(u"x = <Copies>"), Lines{"1:5 unknown-token: <Copies> is no token, so it stays as it is."});
}

TEST_F(ScriptLintTest, MarkupAndCommentsAreNoTokens)
{
    EXPECT_EQ(Lint(u"x = \"<item>\" & y & \"</item>\" ' <Folder>"), Lines{});
}

TEST_F(ScriptLintTest, TheTokensOfARunAreFine)
{
    Set(u"OutputPath", "<Revision>");
    EXPECT_EQ(Lint(u"x = \"<Path><VaultPath><Revision><Version><WorkflowState><Today><TaskInstanceGuid><Filepath>"
                   u"<SelCfgOrSheet>\"\r\ny = <Version>"),
              Lines{});
}

TEST_F(ScriptLintTest, ATokenOfTheMacroThatTheMacroReplacesIsFine)
{
    EXPECT_EQ(Lint(u"x = Replace(\"<Filename>\", \"<Filename>\", name)"), Lines{});
}

TEST_F(ScriptLintTest, ATokenOfTheMacroThatNobodyReplacesIsTold)
{
    EXPECT_EQ(Lint(u"x = \"<Filename>\""),
              Lines{"1:6 unknown-token: <Filename> is left to the macro, and this one doesn't replace it; write for "
                    "example Replace(path, \"<Filename>\", name)."});
    EXPECT_EQ(Lint(u"x = \"<Extension>\" & \"<Configuration>\"").size(), 2U);
}

TEST_F(ScriptLintTest, ATokenInOtherCapitalsIsTold)
{
    EXPECT_EQ(Lint(u"x = \"<filepath>\""),
              Lines{"1:6 token-case: <filepath> is no token, so it stays as it is; write <Filepath>."});
    Set(u"OutputPath", "<PATH>\\<filename>");
    EXPECT_EQ(Lint(u"x = Replace(\"[OutputPath]\", \"<Filename>\", name)"),
              (Lines{"1:14 token-case: In the value of OutputPath: <PATH> is no token, so it stays as it is; write "
                     "<Path>.",
                     "1:14 token-case: In the value of OutputPath: <filename> is no token, so it stays as it is; write "
                     "<Filename>."}));
}

TEST_F(ScriptLintTest, RevisionAndStateHaveNoValueUnlessAnOutputPathAsksForOne)
{
    Set(u"OutputPath", "<Path>\\x");
    EXPECT_EQ(Lint(u"x = \"<Revision>\""),
              Lines{"1:6 token-without-value: <Revision> stays empty: a run asks the vault for it only when OutputPath "
                    "or OutputPath2 holds <Revision> or <WorkflowState>."});
    EXPECT_EQ(Lint(u"x = \"<WorkflowState>\"").size(), 1U);
    Set(u"OutputPath2", "<WorkflowState>");
    EXPECT_EQ(Lint(u"x = \"<Revision>\""), Lines{});
}

TEST_F(ScriptLintTest, FindingsStandInTheOrderOfTheScript)
{
    const Lines lines = Lint(u"x = \"<Folder>\" & \"[a]\"\r\ny = \"[b]\"");
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_TRUE(lines[0].starts_with("1:6 unknown-token"));
    EXPECT_TRUE(lines[1].starts_with("1:19 unknown-variable"));
    EXPECT_TRUE(lines[2].starts_with("2:6 unknown-variable"));
}

namespace {

/// One letter for each unit: code, text, comment.
std::string Contexts(std::u16string_view script)
{
    std::string shown;
    for (ScriptContext context : ContextsOf(script)) {
        shown += "ct'"[static_cast<size_t>(context)];
    }
    return shown;
}

} // namespace

TEST(ScriptContexts, TextsAndCommentsAreToldFromCode)
{
    EXPECT_EQ(Contexts(u"a=\"b\"'c"), "ccttc''");
    EXPECT_EQ(Contexts(u"\"'\"'"), "ttc'");
    EXPECT_EQ(Contexts(u"\"a\"\"b\"c"), "ttcttcc");
}

TEST(ScriptContexts, ALineEndEndsATextAndAComment)
{
    EXPECT_EQ(Contexts(u"\"a\nb"), "ttcc");
    EXPECT_EQ(Contexts(u"'a\nb"), "''cc");
}

TEST(ScriptContexts, AContinuedCommentGoesOn)
{
    EXPECT_EQ(Contexts(u"'a _\r\nb\r\nc"), "'''''''ccc");
}

TEST(ScriptContexts, RemIsACommentAtTheBeginningOfAStatement)
{
    EXPECT_EQ(Contexts(u"Rem a"), "'''''");
    EXPECT_EQ(Contexts(u"a: rem b"), "ccc'''''");
    EXPECT_EQ(Contexts(u"Remove a"), "cccccccc");
    EXPECT_EQ(Contexts(u"a rem b"), "ccccccc");
}

TEST(ScriptContexts, WhatIsOpaqueChangesNothing)
{
    const auto contexts = ContextsOf(u"\"[\"]'\"a", {{1, 4}});
    ASSERT_EQ(contexts.size(), 7U);
    EXPECT_EQ(contexts[1], ScriptContext::Text);
    EXPECT_EQ(contexts[4], ScriptContext::Text);
    EXPECT_EQ(contexts[6], ScriptContext::Code);
}

} // namespace tv::local
