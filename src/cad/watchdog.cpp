#include "cad/watchdog.h"

#include "com/result.h"

namespace tv {

namespace {

constexpr int kMostScans = 1800;
constexpr uint32_t kScanInterval = 1000;

bool Matches(std::u16string_view title, const WatchdogRule& rule)
{
    switch (rule.match) {
    case TitleMatch::BeginsWith:
        return title.starts_with(rule.title);
    case TitleMatch::Holds:
        return title.find(rule.title) != std::u16string_view::npos;
    case TitleMatch::Is:
        return title == rule.title;
    case TitleMatch::EndsWith:
        return title.ends_with(rule.title);
    }
    return false;
}

} // namespace

std::atomic<bool>& SchedulerDialogSeen()
{
    static std::atomic<bool> seen{false};
    return seen;
}

const WatchdogRule* FindWatchdogRule(std::u16string_view title)
{
    for (const WatchdogRule& rule : kWatchdogRules) {
        if (Matches(title, rule)) {
            return &rule;
        }
    }
    return nullptr;
}

Watchdog::Watchdog(Platform& services, const std::atomic<uint32_t>& process, std::function<void()> lateStop)
    : platform(services), processId(process), onLateStop(std::move(lateStop))
{
}

Watchdog::~Watchdog()
{
    Stop();
}

void Watchdog::Start()
{
    SchedulerDialogSeen() = false;
    Stop();
    stop = platform.threads.MakeStopEvent();
    thread = platform.threads.StartThread([this, &stopEvent = *stop] {
        AtBoundary([&] {
            ScanWindows(stopEvent);
            return 0;
        });
    });
}

void Watchdog::Stop()
{
    if (stop == nullptr) {
        return;
    }
    stop->Signal();
    if (thread != nullptr) {
        thread->Join();
        thread.reset();
    }
    stop.reset();
}

void Watchdog::ScanWindows(StopEvent& stopEvent)
{
    if (stopEvent.IsSignalled()) {
        return;
    }
    int scansLeft = kMostScans;
    while (scansLeft-- > 0) {
        ScanOnce();
        platform.clock.Sleep(kScanInterval);
        if (stopEvent.IsSignalled()) {
            break;
        }
    }
    // Only a stop that comes during the last scan finds the count at 0. A count that has run out stands below: the macro
    // then goes on unguarded and the application isn't closed, because a conversion may well take longer than half an
    // hour.
    if (scansLeft == 0) {
        onLateStop();
    }
}

void Watchdog::ScanOnce()
{
    for (WindowHandle window = platform.desktop.TopWindow(); window != 0; window = platform.desktop.NextWindow(window)) {
        if (platform.desktop.ProcessOf(window) != processId) {
            continue;
        }
        const std::u16string title = platform.desktop.TitleOf(window);
        if (title.empty()) {
            continue;
        }
        if (const WatchdogRule* rule = FindWatchdogRule(title)) {
            Answer(window, *rule);
        }
    }
}

void Watchdog::Answer(WindowHandle window, const WatchdogRule& rule)
{
    switch (rule.answer) {
    case DialogAnswer::PressReturn:
        Press(window, kKeyReturn);
        break;
    case DialogAnswer::PressEscapeBelowApplication:
        if (platform.desktop.TitleOf(platform.desktop.ParentOf(window)).starts_with(kApplicationTitle)) {
            Press(window, kKeyEscape);
        }
        break;
    case DialogAnswer::Close:
        platform.desktop.Post(window, kMessageClose, 0, 0);
        break;
    case DialogAnswer::NoteSchedulerAndPressReturn:
        SchedulerDialogSeen() = true;
        Press(window, kKeyReturn);
        break;
    }
}

void Watchdog::Press(WindowHandle window, uint32_t key)
{
    platform.desktop.Post(window, kMessageKeyDown, key, 0);
    platform.desktop.Post(window, kMessageKeyUp, key, 0);
}

} // namespace tv
