// How findings are shown, and how places in a text are counted.
#include "host/macro_findings.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tv::local {

namespace {

std::string Shown(std::u16string_view text, const MacroFinding& finding)
{
    FindingPrinter printer;
    printer.SetText(finding.text, "Export (macro)", text);
    std::ostringstream out;
    printer.Print(out, finding);
    return out.str();
}

} // namespace

TEST(TextLines, LinesEndInAnyWay)
{
    const TextLines lines(u"one\r\ntwo\nthree\rfour");
    EXPECT_EQ(lines.Count(), 4);
    EXPECT_EQ(lines.Line(1), u"one");
    EXPECT_EQ(lines.Line(2), u"two");
    EXPECT_EQ(lines.Line(3), u"three");
    EXPECT_EQ(lines.Line(4), u"four");
    EXPECT_EQ(lines.Line(0), u"");
    EXPECT_EQ(lines.Line(5), u"");
}

TEST(TextLines, PlacesCountFromOne)
{
    const TextLines lines(u"ab\r\ncd");
    EXPECT_EQ(lines.PlaceOf(0).line, 1);
    EXPECT_EQ(lines.PlaceOf(0).column, 1);
    EXPECT_EQ(lines.PlaceOf(4).line, 2);
    EXPECT_EQ(lines.PlaceOf(4).column, 1);
    EXPECT_EQ(lines.PlaceOf(5).column, 2);
}

TEST(FindingPrinter, AProblemIsAnErrorWithItsLineAndAMarkUnderTheColumn)
{
    EXPECT_EQ(Shown(u"Sub main()\r\n  x = = 2\r\n", {FindingText::Macro, 2, 7, {}, "Expected: expression"}),
              "Export (macro):2:7: error: Expected: expression\n"
              "      x = = 2\n"
              "          ^\n");
}

TEST(FindingPrinter, AWarningNamesItsRule)
{
    EXPECT_EQ(Shown(u"a = b", {FindingText::Macro, 1, 5, "undeclared-name", "b isn't declared."}),
              "Export (macro):1:5: warning: b isn't declared. [undeclared-name]\n"
              "    a = b\n"
              "        ^\n");
}

TEST(FindingPrinter, TabsAndCharactersBeyondAsciiKeepTheMarkInItsColumn)
{
    EXPECT_EQ(Shown(u"\tä😀 = b", {FindingText::Macro, 1, 8, {}, "m"}), "Export (macro):1:8: error: m\n"
                                                                       "    \tä😀 = b\n"
                                                                       "    \t     ^\n");
}

TEST(FindingPrinter, OfALongLineOnlyWhatIsAroundTheColumnIsShown)
{
    const std::u16string line = std::u16string(200, u'a') + u"b" + std::u16string(200, u'c');
    EXPECT_EQ(Shown(line, {FindingText::Macro, 1, 201, {}, "m"}),
              "Export (macro):1:201: error: m\n    …" + std::string(70, 'a') + "b" + std::string(39, 'c') + "…\n    " +
                  std::string(71, ' ') + "^\n");
}

TEST(FindingPrinter, AColumnBehindTheLineIsMarkedBehindIt)
{
    EXPECT_EQ(Shown(u"ab", {FindingText::Macro, 1, 9, {}, "m"}), "Export (macro):1:9: error: m\n    ab\n      ^\n");
}

TEST(FindingPrinter, AFindingWithoutALineIsShownWithoutOne)
{
    EXPECT_EQ(Shown(u"ab", {FindingText::Macro, 0, 0, {}, "Out of memory"}),
              "Export (macro):0:0: error: Out of memory\n");
}

TEST(FindingPrinter, JsonTellsTextPlaceRuleAndSource)
{
    FindingPrinter printer;
    printer.SetText(FindingText::Script, "x", u"[a]");
    const Json json = printer.ToJson({FindingText::Script, 1, 2, "unknown-variable", "message"});
    EXPECT_EQ(json["text"], "script");
    EXPECT_EQ(json["line"], 1);
    EXPECT_EQ(json["column"], 2);
    EXPECT_EQ(json["severity"], "warning");
    EXPECT_EQ(json["rule"], "unknown-variable");
    EXPECT_EQ(json["message"], "message");
    EXPECT_EQ(json["source"], "[a]");
    EXPECT_EQ(printer.ToJson({FindingText::Macro, 1, 2, {}, "m"})["rule"], nullptr);
    EXPECT_EQ(printer.ToJson({FindingText::Macro, 1, 2, {}, "m"})["severity"], "error");
}

} // namespace tv::local
