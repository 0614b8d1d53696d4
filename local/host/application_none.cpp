#include "host/application_process.h"

namespace tv::local {

namespace {

class NoApplication final : public ApplicationStarter
{
  public:
    void RequireSystem() override { Refuse(); }
    std::vector<int32_t> RegisteredYears() override { Refuse(); }
    std::unique_ptr<ApplicationProcess> Attach(const ProcessIdentity&) override { Refuse(); }
    std::unique_ptr<ApplicationProcess> Start(const ApplicationStart&) override { Refuse(); }

  private:
    [[noreturn]] static void Refuse()
    {
        throw NoApplicationError(
            "The CAD application is a Windows program: it runs on Windows, or elsewhere under Wine. "
            "On this system macros are only checked.");
    }
};

} // namespace

std::unique_ptr<ApplicationStarter> MakeApplicationStarter()
{
    return std::make_unique<NoApplication>();
}

} // namespace tv::local
