// The CAD application as a process: started or found running, driven by name, and ended. Whoever holds one that he has
// started can be sure that it is gone when it is let go, unless he says that it is to be kept.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace tv::local {

/// The application can't be started. The line says why and what to do.
class NoApplicationError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

inline constexpr std::chrono::seconds kStartPatience{120};
inline constexpr std::chrono::seconds kEndPatience{10};

struct ApplicationStart
{
    /// Whole command line, taken as it is; made from the program unless given.
    std::string commandLine;
    /// Show the main window.
    bool isVisible = false;
    /// File that the application tells its macros' doings in (see cad/macro_event.h); empty for none.
    std::string eventsFile;
    /// Asked while the start is under way; a start that nobody wants any more is given up.
    std::function<bool()> isUnwanted = [] { return false; };
    /// How long it may take until the application has registered itself.
    std::chrono::milliseconds patience = kStartPatience;
    /// Program to start, with its path; empty for the registered one.
    std::string program = {};
};

/// How a call to the application ended.
struct MacroCall
{
    /// The application answered. It doesn't when it ends during the call.
    bool answered = false;
    bool succeeded = false;
    /// The application's own code for why a macro failed, 0 for none.
    int32_t code = 0;
};

/// A process. Its id alone may be that of another one by now.
struct ProcessIdentity
{
    int32_t id = 0;
    /// Milliseconds since 1970 in UTC.
    int64_t created = 0;

    bool operator==(const ProcessIdentity&) const = default;
};

/// What an application tells of itself.
struct ApplicationDetails
{
    /// It doesn't answer while it is busy, or when it hangs.
    bool answered = false;
    std::string revision;
    /// Paths of the open documents; the title of one that has no path.
    std::vector<std::string> documents;
};

/// How an application ended that was asked to.
enum class ApplicationEnd
{
    Politely,
    ByForce,
    NotEnded,
};

/// Another program has the application run a macro at the moment. The line says what to do.
class ApplicationBusyError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

class ApplicationProcess
{
  public:
    /// Ends a started process by force if it still lives and isn't to be kept. One that was found running goes on.
    virtual ~ApplicationProcess() = default;

    virtual ProcessIdentity Identity() const = 0;
    int32_t ProcessId() const { return Identity().id; }
    /// A started application lives on when it is let go, also when this process ends.
    virtual void Keep() = 0;
    /// The application's own text for its revision, which begins with the major number; empty when it doesn't answer.
    virtual std::string Revision() = 0;
    /// Asks the application about itself; not longer than the patience.
    virtual ApplicationDetails Details(std::chrono::milliseconds patience) = 0;
    /// Runs a procedure of a macro file and waits for its end. Raises ApplicationBusyError for an application that was
    /// found running.
    virtual MacroCall RunMacro(const std::string& path, const std::string& procedure) = 0;
    /// Closes all documents and asks the application to end; by force if it doesn't within the patience.
    virtual ApplicationEnd End(std::chrono::milliseconds patience) = 0;
    void Close() { End(kEndPatience); }
    /// Ends the process by force. May be called from any thread, also during a call.
    virtual void Kill() noexcept = 0;
    /// Waits for the end of the process, not longer than the patience.
    virtual bool HasEnded(std::chrono::milliseconds patience) const = 0;
};

/// Starts applications of the versions that are registered on this machine, and finds those that run.
class ApplicationStarter
{
  public:
    virtual ~ApplicationStarter() = default;
    /// Raises NoApplicationError on a system that has no applications.
    virtual void RequireSystem() {}
    /// Product years that the registry speaks of, by a Setup key in one of its views or by a class; ascending.
    virtual std::vector<int32_t> RegisteredYears() = 0;
    /// An application that runs; null when that process has ended. Nothing is asked of it yet.
    virtual std::unique_ptr<ApplicationProcess> Attach(const ProcessIdentity& process) = 0;
    /// Raises NoApplicationError.
    virtual std::unique_ptr<ApplicationProcess> Start(const ApplicationStart& start) = 0;
};

std::unique_ptr<ApplicationStarter> MakeApplicationStarter();

} // namespace tv::local
