#include "cad/manager_texts.h"

#include "cad/macro_error_reasons.h"
#include "support/format.h"
#include "support/texts.h"

#include <algorithm>

namespace tv {

namespace {

/// The text of a key in the user's language. An unknown key doesn't compile.
template <uint32_t key> const char16_t* TextOf()
{
    constexpr const ManagerText* row = std::ranges::find(kManagerTexts, key, &ManagerText::key);
    static_assert(row != std::end(kManagerTexts));
    return AddInText(row->key, row->text);
}

} // namespace

std::u16string NotInstalledText(int32_t version)
{
    return FormatText(TextOf<8>(), version);
}

std::u16string AttachFailedText()
{
    return TextOf<9>();
}

std::u16string StartFailedText(int32_t version)
{
    return FormatText(TextOf<10>(), version);
}

std::u16string CloseFailedText()
{
    return TextOf<11>();
}

std::u16string HideFailedText()
{
    return TextOf<93>();
}

std::u16string RevisionFailedText()
{
    return TextOf<94>();
}

std::u16string MacroFailedText(int32_t macroError)
{
    std::u16string text = TextOf<12>();
    const auto reason = std::ranges::find(kMacroErrorReasons, macroError, &MacroErrorReason::code);
    if (reason != std::end(kMacroErrorReasons)) {
        text += u" ";
        text += TextOf<95>();
        text += u" ";
        text += AddInText(reason->key, reason->text);
    }
    return text;
}

} // namespace tv
