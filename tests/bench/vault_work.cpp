// Prints what a file costs in the vault's work: resolving a selection, writing and reading the stored list, taking note
// of outputs and registering them with cards and references. One run on 100,000 files stands beside ten runs on 10,000,
// all ten in memory at once, so that the caches serve both alike and the growth between them is the work's own (1 is
// linear). The heap is what a step of the one run takes at most. The simulated vault works inside these figures; its
// look-ups are indexed.

#include "allocations.h"
#include "fakes/platform/fake_platform.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"
#include "memory_disk.h"
#include "vault/vault_files.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>

namespace tv {
namespace {

constexpr int32_t kFew = 10'000;
constexpr int32_t kMany = 100'000;
constexpr int kRounds = 3;
constexpr double kMostGrowth = 1.3;

constexpr const char* kSteps[] = {"resolve a selection",     "write the selection list", "read the selection list",
                                  "take note of an output",  "write the output list",    "register an output",
                                  "collect the final status"};
constexpr size_t kStepCount = std::size(kSteps);
constexpr size_t kStepOfOutputs = 3;

/// What one step took.
struct Cost
{
    double microseconds = 1e9; ///< a file, the best of the rounds
    double megabytes = 0;      ///< all files
};

using Costs = std::array<Cost, kStepCount>;

/// Time of this program alone, where the system tells it.
double Microseconds()
{
    return static_cast<double>(std::clock()) * 1e6 / CLOCKS_PER_SEC;
}

std::u16string Digits(int32_t number)
{
    std::u16string text = u"000000";
    for (size_t i = text.size(); i-- > 0; number /= 10) {
        text[i] = static_cast<char16_t>(u'0' + number % 10);
    }
    return text;
}

std::u16string PathOf(const char16_t* folder, int32_t number, const char16_t* extension)
{
    return u"C:\\Vault\\" + std::u16string(folder) + u"\\" + Digits(number / 1000) + u"\\Part" + Digits(number) +
           extension;
}

/// A step that didn't do its work makes every figure worthless.
void Require(bool isDone, const char* step)
{
    if (!isDone) {
        std::fprintf(stderr, "bench_vault_work: '%s' didn't do its work\n", step);
        std::exit(1);
    }
}

/// One run's vault work on so many files.
class Run
{
  public:
    explicit Run(int32_t fileCount) : count(static_cast<size_t>(fileCount))
    {
        vault.Script().StopNoting();
        machine.log.StopNoting();
        task->script.StopNoting();
        const int32_t number = vault.AddVariable(u"Number");
        vault.AddVariable(u"Material");
        for (int32_t i = 0; i < fileCount; ++i) {
            fakes::FakeFile& file = vault.AddFile(PathOf(u"Source", i, u".tvnprt"), 2);
            file.versions[2].card[u"Default"][number] = Variant::FromInt(i);
            outputPaths.push_back(PathOf(u"Out", i, u".step"));
        }
        task->variables.SetText(u"ErrorLogPath", u"Logs");
        task->variables.SetText(u"FileCardData", u"Number;100;Number\nMaterial;8;Steel\n");
        task->variables.SetBool(u"RefToSource", true);
        Require(files.Reset(vault.Get(), 1, ExistingFiles::NewVersion) == 0, "reset");
        script.InitScript(vault.Get(), task.get(), u"");
    }

    /// The steps in the order of kSteps; each is carried out once. False for one that didn't do its work.
    bool Carry(size_t step)
    {
        switch (step) {
        case 0:
            return ResolveSelection();
        case 1:
            return files.SaveFileList(task.get(), 1, selected) == 0;
        case 2:
            return ReadList();
        case 3:
            return AddOutputs();
        case 4:
            return files.SaveFileList(task.get(), 1) == 0;
        case 5:
            return files.RegisterOutputs(task.get(), vault.Get(), script) == 0 &&
                   vault.File(outputPaths.back())->references.size() == 1;
        default:
            return files.CollectResultFiles(documents, true) == 0 && documents.size() == count;
        }
    }

    /// What happens before a step and doesn't belong to its cost.
    void Prepare(size_t step)
    {
        if (step == kStepOfOutputs) {
            Require(files.Reset(vault.Get(), 1, ExistingFiles::NewVersion) == 0, "reset");
        } else if (step == kStepOfOutputs + 1) {
            for (const std::u16string& path : outputPaths) {
                disk.AddFile(path);
            }
        }
    }

  private:
    bool ResolveSelection()
    {
        const SafeArray data = fakes::MakeCommandData({{u"C:\\Vault\\Source", 0, 0, 0, u"", 2}});
        files.ResolveSelection(task.get(), vault.Get(), data.get(), selected, VaultWork::FetchLocalCopies);
        return selected.size() == count && selected.back()->latestVersion == 2;
    }

    bool ReadList()
    {
        std::vector<TaskFile> loaded;
        return VaultFiles::LoadFileList(task.get(), false, loaded) == 0 && loaded.size() == count;
    }

    bool AddOutputs()
    {
        for (size_t i = 0; i < count; ++i) {
            files.SetCurrent(selected[i].get());
            files.AddOutput(outputPaths[i], u"Default", false);
        }
        return files.Outputs().size() == count;
    }

    size_t count;
    fakes::FakePlatform machine;
    MemoryDisk disk;
    Platform platform{machine.registry, disk,          machine.processes, machine.runningObjects, machine.desktop,
                      machine.clock,    machine.pipes, machine.threads,   machine.module,         machine.products};
    fakes::FakeVault vault{u"C:\\Vault", &disk};
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    TaskScript script{platform};
    SelectedFiles selected;
    VaultFiles files{platform};
    std::vector<std::u16string> outputPaths;
    std::vector<VyxDocument> documents;
};

/// Carries out the steps, each for all runs before the next.
void MeasureRound(int32_t filesOfRun, Costs& costs)
{
    std::vector<std::unique_ptr<Run>> runs;
    for (int32_t i = 0; i < kMany / filesOfRun; ++i) {
        runs.push_back(std::make_unique<Run>(filesOfRun));
    }
    for (size_t step = 0; step < kStepCount; ++step) {
        for (const auto& run : runs) {
            run->Prepare(step);
        }
        ForgetMostAllocated();
        const size_t before = AllocatedBytes();
        const double start = Microseconds();
        for (const auto& run : runs) {
            Require(run->Carry(step), kSteps[step]);
        }
        costs[step].microseconds = std::min(costs[step].microseconds, (Microseconds() - start) / kMany);
        costs[step].megabytes = static_cast<double>(MostAllocatedBytes() - before) / 1e6;
    }
}

void Print()
{
    Costs few;
    Costs many;
    for (int round = 0; round < kRounds; ++round) {
        MeasureRound(kFew, few);
        MeasureRound(kMany, many);
    }
    std::printf("%-26s %14s %14s %8s %16s\n", "", "us a file", "us a file", "growth", "MB of heap");
    std::printf("%-26s %14s %14s %8s %16s\n", "", "10,000 files", "100,000 files", "", "100,000 files");
    for (size_t i = 0; i < kStepCount; ++i) {
        const double growth = many[i].microseconds / few[i].microseconds;
        std::printf("%-26s %14.2f %14.2f %8.2f %16.1f%s\n", kSteps[i], few[i].microseconds, many[i].microseconds,
                    growth, many[i].megabytes, growth > kMostGrowth ? "   over 1.3" : "");
    }
}

} // namespace
} // namespace tv

int main()
{
    tv::Print();
    return 0;
}
