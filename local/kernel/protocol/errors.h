// Why a job of the geometry kernel failed. Errors are values: what a person reads, and a code that a program tests.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tv::kernel {

enum class ErrorCode
{
    BadRequest,        // the request itself makes no sense: unknown option, missing path
    FileNotFound,      // the source, or a file that it refers to, isn't there
    Damaged,           // the source is there, but is not what its extension says, or is broken
    FutureVersion,     // the source was written by a later version
    UnsupportedFormat, // no reader or writer for this extension
    UnsuitableSource,  // the target's format can't hold this kind of document
    UnknownItem,       // the document has no configuration, sheet or component of that name
    EmptyShape,        // the source was read, and there is nothing in it
    CannotWrite,       // the target can't be written: folder missing, no permission, disk full
    TimedOut,          // the job took longer than its limit and was ended
    OutOfMemory,       // the job wanted more memory than its limit and was ended
    Crashed,           // the job's process died
    Failed,            // the geometry library gave up for a reason of its own
    NoKernel,          // the kernel could not be started, or didn't connect in time
    KernelLost,        // the kernel went away during the job
};

struct ErrorName
{
    ErrorCode code;
    std::string_view name;
};

/// The codes as they stand in replies and in the output of `tvkernel`.
inline constexpr ErrorName kErrorNames[] = {
    {ErrorCode::BadRequest, "bad-request"},
    {ErrorCode::FileNotFound, "file-not-found"},
    {ErrorCode::Damaged, "damaged"},
    {ErrorCode::FutureVersion, "future-version"},
    {ErrorCode::UnsupportedFormat, "unsupported-format"},
    {ErrorCode::UnsuitableSource, "unsuitable-source"},
    {ErrorCode::UnknownItem, "unknown-item"},
    {ErrorCode::EmptyShape, "empty-shape"},
    {ErrorCode::CannotWrite, "cannot-write"},
    {ErrorCode::TimedOut, "timed-out"},
    {ErrorCode::OutOfMemory, "out-of-memory"},
    {ErrorCode::Crashed, "crashed"},
    {ErrorCode::Failed, "failed"},
    {ErrorCode::NoKernel, "no-kernel"},
    {ErrorCode::KernelLost, "kernel-lost"},
};

std::string_view NameOf(ErrorCode code);

/// The code of that name; Failed for a name that isn't in the table.
ErrorCode ErrorCodeOf(std::string_view name);

struct Error
{
    ErrorCode code = ErrorCode::Failed;
    std::string message; // UTF-8, one or two sentences, names the file
};

/// A value or an error. Test it as a bool before taking the value.
template <class T> class Outcome
{
  public:
    Outcome(T result) : value(std::move(result)) {}
    Outcome(Error why) : failure(std::move(why)) {}

    explicit operator bool() const { return value.has_value(); }
    const T& operator*() const { return value.value(); }
    const T* operator->() const { return &value.value(); }
    const Error& error() const { return failure.value(); }

  private:
    std::optional<T> value;
    std::optional<Error> failure;
};

} // namespace tv::kernel
