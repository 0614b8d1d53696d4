// Component classes and running objects of the machine.
#pragma once

#include "com/com_ptr.h"

#include <memory>
#include <string_view>

namespace tv {

/// The running object table, as it was at the moment it was asked for.
class RunningObjectTable
{
  public:
    virtual ~RunningObjectTable() = default;
    /// The object registered under an item moniker of this name (no delimiter), made anew for each call.
    virtual Result GetObject(std::u16string_view itemName, ComPtr<IUnknown>& object) = 0;
};

class RunningObjectsService
{
  public:
    virtual ~RunningObjectsService() = default;
    virtual Result ClassFromProgId(std::u16string_view name, GUID& id) = 0;
    /// Null when the table can't be had.
    virtual std::unique_ptr<RunningObjectTable> GetTable() = 0;
};

} // namespace tv
