#include "addin_test.h"

namespace tv {

namespace {

class LaunchTest : public AddInTest
{
  protected:
    Result Launch()
    {
        CommandRecord record(VyxCmd_TaskLaunch, vault.Get(), task.get());
        const Result result = Send(record);
        cancel = record.cmd.cancel;
        return result;
    }
    VariantBool cancel = 0;
};

} // namespace

TEST_F(LaunchTest, TheSelectionIsStoredWithTheInstance)
{
    EXPECT_EQ(Launch(), 0);
    EXPECT_EQ(cancel, 0);
    const std::u16string list = task->variables.Text(u"__selection_list");
    EXPECT_TRUE(list.starts_with(u"<sels><sel><doc_id>")) << testing::PrintToString(list);
    EXPECT_NE(list.find(u"<path>C:\\Vault\\a.tvnprt</path>"), std::u16string::npos);
    EXPECT_NE(list.find(u"<path>C:\\Vault\\b.tvnprt</path>"), std::u16string::npos);
}

TEST_F(LaunchTest, ALaunchFetchesNothingAndStartsNothing)
{
    Launch();
    EXPECT_EQ(vault.Script().CountOf("Vault.CreateUtility"), 0u);
    EXPECT_EQ(machine.processes.Count(), 0u);
    EXPECT_TRUE(task->writtenStatuses.empty());
}

TEST_F(LaunchTest, ALaunchOnNothingIsCancelledAndStoresNoList)
{
    selection.clear();
    EXPECT_EQ(Launch(), 0);
    EXPECT_EQ(cancel, -1);
    EXPECT_EQ(task->variables.Find(u"__selection_list"), nullptr);
}

TEST_F(LaunchTest, ALaunchWithoutAnArrayIsALaunchOnNothing)
{
    CommandRecord record(VyxCmd_TaskLaunch, vault.Get(), task.get());
    SAFEARRAY* none = nullptr;
    EXPECT_EQ(addIn->OnCmd(&record.cmd, &none), 0);
    EXPECT_EQ(record.cmd.cancel, -1);
}

TEST_F(LaunchTest, ATaskThatCannotTellItsNameIsReturned)
{
    task->script.FailAlways("Task.GetTaskName", E_ACCESSDENIED);
    EXPECT_EQ(Launch(), Code(0x80070005));
    EXPECT_EQ(task->variables.Find(u"__selection_list"), nullptr);
}

TEST_F(LaunchTest, AKindThatCannotBeReadIsReturned)
{
    task->variables.SetText(u"__type", u"abc");
    EXPECT_EQ(Launch(), Code(0x80020005));
    EXPECT_EQ(task->variables.Find(u"__selection_list"), nullptr);
}

} // namespace tv
