#include "macro/parser.h"

#include "macro/text.h"

#include <algorithm>
#include <array>

namespace tv::macro {

namespace {

constexpr auto kReservedWords = std::to_array<std::u16string_view>({
    u"addressof", u"and",     u"any",     u"as",     u"boolean",  u"byref",      u"byte",    u"byval",
    u"call",      u"case",    u"close",   u"const",  u"currency", u"date",       u"declare", u"dim",
    u"do",        u"double",  u"each",    u"else",   u"elseif",   u"empty",      u"end",     u"endif",
    u"enum",      u"eqv",     u"erase",   u"event",  u"exit",     u"false",      u"for",     u"friend",
    u"function",  u"get",     u"global",  u"gosub",  u"goto",     u"if",         u"imp",     u"implements",
    u"in",        u"input",   u"integer", u"is",     u"let",      u"like",       u"lock",    u"long",
    u"longlong",  u"longptr", u"loop",    u"lset",   u"mod",      u"new",        u"next",    u"not",
    u"nothing",   u"null",    u"on",      u"open",   u"option",   u"optional",   u"or",      u"paramarray",
    u"preserve",  u"print",   u"private", u"public", u"put",      u"raiseevent", u"redim",   u"rem",
    u"resume",    u"return",  u"rset",    u"select", u"set",      u"single",     u"static",  u"stop",
    u"string",    u"sub",     u"then",    u"to",     u"true",     u"type",       u"typeof",  u"unlock",
    u"until",     u"variant", u"wend",    u"while",  u"with",     u"withevents", u"write",   u"xor",
});

} // namespace

Expression::~Expression()
{
    // A joined text of thousands of terms is a chain as deep; it is taken apart without recursion.
    while (base) {
        ExpressionPtr next = std::move(base->base);
        base.reset();
        base = std::move(next);
    }
}

bool IsReservedWord(std::u16string_view folded)
{
    return std::find(kReservedWords.begin(), kReservedWords.end(), folded) != kReservedWords.end();
}

Parser::DepthGuard::DepthGuard(Parser& owner) : parser(owner)
{
    constexpr int kMostNested = 250;
    if (++parser.depth > kMostNested) {
        --parser.depth;
        parser.Fail(u"Too deeply nested");
    }
}

bool Parser::IsSymbol(const Token& token, std::u16string_view text)
{
    return token.kind == TokenKind::Symbol && token.text == text;
}

bool Parser::IsWord(const Token& token, std::u16string_view folded)
{
    return token.kind == TokenKind::Name && !token.isBracketed && token.folded == folded;
}

bool Parser::TakeSymbol(std::u16string_view text)
{
    bool found = IsSymbol(text);
    at += found ? 1 : 0;
    return found;
}

bool Parser::TakeWord(std::u16string_view folded)
{
    bool found = IsWord(folded);
    at += found ? 1 : 0;
    return found;
}

void Parser::ExpectSymbol(std::u16string_view text)
{
    if (!TakeSymbol(text)) {
        Expected(text);
    }
}

void Parser::ExpectWord(std::u16string_view folded, std::u16string_view shown)
{
    if (!TakeWord(folded)) {
        Expected(shown);
    }
}

bool Parser::AtEndOfLine() const
{
    return Current().kind == TokenKind::EndOfLine || Current().kind == TokenKind::EndOfText;
}

bool Parser::AtEndOfStatement() const
{
    return AtEndOfLine() || IsSymbol(u":");
}

void Parser::ExpectEndOfStatement()
{
    if (!AtEndOfStatement()) {
        Expected(u"end of statement");
    }
}

void Parser::SkipLineEnds()
{
    while (Current().kind == TokenKind::EndOfLine || IsSymbol(u":")) {
        ++at;
    }
}

const Token& Parser::ExpectName()
{
    const Token& token = Current();
    if (token.kind != TokenKind::Name || (!token.isBracketed && IsReservedWord(token.folded))) {
        Expected(u"identifier");
    }
    ++at;
    return token;
}

void Parser::Fail(std::u16string message) const
{
    if (Current().kind == TokenKind::Bad) {
        throw CompileFailure{Here(), Current().text};
    }
    throw CompileFailure{Here(), std::move(message)};
}

void Parser::Expected(std::u16string_view what) const
{
    Fail(u"Expected: " + std::u16string(what));
}

void Parser::Unsupported(std::u16string_view what) const
{
    Fail(std::u16string(what) + u" is not supported by this macro language");
}

} // namespace tv::macro
