// VaultStore: the vault's memory. All SQL stands behind this class, so that another database can take its place.
#pragma once

#include "vault/database.h"
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
};

/// Bytes that stand on the disk and wait for the row that names them.
struct PendingContent
{
    std::filesystem::path file;
    ContentInfo info;
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
    /// All files of that name, whatever their folder.
    std::vector<FileRecord> FilesNamed(std::string_view name);
    std::vector<FolderRecord> SubFolders(int32_t folder);
    std::vector<FileRecord> FilesIn(int32_t folder);
    VaultPath PathOfFolder(int32_t folder);
    VaultPath PathOfFile(const FileRecord& file);
    /// Makes the folder and those above it that are missing.
    FolderRecord MakeFolder(const VaultPath& path);

    // Versions and check-out.
    std::optional<VersionRecord> Version(int32_t file, int32_t number);
    std::vector<VersionRecord> Versions(int32_t file);
    std::filesystem::path ContentPath(const VersionRecord& version) const;
    /// Copies the bytes of a file into the vault's folder; they count only once a row names them.
    PendingContent TakeBytes(const std::filesystem::path& from);
    /// A name for a file that is being written and will be renamed into its place.
    std::filesystem::path TemporaryFile();
    /// Adds a file with its bytes as version 1. With a local copy it is checked out by this session until its first
    /// check-in, without one it is checked in. E_VYX_NAME_ALREADY_EXISTS if the folder has it.
    FileRecord AddFile(int32_t folder, std::string_view name, const PendingContent& content,
                       const std::optional<FileStamp>& localCopy, std::string_view comment = {});
    /// Adds a version to a file that nobody has checked out.
    void AddVersion(int32_t file, const PendingContent& content, std::string_view comment);
    void CheckOut(int32_t file, const FileStamp& localCopy);
    /// Ends the check-outs of the given files in one transaction.
    void CheckIn(std::span<const CheckInPlan> plans, std::string_view comment);
    /// Raises what stands against a check-in by this session: E_VYX_FILE_NOT_LOCKED_BY_YOU or one of its kin.
    void RequireCheckedOutHere(const FileRecord& file) const;
    /// The file leaves the vault with all its versions. A checked-out file is refused.
    void RemoveFile(int32_t file);
    /// Proves every version: its bytes are there, whole. Raises E_VYX_INVALID_FILE naming the first that isn't.
    void Verify();

    // Cards and references.
    std::vector<CardVariable> CardVariables();
    int32_t MakeCardVariable(std::string_view name);
    std::vector<CardValue> CardValues(int32_t file, int32_t version);
    /// Writes the values that can be written and returns the code of each, in order.
    std::vector<Result> WriteCards(std::span<const CardWrite> writes);
    /// Replaces nothing: a reference that stands already takes the new source version.
    void AddReferences(int32_t parent, std::span<const ReferenceRecord> references);
    std::vector<ReferenceRecord> References(int32_t parent, int32_t version);

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
    void BeginRun(int32_t instance, int32_t hostProcess);
    void SetStatus(int32_t instance, int32_t status, int32_t result = 0, std::string_view message = {},
                   std::span<const DocumentItem> documents = {});
    std::vector<DocumentItem> Documents(int32_t instance);
    void SetProgressRange(int32_t instance, int32_t lower, int32_t upper, std::string_view text);
    void SetProgressPosition(int32_t instance, int32_t position, std::string_view text);

  private:
    std::optional<FolderRecord> ChildFolder(int32_t parent, std::string_view name);
    std::optional<FileRecord> FileIn(int32_t folder, std::string_view name);
    std::filesystem::path PathOfContent(std::string_view hash) const;
    void KeepContent(const PendingContent& content);
    void DropUnusedContents(std::span<const std::string> hashes) noexcept;
    FileRecord RequireFile(int32_t id);
    void RequireCheckedIn(const FileRecord& file);
    void PutVersion(const FileRecord& file, const ContentInfo& content, std::string_view comment);
    void PutCheckOut(int32_t file, const FileStamp& localCopy, bool fresh);
    void EndCheckOut(const CheckInPlan& plan, std::string_view comment);
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
