#include "pipe_server.h"

#include "interfaces/ids.h"
#include "listener/announcement.h"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace tv::local {

namespace {

// More than the longest message, so that one that is too long is seen as such.
constexpr DWORD kBufferSize = 1024;
/// A client that says nothing, or doesn't take its answer, must not keep the others out.
constexpr DWORD kClientLimitMs = 5000;
constexpr uint32_t kAnswer = 0;

const wchar_t* Wide(const char16_t* text)
{
    return reinterpret_cast<const wchar_t*>(text);
}

enum class Instance
{
    First,
    Further,
};

constexpr char kPipeIsTaken[] = "The pipe is another program's; is there a tvlisten running already? End it first.";

/// Wine doesn't refuse a second first instance, so the pipe is looked for too.
bool IsPipeThere()
{
    return WaitNamedPipeW(Wide(kNotificationPipe), 1) || GetLastError() == ERROR_SEM_TIMEOUT;
}

OwnedHandle MakePipe(Instance instance)
{
    if (instance == Instance::First && IsPipeThere()) {
        throw std::runtime_error(kPipeIsTaken);
    }
    const DWORD first = instance == Instance::First ? FILE_FLAG_FIRST_PIPE_INSTANCE : 0;
    HANDLE pipe = CreateNamedPipeW(Wide(kNotificationPipe), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED | first,
                                   PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS,
                                   PIPE_UNLIMITED_INSTANCES, kBufferSize, kBufferSize, 0, nullptr);
    if (pipe == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        throw std::runtime_error(error == ERROR_ACCESS_DENIED
                                     ? std::string(kPipeIsTaken)
                                     : "The pipe can't be made (Windows error " + std::to_string(error) + ").");
    }
    return OwnedHandle(pipe);
}

} // namespace

PipeServer::PipeServer(HANDLE stopEvent)
    : stop(stopEvent),
      // The senders' turns are by this mutex; while there is a listener, it is there.
      mutex(CreateMutexW(nullptr, FALSE, Wide(kNotificationMutex))), ready(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      waiting(MakePipe(Instance::First))
{}

Waited PipeServer::Finish(HANDLE pipe, OVERLAPPED& operation, bool began, DWORD limit, DWORD& bytes) const
{
    const DWORD error = began ? ERROR_SUCCESS : GetLastError();
    if (error == ERROR_PIPE_CONNECTED) {
        return Waited::Done;
    }
    if (error != ERROR_SUCCESS && error != ERROR_IO_PENDING && error != ERROR_MORE_DATA) {
        return Waited::Failed;
    }
    const HANDLE events[] = {stop, operation.hEvent};
    const DWORD came = WaitForMultipleObjects(2, events, FALSE, limit);
    if (came != WAIT_OBJECT_0 + 1) {
        CancelIoEx(pipe, &operation);
        GetOverlappedResult(pipe, &operation, &bytes, TRUE);
        return came == WAIT_OBJECT_0 ? Waited::Stopped : Waited::Failed;
    }
    const bool done = GetOverlappedResult(pipe, &operation, &bytes, FALSE) || GetLastError() == ERROR_MORE_DATA;
    return done ? Waited::Done : Waited::Failed;
}

Waited PipeServer::Connect(HANDLE pipe) const
{
    OVERLAPPED operation{};
    operation.hEvent = ready.get();
    DWORD bytes = 0;
    const bool began = ConnectNamedPipe(pipe, &operation) != FALSE;
    return Finish(pipe, operation, began, INFINITE, bytes);
}

Waited PipeServer::Read(HANDLE pipe, std::span<uint8_t> buffer, DWORD limit, DWORD& bytes) const
{
    OVERLAPPED operation{};
    operation.hEvent = ready.get();
    const bool began = ReadFile(pipe, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr, &operation) != FALSE;
    return Finish(pipe, operation, began, limit, bytes);
}

Waited PipeServer::Answer(HANDLE pipe) const
{
    OVERLAPPED operation{};
    operation.hEvent = ready.get();
    DWORD bytes = 0;
    const bool began = WriteFile(pipe, &kAnswer, sizeof kAnswer, nullptr, &operation) != FALSE;
    return Finish(pipe, operation, began, kClientLimitMs, bytes);
}

bool PipeServer::ServeNext(const std::function<void(std::span<const uint8_t>)>& take, bool answers)
{
    const Waited connected = Connect(waiting.get());
    if (connected == Waited::Stopped) {
        return false;
    }
    // The next client finds an open end before this one has its answer, however soon it comes.
    const OwnedHandle pipe = std::exchange(waiting, MakePipe(Instance::Further));
    std::vector<uint8_t> buffer(kBufferSize);
    DWORD size = 0;
    Waited went = connected == Waited::Done ? Read(pipe.get(), buffer, kClientLimitMs, size) : connected;
    if (went == Waited::Done) {
        take(std::span(buffer).first(size));
        went = answers ? Answer(pipe.get()) : Waited::Done;
    }
    if (went == Waited::Done) {
        // An answer that wasn't read yet would go with the pipe; the read ends when the client closes its end.
        DWORD nothing = 0;
        went = Read(pipe.get(), buffer, answers ? kClientLimitMs : INFINITE, nothing);
    }
    return went != Waited::Stopped;
}

} // namespace tv::local
