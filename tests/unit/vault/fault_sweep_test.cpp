#include "vault_fixture.h"

#include <algorithm>

namespace tv {
namespace {

/// One run's work on the vault, from the selection to the final list, with everything that a convert task may ask for.
class VaultRun
{
  public:
    explicit VaultRun(fakes::FaultSpan span, int n)
    {
        const int32_t number = vault.AddVariable(u"Number");
        fakes::FakeFile& part = vault.AddFile(u"C:\\Vault\\Part.tvnprt", 2);
        part.versions[2].card[u"Default"][number] = Variant::FromText(u"N-1");
        vault.AddFile(u"C:\\Vault\\Sub\\Other.step");
        vault.AddFile(u"C:\\Vault\\Out\\old.stl");
        task->variables.SetText(u"ErrorLogPath", u"Logs");
        task->variables.SetText(u"FileCardData", u"Number;100;Number\n");
        task->variables.SetBool(u"RefToSource", true);
        if (n > 0) {
            vault.Script().FailNth(n, E_ACCESSDENIED, span);
        }
        Run(part);
    }

    bool FaultFired() { return vault.Script().FaultFired(); }
    Result Outcome() const { return outcome; }
    fakes::FakeVault& Vault() { return vault; }
    const std::vector<TaskFile>& Outputs() const { return files.Outputs(); }

  private:
    void Run(const fakes::FakeFile& part)
    {
        outcome = AtBoundary([&] {
            ThrowIfFailed(files.Reset(vault.Get(), 1, ExistingFiles::NewVersion));
            script.InitScript(vault.Get(), task.get(), u"<Filepath>");
            const std::u16string logPath = script.GetLogFilePath();
            const SafeArray data = fakes::MakeCommandData(
                {{u"C:\\Vault\\Part.tvnprt", part.id, part.folderId, 2}, {u"C:\\Vault\\Sub", 0, 0, 0, u"", 2}});
            files.ResolveSelection(task.get(), vault.Get(), data.get(), selected, VaultWork::FetchLocalCopies);
            for (const auto& file : selected) {
                files.SetCurrent(file.get());
                Save(file->path + u".stl");
            }
            Save(u"C:\\Vault\\Out\\old.stl");
            const Result registered = files.RegisterOutputs(task.get(), vault.Get(), script);
            const Result log = files.RegisterLogFile(logPath);
            const Result collected = files.CollectResultFiles(documents, true);
            return std::min({registered, log == 1 ? 0 : log, collected});
        });
    }

    void Save(const std::u16string& path)
    {
        files.AddOutput(path, u"Default", false);
        machine.files.AddFile(path, "saved");
    }

    fakes::FakePlatform machine;
    fakes::FakeVault vault{u"C:\\Vault", &machine.files};
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    TaskScript script{machine.platform};
    SelectedFiles selected;
    VaultFiles files{machine.platform};
    std::vector<VyxDocument> documents;
    Result outcome = 0;
};

bool HoldsAPathTwice(const std::vector<TaskFile>& outputs)
{
    std::vector<std::u16string> paths;
    for (const TaskFile& output : outputs) {
        paths.push_back(output.path);
    }
    std::ranges::sort(paths);
    return std::ranges::adjacent_find(paths) != paths.end();
}

TEST(FaultSweep, WithoutFaultEverythingIsCheckedIn)
{
    VaultRun run(fakes::FaultSpan::Once, 0);
    EXPECT_EQ(run.Outcome(), 0);
    for (const char16_t* path :
         {u"C:\\Vault\\Part.tvnprt.stl", u"C:\\Vault\\Sub\\Other.step.stl", u"C:\\Vault\\Out\\old.stl"}) {
        const fakes::FakeFile* file = run.Vault().File(path);
        ASSERT_NE(file, nullptr);
        EXPECT_TRUE(file->lockedBy.empty());
        EXPECT_EQ(file->references.size(), 1u);
    }
    EXPECT_EQ(run.Vault().File(u"C:\\Vault\\Out\\old.stl")->CurrentVersion(), 2);
}

TEST(FaultSweep, EveryFailingVaultCallEndsInADocumentedResult)
{
    for (const auto span : {fakes::FaultSpan::Once, fakes::FaultSpan::Lasting}) {
        int n = 1;
        for (;; ++n) {
            VaultRun run(span, n);
            if (!run.FaultFired()) {
                break;
            }
            // A file that couldn't be found counts as new, so its check-in may be refused: nobody checked it out.
            const bool documented =
                run.Outcome() == 0 || run.Outcome() == E_ACCESSDENIED || run.Outcome() == fakes::kVaultNotLockedByYou;
            EXPECT_TRUE(documented) << n << ": " << run.Outcome();
            EXPECT_FALSE(HoldsAPathTwice(run.Outputs())) << n;
        }
        EXPECT_GT(n, 50);
    }
}

} // namespace
} // namespace tv
