// Names for outputs that cover all sheets or all configurations.
#pragma once

#include "cad/output_names.h"

namespace tv {

struct NameOfAll
{
    OutputKind kind;
    uint32_t key; ///< number of the translated text
    const char16_t* text;
};

inline constexpr NameOfAll kNamesOfAll[] = {
    {OutputKind::Sheet, 170, u"All sheets"},
    {OutputKind::Configuration, 169, u"All configurations"},
};

} // namespace tv
