#pragma once

#include <cstdint>
#include <string>

namespace tv::kernel {

/// Connects to the port, shows the token and serves requests until the connection ends.
///
/// \returns the exit code: 0 when the other side closed the connection, 1 when there was none
int Serve(uint16_t port, const std::string& token);

} // namespace tv::kernel
