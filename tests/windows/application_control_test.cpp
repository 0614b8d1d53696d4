// The add-in's application control on the real CAD application, one fault after the other: what each call comes to,
// what is said, how often the application is started and a macro run, and that nothing is left behind.
#include "application_macros.h"
#include "controlled_application.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <ostream>
#include <thread>

namespace tv {

namespace {

constexpr Result kFailed = static_cast<Result>(0x80004005u);
/// The code that the faults "throw" of the table give.
constexpr Result kThrown = static_cast<Result>(0x80010105u);
/// Stands for each of the codes by which the system tells of a server that is gone or went during the call.
constexpr Result kServerGone = static_cast<Result>(0x800706BAu);
constexpr Result kServerGoneCodes[] = {kServerGone, static_cast<Result>(0x800706BEu), static_cast<Result>(0x80010007u),
                                       static_cast<Result>(0x80010012u), static_cast<Result>(0x80010108u)};

constexpr char kNoMessage[] = "";
constexpr char kNotStarted[] = "Failed to start Torvane 2013.";
constexpr char kNotHidden[] = "Failed to set Torvane main window as invisible.";
constexpr char kNoRevision[] = "Failed to get Torvane revision number.";
constexpr char kMacroFailed[] = "Failed to run Torvane macro.";

enum class Deed
{
    Start,
    Restart,
    Macro, ///< an empty one
    Save,  ///< a macro that saves a copy of a part
    Draw,  ///< a macro that saves a copy of a drawing
    Maintain,
    Close,
    AwaitEnd ///< until the process is gone
};

/// What happens beside a step that doesn't come back by itself.
enum class Beside
{
    Nothing,
    Kill,  ///< the process is ended from outside once it hangs
    Answer ///< the dialog is still there after ten looks of the watchdog, and is answered by hand then
};

struct Step
{
    Deed deed;
    Result given = 0; ///< to Restart and Close
    Result result = 0;
    const char* message = kNoMessage;
    uint32_t seconds = 0; ///< that it waits at least
    Beside beside = Beside::Nothing;

    Step Waiting(uint32_t count) const
    {
        Step step = *this;
        step.seconds = count;
        return step;
    }
    Step With(Beside other) const
    {
        Step step = *this;
        step.beside = other;
        return step;
    }
};

Step Start(Result result = 0, const char* message = kNoMessage)
{
    return {Deed::Start, 0, result, message};
}
/// An application that isn't found costs the whole two minutes.
Step StartInVain()
{
    return Start(kFailed, kNotStarted).Waiting(120);
}
Step Restart(Result given = 0, Result result = 0, const char* message = kNoMessage)
{
    return {Deed::Restart, given, result, message};
}
Step Macro(Result result = 0, const char* message = kNoMessage)
{
    return {Deed::Macro, 0, result, message};
}
Step Save(Result result = 0, const char* message = kNoMessage)
{
    return {Deed::Save, 0, result, message};
}
Step Draw()
{
    return {Deed::Draw};
}
Step Maintain()
{
    return {Deed::Maintain};
}
Step Close(Result given = 0, Result result = 0, const char* message = kNoMessage)
{
    return {Deed::Close, given, result, message};
}
/// The grace of eleven seconds runs out, and at least one look follows the termination.
Step CloseByForce(const char* message = kNoMessage)
{
    return Close(0, 0, message).Waiting(12);
}
Step AwaitEnd()
{
    return {Deed::AwaitEnd};
}

struct ControlRow
{
    const char* name;
    const char16_t* faults; ///< places are counted over all processes of the row
    std::vector<Step> steps;
    std::vector<std::string> starts;    ///< how each process was started
    size_t macros = 0;                  ///< that the processes were given, repeated ones included
    std::vector<std::string> shown{};   ///< the transcript has lines that begin so
    std::vector<std::string> missing{}; ///< and none that begin so
    std::vector<std::string> outputs{}; ///< as recorded
    Pace pace = Pace::Patient;
};

void PrintTo(const ControlRow& row, std::ostream* out)
{
    *out << row.name;
}

const std::vector<std::string> kB{"/B"};
const std::vector<std::string> kBB{"/B", "/B"};
const std::vector<std::string> kBBB{"/B", "/B", "/B"};
const std::vector<std::string> kBR{"/B", "/R"};
const std::vector<std::string> kCopy{"copy.tvnprt [Default]"};

// clang-format off
const ControlRow kRows[] = {
    // Nothing wrong.
    {"NoFault", u"", {Start(), Macro(), Maintain(), Save(), Maintain(), Close()}, kB, 2, {"ended"}, {"fault"}, kCopy},

    // The start.
    {"NeverRegisters", u"never-register", {StartInVain(), AwaitEnd(), Restart(kFailed, kFailed, kNotStarted), AwaitEnd(), Close()}, kBB, 0, {"fault never-register at start"}, {"registered"}, {}, Pace::Hasty},
    {"NeverRegistersTheFirstTime", u"never-register@1", {StartInVain(), AwaitEnd(), Restart(kFailed), Macro(), Close()}, kBB, 1, {"registered"}, {}, {}, Pace::Hasty},
    {"RegistersLate", u"register-late:seconds=2", {Start().Waiting(2), Macro(), Close()}, kB, 1, {"fault register-late at start"}, {}, {}, Pace::Real},
    {"RegistersTooLate", u"register-late:seconds=3600@1", {StartInVain(), AwaitEnd(), Restart(kFailed), Macro(), Close()}, kBB, 1, {"fault register-late at start"}, {}, {}, Pace::Hasty},
    {"CrashesAtTheStart", u"crash@1", {StartInVain(), AwaitEnd(), Restart(kFailed), Macro(), Close()}, kBB, 1, {"fault crash at start"}, {}, {}, Pace::Hasty},
    {"CrashesAtEachStart", u"crash", {StartInVain(), AwaitEnd(), Restart(kFailed, kFailed, kNotStarted).Waiting(120), AwaitEnd(), Close()}, kBB, 0, {"fault crash at start"}, {"registered"}, {}, Pace::Hasty},
    {"HangsAtTheStart", u"hang:at=start@1", {StartInVain(), AwaitEnd(), Restart(kFailed), Macro(), Close()}, kBB, 1, {"fault hang at start"}, {}, {}, Pace::Hasty},

    // Dialogs before the application registers.
    {"SchedulerDialogAtTheStart", u"scheduler-dialog:at=start@1", {Start(), Restart(), Macro(), Close()}, kBR, 1, {"dialog answered \"Local Torvane Task Scheduler\" return"}},
    {"SchedulerDialogAtTheStartIsForgottenByTheNextMacro", u"scheduler-dialog:at=start@1", {Start(), Macro(), Restart(), Close()}, kBB, 1, {"dialog answered \"Local Torvane Task Scheduler\" return"}},
    {"ErrorBoxAtTheStart", u"error-box:at=start", {Start(), Macro(), Close()}, kB, 1, {"dialog answered \"Microsoft Visual Basic\" return"}},
    {"BreakWindowAtTheStart", u"break-window:at=start", {Start(), Macro(), Close()}, kB, 1, {"dialog answered \"Microsoft Visual Basic [break] - TVMacro1\" close"}},
    {"ChildDialogAtTheStart", u"child-dialog:at=start", {Start(), Macro(), Close()}, kB, 1, {"dialog answered \"Formlyn\" escape"}},
    {"OwnDialogAtTheStart", u"dialog:title=Torvane 2013 licence,key=return,at=start", {Start(), Macro(), Close()}, kB, 1, {"dialog answered \"Torvane 2013 licence\" return"}},
    {"UnknownDialogAtTheStart", u"dialog:title=Save changes,key=return,at=start@1", {StartInVain(), AwaitEnd(), Restart(kFailed), Macro(), Close()}, kBB, 1, {"dialog shown \"Save changes\""}, {"dialog answered", "dialog ignored"}, {}, Pace::Hasty},
    {"ChildOfAnotherProgramAtTheStart", u"child-dialog:at=start,parent=Formlyn host@1", {StartInVain(), AwaitEnd(), Restart(kFailed), Macro(), Close()}, kBB, 1, {"dialog shown \"Formlyn\""}, {"dialog answered", "dialog ignored"}, {}, Pace::Hasty},

    // Calls that fail at the start. What leaves a text behind isn't started again: the text makes the close tell its code.
    {"ThrowsRevisionNumber", u"throw:member=RevisionNumber,code=0x80010105@1", {Start(kThrown, kNoRevision), Restart(kThrown, kThrown, kNoRevision), Start(), Macro(), Close()}, kBB, 1},
    {"ThrowsTheFirstToggle", u"throw:member=SetUserPreferenceToggle,code=0x80010105@1", {Start(kThrown), Restart(kThrown), Macro(), Close()}, kBB, 1},
    {"ThrowsTheSecondToggle", u"throw:member=SetUserPreferenceToggle,code=0x80010105@2", {Start(kThrown), Restart(kThrown), Macro(), Close()}, kBB, 1},
    {"ThrowsTheIntegerPreference", u"throw:member=SetUserPreferenceIntegerValue,code=0x80010105@1", {Start(kThrown), Restart(kThrown), Macro(), Close()}, kBB, 1},
    {"ThrowsSetInteractive", u"throw:member=SetInteractive,code=0x80010105@1", {Start(), Macro(), Close()}, kB, 1, {"ended"}},
    {"ThrowsSetBackgroundRun", u"throw:member=SetBackgroundRun,code=0x80010105@1", {Start(kThrown, kNotHidden), Restart(kThrown, kThrown, kNotHidden), Start(), Macro(), Close()}, kBB, 1, {}, {}},
    {"ThrowsSetBackgroundRunAndIsClosedPolitely", u"throw:member=SetBackgroundRun,code=0x80010105@1", {Start(kThrown, kNotHidden), Restart(), Macro(), Close()}, kBB, 1, {"call Torvane.exitapplication"}},
    {"ThrowsFrame", u"throw:member=Frame,code=0x80010105@1", {Start(kThrown, kNotHidden), Close(kThrown, kThrown, kNotHidden)}, kB, 0, {}, {"call Torvane.setmainwindowshown", "ended"}},
    {"ThrowsGetWindowHandle", u"throw:member=GetWindowHandle,code=0x80010105@1", {Start(kThrown, kNotHidden), Close(0, 0, kNotHidden)}, kB, 0, {"ended"}},
    {"ThrowsSetAppSwitch", u"throw:member=SetAppSwitch,code=0x80010105@1", {Start(), Macro(), Close()}, kB, 1, {"ended"}},
    {"ThrowsSetMainWindowShown", u"throw:member=SetMainWindowShown,code=0x80010105@1", {Start(kThrown, kNotHidden), Close(0, 0, kNotHidden)}, kB, 0, {"ended"}},
    {"DiesInTheStart", u"throw:member=Frame,code=0x800706BA@1; crash:at=close", {Start(kServerGone, kNotHidden), Restart(), Macro(), Close()}, kBB, 1, {"fault crash at close"}},

    // A macro.
    {"CrashesInAMacro", u"crash:at=macro@1", {Start(), Macro(), Maintain(), Close()}, kBB, 2, {"fault crash at macro"}, {}, {}, Pace::Real},
    {"CrashesInTwoMacros", u"crash:at=macro@1-2", {Start(), Macro(), Maintain(), Close()}, kBBB, 3},
    {"CrashesInEachMacro", u"crash:at=macro", {Start(), Macro(kServerGone, kMacroFailed), AwaitEnd(), Close()}, kBBB, 3},
    {"CrashesInEachMacroOfTwoFiles", u"crash:at=macro@1-3", {Start(), Macro(kServerGone, kMacroFailed), AwaitEnd(), Macro(), Maintain(), Close()}, {"/B", "/B", "/B", "/B"}, 4},
    {"HangsInAMacroUntilItIsEndedFromOutside", u"hang@1", {Start(), Macro().With(Beside::Kill), Maintain(), Close()}, kBB, 2, {"fault hang at macro"}},
    {"CrashesAtASave", u"crash:at=save@1", {Start(), Save(), Maintain(), Close()}, kBB, 2, {"fault crash at save"}, {}, kCopy},
    {"CrashesAtEachSave", u"crash:at=save", {Start(), Save(kServerGone, kMacroFailed), AwaitEnd(), Close()}, kBBB, 3, {}, {"saved"}, kCopy},
    {"HangsAtASaveUntilItIsEndedFromOutside", u"hang:at=save@1", {Start(), Save().With(Beside::Kill), Maintain(), Close()}, kBB, 2, {"fault hang at save"}, {}, kCopy},
    {"Leaks", u"leak:mib=150", {Start(), Macro(), Maintain(), Macro(), Maintain(), Macro(), Maintain(), Close()}, kBB, 3, {"fault leak at macro", "ended"}},
    {"ThrowsRunMacroEx", u"throw:member=RunMacroEx,code=0x80010105@1", {Start(), Macro(), Maintain(), Close()}, kBB, 1},
    {"ThrowsEachRunMacroEx", u"throw:member=RunMacroEx,code=0x80010105", {Start(), Macro(kThrown, kMacroFailed), Close(0, 0, kMacroFailed)}, kBBB, 0},
    {"ThrowsEachRunMacroExAfterTwoRestarts", u"throw:member=RunMacroEx,code=0x80010105", {Start(), Restart(), Restart(), Macro(kThrown, kMacroFailed), Close(0, 0, kMacroFailed)}, {"/B", "/B", "/B", "/B", "/B"}, 0},
    {"ThrowsEachRunMacroExAfterThreeRestarts", u"throw:member=RunMacroEx,code=0x80010105", {Start(), Restart(), Restart(), Restart(), Macro(kThrown, kMacroFailed), Close(0, 0, kMacroFailed)}, {"/B", "/B", "/B", "/B", "/B"}, 0},
    {"ThrowsEachRunMacroExAfterNineRestarts", u"throw:member=RunMacroEx,code=0x80010105", {Start(), Restart(), Restart(), Restart(), Restart(), Restart(), Restart(), Restart(), Restart(), Restart(), Macro(kThrown, kMacroFailed), Close(0, 0, kMacroFailed)}, {"/B", "/B", "/B", "/B", "/B", "/B", "/B", "/B", "/B", "/B"}, 0},
    {"FailsAMacroWithAReason", u"fail-macro:code=23@1", {Start(), Macro(kFailed, "Failed to run Torvane macro. Reason: Permission denied."), Close(0, 0, "Failed to run Torvane macro. Reason: Permission denied.")}, kB, 1, {"ended"}},
    {"FailsAMacroWithoutACode", u"fail-macro@1", {Start(), Macro(kFailed, kMacroFailed), Close(0, 0, kMacroFailed)}, kB, 1},
    {"FailsAMacroAndThenNone", u"fail-macro:code=27@1", {Start(), Macro(kFailed, "Failed to run Torvane macro. Reason: File save failed."), Save(0, "Failed to run Torvane macro. Reason: File save failed."), Close(0, 0, "Failed to run Torvane macro. Reason: File save failed.")}, kB, 2, {"ended"}, {}, kCopy},
    {"ARevisionBelow17", u"revision=16.2.0", {Start(), Save(), Maintain(), Close()}, kB, 1, {"call Torvane.runmacro "}, {"call Torvane.runmacroex"}, kCopy},
    {"ARevisionBelow17FailsWithoutAReason", u"revision=16.5; fail-macro:code=23@1", {Start(), Macro(kFailed, kMacroFailed), Close(0, 0, kMacroFailed)}, kB, 1, {"call Torvane.runmacro "}, {"call Torvane.runmacroex"}},
    {"ARevisionBelow17ThrowsRunMacro", u"revision=16; throw:member=RunMacro,code=0x80010105@1", {Start(), Macro(), Maintain(), Close()}, kBB, 1, {"call Torvane.runmacro "}, {"call Torvane.runmacroex"}},
    {"Revision17", u"revision=17.0; fail-macro:code=2@1", {Start(), Macro(kFailed, "Failed to run Torvane macro. Reason: Macros are disabled."), Close(0, 0, "Failed to run Torvane macro. Reason: Macros are disabled.")}, kB, 1, {"call Torvane.runmacroex "}, {"call Torvane.runmacro "}},

    // Dialogs while a macro runs.
    {"SchedulerDialogInAMacro", u"scheduler-dialog@1", {Start(), Macro(), Maintain(), Close()}, kBR, 2, {"dialog answered \"Local Torvane Task Scheduler\" return"}},
    {"SchedulerDialogInFourMacrosRenewsTheAttempts", u"scheduler-dialog@1-4", {Start(), Macro(), Maintain(), Close()}, {"/B", "/R", "/R", "/R", "/R"}, 5},
    {"SchedulerDialogAndTwoFailedCalls", u"scheduler-dialog@1; throw:member=RunMacroEx,code=0x80010105@2-", {Start(), Macro(kThrown, kMacroFailed), Close(0, 0, kMacroFailed)}, kBR, 1},
    {"SchedulerDialogAtASaveInAMacroThatFails", u"scheduler-dialog@1; fail-macro:code=5@1", {Start(), Macro(), Maintain(), Close()}, kBR, 2},
    {"ErrorBoxInAMacro", u"error-box", {Start(), Macro(), Maintain(), Close()}, kB, 1, {"dialog answered \"Microsoft Visual Basic\" return"}, {}, {}, Pace::Real},
    {"BreakWindowInAMacro", u"break-window", {Start(), Macro(), Maintain(), Close()}, kB, 1, {"dialog answered \"Microsoft Visual Basic [break] - TVMacro1\" close"}},
    {"ChildDialogInAMacro", u"child-dialog", {Start(), Macro(), Maintain(), Close()}, kB, 1, {"dialog answered \"Formlyn\" escape"}},
    {"OwnDialogInAMacro", u"dialog:title=About Torvane.exe,key=return", {Start(), Macro(), Maintain(), Close()}, kB, 1, {"dialog answered \"About Torvane.exe\" return"}},
    {"ErrorBoxAtASave", u"error-box:at=save", {Start(), Save(), Maintain(), Close()}, kB, 1, {"dialog answered \"Microsoft Visual Basic\" return"}, {}, kCopy},
    {"UnknownDialogInAMacro", u"dialog:title=Save changes,key=return", {Start(), Macro().With(Beside::Answer), Maintain(), Close()}, kB, 1, {"dialog answered \"Save changes\" return"}, {"dialog ignored"}},
    {"ErrorBoxAndAFailure", u"error-box@1; break-window@1; fail-macro:code=12@1", {Start(), Macro(kFailed, "Failed to run Torvane macro. Reason: Unhandled exception."), Close(0, 0, "Failed to run Torvane macro. Reason: Unhandled exception.")}, kB, 1, {"dialog answered \"Microsoft Visual Basic\" return", "dialog answered \"Microsoft Visual Basic [break] - TVMacro1\" close"}},

    // Events of documents.
    {"GoesAwayDuringTheFirstEvent", u"go-away@1", {Start(), Save(), Maintain(), Close()}, kBB, 2, {"fault go-away at event"}, {}, kCopy},
    {"GoesAwayWhileADocumentOpens", u"go-away:event=22@1", {Start(), Save(), Maintain(), Close()}, kBB, 2, {"fault go-away at event"}, {}, kCopy},
    {"GoesAwayWheneverADocumentOpens", u"go-away:event=22", {Start(), Save(kServerGone, kMacroFailed), AwaitEnd(), Close()}, kBBB, 3, {}, {"saved"}, {}},
    {"GoesAwayWhileADocumentIsLoadedOrWritten", u"go-away:event=7@1-2", {Start(), Save(), Maintain(), Close()}, kBBB, 3, {}, {}, kCopy},
    {"GoesAwayWhileADocumentCloses", u"go-away:event=2@1", {Start(), Save(), Maintain(), Close()}, kBB, 2, {"saved"}, {}, kCopy},
    {"ThrowsEachGetFirstDocument", u"throw:member=GetFirstDocument,code=0x80010105", {Start(), Save(), Maintain(), Close()}, kB, 1, {"saved"}, {}, {}},
    {"ThrowsOneGetFirstDocument", u"throw:member=GetFirstDocument,code=0x80010105@1", {Start(), Save(), Maintain(), Close()}, kB, 1, {"saved"}, {}, kCopy},
    {"ThrowsGetType", u"throw:member=GetType,code=0x80010105", {Start(), Save(), Maintain(), Close()}, kB, 1, {"saved"}, {}, {}},
    {"ThrowsGetNextDocument", u"throw:member=GetNextDocument,code=0x80010105", {Start(), Save(), Maintain(), Close()}, kB, 1, {"saved"}, {}, kCopy},
    {"ThrowsConfigurationManager", u"throw:member=ConfigurationManager,code=0x80010105", {Start(), Save(), Maintain(), Close()}, kB, 1, {"saved"}, {}, {"copy.tvnprt []"}},
    {"ThrowsActiveConfiguration", u"throw:member=ActiveConfiguration,code=0x80010105", {Start(), Save(), Maintain(), Close()}, kB, 1, {"saved"}, {}, {"copy.tvnprt []"}},
    {"ThrowsGetCurrentSheet", u"throw:member=GetCurrentSheet,code=0x80010105", {Start(), Draw(), Maintain(), Close()}, kB, 1, {"saved"}, {}, {"copy.tvndrw []"}},
    {"ADrawing", u"", {Start(), Draw(), Maintain(), Close()}, kB, 1, {"saved"}, {"call Torvane.getuserpreferencetoggle"}, {"copy.tvndrw [Second]"}},
    {"ADrawingAfterTheSchedulerDialog", u"scheduler-dialog@1", {Start(), Draw(), Maintain(), Close()}, kBR, 2, {"call Torvane.getuserpreferencetoggle 347", "call ModelDoc2.getviewarrays"}, {}, {"copy.tvndrw [Second]"}},
    {"ThrowsThePreferenceOfLinkedTextsAfterTheSchedulerDialog", u"scheduler-dialog@1; throw:member=GetUserPreferenceToggle,code=0x80010105", {Start(), Draw(), Maintain(), Close()}, kBR, 2, {"call Torvane.getuserpreferencetoggle 347"}, {"call ModelDoc2.getviewarrays"}, {"copy.tvndrw [Second]"}},

    // The close.
    {"CrashesAtTheClose", u"crash:at=close", {Start(), Macro(), Close()}, kB, 1, {"fault crash at close"}, {"ended"}},
    {"HangsAtTheClose", u"hang:at=close", {Start(), Macro(), CloseByForce()}, kB, 1, {"fault hang at close"}, {"ended"}, {}, Pace::Hasty},
    {"IgnoresTheExit", u"ignore-exit", {Start(), Macro(), CloseByForce()}, kB, 1, {"fault ignore-exit at close"}, {"ended"}, {}, Pace::Hasty},
    {"ErrorBoxAtTheCloseIsAnsweredByNobody", u"error-box:at=close", {Start(), Macro(), CloseByForce()}, kB, 1, {"dialog shown \"Microsoft Visual Basic\""}, {"dialog answered", "dialog ignored", "ended"}, {}, Pace::Hasty},
    {"ThrowsSetInteractiveAtTheClose", u"throw:member=SetInteractive,code=0x80010105@2", {Start(), Close()}, kB, 0, {}, {"call Torvane.setappswitch 30 True", "ended"}},
    {"ThrowsSetAppSwitchAtTheClose", u"throw:member=SetAppSwitch,code=0x80010105@2", {Start(), Close()}, kB, 0, {"call Torvane.setappswitch 30 True"}, {"call Torvane.closealldocuments", "ended"}},
    {"ThrowsSetMainWindowShownAtTheClose", u"throw:member=SetMainWindowShown,code=0x80010105@2", {Start(), Close()}, kB, 0, {}, {"call Torvane.closealldocuments", "ended"}},
    {"ThrowsCloseAllDocuments", u"throw:member=CloseAllDocuments,code=0x80010105", {Start(), Close()}, kB, 0, {"call Torvane.closealldocuments True"}, {"call Torvane.exitapplication", "ended"}},
    {"ThrowsExitApplication", u"throw:member=ExitApplication,code=0x80010105", {Start(), Close()}, kB, 0, {"call Torvane.exitapplication"}, {"ended"}},
    {"IsNotTrusted", u"", {Start(), Macro(), Close(kFailed)}, kB, 1, {}, {"call Torvane.exitapplication", "call Torvane.setappswitch 30 True", "ended"}},

    // Several faults in one run.
    {"CrashThenErrorBoxThenFailure", u"crash:at=macro@1; error-box@2; fail-macro:code=28@3; ignore-exit", {Start(), Macro(), Maintain(), Macro(kFailed, "Failed to run Torvane macro. Reason: File open failed."), CloseByForce("Failed to run Torvane macro. Reason: File open failed.")}, kBB, 3, {"dialog answered \"Microsoft Visual Basic\" return", "fault ignore-exit at close"}, {"ended"}, {}, Pace::Hasty},
    {"LateStartThenCrashThenSchedulerDialog", u"register-late:seconds=1@1; crash:at=macro@1; scheduler-dialog@2; crash:at=close@1", {Start(), Save(), Maintain(), Close()}, {"/B", "/B", "/R"}, 3, {"fault register-late at start", "fault crash at close"}, {}, kCopy},
    {"SchedulerDialogAfterAFailedMacro", u"fail-macro:code=12@1; scheduler-dialog@2", {Start(), Macro(kFailed, "Failed to run Torvane macro. Reason: Unhandled exception."), Macro(kFailed, kMacroFailed), Maintain(), Macro(), Close()}, kBR, 3},
    {"CrashAtTheSecondStart", u"crash@2; crash:at=macro@1", {Start(), Macro(kFailed, kMacroFailed), Maintain(), Macro(), Close()}, kBBB, 2, {}, {}, {}, Pace::Hasty},
    {"DialogsAtTheStartAndInAMacro", u"child-dialog:at=start; break-window:at=start; error-box; crash:at=save@1", {Start(), Save(), Maintain(), Close()}, kBB, 2, {}, {}, kCopy},
};
// clang-format on

std::string Hexadecimal(Result code)
{
    char text[11];
    std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(code));
    return text;
}

class ApplicationControl : public testing::TestWithParam<ControlRow>
{
  protected:
    /// Does the step, and beside it what lets it come back.
    Outcome DoBeside(const Step& step)
    {
        std::thread other([&] {
            if (step.beside == Beside::Kill && application.AwaitLine("fault hang")) {
                application.Kill();
            } else if (step.beside == Beside::Answer) {
                EXPECT_TRUE(application.AnswerByHand(u"Save changes"));
            }
        });
        const Outcome outcome = Do(step);
        other.join();
        return outcome;
    }

    Outcome Do(const Step& step)
    {
        switch (step.deed) {
        case Deed::Start:
            return application.Start();
        case Deed::Restart:
            return application.Restart(step.given);
        case Deed::Macro:
            return application.RunMacro(kEmptyMacro);
        case Deed::Save:
            return application.RunMacro(application.SavingMacro());
        case Deed::Draw:
            return application.RunMacro(application.DrawingMacro());
        case Deed::Maintain:
            return application.Maintain();
        case Deed::Close:
            return application.Close(step.given);
        case Deed::AwaitEnd:
            EXPECT_TRUE(application.AwaitEnd());
            return {0, kNoMessage, 0};
        }
        return {};
    }

    void Expect(const Step& step, size_t number)
    {
        const Outcome outcome = DoBeside(step);
        const std::string place = "step " + std::to_string(number + 1);
        const bool hasGone = std::ranges::find(kServerGoneCodes, outcome.code) != std::end(kServerGoneCodes);
        EXPECT_EQ(Hexadecimal(hasGone ? kServerGone : outcome.code), Hexadecimal(step.result)) << place;
        if (step.deed != Deed::AwaitEnd) {
            EXPECT_EQ(outcome.message, step.message) << place;
        }
        EXPECT_GE(outcome.secondsWaited, step.seconds) << place;
    }

    ControlledApplication application;
};

} // namespace

TEST_P(ApplicationControl, ComesToItsDocumentedEndAndLeavesNothingBehind)
{
    const ControlRow& row = GetParam();
    application.Configure(row.faults, row.pace);
    for (size_t i = 0; i < row.steps.size(); ++i) {
        Expect(row.steps[i], i);
    }
    EXPECT_EQ(application.Starts(), row.starts);
    EXPECT_EQ(application.Lines("macro C:").size() + application.Lines("macro Z:").size(), row.macros);
    EXPECT_EQ(application.Outputs(), row.outputs);
    for (const std::string& line : row.shown) {
        EXPECT_NE(application.Lines(line).size(), 0u) << line;
    }
    for (const std::string& line : row.missing) {
        EXPECT_EQ(application.Lines(line).size(), 0u) << line;
    }
    EXPECT_EQ(application.LeftBehind(), std::vector<std::string>{});
}

TEST(ApplicationControlOfOneRun, TellsTheApplicationThisAndNothingElse)
{
    ControlledApplication application;
    application.Configure(u"");
    EXPECT_EQ(application.Start().code, 0);
    EXPECT_EQ(application.Close(0).code, 0);
    EXPECT_EQ(application.Lines(), (std::vector<std::string>{
                                       "started /B",
                                       "registered",
                                       "call Torvane.revisionnumber",
                                       "call Torvane.setuserpreferencetoggle 290 True",
                                       "call Torvane.setuserpreferencetoggle 291 True",
                                       "call Torvane.setuserpreferenceintegervalue 253 0",
                                       "call Torvane.setinteractive False",
                                       "call Torvane.setbackgroundrun True",
                                       "call Torvane.frame",
                                       "call Frame.getwindowhandle",
                                       "call Torvane.setappswitch 30 False",
                                       "call Torvane.setmainwindowshown False",
                                       "call Torvane.setinteractive False",
                                       "call Torvane.setappswitch 30 True",
                                       "call Torvane.setmainwindowshown False",
                                       "call Torvane.closealldocuments True",
                                       "call Torvane.exitapplication",
                                       "ended",
                                   }));
    EXPECT_EQ(application.LeftBehind(), std::vector<std::string>{});
}

TEST(ApplicationControlOfOneRun, TellsTheReasonOfEachErrorCodeThatHasOne)
{
    struct Reason
    {
        const char* code;
        const char* text;
    };
    constexpr Reason kReasons[] = {
        {"1", " Reason: Invalid argument provided in macro."},
        {"2", " Reason: Macros are disabled."},
        {"3", ""},
        {"4", ""},
        {"5", " Reason: Out of memory."},
        {"6", " Reason: Invalid procedure name."},
        {"7", " Reason: Invalid property type."},
        {"8", " Reason: Sub or Function expected."},
        {"9", " Reason: Invalid parameter count."},
        {"10", " Reason: Invalid variable type."},
        {"11", ""},
        {"12", " Reason: Unhandled exception."},
        {"13", " Reason: Value overflow."},
        {"14", " Reason: Type mismatch."},
        {"15", " Reason: Required parameter missing."},
        {"16", ""},
        {"17", ""},
        {"18", ""},
        {"19", ""},
        {"20", " Reason: Call failed."},
        {"21", ""},
        {"22", " Reason: Invalid index provided."},
        {"23", " Reason: Permission denied."},
        {"24", ""},
        {"25", " Reason: Too many open files."},
        {"26", ""},
        {"27", " Reason: File save failed."},
        {"28", " Reason: File open failed."},
        {"29", ""},
        {"255", ""},
    };
    std::string faults;
    for (size_t i = 0; i < std::size(kReasons); ++i) {
        faults += (i == 0 ? "fail-macro:code=" : ";fail-macro:code=") + std::string(kReasons[i].code) + "@" +
                  std::to_string(i + 1);
    }
    ControlledApplication application;
    application.Configure(std::u16string(faults.begin(), faults.end()));
    EXPECT_EQ(application.Start().code, 0);
    for (const Reason& reason : kReasons) {
        const Outcome outcome = application.RunMacro(kEmptyMacro);
        EXPECT_EQ(outcome.code, kFailed) << reason.code;
        EXPECT_EQ(outcome.message, std::string("Failed to run Torvane macro.") + reason.text) << reason.code;
    }
    EXPECT_EQ(application.Close(0).code, 0);
    EXPECT_EQ(application.Starts(), kB);
    EXPECT_EQ(application.LeftBehind(), std::vector<std::string>{});
}

TEST(ApplicationControlOfTheMachine, SaysThatAnApplicationWithoutARegisteredClassIsNotInstalled)
{
    ControlledApplication application;
    {
        const BorrowedPlaces places(ApplicationPlaces());
        application.Configure(u"");
        const Outcome outcome = application.Start();
        EXPECT_EQ(Hexadecimal(outcome.code), "0x800401F3");
        EXPECT_EQ(outcome.message, "Torvane 2013 is not installed.");
        EXPECT_EQ(outcome.secondsWaited, 0u);
        EXPECT_EQ(application.Close(0).code, 0);
    }
    EXPECT_EQ(application.Starts(), std::vector<std::string>{});
    EXPECT_EQ(application.LeftBehind(), std::vector<std::string>{});
}

TEST(ApplicationControlOfTheMachine, CannotStartAProgramThatIsMissing)
{
    ControlledApplication application;
    {
        const RegistryPlace products(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Torvane");
        const BorrowedPlaces places({products});
        constexpr wchar_t kMissing[] = L"C:\\No such folder";
        const auto* bytes = reinterpret_cast<const BYTE*>(kMissing);
        EXPECT_EQ(products.Put(L"Torvane 2013\\Setup",
                               {L"Torvane Folder", REG_SZ, std::vector<BYTE>(bytes, bytes + sizeof kMissing)}),
                  ERROR_SUCCESS);
        application.Configure(u"");
        const Outcome outcome = application.Start();
        EXPECT_EQ(outcome.code, kFailed);
        EXPECT_EQ(outcome.message, kNotStarted);
        EXPECT_EQ(outcome.secondsWaited, 0u);
    }
    EXPECT_EQ(application.Starts(), std::vector<std::string>{});
    EXPECT_EQ(application.LeftBehind(), std::vector<std::string>{});
}

TEST(ApplicationControlOfTheMachine, StartsTheRegisteredServerWhereNoSetupIsKnown)
{
    ControlledApplication application;
    {
        const BorrowedPlaces places({RegistryPlace(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Torvane")});
        application.Configure(u"");
        EXPECT_EQ(application.Start().code, 0);
        EXPECT_EQ(application.Close(0).code, 0);
    }
    EXPECT_EQ(application.Starts(), std::vector<std::string>{"/R"});
    EXPECT_EQ(application.Manager().RequestedVersion(), 2013);
    EXPECT_EQ(application.LeftBehind(), std::vector<std::string>{});
}

TEST(ApplicationControlOfTheMachine, StartsWhatIsInstalledInPlaceOfAYearThatIsNot)
{
    ControlledApplication application;
    application.Configure(u"", Pace::Patient, 1, 2012);
    EXPECT_EQ(application.Start().code, 0);
    EXPECT_EQ(application.Close(0).code, 0);
    EXPECT_EQ(application.Starts(), kB);
    EXPECT_EQ(application.Manager().RequestedVersion(), 2013);
    EXPECT_EQ(application.LeftBehind(), std::vector<std::string>{});
}

TEST(ApplicationControlOfTheMachine, RestoresStartUpAddInsAfterACrash)
{
    ControlledApplication application;
    {
        const RegistryPlace user(HKEY_CURRENT_USER, L"Software\\Torvane");
        const BorrowedPlaces places({user});
        EXPECT_EQ(user.Put(L"AddInsStartup\\Toolbox", {L"", REG_DWORD, {1, 0, 0, 0}}), ERROR_SUCCESS);
        application.Configure(u"crash:at=macro@1");
        application.Manager().SuppressStartupAddIns(StartupAddIns::Suppress);
        EXPECT_EQ(ValueLines({user}),
                  std::vector<std::string>{"Torvane\\AddInsStartup\\Toolbox [] type 4: 00 00 00 00"});
        EXPECT_EQ(application.Start().code, 0);
        EXPECT_EQ(application.RunMacro(kEmptyMacro).code, 0);
        EXPECT_EQ(application.Close(0).code, 0);
        application.Manager().SuppressStartupAddIns(StartupAddIns::Restore);
        EXPECT_EQ(ValueLines({user}),
                  std::vector<std::string>{"Torvane\\AddInsStartup\\Toolbox [] type 4: 01 00 00 00"});
    }
    EXPECT_EQ(application.Starts(), kBB);
    EXPECT_EQ(application.LeftBehind(), std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(Faults, ApplicationControl, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace tv
