// The named mutex and the named pipe of the notification of a local listener.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace tv {

/// A named mutex; released by Release, closed with the object.
class NamedMutex
{
  public:
    virtual ~NamedMutex() = default;
    /// Waits without limit.
    virtual void Acquire() = 0;
    virtual void Release() = 0;
};

/// The client's end of a pipe; closed with the object.
class PipeClient
{
  public:
    virtual ~PipeClient() = default;
    virtual bool SetMessageMode() = 0;
    virtual bool Write(std::span<const uint8_t> bytes) = 0;
    /// One read of at most the buffer's size; waits without limit.
    virtual bool Read(std::span<uint8_t> buffer) = 0;
};

class PipeService
{
  public:
    virtual ~PipeService() = default;
    /// Creates or opens a mutex; returns the system's error number, 0 with `mutex` set.
    virtual uint32_t CreateMutex(std::u16string_view name, std::unique_ptr<NamedMutex>& mutex) = 0;
    /// Opens an existing pipe for reading and writing, not shared; null when it can't be opened.
    virtual std::unique_ptr<PipeClient> OpenPipe(std::u16string_view name) = 0;
};

} // namespace tv
