#pragma once

// The macro language: Visual Basic for Applications, as far as text macros use it.
//
//     macro::CompileResult compiled = macro::Compile(text, {.library = &library});
//     if (!compiled.module) { … compiled.problems … }
//     macro::Machine machine(host, {});
//     macro::RunResult result = machine.Run(*compiled.module, u"main");
//
// An application gives its objects as classes derived from Object, its enumerations through Library, and everything
// else that a macro reaches (files, declared functions, message boxes) through Host.

#include "macro/host.h"

#include <atomic>
#include <chrono>
#include <map>
#include <memory>

namespace tv::macro {

/// A compiled macro. Immutable; several machines may run it.
class Module;

/// Why a text is no macro. Lines and columns count from 1.
struct Problem
{
    int line = 0;
    int column = 0;
    std::u16string message;
};

struct CompileOptions
{
    /// May be null: then the language alone is known. Must outlive the call only.
    const Library* library = nullptr;
    /// Constants for #If; VBA6, VBA7, Win32 and Win64 are True unless given otherwise.
    std::map<std::u16string, int32_t> conditions;
};

struct CompileResult
{
    /// Null when there are problems.
    std::shared_ptr<const Module> module;
    std::vector<Problem> problems;
};

CompileResult Compile(std::u16string_view source, const CompileOptions& options = {});

/// A variable that a procedure uses without declaring it.
struct UndeclaredVariable
{
    std::u16string name;
    /// Its first use, counted from 1.
    int line = 0;
    int column = 0;
    /// How often its value is read, a value is assigned to it, and it is handed over so that another may assign to it.
    int reads = 0;
    int assignments = 0;
    int handedToProcedures = 0;
    int handedToMembers = 0;
    /// A name that is declared where it is used and differs from it by one slip of the hand, as it is declared; empty
    /// when there is none.
    std::u16string similarName;
};

/// The variables that a macro uses without declaring them, in the order of their first use. Empty for a text that can't
/// be parsed.
std::vector<UndeclaredVariable> UndeclaredVariables(std::u16string_view source, const CompileOptions& options = {});

/// Whether one name could be the other with one letter left out, added, changed or swapped with its neighbour; in a
/// name of eight letters or more it may be two. Names that differ in digits or in a plural's s alone are two names.
bool LooksMisspelled(std::u16string_view name, std::u16string_view meant);

struct Limits
{
    /// Nested procedure calls; beyond it error 28.
    int32_t callDepth = 5000;
    /// Bytes that the macro's values may take; beyond it error 7.
    uint64_t memory = uint64_t{512} << 20;
    /// 0 means without limit. The run ends when it is over; no handler catches that.
    std::chrono::milliseconds runTime{0};
};

enum class Outcome
{
    Ok,
    /// The macro text doesn't compile.
    CompileError,
    /// An error that no handler of the macro took.
    RuntimeError,
    /// Ended by RequestStop.
    Stopped,
    /// Ended by the limit of run time.
    TimeLimit,
    NoSuchProcedure,
};

struct RunResult
{
    Outcome outcome = Outcome::Ok;
    int32_t number = 0;
    std::u16string description;
    std::u16string source;
    /// The line at which the macro ended with an error; 0 if none.
    int line = 0;
    /// What a function that was run returned.
    Value value;
};

/// Runs macros, one at a time. Module-level variables start anew with each run.
class Machine
{
public:
    Machine(Host& host, const Limits& limits);
    ~Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    /// Runs a procedure. Missing arguments must be optional.
    RunResult Run(const Module& module, std::u16string_view procedure, std::vector<Value> arguments = {});

    /// Ends the run soon, from any thread. A run that starts later isn't affected.
    void RequestStop();

private:
    Host& host;
    Limits limits;
    std::atomic<bool> stopRequested = false;
};

} // namespace tv::macro
