// Win32Pipes: named mutexes and named pipes of the machine.
#pragma once

#include "com/base.h"
#include "platform/pipe_service.h"

namespace tv::win32 {

class Win32Pipes final : public PipeService
{
  public:
    uint32_t CreateMutex(std::u16string_view name, std::unique_ptr<NamedMutex>& mutex) override;
    std::unique_ptr<PipeClient> OpenPipe(std::u16string_view name) override;
};

} // namespace tv::win32
