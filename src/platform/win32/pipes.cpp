#include "platform/win32/pipes.h"

#include "platform/win32/handle.h"

namespace tv::win32 {

namespace {

class Win32Mutex final : public NamedMutex
{
  public:
    explicit Win32Mutex(Handle created) : mutex(std::move(created)) {}

    void Acquire() override { ::WaitForSingleObject(mutex.get(), INFINITE); }
    void Release() override { ::ReleaseMutex(mutex.get()); }

  private:
    Handle mutex;
};

class Win32PipeClient final : public PipeClient
{
  public:
    explicit Win32PipeClient(Handle opened) : pipe(std::move(opened)) {}

    bool SetMessageMode() override
    {
        DWORD mode = PIPE_READMODE_MESSAGE;
        return ::SetNamedPipeHandleState(pipe.get(), &mode, nullptr, nullptr) != FALSE;
    }

    bool Write(std::span<const uint8_t> bytes) override
    {
        DWORD written = 0;
        return ::WriteFile(pipe.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != FALSE;
    }

    bool Read(std::span<uint8_t> buffer) override
    {
        DWORD read = 0;
        return ::ReadFile(pipe.get(), buffer.data(), static_cast<DWORD>(buffer.size()), &read, nullptr) != FALSE;
    }

  private:
    Handle pipe;
};

} // namespace

uint32_t Win32Pipes::CreateMutex(std::u16string_view name, std::unique_ptr<NamedMutex>& mutex)
{
    Handle created(::CreateMutexW(nullptr, FALSE, ZeroTerminated(name)));
    if (!created) {
        return ::GetLastError();
    }
    mutex = std::make_unique<Win32Mutex>(std::move(created));
    return ERROR_SUCCESS;
}

std::unique_ptr<PipeClient> Win32Pipes::OpenPipe(std::u16string_view name)
{
    Handle opened(
        ::CreateFileW(ZeroTerminated(name), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!opened) {
        return nullptr;
    }
    return std::make_unique<Win32PipeClient>(std::move(opened));
}

} // namespace tv::win32
