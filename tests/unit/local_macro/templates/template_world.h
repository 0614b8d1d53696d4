// A whole world for a macro template: the add-in's own assembly of the macro text, the interpreter, an application that
// follows a script, and files in memory.
#pragma once

#include "fakes/platform/fake_platform.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"
#include "local_macro/script_world.h"
#include "local_macro/templates/scripted_application.h"
#include "script/script_resource.h"
#include "script/task_script.h"

namespace tv::macro {

/// Build it up, run the macro for one file after another, and look at the calls, the log and the files.
class TemplateWorld
{
  public:
    /// \param templateId resource id of the macro template
    explicit TemplateWorld(int32_t templateId);

    /// The variables of the task. They hold what a task needs for a plain run.
    fakes::VariableStore& Variables() { return task->variables; }

    /// The macro text for one file, assembled as a run of the task does it.
    std::u16string MacroText(std::u16string_view path, std::u16string_view configurationOrSheet = {});

    /// Assembles the macro for one file and runs it to its end. What doesn't compile, and an error that the macro
    /// doesn't handle, is thrown as a runtime_error with the problem's words.
    void Run(std::u16string_view path, std::u16string_view configurationOrSheet = {});

    /// Runs statements inside the assembled macro instead of its `main`; returns what they printed, line by line.
    std::string RunStatements(std::u16string_view statements);

    CompileResult CompileMacro(std::u16string_view text) const;

    /// The calls so far, one a line; those that begin with the given words, if any are given.
    std::string Calls(std::string_view beginning = {}) const;
    /// The content of the task instance's log file; "(none)" without one.
    std::string Log() const;

    ScriptedCad cad;
    ScriptHost host;
    ScriptLibrary library;
    fakes::FakePlatform machine;
    fakes::FakeVault vault;
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();

  private:
    RunResult RunProcedure(std::u16string_view text, std::u16string_view procedure);

    int32_t resource;
};

/// An expectation of many lines, written from the line below its opening quote on.
constexpr std::string_view Lines(std::string_view text)
{
    return text.substr(1);
}

/// A world with the variables of a convert task that saves each configuration and sheet as STL below C:\Out.
class ConvertWorld : public TemplateWorld
{
  public:
    ConvertWorld();
};

/// A world with the variables of a print task that prints on "Plotter", A4 upright, with the printer's margins.
class PrintWorld : public TemplateWorld
{
  public:
    PrintWorld();
};

} // namespace tv::macro
