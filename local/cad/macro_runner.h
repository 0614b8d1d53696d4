// Runs macro files for the application.
#pragma once

#include "macro/macro.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tv::app {

/// Codes by which RunMacroEx tells why a macro failed.
enum MacroError : int32_t
{
    kMacroInvalidArgument = 1,
    kMacroOutOfMemory = 5,
    kMacroInvalidProcedure = 6,
    kMacroUnhandledException = 12,
    kMacroOverflow = 13,
    kMacroTypeMismatch = 14,
    kMacroCallFailed = 20,
    kMacroInvalidIndex = 22,
    kMacroPermissionDenied = 23,
    kMacroTooManyFiles = 25,
    kMacroFileOpenFailed = 28,
};

struct MacroOutcome
{
    bool succeeded = false;
    int32_t error = 0; ///< of MacroError, 0 for none
    std::string message{};
    /// The language's own error, where one ended the macro: number, words and the line of the macro.
    int32_t number = 0;
    std::string description{};
    int32_t line = 0;
};

/// The code for a run-time error that no handler of the macro took.
int32_t MacroErrorOf(const macro::RunResult& result);

/// Reads, compiles and runs a procedure of a macro file in code page 1252. The module's name is "TVMacro1" or empty:
/// a text macro has one module.
class MacroRunner
{
  public:
    MacroRunner(macro::Host& host, const macro::Library& library, const macro::Limits& limits);
    MacroOutcome Run(std::u16string_view path, std::u16string_view module, std::u16string_view procedure);

  private:
    macro::Host& host;
    const macro::Library& library;
    macro::Limits limits;
};

} // namespace tv::app
