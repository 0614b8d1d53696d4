#include "addin_test.h"

#include <algorithm>

namespace tv {

namespace {

using Documents = std::vector<std::pair<int32_t, int32_t>>;

class RunReportTest : public AddInTest
{
  protected:
    /// File id and version of each row of the document list.
    Documents Listed() const
    {
        Documents rows;
        for (const VyxDocument& document : LastStatus().documents) {
            EXPECT_EQ(document.objectType, 1);
            rows.push_back({document.fileId, document.version});
        }
        return rows;
    }
    int32_t IdOf(const char16_t* path) { return vault.File(path)->id; }
};

} // namespace

TEST_F(RunReportTest, TheDocumentListHoldsTheOutputsAndThenTheSources)
{
    RunTask();
    EXPECT_EQ(Listed(), (Documents{{IdOf(u"C:\\Vault\\a.step"), 1},
                                   {IdOf(u"C:\\Vault\\b.step"), 1},
                                   {IdOf(u"C:\\Vault\\a.tvnprt"), 0},
                                   {IdOf(u"C:\\Vault\\b.tvnprt"), 0}}));
}

TEST_F(RunReportTest, ASourceOfVersionMinusOneIsListedWithItsLatest)
{
    selection[0].version = -1;
    selection[1].version = 1;
    RunTask();
    EXPECT_EQ(Listed().at(2).second, 3);
    EXPECT_EQ(Listed().at(3).second, 1);
}

TEST_F(RunReportTest, AnOutputOutsideTheVaultIsNotListed)
{
    onMacro = [](fakes::FakeApplication& application, const std::string&) {
        fakes::FakeDocument& document = application.Open(1, u"a");
        application.Write(document, u"D:\\Out\\a.step");
        application.Close(document);
        return fakes::MacroResult{};
    };
    RunTask();
    EXPECT_EQ(Listed().size(), 2u);
}

TEST_F(RunReportTest, ALogFileIsListedInAFailedRunOnly)
{
    constexpr char16_t kLogPath[] = u"C:\\Vault\\Logs\\{11111111-2222-3333-4444-555555555555}.log";
    onMacro = [&](fakes::FakeApplication& application, const std::string& macro) {
        machine.files.AddFile(kLogPath, "a went wrong");
        return SaveBeside(application, macro);
    };
    RunTask();
    const int32_t log = IdOf(kLogPath);
    const Documents listed = Listed();
    EXPECT_EQ(std::ranges::count(listed, log, &std::pair<int32_t, int32_t>::first), 1);
}

TEST_F(RunReportTest, AnEmptyListIsAnEmptyValue)
{
    selection.clear();
    RunTask();
    EXPECT_TRUE(LastStatus().documents.empty());
}

TEST_F(RunReportTest, AStatusThatCannotBeWrittenIsTheResult)
{
    task->script.FailAlways("Task.SetStatus", E_ACCESSDENIED);
    EXPECT_EQ(RunTask(), Code(0x80070005));
}

TEST_F(RunReportTest, ACancelThatComesAtTheVeryEndWritesNoStatus)
{
    task->comingStatuses = {3, 3, 3, 6};
    VariantBool cancel = 0;
    EXPECT_EQ(RunTask(&cancel), 1);
    EXPECT_EQ(cancel, 0);
    EXPECT_TRUE(task->writtenStatuses.empty());
}

} // namespace tv
