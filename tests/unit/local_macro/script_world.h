#pragma once

#include "macro/macro.h"
#include "macro/memory_file_system.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tv::macro {

std::u16string Wide(std::string_view ascii);
std::string Narrow(std::u16string_view text);

/// A host in memory: files, a clock that stands, and what the macro printed.
class ScriptHost : public Host
{
  public:
    Value Global(std::u16string_view name) override;
    Ref<Object> CreateObject(std::u16string_view progId) override;
    const ExternalFunction* FindFunction(std::u16string_view library, std::u16string_view entry) override;
    FileSystem& Files() override { return files; }
    double Now() override { return now; }
    std::vector<std::u16string> Environment() override { return {u"COMPUTERNAME=WORKBENCH", u"TEMP=C:\\Temp"}; }
    int32_t MessageBox(const std::u16string& prompt, int32_t buttons, const std::u16string& title) override;
    void DebugPrint(const std::u16string& line) override { printed.push_back(Narrow(line)); }

    MemoryFileSystem files;
    std::vector<std::string> printed;
    std::vector<std::string> messages;
    std::map<std::u16string, Value> globals;
    std::map<std::u16string, Ref<Object>> classes;
    std::map<std::pair<std::u16string, std::u16string>, ExternalFunction> functions;
    double now = 46341.75;
};

/// A library whose constants, types and globals a test names.
class ScriptLibrary : public Library
{
  public:
    std::optional<Value> Constant(std::u16string_view name) const override;
    bool HasGlobal(std::u16string_view name) const override { return globals.contains(std::u16string(name)); }
    bool HasLibrary(std::u16string_view name) const override { return name == u"torvane"; }
    bool HasType(std::u16string_view) const override { return true; }
    bool HasEnumeration(std::u16string_view name) const override { return name == u"tvdocumenttypes"; }

    std::map<std::u16string, int32_t> constants;
    std::map<std::u16string, bool> globals;
};

struct ScriptResult
{
    RunResult run;
    std::vector<Problem> problems;
    std::vector<std::string> printed;

    std::string Output() const;
    std::string FirstProblem() const;
};

/// Compiles a module and runs its `main`.
ScriptResult RunModule(std::string_view source, ScriptHost& host, const Library* library = nullptr,
                       const Limits& limits = {});
ScriptResult RunModule(std::string_view source);

/// Runs statements inside a Sub; returns what they printed, line by line, or "error N".
std::string RunLines(std::string_view statements);

/// The printed form of one expression, or "error N", or "compile: …".
std::string Eval(std::string_view expression);

} // namespace tv::macro
