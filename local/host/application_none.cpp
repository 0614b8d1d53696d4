#include "host/application_process.h"

namespace tv::local {

namespace {

class NoApplication final : public ApplicationStarter
{
  public:
    std::unique_ptr<ApplicationProcess> Start(const ApplicationStart&) override
    {
        throw NoApplicationError("The CAD application is a Windows program; on this system macros are only checked.");
    }
};

} // namespace

std::unique_ptr<ApplicationStarter> MakeApplicationStarter()
{
    return std::make_unique<NoApplication>();
}

} // namespace tv::local
