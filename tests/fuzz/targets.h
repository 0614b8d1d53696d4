// The parsers that are fed with arbitrary bytes, and what has to hold for each. A target throws PropertyBroken when it
// doesn't hold; crashes, endless runs and undefined behaviour are seen by the sanitizers and the fuzzer.
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tv::fuzz {

using Bytes = std::span<const uint8_t>;

struct PropertyBroken : std::logic_error
{
    using std::logic_error::logic_error;
};

void Require(bool holds, const char* property);

/// Every byte as one unit, as macro text is read.
std::u16string NarrowText(Bytes bytes);

struct Target
{
    std::string_view name;
    void (*run)(Bytes bytes);
    /// Whether macro files are seeds for it; others begin with bytes of their own.
    bool takesMacros;
};

void LexMacro(Bytes bytes);
void CompileMacro(Bytes bytes);
void RunMacro(Bytes bytes);
void RunGeneratedMacro(Bytes bytes);
void ExpandVariablesOfScript(Bytes bytes);
void ExpandTokensOfScript(Bytes bytes);
void EvaluateLiteral(Bytes bytes);

inline constexpr Target kTargets[] = {
    {"macro_lexer", LexMacro, true},
    {"macro_compiler", CompileMacro, true},
    {"macro_interpreter", RunMacro, true},
    {"macro_program", RunGeneratedMacro, false},
    {"script_variables", ExpandVariablesOfScript, true},
    {"script_tokens", ExpandTokensOfScript, false},
    {"script_literal", EvaluateLiteral, false},
};

} // namespace tv::fuzz
