#include "script/script_resource.h"

#include "fakes/platform/fake_platform.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

class ScriptResourceText : public testing::Test
{
  protected:
    fakes::FakePlatform machine;
};

TEST_F(ScriptResourceText, HasALineFeedBehindIt)
{
    machine.module.AddScript(211, "Sub main()\r\nEnd Sub\r\n");
    EXPECT_EQ(ReadScriptResource(machine.module, 211), u"Sub main()\r\nEnd Sub\r\n\n");
    EXPECT_TRUE(machine.module.Messages().empty());
}

TEST_F(ScriptResourceText, HasAsManyCharactersAsTheResourceHasBytes)
{
    machine.module.AddScript(209, "abc\xE4");
    EXPECT_EQ(ReadScriptResource(machine.module, 209), u"abc\u00E4\n");
}

TEST_F(ScriptResourceText, ThatCantBeReadIsEmptyAndSaysWhy)
{
    struct Row
    {
        ResourceFailure failure;
        const char16_t* message;
    };
    const Row rows[] = {
        {ResourceFailure::NotFound, u"Could not find Script resource!"},
        {ResourceFailure::NoSize, u"Error getting size of Script resource."},
        {ResourceFailure::NotLoaded, u"Error loading Script resource."},
        {ResourceFailure::NotLocked, u"Error locking Script resource."},
    };
    for (const Row& row : rows) {
        machine.module.BreakScript(210, row.failure);
        EXPECT_EQ(ReadScriptResource(machine.module, 210), u"");
        ASSERT_FALSE(machine.module.Messages().empty());
        EXPECT_EQ(machine.module.Messages().back(), row.message);
    }
}

TEST_F(ScriptResourceText, ThatIsEmptyGivesTheSizeMessage)
{
    machine.module.AddScript(211, "");
    EXPECT_EQ(ReadScriptResource(machine.module, 211), u"");
    EXPECT_EQ(machine.module.Messages(), (std::vector<std::u16string>{u"Error getting size of Script resource."}));
}

TEST(TemplateForType, EachKindHasOne)
{
    EXPECT_EQ(TemplateForType(1), 209);
    EXPECT_EQ(TemplateForType(2), 210);
    EXPECT_EQ(TemplateForType(3), 211);
    EXPECT_EQ(TemplateForType(0), 211);
    EXPECT_EQ(TemplateForType(-5), 211);
}

} // namespace
} // namespace tv
