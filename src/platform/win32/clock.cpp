#include "platform/win32/clock.h"

#include "com/base.h"

namespace tv::win32 {

void Win32Clock::Sleep(uint32_t milliseconds)
{
    ::Sleep(milliseconds);
}

bool Win32Clock::GetLocalTime(LocalTime& now)
{
    SYSTEMTIME time{};
    ::GetLocalTime(&time);
    if (time.wYear == 0) {
        return false;
    }
    now = {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
    return true;
}

} // namespace tv::win32
