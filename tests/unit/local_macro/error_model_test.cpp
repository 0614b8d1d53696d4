#include "local_macro/script_world.h"

#include <gtest/gtest.h>

namespace tv::macro {

TEST(ErrorModel, AHandlerTakesTheErrorAndResumeNextGoesOn)
{
    EXPECT_EQ(RunLines("On Error GoTo Fail\nx = 1 / 0\nDebug.Print \"after\"\nExit Sub\n"
                       "Fail:\nDebug.Print Err.Number; Err.Description\nResume Next"),
              " 11 Division by zero\nafter");
}

TEST(ErrorModel, ResumeTriesTheStatementAgain)
{
    EXPECT_EQ(RunLines("On Error GoTo Fail\nd = 0\nDebug.Print 6 / d\nExit Sub\nFail:\nd = 2\nResume"), " 3 ");
}

TEST(ErrorModel, ResumeLabelGoesThere)
{
    EXPECT_EQ(RunLines("On Error GoTo Fail\nx = 1 / 0\nDebug.Print \"no\"\nThere:\nDebug.Print \"there\"; Err.Number\n"
                       "Exit Sub\nFail:\nResume There"),
              "there 0 ");
}

TEST(ErrorModel, ResumeNextWithoutHandlerSkipsTheStatement)
{
    EXPECT_EQ(RunLines("On Error Resume Next\nx = 1 / 0\nDebug.Print Err.Number\nErr.Clear\nDebug.Print Err.Number"),
              " 11 \n 0 ");
}

TEST(ErrorModel, ResumeNextBehindAFailedConditionEntersTheBlock)
{
    EXPECT_EQ(RunLines("On Error Resume Next\nIf 1 / 0 Then\nDebug.Print \"in\"\nElse\nDebug.Print \"else\"\nEnd If\n"
                       "Debug.Print \"end\""),
              "in\nend");
}

TEST(ErrorModel, ResumeNextInABranchLeavesTheIf)
{
    EXPECT_EQ(RunLines("On Error Resume Next\nIf True Then\nx = 1 / 0\nElse\nDebug.Print \"else\"\nEnd If\n"
                       "Debug.Print \"end\""),
              "end");
}

TEST(ErrorModel, AHandlerThatWasEnteredNoLongerGuards)
{
    ScriptResult result = RunModule("Sub Inner()\nOn Error GoTo Fail\nx = 1 / 0\nExit Sub\nFail:\nCLng \"a\"\nEnd Sub\n"
                                    "Sub main()\nOn Error GoTo Outer\nInner\nExit Sub\n"
                                    "Outer:\nDebug.Print Err.Number\nEnd Sub");
    EXPECT_EQ(result.Output(), " 13 ");
}

TEST(ErrorModel, AnUnhandledErrorGoesToTheCaller)
{
    ScriptResult result = RunModule("Sub Inner()\nx = 1 / 0\nDebug.Print \"no\"\nEnd Sub\n"
                                    "Sub main()\nOn Error Resume Next\nInner\nDebug.Print Err.Number\nEnd Sub");
    EXPECT_EQ(result.Output(), " 11 ");
}

TEST(ErrorModel, GoToZeroTakesTheHandlerAway)
{
    EXPECT_EQ(RunLines("On Error Resume Next\nOn Error GoTo 0\nx = 1 / 0"), "error 11");
}

TEST(ErrorModel, GoToMinusOneMakesTheHandlerGuardAgain)
{
    EXPECT_EQ(
        RunLines("On Error GoTo First\nx = 1 / 0\nFirst:\nOn Error GoTo -1\nOn Error GoTo Second\nx = CLng(\"a\")\n"
                 "Second:\nDebug.Print Err.Number"),
        " 13 ");
}

TEST(ErrorModel, EveryOnErrorClearsErr)
{
    EXPECT_EQ(RunLines("On Error Resume Next\nx = 1 / 0\nOn Error Resume Next\nDebug.Print Err.Number"), " 0 ");
}

TEST(ErrorModel, ResumeWithoutAnErrorIsErrorTwenty)
{
    EXPECT_EQ(RunLines("Resume Next"), "error 20");
}

TEST(ErrorModel, ALabelMayBeNamedWithItsColon)
{
    EXPECT_EQ(RunLines("On Error GoTo Fail:\nx = 1 / 0\nExit Sub\nFail:\nDebug.Print \"caught\""), "caught");
    EXPECT_EQ(RunLines("On Error Goto Ignore\nKill \"C:\\none\"\nIgnore:\nDebug.Print \"done\""), "done");
}

TEST(ErrorModel, RaiseCarriesNumberSourceAndDescription)
{
    EXPECT_EQ(RunLines("On Error Resume Next\nErr.Raise 1234, \"Me\", \"Words\"\n"
                       "Debug.Print Err; Err.Source; \" \"; Err.Description"),
              " 1234 Me Words");
    EXPECT_EQ(RunLines("On Error Resume Next\nErr.Raise Number:=9, Description:=\"x\"\nDebug.Print Err.Description"),
              "x");
    EXPECT_EQ(RunLines("On Error Resume Next\nError 53\nDebug.Print Error$; Error(9)"),
              "File not foundSubscript out of range");
}

TEST(ErrorModel, AnErrorThatNobodyTakesEndsTheRunWithItsLine)
{
    ScriptResult result = RunModule("Sub main()\n\n  x = 1 / 0\nEnd Sub");
    EXPECT_EQ(result.run.outcome, Outcome::RuntimeError);
    EXPECT_EQ(result.run.number, 11);
    EXPECT_EQ(result.run.line, 3);
    EXPECT_EQ(result.run.description, u"Division by zero");
}

TEST(ErrorModel, ErlTellsTheLineNumber)
{
    EXPECT_EQ(RunLines("On Error GoTo Fail\n10 x = 1\n20 x = 1 / 0\nFail: Debug.Print Erl"), " 20 ");
}

TEST(ErrorModel, EveryNumberHasItsWords)
{
    struct Row
    {
        int32_t number;
        std::u16string_view words;
    };
    const Row rows[] = {
        {5, u"Invalid procedure call or argument"},
        {6, u"Overflow"},
        {9, u"Subscript out of range"},
        {11, u"Division by zero"},
        {13, u"Type mismatch"},
        {52, u"Bad file name or number"},
        {53, u"File not found"},
        {55, u"File already open"},
        {58, u"File already exists"},
        {62, u"Input past end of file"},
        {70, u"Permission denied"},
        {75, u"Path/File access error"},
        {76, u"Path not found"},
        {91, u"Object variable or With block variable not set"},
        {94, u"Invalid use of Null"},
        {424, u"Object required"},
        {438, u"Object doesn't support this property or method"},
        {449, u"Argument not optional"},
        {450, u"Wrong number of arguments or invalid property assignment"},
        {453, u"Specified DLL function not found"},
        {1000, u"Application-defined or object-defined error"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ErrorDescription(row.number), row.words) << row.number;
    }
}

TEST(ErrorModel, AFailedCallBecomesTheLanguagesError)
{
    EXPECT_EQ(MacroError::FromResult(static_cast<int32_t>(0x80020006)).number, 438);
    EXPECT_EQ(MacroError::FromResult(static_cast<int32_t>(0x80020005)).number, 13);
    EXPECT_EQ(MacroError::FromResult(static_cast<int32_t>(0x800A0005)).number, 5);
    EXPECT_EQ(MacroError::FromResult(static_cast<int32_t>(0x80004005)).number, -2147467259);
    EXPECT_EQ(MacroError::FromResult(static_cast<int32_t>(0x80004005)).description, u"Automation error");
}

} // namespace tv::macro
