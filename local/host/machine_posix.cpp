#include "host/machine.h"

#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace tv::local {

namespace {

/// Runs exist on Windows only, so nothing is ever left behind or interrupted here.
class PosixMachine final : public Machine
{
  public:
    int32_t ProcessId() const override { return ::getpid(); }
    bool IsAlive(int32_t process) const override { return ::kill(process, 0) == 0 || errno == EPERM; }
    int EndLeftApplications() override { return 0; }
    void LetApplicationsEndWithThisProcess() override {}
    void OnInterrupt(std::function<void()>) override {}
};

} // namespace

std::unique_ptr<Machine> MakeMachine()
{
    return std::make_unique<PosixMachine>();
}

} // namespace tv::local
