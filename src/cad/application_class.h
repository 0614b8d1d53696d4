// Which registered class stands for a product year.
#pragma once

#include "platform/running_objects_service.h"

namespace tv {

/// Finds the class of a year, 0 for the class without a version. When a year's class isn't registered, the class
/// without a version stands in for it and the year becomes 0; when that isn't either, the failure is returned and the
/// year stays.
Result ResolveApplicationClass(RunningObjectsService& runningObjects, int32_t& requestedVersion, GUID& classId);

} // namespace tv
