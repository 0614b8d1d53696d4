// Win32Clock: the machine's own time.
#pragma once

#include "platform/clock_service.h"

namespace tv::win32 {

class Win32Clock final : public ClockService
{
  public:
    void Sleep(uint32_t milliseconds) override;
    bool GetLocalTime(LocalTime& now) override;
};

} // namespace tv::win32
