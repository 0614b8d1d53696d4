#include "host/health_files.h"

#include "vault/disk.h"
#include "vault/text.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <random>

namespace tv::local {

namespace fs = std::filesystem;

FolderState TryFolderByFile(const std::string& path)
{
    std::error_code error;
    const fs::path folder = PathOf(path);
    const fs::file_status status = fs::status(folder, error);
    if (!fs::exists(status)) {
        return FolderState::Missing;
    }
    if (!fs::is_directory(status)) {
        return FolderState::NoFolder;
    }
    const fs::path file = folder / ("tvdoctor_" + std::to_string(std::random_device{}()) + ".tmp");
    errno = 0;
    std::ofstream stream(file, std::ios::binary);
    stream << "tvtask doctor";
    stream.close();
    const bool full = errno == ENOSPC;
    const bool written = !stream.fail();
    fs::remove(file, error);
    if (written) {
        return FolderState::Writable;
    }
    return full ? FolderState::Full : FolderState::Refused;
}

std::optional<uint64_t> FreeBytesOf(const std::string& path)
{
    std::error_code error;
    const fs::space_info space = fs::space(PathOf(path), error);
    return error ? std::nullopt : std::optional<uint64_t>(space.available);
}

std::vector<FoundFile> FilesBetween(const std::string& folder, std::string_view begin, std::string_view end)
{
    const std::string first = FoldName(begin);
    const std::string last = FoldName(end);
    const auto now = fs::file_time_type::clock::now();
    std::vector<FoundFile> files;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(PathOf(folder), error)) {
        const std::string name = FoldName(TextOf(entry.path().filename()));
        std::error_code gone;
        const auto written = entry.last_write_time(gone);
        if (!gone && name.size() >= first.size() + last.size() && name.starts_with(first) && name.ends_with(last)) {
            files.push_back({TextOf(entry.path()), std::chrono::duration_cast<std::chrono::seconds>(now - written)});
        }
    }
    std::ranges::sort(files, {}, &FoundFile::path);
    return files;
}

} // namespace tv::local
