// TaskScript: the macro of a run, its text for one source file after another, and the log file of the task instance.
#pragma once

#include "com/bstring.h"
#include "interfaces/vault.h"
#include "platform/platform.h"
#include "script/tokens.h"

#include <memory>
#include <string>
#include <string_view>

namespace tv {

/// What is known of the current file beside the values of its tokens.
struct SourceFile
{
    std::u16string fileName;  ///< no folder, no extension
    std::u16string extension; ///< without the dot
    uint32_t documentId = 0;
    uint32_t folderId = 0;
    uint32_t version = 0;
};

/// Call InitScript once in a run, then SetSourceFile and GetMacroText for each file. The log may be written at any time
/// after InitScript.
class TaskScript
{
  public:
    /// \param services must outlive the object
    explicit TaskScript(Platform& services);

    /// Takes the macro text of a run, expands its variables and computes what all files of the run share.
    /// A failure of the vault or the task is raised; the script stays expanded as far as it got.
    void InitScript(IVyxVault* vaultOfRun, IVyxTaskInstance* taskOfRun, std::u16string_view scriptText);

    /// Fills the values of one source file. A failure of the vault is raised.
    ///
    /// \param path                 local path of the file
    /// \param configurationOrSheet what the selection asks for; may be empty
    /// \param version              the version that the run works on
    void SetSourceFile(std::u16string_view path, std::u16string_view configurationOrSheet, int32_t documentId,
                       int32_t folderId, int32_t version);

    /// The macro text for the current file. The tokens that only the macro can know are still in it.
    std::u16string GetMacroText() const;

    /// Path of the log file; empty when the task has no log folder. A failure of the task is raised.
    std::u16string GetLogFilePath();

    /// Appends the text as it stands, with no line end. What can't be written is dropped; nothing is raised.
    void AppendToLog(std::u16string_view text) noexcept;

    /// Appends one entry with the vault's own words for the code. Nothing is raised.
    void LogVaultError(Result code, std::u16string_view context) noexcept;

    /// True once a run's output paths asked for the revision or the workflow state. Never becomes false again.
    bool NeedFileInfo() const { return needFileInfo; }

    const SourceFile& Source() const { return source; }

  private:
    void ReadRunValues();
    bool OutputPathsAskForFileInfo();
    void ReadFileInfo(int32_t folderId, int32_t version);
    std::unique_ptr<OutputFile> OpenLog(const std::u16string& path);

    Platform& platform;
    ComPtr<IVyxTaskInstance> task;
    ComPtr<IVyxVault> vault;
    TokenValues values;
    SourceFile source;
    ScriptText script;
    bool needFileInfo = false;
};

} // namespace tv
