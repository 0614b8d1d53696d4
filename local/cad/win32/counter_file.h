// Counts that several processes share by a file.
#pragma once

#include "cad/fault_plan.h"

#include <string>

namespace tv::app {

class CounterFile final : public FaultCounter
{
  public:
    explicit CounterFile(std::wstring file) : path(std::move(file)) {}
    /// Raises ResultError when the file can't be had.
    int32_t Next(const std::string& name) override;

  private:
    std::wstring path;
};

} // namespace tv::app
