#include "host/macro_check.h"

#include "cad/macro_library.h"
#include "vault/text.h"

#include <algorithm>

namespace tv::local {

std::vector<MacroFinding> CheckMacro(std::u16string_view macro)
{
    const app::MacroLibrary library;
    std::vector<MacroFinding> findings;
    for (const macro::Problem& problem : macro::Compile(macro, {&library, {}}).problems) {
        findings.push_back({FindingText::Macro, problem.line, problem.column, {}, Utf8(problem.message)});
    }
    std::ranges::stable_sort(findings, [](const MacroFinding& left, const MacroFinding& right) {
        return std::pair(left.line, left.column) < std::pair(right.line, right.column);
    });
    return findings;
}

} // namespace tv::local
