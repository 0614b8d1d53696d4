// The disk below the vault: what is reported written has reached it. Every step that changes it is announced first, so
// that a test can let the power fail there.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tv::local {

/// Called with the name of each step that is about to change the disk or the database.
using WriteHook = std::function<void(std::string_view step)>;

std::filesystem::path PathOf(std::string_view utf8);
std::string TextOf(const std::filesystem::path& path);

/// Size and time of the last write: enough to tell that a file was written since.
struct FileStamp
{
    int64_t size = 0;
    int64_t modified = 0;

    bool operator==(const FileStamp&) const = default;
};

/// What a copy knows of the bytes that it has copied.
struct ContentInfo
{
    std::string hash;
    int64_t size = 0;
};

class Disk
{
  public:
    explicit Disk(WriteHook beforeWrite) : hook(std::move(beforeWrite)) {}

    /// Announces a step; also used for the steps of the database.
    void Announce(std::string_view step) const
    {
        if (hook) {
            hook(step);
        }
    }

    static bool IsFile(const std::filesystem::path& path);
    /// Empty when no file stands there.
    static std::optional<FileStamp> StampOf(const std::filesystem::path& path);
    static ContentInfo Read(const std::filesystem::path& path);
    static bool IsReadOnly(const std::filesystem::path& path);

    void SetReadOnly(const std::filesystem::path& path, bool readOnly) const;
    void MakeFolders(const std::filesystem::path& path) const;
    /// Copies the bytes and has them on the disk before it returns. Raises E_VYX_IO_ERROR or E_VYX_DISK_FULL with a
    /// line that names the file.
    ContentInfo CopyFlushed(const std::filesystem::path& from, const std::filesystem::path& to) const;
    /// Puts a file in the place of another, or of none, in one step that survives a power loss.
    void Replace(const std::filesystem::path& from, const std::filesystem::path& to) const;
    /// As Replace, but survives a power loss only from the next FlushFolder on.
    void Rename(const std::filesystem::path& from, const std::filesystem::path& to) const;
    /// Has the names in a folder on the disk before it returns.
    void FlushFolder(const std::filesystem::path& folder) const;
    /// Removes a file, also a read-only one; nothing happens when none is there.
    void Remove(const std::filesystem::path& path) const;

  private:
    WriteHook hook;
};

/// A file that goes at the end, unless it has been renamed into its place.
class TemporaryFile
{
  public:
    TemporaryFile(const Disk& owner, std::filesystem::path place) : disk(owner), path(std::move(place)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    const std::filesystem::path& Path() const { return path; }

  private:
    Disk disk;
    std::filesystem::path path;
};

} // namespace tv::local
