// FakePipes: named mutexes, and pipes with a listener that a test plays.
#pragma once

#include "fakes/platform/call_log.h"
#include "platform/pipe_service.h"
#include "support/text_compare.h"

#include <functional>
#include <map>

namespace tv::fakes {

class FakePipes final : public PipeService
{
  public:
    /// Answers one message that came over the pipe.
    using Listener = std::function<std::vector<uint8_t>(std::span<const uint8_t>)>;

    explicit FakePipes(CallLog& callLog) : log(callLog) {}

    uint32_t CreateMutex(std::u16string_view name, std::unique_ptr<NamedMutex>& mutex) override;
    std::unique_ptr<PipeClient> OpenPipe(std::u16string_view name) override;

    /// Starts a listener on a pipe; without one the pipe doesn't exist.
    void Listen(std::u16string_view name, Listener listener);
    void StopListening(std::u16string_view name);
    /// The messages that any listener got, in order.
    const std::vector<std::vector<uint8_t>>& Messages() const { return messages; }
    /// Capacity of each read of an answer, in order.
    const std::vector<size_t>& ReadSizes() const { return readSizes; }

  private:
    friend class FakePipeClient;

    CallLog& log;
    std::mutex lock;
    std::map<std::u16string, std::shared_ptr<std::recursive_mutex>, LessIgnoringCase> mutexes;
    std::map<std::u16string, Listener, LessIgnoringCase> listeners;
    std::vector<std::vector<uint8_t>> messages;
    std::vector<size_t> readSizes;
};

} // namespace tv::fakes
