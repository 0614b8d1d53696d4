// What is kept of the applications that "tvtask app start" started, so that a later command finds them: a small file
// each in a folder of the user.
#pragma once

#include "host/application_process.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tv::local {

struct ApplicationRecord
{
    ProcessIdentity process;
    /// Product year.
    int32_t year = 0;
    std::string commandLine;
    /// File that the application tells its macros' doings in.
    std::string eventsFile;

    bool operator==(const ApplicationRecord&) const = default;
};

class ApplicationRecords
{
  public:
    /// \param place folder of the records; made when the first one is
    explicit ApplicationRecords(std::filesystem::path place) : folder(std::move(place)) {}

    /// A name for the events of an application that is about to be started by the process `host`. Makes the folder.
    std::string NewEventsFile(int32_t host) const;
    /// Raises std::runtime_error, naming the file, when it can't be written.
    void Add(const ApplicationRecord& record) const;
    /// By process id. A file that is no record is left out.
    std::vector<ApplicationRecord> All() const;
    /// With its events; does nothing when it has gone already.
    void Remove(const ApplicationRecord& record) const;

  private:
    std::filesystem::path FileOf(int32_t processId) const;

    std::filesystem::path folder;
};

} // namespace tv::local
