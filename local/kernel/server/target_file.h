// The file that a job writes. It comes into being beside its target under a name of its own, and takes the target's
// place when it is whole.
#pragma once

#include "protocol/errors.h"

#include <filesystem>
#include <optional>

namespace tv::kernel {

class TargetFile
{
  public:
    /// Creates the temporary file; fails with CannotWrite when the folder is missing or takes none.
    static Outcome<std::filesystem::path> CreateTemporary(const std::filesystem::path& target);

    TargetFile(std::filesystem::path target, std::filesystem::path temporary)
        : finalPath(std::move(target)), temporaryPath(std::move(temporary))
    {}
    TargetFile(const TargetFile&) = delete;
    TargetFile& operator=(const TargetFile&) = delete;

    /// Removes the temporary file unless it has taken the target's place. So does a job that crashed or was killed.
    ~TargetFile();

    const std::filesystem::path& temporary() const { return temporaryPath; }

    /// Puts the temporary file into the target's place.
    std::optional<Error> Commit();

  private:
    std::filesystem::path finalPath;
    std::filesystem::path temporaryPath;
};

} // namespace tv::kernel
