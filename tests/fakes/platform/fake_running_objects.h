// FakeRunningObjects: class names and running objects that a test registers.
#pragma once

#include "fakes/platform/call_log.h"
#include "platform/running_objects_service.h"
#include "support/text_compare.h"

#include <map>

namespace tv::fakes {

class FakeRunningObjects final : public RunningObjectsService
{
  public:
    explicit FakeRunningObjects(CallLog& callLog) : log(callLog) {}

    Result ClassFromProgId(std::u16string_view name, GUID& id) override;
    std::unique_ptr<RunningObjectTable> GetTable() override;

    void AddClass(std::u16string_view progId, const GUID& id) { classes.insert_or_assign(std::u16string(progId), id); }
    void RemoveClass(std::u16string_view progId) { classes.erase(std::u16string(progId)); }
    /// Registers an object under an item name, as its process does.
    void Register(std::u16string_view itemName, ComPtr<IUnknown> object);
    void Revoke(std::u16string_view itemName) { objects.erase(std::u16string(itemName)); }
    void RevokeAll() { objects.clear(); }

  private:
    friend class FakeRunningObjectTable;

    CallLog& log;
    std::map<std::u16string, GUID, LessIgnoringCase> classes;
    std::map<std::u16string, ComPtr<IUnknown>, LessIgnoringCase> objects;
};

} // namespace tv::fakes
