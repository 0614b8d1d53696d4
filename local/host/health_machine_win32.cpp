#include "host/health_machine.h"

#include "host/health_files.h"
#include "vault/disk.h"
#include "vault/text.h"

#include "cad_win32/native_kernel.h"
#include "cad_win32/wide.h"
#include "com/base.h"
#include "interfaces/ids.h"

#include <tlhelp32.h>
#include <winspool.h>

#include <array>
#include <cstring>
#include <memory>
#include <vector>

namespace tv::local {

namespace {

using app::Units;

constexpr wchar_t kApplication[] = L"TORVANE.EXE";
/// As the add-in writes it: the kind of message and a text of no characters with its end.
constexpr std::array<uint8_t, 6> kNotificationOfNoFile = {1, 0, 0, 0, 0, 0};

std::wstring Wide(std::string_view text)
{
    return app::Wide(Utf16(text));
}

std::string Narrow(std::wstring_view text)
{
    return Utf8(Units(text));
}

struct HandleCloser
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const
    {
        if (handle != INVALID_HANDLE_VALUE) {
            CloseHandle(handle);
        }
    }
};
using OwnedHandle = std::unique_ptr<HANDLE, HandleCloser>;

bool IsOpen(const OwnedHandle& handle)
{
    return handle != nullptr && handle.get() != INVALID_HANDLE_VALUE;
}

/// The system's sentence for an error, or its number where there is none.
std::string ErrorText(DWORD error)
{
    wchar_t buffer[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                        buffer, static_cast<DWORD>(std::size(buffer)), nullptr);
    std::string text = Narrow(std::wstring_view(buffer, length));
    while (!text.empty() && (text.back() == '\r' || text.back() == '\n' || text.back() == '.' || text.back() == ' ')) {
        text.pop_back();
    }
    return (text.empty() ? "" : text + " ") + "(Windows error " + std::to_string(error) + ")";
}

class OpenKey
{
  public:
    explicit OpenKey(const RegistryKey& place)
    {
        const REGSAM view = place.view == RegistryView::Bits64 ? KEY_WOW64_64KEY : KEY_WOW64_32KEY;
        if (RegOpenKeyExW(place.root == RegistryRoot::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE,
                          Wide(place.path).c_str(), 0, KEY_READ | view, &key) != ERROR_SUCCESS) {
            key = nullptr;
        }
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey()
    {
        if (key != nullptr) {
            RegCloseKey(key);
        }
    }
    HKEY get() const { return key; }

  private:
    HKEY key = nullptr;
};

std::wstring TextIn(const std::vector<BYTE>& bytes)
{
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    return text.substr(0, text.find(L'\0'));
}

RegistryValue ValueOf(DWORD type, const std::vector<BYTE>& bytes)
{
    RegistryValue value{RegistryType::Other};
    if (type == REG_SZ || type == REG_EXPAND_SZ) {
        value.type = type == REG_SZ ? RegistryType::Text : RegistryType::ExpandableText;
        value.text = Narrow(TextIn(bytes));
    } else if ((type == REG_DWORD || type == REG_DWORD_BIG_ENDIAN) && bytes.size() == sizeof value.number) {
        value.type = type == REG_DWORD ? RegistryType::Number : RegistryType::BigEndianNumber;
        std::memcpy(&value.number, bytes.data(), sizeof value.number);
    }
    return value;
}

/// A turn among the senders of notifications.
class Turn
{
  public:
    explicit Turn(DWORD patience)
        : mutex(CreateMutexW(nullptr, FALSE, reinterpret_cast<const wchar_t*>(kNotificationMutex)))
    {
        const DWORD waited = mutex ? WaitForSingleObject(mutex.get(), patience) : WAIT_OBJECT_0;
        isOurs = waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn()
    {
        if (isOurs && mutex) {
            ReleaseMutex(mutex.get());
        }
    }
    bool IsOurs() const { return isOurs; }

  private:
    OwnedHandle mutex;
    bool isOurs = false;
};

OwnedHandle OpenPipe()
{
    return OwnedHandle(CreateFileW(reinterpret_cast<const wchar_t*>(kNotificationPipe), GENERIC_READ | GENERIC_WRITE, 0,
                                   nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr));
}

/// Waits for an operation that began, and calls it off when it takes too long.
bool Finishes(HANDLE pipe, OVERLAPPED& operation, BOOL began, DWORD patience)
{
    if (!began && GetLastError() != ERROR_IO_PENDING && GetLastError() != ERROR_MORE_DATA) {
        return false;
    }
    DWORD bytes = 0;
    if (WaitForSingleObject(operation.hEvent, patience) != WAIT_OBJECT_0) {
        CancelIoEx(pipe, &operation);
        GetOverlappedResult(pipe, &operation, &bytes, TRUE);
        return false;
    }
    return GetOverlappedResult(pipe, &operation, &bytes, FALSE) || GetLastError() == ERROR_MORE_DATA;
}

bool AnswersTo(HANDLE pipe, DWORD patience)
{
    DWORD mode = PIPE_READMODE_MESSAGE;
    SetNamedPipeHandleState(pipe, &mode, nullptr, nullptr);
    const OwnedHandle event(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    OVERLAPPED writing{};
    writing.hEvent = event.get();
    const BOOL wrote = WriteFile(pipe, kNotificationOfNoFile.data(), static_cast<DWORD>(kNotificationOfNoFile.size()),
                                 nullptr, &writing);
    if (!Finishes(pipe, writing, wrote, patience)) {
        return false;
    }
    std::array<uint8_t, 256> answer;
    OVERLAPPED reading{};
    reading.hEvent = event.get();
    const BOOL read = ReadFile(pipe, answer.data(), static_cast<DWORD>(answer.size()), nullptr, &reading);
    return Finishes(pipe, reading, read, patience);
}

int32_t ListenerOf(HANDLE pipe)
{
    ULONG process = 0;
    return GetNamedPipeServerProcessId(pipe, &process) ? static_cast<int32_t>(process) : 0;
}

bool IsPipeThere()
{
    return WaitNamedPipeW(reinterpret_cast<const wchar_t*>(kNotificationPipe), 1) ||
           GetLastError() == ERROR_SEM_TIMEOUT;
}

Listener Ask(DWORD patience)
{
    const Turn turn(patience);
    OwnedHandle pipe = OpenPipe();
    if (!turn.IsOurs()) {
        return {ListenerState::KeepsSenderWaiting, IsOpen(pipe) ? ListenerOf(pipe.get()) : 0};
    }
    if (!IsOpen(pipe) && GetLastError() == ERROR_PIPE_BUSY &&
        WaitNamedPipeW(reinterpret_cast<const wchar_t*>(kNotificationPipe), patience)) {
        pipe = OpenPipe();
    }
    if (!IsOpen(pipe)) {
        return {IsPipeThere() ? ListenerState::Busy : ListenerState::None, 0};
    }
    const int32_t process = ListenerOf(pipe.get());
    return {AnswersTo(pipe.get(), patience) ? ListenerState::Answers : ListenerState::Silent, process};
}

/// Whether the process that started another one lives; its number may be that of a later process by now.
bool IsOlder(DWORD parent, DWORD child)
{
    const OwnedHandle first(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, parent));
    const OwnedHandle second(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, child));
    FILETIME parentBegan{};
    FILETIME childBegan{};
    FILETIME rest[3];
    if (!first || WaitForSingleObject(first.get(), 0) != WAIT_TIMEOUT) {
        return false;
    }
    if (!second || !GetProcessTimes(first.get(), &parentBegan, &rest[0], &rest[1], &rest[2]) ||
        !GetProcessTimes(second.get(), &childBegan, &rest[0], &rest[1], &rest[2])) {
        return true;
    }
    return CompareFileTime(&parentBegan, &childBegan) <= 0;
}

class WindowsHealth final : public HealthMachine
{
  public:
    bool HasComponents() const override { return true; }
    bool HasKey(const RegistryKey& key) override { return OpenKey(key).get() != nullptr; }

    std::optional<RegistryValue> ReadValue(const RegistryKey& key, std::string_view name) override
    {
        const OpenKey opened(key);
        const std::wstring wide = Wide(name);
        DWORD type = 0;
        DWORD size = 0;
        if (opened.get() == nullptr ||
            RegQueryValueExW(opened.get(), wide.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS) {
            return std::nullopt;
        }
        std::vector<BYTE> bytes(size);
        if (RegQueryValueExW(opened.get(), wide.c_str(), nullptr, &type, bytes.data(), &size) != ERROR_SUCCESS) {
            return std::nullopt;
        }
        bytes.resize(size);
        return ValueOf(type, bytes);
    }

    std::vector<std::string> SubKeys(const RegistryKey& key) override
    {
        const OpenKey opened(key);
        std::vector<std::string> names;
        wchar_t name[256];
        for (DWORD index = 0; opened.get() != nullptr; ++index) {
            DWORD length = static_cast<DWORD>(std::size(name));
            const LSTATUS found = RegEnumKeyExW(opened.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr);
            if (found != ERROR_SUCCESS) {
                break;
            }
            names.push_back(Narrow(std::wstring_view(name, length)));
        }
        return names;
    }

    ProgramKind LookAtProgram(const std::string& path) override
    {
        const OwnedHandle file(CreateFileW(Wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                           nullptr, OPEN_EXISTING, 0, nullptr));
        if (!IsOpen(file)) {
            return ProgramKind::Missing;
        }
        const auto readAt = [&](LONG offset, void* to, DWORD size) {
            DWORD read = 0;
            return SetFilePointer(file.get(), offset, nullptr, FILE_BEGIN) == static_cast<DWORD>(offset) &&
                   ReadFile(file.get(), to, size, &read, nullptr) && read == size;
        };
        IMAGE_DOS_HEADER dos{};
        struct
        {
            DWORD signature;
            IMAGE_FILE_HEADER header;
        } image{};
        if (!readAt(0, &dos, sizeof dos) || dos.e_magic != IMAGE_DOS_SIGNATURE ||
            !readAt(dos.e_lfanew, &image, sizeof image) || image.signature != IMAGE_NT_SIGNATURE) {
            return ProgramKind::NoProgram;
        }
        return image.header.Machine == IMAGE_FILE_MACHINE_AMD64 ? ProgramKind::Bits64 : ProgramKind::Bits32;
    }

    Trouble LoadLibraryFile(const std::string& path) override
    {
        const HMODULE library = LoadLibraryExW(Wide(path).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
        if (library == nullptr) {
            return ErrorText(GetLastError());
        }
        const bool isComponent = GetProcAddress(library, "DllGetClassObject") != nullptr;
        FreeLibrary(library);
        return isComponent ? Trouble() : "it is no component";
    }

    Listener AskListener(std::chrono::milliseconds patience) override
    {
        return Ask(static_cast<DWORD>(patience.count()));
    }

    std::vector<Printer> Printers() override
    {
        constexpr DWORD kKinds = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
        DWORD size = 0;
        DWORD count = 0;
        EnumPrintersW(kKinds, nullptr, 4, nullptr, 0, &size, &count);
        std::vector<PRINTER_INFO_4W> buffer(size / sizeof(PRINTER_INFO_4W) + 1);
        if (!EnumPrintersW(kKinds, nullptr, 4, reinterpret_cast<BYTE*>(buffer.data()),
                           static_cast<DWORD>(buffer.size() * sizeof(PRINTER_INFO_4W)), &size, &count)) {
            return {};
        }
        wchar_t standard[512] = {};
        DWORD length = static_cast<DWORD>(std::size(standard));
        if (!GetDefaultPrinterW(standard, &length)) {
            standard[0] = L'\0';
        }
        std::vector<Printer> printers;
        for (DWORD i = 0; i < count; ++i) {
            const std::wstring name = buffer[i].pPrinterName;
            printers.push_back({Narrow(name), name == standard});
        }
        return printers;
    }

    std::vector<RunningProcess> Applications() override
    {
        std::vector<RunningProcess> processes;
        const OwnedHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
        PROCESSENTRY32W entry{};
        entry.dwSize = sizeof entry;
        for (BOOL more = Process32FirstW(snapshot.get(), &entry); more; more = Process32NextW(snapshot.get(), &entry)) {
            if (lstrcmpiW(entry.szExeFile, kApplication) == 0) {
                processes.push_back({static_cast<int32_t>(entry.th32ProcessID),
                                     IsOlder(entry.th32ParentProcessID, entry.th32ProcessID)});
            }
        }
        return processes;
    }

    std::string KernelProgram(const std::string& applicationFolder) override
    {
        return Narrow(app::FindKernel(Wide(applicationFolder)));
    }

    Trouble TryKernel(const std::string& applicationFolder) override
    {
        kernel::KernelClientSettings settings = app::NativeKernelSettings(Wide(applicationFolder));
        bool started = false;
        settings.start = [&started, start = settings.start](const std::vector<std::string>& arguments) {
            started = start(arguments);
            return started;
        };
        kernel::KernelClient client(std::move(settings));
        if (client.Start()) {
            return {};
        }
        return started ? "was started and didn't answer" : "can't be started";
    }

    FolderState TryFolder(const std::string& path) override { return TryFolderByFile(path); }
    bool FileExists(const std::string& path) override { return Disk::IsFile(PathOf(path)); }
    std::optional<uint64_t> FreeBytes(const std::string& path) override { return FreeBytesOf(path); }

    std::vector<FoundFile> Files(const std::string& folder, std::string_view begin, std::string_view end) override
    {
        return FilesBetween(folder, begin, end);
    }

    std::string TemporaryFolder() override
    {
        wchar_t path[MAX_PATH + 1];
        const DWORD length = GetTempPathW(static_cast<DWORD>(std::size(path)), path);
        const std::string folder = Narrow(std::wstring_view(path, length));
        return folder.substr(0, folder.find_last_not_of('\\') + 1);
    }

    std::string ProgramFolder() override
    {
        std::wstring path(32768, L'\0');
        path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
        return Narrow(path.substr(0, path.find_last_of(L'\\')));
    }

    std::string Expand(const std::string& text) override
    {
        const std::wstring wide = Wide(text);
        std::wstring expanded(ExpandEnvironmentStringsW(wide.c_str(), nullptr, 0), L'\0');
        const DWORD size =
            ExpandEnvironmentStringsW(wide.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
        if (size == 0 || size > expanded.size()) {
            return text;
        }
        expanded.resize(size - 1);
        return Narrow(expanded);
    }
};

} // namespace

std::unique_ptr<HealthMachine> MakeHealthMachine()
{
    return std::make_unique<WindowsHealth>();
}

} // namespace tv::local
