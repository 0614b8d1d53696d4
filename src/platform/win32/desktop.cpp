#include "platform/win32/desktop.h"

#include "platform/win32/handle.h"

#include <iterator>

namespace tv::win32 {

namespace {

HWND Window(WindowHandle window)
{
    return reinterpret_cast<HWND>(window);
}

WindowHandle Number(HWND window)
{
    return reinterpret_cast<WindowHandle>(window);
}

} // namespace

WindowHandle Win32Desktop::TopWindow()
{
    return Number(::GetTopWindow(nullptr));
}

WindowHandle Win32Desktop::NextWindow(WindowHandle window)
{
    return Number(::GetWindow(Window(window), GW_HWNDNEXT));
}

uint32_t Win32Desktop::ProcessOf(WindowHandle window)
{
    DWORD processId = 0;
    ::GetWindowThreadProcessId(Window(window), &processId);
    return processId;
}

std::u16string Win32Desktop::TitleOf(WindowHandle window)
{
    char16_t title[260];
    const int length = ::GetWindowTextW(Window(window), AsWide(title), static_cast<int>(std::size(title)));
    return std::u16string(title, static_cast<size_t>(length));
}

WindowHandle Win32Desktop::ParentOf(WindowHandle window)
{
    return Number(::GetParent(Window(window)));
}

void Win32Desktop::Post(WindowHandle window, uint32_t message, uintptr_t first, intptr_t second)
{
    ::PostMessageW(Window(window), message, first, second);
}

void Win32Desktop::ShowWindow(WindowHandle window, int32_t mode)
{
    ::ShowWindow(Window(window), mode);
}

bool Win32Desktop::IsWindow(WindowHandle window)
{
    return ::IsWindow(Window(window)) != FALSE;
}

} // namespace tv::win32
