#include "local_macro/script_world.h"

namespace tv::macro {

std::u16string Wide(std::string_view ascii)
{
    std::u16string text;
    for (char byte : ascii) {
        text.push_back(static_cast<unsigned char>(byte));
    }
    return text;
}

std::string Narrow(std::u16string_view text)
{
    std::string bytes;
    for (char16_t unit : text) {
        bytes.push_back(unit < 256 ? static_cast<char>(unit) : '?');
    }
    return bytes;
}

Value ScriptHost::Global(std::u16string_view name)
{
    return globals.at(std::u16string(name));
}

Ref<Object> ScriptHost::CreateObject(std::u16string_view progId)
{
    auto found = classes.find(std::u16string(progId));
    return found == classes.end() ? nullptr : found->second;
}

const ExternalFunction* ScriptHost::FindFunction(std::u16string_view library, std::u16string_view entry)
{
    auto found = functions.find({std::u16string(library), std::u16string(entry)});
    return found == functions.end() ? nullptr : &found->second;
}

int32_t ScriptHost::MessageBox(const std::u16string& prompt, int32_t buttons, const std::u16string& title)
{
    messages.push_back(Narrow(prompt) + "|" + std::to_string(buttons) + "|" + Narrow(title));
    return 6;
}

std::optional<Value> ScriptLibrary::Constant(std::u16string_view name) const
{
    auto found = constants.find(std::u16string(name));
    return found == constants.end() ? std::nullopt : std::optional(Value(found->second));
}

std::string ScriptResult::Output() const
{
    std::string text;
    for (const std::string& line : printed) {
        text += (text.empty() ? "" : "\n") + line;
    }
    return text;
}

std::string ScriptResult::FirstProblem() const
{
    if (problems.empty()) {
        return {};
    }
    const Problem& first = problems.front();
    return std::to_string(first.line) + ":" + std::to_string(first.column) + " " + Narrow(first.message);
}

ScriptResult RunModule(std::string_view source, ScriptHost& host, const Library* library, const Limits& limits)
{
    ScriptResult result;
    CompileOptions options;
    options.library = library;
    CompileResult compiled = Compile(Wide(source), options);
    result.problems = compiled.problems;
    if (!compiled.module) {
        result.run.outcome = Outcome::CompileError;
        return result;
    }
    Machine machine(host, limits);
    result.run = machine.Run(*compiled.module, u"main");
    result.printed = host.printed;
    return result;
}

ScriptResult RunModule(std::string_view source)
{
    ScriptHost host;
    return RunModule(source, host);
}

std::string RunLines(std::string_view statements)
{
    ScriptResult result = RunModule("Sub main()\n" + std::string(statements) + "\nEnd Sub\n");
    if (result.run.outcome == Outcome::CompileError) {
        return "compile: " + result.FirstProblem();
    }
    std::string text = result.Output();
    if (result.run.outcome == Outcome::RuntimeError) {
        text += (text.empty() ? "error " : "\nerror ") + std::to_string(result.run.number);
    }
    return text;
}

std::string Eval(std::string_view expression)
{
    // Joined to a text, so that no blanks of Print stand around numbers.
    return RunLines("Debug.Print \"\" & (" + std::string(expression) + ")");
}

} // namespace tv::macro
