#include "host/command_line.h"

#include "host/app_commands.h"
#include "host/card_commands.h"
#include "host/check_out_commands.h"
#include "host/doctor.h"
#include "host/file_commands.h"
#include "host/macro_commands.h"
#include "host/macro_run.h"
#include "host/reference_commands.h"
#include "host/run_commands.h"
#include "host/task_commands.h"
#include "host/vault_commands.h"
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
        AddCommonOptions(app);
        AddFileCommands();
        AddCheckOutCommands();
        AddCardCommands();
        AddReferenceCommands();
        AddDeletionCommands();
        AddVaultCommands();
        AddUserCommand();
        AddTaskCommands();
        AddRunCommands();
        AddMacroRunCommand();
        AddAppCommands();
        AddDoctorCommand();
    }

    CLI::App& App() { return app; }
    int Run() const { return action(); }

  private:
    /// They may stand before the command or behind it.
    void AddCommonOptions(CLI::App& command)
    {
        command.add_option("--vault", context.vaultFolder, "Folder of the vault")->capture_default_str();
        command.add_flag("--json", context.json, "Print JSON");
    }

    CLI::App* Command(CLI::App& parent, const std::string& word, const std::string& what, NeedsVault needsVault,
                      std::function<int()> body)
    {
        CLI::App* command = parent.add_subcommand(word, what);
        AddCommonOptions(*command);
        command->callback([this, command, needsVault, run = std::move(body)] {
            if (!command->get_subcommands().empty()) {
                return; // "card set": the inner command's own word counts
            }
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

    void AddCheckOutCommands()
    {
        auto* checkOut = Command("checkout", "Check files out, so that their local copies can be written",
                                 [this] { return CheckOutCommand(context, paths); });
        checkOut->add_option("FILE", paths, "Files of the vault")->required();
        checkOut->footer("Example:\n  tvtask checkout \\Parts\\screw.step");

        auto* undo = Command("undo", "Give check-outs back; what was written since is dropped",
                             [this] { return UndoCommand(context, paths); });
        undo->add_option("FILE", paths, "Files of the vault")->required();
        undo->footer("Example:\n  tvtask undo \\Parts\\screw.step");

        auto* checkIn = Command("checkin", "Check files in; one that was written becomes a new version",
                                [this] { return CheckInCommand(context, paths, comment); });
        checkIn->add_option("FILE", paths, "Files of the vault")->required();
        checkIn->add_option("-m,--message", comment, "Comment of the new versions");
        checkIn->footer("Example:\n  tvtask checkin \\Parts\\screw.step -m \"Longer thread\"");
    }

    void AddCardCommands()
    {
        auto* card = Command("card", "Show a file's card", [this] {
            Require(path, "FILE");
            return CardCommand(context, path, version, configuration);
        });
        card->require_subcommand(0, 1);
        card->add_option("FILE", path, "File of the vault");
        card->add_option("--version", version, "Number of the version; the latest unless given")
            ->check(CLI::PositiveNumber);
        card->add_option("--configuration", configuration, "Only what stands for that configuration");
        card->footer("Examples:\n  tvtask card \\Parts\\screw.step\n"
                     "  tvtask card set \\Parts\\screw.step Number=A-100 Mass:float=12.5 Approved:date=2026-11-21");

        auto* set = Command(*card, "set", "Write values into a file's card", NeedsVault::Yes,
                            [this] { return SetCardCommand(context, path, assignments, configuration.value_or("")); });
        set->add_option("FILE", path, "File of the vault")->required();
        set->add_option("ASSIGNMENT", assignments,
                        "VARIABLE=VALUE, or VARIABLE:KIND=VALUE; kinds are text, int, float, bool and date")
            ->required();
        set->add_option("--configuration", configuration, "Configuration; the file itself unless given");
        set->footer("Examples:\n  tvtask card set \\Parts\\screw.step Number=A-100 Mass:float=12.5\n"
                    "  tvtask card set \\Parts\\screw.step Approved:date=2026-11-21 --configuration Long");
    }

    void AddReferenceCommands()
    {
        auto* refs = Command("refs", "List what a file refers to, with the versions as built and the latest", [this] {
            Require(path, "FILE");
            return ReferencesCommand(context, path, parents ? ReferenceEnd::Parents : ReferenceEnd::Children, version);
        });
        refs->require_subcommand(0, 1);
        refs->add_option("FILE", path, "File of the vault");
        auto* up = refs->add_flag("--parents", parents, "List the files that refer to it instead");
        refs->add_option("--version", version, "Number of the version; the latest unless given")
            ->check(CLI::PositiveNumber)
            ->excludes(up);
        refs->footer("Examples:\n  tvtask refs \\Parts\\bracket.tvndrw\n"
                     "  tvtask refs \\Parts\\bracket.tvnprt --parents\n"
                     "  tvtask refs add \\Parts\\bracket.tvndrw \\Parts\\bracket.tvnprt");

        auto* add = Command(*refs, "add", "Let a file refer to others, in the versions that they have now",
                            NeedsVault::Yes, [this] { return AddReferencesCommand(context, path, paths); });
        add->add_option("PARENT", path, "File of the vault")->required();
        add->add_option("CHILD", paths, "Files that it refers to")->required();
        add->footer("Example:\n  tvtask refs add \\Parts\\bracket.tvndrw \\Parts\\bracket.tvnprt");
    }

    void AddDeletionCommands()
    {
        auto* remove = Command("rm", "Delete files; they are kept and can be restored",
                               [this] { return RemoveCommand(context, paths); });
        remove->add_option("FILE", paths, "Files of the vault")->required();
        remove->footer("Example:\n  tvtask rm \\Parts\\screw.step");

        auto* deleted = Command("deleted", "List the deleted files of a folder and of all below it",
                                [this] { return DeletedCommand(context, folder); });
        deleted->add_option("FOLDER", folder, "Folder of the vault");
        deleted->footer("Example:\n  tvtask deleted \\Parts");

        auto* restore = Command("restore", "Bring a deleted file back, with its versions",
                                [this] { return RestoreCommand(context, path, id); });
        restore->add_option("FILE", path, "Place of the file; the one that was last deleted there comes back");
        restore->add_option("--id", id, "Id of the file, as tvtask deleted prints it");
        restore->footer("Examples:\n  tvtask restore \\Parts\\screw.step\n  tvtask restore --id 12");
    }

    void AddVaultCommands()
    {
        auto* makeFolder =
            Command("mkdir", "Make folders of the vault", [this] { return MakeFolderCommand(context, paths); });
        makeFolder->add_option("FOLDER", paths, "Folders; those above them are made too")->required();
        makeFolder->footer("Example:\n  tvtask mkdir \\Parts\\Standard");

        auto* state = Command("state", "Put the latest version of a file into a workflow state",
                              [this] { return SetStateCommand(context, path, text); });
        state->add_option("FILE", path, "File of the vault")->required();
        state->add_option("STATE", text, "Name of the state")->required();
        state->footer("Example:\n  tvtask state \\Parts\\screw.step Released");

        auto* revise = Command("revise", "Give the latest version of a file a revision",
                               [this] { return ReviseCommand(context, path, text); });
        revise->add_option("FILE", path, "File of the vault")->required();
        revise->add_option("REVISION", text, "The revision; the one that follows unless given");
        revise->footer("Examples:\n  tvtask revise \\Parts\\screw.step\n  tvtask revise \\Parts\\screw.step C");

        auto* permit = Command("permit", "List or set what users may do in a folder and all below it",
                               [this] { return PermitCommand(context, permission); });
        permit->add_option("FOLDER", permission.folder, "Folder of the vault; all of them are listed unless given");
        permit->add_option("USER", permission.user, "User, or \"*\" for everybody who has no rights of his own");
        permit->add_option("RIGHTS", permission.rights, "read, add, checkout, delete, permit, or all, or none");
        permit->add_flag("--clear", permission.clear, "Take the user's row away, so that the folders above count");
        permit->footer("Examples:\n  tvtask permit \\Released\n  tvtask permit \\Released \"*\" read\n"
                       "  tvtask permit \\Released anna read,add,checkout\n  tvtask permit \\Released anna --clear");
    }

    /// What is run as somebody else is split off before this command line is read; here it has its help.
    void AddUserCommand()
    {
        auto* user = app.add_subcommand("user", "Run another command as another user, or from another machine");
        user->add_option("NAME", name, "NAME, NAME@MACHINE or @MACHINE")->required();
        user->add_option("COMMAND", paths, "The command with all that belongs to it")->required();
        user->footer("Examples:\n  tvtask user anna checkout \\Parts\\screw.step\n"
                     "  tvtask user anna@PC7 ls \\Parts --json");
        user->callback([] { throw UsageError("Name the user first, then the command: tvtask user NAME COMMAND"); });
    }

    /// Commands with further ones below them have arguments that only they themselves need.
    static void Require(const std::string& value, const std::string& argument)
    {
        if (value.empty()) {
            throw UsageError(argument + " is required. To see what would be right: tvtask --help");
        }
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

    void AddDoctorCommand()
    {
        auto* doctor = Command(app, "doctor", "Look whether this machine and the vault are fit for runs", NeedsVault::No,
                               [this] { return DoctorCommand(context); });
        doctor->footer("What is wrong is printed with what to type against it; without a vault the machine is looked\n"
                       "at all the same. The exit code is 0 when nothing is a problem.\n\n"
                       "Examples:\n  tvtask doctor\n  tvtask doctor --vault D:\\Vault --json");
    }

    void AddAppCommands()
    {
        appCommands.AddTo(
            app, context,
            [this](CLI::App& parent, const std::string& word, const std::string& what, std::function<int()> body) {
                return Command(parent, word, what, NeedsVault::No, std::move(body));
            });
    }

    HostContext& context;
    CLI::App app{"Runs the tasks of a document vault on this machine", "tvtask"};
    std::function<int()> action;

    std::string name;
    std::string kind;
    std::string path;
    std::string target;
    std::string folder = "\\";
    std::string comment;
    std::string text;
    std::optional<std::string> configuration;
    std::optional<int32_t> id;
    PermitOptions permission;
    std::vector<std::string> paths;
    std::vector<std::string> assignments;
    std::vector<int32_t> ids;
    int32_t version = 0;
    bool recursive = false;
    bool parents = false;
    bool all = false;
    bool useTemplate = false;
    MacroChecks checks;
    MacroRunOptions macroRun;
    AppCommandLine appCommands;
};

int Complain(HostEnvironment& environment, std::string_view words, int exitCode)
{
    environment.err << "tvtask: " << words << "\n";
    return exitCode;
}

/// The command that shows the help of what was being typed.
std::string HelpCommand(const CLI::App& commandLine)
{
    std::string words = "tvtask";
    for (const CLI::App* at = &commandLine; !at->get_subcommands().empty();) {
        at = at->get_subcommands().front();
        words += " " + at->get_name();
    }
    return words + " --help";
}

/// Reads NAME, NAME@MACHINE or @MACHINE; what isn't named is that of this process.
Session ReadSession(std::string_view text, Session session)
{
    const size_t at = text.rfind('@');
    const std::string_view user = text.substr(0, at);
    const std::string_view machine = at == std::string_view::npos ? std::string_view() : text.substr(at + 1);
    if ((user.empty() && machine.empty()) || (at != std::string_view::npos && machine.empty())) {
        throw UsageError("'" + std::string(text) + "' is no user; write NAME, NAME@MACHINE or @MACHINE.");
    }
    if (!user.empty()) {
        session.user = user;
    }
    if (!machine.empty()) {
        session.machine = machine;
    }
    return session;
}

/// "user NAME COMMAND…" has a whole command line in it.
bool IsForAnotherUser(const std::vector<std::string>& arguments)
{
    return arguments.size() > 2 && arguments[0] == "user" && !arguments[1].starts_with('-') &&
           !arguments[2].starts_with('-');
}

int RunAs(const std::vector<std::string>& arguments, const HostEnvironment& environment)
{
    HostEnvironment other = environment;
    other.storeOptions.session = ReadSession(arguments[1], environment.storeOptions.session);
    return RunCommandLine({arguments.begin() + 2, arguments.end()}, other);
}

} // namespace

int RunCommandLine(const std::vector<std::string>& arguments, HostEnvironment& environment)
{
    HostContext context{environment, environment.defaultVault, false, nullptr};
    CommandLine line(context);
    try {
        if (IsForAnotherUser(arguments)) {
            return RunAs(arguments, environment);
        }
        std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
        line.App().parse(reversed);
        return line.Run();
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            return line.App().exit(error, environment.out, environment.err);
        }
        return Complain(environment, std::string(error.what()) + ". To see what would be right: " + HelpCommand(line.App()),
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
