#include "cad/fault_player.h"

#include "cad/fault_table.h"
#include "cad/text.h"
#include "cad/transcript_text.h"

#include <algorithm>

namespace tv::app {

std::vector<Fault> FaultPlayer::Happening(FaultMoment moment, std::string_view subject)
{
    std::vector<Fault> faults = plan.At(moment, subject);
    for (const Fault& fault : faults) {
        onNote("fault " + std::string(std::ranges::find(kFaultRows, fault.kind, &FaultRow::kind)->name) + " at " +
               std::string(NameOf(moment)));
    }
    return faults;
}

void FaultPlayer::Do(const Fault& fault)
{
    switch (fault.kind) {
    case FaultKind::Crash:
        hands.Crash();
        return;
    case FaultKind::Hang:
        hands.Hang();
        return;
    case FaultKind::RegisterLate:
        hands.Wait(fault.number);
        return;
    case FaultKind::Leak:
        hands.Leak(fault.number);
        return;
    case FaultKind::Dialog:
        hands.ShowDialog(fault);
        return;
    default:
        return;
    }
}

bool FaultPlayer::AtStart()
{
    bool registers = true;
    for (const Fault& fault : Happening(FaultMoment::Start)) {
        registers = registers && fault.kind != FaultKind::NeverRegister;
        Do(fault);
    }
    return registers;
}

std::optional<MacroOutcome> FaultPlayer::AtMacro()
{
    std::optional<MacroOutcome> outcome;
    for (const Fault& fault : Happening(FaultMoment::Macro)) {
        if (fault.kind == FaultKind::FailMacro) {
            outcome = MacroOutcome{.error = fault.number, .message = "the macro was asked to fail"};
        }
        Do(fault);
    }
    return outcome;
}

void FaultPlayer::AtSave()
{
    for (const Fault& fault : Happening(FaultMoment::Save)) {
        Do(fault);
    }
}

bool FaultPlayer::AtExitRequest()
{
    std::vector<Fault> faults = Happening(FaultMoment::Close);
    if (std::ranges::any_of(faults, [](const Fault& fault) { return fault.kind == FaultKind::IgnoreExit; })) {
        return false;
    }
    atEnd = std::move(faults);
    return true;
}

void FaultPlayer::AtEnd()
{
    for (const Fault& fault : atEnd) {
        Do(fault);
    }
}

Result FaultPlayer::OnCall(std::u16string_view className, std::u16string_view member,
                           std::span<const macro::Value> arguments)
{
    onNote(CallLine(className, member, arguments));
    if (goesAway) {
        hands.Crash();
    }
    if (member == u"runmacroex" && revision < kFirstRevisionWithMacroCodes) {
        return DISP_E_MEMBERNOTFOUND;
    }
    for (const Fault& fault : Happening(FaultMoment::Call, ToUtf8(member))) {
        return fault.number;
    }
    return S_OK;
}

void FaultPlayer::OnEvent(const GUID& eventInterface, int32_t event, std::span<const Variant> arguments)
{
    onNote(EventLine(eventInterface, event, arguments));
    goesAway = goesAway || !Happening(FaultMoment::Event, std::to_string(event)).empty();
}

void FaultPlayer::OnEventDone()
{
    // No listener has called back, so this is the last instant at which the event is still in progress.
    if (goesAway) {
        hands.Crash();
    }
}

int MajorRevision(std::u16string_view revision)
{
    int number = 0;
    for (const char16_t unit : revision) {
        if (unit < u'0' || unit > u'9' || number > 100'000) {
            break;
        }
        number = number * 10 + (unit - u'0');
    }
    return number;
}

} // namespace tv::app
