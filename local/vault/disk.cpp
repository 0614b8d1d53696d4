#include "vault/disk.h"

#include "vault/error_table.h"
#include "vault/sha256.h"
#include "vault/text.h"

#include "com/base.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace tv::local {

namespace fs = std::filesystem;

namespace {

constexpr size_t kChunk = 1u << 18;

std::string WhyOf(int error)
{
#ifdef _WIN32
    if (error == EBUSY) {
        return "another program has it open";
    }
    if (error == EACCES) {
        return "access is denied, or another program has it open";
    }
#endif
    return std::strerror(error);
}

[[noreturn]] void FailOn(std::string_view what, const fs::path& path, int error)
{
    const Result code = error == ENOSPC ? kErrorDiskFull : kErrorIo;
    Fail(code, std::string(what) + " '" + TextOf(path) + "' failed: " + WhyOf(error) + ".");
}

#ifdef _WIN32

int ErrnoOfSystem()
{
    switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return ENOENT;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    case ERROR_ACCESS_DENIED:
        return EACCES;
    case ERROR_SHARING_VIOLATION:
        return EBUSY;
    default:
        return EIO;
    }
}

/// How long a file may stay open in another program before it counts as refused.
constexpr std::chrono::seconds kSharingPatience{2};
constexpr std::chrono::milliseconds kSharingInterval{5};

/// Tries until no other program has the file open. A file can't be replaced or removed while anybody reads it, be it
/// another host that compares it or a virus scanner; they are done in a moment. The system tells some of that as a
/// denied access, so one that is truly denied is told after the patience too.
bool TryShared(const std::function<bool()>& attempt)
{
    const auto deadline = std::chrono::steady_clock::now() + kSharingPatience;
    while (!attempt()) {
        const auto error = GetLastError();
        if ((error != ERROR_ACCESS_DENIED && error != ERROR_SHARING_VIOLATION) ||
            std::chrono::steady_clock::now() >= deadline) {
            SetLastError(error);
            return false;
        }
        std::this_thread::sleep_for(kSharingInterval);
    }
    return true;
}

/// A file of the system, open for reading or for writing anew.
class RawFile
{
  public:
    RawFile(const fs::path& name, bool writing) : path(name)
    {
        handle = CreateFileW(name.c_str(), writing ? GENERIC_WRITE : GENERIC_READ,
                             writing ? FILE_SHARE_READ : FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                             nullptr, writing ? CREATE_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle == INVALID_HANDLE_VALUE) {
            FailOn(writing ? "Writing" : "Reading", path, ErrnoOfSystem());
        }
    }
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;
    ~RawFile() { CloseHandle(handle); }

    size_t Read(std::vector<std::byte>& buffer) const
    {
        unsigned long count = 0;
        if (!ReadFile(handle, buffer.data(), static_cast<unsigned long>(buffer.size()), &count, nullptr)) {
            FailOn("Reading", path, ErrnoOfSystem());
        }
        return count;
    }

    void Write(const std::byte* data, size_t size) const
    {
        unsigned long count = 0;
        if (!WriteFile(handle, data, static_cast<unsigned long>(size), &count, nullptr) || count != size) {
            FailOn("Writing", path, ErrnoOfSystem());
        }
    }

    void Flush() const
    {
        if (!FlushFileBuffers(handle)) {
            FailOn("Flushing", path, ErrnoOfSystem());
        }
    }

  private:
    fs::path path;
    HANDLE handle;
};

#else

class RawFile
{
  public:
    RawFile(const fs::path& name, bool writing) : path(name)
    {
        handle = ::open(name.c_str(), writing ? O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC : O_RDONLY | O_CLOEXEC, 0644);
        if (handle < 0) {
            FailOn(writing ? "Writing" : "Reading", path, errno);
        }
    }
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;
    ~RawFile() { ::close(handle); }

    size_t Read(std::vector<std::byte>& buffer) const
    {
        const ssize_t count = ::read(handle, buffer.data(), buffer.size());
        if (count < 0) {
            FailOn("Reading", path, errno);
        }
        return static_cast<size_t>(count);
    }

    void Write(const std::byte* data, size_t size) const
    {
        while (size > 0) {
            const ssize_t count = ::write(handle, data, size);
            if (count <= 0) {
                FailOn("Writing", path, errno);
            }
            data += count;
            size -= static_cast<size_t>(count);
        }
    }

    void Flush() const
    {
        if (::fsync(handle) != 0) {
            FailOn("Flushing", path, errno);
        }
    }

  private:
    fs::path path;
    int handle;
};

#endif

} // namespace

fs::path PathOf(std::string_view utf8)
{
#ifdef _WIN32
    return fs::path(Utf16(utf8)).make_preferred();
#else
    return fs::path(std::string(utf8));
#endif
}

std::string TextOf(const fs::path& path)
{
#ifdef _WIN32
    return Utf8(path.u16string());
#else
    return path.string();
#endif
}

bool Disk::IsFile(const fs::path& path)
{
    std::error_code error;
    return fs::is_regular_file(path, error);
}

std::optional<FileStamp> Disk::StampOf(const fs::path& path)
{
    std::error_code error;
    if (!fs::is_regular_file(path, error)) {
        return std::nullopt;
    }
    FileStamp stamp;
    stamp.size = static_cast<int64_t>(fs::file_size(path, error));
#ifdef _WIN32
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) {
        stamp.modified = static_cast<int64_t>(uint64_t{data.ftLastWriteTime.dwHighDateTime} << 32 |
                                              data.ftLastWriteTime.dwLowDateTime);
    }
#else
    struct stat status
    {};
    if (::stat(path.c_str(), &status) == 0) {
        stamp.modified = int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
    }
#endif
    return stamp;
}

ContentInfo Disk::Read(const fs::path& path)
{
    const RawFile file(path, false);
    std::vector<std::byte> buffer(kChunk);
    Sha256 hash;
    ContentInfo info;
    while (const size_t count = file.Read(buffer)) {
        hash.Add({buffer.data(), count});
        info.size += static_cast<int64_t>(count);
    }
    info.hash = hash.Finish();
    return info;
}

bool Disk::IsReadOnly(const fs::path& path)
{
#ifdef _WIN32
    const auto attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
#else
    std::error_code error;
    return (fs::status(path, error).permissions() & fs::perms::owner_write) == fs::perms::none;
#endif
}

void Disk::SetReadOnly(const fs::path& path, bool readOnly) const
{
    if (IsReadOnly(path) == readOnly) {
        return;
    }
    Announce(readOnly ? "make read-only" : "make writable");
#ifdef _WIN32
    const auto attributes = GetFileAttributesW(path.c_str());
    const auto wanted =
        readOnly ? attributes | FILE_ATTRIBUTE_READONLY : attributes & ~unsigned{FILE_ATTRIBUTE_READONLY};
    if (attributes == INVALID_FILE_ATTRIBUTES || !SetFileAttributesW(path.c_str(), wanted)) {
        FailOn("Changing the attributes of", path, ErrnoOfSystem());
    }
#else
    const auto writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code error;
    fs::permissions(path, readOnly ? writing : fs::perms::owner_write,
                    readOnly ? fs::perm_options::remove : fs::perm_options::add, error);
    if (error) {
        FailOn("Changing the attributes of", path, error.value());
    }
#endif
}

void Disk::MakeFolders(const fs::path& path) const
{
    std::error_code error;
    if (fs::is_directory(path, error)) {
        return;
    }
    Announce("make folder");
    fs::create_directories(path, error);
    if (!fs::is_directory(path)) {
        Fail(kErrorIo, "The folder '" + TextOf(path) + "' can't be made: " + error.message() + ".");
    }
}

ContentInfo Disk::CopyFlushed(const fs::path& from, const fs::path& to) const
{
    const RawFile source(from, false);
    Announce("write bytes");
    const RawFile target(to, true);
    std::vector<std::byte> buffer(kChunk);
    Sha256 hash;
    ContentInfo info;
    while (const size_t count = source.Read(buffer)) {
        hash.Add({buffer.data(), count});
        target.Write(buffer.data(), count);
        info.size += static_cast<int64_t>(count);
    }
    Announce("flush bytes");
    target.Flush();
    info.hash = hash.Finish();
    return info;
}

void Disk::Replace(const fs::path& from, const fs::path& to) const
{
    Rename(from, to);
    FlushFolder(to.parent_path());
}

void Disk::Rename(const fs::path& from, const fs::path& to) const
{
#ifdef _WIN32
    if (IsReadOnly(to)) {
        SetReadOnly(to, false);
    }
    Announce("rename");
    if (!TryShared([&] {
            return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
        })) {
        FailOn("Writing", to, ErrnoOfSystem());
    }
#else
    Announce("rename");
    if (::rename(from.c_str(), to.c_str()) != 0) {
        FailOn("Writing", to, errno);
    }
#endif
}

void Disk::FlushFolder(const fs::path& folder) const
{
#ifdef _WIN32
    // Each renaming was written through.
    (void)folder;
#else
    Announce("flush folder");
    const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle >= 0) {
        ::fsync(handle);
        ::close(handle);
    }
#endif
}

void Disk::Remove(const fs::path& path) const
{
    std::error_code error;
    if (!fs::exists(path, error)) {
        return;
    }
    if (IsReadOnly(path)) {
        SetReadOnly(path, false);
    }
    Announce("remove file");
#ifdef _WIN32
    if (!TryShared([&] { return DeleteFileW(path.c_str()) != 0; })) {
        FailOn("Removing", path, ErrnoOfSystem());
    }
#else
    if (::unlink(path.c_str()) != 0) {
        FailOn("Removing", path, errno);
    }
#endif
}

TemporaryFile::~TemporaryFile()
{
    // What is left over for once is removed when the vault is opened on another day.
    (void)AtBoundary([&] {
        disk.Remove(path);
        return 0;
    });
}

} // namespace tv::local
