#include "support/texts.h"

namespace tv {

// This build carries no translation library, and without one the English text is the text.
const char16_t* TSS_internal(uint32_t, const char16_t*, const char16_t*, const char16_t* defaultText)
{
    return defaultText;
}

} // namespace tv
