#include "host/card_values.h"

#include "host/errors.h"

#include <gtest/gtest.h>

namespace tv::local {

namespace {

std::optional<StoredValue> Nothing(std::string_view)
{
    return std::nullopt;
}

std::string Refusal(std::string_view assignment)
{
    try {
        ParseCardAssignment(assignment, Nothing);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "(taken)";
}

TEST(CardValues, EachKindIsReadIntoItsOwnFormAndPrintedAsAPersonWritesIt)
{
    struct Row
    {
        const char* assignment;
        StoredValue value;
        const char* kind;
        const char* text;
    };
    const Row rows[] = {
        {"Number=A-100", {VT_BSTR, std::string("A-100")}, "text", "A-100"},
        {"Number:text=12", {VT_BSTR, std::string("12")}, "text", "12"},
        {"Pieces:int=-4", {VT_I4, int64_t{-4}}, "int", "-4"},
        {"Mass:float=12.3456789", {VT_R8, 12.3456789}, "float", "12.3456789"},
        {"Approved:bool=yes", {VT_BOOL, int64_t{-1}}, "bool", "true"},
        {"On:date=2023-03-15", {VT_DATE, 45000.0}, "date", "2023-03-15"},
        {"On:date=2023-03-15 18:00", {VT_DATE, 45000.75}, "date", "2023-03-15 18:00:00"},
        {"On:date=2023-03-15T06:00:00", {VT_DATE, 45000.25}, "date", "2023-03-15 06:00:00"},
        {"On:date=1899-12-30", {VT_DATE, 0.0}, "date", "1899-12-30"},
    };
    for (const Row& row : rows) {
        const NamedValue read = ParseCardAssignment(row.assignment, Nothing);
        EXPECT_EQ(read.value, row.value) << row.assignment;
        EXPECT_EQ(CardKindWord(read.value), row.kind) << row.assignment;
        EXPECT_EQ(CardValueText(read.value), row.text) << row.assignment;
    }
}

TEST(CardValues, ADateThatIsInNoCalendarIsRefused)
{
    for (const char* date : {"2023-02-29", "2023-13-01", "2023-00-10", "2023-1-1", "15.3.2023", "0099-01-01", "",
                             "2023-03-15 24:00", "2023-03-15 12:60", "2023-03-15 12", "2023-03-15x", "-023-03-15"}) {
        EXPECT_NE(Refusal(std::string("On:date=") + date).find("it takes a date such as 2026-11-21"), std::string::npos)
            << date;
    }
    EXPECT_EQ(Refusal("On:date=2024-02-29"), "(taken)");
}

TEST(CardValues, AValueOfAnotherKindIsRefusedWithWhatWouldBeRight)
{
    EXPECT_EQ(Refusal("Mass:float=heavy"), "'heavy' can't be the value of Mass; it takes a number such as 12.5.");
    EXPECT_EQ(Refusal("Mass:float=inf"), "'inf' can't be the value of Mass; it takes a number such as 12.5.");
    EXPECT_EQ(Refusal("Pieces:int=4.5"), "'4.5' can't be the value of Pieces; it takes a whole number such as 4.");
    EXPECT_EQ(Refusal("Approved:bool=maybe"), "'maybe' can't be the value of Approved; it takes true or false.");
    EXPECT_EQ(Refusal("Mass:weight=1"), "'weight' is no kind of value; write text, int, float, bool or date.");
    EXPECT_EQ(Refusal("Mass"), "'Mass' isn't an assignment; write VARIABLE=VALUE.");
    EXPECT_EQ(Refusal("=1"), "'=1' isn't an assignment; write VARIABLE=VALUE.");
    EXPECT_EQ(Refusal(":int=1"), "':int=1' isn't an assignment; write VARIABLE=VALUE.");
}

TEST(CardValues, AKindThatIsNotWrittenIsThatOfTheValueThatIsThere)
{
    const auto pieces = [](std::string_view) { return std::optional(StoredValue::FromInt(3)); };
    EXPECT_EQ(ParseCardAssignment("Pieces=4", pieces).value, StoredValue::FromInt(4));
    EXPECT_THROW(ParseCardAssignment("Pieces=four", pieces), UsageError);
    EXPECT_EQ(ParseCardAssignment("Pieces:text=four", pieces).value, StoredValue::FromText("four"));
    const auto empty = [](std::string_view) { return std::optional(StoredValue{}); };
    EXPECT_EQ(ParseCardAssignment("Pieces=four", empty).value, StoredValue::FromText("four"));
}

TEST(CardValues, AValueMayHoldWhatElseSeparates)
{
    const NamedValue read = ParseCardAssignment("Note=a=b:c", Nothing);
    EXPECT_EQ(read.name, "Note");
    EXPECT_EQ(read.value, StoredValue::FromText("a=b:c"));
    EXPECT_EQ(ParseCardAssignment("Size: outer:int=4", Nothing).name, "Size: outer");
}

TEST(CardValues, ATextOfSeveralLinesIsPrintedInOne)
{
    EXPECT_EQ(CardValueText(StoredValue::FromText("one\ntwo")), "one two");
}

TEST(CardValues, ANumberOfSinglePrecisionIsPrintedByItsOwnDigits)
{
    EXPECT_EQ(CardValueText(StoredValue::FromFloat(12.1f)), "12.1");
    EXPECT_EQ(CardKindWord(StoredValue::FromFloat(12.1f)), "float");
    EXPECT_EQ(CardKindWord(StoredValue{}), "empty");
}

} // namespace

} // namespace tv::local
