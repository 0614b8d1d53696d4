#include "local_macro/script_world.h"

#include <gtest/gtest.h>

namespace tv::macro {

TEST(Operators, UnaryMinusBindsLooserThanPower)
{
    EXPECT_EQ(Eval("-2^2"), "-4");
}
TEST(Operators, PowerTakesANegativeExponent)
{
    EXPECT_EQ(Eval("2^-1"), "0.5");
}
TEST(Operators, IntegerDivisionBindsLooserThanMultiplication)
{
    EXPECT_EQ(Eval("10 \\ 2 * 5"), "1");
}
TEST(Operators, ModBindsLooserThanIntegerDivision)
{
    EXPECT_EQ(Eval("17 Mod 9 \\ 2"), "1");
}
TEST(Operators, JoiningBindsLooserThanAddition)
{
    EXPECT_EQ(Eval("1 + 2 & 3 + 4"), "37");
}
TEST(Operators, NotBindsLooserThanComparison)
{
    EXPECT_EQ(Eval("Not 1 = 2"), "True");
}
TEST(Operators, AndBindsTighterThanOr)
{
    EXPECT_EQ(Eval("True Or False And False"), "True");
}
TEST(Operators, XorEqvAndImpFollowOr)
{
    EXPECT_EQ(Eval("True Xor True Or True"), "False");
    EXPECT_EQ(Eval("False Imp True Eqv False"), "True");
}

TEST(Operators, BothSidesAreAlwaysEvaluated)
{
    EXPECT_EQ(RunLines("If False And 1 / 0 = 1 Then Debug.Print \"no\""), "error 11");
}

TEST(Operators, PlusAddsWhenOneSideIsANumber)
{
    EXPECT_EQ(Eval("\"1\" + 1"), "2");
    EXPECT_EQ(Eval("\"1\" + \"1\""), "11");
    EXPECT_EQ(Eval("\"a\" + 1"), "error 13");
}

TEST(Operators, JoiningTakesNullAsNothing)
{
    EXPECT_EQ(RunLines("Debug.Print IsNull(Null & Null); IsNull(Null + \"a\")"), "TrueTrue");
    EXPECT_EQ(Eval("\"a\" & Null & \"b\""), "ab");
}

TEST(Operators, BitsAreTestedWithAnd)
{
    EXPECT_EQ(RunLines("If 6 And 2 Then Debug.Print \"two\"\nIf 6 And 1 Then Debug.Print \"one\""), "two");
}

TEST(Numbers, FloatsRoundHalfToEvenBecomingWhole)
{
    EXPECT_EQ(Eval("CInt(0.5) & CInt(1.5) & CInt(2.5) & CLng(-2.5)"), "022-2");
    EXPECT_EQ(Eval("Round(2.5) & Round(3.5) & Round(2.345, 2)"), "242.34");
    EXPECT_EQ(Eval("7.5 \\ 2"), "4");
    EXPECT_EQ(Eval("5.5 Mod 4"), "2");
}

TEST(Numbers, IntFloorsAndFixTruncates)
{
    EXPECT_EQ(Eval("Int(-2.5) & \" \" & Fix(-2.5)"), "-3 -2");
}

TEST(Numbers, AValueOutOfRangeIsOverflow)
{
    EXPECT_EQ(Eval("CInt(40000)"), "error 6");
    EXPECT_EQ(Eval("CInt(\"32768\")"), "error 6");
    EXPECT_EQ(Eval("CByte(256)"), "error 6");
}

TEST(Numbers, DeclaredIntegersOverflowEvenIntoALong)
{
    EXPECT_EQ(RunLines("Dim a As Integer, l As Long\na = 200\nl = a * a\nDebug.Print l"), "error 6");
    EXPECT_EQ(Eval("200 * 200"), "error 6");
    EXPECT_EQ(Eval("200& * 200"), "40000");
}

TEST(Numbers, VariantsWiden)
{
    EXPECT_EQ(RunLines("a = 200\nb = a * a\nDebug.Print TypeName(b); b"), "Long 40000 ");
    EXPECT_EQ(RunLines("a = 2147483647\nb = a + 1\nDebug.Print TypeName(b); b"), "Double 2147483648 ");
}

TEST(Numbers, HexadecimalOfFourDigitsIsASignedInteger)
{
    EXPECT_EQ(Eval("&HFFFF"), "-1");
    EXPECT_EQ(Eval("&HFFFF&"), "65535");
    EXPECT_EQ(Eval("&H10000"), "65536");
    EXPECT_EQ(Eval("&O17"), "15");
}

TEST(Numbers, DivisionByZeroHasTwoErrors)
{
    EXPECT_EQ(Eval("1 / 0"), "error 11");
    EXPECT_EQ(Eval("0 / 0"), "error 6");
    EXPECT_EQ(Eval("1 \\ 0"), "error 11");
    EXPECT_EQ(Eval("1 Mod 0"), "error 11");
}

TEST(Numbers, ASuffixGivesALiteralItsType)
{
    EXPECT_EQ(Eval("TypeName(1%) & TypeName(1&) & TypeName(1!) & TypeName(1#) & TypeName(1@)"),
              "IntegerLongSingleDoubleCurrency");
    EXPECT_EQ(Eval("TypeName(32767) & TypeName(32768) & TypeName(3000000000)"), "IntegerLongDouble");
}

TEST(Numbers, TextFormsKeepFifteenDigits)
{
    EXPECT_EQ(Eval("1 / 3"), "0.333333333333333");
    EXPECT_EQ(Eval("1E+15"), "1E+15");
    EXPECT_EQ(Eval("123456789012345#"), "123456789012345");
    EXPECT_EQ(Eval("CSng(0.1)"), "0.1");
    EXPECT_EQ(Eval("CCur(1.23456)"), "1.2346");
}

TEST(Values, EmptyEqualsZeroAndTheEmptyText)
{
    EXPECT_EQ(RunLines("Debug.Print e = 0; e = \"\"; IsEmpty(e)"), "TrueTrueTrue");
}

TEST(Values, ANumberIsLessThanATextWhenBothAreVariants)
{
    EXPECT_EQ(RunLines("a = 10\nb = \"9\"\nDebug.Print a < b"), "True");
    EXPECT_EQ(RunLines("a = 10\nDebug.Print a < 9"), "False");
}

TEST(Values, OnlyTheLastNameOfADimListGetsItsType)
{
    EXPECT_EQ(RunLines("Dim a, b As Long\nDebug.Print TypeName(a); TypeName(b)"), "EmptyLong");
}

TEST(Values, TrueIsMinusOne)
{
    EXPECT_EQ(Eval("True + 0"), "-1");
}

TEST(Values, TheSubtypesHaveTheirNames)
{
    EXPECT_EQ(Eval("TypeName(Null) & TypeName(Empty) & TypeName(Nothing) & TypeName(Array(1)) & TypeName(#1/2/2020#)"),
              "NullEmptyNothingVariant()Date");
    EXPECT_EQ(Eval("VarType(\"\") & VarType(Array()) & VarType(1.5)"), "882045");
}

TEST(Arguments, AreByReferenceByDefault)
{
    ScriptResult result = RunModule("Sub Change(x)\nx = 5\nEnd Sub\n"
                                    "Sub main()\na = 1\nChange a\nDebug.Print a\nChange (a)\na = 2\nChange (a)\n"
                                    "Debug.Print a\nEnd Sub");
    EXPECT_EQ(result.Output(), " 5 \n 2 ");
}

TEST(Arguments, AnElementAndAFieldAreByReferenceToo)
{
    ScriptResult result = RunModule("Type Point\nx As Long\nEnd Type\n"
                                    "Sub Change(x As Long)\nx = 7\nEnd Sub\n"
                                    "Sub main()\nDim a(2) As Long, p As Point\nChange a(1)\nChange p.x\n"
                                    "Debug.Print a(1); p.x\nEnd Sub");
    EXPECT_EQ(result.Output(), " 7  7 ");
}

TEST(Arguments, ADeclaredVariableKeepsItsTypeBehindAVariantParameter)
{
    ScriptResult result = RunModule("Sub Change(x)\nx = \"abc\"\nEnd Sub\n"
                                    "Sub main()\nDim n As Long\nChange n\nEnd Sub");
    EXPECT_EQ(result.run.number, 13);
}

TEST(Arguments, MayBeOptionalNamedOrMany)
{
    ScriptResult result = RunModule(
        "Function Show(a, Optional b = 2, Optional c)\nShow = a & \"-\" & b & \"-\" & IsMissing(c)\nEnd Function\n"
        "Function Sum(ParamArray rest())\nFor Each v In rest\nSum = Sum + v\nNext\nEnd Function\n"
        "Sub main()\nDebug.Print Show(1)\nDebug.Print Show(c:=3, a:=4)\nDebug.Print Sum(1, 2, 3)\n"
        "Debug.Print UBound(Array())\nEnd Sub");
    EXPECT_EQ(result.Output(), "1-2-True\n4-2-False\n 6 \n-1 ");
}

TEST(Arrays, AssignmentCopies)
{
    EXPECT_EQ(RunLines("a = Array(1, 2)\nb = a\nb(0) = 9\nDebug.Print a(0); b(0)"), " 1  9 ");
}

TEST(Arrays, SplittingNothingGivesNoElements)
{
    EXPECT_EQ(Eval("UBound(Split(\"\"))"), "-1");
}

TEST(Arrays, ReDimPreserveKeepsTheElements)
{
    EXPECT_EQ(RunLines("Dim a()\nReDim a(1)\na(0) = \"x\": a(1) = \"y\"\nReDim Preserve a(2)\n"
                       "Debug.Print a(0) & a(1) & IsEmpty(a(2)) & UBound(a)"),
              "xyTrue2");
    EXPECT_EQ(RunLines("Dim a(1)\nReDim a(2)"), "error 10");
}

TEST(Arrays, AnIndexOutOfBoundsIsErrorNine)
{
    EXPECT_EQ(RunLines("Dim a(1 To 3) As Long\na(0) = 1"), "error 9");
    EXPECT_EQ(RunLines("Dim a() As Long\nDebug.Print UBound(a)"), "error 9");
}

TEST(Arrays, OptionBaseMovesTheLowerBound)
{
    EXPECT_EQ(RunModule("Option Base 1\nSub main()\nDim a(3)\nDebug.Print LBound(a); UBound(a)\nEnd Sub").Output(),
              " 1  3 ");
}

TEST(Loops, ALimitIsEvaluatedOnce)
{
    EXPECT_EQ(RunLines("n = 3\nFor i = 1 To n\nn = 10\nc = c + 1\nNext\nDebug.Print c; i"), " 3  4 ");
}

TEST(Loops, GoBackwardsAndByFractions)
{
    EXPECT_EQ(RunLines("For i = 3 To 1 Step -1: s = s & i: Next\nFor x = 0 To 1 Step 0.5: s = s & \" \" & x: Next\n"
                       "Debug.Print s"),
              "321 0 0.5 1");
    EXPECT_EQ(RunLines("For i = 1 To 0: Debug.Print i: Next\nDebug.Print \"end\""), "end");
}

TEST(Loops, OneNextMayCloseTwo)
{
    EXPECT_EQ(RunLines("For i = 1 To 2\nFor j = 1 To 2\ns = s & i & j & \" \"\nNext j, i\nDebug.Print s"),
              "11 12 21 22 ");
}

TEST(Loops, AnIntegerCounterOverflowsAtItsEnd)
{
    EXPECT_EQ(RunLines("Dim i As Integer\nFor i = 32766 To 32767\nNext"), "error 6");
}

TEST(Loops, HaveSixForms)
{
    EXPECT_EQ(RunLines("Do While a < 2: a = a + 1: Loop\nDo Until b = 2: b = b + 1: Loop\n"
                       "Do: c = c + 1: Loop While c < 2\nDo: d = d + 1: Loop Until d = 2\n"
                       "Do: e = e + 1: If e = 2 Then Exit Do\nLoop\nWhile f < 2: f = f + 1: Wend\n"
                       "Debug.Print a; b; c; d; e; f"),
              " 2  2  2  2  2  2 ");
}

TEST(Statements, SelectTakesValuesRangesAndComparisons)
{
    EXPECT_EQ(RunModule("Function Kind(x)\nSelect Case x\nCase 1, 2: Kind = \"few\"\nCase 3 To 5\nKind = \"some\"\n"
                        "Case Is > 5\nKind = \"many\"\nCase Else\nKind = \"none\"\nEnd Select\nEnd Function\n"
                        "Sub main()\nDebug.Print Kind(2) & Kind(4) & Kind(9) & Kind(0)\nEnd Sub")
                  .Output(),
              "fewsomemanynone");
}

TEST(Statements, EndIfMayBeOneWord)
{
    EXPECT_EQ(RunLines("If True Then\nDebug.Print 1\nEndIf\nDebug.Print 2"), " 1 \n 2 ");
}

TEST(Statements, ALineIsContinuedByAnUnderscore)
{
    EXPECT_EQ(RunLines("Debug.Print \"a\" & _\n   \"b\" & _\r\n \"c\""), "abc");
}

TEST(Statements, ColonsPartStatements)
{
    EXPECT_EQ(RunLines("a = 1: b = 2: Debug.Print a + b"), " 3 ");
    EXPECT_EQ(RunLines("If False Then Debug.Print 1: Debug.Print 2 Else Debug.Print 3: Debug.Print 4"), " 3 \n 4 ");
}

TEST(Statements, LabelsAndGoToJump)
{
    EXPECT_EQ(RunLines("GoTo Over\nDebug.Print \"no\"\nOver: Debug.Print \"yes\"\nGoSub Part\nExit Sub\nPart:\n"
                       "Debug.Print \"sub\"\nReturn"),
              "yes\nsub");
}

TEST(Statements, ConditionalCompilationChoosesAnArm)
{
    EXPECT_EQ(RunModule("#Const Mine = 2\n#If VBA7 And Mine = 2 Then\nConst a = \"new\"\n#Else\nthis is no code (\n"
                        "#End If\nSub main()\n#If Mac Then\nDebug.Print 1\n#ElseIf Win64 Then\nDebug.Print a\n#End If\n"
                        "End Sub")
                  .Output(),
              "new");
}

TEST(Statements, StaticVariablesKeepTheirValue)
{
    EXPECT_EQ(RunModule("Function Count()\nStatic n As Long\nn = n + 1\nCount = n\nEnd Function\n"
                        "Sub main()\nCount\nCount\nDebug.Print Count\nEnd Sub")
                  .Output(),
              " 3 ");
}

TEST(Statements, RecordsAreCopiedByAssignment)
{
    EXPECT_EQ(RunModule("Type Inner\nv As Long\nEnd Type\nType Outer\nname As String\nparts(1) As Inner\nEnd Type\n"
                        "Sub main()\nDim a As Outer, b As Outer\na.name = \"a\": a.parts(1).v = 3\nb = a\n"
                        "b.name = \"b\": b.parts(1).v = 4\nWith a.parts(1)\n.v = .v + 10\nEnd With\n"
                        "Debug.Print a.name; a.parts(1).v; b.name; b.parts(1).v\nEnd Sub")
                  .Output(),
              "a 13 b 4 ");
}

TEST(Statements, EnumMembersCountOn)
{
    EXPECT_EQ(RunModule("Enum Color\nRed\nGreen = 5\nBlue\nEnd Enum\nSub main()\nDim c As Color\nc = Blue\n"
                        "Debug.Print Red; c; Color.Green\nEnd Sub")
                  .Output(),
              " 0  6  5 ");
}

TEST(Statements, MidOverwritesWithoutChangingTheLength)
{
    EXPECT_EQ(RunLines("s = \"abcdef\"\nMid(s, 2, 3) = \"XYZW\"\nDebug.Print s\nMid$(s, 6) = \"123\"\nDebug.Print s"),
              "aXYZef\naXYZe1");
}

TEST(Statements, PropertiesOfAModuleWork)
{
    EXPECT_EQ(RunModule("Private held\nProperty Get Level()\nLevel = held\nEnd Property\n"
                        "Property Let Level(v)\nheld = v * 2\nEnd Property\n"
                        "Sub main()\nLevel = 4\nDebug.Print Level\nEnd Sub")
                  .Output(),
              " 8 ");
}

TEST(Names, ARoutineShadowsABuiltInFunction)
{
    EXPECT_EQ(RunModule("Sub Log(message)\nDebug.Print \"log: \" & message\nEnd Sub\nSub main()\nLog \"x\"\nEnd Sub")
                  .Output(),
              "log: x");
}

TEST(Names, AFunctionNameIsItsResultAndCallsItself)
{
    EXPECT_EQ(RunModule("Function Fact(n)\nIf n < 2 Then Fact = 1 Else Fact = n * Fact(n - 1)\nEnd Function\n"
                        "Sub main()\nDebug.Print Fact(10)\nEnd Sub")
                  .Output(),
              " 3628800 ");
}

TEST(Names, AreTheSameInCapitals)
{
    EXPECT_EQ(RunLines("abc = 1\nDEBUG.print ABC + Abc"), " 2 ");
}

TEST(Patterns, LikeKnowsItsSigns)
{
    EXPECT_EQ(Eval("(\"abc\" Like \"a*\") & (\"abc\" Like \"a?c\") & (\"a5\" Like \"a#\") & (\"b\" Like \"[a-c]\")"),
              "TrueTrueTrueTrue");
    EXPECT_EQ(Eval("(\"d\" Like \"[a-c]\") & (\"d\" Like \"[!a-c]\") & (\"\" Like \"[]\") & (\"A\" Like \"a\")"),
              "FalseTrueTrueFalse");
    EXPECT_EQ(Eval("\"a\" Like \"[a\""), "error 93");
    EXPECT_EQ(Eval("\"a*c\" Like \"a[*]c\""), "True");
}

TEST(Patterns, OptionCompareTextGovernsEqualsLikeAndInStrOnly)
{
    EXPECT_EQ(
        RunModule("Option Compare Text\nSub main()\n"
                  "Debug.Print \"A\" = \"a\"; \"A\" Like \"a\"; InStr(\"xA\", \"a\"); Replace(\"A\", \"a\", \"b\")\n"
                  "Debug.Print UBound(Split(\"1a2\", \"A\"))\nEnd Sub")
            .Output(),
        "TrueTrue 2 A\n 0 ");
}

} // namespace tv::macro
