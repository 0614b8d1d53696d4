// What is wrong with the script of a task.
#include "host/macro_lint.h"
#include "host/script_contexts.h"

#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

/// Who puts a value in the place of a token.
enum class TokenOwner
{
    Run,
    /// The run, but only when an output path asks for one of these.
    RunIfAsked,
    /// The macro itself, which knows the open document.
    Macro,
};

struct ScriptToken
{
    std::u16string_view name;
    TokenOwner owner;
};

constexpr ScriptToken kTokens[] = {
    {u"Filename", TokenOwner::Macro},      {u"Extension", TokenOwner::Macro},
    {u"Configuration", TokenOwner::Macro}, {u"Path", TokenOwner::Run},
    {u"VaultPath", TokenOwner::Run},       {u"Revision", TokenOwner::RunIfAsked},
    {u"Version", TokenOwner::Run},         {u"WorkflowState", TokenOwner::RunIfAsked},
    {u"Today", TokenOwner::Run},           {u"TaskInstanceGuid", TokenOwner::Run},
    {u"Filepath", TokenOwner::Run},        {u"SelCfgOrSheet", TokenOwner::Run},
};

bool IsLetter(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

bool IsNameUnit(char16_t unit)
{
    return IsLetter(unit) || (unit >= u'0' && unit <= u'9') || unit == u'_';
}

bool IsName(std::u16string_view text)
{
    return !text.empty() && !(text.front() >= u'0' && text.front() <= u'9') && std::ranges::all_of(text, IsNameUnit);
}

bool SameIgnoringCase(std::u16string_view left, std::u16string_view right)
{
    return SameName(Utf8(left), Utf8(right));
}

/// A variable or token that was probably meant: the same in other capitals, or one slip of the hand away.
template <typename Names> std::string MeantName(std::u16string_view name, const Names& names)
{
    for (std::u16string_view candidate : names) {
        if (SameIgnoringCase(name, candidate)) {
            return Utf8(candidate);
        }
    }
    for (std::u16string_view candidate : names) {
        if (macro::LooksMisspelled(name, candidate)) {
            return Utf8(candidate);
        }
    }
    return {};
}

std::string CharacterCode(char16_t open)
{
    return "ChrW(" + std::to_string(open) + ")";
}

bool HoldsLoneLineEnd(std::u16string_view text)
{
    for (size_t i = 0; i < text.size(); ++i) {
        const bool endsPair = text[i] == u'\n' && i > 0 && text[i - 1] == u'\r';
        const bool beginsPair = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        if ((text[i] == u'\n' && !endsPair) || (text[i] == u'\r' && !beginsPair)) {
            return true;
        }
    }
    return false;
}

/// Whether a double quote stands alone. Two of them are one quote of the text.
bool HoldsLoneQuote(std::u16string_view text)
{
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'"') {
            if (i + 1 == text.size() || text[i + 1] != u'"') {
                return true;
            }
            ++i;
        }
    }
    return false;
}

class ScriptLinter
{
  public:
    ScriptLinter(std::u16string_view text, const ScriptVariables& taskVariables)
        : script(text), lines(text), variables(taskVariables), expanded(ExpandScript(text, taskVariables.find))
    {
        std::vector<std::pair<size_t, size_t>> own;
        for (const Placeholder& placeholder : expanded.placeholders) {
            if (placeholder.broughtBy.empty()) {
                own.emplace_back(placeholder.offset, placeholder.length);
            }
        }
        std::ranges::sort(own);
        // A placeholder of the second pass may lie around one of the first.
        for (const auto& [offset, length] : own) {
            if (opaque.empty() || offset >= opaque.back().first + opaque.back().second) {
                opaque.emplace_back(offset, length);
            }
        }
        contexts = ContextsOf(script, opaque);
    }

    ScriptLint Lint()
    {
        for (const EndlessPass& pass : expanded.endless) {
            AddEndless(pass);
        }
        for (const Placeholder& placeholder : expanded.placeholders) {
            LintPlaceholder(placeholder);
        }
        LintTokens();
        std::ranges::stable_sort(found.findings, [](const MacroFinding& left, const MacroFinding& right) {
            return std::pair(left.line, left.column) < std::pair(right.line, right.column);
        });
        const auto repeated = std::ranges::unique(found.findings);
        found.findings.erase(repeated.begin(), repeated.end());
        return std::move(found);
    }

  private:
    void Add(LintRule rule, size_t offset, std::string message)
    {
        const auto row = std::ranges::find(kLintRules, rule, &LintRuleRow::rule);
        const TextPlace place = lines.PlaceOf(offset);
        found.findings.push_back({row->text, place.line, place.column, std::string(row->name), std::move(message)});
    }

    void AddEndless(const EndlessPass& pass)
    {
        found.neverEnds = true;
        const std::string variable = Utf8(pass.variable);
        if (pass.reason == EndlessPass::Reason::Growing) {
            Add(LintRule::EndlessPlaceholder, pass.offset,
                "A run never ends here: the value of " + variable +
                    " holds placeholders that bring it in again and again; take them out of the value.");
            return;
        }
        const std::string open = Utf8({&pass.open, 1});
        const std::string close = pass.open == u'{' ? "}" : "]";
        Add(LintRule::UnclosedPlaceholder, pass.offset,
            (variable.empty() ? "This " + open + " has" : "The value of " + variable + " holds a " + open + " with") +
                " no " + close + " behind it, and a run never ends there; close it, or write " +
                CharacterCode(pass.open) + " outside of the double quotes for the character itself.");
    }

    ScriptContext ContextAt(size_t offset) const
    {
        return offset < contexts.size() ? contexts[offset] : ScriptContext::Code;
    }

    bool StandsAlone(const Placeholder& placeholder) const
    {
        std::u16string_view line = lines.Line(lines.PlaceOf(placeholder.offset).line);
        const size_t first = line.find_first_not_of(u" \t");
        line = line.substr(std::min(first, line.size()));
        return line.substr(0, line.find_last_not_of(u" \t") + 1) == placeholder.text;
    }

    void LintPlaceholder(const Placeholder& placeholder)
    {
        const ScriptContext context = ContextAt(placeholder.offset);
        if (!placeholder.value) {
            AddUnknownVariable(placeholder, context);
            return;
        }
        const std::string name = Utf8(placeholder.name);
        const std::u16string value = ValueText(*placeholder.value);
        if (value.empty()) {
            if (context == ScriptContext::Code && placeholder.broughtBy.empty() && !StandsAlone(placeholder)) {
                Add(LintRule::NothingInCode, placeholder.offset,
                    name + " is empty, so nothing stands here in the statement; give it a value, or set the "
                           "placeholder between double quotes.");
            }
            return;
        }
        if (placeholder.value->type == VT_BSTR) {
            LintText(placeholder, name, value, context);
        }
    }

    void LintText(const Placeholder& placeholder, const std::string& name, std::u16string_view value,
                  ScriptContext context)
    {
        if (context == ScriptContext::Text && HoldsLoneQuote(value)) {
            Add(LintRule::QuoteInValue, placeholder.offset,
                "The value of " + name +
                    " holds a double quote, which ends the text around it early; write the quote twice in the value.");
        }
        if (HoldsLoneLineEnd(value)) {
            Add(LintRule::LineEndInValue, placeholder.offset,
                "The value of " + name +
                    " holds a CR or LF on its own, which breaks the line here; let its lines end in CR LF.");
        } else if (context == ScriptContext::Code && value.find(u"\r\n") != std::u16string_view::npos) {
            Add(LintRule::LineEndInValue, placeholder.offset,
                "The value of " + name +
                    " has several lines, which a run joins by \"+vbLf+\"; that is wrong in code, so set the "
                    "placeholder between double quotes.");
        }
    }

    void AddUnknownVariable(const Placeholder& placeholder, ScriptContext context)
    {
        const size_t lineEnd = placeholder.text.find_first_of(u"\r\n");
        const bool spansLines = lineEnd != std::u16string::npos;
        if (context == ScriptContext::Comment && !spansLines) {
            return; // What vanishes from a comment is missed by nobody.
        }
        const char16_t open = placeholder.text.front();
        const std::string shown = Utf8(placeholder.text.substr(0, spansLines ? lineEnd : std::u16string::npos));
        std::string message =
            placeholder.broughtBy.empty() ? "" : "In the value of " + Utf8(placeholder.broughtBy) + ": ";
        message +=
            shown + (spansLines ? "… names no variable of the task, so everything up to line " +
                                      std::to_string(lines.PlaceOf(placeholder.offset + placeholder.length).line) +
                                      " vanishes at a run"
                                : " names no variable of the task, so nothing stands here at a run");
        const std::string meant = MeantName(placeholder.name, variables.names);
        if (!meant.empty()) {
            message += "; is " + meant + " meant?";
        } else if (IsName(placeholder.name)) {
            message += "; to make it: tvtask task set TASK " + Utf8(placeholder.name) + ":text=VALUE";
        } else {
            message += "; brackets make a placeholder wherever they stand, so write " + CharacterCode(open) +
                       " outside of the double quotes for the character itself.";
        }
        Add(LintRule::UnknownVariable, placeholder.offset, std::move(message));
    }

    // Tokens, which are looked for where a run does: in the script with its variables put in.

    void LintTokens()
    {
        const std::u16string& text = expanded.text;
        for (size_t at = text.find(u'<'); at != std::u16string::npos; at = text.find(u'<', at + 1)) {
            size_t end = at + 1;
            while (end < text.size() && IsNameUnit(text[end])) {
                ++end;
            }
            if (end > at + 1 && end < text.size() && text[end] == u'>' && IsLetter(text[at + 1])) {
                LintToken(at, std::u16string_view(text).substr(at + 1, end - at - 1));
            }
        }
    }

    void LintToken(size_t at, std::u16string_view name)
    {
        const ExpandedScript::Origin origin = expanded.origins[at];
        const ScriptContext context = ContextAt(origin.offset);
        if (context == ScriptContext::Comment) {
            return;
        }
        const auto exact = std::ranges::find(kTokens, name, &ScriptToken::name);
        if (exact != std::end(kTokens)) {
            LintKnownToken(*exact, origin);
            return;
        }
        if (IsMarkup(name) || (context == ScriptContext::Code && StandsBehindOperand(at))) {
            return;
        }
        const auto otherCase =
            std::ranges::find_if(kTokens, [&](const ScriptToken& token) { return SameIgnoringCase(token.name, name); });
        const std::string shown = Prefix(origin) + "<" + Utf8(name) + "> is no token, so it stays as it is";
        if (otherCase != std::end(kTokens)) {
            Add(LintRule::TokenCase, origin.offset, shown + "; write <" + Utf8(otherCase->name) + ">.");
            return;
        }
        std::vector<std::u16string_view> names;
        for (const ScriptToken& token : kTokens) {
            names.push_back(token.name);
        }
        const std::string meant = MeantName(name, names);
        Add(LintRule::UnknownToken, origin.offset, shown + (meant.empty() ? "." : "; is <" + meant + "> meant?"));
    }

    void LintKnownToken(const ScriptToken& token, const ExpandedScript::Origin& origin)
    {
        const std::string name = Utf8(token.name);
        if (token.owner == TokenOwner::Macro && !MacroReplaces(token.name)) {
            Add(LintRule::UnknownToken, origin.offset,
                Prefix(origin) + "<" + name + "> is left to the macro, and this one doesn't replace it; write for " +
                    "example Replace(path, \"<" + name + ">\", name).");
        }
        if (token.owner == TokenOwner::RunIfAsked && !OutputPathsAskForFileInfo()) {
            Add(LintRule::TokenWithoutValue, origin.offset,
                Prefix(origin) + "<" + name +
                    "> stays empty: a run asks the vault for it only when OutputPath or OutputPath2 holds <Revision> "
                    "or <WorkflowState>.");
        }
    }

    std::string Prefix(const ExpandedScript::Origin& origin) const
    {
        return origin.placeholder < 0
                   ? std::string()
                   : "In the value of " + Utf8(expanded.placeholders[static_cast<size_t>(origin.placeholder)].name) +
                         ": ";
    }

    /// A macro that hands a token alone to a function, as its second argument or later, does something about it.
    bool MacroReplaces(std::u16string_view token) const
    {
        const std::u16string alone = u"\"<" + std::u16string(token) + u">\"";
        for (size_t at = script.find(alone); at != std::u16string_view::npos; at = script.find(alone, at + 1)) {
            const size_t before = script.substr(0, at).find_last_not_of(u" \t");
            if (before != std::u16string_view::npos && script[before] == u',') {
                return true;
            }
        }
        return false;
    }

    bool IsMarkup(std::u16string_view name) const
    {
        return expanded.text.find(u"</" + std::u16string(name) + u">") != std::u16string::npos;
    }

    /// Whether what stands in front is a value, so that the bracket compares.
    bool StandsBehindOperand(size_t at) const
    {
        const size_t before = std::u16string_view(expanded.text).substr(0, at).find_last_not_of(u" \t");
        if (before == std::u16string::npos) {
            return false;
        }
        const char16_t unit = expanded.text[before];
        return IsNameUnit(unit) || unit == u')' || unit == u'"' || unit == u']' || unit >= 0x80;
    }

    bool OutputPathsAskForFileInfo() const
    {
        for (const char16_t* name : {u"OutputPath", u"OutputPath2"}) {
            const auto value = variables.find(u'[', name);
            const std::u16string text = value ? ValueText(*value) : std::u16string();
            if (text.find(u"<Revision>") != std::u16string::npos ||
                text.find(u"<WorkflowState>") != std::u16string::npos) {
                return true;
            }
        }
        return false;
    }

    std::u16string_view script;
    TextLines lines;
    const ScriptVariables& variables;
    ExpandedScript expanded;
    std::vector<std::pair<size_t, size_t>> opaque;
    std::vector<ScriptContext> contexts;
    ScriptLint found;
};

} // namespace

ScriptLint LintScript(std::u16string_view script, const ScriptVariables& variables)
{
    return ScriptLinter(script, variables).Lint();
}

} // namespace tv::local
