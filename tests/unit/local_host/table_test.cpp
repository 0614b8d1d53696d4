#include "host/table.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tv::local {

namespace {

TEST(Tables, ColumnsAreAsWideAsTheirWidestCellAndNumbersStandToTheRight)
{
    Table table({{"Name"}, {"Version", Align::Right}, {"Who"}});
    table.Add({"größe.step", "1", "anna"});
    table.Add({"a", "12", ""});
    std::ostringstream out;
    table.Print(out);
    EXPECT_EQ(out.str(), "Name        Version  Who\n"
                         "----------  -------  ----\n"
                         "größe.step        1  anna\n"
                         "a                12\n");
}

TEST(Tables, SizesAreShort)
{
    EXPECT_EQ(SizeText(0), "0 B");
    EXPECT_EQ(SizeText(999), "999 B");
    EXPECT_EQ(SizeText(1000), "1.0 KB");
    EXPECT_EQ(SizeText(12600), "12.3 KB");
    EXPECT_EQ(SizeText(5 * 1024 * 1024), "5.0 MB");
    EXPECT_EQ(SizeText(200 * 1024), "200 KB");
}

TEST(Tables, TimesLoseTheLettersOfTheStandard)
{
    EXPECT_EQ(TimeText("2026-11-21T01:40:05Z"), "2026-11-21 01:40:05");
    EXPECT_EQ(TimeText(""), "");
}

} // namespace

} // namespace tv::local
