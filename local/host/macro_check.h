// Whether the application would take a macro at all.
#pragma once

#include "host/macro_findings.h"

namespace tv::local {

/// What the application's compiler would refuse, in the order of the macro; nothing for a macro that runs.
std::vector<MacroFinding> CheckMacro(std::u16string_view macro);

} // namespace tv::local
