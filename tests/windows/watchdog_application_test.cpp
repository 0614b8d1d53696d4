// The watchdog on the CAD application's own dialogs, while the application hasn't registered yet.
#include "application_folder.h"
#include "cad/watchdog.h"
#include "platform/win32/win32_platform.h"
#include "support/format.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace tv {

namespace {

constexpr ULONGLONG kPatience = 60'000;

class WatchdogOnApplication : public testing::Test
{
  protected:
    void SetUp() override { ASSERT_GE(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), 0); }

    void TearDown() override
    {
        watchdog.Stop();
        EndApplication();
        CoUninitialize();
    }

    void Launch(std::u16string_view faults)
    {
        folder.AskFaults(faults);
        std::wstring path(32768, L'\0');
        path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
        const auto program = std::filesystem::path(path).parent_path().parent_path() / "TORVANE.EXE";
        uint32_t processId = 0;
        ASSERT_EQ(services.processes.Start(u"\"" + program.u16string() + u"\" /B", kShowMinimized, processId), 0u);
        process = processId;
    }

    void EndApplication()
    {
        const std::unique_ptr<Process> running =
            services.processes.Open(process, kProcessTerminate | kProcessReadMemory | kProcessQuery);
        if (running == nullptr) {
            return;
        }
        running->Terminate(255);
        const ULONGLONG deadline = GetTickCount64() + kPatience;
        uint32_t code = kStillActive;
        while (running->GetExitCode(code) && code == kStillActive && GetTickCount64() < deadline) {
            services.clock.Sleep(10);
        }
        EXPECT_NE(code, kStillActive) << "a process is left";
    }

    /// The transcript without process ids.
    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        for (const TranscriptLine& line : folder.Transcript()) {
            lines.push_back(line.text);
        }
        return lines;
    }

    bool AwaitLine(const std::string& wanted) const
    {
        const ULONGLONG deadline = GetTickCount64() + kPatience;
        do {
            const std::vector<std::string> lines = Lines();
            if (std::find(lines.begin(), lines.end(), wanted) != lines.end()) {
                return true;
            }
            services.clock.Sleep(50);
        } while (GetTickCount64() < deadline);
        return false;
    }

    bool IsRegistered()
    {
        ComPtr<IUnknown> object;
        const std::unique_ptr<RunningObjectTable> table = services.runningObjects.GetTable();
        return table != nullptr && table->GetObject(FormatText(u"Torvane_PID_%d", process.load()), object) == 0;
    }

    /// Starts the application with a fault and expects the dialog to be answered so that the application registers.
    void ExpectAnswered(std::u16string_view fault, const std::string& title, const std::string& answer)
    {
        watchdog.Start();
        Launch(fault);
        EXPECT_TRUE(AwaitLine("registered"));
        watchdog.Stop();
        EXPECT_EQ(Lines(), (std::vector<std::string>{"started /B", "fault dialog at start", "dialog shown " + title,
                                                     "dialog answered " + title + " " + answer, "registered"}));
        EXPECT_TRUE(IsRegistered());
    }

    ApplicationFolder folder;
    win32::Win32Platform machine{GetModuleHandleW(nullptr)};
    Platform& services = machine.Get();
    std::atomic<uint32_t> process{0};
    Watchdog watchdog{services, process, [] {}};
};

} // namespace

TEST_F(WatchdogOnApplication, TheSchedulersDialogAtTheStartIsAnsweredByReturnAndNoted)
{
    ExpectAnswered(u"scheduler-dialog:at=start", "\"Local Torvane Task Scheduler\"", "return");
    EXPECT_TRUE(SchedulerDialogSeen());
}

TEST_F(WatchdogOnApplication, TheErrorBoxAtTheStartIsAnsweredByReturn)
{
    ExpectAnswered(u"error-box:at=start", "\"Microsoft Visual Basic\"", "return");
    EXPECT_FALSE(SchedulerDialogSeen());
}

TEST_F(WatchdogOnApplication, TheBreakWindowAtTheStartIsClosed)
{
    ExpectAnswered(u"break-window:at=start", "\"Microsoft Visual Basic [break] - TVMacro1\"", "close");
    EXPECT_FALSE(SchedulerDialogSeen());
}

TEST_F(WatchdogOnApplication, TheChildDialogAtTheStartIsAnsweredByEscape)
{
    ExpectAnswered(u"child-dialog:at=start", "\"Formlyn\"", "escape");
    EXPECT_FALSE(SchedulerDialogSeen());
}

TEST_F(WatchdogOnApplication, AChildDialogOfAnotherWindowStandsOn)
{
    watchdog.Start();
    Launch(u"child-dialog:at=start,parent=The Torvane");
    EXPECT_TRUE(AwaitLine("dialog shown \"Formlyn\""));
    services.clock.Sleep(3000);
    EXPECT_FALSE(IsRegistered());
    watchdog.Stop();
    EXPECT_EQ(Lines(), (std::vector<std::string>{"started /B", "fault dialog at start", "dialog shown \"Formlyn\""}));
}

TEST_F(WatchdogOnApplication, ADialogThatItDoesNotKnowStandsOn)
{
    watchdog.Start();
    Launch(u"dialog:title='Save; really?',key=return,at=start");
    EXPECT_TRUE(AwaitLine("dialog shown \"Save; really?\""));
    services.clock.Sleep(3000);
    EXPECT_FALSE(IsRegistered());
    watchdog.Stop();
    EXPECT_EQ(Lines(),
              (std::vector<std::string>{"started /B", "fault dialog at start", "dialog shown \"Save; really?\""}));
}

TEST_F(WatchdogOnApplication, WithoutTheWatchdogTheDialogStandsOn)
{
    Launch(u"error-box:at=start");
    EXPECT_TRUE(AwaitLine("dialog shown \"Microsoft Visual Basic\""));
    services.clock.Sleep(3000);
    EXPECT_FALSE(IsRegistered());
    watchdog.Start();
    EXPECT_TRUE(AwaitLine("registered"));
}

TEST_F(WatchdogOnApplication, SeveralDialogsInTurnAreAllAnswered)
{
    watchdog.Start();
    Launch(u"child-dialog:at=start;error-box:at=start;break-window:at=start;scheduler-dialog:at=start");
    EXPECT_TRUE(AwaitLine("registered"));
    watchdog.Stop();
    std::vector<std::string> answers = Lines();
    std::erase_if(answers, [](const std::string& line) { return !line.starts_with("dialog answered "); });
    EXPECT_EQ(answers, (std::vector<std::string>{"dialog answered \"Formlyn\" escape",
                                                 "dialog answered \"Microsoft Visual Basic\" return",
                                                 "dialog answered \"Microsoft Visual Basic [break] - TVMacro1\" close",
                                                 "dialog answered \"Local Torvane Task Scheduler\" return"}));
    EXPECT_TRUE(SchedulerDialogSeen());
}

} // namespace tv
