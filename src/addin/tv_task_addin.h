// CTVTaskAddIn: the component object that the vault creates. It takes the vault's task commands and hands each to its
// flow.
#pragma once

#include "cad/tv_manager.h"
#include "com/com_object.h"
#include "interfaces/addin.h"
#include "interfaces/vault.h"
#include "platform/platform.h"
#include "script/task_script.h"
#include "vault/vault_files.h"

namespace tv {

/// One object serves all commands that arrive on it, one after the other; nothing carries over between them but the task
/// variables.
///
/// \code
/// ComPtr<CTVTaskAddIn> addIn = MakeObject<CTVTaskAddIn>(platform);
/// addIn->GetAddInInfo(&info, manager);
/// addIn->OnCmd(&cmd, &data);
/// \endcode
class CTVTaskAddIn : public ComObject<IVyxAddIn5, ITVTaskAddIn, ITVTaskPreview, ITVStartPreview>
{
  public:
    /// \param services borrowed; must outlive the object
    explicit CTVTaskAddIn(Platform& services);

    Result TV_CALL GetAddInInfo(VyxAddInInfo* info, IVyxCmdMgr* cmdMgr) override;
    Result TV_CALL OnCmd(VyxCmd* cmd, SAFEARRAY** data) override;

    Result TV_CALL GetMacroText(IVyxVault* vault, IVyxTaskInstance* instance, const VyxCmdData* file,
                                BStr* text) override;
    Result TV_CALL GetStartCommand(int32_t year, int32_t* startedYear, GUID* classId, StartSource* source,
                                   BStr* commandLine) override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* params,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

  private:
    using Handler = Result (CTVTaskAddIn::*)(IVyxVault& vault, VyxCmd& cmd, SAFEARRAY* data);
    struct Command
    {
        int32_t type;
        Handler handler;
    };
    static const Command kCommands[];

    void* FindInterface(REFIID id) override;

    Result OnTaskSetup(IVyxVault& vault, VyxCmd& cmd, SAFEARRAY* data);
    Result OnTaskSetupButton(IVyxVault& vault, VyxCmd& cmd, SAFEARRAY* data);
    Result OnTaskDetails(IVyxVault& vault, VyxCmd& cmd, SAFEARRAY* data);
    Result OnTaskRun(IVyxVault& vault, VyxCmd& cmd, SAFEARRAY* data);
    Result OnTaskLaunch(IVyxVault& vault, VyxCmd& cmd, SAFEARRAY* data);
    Result OnTaskLaunchButton(IVyxVault& vault, VyxCmd& cmd, SAFEARRAY* data);

    Platform& platform;
    int32_t taskKind = 0;
    VaultFiles vaultFiles;
    TVManager manager;
    TaskScript script;
};

} // namespace tv
