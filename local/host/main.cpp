#include "host/command_line.h"

#include "vault/text.h"

#include "com/base.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

namespace tv::local {

namespace {

bool IsTerminal()
{
    if (std::getenv("CI") != nullptr) {
        return false;
    }
#ifdef _WIN32
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), &mode) != 0;
#else
    return ::isatty(STDOUT_FILENO) != 0;
#endif
}

std::string DefaultVault()
{
#ifdef _WIN32
    return "C:\\LocalVault";
#else
    const char* home = std::getenv("HOME");
    return std::string(home != nullptr ? home : "") + "/LocalVault";
#endif
}

/// A folder of the user, on this machine alone.
std::filesystem::path ApplicationsFolder()
{
#ifdef _WIN32
    const wchar_t* local = _wgetenv(L"LOCALAPPDATA");
    const std::filesystem::path base = local != nullptr ? local : std::filesystem::temp_directory_path();
#else
    const std::filesystem::path base = std::filesystem::temp_directory_path();
#endif
    return base / "tvtask" / "applications";
}

/// What is written is UTF-8 with plain line feeds, on a screen and in a pipe alike.
void PrepareOutput()
{
#ifdef _WIN32
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
#endif
}

int Main(const std::vector<std::string>& arguments)
{
    PrepareOutput();
    const auto component = MakeRegisteredComponent();
    const auto machine = MakeMachine();
    const auto applications = MakeApplicationStarter();
    const auto health = MakeHealthMachine();
    HostEnvironment environment{std::cout,     std::cerr,    *component,     *machine,
                                *applications, *health,      IsTerminal(), DefaultVault(), {}};
    environment.applicationsFolder = ApplicationsFolder();
    const int code = RunCommandLine(arguments, environment);
    std::cout.flush();
    return code;
}

} // namespace

} // namespace tv::local

#ifdef _WIN32

int wmain(int count, wchar_t** texts)
{
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        const std::wstring text = texts[i];
        arguments.push_back(tv::local::Utf8(std::u16string(text.begin(), text.end())));
    }
    return tv::local::Main(arguments);
}

#else

int main(int count, char** texts)
{
    return tv::local::Main(std::vector<std::string>(texts + 1, texts + count));
}

#endif
