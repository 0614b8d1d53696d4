// Warnings about the macro that a script became.
#include "host/macro_lint.h"

#include "cad/macro_library.h"
#include "vault/text.h"

#include <gtest/gtest.h>

namespace tv::local {

namespace {

std::vector<std::string> Lint(std::u16string_view macro)
{
    std::vector<std::string> lines;
    for (const MacroFinding& finding : LintMacro(macro, app::MacroLibrary())) {
        EXPECT_EQ(finding.text, FindingText::Macro);
        lines.push_back(std::to_string(finding.line) + ":" + std::to_string(finding.column) + " " + finding.rule +
                        ": " + finding.message);
    }
    return lines;
}

std::vector<std::string> LintMain(std::u16string_view body)
{
    return Lint(u"Sub main()\r\n" + std::u16string(body) + u"\r\nEnd Sub\r\n");
}

using Lines = std::vector<std::string>;

/// A statement of one line and so many continued ones.
std::u16string Continued(int count)
{
    std::u16string body = u"Dim s\r\n  s = \"a\"";
    for (int i = 0; i < count; ++i) {
        body += u" & _\r\n  \"b\"";
    }
    return body;
}

} // namespace

TEST(MacroLint, TwentyFourContinuedLinesAreFine)
{
    EXPECT_EQ(LintMain(Continued(24)), Lines{});
}

TEST(MacroLint, MoreAreNamedAtTheStatementsFirstLine)
{
    EXPECT_EQ(LintMain(Continued(25)),
              Lines{"3:3 too-many-continued-lines: This statement is continued on 25 lines, and the language takes 24; "
                    "shorten the texts in it, or build them up in several statements."});
}

TEST(MacroLint, EachStatementHasItsOwnContinuedLines)
{
    EXPECT_EQ(LintMain(Continued(20) + u"\r\n" + Continued(20)), Lines{});
}

TEST(MacroLint, AnUnderscoreInANameContinuesNothing)
{
    std::u16string body;
    for (int i = 0; i < 30; ++i) {
        body += u"Dim a" + std::u16string(1, static_cast<char16_t>(u'a' + i % 26)) +
                std::u16string(1, static_cast<char16_t>(u'a' + i / 26)) + u"_\r\n";
    }
    EXPECT_EQ(LintMain(body), Lines{});
}

TEST(MacroLint, ACharacterThatTheMacrosFileCannotHoldIsNamedOnceALine)
{
    EXPECT_EQ(LintMain(u"Dim s\r\ns = \"aΩΩ\""),
              Lines{"3:7 lost-character: 'Ω' isn't in code page 1252, in which a run writes the macro, and becomes "
                    "'?'; write ChrW(937) outside of the double quotes."});
    EXPECT_EQ(LintMain(u"' 😀"),
              Lines{"2:3 lost-character: '😀' isn't in code page 1252, in which a run writes the macro, and becomes "
                    "'?'; write ChrW(55357) & ChrW(56832) outside of the double quotes."});
}

TEST(MacroLint, WhatTheCodePageHasIsFine)
{
    EXPECT_EQ(LintMain(u"Dim s\r\ns = \"äöü € – ? ÿ\""), Lines{});
}

TEST(MacroLint, AMisspelledNameIsTold)
{
    EXPECT_EQ(LintMain(u"Dim Sheet\r\nSheet = 1\r\nDebug.Print Shet"),
              Lines{"4:13 undeclared-name: Shet isn't declared; is Sheet meant?"});
}

TEST(MacroLint, AMisspelledNameIsToldAlsoWhereItIsAssignedTo)
{
    EXPECT_EQ(LintMain(u"Dim Sheet\r\nShet = 1"), Lines{"3:1 undeclared-name: Shet isn't declared; is Sheet meant?"});
}

TEST(MacroLint, AnUndeclaredLocalThatGetsAValueIsFine)
{
    EXPECT_EQ(LintMain(u"name = \"x\"\r\nFor i = 1 To 2\r\n  Debug.Print name & i\r\nNext"), Lines{});
}

TEST(MacroLint, AnUndeclaredNameThatIsOnlyReadIsTold)
{
    EXPECT_EQ(LintMain(u"Debug.Print total"),
              Lines{"2:13 undeclared-name: total isn't declared and never gets a value in this procedure, so it is "
                    "empty; declare it, or correct the name."});
}

TEST(MacroLint, ANameThatAnotherProcedureGivesItsValueIsToldWhereItHasNone)
{
    EXPECT_EQ(Lint(u"Sub main()\r\ncount = 1\r\nShow\r\nEnd Sub\r\nSub Show()\r\nDebug.Print count\r\nEnd Sub"),
              Lines{"6:13 undeclared-name: count isn't declared and never gets a value in this procedure, so it is "
                    "empty; declare it, or correct the name."});
}

TEST(MacroLint, ANameThatIsHandedOverAndThenReadIsFine)
{
    EXPECT_EQ(Lint(u"Sub main()\r\nFill result\r\nDebug.Print result\r\nEnd Sub\r\n"
                   u"Sub Fill(ByRef x)\r\nx = 1\r\nEnd Sub"),
              Lines{});
}

TEST(MacroLint, ANameThatIsHandedOverOnceAndNeverSeenAgainIsTold)
{
    EXPECT_EQ(Lint(u"Sub main()\r\nShow mesage\r\nEnd Sub\r\nSub Show(x)\r\nDebug.Print x\r\nEnd Sub").size(), 1U);
}

TEST(MacroLint, ANameThatAMemberGivesAValueToIsFine)
{
    EXPECT_EQ(LintMain(u"Dim app As Object\r\nSet app = Application.Torvane\r\napp.ActivateDoc2 \"x\", True, problem"),
              Lines{});
}

TEST(MacroLint, AMisspelledNameOfTheApplicationIsTold)
{
    EXPECT_EQ(LintMain(u"Debug.Print tvDocPRAT"),
              Lines{"2:13 undeclared-name: tvDocPRAT isn't declared; is tvDocPART meant?"});
}

TEST(MacroLint, TheApplicationsNamesAreDeclared)
{
    EXPECT_EQ(LintMain(u"Debug.Print tvDocPART, Application.Torvane.RevisionNumber"), Lines{});
}

TEST(MacroLint, EveryRuleHasANameOfItsOwn)
{
    std::vector<std::string_view> names;
    for (const LintRuleRow& row : kLintRules) {
        names.push_back(row.name);
    }
    EXPECT_EQ(names, (std::vector<std::string_view>{"unclosed-placeholder", "endless-placeholder", "unknown-variable",
                                                    "nothing-in-code", "quote-in-value", "line-end-in-value",
                                                    "unknown-token", "token-case", "token-without-value",
                                                    "too-many-continued-lines", "lost-character", "undeclared-name"}));
}

} // namespace tv::local
