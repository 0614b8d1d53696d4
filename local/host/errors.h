// How a command of the host can end other than well, and the exit code of each way.
#pragma once

#include <stdexcept>
#include <string>

namespace tv::local {

inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitWrongUsage = 2;
inline constexpr int kExitNoVault = 3;
inline constexpr int kExitNoApplication = 3;

/// A wrong path, name or value. The line names it and says what would be right.
class UsageError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// The vault can't be opened.
class NoVaultError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

} // namespace tv::local
