#include "support/notification.h"

#include "interfaces/ids.h"
#include "platform/registry_service.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tv {

namespace {

constexpr size_t kLongestPath = 260;
constexpr size_t kLongestAnswer = 256;

/// The mutex that all notifications of the machine share, held for the life of the object. Without the mutex the
/// notification goes on all the same.
class NotificationTurn
{
  public:
    explicit NotificationTurn(PipeService& pipes)
    {
        while (pipes.CreateMutex(kNotificationMutex, mutex) == kErrorAccessDenied) {
            mutex.reset();
        }
        if (mutex != nullptr) {
            mutex->Acquire();
        }
    }
    NotificationTurn(const NotificationTurn&) = delete;
    NotificationTurn& operator=(const NotificationTurn&) = delete;
    ~NotificationTurn()
    {
        if (mutex != nullptr) {
            mutex->Release();
        }
    }

  private:
    std::unique_ptr<NamedMutex> mutex;
};

/// The message as it goes over the pipe.
class NotificationRecord
{
  public:
    NotificationRecord(uint32_t kind, std::u16string_view path)
    {
        const size_t length = std::min(path.size(), kLongestPath);
        std::memcpy(bytes.data(), &kind, sizeof kind);
        if (length > 0) {
            std::memcpy(bytes.data() + sizeof kind, path.data(), length * sizeof(char16_t));
        }
        size = sizeof kind + (length + 1) * sizeof(char16_t);
    }

    std::span<const uint8_t> Bytes() const { return std::span(bytes).first(size); }

  private:
    std::array<uint8_t, sizeof(uint32_t) + (kLongestPath + 1) * sizeof(char16_t)> bytes{};
    size_t size = 0;
};

} // namespace

void NotifyVaultClient(PipeService& pipes, uint32_t kind, std::u16string_view path)
{
    const NotificationTurn turn(pipes);
    const std::unique_ptr<PipeClient> pipe = pipes.OpenPipe(kNotificationPipe);
    if (pipe == nullptr || !pipe->SetMessageMode()) {
        return;
    }
    const NotificationRecord record(kind, path);
    if (!pipe->Write(record.Bytes())) {
        return;
    }
    std::array<uint8_t, kLongestAnswer> answer;
    pipe->Read(answer);
}

} // namespace tv
