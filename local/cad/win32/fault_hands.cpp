#include "cad_win32/fault_hands.h"

#include "cad_win32/fault_dialog.h"
#include "com/base.h"

#include <algorithm>

namespace tv::app {

void SystemFaultHands::Crash()
{
    // A real access violation within a call would be caught by the system's remote calls and told as a failed call.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(EXCEPTION_ACCESS_VIOLATION));
}

void SystemFaultHands::Hang()
{
    Sleep(INFINITE);
}

void SystemFaultHands::Wait(int32_t seconds)
{
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(seconds) * 1000;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                PostQuitMessage(static_cast<int>(message.wParam));
                return;
            }
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

void SystemFaultHands::Leak(int32_t mib)
{
    const size_t size = static_cast<size_t>(mib) * 1024 * 1024;
    leaked.push_back(std::make_unique_for_overwrite<char[]>(size));
    // Only memory that was written to counts as in use.
    std::fill_n(leaked.back().get(), size, char{1});
}

void SystemFaultHands::ShowDialog(const Fault& dialog)
{
    ShowFaultDialog(dialog, onNote);
}

} // namespace tv::app
