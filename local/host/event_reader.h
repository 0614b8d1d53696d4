// Reads along in the file in which the application tells what a macro does.
#pragma once

#include "cad/macro_event.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tv::local {

class EventReader
{
  public:
    /// Reads what is added to the file from now on; there may be none yet.
    explicit EventReader(std::filesystem::path name);

    /// What was added since the last call. A line that isn't whole yet waits for the next one.
    std::vector<app::MacroEvent> Read();

  private:
    std::filesystem::path file;
    std::streamoff done = 0;
};

} // namespace tv::local
