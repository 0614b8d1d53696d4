#include "addin_test.h"
#include "vault_run_model.h"

#include <cstdio>
#include <set>

namespace tv {

namespace {

std::u16string Wide(std::string_view text)
{
    return {text.begin(), text.end()};
}

std::string Narrow(std::u16string_view text)
{
    return {text.begin(), text.end()};
}

/// A whole run of a convert task with outputs of every kind, cards and references, in a world of its own.
class SweptVaultRun : public AddInTest
{
  public:
    SweptVaultRun(PlannedFault fault, bool replaces)
    {
        selection.clear();
        number = vault.AddVariable(u"Number");
        vault.AddVariable(u"Material");
        for (const SweepOutput& output : kSweepOutputs) {
            AddPart(Wide(output.part), 2);
            vault.File(Wide(output.part))->versions[2].card[u"Default"][number] = Variant::FromText(u"N-1");
        }
        AddOldOutput(u"C:\\Vault\\Out\\old.step", 2);
        AddOldOutput(u"C:\\Vault\\Out\\theirs.step", 1);
        vault.CheckOut(u"C:\\Vault\\Out\\theirs.step", u"somebody");
        task->variables.SetText(u"FileCardData", u"Number;100;Number\nMaterial;8;Steel\n");
        task->variables.SetBool(u"RefToSource", true);
        task->variables.SetBool(u"ReplaceOutput", replaces);
        onMacro = [](fakes::FakeApplication& application, const std::string& macro) {
            return SaveAsPlanned(application, macro);
        };
        vault.Script().ClearCalls();
        if (fault.n > 0) {
            vault.Script().FailNth(fault.n, kSweepFailure,
                                   fault.isLasting ? fakes::FaultSpan::Lasting : fakes::FaultSpan::Once);
        }
    }
    void TestBody() override {}

    RunOutcome Carry()
    {
        RunOutcome outcome;
        outcome.result = RunTask();
        hasFired = vault.Script().FaultFired();
        callLines = vault.Script().Calls();
        for (const std::string& call : callLines) {
            outcome.calls.push_back(call.substr(0, call.find(' ')));
        }
        if (!task->writtenStatuses.empty()) {
            outcome.hasStatus = true;
            outcome.status = LastStatus().status;
            outcome.message = LastStatus().message.value_or(u"");
            outcome.documents = LastStatus().documents.size();
        }
        outcome.logged = LoggedContexts();
        for (const auto& [id, file] : vault.World().files) {
            if (!file->path.ends_with(u".tvnprt")) {
                outcome.files[Narrow(file->path)] = {file->CurrentVersion(), Narrow(file->lockedBy), file->isNew,
                                                     file->references.size(), !file->cardUpdates.empty()};
            }
        }
        return outcome;
    }

    bool HasFired() const { return hasFired; }

    void ExpectNothingTwice()
    {
        std::multiset<std::u16string> paths;
        for (const auto& [id, file] : vault.World().files) {
            paths.insert(file->path);
        }
        for (const std::u16string& path : paths) {
            EXPECT_EQ(paths.count(path), 1u) << testing::PrintToString(path);
        }
        std::multiset<std::string> queued;
        for (const std::string& call : callLines) {
            if (call.starts_with("BatchAdd.AddFileFromPathToPath ") || call.starts_with("BatchRefs.AddReferences ")) {
                queued.insert(call);
            }
        }
        for (const std::string& call : queued) {
            EXPECT_EQ(queued.count(call), 1u) << call;
        }
    }

    void ExpectNothingLeftOpen()
    {
        EXPECT_LE(task->writtenStatuses.size(), 1u);
        EXPECT_EQ(machine.threads.LiveThreads(), 0u);
        EXPECT_EQ(machine.files.OpenCount(), 0u);
        EXPECT_EQ(machine.processes.OpenHandles(), 0u);
        EXPECT_EQ(machine.processes.RunningCount(), 0u);
        EXPECT_EQ(machine.registry.OpenCount(), 0u);
    }

  private:
    void AddOldOutput(const std::u16string& path, int32_t versions)
    {
        vault.AddFile(path, versions);
        machine.files.AddFile(path, "old");
    }

    static fakes::MacroResult SaveAsPlanned(fakes::FakeApplication& application, const std::string& macro)
    {
        for (const SweepOutput& output : kSweepOutputs) {
            if (macro.find(output.part) != std::string::npos) {
                fakes::FakeDocument& document = application.Open(1, Wide(output.part));
                application.Write(document, Wide(output.output));
                application.Close(document);
            }
        }
        return {};
    }

    /// The contexts of the log's entries, in order.
    std::vector<std::string> LoggedContexts() const
    {
        constexpr std::string_view kBeginning = "An error occured: ";
        const std::string text = machine.files.Content(Wide(kSweepLog)).value_or("");
        std::vector<std::string> contexts;
        for (size_t at = text.find(kBeginning); at != std::string::npos; at = text.find(kBeginning, at)) {
            at += kBeginning.size();
            contexts.push_back(text.substr(at, text.find('\r', at) - at));
        }
        return contexts;
    }

    int32_t number = 0;
    bool hasFired = false;
    std::vector<std::string> callLines;
};

void ExpectSame(const RunOutcome& found, const RunOutcome& expected)
{
    EXPECT_EQ(found.result, expected.result);
    EXPECT_EQ(found.hasStatus, expected.hasStatus);
    EXPECT_EQ(found.status, expected.status);
    EXPECT_EQ(found.message, expected.message);
    EXPECT_EQ(found.documents, expected.documents);
    EXPECT_EQ(found.logged, expected.logged);
    EXPECT_EQ(found.calls, expected.calls);
    ASSERT_EQ(found.files.size(), expected.files.size());
    for (const auto& [path, file] : expected.files) {
        ASSERT_TRUE(found.files.contains(path)) << path;
        const ModelFile& left = found.files.at(path);
        EXPECT_EQ(left.version, file.version) << path;
        EXPECT_EQ(left.lockedBy, file.lockedBy) << path;
        EXPECT_EQ(left.isNew, file.isNew) << path;
        EXPECT_EQ(left.references, file.references) << path;
        EXPECT_EQ(left.hasCard, file.hasCard) << path;
    }
}

constexpr int kMostCalls = 2000;

/// Lets one call after the other fail, until none is left to fail; returns how many failed.
int Sweep(bool replaces, bool isLasting)
{
    int n = 1;
    for (; n < kMostCalls; ++n) {
        const PlannedFault fault{n, isLasting};
        SCOPED_TRACE("call " + std::to_string(n));
        SweptVaultRun run(fault, replaces);
        const RunOutcome found = run.Carry();
        const RunOutcome expected = VaultRunModel(fault, replaces).Run();
        ExpectSame(found, expected);
        run.ExpectNothingTwice();
        run.ExpectNothingLeftOpen();
        if (!run.HasFired() || testing::Test::HasFailure()) {
            break;
        }
    }
    std::printf("%s%s: %d faults\n", replaces ? "replaced outputs" : "new versions",
                isLasting ? ", failing from then on" : ", failing once", n - 1);
    EXPECT_LT(n, kMostCalls);
    return n - 1;
}

} // namespace

TEST(VaultSweepTest, WithNewVersionsOnlyTheFileOfAnotherStaysCheckedOut)
{
    SweptVaultRun run({}, false);
    const RunOutcome found = run.Carry();
    ExpectSame(found, VaultRunModel({}, false).Run());
    EXPECT_EQ(found.result, 0);
    EXPECT_EQ(found.status, 9);
    EXPECT_EQ(found.message, u"Task finished with errors. Please see the log-file for more details.");
    EXPECT_EQ(found.logged, (std::vector<std::string>{"Unlocking files."}));
    EXPECT_EQ(found.files.at("C:\\Vault\\Out\\theirs.step").lockedBy, "somebody");
    EXPECT_EQ(found.files.at("C:\\Vault\\Out\\old.step").version, 3);
    for (const char* path :
         {"C:\\Vault\\Out\\new.step", "C:\\Vault\\Deep\\Er\\new.step", "C:\\Vault\\Out\\old.step", kSweepLog}) {
        EXPECT_EQ(found.files.at(path).lockedBy, "") << path;
    }
}

TEST(VaultSweepTest, WithReplacedOutputsNothingOfTheRunStaysCheckedOut)
{
    SweptVaultRun run({}, true);
    const RunOutcome found = run.Carry();
    ExpectSame(found, VaultRunModel({}, true).Run());
    EXPECT_EQ(found.result, 0);
    EXPECT_EQ(found.status, 7);
    EXPECT_EQ(found.logged, std::vector<std::string>());
    EXPECT_EQ(found.files.at("C:\\Vault\\Out\\theirs.step").version, 1);
    EXPECT_EQ(found.files.at("C:\\Vault\\Out\\theirs.step").references, 0u);
    EXPECT_EQ(found.files.at("C:\\Vault\\Out\\old.step").version, 1);
    EXPECT_EQ(found.files.at("C:\\Vault\\Out\\old.step").lockedBy, "");
    EXPECT_EQ(found.files.size(), 4u);
}

TEST(VaultSweepTest, WhicheverCallFailsOnceNewVersionsEndAsTheModelSays)
{
    EXPECT_EQ(Sweep(false, false), 116);
}

TEST(VaultSweepTest, WhicheverCallFailsFromThenOnNewVersionsEndAsTheModelSays)
{
    EXPECT_EQ(Sweep(false, true), 116);
}

TEST(VaultSweepTest, WhicheverCallFailsOnceReplacedOutputsEndAsTheModelSays)
{
    EXPECT_EQ(Sweep(true, false), 86);
}

TEST(VaultSweepTest, WhicheverCallFailsFromThenOnReplacedOutputsEndAsTheModelSays)
{
    EXPECT_EQ(Sweep(true, true), 86);
}

} // namespace tv
