// Win32Files: the machine's files and folders.
#pragma once

#include "platform/file_service.h"

namespace tv::win32 {

class Win32Files final : public FileService
{
  public:
    bool FileExists(std::u16string_view path) override;
    uint32_t ClearReadOnly(std::u16string_view path) override;
    uint32_t DeleteFile(std::u16string_view path) override;
    uint32_t MoveFile(std::u16string_view from, std::u16string_view to) override;
    uint32_t CopyFile(std::u16string_view from, std::u16string_view to) override;
    uint32_t CreateDirectory(std::u16string_view path) override;
    std::unique_ptr<OutputFile> OpenForAppend(std::u16string_view path) override;
    uint32_t CreateTemporaryFile(std::u16string_view prefix, std::unique_ptr<OutputFile>& file) override;
    std::string NarrowText(std::u16string_view text) override;
};

} // namespace tv::win32
