// A program of the tests' own that makes windows as it is asked to and tells which messages reach them.
//
//   window_maker WINDOW…
//
// A window is "NAME|STYLE|AFTER|CLASS|OWNER|TITLE". NAME is a word that the reports call it by. STYLE is overlapped,
// hidden, minimized, popup, child or message-box. AFTER is what becomes of it when a key was let go in it or it was
// asked to close: stay, go, or again for a new window of the same description. CLASS is the window class's name, OWNER
// the name of the window that owns it, or holds it as a child; "-" for none. The first window stands below all others.
//
// Standard input: "make WINDOW" makes one more; "sync WORD" has "sync WORD" reported when all messages posted before
// were handled. The program ends with its standard input.
//
// Standard output, a report a line: "NAME made", "NAME gone", "NAME MESSAGE FIRST SECOND" for each message of keys,
// commands and close requests with its parameters ("sent" behind the name when it wasn't posted), "NAME pressed BUTTON"
// for a message box, and "ready" when the windows of the command line stand.
#include "com/base.h"

#include <shellapi.h>

#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr UINT kAddWindow = WM_APP + 1;
constexpr UINT kMakeWindowAgain = WM_APP + 2;
constexpr UINT kReportSync = WM_APP + 3;
constexpr UINT kEnd = WM_APP + 4;

struct Description
{
    std::string name;
    std::string style;
    std::string after;
    std::string windowClass;
    std::string owner;
    std::string title;
    HWND ownerWindow = nullptr;
    HWND window = nullptr;
};

/// Kept for good, because windows and threads point to them.
std::vector<std::unique_ptr<Description>> descriptions;
/// Takes the requests to the thread that owns the windows.
HWND control = nullptr;

void Report(const std::string& line)
{
    const std::string text = line + "\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

std::wstring Wide(const std::string& text)
{
    std::wstring wide(text.size(), L'\0');
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                                         static_cast<int>(wide.size()));
    wide.resize(static_cast<size_t>(size));
    return wide;
}

std::string Narrow(const wchar_t* text)
{
    std::string narrow(static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr)),
                       '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, narrow.data(), static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.pop_back();
    return narrow;
}

std::unique_ptr<Description> Parse(const std::string& text)
{
    std::istringstream stream(text);
    auto description = std::make_unique<Description>();
    for (std::string* field : {&description->name, &description->style, &description->after, &description->windowClass,
                               &description->owner}) {
        std::getline(stream, *field, '|');
    }
    std::getline(stream, description->title);
    return description;
}

HWND WindowNamed(const std::string& name)
{
    for (const std::unique_ptr<Description>& description : descriptions) {
        if (description->name == name) {
            return description->window;
        }
    }
    return nullptr;
}

bool IsOfInterest(UINT message)
{
    return message == WM_CLOSE || (message >= WM_KEYFIRST && message <= WM_KEYLAST) || message == WM_COMMAND ||
           message == WM_SYSCOMMAND;
}

void ReportMessage(const Description& description, UINT message, WPARAM first, LPARAM second)
{
    Report(description.name + (InSendMessage() ? " sent " : " ") + std::to_string(message) + " " +
           std::to_string(first) + " " + std::to_string(second));
}

void EndWindow(Description& description)
{
    const HWND window = std::exchange(description.window, nullptr);
    DestroyWindow(window);
    Report(description.name + " gone");
    if (description.after == "again") {
        PostMessageW(control, kMakeWindowAgain, 0, reinterpret_cast<LPARAM>(&description));
    }
}

LRESULT CALLBACK HandleMessage(HWND window, UINT message, WPARAM first, LPARAM second)
{
    auto* const description = reinterpret_cast<Description*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (description == nullptr || !IsOfInterest(message)) {
        return DefWindowProcW(window, message, first, second);
    }
    ReportMessage(*description, message, first, second);
    if (description->after != "stay" && (message == WM_KEYUP || message == WM_CLOSE)) {
        EndWindow(*description);
    }
    return 0;
}

void RegisterWindowClass(const std::wstring& name)
{
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = HandleMessage;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = name.c_str();
    RegisterClassExW(&windowClass);
}

DWORD StyleBits(const std::string& style)
{
    if (style == "popup") {
        return WS_POPUP | WS_CAPTION | WS_SYSMENU;
    }
    return style == "child" ? WS_CHILD : WS_OVERLAPPEDWINDOW;
}

int ShowMode(const std::string& style)
{
    if (style == "hidden") {
        return SW_HIDE;
    }
    return style == "minimized" ? SW_SHOWMINNOACTIVE : SW_SHOWNOACTIVATE;
}

/// A message box waits for its answer in a loop of its own, so it has a thread of its own.
DWORD WINAPI ShowMessageBox(LPVOID parameter)
{
    const auto& description = *static_cast<Description*>(parameter);
    Report(description.name + " made");
    const int button = MessageBoxW(description.ownerWindow, L"Text", Wide(description.title).c_str(), MB_OKCANCEL);
    Report(description.name + " pressed " + std::to_string(button));
    return 0;
}

void MakeWindow(Description& description)
{
    description.ownerWindow = WindowNamed(description.owner);
    if (description.style == "message-box") {
        CloseHandle(CreateThread(nullptr, 0, ShowMessageBox, &description, 0, nullptr));
        return;
    }
    const std::wstring windowClass = Wide(description.windowClass);
    RegisterWindowClass(windowClass);
    description.window =
        CreateWindowExW(0, windowClass.c_str(), Wide(description.title).c_str(), StyleBits(description.style), 10, 10,
                        200, 100, description.ownerWindow, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(description.window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&description));
    ShowWindow(description.window, ShowMode(description.style));
    Report(description.name + (description.window != nullptr ? " made" : " not made"));
}

void AddWindow(std::unique_ptr<Description> description)
{
    descriptions.push_back(std::move(description));
    MakeWindow(*descriptions.back());
}

LRESULT CALLBACK HandleRequest(HWND window, UINT message, WPARAM first, LPARAM second)
{
    switch (message) {
    case kAddWindow:
        AddWindow(std::unique_ptr<Description>(reinterpret_cast<Description*>(second)));
        return 0;
    case kMakeWindowAgain:
        MakeWindow(*reinterpret_cast<Description*>(second));
        return 0;
    case kReportSync:
        Report("sync " + std::to_string(first));
        return 0;
    case kEnd:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window, message, first, second);
    }
}

void MakeControlWindow()
{
    control = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(HandleRequest));
}

void TakeRequest(const std::string& line)
{
    if (line.starts_with("make ")) {
        PostMessageW(control, kAddWindow, 0, reinterpret_cast<LPARAM>(Parse(line.substr(5)).release()));
    } else if (line.starts_with("sync ")) {
        PostMessageW(control, kReportSync, std::stoul(line.substr(5)), 0);
    }
}

DWORD WINAPI ReadRequests(LPVOID)
{
    for (std::string line; std::getline(std::cin, line);) {
        TakeRequest(line);
    }
    PostMessageW(control, kEnd, 0, 0);
    return 0;
}

void MakeWindowsOfCommandLine()
{
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
        AddWindow(Parse(Narrow(arguments[i])));
    }
    if (!descriptions.empty()) {
        SetWindowPos(descriptions.front()->window, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
}

} // namespace

int main()
{
    MakeControlWindow();
    MakeWindowsOfCommandLine();
    Report("ready");
    CloseHandle(CreateThread(nullptr, 0, ReadRequests, nullptr, 0, nullptr));
    // Keys are not translated into characters: a character in the report would be one that somebody posted.
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    // Without waiting for message boxes that nobody answered.
    ExitProcess(0);
}
