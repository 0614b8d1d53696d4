#include "protocol/socket.h"

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <cstring>
#include <utility>

namespace tv::kernel {

namespace {

#ifdef _WIN32
using Native = SOCKET;
using Size = int;

void CloseNative(Native socket)
{
    closesocket(socket);
}

bool WouldBlock()
{
    return WSAGetLastError() == WSAEWOULDBLOCK;
}

/// Winsock wants to be started once in a process; the system ends it with the process.
void StartSockets()
{
    static const int started = [] {
        WSADATA data{};
        return WSAStartup(MAKEWORD(2, 2), &data);
    }();
    static_cast<void>(started);
}

void MakeNonBlocking(Native socket)
{
    u_long on = 1;
    ioctlsocket(socket, static_cast<long>(FIONBIO), &on);
}

int Poll(Native socket, short events, int milliseconds)
{
    WSAPOLLFD waiting{socket, events, 0};
    return WSAPoll(&waiting, 1, milliseconds);
}

constexpr int kSendFlags = 0;
#else
using Native = int;
using Size = size_t;

void CloseNative(Native socket)
{
    close(socket);
}

bool WouldBlock()
{
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

void StartSockets() {}

void MakeNonBlocking(Native socket)
{
    fcntl(socket, F_SETFL, fcntl(socket, F_GETFL) | O_NONBLOCK);
    fcntl(socket, F_SETFD, FD_CLOEXEC);
}

int Poll(Native socket, short events, int milliseconds)
{
    pollfd waiting{socket, events, 0};
    return poll(&waiting, 1, milliseconds);
}

constexpr int kSendFlags = MSG_NOSIGNAL;
#endif

constexpr short kReadable = POLLIN;
constexpr short kWritable = POLLOUT;

Native ToNative(SocketHandle socket)
{
    return static_cast<Native>(socket);
}

SocketHandle FromNative(Native socket)
{
    return static_cast<SocketHandle>(socket);
}

/// False when the deadline passed. A deadline that has passed still sees what has already arrived.
bool WaitFor(SocketHandle socket, short events, Deadline deadline)
{
    while (true) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now()).count();
        const int slice = static_cast<int>(std::clamp<int64_t>(left, 0, 60'000));
        if (Poll(ToNative(socket), events, slice) > 0) {
            return true;
        }
        if (left <= 0) {
            return false;
        }
    }
}

sockaddr_in Loopback(uint16_t port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

Socket NewSocket()
{
    StartSockets();
    return Socket(FromNative(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP)));
}

/// A request and its reply are small frames that follow each other at once; waiting to fill a packet would cost 40 ms.
void SendAtOnce(Native socket)
{
    const int on = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof on);
}

} // namespace

Socket::Socket(Socket&& other) noexcept : handle(std::exchange(other.handle, kNoSocket)) {}

Socket& Socket::operator=(Socket&& other) noexcept
{
    if (this != &other) {
        reset();
        handle = std::exchange(other.handle, kNoSocket);
    }
    return *this;
}

void Socket::reset()
{
    if (handle != kNoSocket) {
        CloseNative(ToNative(std::exchange(handle, kNoSocket)));
    }
}

bool Socket::SendFrame(std::string_view text, Deadline deadline)
{
    const auto header = FrameHeader(text.size());
    std::string bytes(header.begin(), header.end());
    bytes += text;
    size_t sent = 0;
    while (sent < bytes.size()) {
        if (!WaitFor(handle, kWritable, deadline)) {
            return false;
        }
        const auto now =
            ::send(ToNative(handle), bytes.data() + sent, static_cast<Size>(bytes.size() - sent), kSendFlags);
        if (now < 0 && !WouldBlock()) {
            return false;
        }
        sent += now > 0 ? static_cast<size_t>(now) : 0;
    }
    return true;
}

Received Socket::ReceiveBytes(char* bytes, size_t count, Deadline deadline)
{
    size_t have = 0;
    while (have < count) {
        if (!WaitFor(handle, kReadable, deadline)) {
            return Received::TooLate;
        }
        const auto now = ::recv(ToNative(handle), bytes + have, static_cast<Size>(count - have), 0);
        if (now == 0 || (now < 0 && !WouldBlock())) {
            return Received::Closed;
        }
        have += now > 0 ? static_cast<size_t>(now) : 0;
    }
    return Received::Frame;
}

Received Socket::ReceiveFrame(std::string& text, size_t longest, Deadline deadline)
{
    std::array<char, kFrameHeaderSize> header{};
    if (const Received result = ReceiveBytes(header.data(), header.size(), deadline); result != Received::Frame) {
        return result;
    }
    const size_t length = LengthInFrameHeader(header);
    if (length > longest) {
        return Received::TooLong;
    }
    text.resize(length);
    return ReceiveBytes(text.data(), length, deadline);
}

bool Socket::IsClosedByPeer()
{
    if (handle == kNoSocket) {
        return true;
    }
    if (Poll(ToNative(handle), kReadable, 0) <= 0) {
        return false;
    }
    char byte = 0;
    const auto seen = ::recv(ToNative(handle), &byte, 1, MSG_PEEK);
    return seen == 0 || (seen < 0 && !WouldBlock());
}

Socket Socket::Connect(uint16_t port)
{
    Socket socket = NewSocket();
    const sockaddr_in address = Loopback(port);
    if (!socket || ::connect(ToNative(socket.handle), reinterpret_cast<const sockaddr*>(&address), sizeof address)) {
        return {};
    }
    MakeNonBlocking(ToNative(socket.handle));
    SendAtOnce(ToNative(socket.handle));
    return socket;
}

std::optional<Listener> Listener::Open()
{
    Socket socket = NewSocket();
    sockaddr_in address = Loopback(0);
    socklen_t size = sizeof address;
    if (!socket || ::bind(ToNative(socket.get()), reinterpret_cast<const sockaddr*>(&address), size) ||
        ::listen(ToNative(socket.get()), 8) ||
        ::getsockname(ToNative(socket.get()), reinterpret_cast<sockaddr*>(&address), &size)) {
        return std::nullopt;
    }
    MakeNonBlocking(ToNative(socket.get()));
    return Listener(std::move(socket), ntohs(address.sin_port));
}

Socket Listener::Accept(Deadline deadline)
{
    if (!WaitFor(socket.get(), kReadable, deadline)) {
        return {};
    }
    Socket accepted(FromNative(::accept(ToNative(socket.get()), nullptr, nullptr)));
    if (accepted) {
        MakeNonBlocking(ToNative(accepted.get()));
        SendAtOnce(ToNative(accepted.get()));
    }
    return accepted;
}

} // namespace tv::kernel
