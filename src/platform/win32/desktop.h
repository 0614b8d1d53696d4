// Win32Desktop: the windows on the user's desktop.
#pragma once

#include "platform/desktop_service.h"

namespace tv::win32 {

class Win32Desktop final : public DesktopService
{
  public:
    WindowHandle TopWindow() override;
    WindowHandle NextWindow(WindowHandle window) override;
    uint32_t ProcessOf(WindowHandle window) override;
    std::u16string TitleOf(WindowHandle window) override;
    WindowHandle ParentOf(WindowHandle window) override;
    void Post(WindowHandle window, uint32_t message, uintptr_t first, intptr_t second) override;
    void ShowWindow(WindowHandle window, int32_t mode) override;
    bool IsWindow(WindowHandle window) override;
};

} // namespace tv::win32
