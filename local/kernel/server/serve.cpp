#include "server/serve.h"

#include "engine/neutral_reader.h"
#include "protocol/socket.h"
#include "server/job_runner.h"

#include <csignal>
#include <cstdlib>

namespace tv::kernel {

namespace {

constexpr auto kSendWithin = std::chrono::minutes(1);

Deadline Soon()
{
    return std::chrono::steady_clock::now() + kSendWithin;
}

Deadline Never()
{
    return std::chrono::steady_clock::now() + std::chrono::hours(24 * 365);
}

/// Nothing when the other side went away during the job.
std::optional<std::string> Answer(const std::string& text, const Socket& socket)
{
    const Outcome<Request> request = DecodeRequest(text);
    return request ? RunRequest(*request, static_cast<int>(socket.get())) : Encode(request.error());
}

} // namespace

int Serve(uint16_t port, const std::string& token)
{
    std::signal(SIGPIPE, SIG_IGN);
    Socket socket = Socket::Connect(port);
    if (!socket || !socket.SendFrame(Encode(Hello{token}), Soon())) {
        return EXIT_FAILURE;
    }
    // What is prepared here is ready in each job's process.
    PrepareExchange();
    std::string text;
    while (socket.ReceiveFrame(text, kLargestFrame, Never()) == Received::Frame) {
        const std::optional<std::string> reply = Answer(text, socket);
        if (!reply || !socket.SendFrame(*reply, Soon())) {
            break;
        }
    }
    return EXIT_SUCCESS;
}

} // namespace tv::kernel
