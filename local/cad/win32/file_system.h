// The files that macros see, on the disk of the machine.
#pragma once

#include "macro/file_system.h"

namespace tv::app {

class DiskFileSystem : public macro::FileSystem
{
  public:
    std::unique_ptr<macro::File> Open(std::u16string_view path, macro::FileAccess access) override;
    std::optional<macro::FileEntry> Find(std::u16string_view path) override;
    std::vector<macro::FileEntry> List(std::u16string_view folder) override;
    void Delete(std::u16string_view path) override;
    void Copy(std::u16string_view from, std::u16string_view to) override;
    void Rename(std::u16string_view from, std::u16string_view to) override;
    void CreateFolder(std::u16string_view path) override;
    void RemoveFolder(std::u16string_view path) override;
    void SetReadOnly(std::u16string_view path, bool readOnly) override;
    std::u16string CurrentFolder() override;
    void ChangeFolder(std::u16string_view path) override;
    std::u16string TemporaryFolder() override;
};

} // namespace tv::app
