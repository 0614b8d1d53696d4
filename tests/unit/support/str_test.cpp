#include "support/str.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

/// Whether the text stands inside of the object, in the small buffer.
bool IsInside(const Str& text)
{
    const auto address = reinterpret_cast<uintptr_t>(text.Wide());
    const auto object = reinterpret_cast<uintptr_t>(&text);
    return address >= object && address < object + sizeof(Str);
}

TEST(Str, ANewOneIsEmpty)
{
    const Str text;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.View(), u"");
    EXPECT_STREQ(text.Narrow(), "");
}

TEST(Str, SevenCharactersStayInTheSmallBuffer)
{
    const Str text(u"1234567");
    EXPECT_TRUE(IsInside(text));
}

TEST(Str, EightCharactersLeaveTheSmallBuffer)
{
    const Str text(u"12345678");
    EXPECT_FALSE(IsInside(text));
}

TEST(Str, ATextResourceIsTakenByItsLength)
{
    const char16_t resource[] = {u'A', u'B', u'C', u'D'};
    EXPECT_EQ(Str(resource, 3).View(), u"ABC");
}

TEST(Str, ANullTextIsEmpty)
{
    EXPECT_TRUE(Str(static_cast<const char16_t*>(nullptr)).IsEmpty());
}

TEST(Str, FormatReplacesTheContent)
{
    Str text(u"old");
    text.Format(u"Torvane %d is not installed.", 2013);
    EXPECT_EQ(text.View(), u"Torvane 2013 is not installed.");
}

TEST(Str, FormatMayUseItsOwnContent)
{
    Str text(u"a");
    text.Format(u"%s-%s", text, text);
    EXPECT_EQ(text.View(), u"a-a");
}

TEST(Str, TheNarrowCopyLivesUntilTheTextChanges)
{
    Str text(u"abc");
    const char* narrow = text.Narrow();
    EXPECT_EQ(narrow, text.Narrow());
    EXPECT_STREQ(narrow, "abc");
    text = u"xyz";
    EXPECT_STREQ(text.Narrow(), "xyz");
    text.Format(u"%d", 5);
    EXPECT_STREQ(text.Narrow(), "5");
}

TEST(Str, ACharacterOutsideOfTheCodePageIsAQuestionMarkInTheNarrowCopy)
{
    EXPECT_STREQ(Str(u"a\u4E2Db").Narrow(), "a?b");
}

TEST(Str, ACopyIsIndependent)
{
    Str first(u"first");
    ASSERT_STREQ(first.Narrow(), "first");
    Str second(first);
    second = u"second";
    EXPECT_EQ(first.View(), u"first");
    EXPECT_STREQ(second.Narrow(), "second");
    first = second;
    EXPECT_STREQ(first.Narrow(), "second");
}

TEST(Str, AMovedOneIsEmptyWithoutANarrowCopy)
{
    Str from(u"some longer text");
    ASSERT_STREQ(from.Narrow(), "some longer text");
    const Str to(std::move(from));
    EXPECT_EQ(to.View(), u"some longer text");
    EXPECT_STREQ(from.Narrow(), "");
}

TEST(Str, IsDestroyedThroughItsBase)
{
    const std::unique_ptr<Str> text = std::make_unique<StrComp>(123456789u, 0, false);
    EXPECT_EQ(text->View(), u"123456789");
}

TEST(StrComp, FillsWithZerosWhenAskedTo)
{
    EXPECT_EQ(StrComp(7, 3, true).View(), u"007");
}

TEST(StrComp, FillsWithBlanksOtherwise)
{
    EXPECT_EQ(StrComp(7, 3, false).View(), u"  7");
}

TEST(StrComp, TheWidthIsAMinimum)
{
    EXPECT_EQ(StrComp(12345, 3, true).View(), u"12345");
}

TEST(StrComp, AWidthBelowOneFormatsPlainly)
{
    EXPECT_EQ(StrComp(42, 0, true).View(), u"42");
    EXPECT_EQ(StrComp(42, -5, false).View(), u"42");
}

TEST(StrComp, AWidthOfOneIsAWidth)
{
    EXPECT_EQ(StrComp(0, 1, true).View(), u"0");
}

TEST(StrComp, AValueBeyondTheSignedRangeIsPrintedAsSigned)
{
    EXPECT_EQ(StrComp(0xFFFFFFFFu, 0, false).View(), u"-1");
}

} // namespace
} // namespace tv
