#pragma once

#include <string>

namespace tv::kernel {

/// 32 hexadecimal digits from the system's source of secrets. Empty when the system gives none.
std::string RandomToken();

/// Compares in a time that says nothing about where the first difference is.
bool SameToken(const std::string& a, const std::string& b);

} // namespace tv::kernel
