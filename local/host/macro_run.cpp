#include "host/macro_run.h"

#include "host/event_reader.h"
#include "host/macro_check.h"
#include "host/macro_lint.h"

#include "cad/macro_library.h"
#include "macro/code.h"
#include "macro/text.h"
#include "vault/text.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <fstream>
#include <iterator>
#include <mutex>
#include <thread>

namespace tv::local {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using app::MacroEvent;
using app::MacroEventKind;

constexpr std::chrono::milliseconds kReadInterval{50};
/// A call comes back from an application that crashed a little before its process is gone.
constexpr std::chrono::seconds kCrashPatience{5};

/// A macro file as an editor leaves it: UTF-8 with or without its mark, or else code page 1252.
std::u16string ReadMacroFile(const std::string& name)
{
    std::ifstream stream(PathOf(name), std::ios::binary);
    if (!stream) {
        throw UsageError("The macro file '" + name + "' can't be read.");
    }
    const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    std::u16string text = Utf16(bytes);
    if (Utf8(text) != bytes) {
        text = macro::FromNarrow(bytes);
    }
    return text.starts_with(u'\xFEFF') ? text.substr(1) : text;
}

/// Whatever else there is, every line ends in CR LF.
std::string BytesForApplication(std::u16string_view text)
{
    const TextLines lines(text);
    std::string bytes;
    for (int line = 1; line <= lines.Count(); ++line) {
        bytes += macro::ToNarrow(lines.Line(line)) + "\r\n";
    }
    return bytes;
}

/// A temporary file of this process, which goes when it is over.
class TemporaryFile
{
  public:
    TemporaryFile(const Machine& machine, std::string_view extension)
        : path(fs::temp_directory_path() /
               PathOf("tvtask_" + std::to_string(machine.ProcessId()) + std::string(extension)))
    {
        fs::remove(path);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile()
    {
        std::error_code ignored;
        fs::remove(path, ignored);
    }

    const fs::path path;
};

void WriteMacro(const fs::path& path, std::u16string_view text)
{
    std::ofstream stream(path, std::ios::binary);
    stream << BytesForApplication(text);
    stream.close();
    if (!stream) {
        throw std::runtime_error("The macro can't be written to '" + TextOf(path) + "'.");
    }
}

enum class MacroEnd
{
    Succeeded,
    Failed,
    TimedOut,
    Interrupted,
    ApplicationEnded,
    NotAnswered,
};

struct EndWords
{
    MacroEnd end;
    std::string_view json;
};

constexpr EndWords kEnds[] = {
    {MacroEnd::Succeeded, "succeeded"},
    {MacroEnd::Failed, "failed"},
    {MacroEnd::TimedOut, "timed out"},
    {MacroEnd::Interrupted, "interrupted"},
    {MacroEnd::ApplicationEnded, "application ended"},
    {MacroEnd::NotAnswered, "not answered"},
};

/// One run of a macro: the application's calls on this thread, and another that reads along, keeps the time and listens
/// to the user.
class MacroRun
{
  public:
    MacroRun(HostContext& hostContext, const MacroRunOptions& runOptions, const FindingPrinter& sourcePrinter,
             MacroPlace& macroPlace)
        : context(hostContext), options(runOptions), printer(sourcePrinter), place(macroPlace),
          macro(hostContext.environment.machine, ".tvb")
    {}

    int Run(std::u16string_view text)
    {
        WriteMacro(macro.path, text);
        EventReader reader(place.EventsFile());
        context.environment.machine.OnInterrupt([this] { Interrupt(); });
        const auto start = Clock::now();
        try {
            end = Carry(reader);
        } catch (...) {
            context.environment.machine.OnInterrupt(nullptr);
            if (!interrupted) {
                throw;
            }
            end = MacroEnd::Interrupted;
        }
        context.environment.machine.OnInterrupt(nullptr);
        seconds = std::chrono::duration<double>(Clock::now() - start).count();
        return Report();
    }

  private:
    MacroEnd Carry(EventReader& reader)
    {
        const auto application = place.Enter([this] { return interrupted.load(); });
        MacroCall call;
        {
            const Watcher watcher(*this, *application, reader);
            call = application->RunMacro(TextOf(macro.path), options.procedure);
        }
        const bool hasEnded = !call.answered && application->HasEnded(kCrashPatience);
        place.Leave(*application);
        if (interrupted) {
            return MacroEnd::Interrupted;
        }
        if (timedOut) {
            return MacroEnd::TimedOut;
        }
        if (!call.answered) {
            return hasEnded ? MacroEnd::ApplicationEnded : MacroEnd::NotAnswered;
        }
        return call.succeeded ? MacroEnd::Succeeded : MacroEnd::Failed;
    }

    /// The other thread, for as long as the call takes.
    class Watcher
    {
      public:
        Watcher(MacroRun& owner, ApplicationProcess& application, EventReader& reader)
            : run(owner), thread([&] { owner.Watch(application, reader); })
        {}
        Watcher(const Watcher&) = delete;
        Watcher& operator=(const Watcher&) = delete;
        ~Watcher()
        {
            {
                const std::lock_guard guard(run.lock);
                run.over = true;
            }
            run.changed.notify_all();
            thread.join();
        }

      private:
        MacroRun& run;
        std::thread thread;
    };

    void Interrupt()
    {
        interrupted = true;
        changed.notify_all();
    }

    void Watch(ApplicationProcess& application, EventReader& reader)
    {
        const auto start = Clock::now();
        std::unique_lock guard(lock);
        bool killed = false;
        while (!over) {
            changed.wait_for(guard, kReadInterval, [&] { return over || interrupted; });
            Tell(reader);
            const double passed = std::chrono::duration<double>(Clock::now() - start).count();
            timedOut = timedOut || (!over && options.timeout > 0 && passed > options.timeout);
            if (!over && !killed && (timedOut || interrupted)) {
                killed = true;
                application.Kill();
            }
            if (killed) {
                changed.wait(guard, [&] { return over; });
            }
        }
        Tell(reader);
    }

    void Tell(EventReader& reader)
    {
        std::ostream& out = context.environment.out;
        for (MacroEvent& event : reader.Read()) {
            // An application that was found running may still be at somebody else's macro.
            if (event.kind == MacroEventKind::Began) {
                isOurs = event.text == TextOf(macro.path);
            }
            if (!isOurs) {
                continue;
            }
            if (!context.json) {
                if (event.kind == MacroEventKind::Printed) {
                    out << event.text << std::endl;
                } else if (event.kind == MacroEventKind::Saved) {
                    out << "Saved " << event.text << std::endl;
                } else if (event.kind == MacroEventKind::Asked) {
                    out << "The macro shows a message box and waits: " << event.text << std::endl;
                }
            }
            events.push_back(std::move(event));
        }
    }

    std::optional<MacroEvent> Failure() const
    {
        const auto failed = std::ranges::find(events, MacroEventKind::Failed, &MacroEvent::kind);
        return failed == events.end() ? std::nullopt : std::optional(*failed);
    }

    std::string Words() const
    {
        char took[40];
        std::snprintf(took, sizeof took, "%.1f s", seconds);
        switch (end) {
        case MacroEnd::Succeeded:
            return options.procedure + " ended well after " + took;
        case MacroEnd::Failed:
            return options.procedure + " failed after " + took;
        case MacroEnd::TimedOut:
            return std::string("Ended by force after ") + took + ": " + options.procedure +
                   " took longer than --timeout allows" + place.LostWithMacro();
        case MacroEnd::Interrupted:
            return "Ended by Ctrl-C" + place.LostWithMacro();
        case MacroEnd::NotAnswered:
            return "The CAD application didn't take the call to run " + options.procedure;
        case MacroEnd::ApplicationEnded:
            break;
        }
        return "The CAD application ended while it ran " + options.procedure;
    }

    int Report() const
    {
        const std::optional<MacroEvent> failure = Failure();
        if (context.json) {
            PrintJson(failure);
        } else {
            if (failure && end == MacroEnd::Failed) {
                PrintFailure(*failure);
            }
            context.environment.out << Words() << "\n";
        }
        return end == MacroEnd::Succeeded ? kExitDone : kExitFailed;
    }

    void PrintFailure(const MacroEvent& failure) const
    {
        if (failure.line == 0) {
            context.environment.out << options.file << ": error: " << failure.text << "\n";
            return;
        }
        printer.Print(context.environment.out, {FindingText::Macro,
                                                failure.line,
                                                printer.FirstColumn(FindingText::Macro, failure.line),
                                                {},
                                                failure.text + " (error " + std::to_string(failure.number) + ")"});
    }

    Json Texts(MacroEventKind kind) const
    {
        Json texts = Json::array();
        for (const MacroEvent& event : events) {
            if (event.kind == kind) {
                texts.push_back(event.text);
            }
        }
        return texts;
    }

    void PrintJson(const std::optional<MacroEvent>& failure) const
    {
        Json error = nullptr;
        if (failure) {
            error = {{"number", failure->number}, {"description", failure->text}, {"line", failure->line}};
        }
        context.PrintJson({{"file", options.file},
                           {"procedure", options.procedure},
                           {"outcome", std::ranges::find(kEnds, end, &EndWords::end)->json},
                           {"seconds", std::round(seconds * 10) / 10},
                           {"printed", Texts(MacroEventKind::Printed)},
                           {"saved", Texts(MacroEventKind::Saved)},
                           {"messageBoxes", Texts(MacroEventKind::Asked)},
                           {"error", error}});
    }

    HostContext& context;
    const MacroRunOptions& options;
    const FindingPrinter& printer;
    MacroPlace& place;
    const TemporaryFile macro;
    bool isOurs = false;
    std::mutex lock;
    std::condition_variable changed;
    std::atomic<bool> interrupted = false;
    bool over = false;
    bool timedOut = false;
    std::vector<MacroEvent> events;
    MacroEnd end = MacroEnd::Succeeded;
    double seconds = 0;
};

/// Prints why a macro is not run; true when there is no reason.
bool MayRun(HostContext& context, const MacroRunOptions& options, const FindingPrinter& printer,
            std::u16string_view text)
{
    std::vector<MacroFinding> findings = CheckMacro(text);
    const bool compiles = findings.empty();
    for (const MacroFinding& warning : LintMacro(text, app::MacroLibrary())) {
        // The other warnings are a matter of taste here, where nobody asked for any.
        if (warning.rule == std::ranges::find(kLintRules, LintRule::LostCharacter, &LintRuleRow::rule)->name) {
            findings.push_back(warning);
        }
    }
    if (!context.json) {
        for (const MacroFinding& finding : findings) {
            printer.Print(context.environment.out, finding);
        }
    } else if (!compiles) {
        Json json{{"file", options.file}, {"procedure", options.procedure}, {"outcome", "not started"}};
        for (const MacroFinding& finding : findings) {
            json["findings"].push_back(printer.ToJson(finding));
        }
        context.PrintJson(json);
    }
    if (!compiles && !context.json) {
        context.environment.out << "Nothing was run: the macro doesn't compile\n";
    }
    return compiles;
}

void RequireProcedure(const MacroRunOptions& options, std::u16string_view text)
{
    const app::MacroLibrary library;
    const macro::CompileResult compiled = macro::Compile(text, {&library, {}});
    const auto& names = compiled.module->procedureNames;
    if (names.contains(macro::Lower(Utf16(options.procedure)))) {
        return;
    }
    std::string known;
    for (const auto& [name, index] : names) {
        known += (known.empty() ? "" : ", ") + Utf8(compiled.module->procedures[static_cast<size_t>(index)].name);
    }
    throw UsageError("'" + options.file + "' has no procedure '" + options.procedure + "'" +
                     (known.empty() ? "." : "; there are: " + known + "."));
}

class ApplicationOfItsOwn final : public MacroPlace
{
  public:
    ApplicationOfItsOwn(HostEnvironment& host, bool visible)
        : environment(host), isVisible(visible), events(host.machine, ".events")
    {}

    fs::path EventsFile() const override { return events.path; }

    std::unique_ptr<ApplicationProcess> Enter(const std::function<bool()>& isUnwanted) override
    {
        ApplicationStart start;
        start.isVisible = isVisible;
        start.eventsFile = TextOf(events.path);
        start.isUnwanted = isUnwanted;
        return environment.applications.Start(start);
    }

    void Leave(ApplicationProcess& application) override { application.Close(); }

  private:
    HostEnvironment& environment;
    bool isVisible;
    TemporaryFile events;
};

} // namespace

int RunMacroFile(HostContext& context, const MacroRunOptions& options, MacroPlace& place)
{
    const std::u16string text = ReadMacroFile(options.file);
    FindingPrinter printer;
    printer.SetText(FindingText::Macro, options.file, text);
    if (!MayRun(context, options, printer, text)) {
        return kExitFailed;
    }
    RequireProcedure(options, text);
    MacroRun run(context, options, printer, place);
    return run.Run(text);
}

int MacroRunCommand(HostContext& context, const MacroRunOptions& options)
{
    ApplicationOfItsOwn place(context.environment, options.isVisible);
    return RunMacroFile(context, options, place);
}

} // namespace tv::local
