// When the add-in starts the CAD application anew: hundreds of macros on the real application, with its real processes,
// events, saved files and memory. Restarts are read off the transcript that the application writes.
#include "application_folder.h"
#include "application_macros.h"
#include "cad/tv_manager.h"
#include "cad/watchdog.h"
#include "com/result.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"
#include "platform/win32/win32_platform.h"
#include "shortened_clock.h"
#include "vault/vault_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace tv {

namespace {

constexpr int32_t kConvertTask = 1;

class Apartment
{
  public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() { CoUninitialize(); }
};

std::u16string Decimal(size_t number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

class RestartRule : public testing::Test
{
  protected:
    RestartRule() { SchedulerDialogSeen() = false; }

    void Start()
    {
        ASSERT_EQ(outputs.Reset(vault.Get(), kConvertTask, ExistingFiles::NewVersion), 0);
        manager.Configure(outputs, kConvertTask, task.get(), 2013);
        ASSERT_EQ(manager.StartApplication(), 0);
    }

    void TearDown() override
    {
        EXPECT_EQ(manager.CloseApplication(Waiting::Yes, 0), 0);
        EXPECT_EQ(manager.DocumentCount(), 0u);
        for (const uint32_t process : StartedProcesses()) {
            EXPECT_FALSE(IsRunning(process)) << "process " << process << " is left";
        }
        EXPECT_EQ(folder.MacroFiles(), std::vector<std::u16string>{});
    }

    /// Runs a macro as a task run does.
    void Run(const std::u16string& macro)
    {
        manager.RunMacro(macro);
        manager.MaintainApplication();
    }
    void RunEmptyMacros(int count)
    {
        for (int i = 0; i < count; ++i) {
            Run(kEmptyMacro);
        }
    }

    /// A macro that opens the part, saves so many copies of it and closes it.
    std::u16string SavingMacro(int copies)
    {
        MacroWriter macro;
        macro.Open(folder.PathOf(u"part.tvnprt"));
        for (int i = 0; i < copies; ++i) {
            copiesAsked.push_back(folder.PathOf(u"copy" + Decimal(copiesAsked.size()) + u".tvnprt"));
            macro.SaveAs(copiesAsked.back());
        }
        return macro.Close().Text();
    }

    /// After which macros another process was started, counted from 1 over all processes.
    std::vector<int> RestartsAfter()
    {
        std::vector<int> restarts;
        int macros = 0;
        for (const TranscriptLine& line : folder.Transcript()) {
            if (line.text.starts_with("started") && macros > 0) {
                restarts.push_back(macros);
            }
            macros += line.text == "macro done" ? 1 : 0;
        }
        return restarts;
    }

    /// Beginnings and ends of processes in their order.
    std::vector<std::string> Lives()
    {
        std::vector<std::string> lives;
        for (const TranscriptLine& line : folder.Transcript()) {
            if (line.text == "ended" || line.text.starts_with("started")) {
                lives.push_back(line.text);
            }
        }
        return lives;
    }

    std::vector<uint32_t> StartedProcesses() { return ProcessesOf("started /B"); }
    std::vector<uint32_t> EndedProcesses() { return ProcessesOf("ended"); }

    std::vector<uint32_t> ProcessesOf(const std::string& wanted)
    {
        std::vector<uint32_t> processes;
        for (const TranscriptLine& line : folder.Transcript()) {
            if (line.text == wanted) {
                processes.push_back(line.process);
            }
        }
        return processes;
    }

    bool IsRunning(uint32_t id)
    {
        const std::unique_ptr<Process> process = machine.Get().processes.Open(id, kProcessQuery);
        uint32_t exitCode = kStillActive;
        return process != nullptr && process->GetExitCode(exitCode) && exitCode == kStillActive;
    }

    /// Waits are for a line of the transcript (registered) and for the end of the process.
    uint64_t State() { return 2 * folder.TranscriptSize() + (IsRunning(manager.ProcessId()) ? 1 : 0); }

    Apartment apartment;
    ApplicationFolder folder;
    win32::Win32Platform machine{GetModuleHandleW(nullptr)};
    ShortenedClock clock{[this] { return State(); }};
    Platform platform = WithClock(machine.Get(), clock);
    fakes::FakeVault vault{folder.PathOf(u""), &machine.Get().files};
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    VaultFiles outputs{platform};
    TVManager manager{platform};
    std::vector<std::u16string> copiesAsked;
};

} // namespace

TEST_F(RestartRule, Of250MacrosWithoutOutputsThe101stAndThe201stAreFollowedByARestart)
{
    Start();
    RunEmptyMacros(100);
    EXPECT_EQ(manager.RunCount(), 100);
    EXPECT_EQ(manager.FailureCount(), 0);
    Run(kEmptyMacro);
    EXPECT_EQ(manager.RunCount(), 1);
    EXPECT_EQ(manager.FailureCount(), 1);
    RunEmptyMacros(149);
    EXPECT_EQ(RestartsAfter(), (std::vector<int>{101, 201}));
    EXPECT_EQ(manager.RunCount(), 50);
    EXPECT_EQ(manager.FailureCount(), 0);
    EXPECT_EQ(Lives(), (std::vector<std::string>{"started /B", "ended", "started /B", "ended", "started /B"}));
    const std::vector<uint32_t> started = StartedProcesses();
    EXPECT_EQ(EndedProcesses(), (std::vector<uint32_t>{started[0], started[1]}));
    EXPECT_EQ(started[2], manager.ProcessId());
}

TEST_F(RestartRule, SavedFilesCountBesideMacros)
{
    folder.Write(u"part.tvnprt", kBoxPart);
    Start();
    constexpr int kCopies[] = {0, 1, 3};
    for (int macro = 1; macro <= 250; ++macro) {
        const int copies = kCopies[macro % 3];
        Run(copies == 0 ? kEmptyMacro : SavingMacro(copies));
    }
    EXPECT_EQ(RestartsAfter(), (std::vector<int>{44, 88, 131, 175, 218}));
    EXPECT_EQ(manager.RunCount(), 74);
    ASSERT_EQ(copiesAsked.size(), 333u);
    ASSERT_EQ(outputs.Outputs().size(), 333u);
    for (size_t i = 0; i < copiesAsked.size(); ++i) {
        EXPECT_TRUE(std::filesystem::exists(copiesAsked[i]));
        EXPECT_EQ(outputs.Outputs()[i].path, copiesAsked[i]);
        EXPECT_EQ(outputs.Outputs()[i].outputConf, u"Default");
    }
}

TEST_F(RestartRule, AMacroThatSaves99FilesIsFollowedByNoRestartButTheNextMacroIs)
{
    folder.Write(u"part.tvnprt", kBoxPart);
    Start();
    Run(SavingMacro(99));
    EXPECT_EQ(RestartsAfter(), std::vector<int>{});
    EXPECT_EQ(manager.RunCount(), 100);
    Run(kEmptyMacro);
    EXPECT_EQ(RestartsAfter(), std::vector<int>{2});
    EXPECT_EQ(manager.RunCount(), 1);
    EXPECT_EQ(outputs.Outputs().size(), 99u);
}

TEST_F(RestartRule, AFileSavedAgainCountsAgainThoughItIsListedOnce)
{
    folder.Write(u"part.tvnprt", kBoxPart);
    Start();
    const std::u16string macro = SavingMacro(60);
    Run(macro);
    EXPECT_EQ(manager.RunCount(), 61);
    Run(macro);
    EXPECT_EQ(RestartsAfter(), std::vector<int>{2});
    EXPECT_EQ(outputs.Outputs().size(), 60u);
}

TEST_F(RestartRule, AnApplicationThatDiedInAMacroBeginsToCountAnew)
{
    folder.AskFaults(u"crash:at=macro@11", CountedOver::AllProcesses);
    Start();
    RunEmptyMacros(10);
    Run(kEmptyMacro);
    EXPECT_EQ(manager.RunCount(), 1);
    EXPECT_EQ(manager.FailureCount(), 0);
    RunEmptyMacros(99);
    EXPECT_EQ(RestartsAfter(), std::vector<int>{10});
    EXPECT_EQ(manager.RunCount(), 100);
    Run(kEmptyMacro);
    EXPECT_EQ(RestartsAfter(), (std::vector<int>{10, 111}));
    EXPECT_EQ(StartedProcesses().size(), 3u);
    EXPECT_EQ(EndedProcesses(), std::vector<uint32_t>{StartedProcesses()[1]});
}

TEST_F(RestartRule, AMacroThatTellsAFailureIsNotRepeatedAndCountsNothing)
{
    folder.AskFaults(u"fail-macro:code=28@2");
    Start();
    Run(kEmptyMacro);
    EXPECT_THROW(manager.RunMacro(kEmptyMacro), ResultError);
    EXPECT_EQ(manager.LastError(), u"Failed to run Torvane macro. Reason: File open failed.");
    EXPECT_EQ(manager.RunCount(), 1);
    EXPECT_EQ(manager.FailureCount(), 0);
    Run(kEmptyMacro);
    EXPECT_EQ(manager.RunCount(), 2);
    EXPECT_EQ(StartedProcesses().size(), 1u);
}

// Each macro takes 100 MiB, the first one before the baseline is taken. So whatever the application takes by itself, as
// long as it is less than 100 MiB, the second macro leaves less than twice the baseline and the third one more.
TEST_F(RestartRule, AnApplicationThatGrowsPastTwiceItsBaselineIsRestarted)
{
    folder.AskFaults(u"leak:mib=100");
    Start();
    RunEmptyMacros(2);
    EXPECT_EQ(manager.FailureCount(), 0);
    Run(kEmptyMacro);
    EXPECT_EQ(manager.FailureCount(), 1);
    EXPECT_EQ(manager.RunCount(), 1);
    RunEmptyMacros(4);
    EXPECT_EQ(RestartsAfter(), (std::vector<int>{3, 6}));
}

// The baseline is that of the first process, without a leak; below 128 MiB the floor of 256 MiB is what counts.
TEST_F(RestartRule, AGrowthThatStaysBelow256MiBBringsNoRestart)
{
    folder.AskFaults(u"leak:mib=100@2");
    Start();
    RunEmptyMacros(4);
    EXPECT_EQ(RestartsAfter(), std::vector<int>{});
    EXPECT_EQ(manager.FailureCount(), 0);
}

// From the second macro on each takes 260 MiB: too much against the first process's baseline, but a start that the
// maintenance didn't make takes a baseline of its own, leak included.
TEST_F(RestartRule, OnlyAStartThatTheMaintenanceDidNotMakeGetsABaselineOfItsOwn)
{
    folder.AskFaults(u"leak:mib=260@2-", CountedOver::AllProcesses);
    Start();
    RunEmptyMacros(4);
    EXPECT_EQ(RestartsAfter(), (std::vector<int>{2, 3, 4}));
    ASSERT_EQ(manager.RestartApplication(0), 0);
    RunEmptyMacros(2);
    EXPECT_EQ(RestartsAfter(), (std::vector<int>{2, 3, 4, 4}));
}

} // namespace tv
