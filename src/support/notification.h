// Tells a local listener of a file, over a named pipe.
#pragma once

#include "platform/pipe_service.h"

#include <cstdint>
#include <string_view>

namespace tv {

/// The only kind of notification there is.
inline constexpr uint32_t kNotifyOfFile = 1;

/// Sends one message and waits for the answer. Whether anybody listens doesn't matter: a failure at any point is
/// ignored. A listener that doesn't answer holds the caller up without limit.
void NotifyVaultClient(PipeService& pipes, uint32_t kind, std::u16string_view path);

} // namespace tv
