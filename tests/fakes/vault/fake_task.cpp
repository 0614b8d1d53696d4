#include "fakes/vault/fake_task.h"

#include "com/bstring.h"
#include "com/safe_array.h"
#include "support/format.h"

namespace tv::fakes {

namespace {

/// Gives a copy of a stored value, or 1.
Result Give(const Variant* stored, VARIANT* value)
{
    if (stored == nullptr) {
        return 1;
    }
    Variant(*stored).MoveTo(value);
    return 0;
}

const Variant* FindNumbered(const std::map<int32_t, Variant>& values, int32_t number)
{
    const auto found = values.find(number);
    return found != values.end() ? &found->second : nullptr;
}

Result GiveText(VaultScript& script, std::string_view operation, const std::u16string& value, BStr* text)
{
    if (const Result fault = script.Enter(operation)) {
        return fault;
    }
    *text = AllocateText(value);
    return 0;
}

std::vector<VyxDocument> DocumentsOf(const VARIANT* documents)
{
    if (documents == nullptr || documents->vt == VT_EMPTY) {
        return {};
    }
    const SafeArrayView<VyxDocument> view(documents->parray);
    return {view.begin(), view.end()};
}

} // namespace

const Variant* VariableStore::Find(std::u16string_view name) const
{
    const auto found = values.find(std::u16string(name));
    return found != values.end() ? &found->second : nullptr;
}

std::u16string VariableStore::Text(std::u16string_view name) const
{
    const Variant* value = Find(name);
    return value != nullptr ? value->ToText() : std::u16string();
}

Result FakeTaskInstance::GetVariable(const char16_t* variable, VARIANT* value)
{
    const Result fault = script.Enter("Task.GetVariable", variable);
    return fault != 0 ? fault : Give(variables.Find(variable), value);
}

Result FakeTaskInstance::SetVariable(const char16_t* variable, const VARIANT* value)
{
    if (const Result fault = script.Enter("Task.SetVariable", variable)) {
        return fault;
    }
    variables.Set(variable, Variant::Copy(*value));
    return 0;
}

Result FakeTaskInstance::GetVariableByKey(const VARIANT* key, VARIANT* value)
{
    if (key->vt == VT_I4) {
        const Result fault = script.Enter("Task.GetVariableByKey", FormatText(u"#%d", key->lVal));
        return fault != 0 ? fault : Give(FindNumbered(numberedVariables, key->lVal), value);
    }
    if (key->vt != VT_BSTR) {
        return E_INVALIDARG;
    }
    const std::u16string_view variable = TextOf(reinterpret_cast<BStr>(key->bstrVal));
    const Result fault = script.Enter("Task.GetVariableByKey", variable);
    return fault != 0 ? fault : Give(variables.Find(variable), value);
}

Result FakeTaskInstance::GetTaskName(BStr* text)
{
    return GiveText(script, "Task.GetTaskName", name, text);
}

Result FakeTaskInstance::GetInstanceGuid(BStr* text)
{
    return GiveText(script, "Task.GetInstanceGuid", guid, text);
}

Result FakeTaskInstance::GetStatus(int32_t* current)
{
    if (const Result fault = script.Enter("Task.GetStatus")) {
        return fault;
    }
    if (!comingStatuses.empty()) {
        status = comingStatuses.front();
        comingStatuses.erase(comingStatuses.begin());
    }
    *current = status;
    return 0;
}

Result FakeTaskInstance::SetStatus(int32_t newStatus, Result result, const char16_t* message, const VARIANT* documents,
                                   int32_t)
{
    if (const Result fault = script.Enter("Task.SetStatus", FormatText(u"%d", newStatus))) {
        return fault;
    }
    status = newStatus;
    WrittenStatus written;
    written.status = newStatus;
    written.result = result;
    if (message != nullptr) {
        written.message = message;
    }
    written.documents = DocumentsOf(documents);
    written.hasDocuments = documents != nullptr && documents->vt != VT_EMPTY;
    writtenStatuses.push_back(std::move(written));
    return 0;
}

Result FakeTaskInstance::SetProgressRange(int32_t upper, int32_t lower, const char16_t* text)
{
    if (const Result fault = script.Enter("Task.SetProgressRange", FormatText(u"%d %d %s", upper, lower, text))) {
        return fault;
    }
    progress.push_back({lower, upper, text});
    return 0;
}

Result FakeTaskInstance::SetProgressPos(int32_t position, const char16_t* text)
{
    if (const Result fault = script.Enter("Task.SetProgressPos", FormatText(u"%d %s", position, text))) {
        return fault;
    }
    progress.push_back({position, std::nullopt, text});
    return 0;
}

Result FakeTaskProperties::GetVariable(const char16_t* variable, VARIANT* value)
{
    const Result fault = script.Enter("Properties.GetVariable", variable);
    return fault != 0 ? fault : Give(variables.Find(variable), value);
}

Result FakeTaskProperties::SetVariable(const char16_t* variable, const VARIANT* value)
{
    if (const Result fault = script.Enter("Properties.SetVariable", variable)) {
        return fault;
    }
    variables.Set(variable, Variant::Copy(*value));
    return 0;
}

Result FakeTaskProperties::GetCardVariable(int32_t variableId, VARIANT* value)
{
    const Result fault = script.Enter("Properties.GetCardVariable", FormatText(u"%d", variableId));
    return fault != 0 ? fault : Give(FindNumbered(cardVariables, variableId), value);
}

Result FakeTaskProperties::SetCardVariable(int32_t variableId, const VARIANT* value)
{
    if (const Result fault = script.Enter("Properties.SetCardVariable", FormatText(u"%d", variableId))) {
        return fault;
    }
    cardVariables[variableId] = Variant::Copy(*value);
    return 0;
}

Result FakeTaskProperties::SetFlags(int32_t newFlags)
{
    if (const Result fault = script.Enter("Properties.SetFlags", FormatText(u"%d", newFlags))) {
        return fault;
    }
    flags = newFlags;
    return 0;
}

Result FakeTaskProperties::SetSetupPages(SAFEARRAY*)
{
    return script.Enter("Properties.SetSetupPages");
}

Result FakeTaskProperties::GetMenuCmds(SAFEARRAY** commands)
{
    *commands = nullptr;
    return script.Enter("Properties.GetMenuCmds");
}

Result FakeTaskProperties::SetMenuCmds(SAFEARRAY*)
{
    return script.Enter("Properties.SetMenuCmds");
}

SafeArray MakeCommandData(const std::vector<CommandFile>& files)
{
    std::vector<VyxCmdData> records;
    for (const CommandFile& file : files) {
        VyxCmdData record{};
        record.fileId = file.fileId;
        record.folderId = file.folderId;
        record.path = AllocateText(file.path);
        record.configuration = AllocateText(file.configuration);
        record.kind = file.kind;
        record.version = file.version;
        records.push_back(record);
    }
    return MakeRecordArray(std::span<const VyxCmdData>(records));
}

} // namespace tv::fakes
