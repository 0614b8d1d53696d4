#include "support/task_variables.h"

#include "com/com_ptr.h"
#include "com/result.h"
#include "support/task_variable_table.h"

namespace tv {

namespace {

/// Calls `access` with whichever of the two stores the handle offers.
template <typename Access> Result OnStore(IUnknown* handle, Access&& access)
{
    ComPtr<IVyxTaskProperties> properties;
    if (QueryFor(handle, properties) >= 0 && properties) {
        return access(*properties.get());
    }
    ComPtr<IVyxTaskInstance> instance;
    if (QueryFor(handle, instance) >= 0 && instance) {
        return access(*instance.get());
    }
    return E_POINTER;
}

template <typename Store> Result ReadTaskKindFrom(IUnknown* handle, int32_t& kind)
{
    ComPtr<Store> store;
    if (QueryFor(handle, store) < 0 || !store) {
        return E_POINTER;
    }
    Variant value;
    const Result result = store->GetVariable(variable::kType, value.put());
    if (result < 0) {
        return result;
    }
    kind = result == kAbsent ? static_cast<int32_t>(TaskKind::ExecuteScript) : value.ToInt();
    return 0;
}

} // namespace

bool ReadVariable(IUnknown* handle, const char16_t* name, Variant& value)
{
    const Result result =
        ThrowIfFailed(OnStore(handle, [&](auto& store) { return store.GetVariable(name, value.put()); }));
    if (result == kAbsent) {
        value = Variant();
        return false;
    }
    return true;
}

void WriteVariable(IUnknown* handle, const char16_t* name, const Variant& value)
{
    ThrowIfFailed(OnStore(handle, [&](auto& store) { return store.SetVariable(name, value.get()); }));
}

std::optional<int32_t> ReadInt(IUnknown* handle, const char16_t* name)
{
    Variant value;
    return ReadVariable(handle, name, value) ? std::optional(value.ToInt()) : std::nullopt;
}

std::optional<float> ReadFloat(IUnknown* handle, const char16_t* name)
{
    Variant value;
    if (!ReadVariable(handle, name, value)) {
        return std::nullopt;
    }
    ThrowIfFailed(value.ChangeType(VT_R4));
    return value.get()->fltVal;
}

std::optional<bool> ReadBool(IUnknown* handle, const char16_t* name)
{
    Variant value;
    return ReadVariable(handle, name, value) ? std::optional(value.ToBool()) : std::nullopt;
}

std::optional<std::u16string> ReadText(IUnknown* handle, const char16_t* name)
{
    Variant value;
    return ReadVariable(handle, name, value) ? std::optional(value.ToText()) : std::nullopt;
}

void WriteInt(IUnknown* handle, const char16_t* name, int32_t value)
{
    WriteVariable(handle, name, Variant::FromInt(value));
}

void WriteFloat(IUnknown* handle, const char16_t* name, float value)
{
    WriteVariable(handle, name, Variant::FromFloat(value));
}

void WriteBool(IUnknown* handle, const char16_t* name, bool value)
{
    WriteVariable(handle, name, Variant::FromBool(value));
}

void WriteText(IUnknown* handle, const char16_t* name, std::u16string_view value)
{
    WriteVariable(handle, name, Variant::FromText(value));
}

Result ReadTaskKind(IUnknown* handle, bool useInstance, int32_t& kind)
{
    return AtBoundary([&] {
        return useInstance ? ReadTaskKindFrom<IVyxTaskInstance>(handle, kind)
                           : ReadTaskKindFrom<IVyxTaskProperties>(handle, kind);
    });
}

} // namespace tv
