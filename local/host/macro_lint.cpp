// What is wrong with the macro that a script became.
#include "host/macro_lint.h"

#include "cad/constants.h"
#include "macro/text.h"
#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

/// The language takes a statement of 25 lines.
constexpr int kMostContinuedLines = 24;

MacroFinding Finding(LintRule rule, TextPlace place, std::string message)
{
    const auto row = std::ranges::find(kLintRules, rule, &LintRuleRow::rule);
    return {row->text, place.line, place.column, std::string(row->name), std::move(message)};
}

bool IsContinued(std::u16string_view line)
{
    const size_t last = line.find_last_not_of(u" \t");
    return last != std::u16string_view::npos && last > 0 && line[last] == u'_' &&
           (line[last - 1] == u' ' || line[last - 1] == u'\t');
}

void FindContinuedLines(const TextLines& lines, std::vector<MacroFinding>& findings)
{
    int first = 1;
    for (int line = 1; line <= lines.Count(); ++line) {
        if (IsContinued(lines.Line(line))) {
            continue;
        }
        const int continued = line - first;
        if (continued > kMostContinuedLines) {
            const size_t column = lines.Line(first).find_first_not_of(u" \t");
            findings.push_back(Finding(LintRule::TooManyContinuedLines, {first, static_cast<int>(column) + 1},
                                       "This statement is continued on " + std::to_string(continued) +
                                           " lines, and the language takes 24; shorten the texts in it, or build them "
                                           "up in several statements."));
        }
        first = line + 1;
    }
}

/// One finding for each line that holds such characters, at the first of them.
void FindLostCharacters(const TextLines& lines, std::vector<MacroFinding>& findings)
{
    const auto isLost = [](char16_t unit) { return unit != u'?' && macro::UnitToNarrow(unit) == '?'; };
    for (int line = 1; line <= lines.Count(); ++line) {
        const std::u16string_view text = lines.Line(line);
        const auto lost = std::ranges::find_if(text, isLost);
        if (lost == text.end()) {
            continue;
        }
        const size_t at = static_cast<size_t>(lost - text.begin());
        const bool isPair = *lost >= 0xD800 && *lost < 0xDC00 && at + 1 < text.size();
        findings.push_back(
            Finding(LintRule::LostCharacter, {line, static_cast<int>(at) + 1},
                    "'" + Utf8(text.substr(at, isPair ? 2 : 1)) +
                        "' isn't in code page 1252, in which a run writes the macro, and becomes '?'; write ChrW(" +
                        std::to_string(*lost) + (isPair ? ") & ChrW(" + std::to_string(text[at + 1]) : "") +
                        ") outside of the double quotes."));
    }
}

std::string SimilarConstant(std::u16string_view name)
{
    const auto similar = std::ranges::find_if(
        app::kConstants, [&](const app::Constant& constant) { return macro::LooksMisspelled(name, constant.name); });
    return similar == std::end(app::kConstants) ? std::string() : Utf8(similar->name);
}

/// A local that nobody declares is common, and fine when it is given a value. What is left is either a slip of the hand
/// or a name that is only ever asked for its value.
void FindUndeclaredNames(std::u16string_view macro, const macro::Library& library, std::vector<MacroFinding>& findings)
{
    for (const macro::UndeclaredVariable& variable : macro::UndeclaredVariables(macro, {&library, {}})) {
        const int handedOver = variable.handedToMembers + variable.handedToProcedures;
        const bool isOnlyRead = variable.assignments == 0 && variable.reads > 0 && handedOver == 0;
        // Another procedure may give it a value, but then somebody would look at it.
        const bool isHandedOverOnce = variable.assignments == 0 && variable.reads == 0 &&
                                      variable.handedToMembers == 0 && variable.handedToProcedures == 1;
        const std::string name = Utf8(variable.name);
        std::string meant = Utf8(variable.similarName);
        if (meant.empty() && (isOnlyRead || isHandedOverOnce)) {
            meant = SimilarConstant(variable.name);
        }
        if (!meant.empty()) {
            findings.push_back(Finding(LintRule::UndeclaredName, {variable.line, variable.column},
                                       name + " isn't declared; is " + meant + " meant?"));
        } else if (isOnlyRead || isHandedOverOnce) {
            findings.push_back(Finding(LintRule::UndeclaredName, {variable.line, variable.column},
                                       name + " isn't declared and never gets a value in this procedure, so it is "
                                              "empty; declare it, or correct the name."));
        }
    }
}

} // namespace

std::vector<MacroFinding> LintMacro(std::u16string_view macro, const macro::Library& library)
{
    std::vector<MacroFinding> findings;
    const TextLines lines(macro);
    FindContinuedLines(lines, findings);
    FindLostCharacters(lines, findings);
    FindUndeclaredNames(macro, library, findings);
    std::ranges::stable_sort(findings, [](const MacroFinding& left, const MacroFinding& right) {
        return std::pair(left.line, left.column) < std::pair(right.line, right.column);
    });
    return findings;
}

} // namespace tv::local
