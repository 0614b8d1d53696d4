#include "host/add_in_session.h"

#include "vault/error_table.h"
#include "vault/text.h"

#include "com/com_object.h"

#include <algorithm>

namespace tv::local {

namespace {

/// Remembers which commands the add-in asks for.
class HookList final : public ComObject<IVyxCmdMgr>
{
  public:
    explicit HookList(std::vector<int32_t>& list) : hooks(list) {}

    Result TV_CALL AddHook(int32_t commandType, int32_t) override
    {
        hooks.push_back(commandType);
        return 0;
    }

  private:
    std::vector<int32_t>& hooks;
};

/// A command record that gives back what it owns.
class CommandRecord
{
  public:
    CommandRecord(int32_t command, IVyxVault* vault, IUnknown* extra, std::u16string_view button)
    {
        record.commandType = command;
        record.vault = vault;
        record.comment = button.empty() ? nullptr : AllocateText(button);
        record.extra = extra;
        extra->AddRef();
    }
    CommandRecord(const CommandRecord&) = delete;
    CommandRecord& operator=(const CommandRecord&) = delete;
    ~CommandRecord()
    {
        // The fields of a packed record can't be referred to, only copied.
        IUnknown* const extra = record.extra;
        if (extra != nullptr) {
            extra->Release();
        }
        BString::Adopt(record.comment);
    }

    VyxCmd* get() { return &record; }
    bool Cancelled() const { return record.cancel != 0; }
    std::string Comment() const { return Utf8(tv::TextOf(record.comment)); }

  private:
    VyxCmd record{};
};

} // namespace

AddInSession::AddInSession(Component& component, std::shared_ptr<VaultStore> store)
    : addIn(component.Create()), vault(MakeVaultObject(std::move(store)))
{
    VyxAddInInfo info{};
    const auto hookList = MakeObject<HookList>(hooks);
    const Result result = addIn->GetAddInInfo(&info, hookList.get());
    BString::Adopt(info.name);
    BString::Adopt(info.company);
    BString::Adopt(info.description);
    if (result < 0) {
        Fail(result, "The add-in could not be loaded: " + WordsFor(result).description);
    }
}

void AddInSession::RequireHook(int32_t command) const
{
    if (std::find(hooks.begin(), hooks.end(), command) == hooks.end()) {
        Fail(E_NOTIMPL, "The add-in doesn't handle the task command " + std::to_string(command) + ".");
    }
}

CommandOutcome AddInSession::Send(int32_t command, IVyxTaskInstance* instance, std::span<const SelectionItem> selection,
                                  std::u16string_view button)
{
    RequireHook(command);
    CommandRecord record(command, vault.get(), instance, button);
    SafeArray data = MakeCommandData(selection);
    SAFEARRAY* handed = data.release();
    CommandOutcome outcome;
    outcome.result = addIn->OnCmd(record.get(), &handed);
    data = SafeArray::Adopt(handed);
    outcome.cancelled = record.Cancelled();
    outcome.page = record.Comment();
    outcome.selection = ReadCommandData(data.get());
    return outcome;
}

std::string AddInSession::MacroFor(IVyxTaskInstance* instance, const SelectionItem& file)
{
    ComPtr<ITVTaskPreview> preview;
    if (addIn.As(preview) < 0) {
        Fail(E_NOINTERFACE, "This add-in can't show its macros.");
    }
    const SafeArray data = MakeCommandData({&file, 1});
    const SafeArrayView<VyxCmdData> view(data.get());
    BString text;
    const Result result = preview->GetMacroText(vault.get(), instance, &view[0], text.put());
    if (result < 0) {
        Fail(result, result == E_UNEXPECTED
                         ? "The task has no macro; give it one with: tvtask task script NAME --template"
                         : "The macro can't be made: " + WordsFor(result).description);
    }
    return Utf8(text.View());
}

} // namespace tv::local
