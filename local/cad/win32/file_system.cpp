#include "cad_win32/file_system.h"

#include "cad_win32/wide.h"
#include "com/base.h"

#include <algorithm>

namespace tv::app {

namespace {

[[noreturn]] void RaiseSystemError(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
        macro::Raise(macro::kFileNotFound);
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
        macro::Raise(macro::kPathNotFound);
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
        macro::Raise(macro::kFileExists);
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
        macro::Raise(macro::kPermissionDenied);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        macro::Raise(macro::kDiskFull);
    case ERROR_TOO_MANY_OPEN_FILES:
        macro::Raise(macro::kTooManyFiles);
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
        macro::Raise(macro::kOutOfMemory);
    default:
        macro::Raise(macro::kPathFileAccess);
    }
}

void ExpectSuccess(BOOL done)
{
    if (!done) {
        RaiseSystemError(GetLastError());
    }
}

class DiskFile : public macro::File
{
  public:
    explicit DiskFile(HANDLE opened) : handle(opened) {}
    DiskFile(const DiskFile&) = delete;
    DiskFile& operator=(const DiskFile&) = delete;
    ~DiskFile() override { CloseHandle(handle); }

    size_t Read(std::span<char> bytes) override
    {
        DWORD count = 0;
        ExpectSuccess(
            ReadFile(handle, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kLargestPiece)), &count, nullptr));
        return count;
    }

    void Write(std::span<const char> bytes) override
    {
        while (!bytes.empty()) {
            DWORD count = 0;
            ExpectSuccess(WriteFile(handle, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kLargestPiece)),
                                    &count, nullptr));
            bytes = bytes.subspan(count);
        }
    }

    uint64_t Size() override
    {
        LARGE_INTEGER size{};
        ExpectSuccess(GetFileSizeEx(handle, &size));
        return static_cast<uint64_t>(size.QuadPart);
    }

    uint64_t Position() override { return Move(0, FILE_CURRENT); }
    void Seek(uint64_t position) override { Move(position, FILE_BEGIN); }

  private:
    static constexpr size_t kLargestPiece = size_t{1} << 30;

    uint64_t Move(uint64_t distance, DWORD from)
    {
        LARGE_INTEGER wanted{};
        LARGE_INTEGER reached{};
        wanted.QuadPart = static_cast<LONGLONG>(distance);
        ExpectSuccess(SetFilePointerEx(handle, wanted, &reached, from));
        return static_cast<uint64_t>(reached.QuadPart);
    }

    HANDLE handle;
};

double DaysOf(const FILETIME& time)
{
    FILETIME local{};
    SYSTEMTIME parts{};
    double days = 0;
    if (!FileTimeToLocalFileTime(&time, &local) || !FileTimeToSystemTime(&local, &parts) ||
        !SystemTimeToVariantTime(&parts, &days)) {
        return 0;
    }
    return days;
}

macro::FileEntry EntryOf(const WIN32_FIND_DATAW& found)
{
    macro::FileEntry entry;
    entry.name = Units(found.cFileName);
    entry.isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    entry.size = (static_cast<uint64_t>(found.nFileSizeHigh) << 32) | found.nFileSizeLow;
    entry.modified = DaysOf(found.ftLastWriteTime);
    entry.isReadOnly = (found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    entry.isHidden = (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    return entry;
}

/// A root has no entry in any folder, so it is asked for by its attributes.
std::optional<macro::FileEntry> FindByAttributes(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return std::nullopt;
    }
    macro::FileEntry entry;
    entry.name = Units(path);
    entry.isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    entry.isReadOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    entry.isHidden = (attributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    return entry;
}

} // namespace

std::unique_ptr<macro::File> DiskFileSystem::Open(std::u16string_view path, macro::FileAccess access)
{
    struct Mode
    {
        DWORD access;
        DWORD creation;
    };
    constexpr Mode kModes[] = {
        {GENERIC_READ, OPEN_EXISTING},                 // Read
        {GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS}, // Write
        {GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS},   // Append
        {GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS},   // ReadWrite
    };
    const Mode& mode = kModes[static_cast<size_t>(access)];
    const HANDLE handle = CreateFileW(Wide(path).c_str(), mode.access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      mode.creation, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        RaiseSystemError(GetLastError());
    }
    auto file = std::make_unique<DiskFile>(handle);
    if (access == macro::FileAccess::Append) {
        file->Seek(file->Size());
    }
    return file;
}

std::optional<macro::FileEntry> DiskFileSystem::Find(std::u16string_view path)
{
    std::wstring name = Wide(path);
    while (name.size() > 3 && (name.back() == L'\\' || name.back() == L'/')) {
        name.pop_back();
    }
    if (name.find_first_of(L"*?") != std::wstring::npos) {
        return std::nullopt;
    }
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(name.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return FindByAttributes(name);
    }
    FindClose(search);
    return EntryOf(found);
}

std::vector<macro::FileEntry> DiskFileSystem::List(std::u16string_view folder)
{
    std::wstring pattern = Wide(folder);
    if (!pattern.empty() && pattern.back() != L'\\' && pattern.back() != L'/') {
        pattern += L'\\';
    }
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((pattern + L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        RaiseSystemError(GetLastError());
    }
    std::vector<macro::FileEntry> entries;
    do {
        const std::wstring_view name = found.cFileName;
        if (name != L"." && name != L"..") {
            entries.push_back(EntryOf(found));
        }
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return entries;
}

void DiskFileSystem::Delete(std::u16string_view path)
{
    ExpectSuccess(DeleteFileW(Wide(path).c_str()));
}

void DiskFileSystem::Copy(std::u16string_view from, std::u16string_view to)
{
    ExpectSuccess(CopyFileW(Wide(from).c_str(), Wide(to).c_str(), FALSE));
}

void DiskFileSystem::Rename(std::u16string_view from, std::u16string_view to)
{
    ExpectSuccess(MoveFileExW(Wide(from).c_str(), Wide(to).c_str(), MOVEFILE_COPY_ALLOWED));
}

void DiskFileSystem::CreateFolder(std::u16string_view path)
{
    ExpectSuccess(CreateDirectoryW(Wide(path).c_str(), nullptr));
}

void DiskFileSystem::RemoveFolder(std::u16string_view path)
{
    ExpectSuccess(RemoveDirectoryW(Wide(path).c_str()));
}

void DiskFileSystem::SetReadOnly(std::u16string_view path, bool readOnly)
{
    const std::wstring name = Wide(path);
    const DWORD attributes = GetFileAttributesW(name.c_str());
    ExpectSuccess(attributes != INVALID_FILE_ATTRIBUTES);
    const DWORD wanted = readOnly ? attributes | FILE_ATTRIBUTE_READONLY : attributes & ~DWORD{FILE_ATTRIBUTE_READONLY};
    ExpectSuccess(SetFileAttributesW(name.c_str(), wanted));
}

std::u16string DiskFileSystem::CurrentFolder()
{
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return Units(folder);
}

void DiskFileSystem::ChangeFolder(std::u16string_view path)
{
    ExpectSuccess(SetCurrentDirectoryW(Wide(path).c_str()));
}

std::u16string DiskFileSystem::TemporaryFolder()
{
    wchar_t folder[MAX_PATH + 1] = {};
    const DWORD length = GetTempPathW(MAX_PATH + 1, folder);
    return Units(std::wstring_view(folder, length));
}

} // namespace tv::app
