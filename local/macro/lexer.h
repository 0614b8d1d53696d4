#pragma once

#include "macro/macro.h"
#include "macro/syntax.h"

namespace tv::macro {

enum class TokenKind
{
    Name,
    Literal,
    Symbol,
    EndOfLine,
    EndOfText,
    /// Something that is no token; its text is the message. It matters only where #If doesn't leave it out.
    Bad,
};

struct Token
{
    TokenKind kind = TokenKind::EndOfText;
    Position at;
    /// As written; for a symbol its canonical form.
    std::u16string text;
    /// Lower-case form of a name.
    std::u16string folded;
    Value literal;
    char16_t suffix = 0;
    bool startsLine = false;
    bool spaceBefore = false;
    /// Written in brackets, so that it is no keyword.
    bool isBracketed = false;
};

/// Splits a text into tokens. Comments, continued lines and what #If leaves out are gone.
std::vector<Token> Tokenize(std::u16string_view source, const CompileOptions& options);

/// The tokens without those that #If, #ElseIf and #Else leave out, and without the directives.
std::vector<Token> FilterConditions(std::vector<Token> tokens, const CompileOptions& options);

} // namespace tv::macro
