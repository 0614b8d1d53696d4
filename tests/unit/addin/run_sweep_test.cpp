#include "addin_test.h"

namespace tv {

namespace {

/// A whole run in a world of its own, with one fault planned.
class SweptRun : public AddInTest
{
  public:
    void TestBody() override {}

    Result Carry() { return RunTask(); }
    void FailOfMachine(uint32_t n, fakes::Failure failure) { machine.log.FailNthOfAll(n, failure); }
    void FailOfVault(int n, fakes::FaultSpan span) { vault.Script().FailNth(n, E_ACCESSDENIED, span); }
    void FailOfTask(int n, fakes::FaultSpan span) { task->script.FailNth(n, E_ACCESSDENIED, span); }
    void FailOfApplication(int n, bool lasting)
    {
        cad.prepare = [n, lasting, prepareAsBefore = cad.prepare](fakes::FakeApplication& application, int start) {
            prepareAsBefore(application, start);
            if (start == 1) {
                application.script.FailNthOfAll(n, fakes::kServerDied, lasting);
            }
        };
    }

    bool HasMachineFailed() const { return machine.log.HasFailed(); }
    bool HasVaultFailed() { return vault.Script().FaultFired(); }
    bool HasTaskFailed() { return task->script.FaultFired(); }
    bool HasApplicationFailed() const { return !cad.started.empty() && cad.started.front()->script.HasFailed(); }

    void ExpectACleanEnd(Result result, int n)
    {
        EXPECT_LE(result, 1) << n;
        EXPECT_LE(task->writtenStatuses.size(), 1u) << n;
        if (!task->writtenStatuses.empty()) {
            const int32_t status = LastStatus().status;
            EXPECT_TRUE(status == 7 || status == 9) << n;
            EXPECT_TRUE(result >= 0 || status == 9) << n;
        }
        EXPECT_EQ(machine.threads.LiveThreads(), 0u) << n;
        EXPECT_EQ(machine.files.OpenCount(), 0u) << n;
        EXPECT_EQ(machine.processes.OpenHandles(), 0u) << n;
        EXPECT_EQ(machine.registry.OpenCount(), 0u) << n;
    }
};

constexpr int kMostSteps = 2000;

} // namespace

TEST(RunSweepTest, ARunEndsCleanlyWhicheverCallToTheVaultFails)
{
    for (const fakes::FaultSpan span : {fakes::FaultSpan::Once, fakes::FaultSpan::Lasting}) {
        int n = 1;
        for (bool fired = true; fired && n < kMostSteps; ++n) {
            SweptRun run;
            run.FailOfVault(n, span);
            run.ExpectACleanEnd(run.Carry(), n);
            fired = run.HasVaultFailed();
        }
        EXPECT_GT(n, 10);
        EXPECT_LT(n, kMostSteps);
    }
}

TEST(RunSweepTest, ARunEndsCleanlyWhicheverCallToTheTaskFails)
{
    for (const fakes::FaultSpan span : {fakes::FaultSpan::Once, fakes::FaultSpan::Lasting}) {
        int n = 1;
        for (bool fired = true; fired && n < kMostSteps; ++n) {
            SweptRun run;
            run.FailOfTask(n, span);
            run.ExpectACleanEnd(run.Carry(), n);
            fired = run.HasTaskFailed();
        }
        EXPECT_GT(n, 10);
        EXPECT_LT(n, kMostSteps);
    }
}

TEST(RunSweepTest, ARunEndsCleanlyWhicheverCallToTheApplicationFails)
{
    for (const bool lasting : {false, true}) {
        int n = 1;
        for (bool fired = true; fired && n < kMostSteps; ++n) {
            SweptRun run;
            run.FailOfApplication(n, lasting);
            run.ExpectACleanEnd(run.Carry(), n);
            fired = run.HasApplicationFailed();
        }
        EXPECT_GT(n, 10);
        EXPECT_LT(n, kMostSteps);
    }
}

TEST(RunSweepTest, ARunEndsCleanlyWhicheverCallToTheMachineFailsOnce)
{
    int n = 1;
    for (bool fired = true; fired && n < kMostSteps; ++n) {
        SweptRun run;
        run.FailOfMachine(static_cast<uint32_t>(n), fakes::Failure::Once);
        run.ExpectACleanEnd(run.Carry(), n);
        fired = run.HasMachineFailed();
    }
    EXPECT_GT(n, 10);
    EXPECT_LT(n, kMostSteps);
}

} // namespace tv
