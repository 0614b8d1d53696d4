#include "cad_win32/fault_dialog.h"

#include "cad/text.h"
#include "cad/transcript_text.h"
#include "cad_win32/wide.h"

namespace tv::app {

namespace {

constexpr wchar_t kDialogClass[] = L"TorvaneDialog";
constexpr int kMargin = 16;
constexpr int kWidth = 420;
constexpr int kHeight = 140;

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

HWND MakeWindow(const std::string& title, DWORD style, HWND owner)
{
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    if (!RegisterDialogClass(instance)) {
        return nullptr;
    }
    return CreateWindowExW(0, kDialogClass, Wide(ToUtf16(title)).c_str(), style, 100, 100, kWidth, kHeight, owner,
                           nullptr, instance, nullptr);
}

/// What a person who meets the dialog on a screen is to know.
void AddText(HWND dialog, const Fault& fault)
{
    const std::string text =
        "This dialog was asked for as a fault. Its answer is: " + std::string(NameOf(fault.key)) + ".";
    const HWND label =
        CreateWindowExW(0, L"STATIC", Wide(ToUtf16(text)).c_str(), WS_CHILD | WS_VISIBLE, kMargin, kMargin,
                        kWidth - 3 * kMargin, kHeight / 2, dialog, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
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
    const HWND owner = fault.parent.empty() ? nullptr : MakeWindow(fault.parent, WS_OVERLAPPEDWINDOW, nullptr);
    // Of an owned window, only a popup has its owner as its parent.
    const HWND dialog = MakeWindow(fault.title, WS_POPUP | WS_CAPTION | WS_SYSMENU, owner);
    if (dialog == nullptr) {
        note("dialog failed " + QuotedText(fault.title));
        if (owner != nullptr) {
            DestroyWindow(owner);
        }
        return;
    }
    AddText(dialog, fault);
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
