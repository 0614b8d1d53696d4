// Versions, their bytes and check-outs.
#include "vault/error_table.h"
#include "vault/text.h"
#include "vault/vault_store.h"

#include <algorithm>

namespace tv::local {

namespace {

VersionRecord ReadVersion(const Statement& row)
{
    return {row.Int(0),  row.Text(1), row.Int64(2),        row.Text(3),
            row.Text(4), row.Text(5), row.OptionalText(6), row.OptionalText(7)};
}

constexpr char kVersionColumns[] = "SELECT number, content, size, time, comment, user, revision, state FROM versions ";

std::string HolderText(const CheckOutRecord& checkOut)
{
    return checkOut.holder.user + " on " + checkOut.holder.machine + " since " + checkOut.since;
}

} // namespace

std::optional<VersionRecord> VaultStore::Version(int32_t file, int32_t number)
{
    Statement row = database.Query(std::string(kVersionColumns) + "WHERE file = ? AND number = ?", file, number);
    return row.Next() ? std::optional(ReadVersion(row)) : std::nullopt;
}

std::vector<VersionRecord> VaultStore::Versions(int32_t file)
{
    std::vector<VersionRecord> versions;
    Statement rows = database.Query(std::string(kVersionColumns) + "WHERE file = ? ORDER BY number", file);
    while (rows.Next()) {
        versions.push_back(ReadVersion(rows));
    }
    return versions;
}

PendingContent VaultStore::TakeBytes(const std::filesystem::path& from)
{
    PendingContent pending;
    pending.file = TemporaryFile();
    pending.info = disk.CopyFlushed(from, pending.file);
    return pending;
}

/// Puts the bytes in their place. Called inside the transaction that names them, so that nobody takes the same bytes
/// for unused in between.
void VaultStore::KeepContent(const PendingContent& content)
{
    const auto place = PathOfContent(content.info.hash);
    const auto present = Disk::StampOf(place);
    if (present && present->size == content.info.size) {
        disk.Remove(content.file);
        return;
    }
    disk.Replace(content.file, place);
    disk.SetReadOnly(place, true);
}

/// Bytes that no version names cost room and nothing else, so a failure here is nobody's concern.
void VaultStore::DropUnusedContents(std::span<const std::string> hashes) noexcept
{
    (void)AtBoundary([&] {
        Transaction transaction(database);
        for (const std::string& hash : hashes) {
            if (!database.Query("SELECT 1 FROM versions WHERE content = ?", std::string_view(hash)).Next()) {
                disk.Remove(PathOfContent(hash));
            }
        }
        transaction.Commit();
        return 0;
    });
}

FileRecord VaultStore::RequireFile(int32_t id)
{
    const auto file = FileById(id);
    if (!file) {
        Fail(kErrorFileNotFound, "The vault has no file with the id " + std::to_string(id) + ".");
    }
    return *file;
}

void VaultStore::RequireCheckedIn(const FileRecord& file)
{
    if (file.checkOut) {
        const bool mine = file.checkOut->holder == options.session;
        Fail(mine ? kErrorFileIsLocked : kErrorLockedByAnotherUser,
             "'" + VaultPathText(PathOfFile(file)) + "' is checked out by " + HolderText(*file.checkOut) + ".");
    }
}

FileRecord VaultStore::AddFile(int32_t folder, std::string_view name, const PendingContent& content,
                               const std::optional<FileStamp>& localCopy, std::string_view comment)
{
    CheckName(name);
    Transaction transaction(database);
    if (!FolderById(folder)) {
        Fail(kErrorFolderNotFound, "The vault has no folder with the id " + std::to_string(folder) + ".");
    }
    if (FileIn(folder, name) || ChildFolder(folder, name)) {
        Fail(kErrorNameAlreadyExists, "The vault has '" + std::string(name) + "' in that folder already.");
    }
    KeepContent(content);
    database.Run("INSERT INTO files (folder, name, name_key, latest_version) VALUES (?, ?, ?, 0)", folder, name,
                 std::string_view(FoldName(name)));
    const FileRecord file = RequireFile(static_cast<int32_t>(database.LastId()));
    PutVersion(file, content.info, comment);
    if (localCopy) {
        PutCheckOut(file.id, *localCopy, true);
    }
    transaction.Commit();
    return RequireFile(file.id);
}

void VaultStore::AddVersion(int32_t id, const PendingContent& content, std::string_view comment)
{
    Transaction transaction(database);
    const FileRecord file = RequireFile(id);
    RequireCheckedIn(file);
    KeepContent(content);
    PutVersion(file, content.info, comment);
    transaction.Commit();
}

void VaultStore::PutVersion(const FileRecord& file, const ContentInfo& content, std::string_view comment)
{
    const int32_t number = file.latestVersion + 1;
    database.Run("INSERT INTO versions (file, number, content, size, time, comment, user) VALUES (?, ?, ?, ?, ?, ?, ?)",
                 file.id, number, std::string_view(content.hash), content.size, std::string_view(Now()), comment,
                 std::string_view(options.session.user));
    database.Run("UPDATE files SET latest_version = ? WHERE id = ?", number, file.id);
    CarryOver(file.id, file.latestVersion, number);
}

void VaultStore::PutCheckOut(int32_t file, const FileStamp& localCopy, bool fresh)
{
    database.Run(
        "INSERT INTO check_outs (file, user, machine, since, size, modified, fresh) VALUES (?, ?, ?, ?, ?, ?, ?)", file,
        std::string_view(options.session.user), std::string_view(options.session.machine), std::string_view(Now()),
        localCopy.size, localCopy.modified, int32_t{fresh});
}

void VaultStore::CheckOut(int32_t id, const FileStamp& localCopy)
{
    Transaction transaction(database);
    RequireCheckedIn(RequireFile(id));
    PutCheckOut(id, localCopy, false);
    transaction.Commit();
}

void VaultStore::RequireCheckedOutHere(const FileRecord& file) const
{
    if (!file.checkOut) {
        Fail(kErrorNotLockedByYou, "'" + file.name + "' isn't checked out.");
    }
    if (file.checkOut->holder.user != options.session.user) {
        Fail(kErrorNotLockedByYou, "'" + file.name + "' is checked out by " + HolderText(*file.checkOut) + ".");
    }
    if (file.checkOut->holder.machine != options.session.machine) {
        Fail(kErrorLockedOnOtherComputer, "'" + file.name + "' is checked out by " + HolderText(*file.checkOut) + ".");
    }
}

/// What is written into a card while the file is checked out belongs to the version that the check-in makes.
int32_t VaultStore::WorkingVersion(const FileRecord& file) const
{
    return file.checkOut && !file.checkOut->fresh ? file.latestVersion + 1 : file.latestVersion;
}

void VaultStore::CarryOver(int32_t file, int32_t from, int32_t to)
{
    database.Run("INSERT OR IGNORE INTO card_values (file, version, variable, configuration, type, value) "
                 "SELECT file, ?, variable, configuration, type, value FROM card_values WHERE file = ? AND version = ?",
                 to, file, from);
    database.Run(
        "INSERT INTO file_references (parent, parent_version, source, source_version) "
        "SELECT parent, ?, source, source_version FROM file_references WHERE parent = ? AND parent_version = ? "
        "AND NOT EXISTS (SELECT 1 FROM file_references WHERE parent = ? AND parent_version = ?)",
        to, file, from, file, to);
}

void VaultStore::EndCheckOut(const CheckInPlan& plan, std::string_view comment)
{
    const FileRecord file = RequireFile(plan.file);
    RequireCheckedOutHere(file);
    const int32_t latest = file.latestVersion;
    if (plan.content) {
        KeepContent(*plan.content);
    }
    if (file.checkOut->fresh) {
        database.Run("UPDATE versions SET comment = ? WHERE file = ? AND number = ?", comment, file.id, latest);
        if (plan.content) {
            database.Run("UPDATE versions SET content = ?, size = ?, time = ? WHERE file = ? AND number = ?",
                         std::string_view(plan.content->info.hash), plan.content->info.size, std::string_view(Now()),
                         file.id, latest);
        }
    } else if (plan.content) {
        PutVersion(file, plan.content->info, comment);
    } else {
        // No version follows, so what was written into the card and the references belongs to the latest one.
        database.Run("UPDATE OR REPLACE card_values SET version = ? WHERE file = ? AND version = ?", latest, file.id,
                     latest + 1);
        database.Run("UPDATE OR REPLACE file_references SET parent_version = ? WHERE parent = ? AND parent_version = ?",
                     latest, file.id, latest + 1);
    }
    database.Run("DELETE FROM check_outs WHERE file = ?", file.id);
}

void VaultStore::CheckIn(std::span<const CheckInPlan> plans, std::string_view comment)
{
    std::vector<std::string> replaced;
    Transaction transaction(database);
    for (const CheckInPlan& plan : plans) {
        if (const auto file = FileById(plan.file); file && file->checkOut && file->checkOut->fresh && plan.content) {
            replaced.push_back(Version(file->id, file->latestVersion)->content);
        }
        EndCheckOut(plan, comment);
    }
    transaction.Commit();
    if (!replaced.empty()) {
        DropUnusedContents(replaced);
    }
}

void VaultStore::RemoveFile(int32_t id)
{
    std::vector<std::string> contents;
    Transaction transaction(database);
    RequireCheckedIn(RequireFile(id));
    for (const VersionRecord& version : Versions(id)) {
        contents.push_back(version.content);
    }
    database.Run("DELETE FROM files WHERE id = ?", id);
    transaction.Commit();
    DropUnusedContents(contents);
}

void VaultStore::Verify()
{
    Statement rows =
        database.Query("SELECT f.id, v.number, v.content, v.size FROM versions v JOIN files f ON f.id = v.file");
    while (rows.Next()) {
        const std::string content = rows.Text(2);
        const auto place = PathOfContent(content);
        const std::string what = "version " + std::to_string(rows.Int(1)) + " of '" +
                                 VaultPathText(PathOfFile(*FileById(rows.Int(0)))) + "'";
        if (!Disk::IsFile(place)) {
            Fail(kErrorInvalidFile, "The bytes of " + what + " are missing.");
        }
        const ContentInfo found = Disk::Read(place);
        if (found.hash != content || found.size != rows.Int64(3)) {
            Fail(kErrorInvalidFile, "The bytes of " + what + " are damaged.");
        }
    }
}

} // namespace tv::local
