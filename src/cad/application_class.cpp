#include "cad/application_class.h"

#include "cad/installed_versions.h"
#include "support/format.h"

namespace tv {

namespace {

constexpr std::u16string_view kClassName = u"Torvane.Application";

} // namespace

Result ResolveApplicationClass(RunningObjectsService& runningObjects, int32_t& requestedVersion, GUID& classId)
{
    const std::u16string name = requestedVersion == 0
                                    ? std::u16string(kClassName)
                                    : FormatText(u"%s.%d", kClassName, requestedVersion - kYearOfRevisionZero);
    const Result resolved = runningObjects.ClassFromProgId(name, classId);
    if (resolved >= 0 || requestedVersion <= 0) {
        return resolved;
    }
    const Result unversioned = runningObjects.ClassFromProgId(kClassName, classId);
    if (unversioned >= 0) {
        requestedVersion = 0;
    }
    return unversioned;
}

} // namespace tv
