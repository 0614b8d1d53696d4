#include "script/tokens.h"

#include "script/literal.h"
#include "support/text_replace.h"

#include <algorithm>

namespace tv {

namespace {

using Replacements = std::array<std::u16string, kTokenCount>;

std::u16string Encoded(const Token& token, const TokenValues& values)
{
    const std::u16string& value = values.*token.value;
    return token.encoding == TokenEncoding::Literal ? EncodeLiteral(value) : value;
}

Replacements EncodeAll(const TokenValues& values)
{
    Replacements replacements;
    for (size_t i = 0; i < kTokenCount; ++i) {
        replacements[i] = Encoded(kTokens[i], values);
    }
    return replacements;
}

std::u16string ReplaceInTurn(std::u16string_view text, const Replacements& replacements)
{
    std::u16string expanded(text);
    for (size_t i = 0; i < kTokenCount; ++i) {
        expanded = ReplaceAll(expanded, kTokens[i].text, replacements[i]);
    }
    return expanded;
}

bool HoldsBracket(const std::u16string& text)
{
    return text.find_first_of(u"<>") != std::u16string::npos;
}

bool IsBeginningOfToken(std::u16string_view text)
{
    return std::ranges::any_of(kTokens, [&](const Token& token) { return token.text.starts_with(text); });
}

/// True when the text ends in what could become a token, such as "<Ver".
bool EndsInBeginningOfToken(std::u16string_view text)
{
    const size_t bracket = text.find_last_of(u"<>");
    return bracket != std::u16string_view::npos && text[bracket] == u'<' && IsBeginningOfToken(text.substr(bracket));
}

/// Index of the token that begins at a position, kTokenCount for none.
size_t TokenAt(std::u16string_view text, size_t position)
{
    size_t index = 0;
    while (index < kTokenCount && !text.substr(position).starts_with(kTokens[index].text)) {
        ++index;
    }
    return index;
}

} // namespace

std::u16string ExpandTokens(std::u16string_view text, const TokenValues& values)
{
    return ReplaceInTurn(text, EncodeAll(values));
}

ScriptText::ScriptText(std::u16string scriptText) : text(std::move(scriptText))
{
    size_t done = 0;
    for (size_t i = text.find(u'<'); i != std::u16string::npos; i = text.find(u'<', i + 1)) {
        const size_t token = TokenAt(text, i);
        if (token == kTokenCount) {
            continue;
        }
        places.push_back({i, token});
        nested = nested || EndsInBeginningOfToken(std::u16string_view(text).substr(done, i - done));
        done = i + kTokens[token].text.size();
    }
}

std::u16string ScriptText::Expand(const TokenValues& values) const
{
    const Replacements replacements = EncodeAll(values);
    // A bracket in a value, or a token inside the beginning of another, may give rise to a further token. Only then
    // does the order of the replacements show, and the text is gone through once for each token.
    if (nested || std::ranges::any_of(replacements, HoldsBracket)) {
        return ReplaceInTurn(text, replacements);
    }
    size_t size = text.size();
    for (const Place& place : places) {
        size += replacements[place.token].size();
    }
    std::u16string expanded;
    expanded.reserve(size);
    size_t done = 0;
    for (const Place& place : places) {
        expanded.append(text, done, place.position - done);
        expanded += replacements[place.token];
        done = place.position + kTokens[place.token].text.size();
    }
    expanded.append(text, done);
    return expanded;
}

} // namespace tv
