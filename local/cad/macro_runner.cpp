#include "cad/macro_runner.h"

#include "cad/documents.h"
#include "cad/text.h"

namespace tv::app {

int32_t MacroErrorOf(const macro::RunResult& result)
{
    if (result.outcome == macro::Outcome::NoSuchProcedure) {
        return kMacroInvalidProcedure;
    }
    if (result.outcome != macro::Outcome::RuntimeError) {
        return kMacroCallFailed;
    }
    switch (result.number) {
    case macro::kOverflow:
        return kMacroOverflow;
    case macro::kOutOfMemory:
        return kMacroOutOfMemory;
    case macro::kSubscriptOutOfRange:
        return kMacroInvalidIndex;
    case macro::kTypeMismatch:
        return kMacroTypeMismatch;
    case macro::kTooManyFiles:
        return kMacroTooManyFiles;
    case macro::kPermissionDenied:
        return kMacroPermissionDenied;
    default:
        return kMacroUnhandledException;
    }
}

MacroRunner::MacroRunner(macro::Host& macroHost, const macro::Library& names, const macro::Limits& bounds)
    : host(macroHost), library(names), limits(bounds)
{}

MacroOutcome MacroRunner::Run(std::u16string_view path, std::u16string_view module, std::u16string_view procedure)
{
    if (!module.empty() && !SameIgnoringCase(module, u"TVMacro1")) {
        return {.error = kMacroInvalidArgument, .message = "a text macro has no module " + ToUtf8(module)};
    }
    std::u16string source;
    try {
        source = FromCodePage1252(ReadBytes(host.Files(), path));
    } catch (const macro::MacroError& error) {
        return {.error = kMacroFileOpenFailed, .message = ToUtf8(path) + ": " + ToUtf8(error.description)};
    }
    const macro::CompileResult compiled = macro::Compile(source, {.library = &library, .conditions = {}});
    if (!compiled.module) {
        std::string message = "the macro doesn't compile";
        for (const macro::Problem& problem : compiled.problems) {
            message += "; line " + std::to_string(problem.line) + ", column " + std::to_string(problem.column) + ": " +
                       ToUtf8(problem.message);
        }
        return {.error = kMacroCallFailed, .message = message};
    }
    macro::Machine machine(host, limits);
    const macro::RunResult result = machine.Run(*compiled.module, procedure);
    if (result.outcome == macro::Outcome::Ok) {
        return {.succeeded = true};
    }
    MacroOutcome failed{.error = MacroErrorOf(result),
                        .number = result.number,
                        .description = ToUtf8(result.description),
                        .line = result.line};
    failed.message = "the macro ended at line " + std::to_string(failed.line) + " with error " +
                     std::to_string(failed.number) + ": " + failed.description;
    return failed;
}

} // namespace tv::app
