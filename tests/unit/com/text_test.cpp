#include "com/bstring.h"
#include "system_under_test.h"

#include <cstring>

using tv::BString;
using namespace std::string_view_literals;

namespace {

TEST(BString, KeepsAZeroInsideTheText)
{
    const BString text(u"a\0b"sv);
    EXPECT_EQ(text.View(), u"a\0b"sv);
    EXPECT_EQ(text.View().size(), 3u);
}

TEST(BString, CarriesItsByteLengthInFrontAndAZeroBehind)
{
    const BString text(u"abc");
    uint32_t bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const char*>(text.get()) - 4, sizeof(bytes));
    EXPECT_EQ(bytes, 6u);
    EXPECT_EQ(text.get()[3], u'\0');
}

TEST(BString, NoPointerAndNoCharactersReadTheSame)
{
    EXPECT_EQ(BString().View(), u"");
    EXPECT_EQ(BString(u"").View(), u"");
    EXPECT_EQ(tv::TextOf(nullptr), u"");
    EXPECT_EQ(BString().get(), nullptr);
    EXPECT_NE(BString(u"").get(), nullptr);
}

TEST(BString, ACopyIsATextOfItsOwn)
{
    const BString text(u"abc");
    BString copy = text;
    EXPECT_NE(copy.get(), text.get());
    copy.get()[0] = u'x';
    EXPECT_EQ(copy.View(), u"xbc");
    EXPECT_EQ(text.View(), u"abc");
}

TEST(BString, AMoveHandsOverTheSameText)
{
    BString text(u"abc");
    const tv::BStr raw = text.get();
    const BString moved = std::move(text);
    EXPECT_EQ(moved.get(), raw);
    EXPECT_EQ(text.get(), nullptr);
}

TEST(BString, AssigningFreesTheOldText)
{
    BString text(u"old");
    text = BString(u"new");
    EXPECT_EQ(text.View(), u"new");
}

TEST(BString, ReceivesATextInItsPlace)
{
    BString text(u"old");
    *text.put() = tv::AllocateText(u"given");
    EXPECT_EQ(text.View(), u"given");
    const BString adopted = BString::Adopt(text.release());
    EXPECT_EQ(adopted.View(), u"given");
    EXPECT_EQ(text.get(), nullptr);
}

TEST(BString, ATextTooLongForItsPrefixIsRefused)
{
    const std::u16string_view endless(u"x", size_t{1} << 31);
    EXPECT_THROW(tv::AllocateText(endless), std::bad_alloc);
}

TEST(SystemText, AllocatesUpToTheZeroOrTheGivenLength)
{
    const char16_t source[] = u"ab\0cd";
    const BSTR upToZero = SysAllocString(reinterpret_cast<const OLECHAR*>(source));
    EXPECT_EQ(SysStringLen(upToZero), 2u);
    SysFreeString(upToZero);
    const BSTR whole = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(source), 5);
    EXPECT_EQ(SysStringLen(whole), 5u);
    SysFreeString(whole);
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    SysFreeString(nullptr);
}

} // namespace
