// Warnings about a task's script and the macro that it becomes: what a run would take without a word and then do
// otherwise than the author meant. Nothing here changes what a run does.
#pragma once

#include "host/macro_findings.h"
#include "host/script_expansion.h"

#include "macro/macro.h"

namespace tv::local {

enum class LintRule
{
    UnclosedPlaceholder,
    EndlessPlaceholder,
    UnknownVariable,
    NothingInCode,
    QuoteInValue,
    LineEndInValue,
    UnknownToken,
    TokenCase,
    TokenWithoutValue,
    TooManyContinuedLines,
    LostCharacter,
    UndeclaredName,
};

struct LintRuleRow
{
    LintRule rule;
    std::string_view name;
    /// The text in which it names line and column.
    FindingText text;
};

inline constexpr LintRuleRow kLintRules[] = {
    {LintRule::UnclosedPlaceholder, "unclosed-placeholder", FindingText::Script},
    {LintRule::EndlessPlaceholder, "endless-placeholder", FindingText::Script},
    {LintRule::UnknownVariable, "unknown-variable", FindingText::Script},
    {LintRule::NothingInCode, "nothing-in-code", FindingText::Script},
    {LintRule::QuoteInValue, "quote-in-value", FindingText::Script},
    {LintRule::LineEndInValue, "line-end-in-value", FindingText::Script},
    {LintRule::UnknownToken, "unknown-token", FindingText::Script},
    {LintRule::TokenCase, "token-case", FindingText::Script},
    {LintRule::TokenWithoutValue, "token-without-value", FindingText::Script},
    {LintRule::TooManyContinuedLines, "too-many-continued-lines", FindingText::Macro},
    {LintRule::LostCharacter, "lost-character", FindingText::Macro},
    {LintRule::UndeclaredName, "undeclared-name", FindingText::Macro},
};

/// The variables of a task, as the placeholders of its script reach them.
struct ScriptVariables
{
    PlaceholderLookup find;
    std::vector<std::u16string> names;
};

struct ScriptLint
{
    /// In the order of the script.
    std::vector<MacroFinding> findings;
    /// A run would never be done with the script, so nobody may expand it.
    bool neverEnds = false;
};

/// Looks at the script of a task before anything is put into it.
ScriptLint LintScript(std::u16string_view script, const ScriptVariables& variables);

/// Looks at the macro that a run would give the application. \param library what the application lets macros name
std::vector<MacroFinding> LintMacro(std::u16string_view macro, const macro::Library& library);

} // namespace tv::local
