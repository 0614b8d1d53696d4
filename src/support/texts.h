// The lookup that every text shown to a person goes through.
#pragma once

#include <cstdint>

namespace tv {

/// Returns the translated text of a key, or the default text when there is no translation. The pointer stays valid as
/// long as `defaultText` does, which is the life of the module for the literals that callers pass.
///
/// \param key         number that belongs to the text for good
/// \param prefix      table prefix, u"TS"
/// \param section     u"TVTaskAddIn", or the section of the library that owns the text
/// \param defaultText the English text
const char16_t* TSS_internal(uint32_t key, const char16_t* prefix, const char16_t* section,
                             const char16_t* defaultText);

/// A text of the add-in's own section.
inline const char16_t* AddInText(uint32_t key, const char16_t* defaultText)
{
    return TSS_internal(key, u"TS", u"TVTaskAddIn", defaultText);
}

} // namespace tv
