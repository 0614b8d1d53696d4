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

/// A module whose code page makes a number of characters of its own out of the bytes.
class OtherCodePage final : public ModuleService
{
  public:
    explicit OtherCodePage(std::u16string wide) : text(std::move(wide)) {}
    ScriptResource ReadScript(int32_t) override { return {"four", std::nullopt}; }
    std::optional<std::u16string> ReadString(int32_t) override { return std::nullopt; }
    std::u16string WideText(std::string_view) override { return text; }
    void ShowMessage(std::u16string_view) override {}

  private:
    std::u16string text;
};

TEST_F(ScriptResourceText, IsFilledUpWhenTwoBytesMakeACharacter)
{
    OtherCodePage module(u"\u6F22\u5B57");
    EXPECT_EQ(ReadScriptResource(module, 209), std::u16string(u"\u6F22\u5B57\0\0\n", 5));
}

TEST_F(ScriptResourceText, IsCutWhenAByteMakesTwoCharacters)
{
    OtherCodePage module(u"f1o2u3r4");
    EXPECT_EQ(ReadScriptResource(module, 209), u"f1o2\n");
}

TEST_F(ScriptResourceText, MayHoldAnyByte)
{
    machine.module.AddScript(209, std::string("a\0b\n", 4));
    EXPECT_EQ(ReadScriptResource(machine.module, 209), std::u16string(u"a\0b\n\n", 5));
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
        fakes::FakePlatform other;
        other.module.BreakScript(210, row.failure);
        EXPECT_EQ(ReadScriptResource(other.module, 210), u"");
        EXPECT_EQ(other.module.Messages(), (std::vector<std::u16string>{row.message}));
    }
}

TEST_F(ScriptResourceText, ThatIsEmptyGivesTheSizeMessage)
{
    machine.module.AddScript(211, "");
    EXPECT_EQ(ReadScriptResource(machine.module, 211), u"");
    EXPECT_EQ(machine.module.Messages(), (std::vector<std::u16string>{u"Error getting size of Script resource."}));
}

TEST(TaskTypes, AreThree)
{
    struct Row
    {
        int32_t type;
        int32_t resource;
        std::u16string_view label;
        uint32_t textNumber;
    };
    const Row rows[] = {{1, 209, u"File Conversion", 89}, {2, 210, u"Printing", 90}, {3, 211, u"General", 91}};
    ASSERT_EQ(std::size(kTaskTypes), std::size(rows));
    for (size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(kTaskTypes[i].type, rows[i].type);
        EXPECT_EQ(kTaskTypes[i].resource, rows[i].resource);
        EXPECT_EQ(kTaskTypes[i].label, rows[i].label);
        EXPECT_EQ(kTaskTypes[i].textNumber, rows[i].textNumber);
        EXPECT_EQ(TaskTypeLabel(kTaskTypes[i]), rows[i].label);
    }
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
