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

    /// Makes sure that the local copy holds that version (0 for the latest) and returns its place. A copy that this
    /// session has checked out stays as it is.
    std::filesystem::path Fetch(const FileRecord& file, int32_t version);
    /// As Fetch, and then everything that the file refers to, whatever the depth.
    void FetchWithReferences(const FileRecord& file, int32_t version, ReferenceRule rule);

    /// Adds a file from the disk to a folder: version 1 with these bytes, checked out by this session until it is
    /// checked in. A file that doesn't stand in the folder's local view is copied there.
    FileRecord Add(const std::filesystem::path& from, const FolderRecord& folder);

    /// The local copy becomes the latest version, writable.
    void CheckOut(int32_t file);

    /// Ends the check-outs and returns a code for each file, in order. A file that was written since its check-out gets
    /// a version, even when the bytes came out the same; one that nobody wrote keeps the version that it has. What can
    /// be checked in is, in one transaction, whatever stands against the others.
    std::vector<Result> CheckIn(std::span<const int32_t> files, std::string_view comment);

    /// The file and its local copy go.
    void Delete(int32_t file);

    /// Takes a file from anywhere on the disk, as a new file or as the next version of the file of that name.
    ImportedFile Import(const std::filesystem::path& from, const VaultPath& folder, std::string_view comment);

    /// Writes the bytes of a version (0 for the latest) to a place outside of the vault.
    void Export(const FileRecord& file, int32_t version, const std::filesystem::path& to);

  private:
    VersionRecord RequireVersion(const FileRecord& file, int32_t version);
    bool IsCheckedOutHere(const FileRecord& file) const;
    void PutCopy(const std::filesystem::path& from, const std::filesystem::path& place);
    CheckInPlan PlanCheckIn(int32_t id);

    std::shared_ptr<VaultStore> store;
};

} // namespace tv::local
