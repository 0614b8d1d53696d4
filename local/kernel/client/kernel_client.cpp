#include "client/kernel_client.h"

#include "client/random_token.h"
#include "protocol/messages.h"
#include "protocol/socket.h"

#include <algorithm>

namespace tv::kernel {

namespace {

/// A stranger on the port, who connects and says nothing, must not keep the kernel waiting for long.
constexpr auto kHelloWithin = std::chrono::seconds(2);

Deadline In(std::chrono::milliseconds time)
{
    return std::chrono::steady_clock::now() + time;
}

} // namespace

class KernelClient::Connection
{
  public:
    explicit Connection(KernelClientSettings given) : settings(std::move(given)) {}

    std::optional<Error> EnsureStarted();
    Outcome<std::string> Ask(const std::string& request, std::chrono::milliseconds limit, const std::string& subject);
    bool IsConnected() { return socket && !socket.IsClosedByPeer(); }
    void Close() { socket.reset(); }

  private:
    Socket AcceptKernel(Listener& listener, const std::string& token);

    KernelClientSettings settings;
    Socket socket;
};

std::optional<Error> KernelClient::Connection::EnsureStarted()
{
    if (IsConnected()) {
        return std::nullopt;
    }
    Close();
    std::optional<Listener> listener = Listener::Open();
    const std::string token = RandomToken();
    if (!listener || token.empty()) {
        return Error{ErrorCode::NoKernel, "No connection to the geometry kernel can be prepared on this machine."};
    }
    const std::string address = "127.0.0.1:" + std::to_string(listener->port());
    if (!settings.start || !settings.start({"--connect", address, "--token", token})) {
        return Error{ErrorCode::NoKernel, "The geometry kernel can't be started. Is tvkernel installed?"};
    }
    socket = AcceptKernel(*listener, token);
    if (!socket) {
        return Error{ErrorCode::NoKernel, "The geometry kernel was started and didn't connect within " +
                                              std::to_string(settings.connectWithin.count()) + " ms."};
    }
    return std::nullopt;
}

Socket KernelClient::Connection::AcceptKernel(Listener& listener, const std::string& token)
{
    const Deadline deadline = In(settings.connectWithin);
    while (Socket candidate = listener.Accept(deadline)) {
        std::string text;
        const Deadline helloDeadline = std::min(deadline, Deadline(In(kHelloWithin)));
        if (candidate.ReceiveFrame(text, kLargestHello, helloDeadline) != Received::Frame) {
            continue;
        }
        const std::optional<Hello> hello = DecodeHello(text);
        if (hello && hello->protocol == kProtocolVersion && SameToken(hello->token, token)) {
            return candidate;
        }
    }
    return {};
}

Outcome<std::string> KernelClient::Connection::Ask(const std::string& request, std::chrono::milliseconds limit,
                                                   const std::string& subject)
{
    if (const std::optional<Error> error = EnsureStarted()) {
        return *error;
    }
    const Deadline deadline = In(limit + settings.grace);
    std::string reply;
    const Received result =
        socket.SendFrame(request, deadline) ? socket.ReceiveFrame(reply, kLargestFrame, deadline) : Received::Closed;
    if (result == Received::Frame) {
        return reply;
    }
    // Whatever else arrives on this connection would be taken for the answer to the next job.
    Close();
    if (result == Received::TooLate) {
        return Error{ErrorCode::TimedOut, "\"" + subject + "\": the geometry kernel gave no answer in time."};
    }
    return Error{ErrorCode::KernelLost, "\"" + subject + "\": the geometry kernel ended during the job."};
}

KernelClient::KernelClient(KernelClientSettings settings)
    : connection(std::make_unique<Connection>(std::move(settings)))
{}

KernelClient::~KernelClient() = default;
KernelClient::KernelClient(KernelClient&&) noexcept = default;
KernelClient& KernelClient::operator=(KernelClient&&) noexcept = default;

Outcome<Inspection> KernelClient::Inspect(const InspectJob& job)
{
    const Outcome<std::string> reply = connection->Ask(Encode(job), job.limits.time, job.source.path);
    return reply ? DecodeInspection(*reply) : Outcome<Inspection>(reply.error());
}

Outcome<Saved> KernelClient::Save(const SaveJob& job)
{
    const Outcome<std::string> reply = connection->Ask(Encode(job), job.limits.time, job.source.path);
    return reply ? DecodeSaved(*reply) : Outcome<Saved>(reply.error());
}

bool KernelClient::Start()
{
    return !connection->EnsureStarted().has_value();
}

bool KernelClient::IsConnected()
{
    return connection->IsConnected();
}

void KernelClient::Close()
{
    connection->Close();
}

} // namespace tv::kernel
