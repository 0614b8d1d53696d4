// What TVManager says when something fails, in the user's language.
#pragma once

#include <cstdint>
#include <string>

namespace tv {

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
