// FakeTaskInstance and FakeTaskProperties: the two stores of task variables, in memory.
#pragma once

#include "com/com_object.h"
#include "com/safe_array.h"
#include "com/variant.h"
#include "fakes/vault/vault_script.h"
#include "interfaces/vault.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tv::fakes {

/// One call of SetStatus.
struct WrittenStatus
{
    int32_t status;
    Result result;
    std::optional<std::u16string> message;
    std::vector<VyxDocument> documents;
    bool hasDocuments;
};

/// One call of SetProgressRange (with a range) or SetProgressPos.
struct WrittenProgress
{
    int32_t position;
    std::optional<int32_t> upper;
    std::u16string text;
    friend bool operator==(const WrittenProgress&, const WrittenProgress&) = default;
};

/// Variables by name, with exact case.
class VariableStore
{
  public:
    void Set(std::u16string_view name, Variant value) { values[std::u16string(name)] = std::move(value); }
    void SetText(std::u16string_view name, std::u16string_view text) { Set(name, Variant::FromText(text)); }
    void SetInt(std::u16string_view name, int32_t number) { Set(name, Variant::FromInt(number)); }
    void SetBool(std::u16string_view name, bool truth) { Set(name, Variant::FromBool(truth)); }
    void Remove(std::u16string_view name) { values.erase(std::u16string(name)); }
    /// Null when the variable is absent.
    const Variant* Find(std::u16string_view name) const;
    /// The text of a variable; empty when it is absent.
    std::u16string Text(std::u16string_view name) const;

  private:
    std::map<std::u16string, Variant> values;
};

class FakeTaskInstance final : public ComObject<IVyxTaskInstance>
{
  public:
    VariableStore variables;
    std::map<int32_t, Variant> numberedVariables;
    std::u16string name = u"Task";
    std::u16string guid = u"{11111111-2222-3333-4444-555555555555}";
    int32_t status = 3;
    /// Statuses that the next calls of GetStatus give, one after the other; the last one stays.
    std::vector<int32_t> comingStatuses;
    std::vector<WrittenStatus> writtenStatuses;
    std::vector<WrittenProgress> progress;
    VaultScript script;

    Result TV_CALL GetVariable(const char16_t* variable, VARIANT* value) override;
    Result TV_CALL SetVariable(const char16_t* variable, const VARIANT* value) override;
    Result TV_CALL GetVariableByKey(const VARIANT* key, VARIANT* value) override;
    Result TV_CALL GetTaskName(BStr* text) override;
    Result TV_CALL GetInstanceGuid(BStr* text) override;
    Result TV_CALL GetStatus(int32_t* current) override;
    Result TV_CALL SetStatus(int32_t newStatus, Result result, const char16_t* message, const VARIANT* documents,
                             int32_t reserved) override;
    Result TV_CALL SetProgressRange(int32_t upper, int32_t lower, const char16_t* text) override;
    Result TV_CALL SetProgressPos(int32_t position, const char16_t* text) override;
};

class FakeTaskProperties final : public ComObject<IVyxTaskProperties>
{
  public:
    VariableStore variables;
    std::map<int32_t, Variant> cardVariables;
    int32_t flags = 0;
    VaultScript script;

    Result TV_CALL GetVariable(const char16_t* variable, VARIANT* value) override;
    Result TV_CALL SetVariable(const char16_t* variable, const VARIANT* value) override;
    Result TV_CALL GetCardVariable(int32_t variableId, VARIANT* value) override;
    Result TV_CALL SetCardVariable(int32_t variableId, const VARIANT* value) override;
    Result TV_CALL SetFlags(int32_t newFlags) override;
    Result TV_CALL SetSetupPages(SAFEARRAY* pages) override;
    Result TV_CALL GetMenuCmds(SAFEARRAY** commands) override;
    Result TV_CALL SetMenuCmds(SAFEARRAY* commands) override;
};

/// One element of the array that comes with a command.
struct CommandFile
{
    std::u16string path;
    int32_t fileId = 0;
    int32_t folderId = 0;
    int32_t version = 0;
    std::u16string configuration = {};
    int32_t kind = 1;
};

/// The array, which owns its texts.
SafeArray MakeCommandData(const std::vector<CommandFile>& files);

} // namespace tv::fakes
