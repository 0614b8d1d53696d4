#include "com/bstring.h"
#include "system_under_test.h"

namespace {

struct DateRow
{
    double date;
    std::u16string_view text;
};

constexpr DateRow kDates[] = {
    {45000.0, u"3/15/2023"},
    {45000.75, u"3/15/2023 6:00:00 PM"},
    {45000.5, u"3/15/2023 12:00:00 PM"},
    {45000.0 + 1.0 / 86400, u"3/15/2023 12:00:01 AM"},
    {0.0, u"12:00:00 AM"},
    {0.5, u"12:00:00 PM"},
    {0.25, u"6:00:00 AM"},
    {1.0, u"12/31/1899"},
    {2.0, u"1/1/1900"},
    {-1.0, u"12/29/1899"},
    {-1.25, u"12/29/1899 6:00:00 AM"},
    {36585.0, u"2/29/2000"},
    {-657434.0, u"1/1/100"},
    {2958465.0, u"12/31/9999"},
};

tv::Result DateText(double date, ULONG flags, std::u16string* text)
{
    BSTR written = nullptr;
    const tv::Result result = VarBstrFromDate(date, LOCALE_USER_DEFAULT, flags, &written);
    const tv::BString owner = tv::BString::Adopt(reinterpret_cast<tv::BStr>(written));
    *text = owner.Text();
    return result;
}

TEST(DateText, ADateShowsItsTimeUnlessMidnightAndItsDayUnlessDayZero)
{
    for (const DateRow& row : kDates) {
        std::u16string text;
        EXPECT_EQ(DateText(row.date, 0, &text), 0) << row.date;
        EXPECT_EQ(Narrow(text), Narrow(row.text)) << row.date;
    }
}

TEST(DateText, AMomentRoundedUpToMidnightIsTheNextDaysTwelveOClock)
{
    std::u16string text;
    ASSERT_EQ(DateText(45000.9999999, 0, &text), 0);
    EXPECT_EQ(Narrow(text), "3/16/2023 12:00:00 AM");
    ASSERT_EQ(DateText(45000.0000001, 0, &text), 0);
    EXPECT_EQ(Narrow(text), "3/15/2023 12:00:00 AM");
    ASSERT_EQ(DateText(0.9999999, 0, &text), 0);
    EXPECT_EQ(Narrow(text), "12:00:00 AM");
}

TEST(DateText, OneHalfIsShownWhenAskedForAlone)
{
    std::u16string text;
    ASSERT_EQ(DateText(45000.75, 1, &text), 0);
    EXPECT_EQ(Narrow(text), "6:00:00 PM");
    ASSERT_EQ(DateText(45000.75, 2, &text), 0);
    EXPECT_EQ(Narrow(text), "3/15/2023");
}

TEST(DateText, ANumberOutsideOfTheCalendarHasNoText)
{
    std::u16string text;
    EXPECT_EQ(DateText(3000000.0, 0, &text), E_INVALIDARG);
    EXPECT_EQ(DateText(-700000.0, 0, &text), E_INVALIDARG);
    EXPECT_EQ(VarBstrFromDate(1.0, LOCALE_USER_DEFAULT, 0, nullptr), E_INVALIDARG);
}

} // namespace
