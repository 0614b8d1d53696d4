#pragma once

#include "protocol/errors.h"
#include "protocol/jobs.h"

#include <filesystem>
#include <string>

namespace tv::kernel::test {

/// A folder of its own for each test, gone with it.
class TemporaryFolder
{
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return folder; }
    std::string operator/(const std::string& name) const { return (folder / name).string(); }

    /// Writes a file and returns its path.
    std::string Write(const std::string& name, const std::string& text) const;

  private:
    std::filesystem::path folder;
};

std::string Sample(const std::string& name);
std::string ReadFile(const std::string& path);

/// A part with one configuration of these features.
std::string PartText(const std::string& features);

/// Run in a guarded process, as the server does.
Outcome<Inspection> Inspect(const std::string& path, const std::string& configuration = {});
Outcome<Saved> Save(const SaveJob& job);
Outcome<Saved> Convert(const std::string& source, const std::string& target,
                       const std::map<std::string, std::string>& options = {});

/// The output of a program.
std::string OutputOf(const std::string& command);

} // namespace tv::kernel::test
