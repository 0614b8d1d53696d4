// Task definitions and instances as component objects.
#include "vault/guid_text.h"
#include "vault/object_support.h"
#include "vault/vault_objects.h"

#include <map>

namespace tv::local {

namespace {

/// Gives the value out and answers whether there was one.
Result GiveValue(const std::optional<StoredValue>& value, VARIANT* out)
{
    if (!value) {
        VariantInit(out);
        return 1;
    }
    value->ToVariant().MoveTo(out);
    return 0;
}

/// Reads the name that a key means: a text is the name, a whole number its identifier.
std::optional<std::string> NameOfKey(VaultStore& store, const VARIANT* key)
{
    RequirePointer(key);
    const Variant plain = Variant::Copy(*key);
    switch (plain.Type()) {
    case VT_BSTR:
        return Utf8(plain.ToText());
    case VT_I2:
    case VT_I4:
    case VT_INT:
    case VT_UI4:
    case VT_UINT:
        return store.VariableName(plain.ToInt());
    default:
        Fail(E_INVALIDARG, "A variable is looked up by its name or by its number.");
    }
}

std::vector<DocumentItem> ReadDocuments(const VARIANT* documents)
{
    std::vector<DocumentItem> items;
    if (documents == nullptr || documents->vt == VT_EMPTY) {
        return items;
    }
    const Variant plain = Variant::Copy(*documents);
    if (plain.Type() != (VT_ARRAY | VT_RECORD)) {
        Fail(E_INVALIDARG, "The document list must be an array of records.");
    }
    for (const VyxDocument& document : SafeArrayView<VyxDocument>(plain.get()->parray)) {
        items.push_back({document.fileId, document.objectType, document.folderId, document.version});
    }
    return items;
}

class TaskInstanceObject final : public ComObject<IVyxTaskInstance>
{
  public:
    TaskInstanceObject(std::shared_ptr<VaultStore> vault, int32_t instance, InstanceObserver told)
        : store(std::move(vault)), id(instance), observer(std::move(told))
    {}

    Result TV_CALL GetVariable(const char16_t* name, VARIANT* value) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            return GiveValue(store->InstanceVariable(id, TextArgument(name)), value);
        });
    }

    Result TV_CALL SetVariable(const char16_t* name, const VARIANT* value) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            store->SetInstanceVariable(id, TextArgument(name), StoredValue::FromVariant(*value));
            return 0;
        });
    }

    Result TV_CALL GetVariableByKey(const VARIANT* key, VARIANT* value) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            const auto name = NameOfKey(*store, key);
            return GiveValue(name ? store->InstanceVariable(id, *name) : std::nullopt, value);
        });
    }

    Result TV_CALL GetTaskName(BStr* name) override
    {
        return AtBoundary([&] {
            RequirePointer(name);
            *name = NewText(std::string_view(Record().taskName));
            return 0;
        });
    }

    Result TV_CALL GetInstanceGuid(BStr* guid) override
    {
        return AtBoundary([&] {
            RequirePointer(guid);
            *guid = NewText(std::string_view(Record().guid));
            return 0;
        });
    }

    Result TV_CALL GetStatus(int32_t* status) override
    {
        return AtBoundary([&] {
            RequirePointer(status);
            *status = Record().status;
            return 0;
        });
    }

    Result TV_CALL SetStatus(int32_t status, Result result, const char16_t* message, const VARIANT* documents,
                             int32_t) override
    {
        return AtBoundary([&] {
            store->SetStatus(id, status, result, message != nullptr ? Utf8(message) : std::string(),
                             ReadDocuments(documents));
            Tell();
            return 0;
        });
    }

    Result TV_CALL SetProgressRange(int32_t upper, int32_t lower, const char16_t* text) override
    {
        return AtBoundary([&] {
            if (lower > upper) {
                Fail(E_INVALIDARG, "The lower bound is above the upper one.");
            }
            store->SetProgressRange(id, lower, upper, text != nullptr ? Utf8(text) : std::string());
            Tell();
            return 0;
        });
    }

    Result TV_CALL SetProgressPos(int32_t position, const char16_t* text) override
    {
        return AtBoundary([&] {
            store->SetProgressPosition(id, position, text != nullptr ? Utf8(text) : std::string());
            Tell();
            return 0;
        });
    }

  private:
    InstanceRecord Record() const
    {
        const auto record = store->Instance(id);
        if (!record) {
            Fail(kErrorDatabaseAccess, "The vault has no task instance " + std::to_string(id) + ".");
        }
        return *record;
    }

    void Tell() const
    {
        if (observer) {
            observer(Record());
        }
    }

    std::shared_ptr<VaultStore> store;
    int32_t id;
    InstanceObserver observer;
};

class PreviewInstanceObject final : public ComObject<IVyxTaskInstance>
{
  public:
    PreviewInstanceObject(std::shared_ptr<VaultStore> vault, TaskRecord definition)
        : store(std::move(vault)), task(std::move(definition)), guid(NewGuidText())
    {}

    Result TV_CALL GetVariable(const char16_t* name, VARIANT* value) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            return GiveValue(Find(TextArgument(name)), value);
        });
    }

    Result TV_CALL SetVariable(const char16_t* name, const VARIANT* value) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            own[TextArgument(name)] = StoredValue::FromVariant(*value);
            return 0;
        });
    }

    Result TV_CALL GetVariableByKey(const VARIANT* key, VARIANT* value) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            const auto name = NameOfKey(*store, key);
            return GiveValue(name ? Find(*name) : std::nullopt, value);
        });
    }

    Result TV_CALL GetTaskName(BStr* name) override
    {
        return AtBoundary([&] {
            RequirePointer(name);
            *name = NewText(std::string_view(task.name));
            return 0;
        });
    }

    Result TV_CALL GetInstanceGuid(BStr* text) override
    {
        return AtBoundary([&] {
            RequirePointer(text);
            *text = NewText(std::string_view(guid));
            return 0;
        });
    }

    Result TV_CALL GetStatus(int32_t* out) override
    {
        return AtBoundary([&] {
            RequirePointer(out);
            *out = status;
            return 0;
        });
    }

    Result TV_CALL SetStatus(int32_t now, Result, const char16_t*, const VARIANT*, int32_t) override
    {
        status = now;
        return 0;
    }

    Result TV_CALL SetProgressRange(int32_t, int32_t, const char16_t*) override { return 0; }
    Result TV_CALL SetProgressPos(int32_t, const char16_t*) override { return 0; }

  private:
    std::optional<StoredValue> Find(const std::string& name) const
    {
        const auto found = own.find(name);
        return found != own.end() ? found->second : store->TaskVariable(task.id, name);
    }

    std::shared_ptr<VaultStore> store;
    TaskRecord task;
    std::string guid;
    std::map<std::string, StoredValue> own;
    int32_t status = static_cast<int32_t>(TaskStatus::Running);
};

class TaskPropertiesObject final : public ComObject<IVyxTaskProperties>
{
  public:
    TaskPropertiesObject(std::shared_ptr<VaultStore> vault, int32_t id) : store(std::move(vault)), task(id) {}

    Result TV_CALL GetVariable(const char16_t* name, VARIANT* value) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            return GiveValue(store->TaskVariable(task, TextArgument(name)), value);
        });
    }

    Result TV_CALL SetVariable(const char16_t* name, const VARIANT* value) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            const NamedValue variable{TextArgument(name), StoredValue::FromVariant(*value)};
            store->SetTaskVariables(task, {&variable, 1});
            return 0;
        });
    }

    Result TV_CALL GetCardVariable(int32_t variableId, VARIANT* value) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            return GiveValue(store->TaskCardVariable(task, variableId), value);
        });
    }

    Result TV_CALL SetCardVariable(int32_t variableId, const VARIANT* value) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            store->SetTaskCardVariable(task, variableId, StoredValue::FromVariant(*value));
            return 0;
        });
    }

    Result TV_CALL SetFlags(int32_t flags) override
    {
        return AtBoundary([&] {
            store->SetTaskFlags(task, flags);
            return 0;
        });
    }

    Result TV_CALL SetSetupPages(SAFEARRAY* array) override { return Keep(array, pages); }

    Result TV_CALL GetMenuCmds(SAFEARRAY** commands) override
    {
        return AtBoundary([&] {
            RequirePointer(commands);
            *commands = nullptr;
            return menuCommands ? Result{SafeArrayCopy(menuCommands.get(), commands)} : Result{0};
        });
    }

    Result TV_CALL SetMenuCmds(SAFEARRAY* commands) override { return Keep(commands, menuCommands); }

  private:
    static Result Keep(SAFEARRAY* array, SafeArray& place)
    {
        return AtBoundary([&] {
            RequirePointer(array);
            SafeArray copy;
            ThrowIfFailed(SafeArrayCopy(array, copy.put()));
            place = std::move(copy);
            return 0;
        });
    }

    std::shared_ptr<VaultStore> store;
    int32_t task;
    SafeArray pages;
    SafeArray menuCommands;
};

} // namespace

ComPtr<IVyxTaskInstance> MakeTaskInstance(std::shared_ptr<VaultStore> store, int32_t instance,
                                          InstanceObserver observer)
{
    return ComPtr<IVyxTaskInstance>::Adopt(
        MakeObject<TaskInstanceObject>(std::move(store), instance, std::move(observer)).release());
}

ComPtr<IVyxTaskInstance> MakePreviewInstance(std::shared_ptr<VaultStore> store, const TaskRecord& task)
{
    return ComPtr<IVyxTaskInstance>::Adopt(MakeObject<PreviewInstanceObject>(std::move(store), task).release());
}

ComPtr<IVyxTaskProperties> MakeTaskProperties(std::shared_ptr<VaultStore> store, int32_t task)
{
    return ComPtr<IVyxTaskProperties>::Adopt(MakeObject<TaskPropertiesObject>(std::move(store), task).release());
}

SafeArray MakeCommandData(std::span<const SelectionItem> selection)
{
    SafeArray array = MakeRecordArray(VyxCmdData::kLayout, static_cast<uint32_t>(selection.size()));
    const SafeArrayView<VyxCmdData> view(array.get());
    for (size_t i = 0; i < selection.size(); ++i) {
        const SelectionItem& item = selection[i];
        VyxCmdData& record = view[i];
        record.fileId = item.file;
        record.folderId = item.folder;
        record.path = NewText(std::string_view(item.path));
        record.configuration = NewText(std::string_view(item.configuration));
        record.kind = item.kind;
        record.version = item.version;
    }
    return array;
}

std::vector<SelectionItem> ReadCommandData(SAFEARRAY* data)
{
    std::vector<SelectionItem> items;
    for (const VyxCmdData& record : SafeArrayView<VyxCmdData>(data)) {
        items.push_back({record.fileId, record.folderId, Utf8(tv::TextOf(record.path)),
                         Utf8(tv::TextOf(record.configuration)), record.kind, record.version});
    }
    return items;
}

} // namespace tv::local
