// TaskRun: one run of a task on the task host, from its variables to the final status.
#pragma once

#include "cad/tv_manager.h"
#include "com/variant.h"
#include "interfaces/vault.h"
#include "platform/platform.h"
#include "script/task_script.h"
#include "vault/vault_files.h"

#include <optional>
#include <string>

namespace tv {

/// Result of a run that ended before its work was done, without a failure: nothing was selected, or it was cancelled.
inline constexpr Result kEndedBeforeDone = 1;

/// Status numbers of a task, as the vault defines them.
enum class TaskStatus : int32_t
{
    Running = 3,
    Suspended = 5,
    CancelRequested = 6,
    Done = 7,
    Cancelled = 8, ///< written by the vault only
    Failed = 9,
    SuspendRequested = 10,
    ResumeRequested = 11
};

/// What a run works with; owned by the add-in object and used by one run after the other.
struct RunTools
{
    Platform& platform;
    VaultFiles& vaultFiles;
    TVManager& manager;
    TaskScript& script;
};

/// \code
/// TaskRun run({platform, files, manager, script}, vault, instance, kind);
/// const Result outcome = run.Run(data, cmd.cancel);
/// const Result reported = run.Report(outcome);
/// \endcode
class TaskRun
{
  public:
    /// Everything is borrowed and outlives the run.
    TaskRun(RunTools tools, IVyxVault& vaultOfRun, IVyxTaskInstance& instanceOfRun, int32_t taskKind);
    TaskRun(const TaskRun&) = delete;
    TaskRun& operator=(const TaskRun&) = delete;
    ~TaskRun();

    /// Works on the files and registers what came out. Raises nothing.
    /// \param cancel becomes -1 when a cancel request ended the work
    Result Run(SAFEARRAY* data, VariantBool& cancel);

    /// Writes the final status. 1, with nothing written, when a cancel is requested.
    Result Report(Result outcome);

    /// Answers the vault's requests: waits while the run is suspended, raises 1 when it is to be cancelled.
    void PollTaskStatus();

  private:
    Result ReadSettings();
    Result ReadReplaceOutput(ExistingFiles& existing);
    Result ReadScriptText();
    Result ReadVersion();
    std::optional<Result> PrepareAndWork(SAFEARRAY* data);
    std::optional<Result> Prepare(SAFEARRAY* data);
    void WorkOnFiles();
    void WorkOn(TaskFile& file);
    void ShowProgress(int32_t index);
    Result RegisterResults();

    int32_t ReadStatus();
    void WriteStatus(TaskStatus status);
    void WaitWhileSuspended();

    TaskStatus FinalStatus(Result outcome, std::u16string& message);
    std::u16string FailureText() const;
    Variant DocumentList(std::vector<VyxDocument> documents) const;

    RunTools tools;
    IVyxVault& vault;
    IVyxTaskInstance& instance;
    int32_t kind;
    int32_t version = 0;
    std::u16string scriptText;
    std::u16string logPath;
    SelectedFiles selected;
    int32_t total = 1;
};

} // namespace tv
