#include "fakes/platform/fake_running_objects.h"

#include "com/result.h"

namespace tv::fakes {

namespace {

constexpr Result kNoSuchClass = static_cast<Result>(0x800401F3u);
constexpr Result kNotRegistered = static_cast<Result>(0x800401E3u);

} // namespace

/// Looks into the table as it is at each call.
class FakeRunningObjectTable final : public RunningObjectTable
{
  public:
    explicit FakeRunningObjectTable(FakeRunningObjects& owner) : service(owner) {}

    Result GetObject(std::u16string_view itemName, ComPtr<IUnknown>& object) override
    {
        object.reset();
        if (const uint32_t error = service.log.Enter("runningObjects.GetObject", itemName)) {
            return ResultFromSystemError(error);
        }
        const auto found = service.objects.find(itemName);
        if (found == service.objects.end()) {
            return kNotRegistered;
        }
        object = found->second;
        return S_OK;
    }

  private:
    FakeRunningObjects& service;
};

Result FakeRunningObjects::ClassFromProgId(std::u16string_view name, GUID& id)
{
    if (const uint32_t error = log.Enter("runningObjects.ClassFromProgId", name)) {
        return ResultFromSystemError(error);
    }
    const auto found = classes.find(name);
    if (found == classes.end()) {
        return kNoSuchClass;
    }
    id = found->second;
    return S_OK;
}

std::unique_ptr<RunningObjectTable> FakeRunningObjects::GetTable()
{
    if (log.Enter("runningObjects.GetTable") != 0) {
        return nullptr;
    }
    return std::make_unique<FakeRunningObjectTable>(*this);
}

void FakeRunningObjects::Register(std::u16string_view itemName, ComPtr<IUnknown> object)
{
    objects[std::u16string(itemName)] = std::move(object);
}

} // namespace tv::fakes
