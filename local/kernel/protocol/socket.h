// A stream over the loopback interface, on both systems. Each wait has a deadline.
#pragma once

#include "protocol/messages.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tv::kernel {

using Deadline = std::chrono::steady_clock::time_point;

/// A system socket of either system.
using SocketHandle = uintptr_t;
inline constexpr SocketHandle kNoSocket = ~SocketHandle{0};

enum class Received
{
    Frame,
    Closed,  // by the other side, or broken
    TooLate, // the deadline passed
    TooLong, // the frame is longer than was allowed
};

class Socket
{
  public:
    Socket() = default;
    explicit Socket(SocketHandle socket) : handle(socket) {}
    Socket(Socket&& other) noexcept;
    Socket& operator=(Socket&& other) noexcept;
    ~Socket() { reset(); }

    explicit operator bool() const { return handle != kNoSocket; }
    SocketHandle get() const { return handle; }
    void reset();

    /// Sends a whole frame; false when the other side is gone or takes nothing until the deadline.
    bool SendFrame(std::string_view text, Deadline deadline);

    Received ReceiveFrame(std::string& text, size_t longest, Deadline deadline);

    /// Whether the other side has gone, as far as can be seen without waiting. Nothing is expected to arrive now.
    bool IsClosedByPeer();

    /// Connects to a loopback port.
    static Socket Connect(uint16_t port);

  private:
    Received ReceiveBytes(char* bytes, size_t count, Deadline deadline);

    SocketHandle handle = kNoSocket;
};

/// Listens on a free port of the loopback interface.
class Listener
{
  public:
    static std::optional<Listener> Open();

    uint16_t port() const { return number; }

    /// The next one to connect; empty when the deadline passes first.
    Socket Accept(Deadline deadline);

  private:
    Listener(Socket listening, uint16_t port) : socket(std::move(listening)), number(port) {}

    Socket socket;
    uint16_t number;
};

} // namespace tv::kernel
