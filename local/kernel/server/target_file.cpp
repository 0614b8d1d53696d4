#include "server/target_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tv::kernel {

namespace {

namespace fs = std::filesystem;

Error CannotWrite(const fs::path& target, const std::string& reason)
{
    return {ErrorCode::CannotWrite, "\"" + target.string() + "\" can't be written: " + reason + "."};
}

/// The system would let a read-only file be replaced; whoever protected it doesn't want that.
bool IsReadOnly(const fs::path& target)
{
    struct stat status = {};
    return stat(target.c_str(), &status) == 0 && (status.st_mode & 0222) == 0;
}

bool FlushToDisk(const fs::path& file)
{
    const int fd = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    const bool flushed = fd >= 0 && fsync(fd) == 0;
    close(fd);
    return flushed;
}

} // namespace

Outcome<fs::path> TargetFile::CreateTemporary(const fs::path& target)
{
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::error_code error;
    if (!fs::is_directory(folder, error)) {
        return CannotWrite(target, "the folder \"" + folder.string() + "\" is not there");
    }
    if (fs::is_directory(target, error)) {
        return CannotWrite(target, "a folder of that name stands there");
    }
    if (IsReadOnly(target)) {
        return CannotWrite(target, "the file that stands there is read-only");
    }
    const fs::path temporary = folder / (".~" + target.filename().string() + "." + std::to_string(getpid()) + ".tmp");
    const int fd = open(temporary.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0666);
    if (fd < 0) {
        return CannotWrite(target, std::strerror(errno));
    }
    close(fd);
    return temporary;
}

TargetFile::~TargetFile()
{
    std::error_code ignored;
    fs::remove(temporaryPath, ignored);
}

std::optional<Error> TargetFile::Commit()
{
    if (!FlushToDisk(temporaryPath)) {
        return CannotWrite(finalPath, "the disk took no more");
    }
    std::error_code error;
    fs::rename(temporaryPath, finalPath, error);
    if (error) {
        return CannotWrite(finalPath, error.message());
    }
    return std::nullopt;
}

} // namespace tv::kernel
