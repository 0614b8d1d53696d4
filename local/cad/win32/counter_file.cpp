#include "cad_win32/counter_file.h"

#include "com/base.h"
#include "com/result.h"

#include <string_view>

namespace tv::app {

namespace {

constexpr int kTries = 200;
constexpr DWORD kPause = 50;

class OpenedFile
{
  public:
    explicit OpenedFile(HANDLE opened) : handle(opened) {}
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;
    ~OpenedFile() { CloseHandle(handle); }
    HANDLE get() const { return handle; }

  private:
    HANDLE handle;
};

[[noreturn]] void FailBySystem()
{
    throw ResultError(static_cast<Result>(HRESULT_FROM_WIN32(GetLastError())));
}

/// Opens the file for nobody but us; whoever else counts is done in an instant.
HANDLE OpenAlone(const std::wstring& path)
{
    for (int tries = 1;; ++tries) {
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE) {
            return file;
        }
        if (GetLastError() != ERROR_SHARING_VIOLATION || tries == kTries) {
            FailBySystem();
        }
        Sleep(kPause);
    }
}

std::string ReadAll(HANDLE file)
{
    std::string text;
    char block[4096];
    DWORD read = 0;
    do {
        if (!ReadFile(file, block, sizeof block, &read, nullptr)) {
            FailBySystem();
        }
        text.append(block, read);
    } while (read > 0);
    return text;
}

} // namespace

int32_t CounterFile::Next(const std::string& name)
{
    const OpenedFile file(OpenAlone(path));
    FaultCounts counts = ReadCounts(ReadAll(file.get()));
    const int32_t count = ++counts[name];
    const std::string text = WriteCounts(counts);
    DWORD written = 0;
    if (SetFilePointer(file.get(), 0, nullptr, FILE_BEGIN) == INVALID_SET_FILE_POINTER ||
        !WriteFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) ||
        !SetEndOfFile(file.get())) {
        FailBySystem();
    }
    return count;
}

} // namespace tv::app
