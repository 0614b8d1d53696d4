// The faults that there are: names, when they happen, what they are told.
#pragma once

#include "cad/faults.h"

#include <string_view>

namespace tv::app {

/// What a fault text can tell a fault, as bits.
enum FaultArgument : unsigned
{
    kNoArgument = 0,
    kAt = 1,
    kSeconds = 2,
    kMib = 4,
    kMacroCode = 8,
    kResultCode = 16,
    kMember = 32,
    kEvent = 64,
    kTitle = 128,
    kParent = 256,
    kKey = 512,
};

struct FaultRow
{
    std::string_view name;
    FaultKind kind;
    FaultMoment moment;
    unsigned needs;
    unsigned takes; ///< beside those that it needs
    std::string_view title;
    std::string_view parent;
    AnswerKey key;
};

/// The titles are those of the dialogs that an unattended run meets.
inline constexpr FaultRow kFaultRows[] = {
    {"never-register", FaultKind::NeverRegister, FaultMoment::Start, kNoArgument, kNoArgument, "", "",
     AnswerKey::Return},
    {"register-late", FaultKind::RegisterLate, FaultMoment::Start, kSeconds, kNoArgument, "", "", AnswerKey::Return},
    {"crash", FaultKind::Crash, FaultMoment::Start, kNoArgument, kAt, "", "", AnswerKey::Return},
    {"hang", FaultKind::Hang, FaultMoment::Macro, kNoArgument, kAt, "", "", AnswerKey::Return},
    {"ignore-exit", FaultKind::IgnoreExit, FaultMoment::Close, kNoArgument, kNoArgument, "", "", AnswerKey::Return},
    {"leak", FaultKind::Leak, FaultMoment::Macro, kMib, kNoArgument, "", "", AnswerKey::Return},
    {"fail-macro", FaultKind::FailMacro, FaultMoment::Macro, kNoArgument, kMacroCode, "", "", AnswerKey::Return},
    {"throw", FaultKind::Throw, FaultMoment::Call, kMember | kResultCode, kNoArgument, "", "", AnswerKey::Return},
    {"go-away", FaultKind::GoAway, FaultMoment::Event, kNoArgument, kEvent, "", "", AnswerKey::Return},
    {"dialog", FaultKind::Dialog, FaultMoment::Macro, kTitle | kKey, kAt | kParent, "", "", AnswerKey::Return},
    {"scheduler-dialog", FaultKind::Dialog, FaultMoment::Macro, kNoArgument, kAt, "Local Torvane Task Scheduler", "",
     AnswerKey::Return},
    {"error-box", FaultKind::Dialog, FaultMoment::Macro, kNoArgument, kAt, "Microsoft Visual Basic", "",
     AnswerKey::Return},
    {"break-window", FaultKind::Dialog, FaultMoment::Macro, kNoArgument, kAt,
     "Microsoft Visual Basic [break] - TVMacro1", "", AnswerKey::Close},
    {"child-dialog", FaultKind::Dialog, FaultMoment::Macro, kNoArgument, kAt | kParent, "Formlyn", "Torvane",
     AnswerKey::Escape},
};

struct FaultArgumentRow
{
    std::string_view name;
    unsigned bits; ///< of FaultArgument; "code" stands for two
    int64_t lowest;
    int64_t highest;
};

/// A row whose bounds are 0 is a text.
inline constexpr FaultArgumentRow kFaultArguments[] = {
    {"at", kAt, 0, 0},
    {"seconds", kSeconds, 1, 3600},
    {"mib", kMib, 1, 4096},
    {"code", kMacroCode, 0, 255},
    {"code", kResultCode, 0x80000000, 0xFFFFFFFF},
    {"member", kMember, 0, 0},
    {"event", kEvent, 1, 1000},
    {"title", kTitle, 0, 0},
    {"parent", kParent, 0, 0},
    {"key", kKey, 0, 0},
};

} // namespace tv::app
