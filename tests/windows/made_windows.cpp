#include "made_windows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>

namespace tv {

namespace {

constexpr ULONGLONG kPatience = 60'000;

const char* NameOf(WindowStyle style)
{
    constexpr const char* kNames[] = {"overlapped", "hidden", "minimized", "popup", "child", "message-box"};
    return kNames[static_cast<size_t>(style)];
}

const char* NameOf(AfterAnswer after)
{
    constexpr const char* kNames[] = {"stay", "go", "again"};
    return kNames[static_cast<size_t>(after)];
}

std::string TextOf(const WantedWindow& window)
{
    return window.name + "|" + NameOf(window.style) + "|" + NameOf(window.after) + "|" + window.windowClass + "|" +
           window.owner + "|" + window.title;
}

std::wstring Wide(const std::string& text)
{
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                        wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

std::wstring CommandLine(const std::vector<WantedWindow>& windows)
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    std::wstring command = L"\"" + path.substr(0, path.rfind(L'\\')) + L"\\window_maker.exe\"";
    for (const WantedWindow& window : windows) {
        command += L" \"" + Wide(TextOf(window)) + L"\"";
    }
    return command;
}

/// A pipe of which only the end that the other process takes is inherited.
void MakePipe(win32::Handle& own, win32::Handle& others, bool isOwnRead)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    ASSERT_TRUE(CreatePipe(&read, &write, &inherited, 0));
    own = win32::Handle(isOwnRead ? read : write);
    others = win32::Handle(isOwnRead ? write : read);
    ASSERT_TRUE(SetHandleInformation(own.get(), HANDLE_FLAG_INHERIT, 0));
}

} // namespace

MadeWindows::MadeWindows(const std::vector<WantedWindow>& windows)
{
    win32::Handle input;
    win32::Handle output;
    MakePipe(requests, input, false);
    MakePipe(reports, output, true);
    Start(CommandLine(windows), input.get(), output.get());
    // The other process holds the only ends that are left, so its end is told.
    input = win32::Handle();
    output = win32::Handle();
    reader = std::thread([this] { ReadReports(); });
    EXPECT_TRUE(Await("ready")) << "the windows couldn't be made";
}

MadeWindows::~MadeWindows()
{
    requests = win32::Handle();
    if (WaitForSingleObject(process.get(), static_cast<DWORD>(kPatience)) != WAIT_OBJECT_0) {
        ADD_FAILURE() << "the process with the windows had to be ended";
        TerminateProcess(process.get(), 255);
    }
    reader.join();
}

void MadeWindows::Start(const std::wstring& commandLine, HANDLE input, HANDLE output)
{
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input;
    start.hStdOutput = output;
    start.hStdError = output;
    PROCESS_INFORMATION started{};
    std::wstring buffer = commandLine;
    ASSERT_TRUE(CreateProcessW(nullptr, buffer.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &started));
    CloseHandle(started.hThread);
    process = win32::Handle(started.hProcess);
    processId = started.dwProcessId;
}

void MadeWindows::Make(const WantedWindow& window)
{
    Send("make " + TextOf(window));
    EXPECT_TRUE(Await(window.name + " made"));
}

void MadeWindows::Send(const std::string& request)
{
    const std::string line = request + "\n";
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(requests.get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr));
}

void MadeWindows::ReadReports()
{
    char buffer[4096];
    DWORD size = 0;
    while (ReadFile(reports.get(), buffer, sizeof buffer, &size, nullptr) && size > 0) {
        const std::scoped_lock guard(lock);
        reported.append(buffer, size);
    }
}

std::vector<std::string> MadeWindows::LinesSoFar()
{
    std::istringstream stream;
    {
        const std::scoped_lock guard(lock);
        stream.str(reported.substr(0, reported.rfind('\n') + 1));
    }
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

bool MadeWindows::Await(const std::string& line, size_t times)
{
    const ULONGLONG deadline = GetTickCount64() + kPatience;
    do {
        const std::vector<std::string> lines = LinesSoFar();
        if (static_cast<size_t>(std::count(lines.begin(), lines.end(), line)) >= times) {
            return true;
        }
        Sleep(10);
    } while (GetTickCount64() < deadline);
    return false;
}

std::vector<std::string> MadeWindows::Lines()
{
    const std::string sync = "sync " + std::to_string(++syncs);
    Send(sync);
    EXPECT_TRUE(Await(sync));
    std::vector<std::string> lines = LinesSoFar();
    std::erase_if(lines, [](const std::string& line) { return line.starts_with("sync ") || line == "ready"; });
    return lines;
}

std::vector<std::string> MadeWindows::ReportsOf(const std::string& name)
{
    std::vector<std::string> told;
    for (const std::string& line : Lines()) {
        if (line.starts_with(name + " ") && line != name + " made") {
            told.push_back(line.substr(name.size() + 1));
        }
    }
    return told;
}

} // namespace tv
