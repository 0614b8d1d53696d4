#include "addin/task_run.h"

#include "com/result.h"
#include "support/task_variables.h"
#include "support/texts.h"

namespace tv {

namespace {

constexpr int32_t kConvert = static_cast<int32_t>(TaskKind::Convert);
constexpr int32_t kPrint = static_cast<int32_t>(TaskKind::Print);
constexpr uint32_t kSuspendPoll = 5000;
constexpr Result kAbsent = 1;

/// Runs a step that must not keep the later ones from running; its result counts unless a failure stands already.
template <typename Step> void TakeResult(Result& result, Step&& step)
{
    const Result outcome = AtBoundary(step);
    if (result >= 0) {
        result = outcome;
    }
}

} // namespace

TaskRun::TaskRun(RunTools toolsOfRun, IVyxVault& vaultOfRun, IVyxTaskInstance& instanceOfRun, int32_t taskKind)
    : tools(toolsOfRun), vault(vaultOfRun), instance(instanceOfRun), kind(taskKind)
{}

TaskRun::~TaskRun()
{
    tools.vaultFiles.SetCurrent(nullptr);
}

Result TaskRun::Run(SAFEARRAY* data, VariantBool& cancel)
{
    const Result ready = AtBoundary([&] { return ReadSettings(); });
    if (ready < 0) {
        return ready;
    }
    const Result configured = AtBoundary([&] {
        tools.manager.Configure(tools.vaultFiles, kind, &instance, version);
        return 0;
    });
    if (configured < 0) {
        return configured;
    }
    std::optional<Result> endedAtOnce;
    Result result = AtBoundary([&] {
        endedAtOnce = PrepareAndWork(data);
        return 0;
    });
    if (endedAtOnce) {
        return *endedAtOnce;
    }
    if (result == kEndedBeforeDone) {
        cancel = kVariantTrue;
    }
    TakeResult(result, [&] { return tools.manager.CloseApplication(Waiting::Yes, 0); });
    if (kind == kConvert || kind == kPrint) {
        TakeResult(result, [&] { return tools.vaultFiles.SaveFileList(&instance, kind); });
    }
    TakeResult(result, [&] { return RegisterResults(); });
    TakeResult(result, [&] { return instance.SetProgressPos(total, u""); });
    return result;
}

Result TaskRun::RegisterResults()
{
    if (total > 1 && kind != kPrint) {
        instance.SetProgressPos(total - 1, AddInText(13, u"Adding files to vault..."));
    }
    // A file that can't be added costs a line in the log file, which makes the run end as failed, and no more.
    AtBoundary([&] { return tools.vaultFiles.RegisterOutputs(&instance, &vault, tools.script); });
    return tools.vaultFiles.RegisterLogFile(logPath);
}

Result TaskRun::ReadSettings()
{
    ExistingFiles existing = ExistingFiles::NewVersion;
    if (const Result read = ReadReplaceOutput(existing); read < 0) {
        return read;
    }
    if (const Result reset = tools.vaultFiles.Reset(&vault, kind, existing); reset < 0) {
        return reset;
    }
    if (const Result read = ReadScriptText(); read < 0) {
        return read;
    }
    return ReadVersion();
}

Result TaskRun::ReadReplaceOutput(ExistingFiles& existing)
{
    Variant value;
    const Result read = instance.GetVariable(u"ReplaceOutput", value.put());
    if (read == 0 && value.ToBool()) {
        existing = ExistingFiles::Replace;
    }
    return read;
}

Result TaskRun::ReadScriptText()
{
    Variant value;
    const Result read = instance.GetVariable(u"__script", value.put());
    if (read == kAbsent) {
        return E_UNEXPECTED;
    }
    if (read >= 0) {
        scriptText = value.ToText();
    }
    return read;
}

Result TaskRun::ReadVersion()
{
    Variant value;
    const Result read = instance.GetVariable(u"__tv_version", value.put());
    version = read == 0 ? value.ToInt() : 0;
    return read;
}

std::optional<Result> TaskRun::PrepareAndWork(SAFEARRAY* data)
{
    if (const std::optional<Result> ended = Prepare(data)) {
        return ended;
    }
    WorkOnFiles();
    return std::nullopt;
}

std::optional<Result> TaskRun::Prepare(SAFEARRAY* data)
{
    tools.script.InitScript(&vault, &instance, scriptText);
    PollTaskStatus();
    tools.vaultFiles.ResolveSelection(&instance, &vault, data, selected, VaultWork::FetchLocalCopies);
    if (selected.empty()) {
        return kEndedBeforeDone;
    }
    logPath = tools.script.GetLogFilePath();
    tools.vaultFiles.LockExistingLog(logPath);
    if (const Result started = tools.manager.StartApplication(); started < 0) {
        if (const Result restarted = tools.manager.RestartApplication(started); restarted < 0) {
            return restarted;
        }
    }
    // One more than the files, for the step of adding what they gave to the vault.
    total = static_cast<int32_t>(selected.size()) + (kind == kPrint ? 0 : 1);
    return std::nullopt;
}

void TaskRun::WorkOnFiles()
{
    for (size_t i = 0; i < selected.size(); ++i) {
        PollTaskStatus();
        ShowProgress(static_cast<int32_t>(i));
        WorkOn(*selected[i]);
    }
}

void TaskRun::ShowProgress(int32_t index)
{
    const char16_t* path = selected[static_cast<size_t>(index)]->path.c_str();
    ThrowIfFailed(index == 0 ? instance.SetProgressRange(total, 0, path) : instance.SetProgressPos(index, path));
}

void TaskRun::WorkOn(TaskFile& file)
{
    const bool wantsLatest = file.version == -1 || file.version == 0;
    tools.script.SetSourceFile(file.path, file.conf, file.fileId, file.folderId,
                               wantsLatest ? file.latestVersion : file.version);
    tools.vaultFiles.SetCurrent(&file);
    tools.manager.RunMacro(tools.script.GetMacroText());
    tools.manager.MaintainApplication();
}

int32_t TaskRun::ReadStatus()
{
    int32_t status = 0;
    ThrowIfFailed(instance.GetStatus(&status));
    return status;
}

void TaskRun::WriteStatus(TaskStatus status)
{
    const Variant none;
    ThrowIfFailed(instance.SetStatus(static_cast<int32_t>(status), 0, nullptr, none.get(), 0));
}

void TaskRun::PollTaskStatus()
{
    const int32_t status = ReadStatus();
    if (status == static_cast<int32_t>(TaskStatus::CancelRequested)) {
        throw ResultError(kEndedBeforeDone);
    }
    if (status == static_cast<int32_t>(TaskStatus::SuspendRequested)) {
        WriteStatus(TaskStatus::Suspended);
        WaitWhileSuspended();
        WriteStatus(TaskStatus::Running);
    }
}

void TaskRun::WaitWhileSuspended()
{
    int32_t status = static_cast<int32_t>(TaskStatus::SuspendRequested);
    while (status != static_cast<int32_t>(TaskStatus::ResumeRequested)) {
        tools.platform.clock.Sleep(kSuspendPoll);
        status = ReadStatus();
        if (status == static_cast<int32_t>(TaskStatus::CancelRequested)) {
            throw ResultError(kEndedBeforeDone);
        }
    }
}

} // namespace tv
