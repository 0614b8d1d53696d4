// The vault's programming interface, as far as this program uses it. Each operation returns 0 for success, 1 for an
// absent thing where it says so, and a negative code for failure. Texts that an operation returns belong to the caller.
// Arguments called `reserved` are 0.
#pragma once

#include "interfaces/records.h"

namespace tv {

/// Numbers of the task commands, `VyxCmd::commandType`.
inline constexpr int32_t VyxCmd_TaskSetup = 40;
inline constexpr int32_t VyxCmd_TaskSetupButton = 41;
inline constexpr int32_t VyxCmd_TaskDetails = 42;
inline constexpr int32_t VyxCmd_TaskRun = 43;
inline constexpr int32_t VyxCmd_TaskLaunch = 44;
inline constexpr int32_t VyxCmd_TaskLaunchButton = 45;

/// Numbers of IVyxVault::CreateUtility.
inline constexpr int32_t kUtilityBatchUpdate = 2;
inline constexpr int32_t kUtilityBatchUnlock = 6;
inline constexpr int32_t kUtilityBatchRefs = 8;
inline constexpr int32_t kUtilityBatchGet = 12;
inline constexpr int32_t kUtilityBatchList = 13;
inline constexpr int32_t kUtilityBatchAdd = 16;

/// A batch add met a file of that name in the vault.
inline constexpr Result E_VYX_NAME_ALREADY_EXISTS = static_cast<Result>(0x8004020Fu);

} // namespace tv

/// Takes the hooks of an add-in when it is loaded.
struct IVyxCmdMgr : IUnknown
{
    /// Asks that commands of this type be sent to the add-in.
    virtual tv::Result TV_CALL AddHook(int32_t commandType, int32_t reserved) = 0;
};

/// What the vault asks of an add-in. Implemented by the add-in.
struct IVyxAddIn5 : IUnknown
{
    virtual tv::Result TV_CALL GetAddInInfo(tv::VyxAddInInfo* info, IVyxCmdMgr* cmdMgr) = 0;
    /// \param data reference to an array of VyxCmdData; the array may be absent
    virtual tv::Result TV_CALL OnCmd(tv::VyxCmd* cmd, SAFEARRAY** data) = 0;
};

/// A place in an enumeration.
struct IVyxPos : IUnknown
{
    /// True when the enumeration is at its end.
    virtual tv::Result TV_CALL IsNull(tv::VariantBool* atEnd) = 0;
};

/// One launched run of a task. It offers the definition's values; what is written stays with the instance.
struct IVyxTaskInstance : IUnknown
{
    /// 0 found, 1 absent.
    virtual tv::Result TV_CALL GetVariable(const char16_t* name, VARIANT* value) = 0;
    virtual tv::Result TV_CALL SetVariable(const char16_t* name, const VARIANT* value) = 0;
    /// \param key a text (name) or a 32-bit number (numeric identifier). 0 found, 1 absent.
    virtual tv::Result TV_CALL GetVariableByKey(const VARIANT* key, VARIANT* value) = 0;
    virtual tv::Result TV_CALL GetTaskName(tv::BStr* name) = 0;
    /// The instance's GUID as text, the same in every call.
    virtual tv::Result TV_CALL GetInstanceGuid(tv::BStr* guid) = 0;
    virtual tv::Result TV_CALL GetStatus(int32_t* status) = 0;
    /// \param message may be null for none
    /// \param documents empty, or an array of VyxDocument records
    virtual tv::Result TV_CALL SetStatus(int32_t status, tv::Result result, const char16_t* message,
                                         const VARIANT* documents, int32_t reserved) = 0;
    virtual tv::Result TV_CALL SetProgressRange(int32_t upper, int32_t lower, const char16_t* text) = 0;
    virtual tv::Result TV_CALL SetProgressPos(int32_t position, const char16_t* text) = 0;
};

/// A task definition, open during setup.
struct IVyxTaskProperties : IUnknown
{
    /// 0 found, 1 absent.
    virtual tv::Result TV_CALL GetVariable(const char16_t* name, VARIANT* value) = 0;
    virtual tv::Result TV_CALL SetVariable(const char16_t* name, const VARIANT* value) = 0;
    /// The second table, keyed by card variable id. 0 found, 1 absent.
    virtual tv::Result TV_CALL GetCardVariable(int32_t variableId, VARIANT* value) = 0;
    virtual tv::Result TV_CALL SetCardVariable(int32_t variableId, const VARIANT* value) = 0;
    virtual tv::Result TV_CALL SetFlags(int32_t flags) = 0;
    /// \param pages array of setup page records
    virtual tv::Result TV_CALL SetSetupPages(SAFEARRAY* pages) = 0;
    virtual tv::Result TV_CALL GetMenuCmds(SAFEARRAY** commands) = 0;
    virtual tv::Result TV_CALL SetMenuCmds(SAFEARRAY* commands) = 0;
};

struct IVyxFile : IUnknown
{
    virtual tv::Result TV_CALL GetID(int32_t* id) = 0;
    virtual tv::Result TV_CALL GetName(tv::BStr* name) = 0;
    /// Path of the file's local copy in that folder, whether or not the copy stands on the disk.
    virtual tv::Result TV_CALL GetLocalPath(int32_t folderId, tv::BStr* path) = 0;
    virtual tv::Result TV_CALL GetCurrentVersion(int32_t* version) = 0;
    virtual tv::Result TV_CALL IsLocked(tv::VariantBool* locked) = 0;
    /// Checks the file out for writing.
    virtual tv::Result TV_CALL LockFile(int32_t folderId, int32_t reservedWindow, int32_t reserved) = 0;
    /// Revision name of a version of the file; null text when it has none.
    virtual tv::Result TV_CALL GetRevisionName(int32_t version, int32_t folderId, tv::BStr* revision) = 0;
    /// Workflow state name of a version of the file; null text when it has none.
    virtual tv::Result TV_CALL GetStateName(int32_t version, int32_t folderId, tv::BStr* state) = 0;
    virtual tv::Result TV_CALL GetEnumeratorVariable(int32_t reserved, IVyxEnumeratorVariable** variables) = 0;
};

struct IVyxFolder : IUnknown
{
    virtual tv::Result TV_CALL GetID(int32_t* id) = 0;
    virtual tv::Result TV_CALL GetLocalPath(tv::BStr* path) = 0;
    virtual tv::Result TV_CALL GetFirstFilePosition(IVyxPos** position) = 0;
    /// The file at the position, which moves on.
    virtual tv::Result TV_CALL GetNextFile(IVyxPos* position, IVyxFile** file) = 0;
    virtual tv::Result TV_CALL GetFirstSubFolderPosition(IVyxPos** position) = 0;
    virtual tv::Result TV_CALL GetNextSubFolder(IVyxPos* position, IVyxFolder** folder) = 0;
    /// The file leaves the vault. \param flags -1 for all of its versions
    virtual tv::Result TV_CALL DeleteFile(int32_t reservedWindow, int32_t fileId, int32_t flags) = 0;
};

struct IVyxVault : IUnknown
{
    virtual tv::Result TV_CALL GetName(tv::BStr* name) = 0;
    /// Root of the local view.
    virtual tv::Result TV_CALL GetRootFolderPath(tv::BStr* path) = 0;
    /// 0 found, 1 not in the vault.
    virtual tv::Result TV_CALL GetFolderFromPath(const char16_t* path, IVyxFolder** folder) = 0;
    /// 0 found, 1 not in the vault. \param folder may be null when it isn't wanted
    virtual tv::Result TV_CALL GetFileFromPath(const char16_t* path, IVyxFolder** folder, IVyxFile** file) = 0;
    virtual tv::Result TV_CALL CreateUtility(int32_t number, IUnknown** utility) = 0;
    /// The vault's own words for a result code.
    virtual tv::Result TV_CALL GetErrorString(tv::Result code, tv::BStr* name, tv::BStr* description) = 0;
};

/// Fetches local copies of files and of what they refer to.
struct IVyxBatchGet : IUnknown
{
    /// \param version a variant of kind int; 0 for the latest
    virtual tv::Result TV_CALL AddSelection(IVyxVault* vault, int32_t fileId, int32_t folderId,
                                            const VARIANT* version) = 0;
    /// \param flags 1 as-built references, 0 latest
    virtual tv::Result TV_CALL CreateTree(tv::WindowHandle window, int32_t flags) = 0;
    /// The local copies are on the disk afterwards.
    virtual tv::Result TV_CALL GetFiles(tv::WindowHandle window, int32_t reserved) = 0;
};

/// Tells the latest versions of many files.
struct IVyxBatchList : IUnknown
{
    /// \param path a text variant
    virtual tv::Result TV_CALL AddFile(const VARIANT* path, int32_t reserved1, int32_t reserved2,
                                       int32_t reserved3) = 0;
    /// \param columns empty text
    virtual tv::Result TV_CALL CreateList(const char16_t* columns, SAFEARRAY** files) = 0;
    /// \param files array of VyxListFile
    virtual tv::Result TV_CALL GetFileList(SAFEARRAY** files) = 0;
};

/// Adds files from the disk to the vault.
struct IVyxBatchAdd : IUnknown
{
    virtual tv::Result TV_CALL AddFileFromPathToPath(const char16_t* localPath, const char16_t* folderPath,
                                                     tv::WindowHandle window, int32_t reserved1,
                                                     int32_t reserved2) = 0;
    /// \param results array of VyxAddResult, one for each queued file, owned by the caller
    virtual tv::Result TV_CALL CommitAdd(tv::WindowHandle window, SAFEARRAY** results, int32_t reserved1,
                                         int32_t reserved2, int32_t* count) = 0;
};

/// Checks files in.
struct IVyxBatchUnlock : IUnknown
{
    virtual tv::Result TV_CALL SetComment(const char16_t* comment) = 0;
    /// \param selection array of VyxSelectionPair
    virtual tv::Result TV_CALL AddSelection(IVyxVault* vault, SAFEARRAY* selection) = 0;
    virtual tv::Result TV_CALL CreateTree(tv::WindowHandle window, int32_t flags, int32_t reserved,
                                          tv::VariantBool* done) = 0;
    virtual tv::Result TV_CALL UnlockFiles(tv::WindowHandle window, int32_t reserved) = 0;
};

/// Writes data cards.
struct IVyxBatchUpdate : IUnknown
{
    virtual tv::Result TV_CALL SetCardValue(int32_t fileId, int32_t variableId, const VARIANT* value,
                                            int32_t reservedConfiguration, int32_t flags) = 0;
    virtual tv::Result TV_CALL CommitUpdate(SAFEARRAY** errors, int32_t reserved) = 0;
};

/// Writes references between files.
struct IVyxBatchRefs : IUnknown
{
    /// \param sources array of VyxSelectionPair
    virtual tv::Result TV_CALL AddReferences(int32_t parentFileId, SAFEARRAY* sources) = 0;
    /// First called with 0; when it gives a number other than 0, called once more with that number.
    virtual tv::Result TV_CALL CommitReferences(int32_t pending, int32_t* stillPending) = 0;
};

/// The vault's card variables; asked of the vault object.
struct IVyxVariableMgr : IUnknown
{
    virtual tv::Result TV_CALL GetFirstVariablePosition(IVyxPos** position) = 0;
    virtual tv::Result TV_CALL GetNextVariable(IVyxPos* position, IVyxVariable** variable) = 0;
};

struct IVyxVariable : IUnknown
{
    virtual tv::Result TV_CALL GetID(int32_t* id) = 0;
    virtual tv::Result TV_CALL GetName(tv::BStr* name) = 0;
};

/// Reads the card values of one file.
struct IVyxEnumeratorVariable : IUnknown
{
    /// \param version a variant of kind int
    /// \param variables array of variants that hold IVyxVariableValue objects
    /// \param values array of variants
    virtual tv::Result TV_CALL GetVersionVariables(const VARIANT* version, int32_t folderId, SAFEARRAY** variables,
                                                   SAFEARRAY** values, tv::VyxVersionInfo* info) = 0;
};

struct IVyxVariableValue : IUnknown
{
    virtual tv::Result TV_CALL GetID(int32_t* variableId) = 0;
    /// 0 found, 1 no value for that configuration.
    virtual tv::Result TV_CALL GetValue(const char16_t* configuration, VARIANT* value) = 0;
};
