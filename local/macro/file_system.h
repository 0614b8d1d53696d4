#pragma once

#include "macro/error.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tv::macro {

enum class FileAccess
{
    Read,
    /// Made empty, or created.
    Write,
    /// Created when missing.
    Append,
    /// Created when missing.
    ReadWrite,
};

/// An open file of bytes.
class File
{
public:
    virtual ~File() = default;
    /// Returns how many bytes were read; 0 at the end.
    virtual size_t Read(std::span<char> bytes) = 0;
    virtual void Write(std::span<const char> bytes) = 0;
    virtual uint64_t Size() = 0;
    virtual uint64_t Position() = 0;
    virtual void Seek(uint64_t position) = 0;
};

struct FileEntry
{
    std::u16string name;
    bool isFolder = false;
    uint64_t size = 0;
    /// Days since 30 December 1899, local time.
    double modified = 0;
    bool isReadOnly = false;
    bool isHidden = false;
};

/// The files that a macro sees. Paths are Windows paths; failures are MacroErrors with the language's numbers (53, 55,
/// 58, 70, 75, 76).
class FileSystem
{
public:
    virtual ~FileSystem() = default;
    virtual std::unique_ptr<File> Open(std::u16string_view path, FileAccess access) = 0;
    /// Nothing when there is no such file or folder.
    virtual std::optional<FileEntry> Find(std::u16string_view path) = 0;
    virtual std::vector<FileEntry> List(std::u16string_view folder) = 0;
    virtual void Delete(std::u16string_view path) = 0;
    virtual void Copy(std::u16string_view from, std::u16string_view to) = 0;
    virtual void Rename(std::u16string_view from, std::u16string_view to) = 0;
    virtual void CreateFolder(std::u16string_view path) = 0;
    virtual void RemoveFolder(std::u16string_view path) = 0;
    virtual void SetReadOnly(std::u16string_view path, bool readOnly) = 0;
    virtual std::u16string CurrentFolder() = 0;
    virtual void ChangeFolder(std::u16string_view path) = 0;
    virtual std::u16string TemporaryFolder() = 0;
};

} // namespace tv::macro
