// Every outside call of a run's script work fails in its turn: the vault's, the task's and the machine's.
#include "fakes/platform/fake_platform.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"
#include "script/task_script.h"

#include "com/result.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tv {
namespace {

constexpr int kEnoughCalls = 1000;

/// The script work of one run on two files, with everything that it may have to ask for.
class ScriptRun
{
  public:
    ScriptRun()
    {
        AddFile(u"C:\\Vault\\a.tvnprt", u"A");
        AddFile(u"C:\\Vault\\b.tvnprt", u"B");
        task->variables.SetText(u"OutputPath", u"<Path>\\<Revision>");
        task->variables.SetText(u"Name", u"value");
        task->variables.SetText(u"ErrorLogPath", u"Logs\\Deep");
        machine.registry.AddKey(kLocalMachineRoot, u"Software\\Torvane\\Applications\\Quellor");
        machine.registry.PutNumber(kCurrentUserRoot, u"Software\\Torvane\\Applications\\Quellor\\Vaults\\TestVault",
                                   u"DateFmt", 103);
    }

    void Run()
    {
        outcome = AtBoundary([&] {
            script.InitScript(vault.Get(), task.get(), u"{Name} [Name] [OutputPath] <Today>");
            hasBegun = true;
            for (const char16_t* path : {u"C:\\Vault\\a.tvnprt", u"C:\\Vault\\b.tvnprt"}) {
                script.SetSourceFile(path, u"Default", 1, 2, 1);
                macros.push_back(script.GetMacroText());
            }
            return 0;
        });
        if (hasBegun) {
            script.AppendToLog(u"one;");
            script.LogVaultError(fakes::kVaultFileNotFound, u"two");
            script.AppendToLog(u";three");
            pathOutcome = AtBoundary([&] { return logPath = script.GetLogFilePath(), 0; });
        }
    }

    std::string Log() const
    {
        return machine.files.Content(u"C:\\Vault\\Logs\\Deep\\{11111111-2222-3333-4444-555555555555}.log").value_or("");
    }

    fakes::FakePlatform machine;
    fakes::FakeVault vault{u"C:\\Vault"};
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    TaskScript script{machine.platform};
    Result outcome = 0;
    Result pathOutcome = 0;
    bool hasBegun = false;
    std::vector<std::u16string> macros;
    std::u16string logPath;

  private:
    void AddFile(std::u16string_view path, std::u16string_view revision)
    {
        vault.AddFile(path).versions[1].revision = revision;
    }
};

constexpr std::u16string_view kMacroOfA = u"value value C:\\Vault\\A 15_11_2026";
constexpr std::u16string_view kMacroOfB = u"value value C:\\Vault\\B 15_11_2026";
constexpr std::string_view kEntry =
    "An error occured: two\r\r\n\tE_VYX_FILE_NOT_FOUND\r\r\n\tThe file could not be found.";

/// A failure may leave entries out, and never half of one.
void ExpectWholeEntries(const std::string& log)
{
    std::string_view rest = log;
    for (const std::string_view entry : {std::string_view("one;"), kEntry, std::string_view(";three")}) {
        if (rest.starts_with(entry)) {
            rest.remove_prefix(entry.size());
        }
    }
    EXPECT_EQ(rest, "") << log;
}

/// No macro text but the right one, and none for a file behind one that failed.
void ExpectRightMacros(const ScriptRun& run)
{
    const std::u16string_view expected[] = {kMacroOfA, kMacroOfB};
    ASSERT_LE(run.macros.size(), 2u);
    EXPECT_TRUE(std::ranges::equal(run.macros, std::span(expected).first(run.macros.size())));
}

TEST(ScriptFaultSweep, WithoutFaultEverythingIsThere)
{
    ScriptRun run;
    run.Run();
    EXPECT_EQ(run.outcome, 0);
    EXPECT_EQ(run.macros, (std::vector<std::u16string>{std::u16string(kMacroOfA), std::u16string(kMacroOfB)}));
    EXPECT_EQ(run.Log(), "one;" + std::string(kEntry) + ";three");
    EXPECT_EQ(run.logPath, u"C:\\Vault\\Logs\\Deep\\{11111111-2222-3333-4444-555555555555}.log");
}

TEST(ScriptFaultSweep, EveryFailingVaultCallIsRaisedOrLeavesOutOneLogEntry)
{
    for (const auto span : {fakes::FaultSpan::Once, fakes::FaultSpan::Lasting}) {
        int n = 1;
        for (; n < kEnoughCalls; ++n) {
            ScriptRun run;
            run.vault.Script().FailNth(n, E_ACCESSDENIED, span);
            run.Run();
            if (!run.vault.Script().FaultFired()) {
                break;
            }
            EXPECT_TRUE(run.outcome == 0 || run.outcome == E_ACCESSDENIED) << n << ": " << run.outcome;
            EXPECT_EQ(run.outcome == 0, run.macros.size() == 2) << n;
            ExpectRightMacros(run);
            ExpectWholeEntries(run.Log());
            // What the vault refuses costs at most the entry with its words.
            EXPECT_EQ(run.Log().ends_with(";three"), run.hasBegun) << n;
            EXPECT_EQ(run.pathOutcome, 0) << n;
        }
        // Root, name, three calls for each of two files, and the words of a code.
        EXPECT_EQ(n, 10);
    }
}

TEST(ScriptFaultSweep, EveryFailingTaskCallIsRaisedOrLeavesOutLogEntries)
{
    for (const auto span : {fakes::FaultSpan::Once, fakes::FaultSpan::Lasting}) {
        int n = 1;
        for (; n < kEnoughCalls; ++n) {
            ScriptRun run;
            run.task->script.FailNth(n, E_ABORT, span);
            run.Run();
            if (!run.task->script.FaultFired()) {
                break;
            }
            EXPECT_TRUE(run.outcome == 0 || run.outcome == E_ABORT) << n << ": " << run.outcome;
            EXPECT_EQ(run.outcome == 0, run.hasBegun) << n;
            EXPECT_EQ(run.macros.size(), run.hasBegun ? 2u : 0u) << n;
            EXPECT_TRUE(run.pathOutcome == 0 || run.pathOutcome == E_ABORT) << n;
            EXPECT_EQ(run.logPath.empty(), !run.hasBegun || run.pathOutcome != 0) << n;
            ExpectRightMacros(run);
            ExpectWholeEntries(run.Log());
        }
        // Three placeholders, the task's id, two output paths, and the log folder for three entries and for itself.
        EXPECT_EQ(n, 11);
    }
}

TEST(ScriptFaultSweep, NoFailingCallOfTheMachineIsRaised)
{
    for (const auto failure : {fakes::Failure::Once, fakes::Failure::Lasting}) {
        uint32_t n = 1;
        for (; n < kEnoughCalls; ++n) {
            ScriptRun run;
            run.machine.log.FailNthOfAll(n, failure);
            run.Run();
            if (!run.machine.log.HasFailed()) {
                break;
            }
            EXPECT_EQ(run.outcome, 0) << n;
            EXPECT_EQ(run.pathOutcome, 0) << n;
            ASSERT_EQ(run.macros.size(), 2u) << n;
            // Without its setting the day stands in the first format, and without a clock it is left out.
            for (const std::u16string_view day : {u"15_11_2026", u"Nov 15 2026", u""}) {
                if (run.macros[0] == u"value value C:\\Vault\\A " + std::u16string(day)) {
                    EXPECT_EQ(run.macros[1], u"value value C:\\Vault\\B " + std::u16string(day)) << n;
                    run.macros.clear();
                    break;
                }
            }
            EXPECT_TRUE(run.macros.empty()) << n;
            ExpectWholeEntries(run.Log());
            EXPECT_EQ(run.machine.files.OpenCount(), 0u) << n;
        }
        EXPECT_GT(n, 10u);
    }
}

} // namespace
} // namespace tv
