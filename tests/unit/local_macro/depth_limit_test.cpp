// What is nested or chained without end is refused or carried out, and never takes the process with it.

#include "local_macro/script_world.h"

#include <gtest/gtest.h>

namespace tv::macro {

namespace {

std::string Times(std::string_view text, size_t count)
{
    std::string result;
    for (size_t i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

std::string ProblemOf(const std::string& statements)
{
    return RunModule("Sub main()\n" + statements + "\nEnd Sub\n").FirstProblem();
}

bool EndsWith(const std::string& text, std::string_view end)
{
    return text.ends_with(end);
}

} // namespace

TEST(DepthLimit, TenThousandParenthesesAreRefused)
{
    EXPECT_PRED2(EndsWith, ProblemOf("x = " + Times("(", 10000) + "1" + Times(")", 10000)), "Too deeply nested");
}

TEST(DepthLimit, AHundredParenthesesAreNot)
{
    EXPECT_EQ(Eval(Times("(", 100) + "1" + Times(")", 100)), "1");
}

TEST(DepthLimit, TenThousandCallsInEachOtherAreRefused)
{
    EXPECT_PRED2(EndsWith, ProblemOf("x = " + Times("Abs(", 10000) + "1" + Times(")", 10000)), "Too deeply nested");
}

TEST(DepthLimit, TenThousandSignsAreRefused)
{
    EXPECT_PRED2(EndsWith, ProblemOf("x = " + Times("-", 10000) + "1"), "Too deeply nested");
    EXPECT_PRED2(EndsWith, ProblemOf("x = " + Times("Not ", 10000) + "1"), "Too deeply nested");
}

TEST(DepthLimit, TenThousandBlocksAreRefused)
{
    EXPECT_PRED2(EndsWith, ProblemOf(Times("If x Then\n", 10000) + Times("End If\n", 10000)), "Too deeply nested");
    EXPECT_PRED2(EndsWith, ProblemOf(Times("Do\n", 10000) + Times("Loop\n", 10000)), "Too deeply nested");
    EXPECT_PRED2(EndsWith, ProblemOf(Times("If x Then ", 10000) + "y = 1"), "Too deeply nested");
}

TEST(DepthLimit, TenThousandIndicesAreRefused)
{
    EXPECT_PRED2(EndsWith, ProblemOf("x = a" + Times("(1)", 10000)), "Expression too complex");
    EXPECT_PRED2(EndsWith, ProblemOf("x = a" + Times(".b", 10000)), "Expression too complex");
    EXPECT_PRED2(EndsWith, ProblemOf("a" + Times(".b", 10000)), "Expression too complex");
}

TEST(DepthLimit, ALineOfThirtyThousandTermsIsComputed)
{
    EXPECT_EQ(RunLines("x = 0" + Times(" + 1&", 30000) + "\nDebug.Print x"), " 30000 ");
    EXPECT_EQ(RunLines("a = \"x\"\ns = \"\"" + Times(" & a", 30000) + "\nDebug.Print Len(s)"), " 30000 ");
    EXPECT_EQ(RunLines("a = 1\nx = 0" + Times(" + a", 30000) + "\nDebug.Print x"), " 30000 ");
}

TEST(DepthLimit, ALiteralOfAMegabyteIsRead)
{
    EXPECT_EQ(RunLines("s = \"" + Times("0123456789", 100000) + "\"\nDebug.Print Len(s)"), " 1000000 ");
}

TEST(DepthLimit, ElevenThousandArgumentsAreRefused)
{
    EXPECT_PRED2(EndsWith, ProblemOf("v = Array(1" + Times(", 1", 11000) + ")"), "Too many arguments");
    EXPECT_PRED2(EndsWith, ProblemOf("Debug.Print 1" + Times(", 1", 11000)), "Too many arguments");
}

TEST(DepthLimit, TwentyOneThousandVariablesInOneProcedureAreRefused)
{
    std::string names;
    for (int i = 0; i < 21000; ++i) {
        names += "v" + std::to_string(i) + " = 1\n";
    }
    EXPECT_PRED2(EndsWith, ProblemOf(names), "Too many local variables");
}

TEST(DepthLimit, EndlessGoSubIsOutOfStackSpace)
{
    EXPECT_EQ(RunLines("again:\nGoSub again"), "error 28");
}

TEST(DepthLimit, EndlessRecursionInAnExpressionIsOutOfStackSpace)
{
    EXPECT_EQ(
        RunModule("Function F(x)\nF = 1 + F(x & \"a\")\nEnd Function\nSub main()\ny = F(1)\nEnd Sub\n").run.number, 28);
}

TEST(DepthLimit, EndlessRecursionThroughPropertiesIsOutOfStackSpace)
{
    EXPECT_EQ(RunModule("Property Get P()\nP = P()\nEnd Property\nProperty Let P(v)\nP = v\nEnd Property\n"
                        "Sub main()\nP = 1\nEnd Sub\n")
                  .run.number,
              28);
}

TEST(DepthLimit, RecursionWithLargeLocalsEndsAtTheStackAndCanBeCaught)
{
    EXPECT_EQ(RunModule("Sub R(ByVal n)\nDim a(1000) As Long, s As String\ns = String(100, \"x\")\nR n + 1\nEnd Sub\n"
                        "Sub main()\nOn Error Resume Next\nR 1\nDebug.Print Err.Number\nEnd Sub\n")
                  .Output(),
              " 28 ");
}

TEST(DepthLimit, AChainOfDictionariesIsReleasedWithinTheRun)
{
    EXPECT_EQ(RunLines("Dim head As Object\nFor i = 1 To 100000\nSet d = CreateObject(\"Scripting.Dictionary\")\nSet "
                       "d(\"next\") = head\n"
                       "Set head = d\nNext\nSet d = Nothing\nSet head = Nothing\nDebug.Print \"released\""),
              "released");
}

TEST(DepthLimit, AChainOfCollectionsIsReleasedAtTheEndOfTheRun)
{
    EXPECT_EQ(RunLines("For i = 1 To 100000\nSet c = New Collection\nc.Add head\nSet head = c\nNext\n"
                       "Debug.Print \"built\""),
              "built");
}

TEST(DepthLimit, AChainOfArraysAndCollectionsByTurnsIsReleased)
{
    EXPECT_EQ(RunLines("For i = 1 To 50000\nSet c = New Collection\nc.Add Array(v)\nv = Array(c)\nNext\n"
                       "Set c = Nothing\nv = Empty\nDebug.Print \"released\""),
              "released");
}

TEST(DepthLimit, ARingOfDictionariesIsReleasedAtTheEndOfTheRun)
{
    EXPECT_EQ(RunLines("Set first = CreateObject(\"Scripting.Dictionary\")\nSet last = first\nFor i = 1 To 10000\n"
                       "Set d = CreateObject(\"Scripting.Dictionary\")\nSet d(\"next\") = last\nSet last = d\nNext\n"
                       "Set first(\"next\") = last\nDebug.Print \"closed\""),
              "closed");
}

} // namespace tv::macro
