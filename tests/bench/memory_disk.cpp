#include "memory_disk.h"

#include "support/narrow_text.h"
#include "support/text_compare.h"

namespace tv {

namespace {

constexpr uint32_t kFileNotFound = 2;
constexpr uint32_t kAlreadyExists = 183;

class DroppingFile final : public OutputFile
{
  public:
    explicit DroppingFile(std::u16string_view fullPath) : path(fullPath) {}
    uint32_t Write(std::span<const char>) override { return 0; }
    std::u16string Path() const override { return path; }

  private:
    std::u16string path;
};

} // namespace

void MemoryDisk::AddFile(std::u16string_view path)
{
    files.insert(InCapitals(path));
}

bool MemoryDisk::FileExists(std::u16string_view path)
{
    return files.contains(InCapitals(path));
}

uint32_t MemoryDisk::ClearReadOnly(std::u16string_view path)
{
    return FileExists(path) ? 0 : kFileNotFound;
}

uint32_t MemoryDisk::DeleteFile(std::u16string_view path)
{
    return files.erase(InCapitals(path)) == 1 ? 0 : kFileNotFound;
}

uint32_t MemoryDisk::MoveFile(std::u16string_view from, std::u16string_view to)
{
    if (FileExists(to)) {
        return kAlreadyExists;
    }
    const uint32_t error = CopyFile(from, to);
    return error != 0 ? error : DeleteFile(from);
}

uint32_t MemoryDisk::CopyFile(std::u16string_view from, std::u16string_view to)
{
    if (!FileExists(from)) {
        return kFileNotFound;
    }
    AddFile(to);
    return 0;
}

uint32_t MemoryDisk::CreateDirectory(std::u16string_view)
{
    return 0;
}

std::unique_ptr<OutputFile> MemoryDisk::OpenForAppend(std::u16string_view path)
{
    AddFile(path);
    return std::make_unique<DroppingFile>(path);
}

uint32_t MemoryDisk::CreateTemporaryFile(std::u16string_view prefix, std::unique_ptr<OutputFile>& file)
{
    file = OpenForAppend(u"C:\\Temp\\" + std::u16string(prefix));
    return 0;
}

std::string MemoryDisk::NarrowText(std::u16string_view text)
{
    return NarrowWesternText(text);
}

} // namespace tv
