// Geometry by the kernel, a native process of its own.
#pragma once

#include "cad/geometry.h"
#include "client/kernel_client.h"

#include <functional>

namespace tv::app {

class KernelGeometry : public Geometry
{
  public:
    /// \param nativePath turns a Windows path into one of the system that the kernel runs on
    KernelGeometry(kernel::KernelClientSettings settings, std::function<std::string(const std::string&)> nativePath);

    kernel::Outcome<kernel::Inspection> Inspect(const kernel::InspectJob& job) override;
    kernel::Outcome<kernel::Saved> Save(const kernel::SaveJob& job) override;

  private:
    kernel::KernelClient client;
    std::function<std::string(const std::string&)> toNative;
};

} // namespace tv::app
