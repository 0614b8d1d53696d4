#include "cad/manager_texts.h"

#include "cad/macro_error_reasons.h"
#include "support/format.h"
#include "support/texts.h"

#include <algorithm>

namespace tv {

std::u16string NotInstalledText(int32_t version)
{
    return FormatText(AddInText(8, u"Torvane %d is not installed."), version);
}

std::u16string AttachFailedText()
{
    return AddInText(9, u"Failed to attach event handlers to Torvane.");
}

std::u16string StartFailedText(int32_t version)
{
    return FormatText(AddInText(10, u"Failed to start Torvane %d."), version);
}

std::u16string CloseFailedText()
{
    return AddInText(11, u"Failed to close Torvane application.");
}

std::u16string HideFailedText()
{
    return AddInText(93, u"Failed to set Torvane main window as invisible.");
}

std::u16string RevisionFailedText()
{
    return AddInText(94, u"Failed to get Torvane revision number.");
}

std::u16string MacroFailedText(int32_t macroError)
{
    std::u16string text = AddInText(12, u"Failed to run Torvane macro.");
    const auto reason = std::ranges::find(kMacroErrorReasons, macroError, &MacroErrorReason::code);
    if (reason != std::end(kMacroErrorReasons)) {
        text += u" ";
        text += AddInText(95, u"Reason:");
        text += u" ";
        text += AddInText(reason->key, reason->text);
    }
    return text;
}

} // namespace tv
