// Win32RunningObjects: component classes and the running object table of the machine.
#pragma once

#include "platform/running_objects_service.h"

namespace tv::win32 {

class Win32RunningObjects final : public RunningObjectsService
{
  public:
    Result ClassFromProgId(std::u16string_view name, GUID& id) override;
    std::unique_ptr<RunningObjectTable> GetTable() override;
};

} // namespace tv::win32
