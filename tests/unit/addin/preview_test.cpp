#include "addin_test.h"

namespace tv {

namespace {

class PreviewTest : public AddInTest
{
  protected:
    Result Preview(const std::u16string& path, const std::u16string& configuration = {})
    {
        BString pathText(path);
        BString configurationText(configuration);
        VyxCmdData file{};
        file.path = pathText.get();
        file.configuration = configurationText.get();
        file.version = 3;
        return addIn->GetMacroText(vault.Get(), task.get(), &file, text.put());
    }
    BString text;
};

} // namespace

TEST_F(PreviewTest, TheMacroOfOneFileIsExpanded)
{
    task->variables.SetText(u"__script", u"[FileFormat]: <Filepath>, <SelCfgOrSheet>, <Filename>");
    task->variables.SetText(u"FileFormat", u"STEP");
    EXPECT_EQ(Preview(u"C:\\Vault\\a.tvnprt", u"Long"), 0);
    EXPECT_EQ(text.Text(), u"STEP: C:\\Vault\\a.tvnprt, Long, <Filename>");
}

TEST_F(PreviewTest, NothingIsStartedAndNothingIsWritten)
{
    Preview(u"C:\\Vault\\a.tvnprt");
    EXPECT_EQ(machine.processes.Count(), 0u);
    EXPECT_TRUE(task->writtenStatuses.empty());
}

TEST_F(PreviewTest, ATaskWithoutAScriptFailsAsItsRunWould)
{
    task->variables.Remove(u"__script");
    EXPECT_EQ(Preview(u"C:\\Vault\\a.tvnprt"), Code(0x8000FFFF));
}

TEST_F(PreviewTest, EveryArgumentMustBePresent)
{
    VyxCmdData file{};
    EXPECT_EQ(addIn->GetMacroText(nullptr, task.get(), &file, text.put()), Code(0x80004003));
    EXPECT_EQ(addIn->GetMacroText(vault.Get(), nullptr, &file, text.put()), Code(0x80004003));
    EXPECT_EQ(addIn->GetMacroText(vault.Get(), task.get(), nullptr, text.put()), Code(0x80004003));
    EXPECT_EQ(addIn->GetMacroText(vault.Get(), task.get(), &file, nullptr), Code(0x80004003));
}

} // namespace tv
