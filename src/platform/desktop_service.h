// Windows of other processes, seen from outside.
#pragma once

#include "com/base.h"

#include <string>

namespace tv {

inline constexpr uint32_t kMessageClose = 16;
inline constexpr uint32_t kMessageKeyDown = 256;
inline constexpr uint32_t kMessageKeyUp = 257;
inline constexpr uint32_t kKeyReturn = 13;
inline constexpr uint32_t kKeyEscape = 27;

class DesktopService
{
  public:
    virtual ~DesktopService() = default;
    /// First top-level window in stacking order, 0 for none.
    virtual WindowHandle TopWindow() = 0;
    virtual WindowHandle NextWindow(WindowHandle window) = 0;
    virtual uint32_t ProcessOf(WindowHandle window) = 0;
    /// At most 259 characters.
    virtual std::u16string TitleOf(WindowHandle window) = 0;
    virtual WindowHandle ParentOf(WindowHandle window) = 0;
    /// Posts without waiting; the outcome isn't looked at.
    virtual void Post(WindowHandle window, uint32_t message, uintptr_t first, intptr_t second) = 0;
    virtual void ShowWindow(WindowHandle window, int32_t mode) = 0;
    virtual bool IsWindow(WindowHandle window) = 0;
};

} // namespace tv
