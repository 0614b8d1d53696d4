#include "fakes/platform/fake_pipes.h"

#include <algorithm>

namespace tv::fakes {

namespace {

class FakeMutex final : public NamedMutex
{
  public:
    FakeMutex(CallLog& callLog, std::shared_ptr<std::recursive_mutex> shared) : log(callLog), mutex(std::move(shared))
    {}
    ~FakeMutex() override { log.Note("mutex.Close"); }

    void Acquire() override
    {
        mutex->lock();
        log.Note("mutex.Acquire");
    }

    void Release() override
    {
        log.Note("mutex.Release");
        mutex->unlock();
    }

  private:
    CallLog& log;
    std::shared_ptr<std::recursive_mutex> mutex;
};

} // namespace

/// The client's end; the listener answers each message when it is written.
class FakePipeClient final : public PipeClient
{
  public:
    FakePipeClient(FakePipes& service, FakePipes::Listener answerer) : pipes(service), listener(std::move(answerer)) {}
    ~FakePipeClient() override { pipes.log.Note("pipe.Close"); }

    bool SetMessageMode() override { return pipes.log.Enter("pipe.SetMessageMode") == 0; }

    bool Write(std::span<const uint8_t> bytes) override
    {
        if (pipes.log.Enter("pipe.Write") != 0) {
            return false;
        }
        const std::lock_guard guard(pipes.lock);
        pipes.messages.emplace_back(bytes.begin(), bytes.end());
        answers.push_back(listener(bytes));
        return true;
    }

    bool Read(std::span<uint8_t> buffer) override
    {
        const std::lock_guard guard(pipes.lock);
        pipes.readSizes.push_back(buffer.size());
        if (pipes.log.Enter("pipe.Read") != 0 || answers.empty()) {
            return false;
        }
        const std::vector<uint8_t> answer = std::move(answers.front());
        answers.erase(answers.begin());
        std::copy_n(answer.begin(), std::min(answer.size(), buffer.size()), buffer.begin());
        return answer.size() <= buffer.size();
    }

  private:
    FakePipes& pipes;
    FakePipes::Listener listener;
    std::vector<std::vector<uint8_t>> answers;
};

uint32_t FakePipes::CreateMutex(std::u16string_view name, std::unique_ptr<NamedMutex>& mutex)
{
    if (const uint32_t error = log.Enter("pipes.CreateMutex", name)) {
        return error;
    }
    const std::lock_guard guard(lock);
    std::shared_ptr<std::recursive_mutex>& shared = mutexes[std::u16string(name)];
    if (shared == nullptr) {
        shared = std::make_shared<std::recursive_mutex>();
    }
    mutex = std::make_unique<FakeMutex>(log, shared);
    return 0;
}

std::unique_ptr<PipeClient> FakePipes::OpenPipe(std::u16string_view name)
{
    const uint32_t error = log.Enter("pipes.OpenPipe", name);
    const std::lock_guard guard(lock);
    const auto found = listeners.find(name);
    if (error != 0 || found == listeners.end()) {
        return nullptr;
    }
    return std::make_unique<FakePipeClient>(*this, found->second);
}

void FakePipes::Listen(std::u16string_view name, Listener listener)
{
    const std::lock_guard guard(lock);
    listeners[std::u16string(name)] = std::move(listener);
}

void FakePipes::StopListening(std::u16string_view name)
{
    const std::lock_guard guard(lock);
    if (const auto found = listeners.find(name); found != listeners.end()) {
        listeners.erase(found);
    }
}

} // namespace tv::fakes
