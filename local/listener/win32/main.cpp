#include "pipe_server.h"

#include "com/utf8.h"
#include "interfaces/ids.h"
#include "listener/announcement.h"
#include "listener/listener_options.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <exception>
#include <iostream>

namespace tv::local {

namespace {

// The system calls the handler without a context of ours.
HANDLE stopEvent = nullptr;

BOOL WINAPI HandleInterrupt(DWORD)
{
    SetEvent(stopEvent);
    return TRUE;
}

std::string TimeNow()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    char text[64];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u.%03u", unsigned{now.wYear}, unsigned{now.wMonth},
                  unsigned{now.wDay}, unsigned{now.wHour}, unsigned{now.wMinute}, unsigned{now.wSecond},
                  unsigned{now.wMilliseconds});
    return text;
}

int Listen(const ListenerOptions& options)
{
    const OwnedHandle stop(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    stopEvent = stop.get();
    SetConsoleCtrlHandler(HandleInterrupt, TRUE);
    PipeServer server(stop.get());
    std::cerr << "Listening on " << ToUtf8(kNotificationPipe, LoneSurrogate::Replace) << "; Ctrl-C ends it\n";
    int taken = 0;
    const auto print = [&](std::span<const uint8_t> message) {
        ++taken;
        std::cout << TimeNow() << "  " << LineFor(message) << std::endl;
    };
    while ((options.count == 0 || taken < options.count) && server.ServeNext(print, !options.silent)) {
    }
    std::cerr << "Heard " << taken << (taken == 1 ? " message" : " messages") << "\n";
    SetConsoleCtrlHandler(HandleInterrupt, FALSE);
    return kListenDone;
}

int Main(const std::vector<std::string>& arguments)
{
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    int exitCode = kListenDone;
    const auto options = ReadListenerOptions(arguments, std::cout, std::cerr, exitCode);
    if (!options) {
        return exitCode;
    }
    try {
        return Listen(*options);
    } catch (const std::exception& error) {
        std::cerr << "tvlisten: " << error.what() << "\n";
        return kListenFailed;
    }
}

} // namespace

} // namespace tv::local

int wmain(int count, wchar_t** texts)
{
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        const std::wstring text = texts[i];
        arguments.push_back(tv::ToUtf8(std::u16string(text.begin(), text.end()), tv::LoneSurrogate::Replace));
    }
    return tv::local::Main(arguments);
}
