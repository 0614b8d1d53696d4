// Win32Processes: the machine's processes.
#pragma once

#include "platform/process_service.h"

namespace tv::win32 {

class Win32Processes final : public ProcessService
{
  public:
    uint32_t Start(std::u16string_view commandLine, int32_t showMode, uint32_t& processId) override;
    std::unique_ptr<Process> Open(uint32_t processId, uint32_t rights) override;
};

} // namespace tv::win32
