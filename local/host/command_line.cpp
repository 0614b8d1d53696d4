#include "host/command_line.h"

#include "host/file_commands.h"
#include "host/macro_commands.h"
#include "host/macro_run.h"
#include "host/run_commands.h"
#include "host/task_commands.h"
#include "vault/error_table.h"
#include "vault/text.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace tv::local {

namespace {

enum class NeedsVault
{
    No,
    Yes,
};

/// The values that the options write to, and the command that was chosen.
class CommandLine
{
  public:
    explicit CommandLine(HostContext& host) : context(host)
    {
        app.require_subcommand(1);
        // A slash begins a path here, never an option.
        app.allow_windows_style_options(false);
        app.set_help_all_flag("--help-all", "Show the help of every command");
        AddFileCommands();
        AddTaskCommands();
        AddRunCommands();
        AddMacroRunCommand();
    }

    CLI::App& App() { return app; }
    int Run() const { return action(); }

  private:
    CLI::App* Command(CLI::App& parent, const std::string& word, const std::string& what, NeedsVault needsVault,
                      std::function<int()> body)
    {
        CLI::App* command = parent.add_subcommand(word, what);
        command->add_option("--vault", context.vaultFolder, "Folder of the vault")->capture_default_str();
        command->add_flag("--json", context.json, "Print JSON");
        command->callback([this, needsVault, run = std::move(body)] {
            action = [this, needsVault, run] {
                if (needsVault == NeedsVault::Yes) {
                    context.OpenVault();
                }
                return run();
            };
        });
        return command;
    }

    CLI::App* Command(const std::string& word, const std::string& what, std::function<int()> body)
    {
        return Command(app, word, what, NeedsVault::Yes, std::move(body));
    }

    void AddFileCommands()
    {
        auto* init =
            Command(app, "init", "Make a vault", NeedsVault::No, [this] { return InitCommand(context, name); });
        init->add_option("--name", name, "Name of the vault; that of its folder unless given");

        auto* import = Command("import", "Take files and folders of this machine into the vault",
                               [this] { return ImportCommand(context, paths, folder); });
        import->add_option("HOSTPATH", paths, "Files, or folders with all that is in them")->required();
        import->add_option("--to", folder, "Folder of the vault; made when it is missing")->capture_default_str();

        auto* list =
            Command("ls", "List a folder of the vault", [this] { return ListCommand(context, folder, recursive); });
        list->add_option("FOLDER", folder, "Folder of the vault");
        list->add_flag("-r,--recursive", recursive, "With everything below it");

        auto* history =
            Command("history", "List the versions of a file", [this] { return HistoryCommand(context, path); });
        history->add_option("FILE", path, "File of the vault")->required();

        auto* exportFile = Command("export", "Write the bytes of a version to this machine",
                                   [this] { return ExportCommand(context, path, target, version); });
        exportFile->add_option("FILE", path, "File of the vault")->required();
        exportFile->add_option("HOSTPATH", target, "File or folder to write to")->required();
        exportFile->add_option("--version", version, "Number of the version; the latest unless given")
            ->check(CLI::PositiveNumber);
    }

    void AddTaskCommands()
    {
        CLI::App* task = app.add_subcommand("task", "Define tasks");
        task->require_subcommand(1);
        const auto add = [&](const std::string& word, const std::string& what, std::function<int()> body) {
            return Command(*task, word, what, NeedsVault::Yes, std::move(body));
        };
        auto* make = add("new", "Make a task that can be launched as it is",
                         [this] { return NewTaskCommand(context, name, kind); });
        make->add_option("NAME", name, "Name of the task")->required();
        make->add_option("--kind", kind, "convert, print or script")->required();

        add("list", "List the tasks", [this] { return ListTasksCommand(context); });

        auto* show = add("show", "Show a task's variables", [this] { return ShowTaskCommand(context, name); });
        show->add_option("NAME", name, "Name of the task")->required();

        auto* set =
            add("set", "Set variables of a task", [this] { return SetTaskCommand(context, name, assignments); });
        set->add_option("NAME", name, "Name of the task")->required();
        set->add_option("ASSIGNMENT", assignments, "VARIABLE=VALUE, or VARIABLE:KIND=VALUE for a variable of your own")
            ->required();

        auto* script = add("script", "Give a task its macro",
                           [this] { return TaskScriptCommand(context, name, path, useTemplate); });
        script->add_option("NAME", name, "Name of the task")->required();
        script->add_option("FILE", path, "Text file with the macro");
        script->add_flag("--template", useTemplate, "The add-in's own macro for this kind of task");
    }

    void AddRunCommands()
    {
        auto* launch = Command("launch", "Launch a task on files and folders; prints the id of the instance",
                               [this] { return LaunchCommand(context, name, paths, assignments); });
        launch->add_option("NAME", name, "Name of the task")->required();
        launch->add_option("PATH", paths, "Files and folders of the vault")->required();
        launch->add_option("--set", assignments, "VARIABLE=VALUE for this launch only; may be given several times")
            ->expected(1)
            ->allow_extra_args(false)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);

        auto* run = Command("run", "Carry out launched tasks", [this] { return RunCommand(context, ids, all); });
        run->add_option("ID", ids, "Ids of instances");
        run->add_flag("--all", all, "All instances that wait");

        auto* status = Command("status", "Show how launched tasks stand", [this] {
            return StatusCommand(context, ids.empty() ? std::nullopt : std::optional(ids.front()));
        });
        status->add_option("ID", ids, "Id of an instance; all of them unless given")->expected(0, 1);

        auto* log = Command("log", "Print the log of an instance", [this] { return LogCommand(context, ids.front()); });
        log->add_option("ID", ids, "Id of the instance")->required()->expected(1);

        auto* macro = Command("macro", "Print the macro that a run would give a file, or say what is wrong with it",
                              [this] { return MacroCommand(context, name, path, checks); });
        macro->add_option("NAME", name, "Name of the task")->required();
        macro->add_option("PATH", path, "File of the vault")->required();
        macro->add_flag("--check", checks.compile, "Say what the application's compiler would refuse");
        macro->add_flag("--lint", checks.lint,
                        "Warn of what runs and does otherwise than it says: placeholders and tokens that nothing "
                        "stands for, values that break the line, misspelled names");
    }

    void AddMacroRunCommand()
    {
        auto* run = Command(app, "macro-run", "Run a macro file in the CAD application, without a task", NeedsVault::No,
                            [this] { return MacroRunCommand(context, macroRun); });
        run->add_option("FILE", macroRun.file, "Text file with the macro")->required();
        run->add_option("--procedure", macroRun.procedure, "Procedure to run")->capture_default_str();
        run->add_option("--timeout", macroRun.timeout, "Seconds after which the macro is ended; none unless given")
            ->check(CLI::PositiveNumber);
        run->add_flag("--visible", macroRun.isVisible, "Show the application's window");
    }

    HostContext& context;
    CLI::App app{"Runs the tasks of a document vault on this machine", "tvtask"};
    std::function<int()> action;

    std::string name;
    std::string kind;
    std::string path;
    std::string target;
    std::string folder = "\\";
    std::vector<std::string> paths;
    std::vector<std::string> assignments;
    std::vector<int32_t> ids;
    int32_t version = 0;
    bool recursive = false;
    bool all = false;
    bool useTemplate = false;
    MacroChecks checks;
    MacroRunOptions macroRun;
};

int Complain(HostEnvironment& environment, std::string_view words, int exitCode)
{
    environment.err << "tvtask: " << words << "\n";
    return exitCode;
}

} // namespace

int RunCommandLine(const std::vector<std::string>& arguments, HostEnvironment& environment)
{
    HostContext context{environment, environment.defaultVault, false, nullptr};
    CommandLine line(context);
    try {
        std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
        line.App().parse(reversed);
        return line.Run();
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            return line.App().exit(error, environment.out, environment.err);
        }
        return Complain(environment, std::string(error.what()) + ". To see what would be right: tvtask --help",
                        kExitWrongUsage);
    } catch (const UsageError& error) {
        return Complain(environment, error.what(), kExitWrongUsage);
    } catch (const NoVaultError& error) {
        return Complain(environment, error.what(), kExitNoVault);
    } catch (const NoApplicationError& error) {
        return Complain(environment, error.what(), kExitNoApplication);
    } catch (const ResultError& error) {
        const std::string words = error.Text().empty() ? WordsFor(error.Code()).description : Utf8(error.Text());
        return Complain(environment, words, kExitFailed);
    } catch (const std::exception& error) {
        return Complain(environment, error.what(), kExitFailed);
    }
}

} // namespace tv::local
