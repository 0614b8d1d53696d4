#pragma once

#include "protocol/errors.h"

#include <stdexcept>
#include <string>

namespace tv::kernel {

/// Ends a job. The message is what the user reads: it names the file and says what is wrong with it.
class JobFailure : public std::runtime_error
{
  public:
    JobFailure(ErrorCode why, const std::string& message) : std::runtime_error(message), reason(why) {}
    ErrorCode code() const { return reason; }

  private:
    ErrorCode reason;
};

/// Quotes a path or a name for a message.
inline std::string Quoted(const std::string& text)
{
    return "\"" + text + "\"";
}

} // namespace tv::kernel
