// FakeFiles: a disk in memory with Windows paths.
#pragma once

#include "fakes/platform/call_log.h"
#include "platform/file_service.h"
#include "support/text_compare.h"

#include <functional>
#include <map>
#include <optional>

namespace tv::fakes {

/// Paths compare without regard to case; slashes are backslashes. The drive "C:" is there with the folder "C:\Temp",
/// where temporary files go. A file that is open can't be moved or deleted; a temporary one can't be copied or opened
/// again either.
class FakeFiles final : public FileService
{
  public:
    explicit FakeFiles(CallLog& callLog);

    bool FileExists(std::u16string_view path) override;
    uint32_t ClearReadOnly(std::u16string_view path) override;
    uint32_t DeleteFile(std::u16string_view path) override;
    uint32_t MoveFile(std::u16string_view from, std::u16string_view to) override;
    uint32_t CopyFile(std::u16string_view from, std::u16string_view to) override;
    uint32_t CreateDirectory(std::u16string_view path) override;
    std::unique_ptr<OutputFile> OpenForAppend(std::u16string_view path) override;
    uint32_t CreateTemporaryFile(std::u16string_view prefix, std::unique_ptr<OutputFile>& file) override;
    std::string NarrowText(std::u16string_view text) override;

    /// Narrows texts as another code page would; at first it is the Western one.
    void SetNarrowing(std::function<std::string(std::u16string_view)> codePage) { narrowing = std::move(codePage); }
    /// Puts a file on the disk, with the folders above it.
    void AddFile(std::u16string_view path, std::string bytes = {});
    void AddFolder(std::u16string_view path);
    void SetReadOnly(std::u16string_view path, bool isReadOnly);
    void RemoveFile(std::u16string_view path);

    bool IsReadOnly(std::u16string_view path) const;
    bool FolderExists(std::u16string_view path) const;
    /// Content of a file; nothing when there is no such file.
    std::optional<std::string> Content(std::u16string_view path) const;
    /// Full paths of all files, in the order of their names.
    std::vector<std::u16string> Files() const;
    /// Files that are open at the moment.
    size_t OpenCount() const { return openCount; }

  private:
    friend class FakeOutputFile;

    struct Entry
    {
        std::u16string path; ///< as it was first written
        bool isFolder = false;
        bool isReadOnly = false;
        bool isOpenAlone = false; ///< open, and shared with nobody
        size_t openings = 0;
        std::string bytes;
    };

    Entry* Find(std::u16string_view path);
    const Entry* Find(std::u16string_view path) const;
    Entry& Put(std::u16string_view path, bool isFolder);
    uint32_t ErrorOfNewName(std::u16string_view path);
    uint32_t ErrorOfExistingFile(std::u16string_view path);
    std::unique_ptr<OutputFile> OpenShared(Entry& entry);
    std::unique_ptr<OutputFile> OpenAlone(Entry& entry);

    CallLog& log;
    std::map<std::u16string, Entry, LessIgnoringCase> entries;
    std::function<std::string(std::u16string_view)> narrowing;
    uint32_t lastTemporary = 0;
    size_t openCount = 0;
};

} // namespace tv::fakes
