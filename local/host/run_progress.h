// Shows how far a run is, and takes the time that each file takes.
#pragma once

#include "host/run_report.h"

#include <chrono>

namespace tv::local {

class RunProgress
{
  public:
    explicit RunProgress(HostContext& host) : context(host) {}

    /// Takes note of a change of status or progress.
    void Update(const InstanceRecord& instance);
    /// The run is over: closes the last file and clears the bar.
    void Finish();
    const SecondsBySource& Seconds() const { return seconds; }

  private:
    void CloseFile();
    void ShowBar(const Progress& progress, const std::string& text);
    void ShowLine(const Progress& progress, const std::string& text);

    HostContext& context;
    SecondsBySource seconds;
    std::string current;
    std::chrono::steady_clock::time_point since;
    size_t barWidth = 0;
};

} // namespace tv::local
