#include "cad/manager_texts.h"

#include "cad/macro_error_reasons.h"
#include "support/format.h"
#include "support/texts.h"

#include <algorithm>

namespace tv {

namespace {

const char16_t* Translated(uint32_t key, const char16_t* text)
{
    return TSS_internal(key, u"TS", u"TVTaskAddIn", text);
}

} // namespace

std::u16string NotInstalledText(int32_t version)
{
    return FormatText(Translated(8, u"Torvane %d is not installed."), version);
}

std::u16string AttachFailedText()
{
    return Translated(9, u"Failed to attach event handlers to Torvane.");
}

std::u16string StartFailedText(int32_t version)
{
    return FormatText(Translated(10, u"Failed to start Torvane %d."), version);
}

std::u16string CloseFailedText()
{
    return Translated(11, u"Failed to close Torvane application.");
}

std::u16string HideFailedText()
{
    return Translated(93, u"Failed to set Torvane main window as invisible.");
}

std::u16string RevisionFailedText()
{
    return Translated(94, u"Failed to get Torvane revision number.");
}

std::u16string MacroFailedText(int32_t macroError)
{
    std::u16string text = Translated(12, u"Failed to run Torvane macro.");
    const auto reason = std::ranges::find(kMacroErrorReasons, macroError, &MacroErrorReason::code);
    if (reason != std::end(kMacroErrorReasons)) {
        text += u" ";
        text += Translated(95, u"Reason:");
        text += u" ";
        text += Translated(reason->key, reason->text);
    }
    return text;
}

} // namespace tv
