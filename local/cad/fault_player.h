// Lets the faults of a plan happen at their moments, and writes down what other processes ask for.
#pragma once

#include "cad/automation_observer.h"
#include "cad/fault_plan.h"
#include "cad/macro_runner.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tv::app {

/// What the operating system does for a fault.
class FaultHands
{
  public:
    virtual ~FaultHands() = default;
    /// Ends the process at once, with nothing put in order. Doesn't return.
    virtual void Crash() = 0;
    /// Stops answering anything. Doesn't return.
    virtual void Hang() = 0;
    /// Lets seconds pass while windows go on working.
    virtual void Wait(int32_t seconds) = 0;
    /// Takes memory and never gives it back.
    virtual void Leak(int32_t mib) = 0;
    /// Shows a dialog until it is answered as it wants to be.
    virtual void ShowDialog(const Fault& dialog) = 0;
};

/// First revision that has RunMacroEx.
inline constexpr int kFirstRevisionWithMacroCodes = 17;

class FaultPlayer final : public AutomationObserver
{
  public:
    /// \param majorRevision leading number of the revision that the application tells
    FaultPlayer(FaultPlan& asked, FaultHands& system, int majorRevision, std::function<void(const std::string&)> note)
        : plan(asked), hands(system), revision(majorRevision), onNote(std::move(note))
    {}

    /// Before the application registers. False when it isn't to register at all.
    bool AtStart();
    /// Before a macro. An outcome is told to the caller instead of the macro's.
    std::optional<MacroOutcome> AtMacro();
    /// After a save was announced.
    void AtSave();
    /// When the application is asked to end. False when it is to go on as if nobody had.
    bool AtExitRequest();
    /// When it ends on such a request.
    void AtEnd();

    Result OnCall(std::u16string_view className, std::u16string_view member,
                  std::span<const macro::Value> arguments) override;
    void OnEvent(const GUID& eventInterface, int32_t event, std::span<const Variant> arguments) override;
    void OnEventDone() override;

  private:
    std::vector<Fault> Happening(FaultMoment moment, std::string_view subject = {});
    /// Does what needs no answer by the application's own steps.
    void Do(const Fault& fault);

    FaultPlan& plan;
    FaultHands& hands;
    int revision;
    std::function<void(const std::string&)> onNote;
    std::vector<Fault> atEnd;
    /// An event is in progress during which the application is to go away.
    bool goesAway = false;
};

/// The leading number of a revision, 0 for none.
int MajorRevision(std::u16string_view revision);

} // namespace tv::app
