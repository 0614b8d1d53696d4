#include "cad_win32/fault_dialog.h"

#include "cad/text.h"
#include "cad/transcript_text.h"
#include "cad_win32/system_font.h"
#include "cad_win32/wide.h"

#include <algorithm>

namespace tv::app {

namespace {

constexpr wchar_t kDialogClass[] = L"TorvaneDialog";
constexpr int kMargin = 16;
constexpr DWORD kDialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kDialogExtendedStyle = WS_EX_DLGMODALFRAME;

struct DialogState
{
    const Fault& fault;
    const std::function<void(const std::string&)>& note;
    WPARAM pressed = 0;
    bool isAnswered = false;
};

WPARAM VirtualKeyOf(AnswerKey key)
{
    return key == AnswerKey::Escape ? VK_ESCAPE : VK_RETURN;
}

std::string NameOfAnswer(UINT message, WPARAM key)
{
    if (message == WM_CLOSE) {
        return std::string(NameOf(AnswerKey::Close));
    }
    if (key == VK_RETURN || key == VK_ESCAPE) {
        return std::string(NameOf(key == VK_RETURN ? AnswerKey::Return : AnswerKey::Escape));
    }
    return "key " + std::to_string(key);
}

/// A key counts when it was pressed and let go.
void TakeAnswer(DialogState& state, UINT message, WPARAM key)
{
    const bool isWanted = state.fault.key == AnswerKey::Close
                              ? message == WM_CLOSE
                              : message == WM_KEYUP && key == VirtualKeyOf(state.fault.key) && state.pressed == key;
    state.note((isWanted ? "dialog answered " : "dialog ignored ") + QuotedText(state.fault.title) + " " +
               NameOfAnswer(message, key));
    state.isAnswered = state.isAnswered || isWanted;
    state.pressed = 0;
}

LRESULT CALLBACK HandleDialogMessage(HWND window, UINT message, WPARAM first, LPARAM second)
{
    auto* const state = reinterpret_cast<DialogState*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (state != nullptr) {
        switch (message) {
        case WM_KEYDOWN:
            state->pressed = first;
            return 0;
        case WM_KEYUP:
        case WM_CLOSE:
            TakeAnswer(*state, message, first);
            return 0;
        default:
            break;
        }
    }
    return DefWindowProcW(window, message, first, second);
}

bool RegisterDialogClass(HINSTANCE instance)
{
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = HandleDialogMessage;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = kDialogClass;
    return RegisterClassExW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

HWND MakeWindow(const std::string& title, DWORD style, DWORD extendedStyle, HWND owner)
{
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    if (!RegisterDialogClass(instance)) {
        return nullptr;
    }
    return CreateWindowExW(extendedStyle, kDialogClass, Wide(ToUtf16(title)).c_str(), style, 0, 0, 0, 0, owner, nullptr,
                           instance, nullptr);
}

/// What a person who meets the dialog on a screen is to know.
std::wstring TextFor(AnswerKey key)
{
    const std::wstring reason = L"This dialog was asked for as a fault.\n\n";
    switch (key) {
    case AnswerKey::Return:
        return reason + L"Press Return to go on.";
    case AnswerKey::Escape:
        return reason + L"Press Escape to go on.";
    default:
        return reason + L"Close it to go on.";
    }
}

SIZE SizeOf(HWND dialog, const std::wstring& text, const SystemFont& font)
{
    const HDC context = GetDC(dialog);
    RECT area{};
    {
        const SystemFontInUse inUse(context, font);
        DrawTextW(context, text.c_str(), -1, &area, DT_CALCRECT | DT_NOPREFIX);
    }
    ReleaseDC(dialog, context);
    return {area.right, area.bottom};
}

/// Wide enough for the text and for the title, in the middle of the screen.
void PlaceDialog(HWND dialog, SIZE text, SIZE title)
{
    const int titleRoom = title.cx + 2 * GetSystemMetrics(SM_CXSIZE);
    RECT place{0, 0, std::max<LONG>(text.cx + 2 * kMargin, titleRoom), text.cy + 2 * kMargin};
    AdjustWindowRectEx(&place, kDialogStyle, FALSE, kDialogExtendedStyle);
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    const int width = std::min(place.right - place.left, screen.right - screen.left);
    const int height = place.bottom - place.top;
    SetWindowPos(dialog, nullptr, (screen.left + screen.right - width) / 2, (screen.top + screen.bottom - height) / 2,
                 width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void FillDialog(HWND dialog, const Fault& fault, const SystemFont& font)
{
    const std::wstring text = TextFor(fault.key);
    const SIZE size = SizeOf(dialog, text, font);
    PlaceDialog(dialog, size, SizeOf(dialog, Wide(ToUtf16(fault.title)), SystemFont(FontUse::Caption)));
    const HWND label = CreateWindowExW(0, L"STATIC", text.c_str(), WS_CHILD | WS_VISIBLE | SS_NOPREFIX, kMargin,
                                       kMargin, size.cx, size.cy, dialog, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), FALSE);
}

void WaitForAnswer(const DialogState& state)
{
    MSG message{};
    while (!state.isAnswered) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace

void ShowFaultDialog(const Fault& fault, const std::function<void(const std::string&)>& note)
{
    const HWND owner = fault.parent.empty() ? nullptr : MakeWindow(fault.parent, WS_OVERLAPPEDWINDOW, 0, nullptr);
    // Of an owned window, only a popup has its owner as its parent.
    const HWND dialog = MakeWindow(fault.title, kDialogStyle, kDialogExtendedStyle, owner);
    if (dialog == nullptr) {
        note("dialog failed " + QuotedText(fault.title));
        if (owner != nullptr) {
            DestroyWindow(owner);
        }
        return;
    }
    const SystemFont font(FontUse::Message);
    FillDialog(dialog, fault, font);
    DialogState state{fault, note};
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&state));
    note("dialog shown " + QuotedText(fault.title));
    ShowWindow(dialog, SW_SHOWNOACTIVATE);
    WaitForAnswer(state);
    SetWindowLongPtrW(dialog, GWLP_USERDATA, 0);
    DestroyWindow(dialog);
    if (owner != nullptr) {
        DestroyWindow(owner);
    }
}

} // namespace tv::app
