// VaultFiles: the holder of a run's outputs, and the door to the vault in a run.
#pragma once

#include "com/com_ptr.h"
#include "interfaces/vault.h"
#include "platform/platform.h"
#include "script/task_script.h"
#include "vault/output_list.h"
#include "vault/task_file.h"

#include <span>
#include <string_view>
#include <vector>

namespace tv {

struct VaultPlace;

/// How much a selection is prepared.
enum class VaultWork
{
    None,            ///< at launch: the list of files only
    FetchLocalCopies ///< at a run: local copies of the files and their references, and the latest versions
};

/// What to do with vault files that outputs meet.
enum class ExistingFiles
{
    NewVersion, ///< the file is checked out and keeps its id
    Replace     ///< the file leaves the vault and a new one is added
};

/// One object serves an add-in object from run to run; Reset begins a run. Operations that return a result code raise
/// nothing of the vault's; ResolveSelection raises.
class VaultFiles
{
  public:
    /// \param services must outlive the object
    explicit VaultFiles(Platform& services);

    /// Empties the outputs and reads the root of the local view. \param taskKind 0 for none
    Result Reset(IVyxVault* vaultOfRun, int32_t taskKind, ExistingFiles existing);

    /// Appends the files that a command was launched on; folders are walked. A failure is raised.
    /// \param data array of VyxCmdData; may be null
    void ResolveSelection(IVyxTaskInstance* instance, IVyxVault* vaultOfCommand, SAFEARRAY* data, SelectedFiles& list,
                          VaultWork work);

    /// Fills latestVersion of the records from one question to the vault of Reset.
    Result GetLatestVersions(std::vector<TaskFile>& list);

    /// Writes the outputs as __output_list.
    Result SaveFileList(IVyxTaskInstance* instance, int32_t taskKind);
    /// Writes a selection as __selection_list. The outputs become copies of its records.
    Result SaveFileList(IVyxTaskInstance* instance, int32_t taskKind, const SelectedFiles& list);
    /// Appends the records of a stored list. 1 when the variable is absent; a text that isn't XML is raised.
    /// \param handle task instance or task properties
    static Result LoadFileList(IUnknown* handle, bool wantOutputs, std::vector<TaskFile>& list);

    /// The selected file that the macro works on; every output gets it as its source. Borrowed.
    void SetCurrent(TaskFile* file) { current = file; }
    TaskFile* Current() const { return current; }

    /// Takes note of a file that the application is about to save, and prepares the vault for it.
    /// \param name configuration or sheet
    void AddOutput(std::u16string_view path, std::u16string_view name, bool isLog);
    /// Takes note of a printed item. \param name configuration or sheet
    void AddPrinted(std::u16string_view path, std::u16string_view name);

    /// Checks the log file out if it stands in the vault, so that it can be written. Errors are ignored.
    void LockExistingLog(std::u16string_view path);
    /// Adds the new outputs in one batch, writes cards and references of a convert task, and checks everything in.
    /// Failures are logged; the first one is the result.
    Result RegisterOutputs(IVyxTaskInstance* instance, IVyxVault* vaultOfRun, TaskScript& script);
    /// Adds or checks in the log file; 1 when there is none.
    Result RegisterLogFile(std::u16string_view path);
    /// Appends what the final task status lists.
    Result CollectResultFiles(std::vector<VyxDocument>& list, bool includeLog);
    bool AnyLogFileExists();
    int32_t CountExistingOutputs(bool includeLog, bool anyLocation);

    const std::vector<TaskFile>& Outputs() const { return outputs.Files(); }
    const std::u16string& RootPath() const { return rootPath; }
    int32_t Kind() const { return kind; }

  private:
    void AddElement(const VyxCmdData& element, IVyxVault* vaultOfCommand, SelectedFiles& list);
    void AddFolder(IVyxFolder& folder, SelectedFiles& list);
    void AddFilesOfFolder(IVyxFolder& folder, SelectedFiles& list);
    void FetchLocalCopies(IVyxTaskInstance* instance, IVyxVault* vaultOfCommand, const SelectedFiles& list);
    void TakeLatestVersions(const SelectedFiles& list);
    void FillLatestVersions(std::span<TaskFile* const> files);

    bool IsKnownOutput(std::u16string_view path) const;
    bool StartsWithRoot(std::u16string_view path) const;
    bool StandsOnDisk(const TaskFile& output);
    void ClearTheWay(const std::u16string& path);
    Result PrepareVaultFile(const VaultPlace& place, TaskFile& output);
    void RemoveFromVault(const VaultPlace& place, TaskFile& output);
    void CheckOutForNewVersion(const VaultPlace& place, TaskFile& output);

    Result AddNewOutputs(IVyxVault* vaultOfRun, TaskScript& script);
    int32_t QueueNewOutputs(IVyxBatchAdd& batch, TaskScript& script);
    void TakeAddResult(const VyxAddResult& added, TaskScript& script);
    void FillIdsFromVault(const std::u16string& path, VyxSelectionPair& ids);
    std::vector<VyxSelectionPair> PairsInVault() const;
    Result UpdateFileCards(IVyxTaskInstance* instance);
    Result CreateSourceReferences(IVyxTaskInstance* instance);
    Result CheckInOutputs(IVyxVault* vaultOfRun, TaskScript& script);

    Platform& platform;
    TaskFile* current = nullptr;
    OutputList outputs;
    ComPtr<IVyxVault> vault;
    std::u16string rootPath;
    int32_t kind = 0;
    ExistingFiles existingFiles = ExistingFiles::NewVersion;
};

} // namespace tv
