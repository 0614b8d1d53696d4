// The listener's end of the pipe: takes messages from one client after the other until it is told to stop.
#pragma once

#include "com/base.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace tv::local {

struct HandleCloser
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<HANDLE, HandleCloser>;

/// How a wait for a client went.
enum class Waited
{
    Done,
    Stopped, ///< the stop event came first
    Failed,  ///< the client went, or took longer than it may
};

class PipeServer
{
  public:
    /// The event stops every wait. Raises std::runtime_error when another listener has the pipe.
    explicit PipeServer(HANDLE stopEvent);

    /// Serves the next client: hands its message over, answers it unless told not to, and waits until it has gone.
    /// False when the stop event came.
    bool ServeNext(const std::function<void(std::span<const uint8_t>)>& take, bool answers);

  private:
    Waited Finish(HANDLE pipe, OVERLAPPED& operation, bool began, DWORD limit, DWORD& bytes) const;
    Waited Connect(HANDLE pipe) const;
    Waited Read(HANDLE pipe, std::span<uint8_t> buffer, DWORD limit, DWORD& bytes) const;
    Waited Answer(HANDLE pipe) const;

    HANDLE stop;
    OwnedHandle mutex;
    OwnedHandle ready; ///< signalled by what is under way on the pipe
    OwnedHandle waiting;
};

} // namespace tv::local
