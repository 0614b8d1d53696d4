#include "fuzz_host.h"
#include "program_generator.h"
#include "targets.h"

#include "macro/lexer.h"

namespace tv::fuzz {

namespace {

std::vector<macro::Token> TokensOf(Bytes bytes)
{
    try {
        return macro::Tokenize(NarrowText(bytes), {});
    } catch (const macro::CompileFailure& failure) {
        // Of conditional compilation, which the lexer carries out.
        Require(failure.at.line >= 1 && !failure.message.empty(), "a problem has a place and a message");
        return {macro::Token{}};
    }
}

} // namespace

void LexMacro(Bytes bytes)
{
    const std::vector<macro::Token> tokens = TokensOf(bytes);
    if (tokens.size() == 1) {
        return;
    }
    Require(!tokens.empty() && tokens.back().kind == macro::TokenKind::EndOfText,
            "tokens end with the end of the text");
    int line = 1;
    for (const macro::Token& token : tokens) {
        Require(token.at.line >= line && token.at.column >= 1, "tokens stand one behind the other");
        line = token.at.line;
    }
}

void CompileMacro(Bytes bytes)
{
    const macro::CompileResult compiled = macro::Compile(NarrowText(bytes));
    Require((compiled.module != nullptr) == compiled.problems.empty(), "a text is a module or has problems");
}

void RunMacro(Bytes bytes)
{
    CompileAndRun(NarrowText(bytes));
}

void RunGeneratedMacro(Bytes bytes)
{
    CompileAndRun(GenerateProgram(bytes));
}

} // namespace tv::fuzz
