#include "cad_test.h"

namespace tv {

namespace {

constexpr uint64_t kMiB = 1024 * 1024;

class MaintenanceTest : public CadTest
{
  protected:
    void TakeBaseline(uint64_t workingSet)
    {
        machine.processes.Last().workingSet = workingSet;
        manager.MaintainApplication();
    }
    MemoryCheck CheckAt(uint64_t workingSet)
    {
        machine.processes.Last().workingSet = workingSet;
        return manager.CheckMemory();
    }
    void MaintainTimes(int times)
    {
        for (int i = 0; i < times; ++i) {
            manager.MaintainApplication();
        }
    }
};

} // namespace

TEST_F(MaintenanceTest, TheFirstLookAfterAStartTakesTheBaseline)
{
    ConfigureAndStart(1);
    EXPECT_EQ(manager.CheckMemory(), MemoryCheck::BaselineTaken);
}

TEST_F(MaintenanceTest, MemoryIsJudgedAgainstTwiceTheBaselineAnd256MiB)
{
    ConfigureAndStart(1);
    TakeBaseline(200 * kMiB);
    EXPECT_EQ(CheckAt(300 * kMiB), MemoryCheck::Fine);
    EXPECT_EQ(CheckAt(400 * kMiB), MemoryCheck::Fine);
    EXPECT_EQ(CheckAt(400 * kMiB + 1), MemoryCheck::RestartDue);
}

TEST_F(MaintenanceTest, BelowTheFloorNoGrowthMatters)
{
    ConfigureAndStart(1);
    TakeBaseline(100 * kMiB);
    EXPECT_EQ(CheckAt(250 * kMiB), MemoryCheck::Fine);
    EXPECT_EQ(CheckAt(256 * kMiB), MemoryCheck::Fine);
    EXPECT_EQ(CheckAt(256 * kMiB + 1), MemoryCheck::RestartDue);
}

TEST_F(MaintenanceTest, AProcessThatCannotBeReadIsUnknownAndCausesNothing)
{
    ConfigureAndStart(1);
    machine.processes.Last().canBeOpened = false;
    EXPECT_EQ(manager.CheckMemory(), MemoryCheck::Unknown);
    manager.MaintainApplication();
    EXPECT_EQ(cad.StartCount(), 1);
}

TEST_F(MaintenanceTest, GrownMemoryRestartsTheApplication)
{
    ConfigureAndStart(1);
    TakeBaseline(200 * kMiB);
    machine.processes.Last().workingSet = 500 * kMiB;
    manager.MaintainApplication();
    EXPECT_EQ(cad.StartCount(), 2);
    EXPECT_EQ(manager.FailureCount(), 1);
    EXPECT_EQ(manager.RunCount(), 1);
}

TEST_F(MaintenanceTest, At99NothingIsRestartedAndAt100ItIsWhateverTheMemory)
{
    ConfigureAndStart(1);
    MaintainTimes(99);
    EXPECT_EQ(manager.RunCount(), 99);
    manager.MaintainApplication();
    EXPECT_EQ(manager.RunCount(), 100);
    EXPECT_EQ(cad.StartCount(), 1);
    manager.MaintainApplication();
    EXPECT_EQ(cad.StartCount(), 2);
    EXPECT_EQ(manager.RunCount(), 1);
}

TEST_F(MaintenanceTest, MacrosAndOutputsCountTogether)
{
    ConfigureAndStart(1);
    fakes::FakeDocument& document = cad.Last().Open(1, u"a.tvnprt");
    cad.Last().Write(document, u"C:\\Vault\\a.step");
    manager.MaintainApplication();
    EXPECT_EQ(manager.RunCount(), 2);
}

TEST_F(MaintenanceTest, AProcessStartedByTheMaintenanceIsJudgedAgainstTheOldBaseline)
{
    ConfigureAndStart(1);
    TakeBaseline(200 * kMiB);
    machine.processes.Last().workingSet = 500 * kMiB;
    manager.MaintainApplication();
    machine.processes.Last().workingSet = 450 * kMiB;
    manager.MaintainApplication();
    EXPECT_EQ(cad.StartCount(), 3);
}

TEST_F(MaintenanceTest, AProcessStartedByTheDriverGetsABaselineOfItsOwn)
{
    ConfigureAndStart(1);
    TakeBaseline(200 * kMiB);
    EXPECT_EQ(manager.RestartApplication(0), 0);
    TakeBaseline(300 * kMiB);
    EXPECT_EQ(CheckAt(450 * kMiB), MemoryCheck::Fine);
}

TEST_F(MaintenanceTest, AMissingApplicationIsStarted)
{
    ConfigureAndStart(1);
    manager.CloseApplication(Waiting::Yes, 0);
    manager.MaintainApplication();
    EXPECT_EQ(cad.StartCount(), 2);
    EXPECT_EQ(manager.FailureCount(), 0);
}

TEST_F(MaintenanceTest, ACloseThatFailsIsRaisedAndNothingIsStarted)
{
    ConfigureAndStart(1);
    MaintainTimes(100);
    cad.Last().onExit = nullptr;
    machine.processes.Last().survivesTermination = true;
    EXPECT_EQ(RaisedBy([&] { manager.MaintainApplication(); }), Code(0x80004005));
    EXPECT_EQ(cad.StartCount(), 1);
    EXPECT_EQ(manager.RunCount(), 101);
}

TEST_F(MaintenanceTest, AStartThatFailsIsRaisedWithTheCountRaised)
{
    ConfigureAndStart(1);
    MaintainTimes(100);
    cad.registersAfter.reset();
    EXPECT_EQ(RaisedBy([&] { manager.MaintainApplication(); }), Code(0x80004005));
    EXPECT_EQ(manager.LastError(), u"Failed to start Torvane 2013.");
}

TEST_F(MaintenanceTest, TheSchedulersDialogTurnsARestartIntoRegressionForGood)
{
    ConfigureAndStart(1);
    SchedulerDialogSeen() = true;
    EXPECT_EQ(manager.RestartApplication(0), 0);
    EXPECT_TRUE(manager.ForceRegression());
    EXPECT_TRUE(manager.RegressionMode());
    EXPECT_EQ(manager.FailureCount(), 0);
    EXPECT_EQ(machine.processes.Last().commandLine, u"C:\\CAD\\TORVANE.EXE /R");
    Configure(1);
    EXPECT_TRUE(manager.ForceRegression());
}

TEST_F(MaintenanceTest, ARestartCountsAsAFailure)
{
    ConfigureAndStart(1);
    EXPECT_EQ(manager.RestartApplication(E_FAIL), 0);
    EXPECT_EQ(manager.FailureCount(), 1);
    Configure(1);
    EXPECT_EQ(manager.FailureCount(), 1);
}

TEST_F(MaintenanceTest, ARestartWhoseCloseFailsStartsNothing)
{
    ConfigureAndStart(1);
    machine.processes.Last().survivesTermination = true;
    EXPECT_EQ(manager.RestartApplication(E_ABORT), Code(0x80004004));
    EXPECT_EQ(cad.StartCount(), 1);
}

TEST_F(MaintenanceTest, AtAHundredTheMemoryIsNotLookedAt)
{
    ConfigureAndStart(1);
    MaintainTimes(100);
    const size_t before = machine.log.CountOf("process.GetWorkingSet");
    manager.MaintainApplication();
    EXPECT_EQ(machine.log.CountOf("process.GetWorkingSet"), before);
}

TEST_F(MaintenanceTest, TheSchedulersDialogTurnsAMaintenanceRestartIntoRegressionForGood)
{
    ConfigureAndStart(1);
    MaintainTimes(100);
    SchedulerDialogSeen() = true;
    manager.MaintainApplication();
    EXPECT_TRUE(manager.ForceRegression());
    EXPECT_EQ(manager.FailureCount(), 0);
    EXPECT_EQ(machine.processes.Last().commandLine, u"C:\\CAD\\TORVANE.EXE /R");
}

TEST_F(MaintenanceTest, AMaintenanceWithoutARestartDoesNotLookAtTheSchedulersDialog)
{
    ConfigureAndStart(1);
    SchedulerDialogSeen() = true;
    manager.MaintainApplication();
    EXPECT_FALSE(manager.ForceRegression());
}

TEST_F(MaintenanceTest, AWorkingSetOfExactlyTwiceTheBaselineIsFine)
{
    ConfigureAndStart(1);
    TakeBaseline(150 * kMiB);
    EXPECT_EQ(CheckAt(300 * kMiB), MemoryCheck::Fine);
    EXPECT_EQ(CheckAt(300 * kMiB + 1), MemoryCheck::RestartDue);
}

TEST_F(MaintenanceTest, AWorkingSetThatCannotBeReadIsUnknown)
{
    ConfigureAndStart(1);
    machine.log.FailNth("process.GetWorkingSet", 1);
    EXPECT_EQ(manager.CheckMemory(), MemoryCheck::Unknown);
    EXPECT_EQ(manager.CheckMemory(), MemoryCheck::BaselineTaken);
    EXPECT_EQ(machine.processes.OpenHandles(), 0u);
}

TEST_F(MaintenanceTest, TheResultsOfAMemoryCheckHaveTheseNumbers)
{
    EXPECT_EQ(static_cast<int>(MemoryCheck::BaselineTaken), 0);
    EXPECT_EQ(static_cast<int>(MemoryCheck::Fine), 1);
    EXPECT_EQ(static_cast<int>(MemoryCheck::RestartDue), 2);
    EXPECT_EQ(static_cast<int>(MemoryCheck::Unknown), 3);
}

TEST_F(MaintenanceTest, AManagerThatGoesClosesNoApplication)
{
    {
        TVManager ours(machine.platform);
        Configure(1);
        ours.Configure(outputs, 1, task.get(), 2013);
        ASSERT_EQ(ours.StartApplication(), 0);
        cad.Last().Open(1, u"a.tvnprt");
    }
    EXPECT_EQ(machine.processes.RunningCount(), 1u);
    EXPECT_EQ(cad.Last().script.CountOf(u"ExitApplication"), 0);
    EXPECT_EQ(cad.Last().Fire(22), std::vector<Result>{0});
}

TEST_F(MaintenanceTest, ARunOf250MacrosRestartsWhenMacrosAndOutputsReachAHundred)
{
    struct Row
    {
        int outputsEach;
        std::vector<int> restartsAfter;
        int32_t runCount;
    };
    const Row rows[] = {
        {0, {101, 201}, 50},
        {1, {51, 101, 151, 201}, 99},
        {2, {34, 68, 102, 136, 170, 204, 238}, 37},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.outputsEach);
        const int startsBefore = cad.StartCount();
        int saved = 0;
        cad.prepare = [&](fakes::FakeApplication& application, int) {
            application.onMacro = [&](fakes::FakeApplication& running, const std::u16string&) {
                fakes::FakeDocument& document = running.Open(1, u"a.tvnprt");
                for (int i = 0; i < row.outputsEach; ++i) {
                    const std::string number = std::to_string(++saved);
                    running.Write(document, u"C:\\Vault\\" + std::u16string(number.begin(), number.end()) + u".step");
                }
                running.Close(document);
                return fakes::MacroResult{};
            };
        };
        ConfigureAndStart(1);
        std::vector<int> restartsAfter;
        for (int macro = 1; macro <= 250; ++macro) {
            const int starts = cad.StartCount();
            manager.RunMacro(u"Sub main");
            manager.MaintainApplication();
            if (cad.StartCount() != starts) {
                restartsAfter.push_back(macro);
            }
        }
        EXPECT_EQ(restartsAfter, row.restartsAfter);
        EXPECT_EQ(manager.RunCount(), row.runCount);
        EXPECT_EQ(outputs.Outputs().size(), static_cast<size_t>(250 * row.outputsEach));
        EXPECT_EQ(cad.StartCount() - startsBefore, 1 + static_cast<int>(row.restartsAfter.size()));
        EXPECT_EQ(machine.processes.RunningCount(), 1u);
        EXPECT_EQ(manager.FailureCount(), 0);
        manager.CloseApplication(Waiting::Yes, 0);
    }
}

} // namespace tv
