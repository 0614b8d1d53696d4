// Deleted files: out of their folders, and kept until somebody purges them.
#include "vault/error_table.h"
#include "vault/text.h"
#include "vault/vault_store.h"

namespace tv::local {

namespace {

constexpr char kDeletedColumns[] = "SELECT id, folder, name, latest_version, deleted_by, deleted_on, deleted_at "
                                   "FROM files WHERE deleted_at IS NOT NULL ";

std::optional<DeletedRecord> ReadDeleted(Statement& row)
{
    if (!row.Next()) {
        return std::nullopt;
    }
    FileRecord file{row.Int(0), row.Int(1), row.Text(2), row.Int(3), std::nullopt};
    return DeletedRecord{std::move(file), {row.Text(4), row.Text(5)}, row.Text(6)};
}

} // namespace

void VaultStore::RemoveFile(int32_t id)
{
    Transaction transaction(database);
    const FileRecord file = RequireRow(id);
    RequireRight(file.folder, Right::Delete);
    RequireCheckedIn(file);
    database.Run("UPDATE files SET deleted_at = ?, deleted_by = ?, deleted_on = ? WHERE id = ?",
                 std::string_view(Now()), std::string_view(options.session.user),
                 std::string_view(options.session.machine), id);
    transaction.Commit();
}

std::vector<DeletedRecord> VaultStore::DeletedFiles(std::optional<int32_t> folder)
{
    Statement rows = database.Query(
        std::string(kDeletedColumns) + "AND (?1 IS NULL OR folder = ?1) ORDER BY deleted_at DESC, id DESC", folder);
    std::vector<DeletedRecord> files;
    while (auto file = ReadDeleted(rows)) {
        files.push_back(std::move(*file));
    }
    if (HasPermissions()) {
        std::erase_if(files, [&](const DeletedRecord& row) { return !RightsIn(row.file.folder).Has(Right::Read); });
    }
    return files;
}

std::optional<DeletedRecord> VaultStore::DeletedFile(int32_t id)
{
    Statement row = database.Query(std::string(kDeletedColumns) + "AND id = ?", id);
    return ReadDeleted(row);
}

std::optional<DeletedRecord> VaultStore::FindDeleted(const VaultPath& path)
{
    if (path.empty()) {
        return std::nullopt;
    }
    const auto folder = FindFolder(VaultPath(path.begin(), path.end() - 1));
    if (!folder) {
        return std::nullopt;
    }
    RequireRight(folder->id, Right::Read);
    Statement row = database.Query(std::string(kDeletedColumns) +
                                       "AND folder = ? AND name_key = ? ORDER BY deleted_at DESC, id DESC LIMIT 1",
                                   folder->id, std::string_view(FoldName(path.back())));
    return ReadDeleted(row);
}

DeletedRecord VaultStore::RequireDeleted(int32_t id)
{
    if (auto deleted = DeletedFile(id)) {
        return *deleted;
    }
    if (const auto file = FileRow(id)) {
        Fail(kErrorNameAlreadyExists, "'" + VaultPathText(PathOfFile(*file)) + "' isn't deleted.");
    }
    Fail(kErrorFileNotFound, "There is no deleted file with the id " + std::to_string(id) + ".");
}

FileRecord VaultStore::RestoreFile(int32_t id)
{
    Transaction transaction(database);
    const FileRecord file = RequireDeleted(id).file;
    RequireRight(file.folder, Right::Add);
    RequireFreeName(file.folder, file.name);
    database.Run("UPDATE files SET deleted_at = NULL, deleted_by = NULL, deleted_on = NULL WHERE id = ?", id);
    transaction.Commit();
    return file;
}

void VaultStore::PurgeFile(int32_t id)
{
    std::vector<std::string> contents;
    Transaction transaction(database);
    RequireRight(RequireDeleted(id).file.folder, Right::Delete);
    for (const VersionRecord& version : Versions(id)) {
        contents.push_back(version.content);
    }
    database.Run("DELETE FROM files WHERE id = ?", id);
    transaction.Commit();
    DropUnusedContents(contents);
}

} // namespace tv::local
