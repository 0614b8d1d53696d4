// MemoryDisk: names of files, found by hash, for benches whose disk mustn't cost more with each file.
#pragma once

#include "platform/file_service.h"

#include <unordered_set>

namespace tv {

/// What is written is dropped; that a file stands there is kept.
class MemoryDisk final : public FileService
{
  public:
    void AddFile(std::u16string_view path);

    bool FileExists(std::u16string_view path) override;
    uint32_t ClearReadOnly(std::u16string_view path) override;
    uint32_t DeleteFile(std::u16string_view path) override;
    uint32_t MoveFile(std::u16string_view from, std::u16string_view to) override;
    uint32_t CopyFile(std::u16string_view from, std::u16string_view to) override;
    uint32_t CreateDirectory(std::u16string_view path) override;
    std::unique_ptr<OutputFile> OpenForAppend(std::u16string_view path) override;
    uint32_t CreateTemporaryFile(std::u16string_view prefix, std::unique_ptr<OutputFile>& file) override;
    std::string NarrowText(std::u16string_view text) override;

  private:
    std::unordered_set<std::u16string> files;
};

} // namespace tv
