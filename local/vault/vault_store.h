// VaultStore: the vault's memory. All SQL stands behind this class, so that another database can take its place.
#pragma once

#include "vault/database.h"
#include "vault/error_table.h"
#include "vault/vault_path.h"
#include "vault/vault_records.h"

#include <memory>
#include <span>

namespace tv::local {

struct StoreOptions
{
    Session session = CurrentSession();
    WriteHook beforeWrite;
    /// The time in UTC; the machine's clock unless a test brings its own.
    std::function<std::string()> now;
    /// How long a write waits for those of other programs before it gives up with E_VYX_LOCKED.
    std::chrono::milliseconds patience = kLongestWait;
};

/// Bytes that stand on the disk and wait for the row that names them. Those that no row came to name go with the last
/// copy of this record.
struct PendingContent
{
    std::filesystem::path file;
    ContentInfo info;
    std::shared_ptr<const TemporaryFile> keeper;
};

/// What became of one of several: 0, or a code with a line for a person.
struct Outcome
{
    Result code = 0;
    std::string words;
};

/// Carries out one of several, whose refusal doesn't stop the others.
template <typename Action> Outcome OutcomeOf(Action&& action)
{
    try {
        action();
        return {};
    } catch (const ResultError& error) {
        return {error.Code(), WordsOf(error)};
    }
}

/// A file to be added with its bytes as version 1, checked out by this session until its first check-in.
struct AddPlan
{
    VaultPath folder; ///< made if it is missing
    std::string name;
    PendingContent content;
    /// Puts the local copy in its place and measures it; called inside the transaction, when the name is ours.
    std::function<FileStamp()> placeCopy;
};

struct AddOutcome
{
    Outcome outcome;
    std::optional<FileRecord> file;
};

/// What one file refers to.
struct ParentReferences
{
    int32_t parent = 0;
    std::vector<ReferenceRecord> references;
};

/// How a checked-out file ends its check-out.
struct CheckInPlan
{
    int32_t file = 0;
    /// Bytes for the next version; absent when nobody wrote the file, which then keeps its version.
    std::optional<PendingContent> content;
};

/// One open vault. Each public operation that writes is one transaction: it has happened whole when it returns, and not
/// at all when it raises. Not found is a value; a refusal is a ResultError with a vault code and a line for a person.
class VaultStore
{
  public:
    /// Makes a vault whose local view is the given folder. Raises E_VYX_NAME_ALREADY_EXISTS where one stands already.
    static std::shared_ptr<VaultStore> Create(const std::filesystem::path& root, std::string_view name,
                                              StoreOptions options = {});
    /// Raises E_VYX_DATABASE_ACCESS where no vault stands, E_VYX_VERSION_MISMATCH for one of a later program.
    static std::shared_ptr<VaultStore> Open(const std::filesystem::path& root, StoreOptions options = {});
    static bool Exists(const std::filesystem::path& root);
    /// Version of the tables of the vault that stands there, which stay as they are; 0 for a vault that was never
    /// finished. Raises E_VYX_DATABASE_ACCESS when they can't be read.
    static int SchemaVersion(const std::filesystem::path& root, StoreOptions options = {});
    /// The folders that the programs write into: the local view first, then the vault's own.
    static std::vector<std::filesystem::path> Folders(const std::filesystem::path& root);

    VaultStore(const std::filesystem::path& root, bool create, StoreOptions options);

    const std::filesystem::path& Root() const { return root; }
    const Session& CurrentUser() const { return options.session; }
    const Disk& Files() const { return disk; }
    std::string Name();

    // Folders and files.
    std::optional<FolderRecord> FindFolder(const VaultPath& path);
    std::optional<FolderRecord> FolderById(int32_t id);
    std::optional<FileRecord> FindFile(const VaultPath& path);
    std::optional<FileRecord> FileById(int32_t id);
    /// As FileById; E_VYX_FILE_DELETED for a deleted file, E_VYX_FILE_NOT_FOUND for one that never was.
    FileRecord RequireFile(int32_t id);
    /// Whether that name is taken in the folder; asked by those who may add, readers or not.
    bool HasFile(int32_t folder, std::string_view name) { return FileIn(folder, name).has_value(); }
    /// All files of that name, whatever their folder.
    std::vector<FileRecord> FilesNamed(std::string_view name);
    /// Those that this session may read.
    std::vector<FolderRecord> SubFolders(int32_t folder);
    std::vector<FileRecord> FilesIn(int32_t folder);
    VaultPath PathOfFolder(int32_t folder);
    VaultPath PathOfFile(const FileRecord& file);
    /// Makes the folder and those above it that are missing.
    FolderRecord MakeFolder(const VaultPath& path);

    // Permissions. Everything is permitted where no row says otherwise. The row of the nearest folder counts, and in
    // one folder a user's own row before that of "*".
    Rights RightsIn(int32_t folder);
    /// Raises E_VYX_PERMISSION_DENIED naming the right, the user and the folder.
    void RequireRight(int32_t folder, Right right);
    /// Sets a user's row. Refused without the right to permit, and when this session would lose that right by it.
    void Permit(int32_t folder, std::string_view user, Rights rights);
    /// Removes a user's row; false when there is none. Refused as above.
    bool ClearPermission(int32_t folder, std::string_view user);
    /// The rows of a folder, or of the whole vault, in the order of folders and users.
    std::vector<PermissionRecord> Permissions(std::optional<int32_t> folder = {});

    // Versions and check-out.
    std::optional<VersionRecord> Version(int32_t file, int32_t number);
    std::vector<VersionRecord> Versions(int32_t file);
    std::filesystem::path ContentPath(const VersionRecord& version) const;
    /// Copies the bytes of a file into the vault's folder; they count only once a row names them.
    PendingContent TakeBytes(const std::filesystem::path& from);
    /// A name for a file that is being written and will be renamed into its place.
    std::filesystem::path TemporaryPath();
    /// Adds the files in one transaction: what can be added is, whatever stands against the others.
    std::vector<AddOutcome> AddFiles(std::span<const AddPlan> plans, std::string_view comment = {});
    /// Adds one file to a folder that is there. With a local copy it is checked out by this session until its first
    /// check-in, without one it is checked in. E_VYX_NAME_ALREADY_EXISTS if the folder has it.
    FileRecord AddFile(int32_t folder, std::string_view name, const PendingContent& content,
                       const std::optional<FileStamp>& localCopy, std::string_view comment = {});
    /// Adds a version to a file that nobody has checked out.
    void AddVersion(int32_t file, const PendingContent& content, std::string_view comment);
    /// Raises what stands against a check-out by this session.
    void RequireCheckOutable(const FileRecord& file);
    /// Checks a file out. The local copy is put in its place, and measured, inside of the transaction, so that nobody
    /// else's copy is touched. False, and nothing done, when the latest version isn't the expected one any more.
    bool CheckOut(int32_t file, int32_t expectedVersion, const std::function<FileStamp()>& placeCopy);
    /// Ends the check-outs of the given files in one transaction and returns the code of each. What can be checked in
    /// is.
    std::vector<Outcome> CheckIn(std::span<const CheckInPlan> plans, std::string_view comment);
    /// Gives a check-out back: what was written into card and references since is dropped. A file that was never
    /// checked in leaves the vault altogether, and true is returned. The local copy is put back inside of the
    /// transaction, unless the file leaves.
    bool UndoCheckOut(int32_t file, int32_t expectedVersion, const std::function<void()>& placeCopy);
    /// Raises E_VYX_FILE_NOT_LOCKED_BY_YOU or one of its kin unless this session has the file checked out.
    void RequireCheckedOutHere(const FileRecord& file) const;
    /// Raises what stands against a check-in by this session.
    void RequireCheckInable(const FileRecord& file);
    /// Runs an action on the local copy of a file while its latest version and its check-out are those of the record, and
    /// stay so. False, and nothing done, when they are others by now.
    bool WhileUnchanged(const FileRecord& seen, const std::function<void()>& action);
    /// Runs an action on the local view of a place in the vault while no file stands there and none can come.
    void WhereNoFileIs(const VaultPath& path, const std::function<void()>& action);

    // Deletion. A deleted file keeps its id, its versions and their bytes; its name is free again.
    /// The file joins the deleted ones. A checked-out file is refused.
    void RemoveFile(int32_t file);
    /// The deleted files of a folder, or of the whole vault, latest first.
    std::vector<DeletedRecord> DeletedFiles(std::optional<int32_t> folder = {});
    std::optional<DeletedRecord> DeletedFile(int32_t file);
    /// The file that was last deleted at that place.
    std::optional<DeletedRecord> FindDeleted(const VaultPath& path);
    /// A deleted file comes back to its folder, checked in. E_VYX_NAME_ALREADY_EXISTS when its name was taken since.
    FileRecord RestoreFile(int32_t file);
    /// A deleted file goes for good, with the bytes that no other version shares.
    void PurgeFile(int32_t file);

    // Revisions and workflow states. Both belong to the latest version and go along to the next.
    /// Gives the latest version that revision, or else the one that follows its own: A, B, … Z, AA. Returns it.
    std::string Revise(int32_t file, const std::optional<std::string>& revision = {});
    void SetState(int32_t file, std::string_view state);

    /// Proves every version: its bytes are there, whole. Raises E_VYX_INVALID_FILE naming the first that isn't.
    void Verify();

    // Cards and references.
    std::vector<CardVariable> CardVariables();
    int32_t MakeCardVariable(std::string_view name);
    std::optional<CardVariable> FindCardVariable(std::string_view name);
    std::optional<CardVariable> CardVariableById(int32_t id);
    std::vector<CardValue> CardValues(int32_t file, int32_t version);
    /// The card that the next check-in of a checked-out file stores; that of the latest version for any other file.
    std::vector<CardValue> WorkingCard(int32_t file);
    /// Writes the values that can be written and returns the code of each, in order.
    std::vector<Result> WriteCards(std::span<const CardWrite> writes);
    /// Raises what stands against writing a file's card and references by this session.
    void RequireWritable(const FileRecord& file);
    /// Replaces nothing: a reference that stands already takes the new source version.
    void AddReferences(int32_t parent, std::span<const ReferenceRecord> references);
    /// The references of several parents, in one transaction.
    void AddReferences(std::span<const ParentReferences> references);
    std::vector<ReferenceRecord> References(int32_t parent, int32_t version);
    /// What a version of a file refers to; version 0 for the latest, or what the next check-in will store.
    std::vector<ReferenceView> Children(int32_t file, int32_t version = 0);
    /// The files whose latest version refers to this file.
    std::vector<ReferenceView> Parents(int32_t file);

    // Task definitions.
    TaskRecord MakeTask(std::string_view name, std::span<const NamedValue> variables);
    std::vector<TaskRecord> Tasks();
    std::optional<TaskRecord> FindTask(std::string_view name);
    std::optional<StoredValue> TaskVariable(int32_t task, std::string_view name);
    void SetTaskVariables(int32_t task, std::span<const NamedValue> variables);
    std::vector<NamedValue> TaskVariables(int32_t task);
    std::optional<StoredValue> TaskCardVariable(int32_t task, int32_t variable);
    void SetTaskCardVariable(int32_t task, int32_t variable, const StoredValue& value);
    void SetTaskFlags(int32_t task, int32_t flags);
    int32_t TaskFlags(int32_t task);
    /// The name behind a variable's numeric identifier, which is the same for all tasks of the vault.
    std::optional<std::string> VariableName(int32_t identifier);
    std::optional<int32_t> VariableIdentifier(std::string_view name);

    // Task instances.
    InstanceRecord MakeInstance(int32_t task);
    std::optional<InstanceRecord> Instance(int32_t id);
    std::vector<InstanceRecord> Instances();
    void RemoveInstance(int32_t id);
    /// The instance's own value, or else the definition's.
    std::optional<StoredValue> InstanceVariable(int32_t instance, std::string_view name);
    void SetInstanceVariable(int32_t instance, std::string_view name, const StoredValue& value);
    std::vector<SelectionItem> Selection(int32_t instance);
    /// Stores what the task was launched on; the instance now waits for its run.
    void FinishLaunch(int32_t instance, std::span<const SelectionItem> selection);
    /// Takes an instance for a run of this host. False, and nothing done, when it doesn't stand any more as it was seen:
    /// another host has taken it, or it is gone.
    bool BeginRun(const InstanceRecord& seen, int32_t hostProcess);
    void SetStatus(int32_t instance, int32_t status, int32_t result = 0, std::string_view message = {},
                   std::span<const DocumentItem> documents = {});
    std::vector<DocumentItem> Documents(int32_t instance);
    void SetProgressRange(int32_t instance, int32_t lower, int32_t upper, std::string_view text);
    void SetProgressPosition(int32_t instance, int32_t position, std::string_view text);

  private:
    std::optional<FolderRecord> ChildFolder(int32_t parent, std::string_view name);
    std::optional<FileRecord> FileIn(int32_t folder, std::string_view name);
    std::optional<FileRecord> FileRow(int32_t id);
    std::optional<VersionRecord> VersionRow(int32_t file, int32_t number);
    FolderRecord FolderOf(const VaultPath& path);
    FileRecord AddOne(int32_t folder, std::string_view name, const PendingContent& content,
                      const std::optional<FileStamp>& localCopy, std::string_view comment);
    void PutReference(const FileRecord& parent, const ReferenceRecord& reference);
    bool IsStillBeingAdded(const FileRecord& file);
    bool HasPermissions();
    void RequireReadable(int32_t file);
    void RequireStillPermitting(int32_t folder);
    DeletedRecord RequireDeleted(int32_t id);
    std::filesystem::path PathOfContent(std::string_view hash) const;
    /// True when the bytes came anew; their folder must then be flushed before the transaction's end.
    bool KeepContent(const PendingContent& content);
    void FlushContents() const;
    void RequireFreeName(int32_t folder, std::string_view name);
    void DropUnusedContents(std::span<const std::string> hashes) noexcept;
    void Migrate();
    FileRecord RequireRow(int32_t id);
    void RequireCheckedIn(const FileRecord& file);
    void PutVersion(const FileRecord& file, const ContentInfo& content, std::string_view comment);
    void PutCheckOut(int32_t file, const FileStamp& localCopy, bool fresh);
    void EndCheckOut(const FileRecord& file, const CheckInPlan& plan, std::string_view comment);
    void CarryOver(int32_t file, int32_t from, int32_t to);
    int32_t WorkingVersion(const FileRecord& file) const;
    int32_t IdentifierOf(std::string_view variable);
    void PutTaskVariable(int32_t task, const NamedValue& variable);
    void RemoveStaleTemporaries();
    std::string Now() const { return options.now(); }

    std::filesystem::path root;
    StoreOptions options;
    Disk disk;
    Database database;
};

} // namespace tv::local
