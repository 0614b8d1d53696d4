#include "templates/script_templates.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tv {
namespace {

TEST(ExecuteTemplate, IsASkeletonOf105Bytes)
{
    EXPECT_EQ(ScriptTemplate(211), "Option Explicit\r\n"
                                   "\r\n"
                                   "Dim tvApp As Object\r\n"
                                   "\r\n"
                                   "Public Sub main()\r\n"
                                   "  Set tvApp = Application.Torvane\r\n"
                                   "End Sub\r\n");
    EXPECT_EQ(ScriptTemplate(211).size(), 105u);
}

TEST(ExecuteTemplate, HoldsNoPlaceholder)
{
    EXPECT_EQ(ScriptTemplate(211).find_first_of("{}[]<>"), std::string_view::npos);
}

TEST(Templates, EndEveryLineWithCarriageReturnAndLineFeed)
{
    for (int32_t id : {209, 210, 211}) {
        const std::string_view text = ScriptTemplate(id);
        for (size_t i = 0; i < text.size(); ++i) {
            ASSERT_TRUE(text[i] != '\n' || (i > 0 && text[i - 1] == '\r')) << id << " at " << i;
            ASSERT_TRUE(text[i] != '\r' || (i + 1 < text.size() && text[i + 1] == '\n')) << id << " at " << i;
        }
    }
}

TEST(Templates, HaveABracketForEveryBracket)
{
    for (int32_t id : {209, 210, 211}) {
        const std::string_view text = ScriptTemplate(id);
        EXPECT_EQ(std::ranges::count(text, '['), std::ranges::count(text, ']')) << id;
        EXPECT_EQ(std::ranges::count(text, '{'), std::ranges::count(text, '}')) << id;
    }
}

TEST(Templates, AnUnknownIdHasNone)
{
    EXPECT_EQ(ScriptTemplate(0), "");
    EXPECT_EQ(ScriptTemplate(212), "");
}

} // namespace
} // namespace tv
