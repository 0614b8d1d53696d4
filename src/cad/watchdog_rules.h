// The dialogs that the watchdog knows, and what it does about each.
#pragma once

#include <span>
#include <string_view>

namespace tv {

/// How a rule looks at a window's title. All comparisons are exact and case-sensitive.
enum class TitleMatch
{
    BeginsWith,
    Holds,
    Is,
    EndsWith
};

enum class DialogAnswer
{
    PressReturn,
    PressEscapeBelowApplication, ///< only when the title of the window's parent begins with the application's name
    Close,
    NoteSchedulerAndPressReturn
};

struct WatchdogRule
{
    TitleMatch match;
    std::u16string_view title;
    DialogAnswer answer;
};

/// Begin of the titles of the application's own windows.
inline constexpr std::u16string_view kApplicationTitle = u"Torvane";

/// In the order in which they are tried; the first that matches is applied. The first rule hits the application's own
/// main window too, which then gets a key every second: that is known and harmless.
inline constexpr WatchdogRule kWatchdogRules[] = {
    {TitleMatch::BeginsWith, kApplicationTitle, DialogAnswer::PressReturn},
    {TitleMatch::Holds, u"Torvane.exe", DialogAnswer::PressReturn},
    {TitleMatch::Is, u"Formlyn", DialogAnswer::PressEscapeBelowApplication},
    {TitleMatch::Is, u"Microsoft Visual Basic", DialogAnswer::PressReturn},
    {TitleMatch::BeginsWith, u"Microsoft Visual Basic [break]", DialogAnswer::Close},
    {TitleMatch::EndsWith, u"Torvane Task Scheduler", DialogAnswer::NoteSchedulerAndPressReturn},
};

/// The rule for a title, null when none matches.
const WatchdogRule* FindWatchdogRule(std::u16string_view title);

} // namespace tv
