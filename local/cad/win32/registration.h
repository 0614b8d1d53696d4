// The application's entries in the registry.
#pragma once

#include <string>

namespace tv::app {

inline constexpr int kProductYear = 2013;

/// Writes the class "Torvane.Application" and its versioned name, and the Setup key of the product year, for this
/// program. Returns the system's error number, 0 for success.
unsigned Register();

/// Takes out what Register wrote.
unsigned Unregister();

} // namespace tv::app
