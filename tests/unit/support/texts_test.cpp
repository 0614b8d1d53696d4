#include "support/texts.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

TEST(Texts, WithoutATranslationTheDefaultIsTheText)
{
    const char16_t* text = u"Failed to run Torvane macro.";
    EXPECT_EQ(TSS_internal(12, u"TS", u"TVTaskAddIn", text), text);
}

} // namespace
} // namespace tv
