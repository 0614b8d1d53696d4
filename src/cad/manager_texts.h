// What TVManager says when something fails, in the user's language.
#pragma once

#include <cstdint>
#include <string>

namespace tv {

/// A text by the number under which it is translated.
struct ManagerText
{
    uint32_t key;
    const char16_t* text;
};

inline constexpr ManagerText kManagerTexts[] = {
    {8, u"Torvane %d is not installed."},
    {9, u"Failed to attach event handlers to Torvane."},
    {10, u"Failed to start Torvane %d."},
    {11, u"Failed to close Torvane application."},
    {12, u"Failed to run Torvane macro."},
    {93, u"Failed to set Torvane main window as invisible."},
    {94, u"Failed to get Torvane revision number."},
    {95, u"Reason:"},
};

/// "Torvane %d is not installed."
std::u16string NotInstalledText(int32_t version);
/// "Failed to attach event handlers to Torvane."
std::u16string AttachFailedText();
/// "Failed to start Torvane %d."
std::u16string StartFailedText(int32_t version);
/// "Failed to close Torvane application."
std::u16string CloseFailedText();
/// "Failed to set Torvane main window as invisible."
std::u16string HideFailedText();
/// "Failed to get Torvane revision number."
std::u16string RevisionFailedText();
/// "Failed to run Torvane macro.", with the reason where the macro's error code has one.
std::u16string MacroFailedText(int32_t macroError);

} // namespace tv
