#include "scripted_add_in.h"

#include "vault/error_table.h"

namespace tv::local {

namespace {

class ScriptedAddIn final : public ComObject<IVyxAddIn5, ITVTaskPreview, ITVStartPreview>
{
  public:
    explicit ScriptedAddIn(ScriptedComponent& owner) : script(owner) {}

    Result TV_CALL GetAddInInfo(VyxAddInInfo* info, IVyxCmdMgr* cmdMgr) override
    {
        info->name = tv::AllocateText(u"Scripted");
        for (const auto& [command, handler] : script.handlers) {
            cmdMgr->AddHook(command, 0);
        }
        return 0;
    }

    Result TV_CALL OnCmd(VyxCmd* cmd, SAFEARRAY** data) override
    {
        HandedCommand handed{cmd, data, {}, {}};
        IUnknown* const vault = cmd->vault;
        IUnknown* const extra = cmd->extra;
        if (QueryFor(vault, handed.vault) < 0 || QueryFor(extra, handed.instance) < 0) {
            return E_POINTER;
        }
        script.log.push_back(cmd->commandType);
        return script.handlers.at(cmd->commandType)(handed);
    }

    Result TV_CALL GetMacroText(IVyxVault*, IVyxTaskInstance*, const VyxCmdData* file, BStr* text) override
    {
        if (!script.offersPreview) {
            return E_UNEXPECTED;
        }
        ++script.previews;
        if (!script.macro.empty()) {
            *text = tv::AllocateText(script.macro);
            return 0;
        }
        *text = tv::AllocateText(u"macro for " + std::u16string(tv::TextOf(file->path)) + u" version " +
                                 std::u16string(1, static_cast<char16_t>(u'0' + file->version)) + u"\r\n");
        return 0;
    }

    Result TV_CALL GetStartCommand(int32_t year, int32_t* startedYear, GUID* classId, StartSource* source,
                                   BStr* commandLine) override
    {
        const auto found = script.starts.find(year);
        if (found == script.starts.end()) {
            return static_cast<Result>(0x800401F3);
        }
        *startedYear = found->second.startedYear;
        *classId = kLocalApplicationClass;
        *source = found->second.source;
        *commandLine = tv::AllocateText(found->second.commandLine);
        return 0;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        if (!script.offersStartPreview && id == kInterfaceId<ITVStartPreview>) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        return ComObject::QueryInterface(id, object);
    }

  private:
    ScriptedComponent& script;
};

} // namespace

ComPtr<IVyxAddIn5> ScriptedComponent::Create()
{
    if (!registered) {
        Fail(static_cast<Result>(0x80040154u), "The add-in can't be created (0x80040154).");
    }
    return ComPtr<IVyxAddIn5>::Adopt(MakeObject<ScriptedAddIn>(*this).release());
}

std::string ScriptedComponent::Template(int32_t resource)
{
    return "template " + std::to_string(resource) + "\r\n\n";
}

} // namespace tv::local
