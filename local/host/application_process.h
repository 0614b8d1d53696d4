// The CAD application as a process of our own: started, found, driven by name, and ended. Whoever holds one can be sure
// that it is gone when it is let go.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace tv::local {

/// The application can't be started. The line says why and what to do.
class NoApplicationError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

struct ApplicationStart
{
    /// Show the main window.
    bool isVisible = false;
    /// File that the application tells its macros' doings in (see cad/macro_event.h); empty for none.
    std::string eventsFile;
    /// Asked while the start is under way; a start that nobody wants any more is given up.
    std::function<bool()> isUnwanted = [] { return false; };
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

class ApplicationProcess
{
  public:
    /// Ends the process by force if it still lives.
    virtual ~ApplicationProcess() = default;

    virtual int32_t ProcessId() const = 0;
    /// Runs a procedure of a macro file and waits for its end.
    virtual MacroCall RunMacro(const std::string& path, const std::string& procedure) = 0;
    /// Closes all documents and asks the application to end; by force if it doesn't.
    virtual void Close() = 0;
    /// Ends the process by force. May be called from any thread, also during a call.
    virtual void Kill() noexcept = 0;
};

/// Starts applications of the version that is registered on this machine.
class ApplicationStarter
{
  public:
    virtual ~ApplicationStarter() = default;
    /// Raises NoApplicationError.
    virtual std::unique_ptr<ApplicationProcess> Start(const ApplicationStart& start) = 0;
};

std::unique_ptr<ApplicationStarter> MakeApplicationStarter();

} // namespace tv::local
