// The watchdog on the machine's own windows, threads and clock, against the windows of a second process.
#include "cad/watchdog.h"

#include "made_windows.h"
#include "platform/win32/win32_platform.h"
#include "shortened_clock.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tv {

namespace {

using Reports = std::vector<std::string>;

const Reports kReturn = {"256 13 0", "257 13 0"};
const Reports kEscape = {"256 27 0", "257 27 0"};
const Reports kClose = {"16 0 0"};
const Reports kNothing;

constexpr ULONGLONG kPatience = 60'000;

/// Stands below all other windows, so once it was answered a whole walk over them has been made. A walk may also end
/// early, when a window of somebody else vanishes in the midst of it.
const WantedWindow kLast{.name = "last", .title = "Torvane.exe stands last", .style = WindowStyle::Hidden};

/// The machine's clock, which can be had to run faster, and a look at each pass.
class PassClock final : public ClockService
{
  public:
    explicit PassClock(ClockService& real) : clock(real) {}

    void Sleep(uint32_t milliseconds) override
    {
        onPass(++passes);
        clock.Sleep(milliseconds / speed);
    }
    bool GetLocalTime(LocalTime& now) override { return clock.GetLocalTime(now); }

    std::atomic<int> passes{0};
    uint32_t speed = 1;
    std::function<void(int)> onPass = [](int) {};

  private:
    ClockService& clock;
};

/// True when an answer arrived whole, once for each pass and nothing beside it.
testing::AssertionResult IsAnswered(const Reports& reports, const Reports& answer)
{
    bool isWhole = answer.empty() ? reports.empty() : !reports.empty() && reports.size() % answer.size() == 0;
    for (size_t i = 0; isWhole && i < reports.size(); ++i) {
        isWhole = reports[i] == answer[i % answer.size()];
    }
    return isWhole ? testing::AssertionSuccess()
                   : testing::AssertionFailure()
                         << testing::PrintToString(reports) << " and not " << testing::PrintToString(answer);
}

struct Row
{
    std::string title;
    Reports answer;
    WindowStyle style = WindowStyle::Overlapped;
    std::string owner = "-";
    std::string windowClass = "WatchedWindow";
};

class WatchdogOnWindows : public testing::Test
{
  protected:
    WatchdogOnWindows() { SchedulerDialogSeen() = false; }

    static bool AwaitPasses(MadeWindows& windows, size_t count) { return windows.Await("last 257 13 0", count); }

    /// Waits until that many passes have been made over windows of which nothing comes back.
    bool AwaitPasses(int count)
    {
        const ULONGLONG deadline = GetTickCount64() + kPatience;
        while (passClock.passes < count && GetTickCount64() < deadline) {
            services.clock.Sleep(10);
        }
        return passClock.passes >= count;
    }

    /// One whole pass, or a few. How long the watchdog sleeps then doesn't matter, so it sleeps less than a second.
    void Watch(MadeWindows& windows)
    {
        passClock.speed = 20;
        process = windows.ProcessId();
        countedWatchdog.Start();
        EXPECT_TRUE(AwaitPasses(windows, 1));
        countedWatchdog.Stop();
    }

    /// Makes one window for each row, watches them and compares what arrived.
    void ExpectAnswers(const std::vector<Row>& rows, const std::vector<WantedWindow>& owners = {})
    {
        std::vector<WantedWindow> wanted = {kLast};
        wanted.insert(wanted.end(), owners.begin(), owners.end());
        for (size_t i = 0; i < rows.size(); ++i) {
            wanted.push_back({.name = "row" + std::to_string(i),
                              .title = rows[i].title,
                              .style = rows[i].style,
                              .owner = rows[i].owner,
                              .windowClass = rows[i].windowClass});
        }
        MadeWindows windows(wanted);
        Watch(windows);
        for (size_t i = 0; i < rows.size(); ++i) {
            EXPECT_TRUE(IsAnswered(windows.ReportsOf("row" + std::to_string(i)), rows[i].answer))
                << i << " \"" << rows[i].title << '"';
        }
    }

    win32::Win32Platform machine{GetModuleHandleW(nullptr)};
    Platform& services = machine.Get();
    PassClock passClock{services.clock};
    /// The machine, but for the clock.
    Platform countedServices = WithClock(services, passClock);
    std::atomic<uint32_t> process{0};
    std::atomic<int> lateStops{0};
    Watchdog watchdog{services, process, [this] { ++lateStops; }};
    Watchdog countedWatchdog{countedServices, process, [this] { ++lateStops; }};
};

/// Names of a process's windows from the top one down, as the system lists them.
std::vector<std::string> StackingOrder(uint32_t processId)
{
    struct Walk
    {
        DWORD process;
        std::vector<std::string> titles;
    } walk{processId, {}};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto* const seen = reinterpret_cast<Walk*>(parameter);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            char title[260] = {};
            if (owner == seen->process && GetWindowTextA(window, title, 260) > 0) {
                seen->titles.push_back(title);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&walk));
    return walk.titles;
}

} // namespace

TEST_F(WatchdogOnWindows, AWindowThatIsCalledAsTheApplicationGetsReturn)
{
    ExpectAnswers(
        {
            {"Torvane", kReturn},
            {"Torvane 2013 - [Part1]", kReturn},
            {"Torvanes", kReturn},
            {"Torvane \xE2\x80\x93 M\xC3\xBCll", kReturn},
            {"Torvane 2013", kReturn, WindowStyle::Hidden},
            {"Torvane 2013", kReturn, WindowStyle::Minimized},
            {"Torvane 2013", kReturn, WindowStyle::Popup},
            {"Torvane 2013", kReturn, WindowStyle::Popup, "stranger"},
            {"Torvane 2013", kReturn, WindowStyle::Overlapped, "-", "AnyOtherClass"},
            {"Torvane 2013", kReturn, WindowStyle::Popup, "-", "#32770"},
            {"Torvane" + std::string(300, 'x'), kReturn},
            {" Torvane", kNothing},
            {"The Torvane", kNothing},
            {"Torvan", kNothing},
            {"torvane", kNothing},
            {"TORVANE", kNothing},
            {"\xD0\xA2orvane", kNothing},
            {"Save as", kNothing, WindowStyle::Overlapped, "-", "Torvane"},
            {"Save as", kNothing, WindowStyle::Popup, "application"},
            {"", kNothing},
            {"", kNothing, WindowStyle::Popup, "application"},
        },
        {{.name = "stranger", .title = "Stranger"}, {.name = "application", .title = "Torvane 2013"}});
    EXPECT_FALSE(SchedulerDialogSeen());
}

TEST_F(WatchdogOnWindows, AWindowThatNamesTheProgramAnywhereGetsReturn)
{
    ExpectAnswers({
        {"Torvane.exe", kReturn},
        {"Error in Torvane.exe module", kReturn},
        {"xTorvane.exe", kReturn},
        {"Error in Torvane.exe", kReturn},
        {std::string(248, 'x') + "Torvane.exe", kReturn},
        {std::string(249, 'x') + "Torvane.exe", kNothing},
        {"Error in TORVANE.EXE", kNothing},
        {"Error in torvane.exe", kNothing},
        {"Error in Torvane.EXE", kNothing},
        {"Error in Torvane .exe", kNothing},
        {"Error in Torvane.ex", kNothing},
    });
    EXPECT_FALSE(SchedulerDialogSeen());
}

TEST_F(WatchdogOnWindows, AFormlynDialogOfTheApplicationGetsEscape)
{
    const std::vector<WantedWindow> owners = {
        {.name = "application", .title = "Torvane 2013"},
        {.name = "bare", .title = "Torvane"},
        {.name = "hidden", .title = "Torvane", .style = WindowStyle::Hidden},
        {.name = "other", .title = "The Torvane"},
        {.name = "lower", .title = "torvane 2013"},
        {.name = "program", .title = "x Torvane.exe"},
        {.name = "untitled", .title = ""},
    };
    ExpectAnswers(
        {
            {"Formlyn", kEscape, WindowStyle::Popup, "application"},
            {"Formlyn", kEscape, WindowStyle::Popup, "bare"},
            {"Formlyn", kEscape, WindowStyle::Popup, "hidden"},
            {"Formlyn", kEscape, WindowStyle::Popup, "application", "#32770"},
            {"Formlyn", kNothing, WindowStyle::Popup, "other"},
            {"Formlyn", kNothing, WindowStyle::Popup, "lower"},
            {"Formlyn", kNothing, WindowStyle::Popup, "program"},
            {"Formlyn", kNothing, WindowStyle::Popup, "untitled"},
            {"Formlyn", kNothing, WindowStyle::Popup},
            {"Formlyn", kNothing},
            // Of an owned window, only a popup has its owner as its parent.
            {"Formlyn", kNothing, WindowStyle::Overlapped, "application"},
            {"Formlyn", kNothing, WindowStyle::Child, "application"},
            {"formlyn", kNothing, WindowStyle::Popup, "application"},
            {"FORMLYN", kNothing, WindowStyle::Popup, "application"},
            {"Formlyn ", kNothing, WindowStyle::Popup, "application"},
            {" Formlyn", kNothing, WindowStyle::Popup, "application"},
            {"Formlyn 2", kNothing, WindowStyle::Popup, "application"},
            {"My Formlyn", kNothing, WindowStyle::Popup, "application"},
        },
        owners);
}

TEST_F(WatchdogOnWindows, TheErrorBoxOfTheMacroLanguageGetsReturn)
{
    ExpectAnswers(
        {
            {"Microsoft Visual Basic", kReturn},
            {"Microsoft Visual Basic", kReturn, WindowStyle::Popup, "application", "#32770"},
            {"Microsoft Visual Basic", kReturn, WindowStyle::Hidden},
            {"Microsoft Visual Basic ", kNothing},
            {" Microsoft Visual Basic", kNothing},
            {"Microsoft Visual Basi", kNothing},
            {"Microsoft Visual Basics", kNothing},
            {"Microsoft Visual Basic - TVMacro1", kNothing},
            {"Microsoft Visual Basic [running] - TVMacro1", kNothing},
            {"My Microsoft Visual Basic", kNothing},
            {"microsoft visual basic", kNothing},
        },
        {{.name = "application", .title = "Torvane 2013"}});
}

TEST_F(WatchdogOnWindows, AnEditorInBreakModeIsAskedToClose)
{
    ExpectAnswers({
        {"Microsoft Visual Basic [break]", kClose},
        {"Microsoft Visual Basic [break] - TVMacro1", kClose},
        {"Microsoft Visual Basic [break] - [TVMacro1 (Code)]", kClose, WindowStyle::Hidden},
        {"Microsoft Visual Basic [break]s", kClose, WindowStyle::Popup},
        // The rules are tried in order.
        {"Microsoft Visual Basic [break] Torvane Task Scheduler", kClose},
        {"Microsoft Visual Basic [break] Torvane.exe", kReturn},
        {"Microsoft Visual Basic [Break]", kNothing},
        {"Microsoft Visual Basic [break", kNothing},
        {"Microsoft Visual Basic[break]", kNothing},
        {"Microsoft Visual Basic  [break]", kNothing},
        {"My Microsoft Visual Basic [break]", kNothing},
    });
    EXPECT_FALSE(SchedulerDialogSeen());
}

TEST_F(WatchdogOnWindows, TheSchedulersDialogGetsReturnAndIsNoted)
{
    for (const std::string title :
         {"Local Torvane Task Scheduler", "xTorvane Task Scheduler", " Torvane Task Scheduler"}) {
        SchedulerDialogSeen() = false;
        ExpectAnswers({{title, kReturn}});
        EXPECT_TRUE(SchedulerDialogSeen()) << title;
    }
}

TEST_F(WatchdogOnWindows, WhatOnlyLooksLikeTheSchedulersDialogIsNotNoted)
{
    ExpectAnswers({
        {"Torvane Task Scheduler", kReturn},
        {"Torvane.exe at the Torvane Task Scheduler", kReturn},
        {"A Torvane.exe of the Torvane Task Scheduler", kReturn},
        {"Local Torvane Task Scheduler 2", kNothing},
        {"Local Torvane Task Scheduler ", kNothing},
        {"Local Torvane task scheduler", kNothing},
        {"Local TORVANE TASK SCHEDULER", kNothing},
        {"Local TorvaneTask Scheduler", kNothing},
        {"Local Task Scheduler", kNothing},
        {std::string(238, 'x') + "Torvane Task Scheduler", kNothing},
    });
    EXPECT_FALSE(SchedulerDialogSeen());
}

TEST_F(WatchdogOnWindows, OfALongTitleTheFirst259CharactersAreLookedAt)
{
    ExpectAnswers({
        {std::string(237, 'x') + "Torvane Task Scheduler", kReturn},
        {std::string(237, 'x') + "Torvane Task Scheduler and more", kReturn},
    });
    EXPECT_TRUE(SchedulerDialogSeen());
}

TEST_F(WatchdogOnWindows, AMessageBoxOfTheMacroLanguageGoesByItsFirstButton)
{
    MadeWindows windows({kLast, {.name = "box", .title = "Microsoft Visual Basic", .style = WindowStyle::MessageBox}});
    process = windows.ProcessId();
    watchdog.Start();
    EXPECT_TRUE(windows.Await("box pressed 1"));
}

TEST_F(WatchdogOnWindows, AFormlynMessageBoxIsCancelled)
{
    MadeWindows windows(
        {kLast,
         {.name = "application", .title = "Torvane 2013"},
         {.name = "box", .title = "Formlyn", .style = WindowStyle::MessageBox, .owner = "application"}});
    process = windows.ProcessId();
    watchdog.Start();
    EXPECT_TRUE(windows.Await("box pressed 2"));
}

TEST_F(WatchdogOnWindows, KeysGoToTheDialogItselfAndNotToWhatIsInIt)
{
    MadeWindows windows({kLast,
                         {.name = "dialog", .title = "Torvane", .style = WindowStyle::Popup},
                         {.name = "button", .title = "OK", .style = WindowStyle::Child, .owner = "dialog"},
                         {.name = "label", .title = "Torvane", .style = WindowStyle::Child, .owner = "dialog"}});
    Watch(windows);
    EXPECT_TRUE(IsAnswered(windows.ReportsOf("dialog"), kReturn));
    EXPECT_EQ(windows.ReportsOf("button"), kNothing);
    EXPECT_EQ(windows.ReportsOf("label"), kNothing);
}

TEST_F(WatchdogOnWindows, WindowsOfAnotherProcessAreLeftAlone)
{
    MadeWindows windows({kLast, {.name = "own", .title = "Torvane"}});
    MadeWindows others({{.name = "a", .title = "Torvane"},
                        {.name = "b", .title = "x Torvane.exe"},
                        {.name = "c", .title = "Formlyn", .style = WindowStyle::Popup, .owner = "a"},
                        {.name = "d", .title = "Microsoft Visual Basic"},
                        {.name = "e", .title = "Microsoft Visual Basic [break]"},
                        {.name = "f", .title = "Local Torvane Task Scheduler"}});
    ASSERT_NE(windows.ProcessId(), others.ProcessId());
    Watch(windows);
    EXPECT_TRUE(IsAnswered(windows.ReportsOf("own"), kReturn));
    EXPECT_EQ(others.Lines(), (Reports{"a made", "b made", "c made", "d made", "e made", "f made"}));
    EXPECT_FALSE(SchedulerDialogSeen());
}

TEST_F(WatchdogOnWindows, SeveralWindowsAreAnsweredInOnePassFromTheTopOneDown)
{
    MadeWindows windows({kLast,
                         {.name = "Torvane_1", .title = "Torvane_1"},
                         {.name = "Torvane_2", .title = "Torvane_2", .style = WindowStyle::Hidden},
                         {.name = "Torvane_3", .title = "Torvane_3", .style = WindowStyle::Popup}});
    std::vector<std::string> order = StackingOrder(windows.ProcessId());
    std::erase_if(order, [](const std::string& title) { return !title.starts_with("Torvane_"); });
    ASSERT_EQ(order.size(), 3u);
    Watch(windows);
    Reports expected;
    for (const std::string& name : {order[0], order[1], order[2], std::string("last")}) {
        expected.push_back(name + " 256 13 0");
        expected.push_back(name + " 257 13 0");
    }
    const Reports lines = windows.Lines();
    const auto end = std::next(std::find(lines.begin(), lines.end(), "last 257 13 0"));
    ASSERT_GE(static_cast<size_t>(end - lines.begin()), expected.size());
    EXPECT_EQ(Reports(end - static_cast<ptrdiff_t>(expected.size()), end), expected);
}

TEST_F(WatchdogOnWindows, AWindowThatStaysGetsTheSameKeysInEachPass)
{
    MadeWindows windows({kLast, {.name = "dialog", .title = "Torvane"}});
    process = windows.ProcessId();
    watchdog.Start();
    EXPECT_TRUE(AwaitPasses(windows, 3));
    watchdog.Stop();
    const Reports reports = windows.ReportsOf("dialog");
    EXPECT_TRUE(IsAnswered(reports, kReturn));
    EXPECT_GE(reports.size(), 6u);
}

TEST_F(WatchdogOnWindows, AWindowThatComesBackIsAnsweredAgain)
{
    MadeWindows windows(
        {kLast,
         {.name = "box", .title = "Microsoft Visual Basic", .after = AfterAnswer::ComeAgain},
         {.name = "editor", .title = "Microsoft Visual Basic [break]", .after = AfterAnswer::ComeAgain}});
    process = windows.ProcessId();
    watchdog.Start();
    EXPECT_TRUE(windows.Await("box gone", 3));
    EXPECT_TRUE(windows.Await("editor gone", 3));
    watchdog.Stop();
    EXPECT_TRUE(IsAnswered(windows.ReportsOf("box"), {"256 13 0", "257 13 0", "gone"}));
    EXPECT_TRUE(IsAnswered(windows.ReportsOf("editor"), {"16 0 0", "gone"}));
}

TEST_F(WatchdogOnWindows, AWindowThatGoesIsMissedByNobodyAndTheOthersAreAnsweredOn)
{
    MadeWindows windows({kLast,
                         {.name = "below", .title = "Torvane"},
                         {.name = "box", .title = "Microsoft Visual Basic", .after = AfterAnswer::Go}});
    process = windows.ProcessId();
    watchdog.Start();
    EXPECT_TRUE(windows.Await("box gone"));
    EXPECT_TRUE(AwaitPasses(windows, 2));
    watchdog.Stop();
    EXPECT_EQ(windows.ReportsOf("box"), (Reports{"256 13 0", "257 13 0", "gone"}));
    EXPECT_TRUE(IsAnswered(windows.ReportsOf("below"), kReturn));
}

TEST_F(WatchdogOnWindows, AStopBeforeTheFirstPassAnswersNothing)
{
    MadeWindows windows({kLast, {.name = "dialog", .title = "Local Torvane Task Scheduler"}});
    process = windows.ProcessId();
    const std::unique_ptr<StopEvent> stop = services.threads.MakeStopEvent();
    stop->Signal();
    countedWatchdog.ScanWindows(*stop);
    EXPECT_EQ(windows.Lines(), (Reports{"last made", "dialog made"}));
    EXPECT_EQ(passClock.passes, 0);
    EXPECT_FALSE(SchedulerDialogSeen());
}

TEST_F(WatchdogOnWindows, AfterAStopInTheMiddleNoWindowIsAnsweredAnyMore)
{
    MadeWindows windows({kLast, {.name = "dialog", .title = "Torvane"}});
    process = windows.ProcessId();
    watchdog.Start();
    EXPECT_TRUE(AwaitPasses(windows, 2));
    EXPECT_TRUE(watchdog.IsRunning());
    watchdog.Stop();
    EXPECT_FALSE(watchdog.IsRunning());
    const Reports lines = windows.Lines();
    services.clock.Sleep(2500);
    EXPECT_EQ(windows.Lines(), lines);
    EXPECT_EQ(lateStops, 0);
}

TEST_F(WatchdogOnWindows, APassWithoutAWindowIsNoMatterAndOneThatOpensLaterIsAnswered)
{
    MadeWindows windows;
    process = windows.ProcessId();
    countedWatchdog.Start();
    EXPECT_TRUE(AwaitPasses(2));
    EXPECT_EQ(windows.Lines(), kNothing);
    windows.Make({.name = "dialog", .title = "Microsoft Visual Basic"});
    EXPECT_TRUE(windows.Await("dialog 257 13 0"));
    countedWatchdog.Stop();
    EXPECT_TRUE(IsAnswered(windows.ReportsOf("dialog"), kReturn));
}

TEST_F(WatchdogOnWindows, AProcessThatIsStartedAfterTheThreadIsWatched)
{
    watchdog.Start();
    MadeWindows windows({kLast, {.name = "dialog", .title = "Microsoft Visual Basic"}});
    process = windows.ProcessId();
    EXPECT_TRUE(AwaitPasses(windows, 1));
    watchdog.Stop();
    EXPECT_TRUE(IsAnswered(windows.ReportsOf("dialog"), kReturn));
}

TEST_F(WatchdogOnWindows, AProcessThatEndsWhileItIsWatchedIsNoMatter)
{
    {
        MadeWindows windows({kLast, {.name = "dialog", .title = "Torvane"}});
        process = windows.ProcessId();
        countedWatchdog.Start();
        EXPECT_TRUE(AwaitPasses(windows, 1));
    }
    EXPECT_TRUE(AwaitPasses(passClock.passes + 2));
}

TEST_F(WatchdogOnWindows, TheThreadIsOneOfItsOwnAtNormalPriority)
{
    std::atomic<DWORD> thread{0};
    std::atomic<int> priority{THREAD_PRIORITY_ERROR_RETURN};
    passClock.onPass = [&](int) {
        priority = GetThreadPriority(GetCurrentThread());
        thread = GetCurrentThreadId();
    };
    countedWatchdog.Start();
    EXPECT_TRUE(AwaitPasses(1));
    countedWatchdog.Stop();
    EXPECT_NE(thread, 0u);
    EXPECT_NE(thread, GetCurrentThreadId());
    EXPECT_EQ(priority, THREAD_PRIORITY_NORMAL);
}

TEST_F(WatchdogOnWindows, AStartClearsTheNoteOfTheSchedulersDialog)
{
    SchedulerDialogSeen() = true;
    watchdog.Start();
    EXPECT_FALSE(SchedulerDialogSeen());
}

// The 1800 passes of the next three tests follow on each other without the second between them: half an hour is too
// long for a test. What is walked over and who is answered are the machine's real windows.

TEST_F(WatchdogOnWindows, After1800PassesTheThreadEndsAndTheApplicationGoesOn)
{
    passClock.speed = 2000;
    MadeWindows windows({kLast, {.name = "dialog", .title = "Torvane"}});
    process = windows.ProcessId();
    const std::unique_ptr<StopEvent> stop = services.threads.MakeStopEvent();
    countedWatchdog.ScanWindows(*stop);
    EXPECT_EQ(passClock.passes, 1800);
    EXPECT_EQ(lateStops, 0);
    const Reports reports = windows.ReportsOf("dialog");
    EXPECT_TRUE(IsAnswered(reports, kReturn));
    EXPECT_LE(reports.size(), 3600u);
}

TEST_F(WatchdogOnWindows, AStopInTheLastOf1800PassesAsksForTheApplicationsEndOnTheWatchdogsThread)
{
    passClock.speed = 2000;
    const std::unique_ptr<StopEvent> stop = services.threads.MakeStopEvent();
    passClock.onPass = [&](int pass) {
        if (pass == 1800) {
            stop->Signal();
        }
    };
    std::vector<DWORD> askedBy;
    Watchdog late(countedServices, process, [&] { askedBy.push_back(GetCurrentThreadId()); });
    DWORD threadId = 0;
    services.threads
        .StartThread([&] {
            threadId = GetCurrentThreadId();
            late.ScanWindows(*stop);
        })
        ->Join();
    EXPECT_EQ(passClock.passes, 1800);
    EXPECT_EQ(askedBy, std::vector<DWORD>{threadId});
}

TEST_F(WatchdogOnWindows, AStopInThePassBeforeTheLastAsksForNothing)
{
    passClock.speed = 2000;
    const std::unique_ptr<StopEvent> stop = services.threads.MakeStopEvent();
    passClock.onPass = [&](int pass) {
        if (pass == 1799) {
            stop->Signal();
        }
    };
    countedWatchdog.ScanWindows(*stop);
    EXPECT_EQ(passClock.passes, 1799);
    EXPECT_EQ(lateStops, 0);
}

} // namespace tv
