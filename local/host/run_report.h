// What a run made, file by file: read from the instance and the vault after the run.
#pragma once

#include "host/host_context.h"

namespace tv::local {

/// One output, or one source that gave none.
struct ReportRow
{
    std::string source; ///< path in the vault
    std::string output; ///< path in the vault, or the full path of a file outside; empty when there is none
    int32_t file = 0;
    int32_t version = 0;
    int64_t size = 0;
    std::optional<double> seconds; ///< time that the source took
    std::string status;
};

/// Seconds of work on each source, by its full path.
using SecondsBySource = std::vector<std::pair<std::string, double>>;

std::vector<ReportRow> MakeReport(HostContext& context, const InstanceRecord& instance, const SecondsBySource& seconds);
void PrintReport(std::ostream& out, const std::vector<ReportRow>& rows);
Json ToJson(const std::vector<ReportRow>& rows);
Json ToJson(const InstanceRecord& instance);

/// The text of the instance's log file; empty when the run wrote none.
std::optional<std::string> ReadLog(HostContext& context, const InstanceRecord& instance);
/// Where the log stands in the vault.
std::optional<std::string> LogPath(HostContext& context, const InstanceRecord& instance);

} // namespace tv::local
