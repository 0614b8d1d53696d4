#include "cad/kernel_geometry.h"

#include <utility>

namespace tv::app {

KernelGeometry::KernelGeometry(kernel::KernelClientSettings settings,
                               std::function<std::string(const std::string&)> nativePath)
    : client(std::move(settings)), toNative(std::move(nativePath))
{}

kernel::Outcome<kernel::Inspection> KernelGeometry::Inspect(const kernel::InspectJob& job)
{
    kernel::InspectJob native = job;
    native.source.path = toNative(job.source.path);
    return client.Inspect(native);
}

kernel::Outcome<kernel::Saved> KernelGeometry::Save(const kernel::SaveJob& job)
{
    kernel::SaveJob native = job;
    native.source.path = toNative(job.source.path);
    native.target = toNative(job.target);
    return client.Save(native);
}

} // namespace tv::app
