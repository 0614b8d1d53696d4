#include "addin/tv_task_addin.h"

#include "addin/add_in_info.h"
#include "addin/task_launch.h"
#include "addin/task_preview.h"
#include "addin/task_run.h"
#include "cad/application_class.h"
#include "cad/installed_versions.h"
#include "com/bstring.h"
#include "com/result.h"
#include "support/task_variables.h"

#include <algorithm>

namespace tv {

namespace {

constexpr int32_t kTaskCapabilities = 23;

/// What the command record carries beside the vault: the task, by the interface that the command works on.
template <typename Interface>
bool AskExtra(const VyxCmd& cmd, ComPtr<Interface>& found)
{
    return QueryFor(cmd.extra, found) >= 0;
}

bool IsOk(const VyxCmd& cmd)
{
    return TextOf(cmd.comment) == u"OK";
}

} // namespace

const CTVTaskAddIn::Command CTVTaskAddIn::kCommands[] = {
    {VyxCmd_TaskSetup, &CTVTaskAddIn::OnTaskSetup},
    {VyxCmd_TaskSetupButton, &CTVTaskAddIn::OnTaskSetupButton},
    {VyxCmd_TaskDetails, &CTVTaskAddIn::OnTaskDetails},
    {VyxCmd_TaskRun, &CTVTaskAddIn::OnTaskRun},
    {VyxCmd_TaskLaunch, &CTVTaskAddIn::OnTaskLaunch},
    {VyxCmd_TaskLaunchButton, &CTVTaskAddIn::OnTaskLaunchButton},
};

CTVTaskAddIn::CTVTaskAddIn(Platform& services)
    : platform(services), vaultFiles(services), manager(services), script(services)
{
}

Result CTVTaskAddIn::GetAddInInfo(VyxAddInInfo* info, IVyxCmdMgr* cmdMgr)
{
    if (info == nullptr || cmdMgr == nullptr) {
        return E_POINTER;
    }
    return AtBoundary([&] {
        TellAddInInfo(*info, *cmdMgr);
        return 0;
    });
}

Result CTVTaskAddIn::OnCmd(VyxCmd* cmd, SAFEARRAY** data)
{
    if (cmd == nullptr || data == nullptr) {
        return E_POINTER;
    }
    return AtBoundary([&] {
        ComPtr<IVyxVault> vault;
        if (const Result asked = QueryFor(cmd->vault, vault); asked < 0) {
            return asked;
        }
        const auto command = std::ranges::find(kCommands, cmd->commandType, &Command::type);
        return command == std::end(kCommands) ? 0 : (this->*command->handler)(*vault.get(), *cmd, *data);
    });
}

Result CTVTaskAddIn::OnTaskSetup(IVyxVault&, VyxCmd& cmd, SAFEARRAY*)
{
    ComPtr<IVyxTaskProperties> properties;
    if (!AskExtra(cmd, properties)) {
        return E_POINTER;
    }
    if (!platform.desktop.IsWindow(cmd.parentWindow)) {
        return E_INVALIDARG;
    }
    if (const Result set = properties->SetFlags(kTaskCapabilities); set < 0) {
        return set;
    }
    ThrowIfFailed(ReadTaskKind(properties.get(), false, taskKind));
    return E_NOTIMPL;
}

Result CTVTaskAddIn::OnTaskSetupButton(IVyxVault&, VyxCmd& cmd, SAFEARRAY*)
{
    if (!IsOk(cmd)) {
        return 0;
    }
    ComPtr<IVyxTaskProperties> properties;
    return AskExtra(cmd, properties) ? E_NOTIMPL : E_POINTER;
}

Result CTVTaskAddIn::OnTaskDetails(IVyxVault&, VyxCmd& cmd, SAFEARRAY*)
{
    ComPtr<IVyxTaskInstance> instance;
    if (!AskExtra(cmd, instance)) {
        return E_POINTER;
    }
    int32_t status = 0;
    if (const Result read = instance->GetStatus(&status); read < 0) {
        return read;
    }
    if (const Result read = ReadTaskKind(instance.get(), true, taskKind); read < 0) {
        return read;
    }
    return E_NOTIMPL;
}

Result CTVTaskAddIn::OnTaskRun(IVyxVault& vault, VyxCmd& cmd, SAFEARRAY* data)
{
    ComPtr<IVyxTaskInstance> instance;
    if (!AskExtra(cmd, instance)) {
        return E_POINTER;
    }
    if (const Result read = ReadTaskKind(instance.get(), true, taskKind); read < 0) {
        return read;
    }
    manager.SuppressStartupAddIns(StartupAddIns::Suppress);
    TaskRun run({platform, vaultFiles, manager, script}, vault, *instance.get(), taskKind);
    const Result outcome = run.Run(data, cmd.cancel);
    manager.SuppressStartupAddIns(StartupAddIns::Restore);
    if (outcome == kEndedBeforeDone) {
        cmd.cancel = kVariantTrue;
    }
    const Result reported = run.Report(outcome);
    return outcome < 0 ? outcome : reported;
}

Result CTVTaskAddIn::OnTaskLaunch(IVyxVault& vault, VyxCmd& cmd, SAFEARRAY* data)
{
    ComPtr<IVyxTaskInstance> instance;
    if (!AskExtra(cmd, instance)) {
        return E_POINTER;
    }
    return LaunchTask(vaultFiles, vault, *instance.get(), cmd, data, taskKind);
}

Result CTVTaskAddIn::OnTaskLaunchButton(IVyxVault&, VyxCmd& cmd, SAFEARRAY*)
{
    if (!IsOk(cmd)) {
        return 0;
    }
    ComPtr<IVyxTaskInstance> instance;
    return AskExtra(cmd, instance) ? 0 : E_POINTER;
}

Result CTVTaskAddIn::GetMacroText(IVyxVault* vault, IVyxTaskInstance* instance, const VyxCmdData* file, BStr* text)
{
    if (vault == nullptr || instance == nullptr || file == nullptr || text == nullptr) {
        return E_POINTER;
    }
    return AtBoundary([&] {
        *text = AllocateText(PreviewMacro(platform, *vault, *instance, *file));
        return 0;
    });
}

Result CTVTaskAddIn::GetStartCommand(int32_t year, int32_t* startedYear, GUID* classId, StartSource* source,
                                     BStr* commandLine)
{
    if (startedYear == nullptr || classId == nullptr || source == nullptr || commandLine == nullptr) {
        return E_POINTER;
    }
    return AtBoundary([&] {
        GUID found{};
        StartCommand command;
        command.requestedVersion = year;
        if (const Result resolved = ResolveApplicationClass(platform.runningObjects, command.requestedVersion, found);
            resolved < 0) {
            return resolved;
        }
        command = GetCommandLine(platform.registry, found, command, manager.ForceRegression());
        *commandLine = AllocateText(std::u16string_view(command.commandLine).substr(0, kLongestCommandLine));
        *startedYear = command.requestedVersion;
        *classId = found;
        *source = command.source;
        return Result{0};
    });
}

void* CTVTaskAddIn::FindInterface(REFIID id)
{
    return id == kInterfaceId<IDispatch> ? static_cast<IDispatch*>(static_cast<ITVTaskAddIn*>(this)) : nullptr;
}

HRESULT CTVTaskAddIn::GetTypeInfoCount(UINT* count)
{
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

HRESULT CTVTaskAddIn::GetTypeInfo(UINT, LCID, ITypeInfo** info)
{
    if (info != nullptr) {
        *info = nullptr;
    }
    return E_NOTIMPL;
}

HRESULT CTVTaskAddIn::GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids)
{
    if (ids == nullptr) {
        return E_POINTER;
    }
    std::fill_n(ids, count, DISPID_UNKNOWN);
    return DISP_E_UNKNOWNNAME;
}

HRESULT CTVTaskAddIn::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*)
{
    return DISP_E_MEMBERNOTFOUND;
}

} // namespace tv
