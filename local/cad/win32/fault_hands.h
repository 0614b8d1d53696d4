// What the operating system does for a fault.
#pragma once

#include "cad/fault_player.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tv::app {

class SystemFaultHands final : public FaultHands
{
  public:
    explicit SystemFaultHands(std::function<void(const std::string&)> note) : onNote(std::move(note)) {}

    void Crash() override;
    void Hang() override;
    void Wait(int32_t seconds) override;
    void Leak(int32_t mib) override;
    void ShowDialog(const Fault& dialog) override;

  private:
    std::function<void(const std::string&)> onNote;
    std::vector<std::unique_ptr<char[]>> leaked;
};

} // namespace tv::app
