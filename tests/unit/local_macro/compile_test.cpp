#include "local_macro/script_world.h"

#include <gtest/gtest.h>

namespace tv::macro {

namespace {

std::string Problem1(std::string_view source)
{
    return RunModule(source).FirstProblem();
}

} // namespace

TEST(Compiling, ASyntaxErrorNamesLineColumnAndWhatWasExpected)
{
    EXPECT_EQ(Problem1("Sub main()\nIf  = 2 Then\nEnd If\nEnd Sub"), "2:5 Expected: expression");
    EXPECT_EQ(Problem1("Sub main()\nx = (1 + 2\nEnd Sub"), "2:11 Expected: )");
    EXPECT_EQ(Problem1("Sub main()\nx = 1 2\nEnd Sub"), "2:7 Expected: end of statement");
    EXPECT_EQ(Problem1("Sub main()\nIf x Then\nEnd Sub"), "3:1 Expected: End If");
    EXPECT_EQ(Problem1("Sub main()\nx = \"abc\nEnd Sub"), "2:5 Expected: \" at the end of the text");
    EXPECT_EQ(Problem1("Sub main()\nNext\nEnd Sub"), "2:1 Next without For");
    EXPECT_EQ(Problem1("Sub main()\n"), "2:1 Expected: End Sub");
}

TEST(Compiling, NothingRunsWhenSomethingDoesNotCompile)
{
    ScriptResult result = RunModule("Sub main()\nDebug.Print 1\nEnd Sub\nSub other()\nGoTo Nowhere\nEnd Sub");
    EXPECT_EQ(result.run.outcome, Outcome::CompileError);
    EXPECT_EQ(result.Output(), "");
    EXPECT_EQ(result.FirstProblem(), "5:1 Label not defined: nowhere");
}

TEST(Compiling, OptionExplicitAsksForDeclarations)
{
    EXPECT_EQ(Problem1("Option Explicit\nSub main()\nx = 1\nEnd Sub"), "3:1 Variable not defined: x");
    EXPECT_EQ(Problem1("Sub main()\nx = 1\nEnd Sub"), "");
}

TEST(Compiling, AnUnknownRoutineIsNamed)
{
    EXPECT_EQ(Problem1("Sub main()\nDoSomething 1\nEnd Sub"), "2:1 Sub or Function not defined: DoSomething");
    EXPECT_EQ(Problem1("Sub main()\nx = Missing(1)\nEnd Sub"), "2:5 Sub or Function not defined: Missing");
}

TEST(Compiling, ArgumentsAreCounted)
{
    EXPECT_EQ(Problem1("Sub a(x)\nEnd Sub\nSub main()\na\nEnd Sub"), "4:1 Argument not optional");
    EXPECT_EQ(Problem1("Sub a(x)\nEnd Sub\nSub main()\na 1, 2\nEnd Sub"),
              "4:1 Wrong number of arguments or invalid property assignment");
    EXPECT_EQ(Problem1("Sub main()\nx = Left(\"a\")\nEnd Sub"), "2:5 Argument not optional");
}

TEST(Compiling, AVariableOfAnotherTypeDoesNotGoByReference)
{
    EXPECT_EQ(Problem1("Sub a(s As String)\nEnd Sub\nSub main()\nDim n As Long\na n\nEnd Sub"),
              "5:3 ByRef argument type mismatch");
}

TEST(Compiling, WhatIsNotCoveredIsRefusedByName)
{
    EXPECT_EQ(Problem1("Implements Thing\nSub main()\nEnd Sub"),
              "1:1 Implements is not supported by this macro language");
    EXPECT_EQ(Problem1("Sub main()\nx = AddressOf main\nEnd Sub"),
              "2:5 AddressOf is not supported by this macro language");
    EXPECT_EQ(Problem1("Sub main()\nRaiseEvent Changed\nEnd Sub"),
              "2:1 RaiseEvent is not supported by this macro language");
    EXPECT_EQ(Problem1("Sub main()\nWidth #1, 80\nEnd Sub"), "2:1 Width # is not supported by this macro language");
    EXPECT_EQ(Problem1("Sub main()\nDim x As New Thing.Other\nEnd Sub"), "");
}

TEST(Compiling, ANameMeansOneThing)
{
    EXPECT_EQ(Problem1("Sub a()\nEnd Sub\nSub a()\nEnd Sub"), "3:5 Ambiguous name detected: a");
    EXPECT_EQ(Problem1("Sub main()\nDim a\nDim A\nEnd Sub"), "3:5 Duplicate declaration in current scope: A");
    EXPECT_EQ(Problem1("Const a = 1\nSub main()\na = 2\nEnd Sub"), "3:1 Assignment to constant not permitted");
}

TEST(Compiling, AnUnknownTypeIsNamed)
{
    ScriptHost host;
    ScriptLibrary library;
    EXPECT_EQ(RunModule("Dim a As Strange.Thing\nSub main()\nEnd Sub", host, &library).FirstProblem(),
              "1:10 User-defined type not defined: Strange.Thing");
    EXPECT_EQ(RunModule("Dim a As Torvane.ModelDoc2\nSub main()\nEnd Sub", host, &library).FirstProblem(), "");
}

TEST(Compiling, SeveralProblemsAreTold)
{
    ScriptResult result = RunModule("Sub main()\nFirst 1\nAnother 2\nEnd Sub");
    EXPECT_EQ(result.problems.size(), 2U);
}

TEST(Compiling, AJoinedTextOfThousandsOfTermsCompilesAndRuns)
{
    std::string source = "Sub main()\ns = \"\"";
    for (int i = 0; i < 5000; ++i) {
        source += " & ChrW(937)";
    }
    EXPECT_EQ(RunModule(source + "\nDebug.Print Len(s)\nEnd Sub").Output(), " 5000 ");
}

TEST(Compiling, DeepNestingIsAProblemAndNoCrash)
{
    std::string open(100000, '(');
    EXPECT_NE(Problem1("Sub main()\nx = " + open + "1\nEnd Sub").find("Too deeply nested"), std::string::npos);
    std::string nots;
    for (int i = 0; i < 100000; ++i) {
        nots += "Not ";
    }
    EXPECT_NE(Problem1("Sub main()\nx = " + nots + "1\nEnd Sub").find("Too deeply nested"), std::string::npos);
}

TEST(Compiling, AnEmptyTextHasNoProcedure)
{
    ScriptResult result = RunModule("");
    EXPECT_EQ(result.run.outcome, Outcome::NoSuchProcedure);
}

TEST(Compiling, OutsideOfProceduresAnUndeclaredNameIsNoVariable)
{
    struct Row
    {
        std::string_view declaration;
        std::string_view problem;
    };
    constexpr Row kRows[] = {
        {"Const a = b", "1:11 Constant expression required"},
        {"Const a = 1 + b", "1:15 Constant expression required"},
        {"Const a = -b", "1:12 Constant expression required"},
        {"Const a = (b)", "1:12 Constant expression required"},
        {"Const a = b(1)", "1:11 Constant expression required"},
        {"Dim a(b)", "1:7 Constant expression required"},
        {"Dim a(1 To b)", "1:12 Constant expression required"},
        {"Dim a As String * b", "1:19 Constant expression required"},
        {"Enum E\na = b\nEnd Enum", "2:5 Constant expression required"},
        {"Type T\na(b) As Long\nEnd Type", "2:3 Constant expression required"},
        {"Type T\na As String * b\nEnd Type", "2:15 Constant expression required"},
        {"Sub f(Optional a = b)\nEnd Sub", "1:20 Constant expression required"},
        {"Declare PtrSafe Sub f Lib \"l\" (Optional a = b)", "1:45 Constant expression required"},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(Problem1(std::string(row.declaration) + "\nSub main()\nEnd Sub"), row.problem) << row.declaration;
    }
}

TEST(Compiling, AProcedureWithAProblemInItsFirstLineIsCompiledOn)
{
    ScriptResult result = RunModule("Function f(a As Nowhere)\nx = a\nf = x\nGoTo there\nEnd Function\n"
                                    "Property Get p()\ny = 1\nEnd Property\n"
                                    "Property Get p()\ny = 2\nGoTo there\nEnd Property\n"
                                    "Sub main()\nEnd Sub");
    std::vector<std::string> told;
    for (const Problem& problem : result.problems) {
        told.push_back(std::to_string(problem.line) + " " + Narrow(problem.message));
    }
    EXPECT_EQ(told,
              (std::vector<std::string>{"1 User-defined type not defined: Nowhere", "9 Ambiguous name detected: p",
                                        "4 Label not defined: there", "11 Label not defined: there"}));
}

} // namespace tv::macro
