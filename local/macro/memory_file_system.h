#pragma once

#include "macro/file_system.h"

#include <map>

namespace tv::macro {

/// Files kept in memory under Windows paths, for tests and for trying a macro out without touching a disk.
class MemoryFileSystem final : public FileSystem
{
public:
    MemoryFileSystem();

    /// Makes a file and the folders above it.
    void Put(std::u16string_view path, std::string_view bytes);
    /// The bytes of a file, or nothing when there is none.
    std::optional<std::string> Content(std::u16string_view path) const;
    /// Makes every operation on the path fail with error 70.
    void Deny(std::u16string_view path);

    std::unique_ptr<File> Open(std::u16string_view path, FileAccess access) override;
    std::optional<FileEntry> Find(std::u16string_view path) override;
    std::vector<FileEntry> List(std::u16string_view folder) override;
    void Delete(std::u16string_view path) override;
    void Copy(std::u16string_view from, std::u16string_view to) override;
    void Rename(std::u16string_view from, std::u16string_view to) override;
    void CreateFolder(std::u16string_view path) override;
    void RemoveFolder(std::u16string_view path) override;
    void SetReadOnly(std::u16string_view path, bool readOnly) override;
    std::u16string CurrentFolder() override { return current; }
    void ChangeFolder(std::u16string_view path) override;
    std::u16string TemporaryFolder() override { return u"C:\\Temp"; }

private:
    struct Node
    {
        std::u16string name;
        bool isFolder = false;
        bool isReadOnly = false;
        bool isDenied = false;
        std::shared_ptr<std::string> bytes;
    };

    /// The whole path, folded, with backslashes and none at its end.
    std::u16string KeyOf(std::u16string_view path) const;
    std::u16string FullPath(std::u16string_view path) const;
    void RequireParent(std::u16string_view path) const;
    Node* FindNode(std::u16string_view path);

    std::map<std::u16string, Node> nodes;
    std::u16string current = u"C:\\";
};

} // namespace tv::macro
