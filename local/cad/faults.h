// Faults on request: what the application is to do wrong and when, as a text asks for it. `docs/torvane-faults.md`
// describes the text.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tv::app {

/// When a fault happens; each moment is counted for itself.
enum class FaultMoment
{
    Start, ///< the main window is there, nothing is registered yet
    Macro, ///< another process or a user has a macro run
    Save,  ///< a save has been announced and nothing is written yet
    Close, ///< the application is asked to end
    Call,  ///< another process calls a member; counted by member
    Event, ///< a listener is told of something; counted by event number
};

enum class FaultKind
{
    NeverRegister,
    RegisterLate,
    Crash,
    Hang,
    IgnoreExit,
    Leak,
    FailMacro,
    Throw,
    GoAway,
    Dialog,
};

/// What a fault's dialog takes for an answer. Everything else leaves it standing.
enum class AnswerKey
{
    Return,
    Escape,
    Close, ///< a close request, no key
};

struct Fault
{
    static constexpr int32_t kForever = std::numeric_limits<int32_t>::max();

    FaultKind kind = FaultKind::Crash;
    FaultMoment moment = FaultMoment::Start;
    /// The occurrences of the moment at which it happens, counted from 1.
    int32_t first = 1;
    int32_t last = kForever;
    /// Seconds, MiB, macro error code or result code.
    int32_t number = 0;
    /// The called member in small letters, or the event's number; empty for any event.
    std::string subject{};
    std::string title{};
    /// Title of the window that owns the dialog; empty for none.
    std::string parent{};
    AnswerKey key = AnswerKey::Return;

    bool operator==(const Fault&) const = default;
};

/// A fault text, read.
struct FaultSettings
{
    std::vector<Fault> faults;
    /// File in which the moments are counted across processes; empty for counting in each process.
    std::string counterFile;
    /// Revision number that the application tells; empty for its own.
    std::string revision;

    bool operator==(const FaultSettings&) const = default;
};

/// Tells a person what is wrong with a fault text.
class FaultTextError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// Reads a fault text in UTF-8. Raises FaultTextError for anything that isn't understood whole.
FaultSettings ParseFaults(std::string_view text);

/// Name of a moment in texts: "start", "macro", "save", "close", "call", "event".
std::string_view NameOf(FaultMoment moment);
/// "return", "escape", "close".
std::string_view NameOf(AnswerKey key);

} // namespace tv::app
