// Variables that a macro uses without declaring them, and what they may have been meant to be.
#include "macro/compiler.h"
#include "macro/lexer.h"
#include "macro/parser.h"
#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

namespace {

constexpr size_t kShortestCompared = 4;
constexpr size_t kLongName = 8;

bool IsDigitUnit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

std::u16string WithoutDigits(std::u16string_view name)
{
    std::u16string letters(name);
    std::erase_if(letters, IsDigitUnit);
    return letters;
}

bool IsPluralOf(std::u16string_view longer, std::u16string_view shorter)
{
    return longer.size() == shorter.size() + 1 && longer.starts_with(shorter) && longer.back() == u's';
}

/// Letters left out, added, changed or swapped with their neighbour between two names.
size_t SlipsBetween(std::u16string_view left, std::u16string_view right)
{
    std::vector<size_t> beforeLast(right.size() + 1);
    std::vector<size_t> last(right.size() + 1);
    std::vector<size_t> row(right.size() + 1);
    for (size_t j = 0; j <= right.size(); ++j) {
        row[j] = j;
    }
    for (size_t i = 1; i <= left.size(); ++i) {
        beforeLast.swap(last);
        last.swap(row);
        row[0] = i;
        for (size_t j = 1; j <= right.size(); ++j) {
            const size_t changed = last[j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1);
            row[j] = std::min({changed, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
    }
    return row[right.size()];
}

/// Each name as the text spells it first.
std::unordered_map<std::u16string, std::u16string> SpellingsOf(const std::vector<Token>& tokens)
{
    std::unordered_map<std::u16string, std::u16string> spellings;
    for (const Token& token : tokens) {
        if (token.kind == TokenKind::Name) {
            spellings.emplace(token.folded, token.text);
        }
    }
    return spellings;
}

} // namespace

bool LooksMisspelled(std::u16string_view name, std::u16string_view meant)
{
    const std::u16string left = Lower(name);
    const std::u16string right = Lower(meant);
    const size_t shorter = std::min(left.size(), right.size());
    const size_t most = shorter >= kLongName ? 2 : 1;
    if (left == right || shorter < kShortestCompared || std::max(left.size(), right.size()) - shorter > most) {
        return false;
    }
    if (WithoutDigits(left) == WithoutDigits(right) || IsPluralOf(left, right) || IsPluralOf(right, left)) {
        return false;
    }
    return SlipsBetween(left, right) <= most;
}

UndeclaredVariable* Compiler::UsesOf(const Variable& variable)
{
    return variable.undeclared < 0 ? nullptr : &undeclared[static_cast<size_t>(variable.undeclared)];
}

void Compiler::NoteHandedToMember(const Expression& argument)
{
    const Variable* variable = argument.kind == ExpressionKind::Name ? FindVariable(Lower(argument.name)) : nullptr;
    UndeclaredVariable* uses = variable != nullptr ? UsesOf(*variable) : nullptr;
    if (uses != nullptr) {
        --uses->handedToProcedures;
        ++uses->handedToMembers;
    }
}

void Compiler::FindSimilarNames(size_t firstUndeclared)
{
    std::vector<std::u16string> declared;
    for (const auto& [name, variable] : scope->variables) {
        if (variable.undeclared < 0) {
            declared.push_back(name);
        }
    }
    for (const auto& [name, value] : scope->constants) {
        declared.push_back(name);
    }
    for (const auto& [name, symbol] : symbols) {
        declared.push_back(name);
    }
    std::ranges::sort(declared);
    for (size_t i = firstUndeclared; i < undeclared.size(); ++i) {
        const auto similar = std::ranges::find_if(
            declared, [&](const std::u16string& name) { return LooksMisspelled(undeclared[i].name, name); });
        undeclared[i].similarName = similar == declared.end() ? u"" : *similar;
    }
}

std::vector<UndeclaredVariable> UndeclaredVariables(std::u16string_view source, const CompileOptions& options)
{
    try {
        std::vector<Token> tokens = Tokenize(source, options);
        const auto spellings = SpellingsOf(tokens);
        ModuleSyntax tree = Parser(std::move(tokens)).ParseModule();
        tree.optionExplicit = false;
        Compiler compiler(tree, options);
        compiler.comparesNames = true;
        compiler.Run();
        for (UndeclaredVariable& variable : compiler.undeclared) {
            const auto spelling = spellings.find(variable.similarName);
            variable.similarName = spelling == spellings.end() ? u"" : spelling->second;
        }
        return std::move(compiler.undeclared);
    } catch (const CompileFailure&) {
        return {};
    }
}

} // namespace tv::macro
