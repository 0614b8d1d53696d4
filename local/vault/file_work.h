// FileWork: what a person does with files, on the vault and on the local view together.
#pragma once

#include "vault/vault_store.h"

#include <memory>

namespace tv::local {

struct ImportedFile
{
    FileRecord file;
    bool isNew = false;
};

/// A file on the disk and the folder of the vault that it is to be added to.
struct AddRequest
{
    std::filesystem::path from;
    VaultPath folder; ///< made if it is missing
};

struct UndoneFile
{
    FileRecord file; ///< as it stood before
    /// The file had never been checked in, so it left the vault, and its local copy the disk.
    bool leftVault = false;
};

enum class ReferenceRule
{
    Latest,
    AsBuilt,
};

/// A local copy is read-only unless its file is checked out by this session.
class FileWork
{
  public:
    explicit FileWork(std::shared_ptr<VaultStore> vault) : store(std::move(vault)) {}

    std::filesystem::path LocalPath(const VaultPath& path) const;
    std::filesystem::path LocalPathOf(const FileRecord& file) const;

    /// Makes sure that the local copy holds that version (0 for the latest) and returns its place. A copy that somebody
    /// has checked out stays as it is: the local view is one for all, and a copy that is worked on is nobody else's.
    std::filesystem::path Fetch(const FileRecord& file, int32_t version);
    /// As Fetch, and then everything that the file refers to, whatever the depth.
    void FetchWithReferences(const FileRecord& file, int32_t version, ReferenceRule rule);

    /// Adds a file from the disk to a folder: version 1 with these bytes, checked out by this session until it is
    /// checked in. A file that doesn't stand in the folder's local view is copied there.
    FileRecord Add(const std::filesystem::path& from, const FolderRecord& folder);

    /// Adds many, as Add does, in one transaction: what can be added is, whatever stands against the others. The
    /// outcomes are in the order of the requests.
    std::vector<AddOutcome> AddAll(std::span<const AddRequest> requests);

    /// The local copy becomes the latest version, writable.
    void CheckOut(int32_t file);

    /// Ends the check-outs and returns an outcome for each file, in order. A file that was written since its check-out
    /// gets a version, even when the bytes came out the same; one that nobody wrote keeps the version that it has. What
    /// can be checked in is, in one transaction, whatever stands against the others.
    std::vector<Outcome> CheckIn(std::span<const int32_t> files, std::string_view comment);

    /// Gives a check-out of this session back: the local copy becomes the latest version again, and what was written
    /// since, into card and references too, is dropped.
    UndoneFile UndoCheckOut(int32_t file);

    /// The file joins the deleted ones, and its local copy goes.
    void Delete(int32_t file);

    /// A deleted file comes back to its folder, with its local copy.
    FileRecord Restore(int32_t file);

    /// Takes a file from anywhere on the disk, as a new file or as the next version of the file of that name. When only
    /// the local copy can't be written, the error says that the version is in the vault.
    ImportedFile Import(const std::filesystem::path& from, const VaultPath& folder, std::string_view comment);

    /// Writes the bytes of a version (0 for the latest) to a place outside of the vault.
    void Export(const FileRecord& file, int32_t version, const std::filesystem::path& to);

  private:
    VersionRecord RequireVersion(const FileRecord& file, int32_t version);
    bool HoldsVersion(const std::filesystem::path& place, const VersionRecord& version) const;
    std::shared_ptr<const TemporaryFile> CopyOf(const std::filesystem::path& from);
    AddPlan PlanAdd(const AddRequest& request);
    CheckInPlan PlanCheckIn(int32_t id);
    void RemoveCopy(const VaultPath& path);

    std::shared_ptr<VaultStore> store;
};

} // namespace tv::local
