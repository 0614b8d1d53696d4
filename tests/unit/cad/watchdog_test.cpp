#include "cad/watchdog.h"

#include "fakes/platform/fake_platform.h"

#include <gtest/gtest.h>

namespace tv {

namespace {

using fakes::PostedMessage;

constexpr uint32_t kProcess = 4100;

class WatchdogTest : public testing::Test
{
  protected:
    WatchdogTest() { SchedulerDialogSeen() = false; }

    /// Messages that one scan posts to a window with that title, without the window, which all of them must go to.
    std::vector<PostedMessage> AnswerTo(const std::u16string& title, const std::u16string& parentTitle = {})
    {
        fakes::FakePlatform desk;
        const WindowHandle parent = parentTitle.empty() ? 0 : desk.desktop.AddWindow(1, parentTitle);
        const WindowHandle window = desk.desktop.AddWindow(kProcess, title, parent);
        Watchdog guard(desk.platform, process, [] {});
        const std::unique_ptr<StopEvent> stop = desk.threads.MakeStopEvent();
        desk.clock.After(1000, [&] { stop->Signal(); });
        guard.ScanWindows(*stop);
        std::vector<PostedMessage> posted = desk.desktop.Posted();
        for (PostedMessage& message : posted) {
            EXPECT_EQ(message.window, window);
            message.window = 0;
        }
        return posted;
    }
    static std::vector<PostedMessage> Key(uint32_t key) { return {{0, 256, key, 0}, {0, 257, key, 0}}; }

    std::atomic<uint32_t> process{kProcess};
    fakes::FakePlatform machine;
    int lateStops = 0;
    Watchdog watchdog{machine.platform, process, [this] { ++lateStops; }};
};

const std::vector<PostedMessage> kNothing;

} // namespace

TEST_F(WatchdogTest, TheRulesAreTheseInThisOrder)
{
    const WatchdogRule expected[] = {
        {TitleMatch::BeginsWith, u"Torvane", DialogAnswer::PressReturn},
        {TitleMatch::Holds, u"Torvane.exe", DialogAnswer::PressReturn},
        {TitleMatch::Is, u"Formlyn", DialogAnswer::PressEscapeBelowApplication},
        {TitleMatch::Is, u"Microsoft Visual Basic", DialogAnswer::PressReturn},
        {TitleMatch::BeginsWith, u"Microsoft Visual Basic [break]", DialogAnswer::Close},
        {TitleMatch::EndsWith, u"Torvane Task Scheduler", DialogAnswer::NoteSchedulerAndPressReturn},
    };
    ASSERT_EQ(std::size(kWatchdogRules), std::size(expected));
    for (size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(kWatchdogRules[i].match, expected[i].match) << i;
        EXPECT_EQ(kWatchdogRules[i].title, expected[i].title) << i;
        EXPECT_EQ(kWatchdogRules[i].answer, expected[i].answer) << i;
    }
}

TEST_F(WatchdogTest, AnApplicationWindowGetsReturn)
{
    EXPECT_EQ(AnswerTo(u"Torvane"), Key(13));
    EXPECT_EQ(AnswerTo(u"Torvane 2013 - [Part1]"), Key(13));
}

TEST_F(WatchdogTest, CaseIsRespected)
{
    EXPECT_EQ(AnswerTo(u"torvane"), kNothing);
    EXPECT_EQ(AnswerTo(u"about TORVANE.EXE"), kNothing);
}

TEST_F(WatchdogTest, ATitleThatHoldsTheProgramsNameGetsReturn)
{
    EXPECT_EQ(AnswerTo(u"Error in Torvane.exe module"), Key(13));
}

TEST_F(WatchdogTest, AFormlynWindowBelowTheApplicationGetsEscape)
{
    EXPECT_EQ(AnswerTo(u"Formlyn", u"Torvane 2013"), Key(27));
}

TEST_F(WatchdogTest, AFormlynWindowBelowAnythingElseGetsNothing)
{
    EXPECT_EQ(AnswerTo(u"Formlyn", u"Other"), kNothing);
    EXPECT_EQ(AnswerTo(u"Formlyn"), kNothing);
    EXPECT_EQ(AnswerTo(u"Formlyn Setup", u"Torvane 2013"), kNothing);
}

TEST_F(WatchdogTest, TheErrorBoxOfTheMacroLanguageGetsReturn)
{
    EXPECT_EQ(AnswerTo(u"Microsoft Visual Basic"), Key(13));
}

TEST_F(WatchdogTest, TheEditorInBreakModeIsClosed)
{
    EXPECT_EQ(AnswerTo(u"Microsoft Visual Basic [break] - TVMacro1"), (std::vector<PostedMessage>{{0, 16, 0, 0}}));
    EXPECT_EQ(AnswerTo(u"Microsoft Visual Basic [break]"), (std::vector<PostedMessage>{{0, 16, 0, 0}}));
}

TEST_F(WatchdogTest, TheEditorWithAnyOtherTitleGetsNothing)
{
    EXPECT_EQ(AnswerTo(u"Microsoft Visual Basic - TVMacro1"), kNothing);
}

TEST_F(WatchdogTest, TheSchedulersDialogSetsTheFlagAndGetsReturn)
{
    EXPECT_EQ(AnswerTo(u"Welcome to Torvane Task Scheduler"), Key(13));
    EXPECT_TRUE(SchedulerDialogSeen());
}

TEST_F(WatchdogTest, TheSchedulersNameAloneGetsReturnAndDoesNotSetTheFlag)
{
    EXPECT_EQ(AnswerTo(u"Torvane Task Scheduler"), Key(13));
    EXPECT_FALSE(SchedulerDialogSeen());
}

TEST_F(WatchdogTest, AWindowOfAnotherProcessIsLeftAlone)
{
    machine.desktop.AddWindow(1, u"Torvane");
    machine.desktop.AddWindow(1, u"My Torvane Task Scheduler");
    const std::unique_ptr<StopEvent> stop = machine.threads.MakeStopEvent();
    machine.clock.After(1000, [&] { stop->Signal(); });
    watchdog.ScanWindows(*stop);
    EXPECT_TRUE(machine.desktop.Posted().empty());
    EXPECT_FALSE(SchedulerDialogSeen());
}

TEST_F(WatchdogTest, AWindowThatStaysGetsTheSameKeysASecondLater)
{
    machine.desktop.AddWindow(kProcess, u"Torvane");
    const std::unique_ptr<StopEvent> stop = machine.threads.MakeStopEvent();
    machine.clock.After(3000, [&] { stop->Signal(); });
    watchdog.ScanWindows(*stop);
    EXPECT_EQ(machine.desktop.Posted().size(), 6u);
    EXPECT_EQ(machine.clock.Sleeps(), (std::vector<uint32_t>{1000, 1000, 1000}));
}

TEST_F(WatchdogTest, AStopBeforeTheFirstPassMeansNoScan)
{
    machine.desktop.AddWindow(kProcess, u"Torvane");
    const std::unique_ptr<StopEvent> stop = machine.threads.MakeStopEvent();
    stop->Signal();
    watchdog.ScanWindows(*stop);
    EXPECT_TRUE(machine.desktop.Posted().empty());
    EXPECT_EQ(machine.clock.SleepCount(), 0u);
}

TEST_F(WatchdogTest, TheThreadEndsAfter1800PassesAndDoesNotCloseTheApplication)
{
    const std::unique_ptr<StopEvent> stop = machine.threads.MakeStopEvent();
    watchdog.ScanWindows(*stop);
    EXPECT_EQ(machine.clock.SleepCount(), 1800u);
    EXPECT_EQ(lateStops, 0);
}

TEST_F(WatchdogTest, AStopDuringThe1800thPassClosesTheApplication)
{
    const std::unique_ptr<StopEvent> stop = machine.threads.MakeStopEvent();
    machine.clock.After(1'800'000, [&] { stop->Signal(); });
    watchdog.ScanWindows(*stop);
    EXPECT_EQ(machine.clock.SleepCount(), 1800u);
    EXPECT_EQ(lateStops, 1);
}

TEST_F(WatchdogTest, AStopDuringThe1799thPassClosesNothing)
{
    const std::unique_ptr<StopEvent> stop = machine.threads.MakeStopEvent();
    machine.clock.After(1'799'000, [&] { stop->Signal(); });
    watchdog.ScanWindows(*stop);
    EXPECT_EQ(machine.clock.SleepCount(), 1799u);
    EXPECT_EQ(lateStops, 0);
}

TEST_F(WatchdogTest, StartingClearsTheFlagAndBeginsAThread)
{
    SchedulerDialogSeen() = true;
    watchdog.Start();
    EXPECT_FALSE(SchedulerDialogSeen());
    EXPECT_TRUE(watchdog.IsRunning());
    EXPECT_EQ(machine.threads.LiveThreads(), 1u);
    watchdog.Stop();
    EXPECT_EQ(machine.threads.LiveThreads(), 0u);
    EXPECT_EQ(machine.threads.LiveEvents(), 0u);
}

TEST_F(WatchdogTest, StartingTwiceStopsTheFirstThread)
{
    watchdog.Start();
    watchdog.Start();
    EXPECT_EQ(machine.threads.StartedCount(), 2u);
    EXPECT_EQ(machine.threads.LiveThreads(), 1u);
}

TEST_F(WatchdogTest, StoppingWhatDoesNotRunDoesNothing)
{
    watchdog.Stop();
    EXPECT_EQ(machine.log.CountOf("threads.Signal"), 0u);
}

TEST_F(WatchdogTest, EveryTitleHasItsAnswer)
{
    struct Row
    {
        std::u16string title;
        std::u16string parentTitle;
        std::vector<PostedMessage> posted;
        bool isSchedulerSeen;
    };
    const std::vector<PostedMessage> returnKey = {{0, 256, 13, 0}, {0, 257, 13, 0}};
    const std::vector<PostedMessage> escapeKey = {{0, 256, 27, 0}, {0, 257, 27, 0}};
    const std::vector<PostedMessage> close = {{0, 16, 0, 0}};
    const Row rows[] = {
        {u"Torvane", u"", returnKey, false},
        {u"Torvanes", u"", returnKey, false},
        {u" Torvane", u"", kNothing, false},
        {u"torvane", u"", kNothing, false},
        {u"TORVANE", u"", kNothing, false},
        {u"Torvane.exe", u"", returnKey, false},
        {u"xTorvane.exe", u"", returnKey, false},
        {u"x Torvane.exe - y", u"", returnKey, false},
        {u"x torvane.exe", u"", kNothing, false},
        {u"Formlyn", u"Torvane", escapeKey, false},
        {u"Formlyn", u"Torvane 2013", escapeKey, false},
        {u"Formlyn", u"The Torvane", kNothing, false},
        {u"Formlyn", u"torvane", kNothing, false},
        {u"Formlyn", u"", kNothing, false},
        {u"formlyn", u"Torvane", kNothing, false},
        {u"Formlyn ", u"Torvane", kNothing, false},
        {u"Microsoft Visual Basic", u"", returnKey, false},
        {u"Microsoft Visual Basic ", u"", kNothing, false},
        {u"microsoft visual basic", u"", kNothing, false},
        {u"Microsoft Visual Basic [break]", u"", close, false},
        {u"Microsoft Visual Basic [break] - [TVMacro1 (Code)]", u"", close, false},
        {u"Microsoft Visual Basic [Break]", u"", kNothing, false},
        {u"Microsoft Visual Basic [running]", u"", kNothing, false},
        {u"My Microsoft Visual Basic [break]", u"", kNothing, false},
        {u"The Torvane Task Scheduler", u"", returnKey, true},
        {u"xTorvane Task Scheduler", u"", returnKey, true},
        {u"The Torvane Task Scheduler 2", u"", kNothing, false},
        {u"The Torvane task scheduler", u"", kNothing, false},
        {u"Torvane Task Scheduler", u"", returnKey, false},
        {u"Torvane.exe at the Torvane Task Scheduler", u"", returnKey, false},
        {u"A Torvane.exe of the Torvane Task Scheduler", u"", returnKey, false},
        {u"Microsoft Visual Basic [break] Torvane Task Scheduler", u"", close, false},
        {u"Save as", u"Torvane", kNothing, false},
    };
    for (const Row& row : rows) {
        SchedulerDialogSeen() = false;
        EXPECT_EQ(AnswerTo(row.title, row.parentTitle), row.posted) << testing::PrintToString(row.title);
        EXPECT_EQ(SchedulerDialogSeen(), row.isSchedulerSeen) << testing::PrintToString(row.title);
    }
}

TEST_F(WatchdogTest, AWindowWithoutATitleIsSkipped)
{
    EXPECT_EQ(AnswerTo(u"", u"Torvane"), kNothing);
}

TEST_F(WatchdogTest, NoMoreThan259CharactersOfATitleAreLookedAt)
{
    const std::u16string words = u"Torvane Task Scheduler";
    EXPECT_EQ(AnswerTo(std::u16string(259 - words.size(), u'x') + words), Key(13));
    EXPECT_EQ(AnswerTo(std::u16string(260 - words.size(), u'x') + words), kNothing);
}

TEST_F(WatchdogTest, AllWindowsOfTheProcessAreAnsweredFromTheTopOneDown)
{
    const WindowHandle first = machine.desktop.AddWindow(kProcess, u"Torvane 2013");
    machine.desktop.AddWindow(1, u"Torvane");
    const WindowHandle second = machine.desktop.AddWindow(kProcess, u"Microsoft Visual Basic [break]");
    machine.desktop.AddWindow(kProcess, u"");
    machine.desktop.AddWindow(kProcess, u"Other");
    const WindowHandle third = machine.desktop.AddWindow(kProcess, u"Microsoft Visual Basic");
    const std::unique_ptr<StopEvent> stop = machine.threads.MakeStopEvent();
    machine.clock.After(1000, [&] { stop->Signal(); });
    watchdog.ScanWindows(*stop);
    EXPECT_EQ(
        machine.desktop.Posted(),
        (std::vector<PostedMessage>{
            {first, 256, 13, 0}, {first, 257, 13, 0}, {second, 16, 0, 0}, {third, 256, 13, 0}, {third, 257, 13, 0}}));
}

TEST_F(WatchdogTest, AWindowThatVanishesEndsTheWalkUntilTheNextPass)
{
    const WindowHandle first = machine.desktop.AddWindow(kProcess, u"Torvane");
    const WindowHandle second = machine.desktop.AddWindow(kProcess, u"Microsoft Visual Basic");
    machine.desktop.OnPost([&](const PostedMessage& message) {
        if (message.window == first) {
            machine.desktop.CloseWindow(first);
        }
    });
    const std::unique_ptr<StopEvent> stop = machine.threads.MakeStopEvent();
    machine.clock.After(2000, [&] { stop->Signal(); });
    watchdog.ScanWindows(*stop);
    EXPECT_EQ(machine.desktop.Posted(),
              (std::vector<PostedMessage>{{first, 256, 13, 0}, {second, 256, 13, 0}, {second, 257, 13, 0}}));
}

TEST_F(WatchdogTest, AProcessThatStartsWhileTheThreadRunsIsWatched)
{
    process = 0;
    machine.desktop.AddWindow(kProcess, u"Torvane");
    const std::unique_ptr<StopEvent> stop = machine.threads.MakeStopEvent();
    machine.clock.After(1000, [&] { process = kProcess; });
    machine.clock.After(2000, [&] { stop->Signal(); });
    watchdog.ScanWindows(*stop);
    EXPECT_EQ(machine.desktop.Posted().size(), 2u);
}

TEST_F(WatchdogTest, EachOf1800PassesLooksAtTheWindowsAndSleepsASecond)
{
    machine.desktop.AddWindow(kProcess, u"Microsoft Visual Basic [break]");
    const std::unique_ptr<StopEvent> stop = machine.threads.MakeStopEvent();
    watchdog.ScanWindows(*stop);
    EXPECT_EQ(machine.desktop.Posted().size(), 1800u);
    EXPECT_EQ(machine.clock.Sleeps(), std::vector<uint32_t>(1800, 1000));
}

} // namespace tv
