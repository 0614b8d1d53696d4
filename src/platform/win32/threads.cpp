#include "platform/win32/threads.h"

#include "com/result.h"
#include "platform/win32/handle.h"

#include <process.h>

namespace tv::win32 {

namespace {

class Win32StopEvent final : public StopEvent
{
  public:
    explicit Win32StopEvent(Handle created) : event(std::move(created)) {}

    void Signal() override { ::SetEvent(event.get()); }
    bool IsSignalled() override { return ::WaitForSingleObject(event.get(), 0) == WAIT_OBJECT_0; }

  private:
    Handle event;
};

unsigned __stdcall RunBody(void* argument)
{
    const std::unique_ptr<std::function<void()>> body(static_cast<std::function<void()>*>(argument));
    (*body)();
    return 0;
}

class Win32WorkerThread final : public WorkerThread
{
  public:
    explicit Win32WorkerThread(Handle started) : thread(std::move(started)) {}
    // The body works on its owner's data, so nobody may outrun it.
    ~Win32WorkerThread() override { Win32WorkerThread::Join(); }

    void Join() override { ::WaitForSingleObject(thread.get(), INFINITE); }

  private:
    Handle thread;
};

} // namespace

std::unique_ptr<StopEvent> Win32Threads::MakeStopEvent()
{
    Handle created(::CreateEventW(nullptr, FALSE, FALSE, nullptr));
    if (!created) {
        throw ResultError(ResultFromSystemError(::GetLastError()));
    }
    return std::make_unique<Win32StopEvent>(std::move(created));
}

std::unique_ptr<WorkerThread> Win32Threads::StartThread(std::function<void()> body)
{
    // std::thread would bring a thread_local with a destructor, which keeps the module from unloading.
    auto argument = std::make_unique<std::function<void()>>(std::move(body));
    Handle started(reinterpret_cast<HANDLE>(::_beginthreadex(nullptr, 0, RunBody, argument.get(), 0, nullptr)));
    if (!started) {
        throw ResultError(E_OUTOFMEMORY);
    }
    argument.release();
    return std::make_unique<Win32WorkerThread>(std::move(started));
}

} // namespace tv::win32
