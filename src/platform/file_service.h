// Files and folders of the machine, by Windows paths. Error numbers are the system's, 0 for success.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace tv {

/// A file that is open for writing. Closed with the object.
class OutputFile
{
  public:
    virtual ~OutputFile() = default;
    virtual uint32_t Write(std::span<const char> bytes) = 0;
    /// Full path of the file.
    virtual std::u16string Path() const = 0;
};

class FileService
{
  public:
    virtual ~FileService() = default;

    /// True for a file, not for a folder.
    virtual bool FileExists(std::u16string_view path) = 0;
    virtual uint32_t ClearReadOnly(std::u16string_view path) = 0;
    virtual uint32_t DeleteFile(std::u16string_view path) = 0;
    /// Fails when the target exists.
    virtual uint32_t MoveFile(std::u16string_view from, std::u16string_view to) = 0;
    /// Overwrites the target.
    virtual uint32_t CopyFile(std::u16string_view from, std::u16string_view to) = 0;
    virtual uint32_t CreateDirectory(std::u16string_view path) = 0;
    /// Opens for appending in text mode (LF becomes CR LF), creating a missing file; null on failure.
    virtual std::unique_ptr<OutputFile> OpenForAppend(std::u16string_view path) = 0;
    /// Creates a file with a unique name in the system's temporary folder: opened for writing only, not shared, with the
    /// attributes temporary and not-content-indexed.
    virtual uint32_t CreateTemporaryFile(std::u16string_view prefix, std::unique_ptr<OutputFile>& file) = 0;
    /// The text in the system's narrow code page; what it can't show becomes its default character.
    virtual std::string NarrowText(std::u16string_view text) = 0;
};

} // namespace tv
