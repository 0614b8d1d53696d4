// Decides which faults happen: counts the moments and compares them with what was asked for.
#pragma once

#include "cad/faults.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tv::app {

/// Counts by name.
class FaultCounter
{
  public:
    virtual ~FaultCounter() = default;
    /// Adds 1 to a count and returns it.
    virtual int32_t Next(const std::string& name) = 0;
};

/// Counts as a file keeps them: a line each, the number, a blank and the name.
using FaultCounts = std::map<std::string, int32_t>;
std::string WriteCounts(const FaultCounts& counts);
/// Lines that aren't counts are left out.
FaultCounts ReadCounts(std::string_view text);

/// Counts for one process.
class MemoryFaultCounter final : public FaultCounter
{
  public:
    int32_t Next(const std::string& name) override { return ++counts[name]; }

  private:
    FaultCounts counts;
};

class FaultPlan
{
  public:
    FaultPlan(std::vector<Fault> asked, FaultCounter& counts) : faults(std::move(asked)), counter(counts) {}

    /// The faults that happen now, in the order in which they were asked for. A moment of which no fault speaks isn't
    /// counted. \param subject member or event number
    std::vector<Fault> At(FaultMoment moment, std::string_view subject = {});

  private:
    std::vector<Fault> faults;
    FaultCounter& counter;
};

} // namespace tv::app
