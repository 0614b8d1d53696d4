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

std::optional<VersionRecord> VaultStore::VersionRow(int32_t file, int32_t number)
{
    Statement row = database.Query(std::string(kVersionColumns) + "WHERE file = ? AND number = ?", file, number);
    return row.Next() ? std::optional(ReadVersion(row)) : std::nullopt;
}

std::optional<VersionRecord> VaultStore::Version(int32_t file, int32_t number)
{
    RequireReadable(file);
    return VersionRow(file, number);
}

std::vector<VersionRecord> VaultStore::Versions(int32_t file)
{
    RequireReadable(file);
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
    pending.file = TemporaryPath();
    pending.keeper = std::make_shared<TemporaryFile>(disk, pending.file);
    pending.info = disk.CopyFlushed(from, pending.file);
    return pending;
}

/// Puts the bytes in their place. Called inside the transaction that names them, so that nobody takes the same bytes
/// for unused in between.
bool VaultStore::KeepContent(const PendingContent& content)
{
    const auto place = PathOfContent(content.info.hash);
    const auto present = Disk::StampOf(place);
    if (present && present->size == content.info.size) {
        return false;
    }
    disk.Rename(content.file, place);
    disk.SetReadOnly(place, true);
    return true;
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

void VaultStore::RequireCheckedIn(const FileRecord& file)
{
    if (file.checkOut) {
        const Session& holder = file.checkOut->holder;
        const bool mine = holder.user == options.session.user;
        const Result theirs = mine ? kErrorLockedOnOtherComputer : kErrorLockedByAnotherUser;
        Fail(holder == options.session ? kErrorFileIsLocked : theirs,
             "'" + VaultPathText(PathOfFile(file)) + "' is checked out by " + HolderText(*file.checkOut) + ".");
    }
}

void VaultStore::RequireFreeName(int32_t folder, std::string_view name)
{
    if (FileIn(folder, name) || ChildFolder(folder, name)) {
        VaultPath path = PathOfFolder(folder);
        path.emplace_back(name);
        Fail(kErrorNameAlreadyExists, "The vault has '" + VaultPathText(path) + "' already.");
    }
}

FileRecord VaultStore::AddOne(int32_t folder, std::string_view name, const PendingContent& content,
                              const std::optional<FileStamp>& localCopy, std::string_view comment)
{
    database.Run("INSERT INTO files (folder, name, name_key, latest_version) VALUES (?, ?, ?, 0)", folder, name,
                 std::string_view(FoldName(name)));
    const auto id = static_cast<int32_t>(database.LastId());
    PutVersion({id, folder, std::string(name), 0, std::nullopt}, content.info, comment);
    if (localCopy) {
        PutCheckOut(id, *localCopy, true);
    }
    return *FileRow(id);
}

FileRecord VaultStore::AddFile(int32_t folder, std::string_view name, const PendingContent& content,
                               const std::optional<FileStamp>& localCopy, std::string_view comment)
{
    CheckName(name);
    Transaction transaction(database);
    if (!FolderById(folder)) {
        Fail(kErrorFolderNotFound, "The vault has no folder with the id " + std::to_string(folder) + ".");
    }
    RequireRight(folder, Right::Add);
    RequireFreeName(folder, name);
    if (KeepContent(content)) {
        FlushContents();
    }
    FileRecord file = AddOne(folder, name, content, localCopy, comment);
    transaction.Commit();
    return file;
}

std::vector<AddOutcome> VaultStore::AddFiles(std::span<const AddPlan> plans, std::string_view comment)
{
    std::vector<AddOutcome> outcomes;
    bool anyKept = false;
    Transaction transaction(database);
    for (const AddPlan& plan : plans) {
        AddOutcome& added = outcomes.emplace_back();
        int32_t folder = 0;
        FileStamp localCopy;
        added.outcome = OutcomeOf([&] {
            CheckName(plan.name);
            folder = FolderOf(plan.folder).id;
            RequireRight(folder, Right::Add);
            RequireFreeName(folder, plan.name);
            anyKept = KeepContent(plan.content) || anyKept;
            localCopy = plan.placeCopy();
        });
        if (added.outcome.code == 0) {
            added.file = AddOne(folder, plan.name, plan.content, localCopy, comment);
        }
    }
    if (anyKept) {
        FlushContents();
    }
    transaction.Commit();
    return outcomes;
}

void VaultStore::AddVersion(int32_t id, const PendingContent& content, std::string_view comment)
{
    Transaction transaction(database);
    const FileRecord file = RequireRow(id);
    RequireCheckOutable(file);
    if (KeepContent(content)) {
        FlushContents();
    }
    PutVersion(file, content.info, comment);
    transaction.Commit();
}

void VaultStore::PutVersion(const FileRecord& file, const ContentInfo& content, std::string_view comment)
{
    const int32_t number = file.latestVersion + 1;
    const auto before = VersionRow(file.id, file.latestVersion);
    database.Run("INSERT INTO versions (file, number, content, size, time, comment, user, revision, state) "
                 "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)",
                 file.id, number, std::string_view(content.hash), content.size, std::string_view(Now()), comment,
                 std::string_view(options.session.user), before ? before->revision : std::nullopt,
                 before ? before->state : std::nullopt);
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

void VaultStore::RequireCheckOutable(const FileRecord& file)
{
    RequireRight(file.folder, Right::CheckOut);
    RequireCheckedIn(file);
}

bool VaultStore::CheckOut(int32_t id, int32_t expectedVersion, const std::function<FileStamp()>& placeCopy)
{
    Transaction transaction(database);
    const FileRecord file = RequireRow(id);
    RequireCheckOutable(file);
    if (file.latestVersion != expectedVersion) {
        return false;
    }
    PutCheckOut(id, placeCopy(), false);
    transaction.Commit();
    return true;
}

/// Whoever adds a file may finish it: its card, its references and its first check-in belong to the adding.
bool VaultStore::IsStillBeingAdded(const FileRecord& file)
{
    if (file.checkOut) {
        return file.checkOut->fresh;
    }
    return file.latestVersion == 1 && VersionRow(file.id, 1)->user == options.session.user;
}

void VaultStore::RequireCheckInable(const FileRecord& file)
{
    RequireCheckedOutHere(file);
    RequireRight(file.folder, IsStillBeingAdded(file) ? Right::Add : Right::CheckOut);
}

void VaultStore::RequireWritable(const FileRecord& file)
{
    RequireRight(file.folder, IsStillBeingAdded(file) ? Right::Add : Right::CheckOut);
    if (file.checkOut && file.checkOut->holder != options.session) {
        RequireCheckedIn(file);
    }
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

void VaultStore::EndCheckOut(const FileRecord& file, const CheckInPlan& plan, std::string_view comment)
{
    const int32_t latest = file.latestVersion;
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

std::vector<Outcome> VaultStore::CheckIn(std::span<const CheckInPlan> plans, std::string_view comment)
{
    std::vector<Outcome> outcomes;
    std::vector<std::string> replaced;
    bool anyKept = false;
    Transaction transaction(database);
    for (const CheckInPlan& plan : plans) {
        FileRecord file;
        outcomes.push_back(OutcomeOf([&] {
            file = RequireRow(plan.file);
            RequireCheckInable(file);
            anyKept = (plan.content && KeepContent(*plan.content)) || anyKept;
        }));
        if (outcomes.back().code != 0) {
            continue;
        }
        if (file.checkOut->fresh && plan.content) {
            replaced.push_back(VersionRow(file.id, file.latestVersion)->content);
        }
        EndCheckOut(file, plan, comment);
    }
    if (anyKept) {
        FlushContents();
    }
    transaction.Commit();
    if (!replaced.empty()) {
        DropUnusedContents(replaced);
    }
    return outcomes;
}

bool VaultStore::UndoCheckOut(int32_t id, int32_t expectedVersion, const std::function<void()>& placeCopy)
{
    Transaction transaction(database);
    const FileRecord file = RequireRow(id);
    RequireCheckedOutHere(file);
    const bool leaves = file.checkOut->fresh;
    std::vector<std::string> contents;
    if (leaves) {
        contents.push_back(VersionRow(id, file.latestVersion)->content);
        database.Run("DELETE FROM files WHERE id = ?", id);
    } else {
        // Nobody but the holder can have made a version since.
        if (file.latestVersion != expectedVersion) {
            Fail(E_UNEXPECTED, "'" + file.name + "' got a version while it was checked out.");
        }
        database.Run("DELETE FROM card_values WHERE file = ? AND version = ?", id, file.latestVersion + 1);
        database.Run("DELETE FROM file_references WHERE parent = ? AND parent_version = ?", id, file.latestVersion + 1);
        database.Run("DELETE FROM check_outs WHERE file = ?", id);
        placeCopy();
    }
    transaction.Commit();
    if (leaves) {
        DropUnusedContents(contents);
    }
    return leaves;
}

bool VaultStore::WhileUnchanged(const FileRecord& seen, const std::function<void()>& action)
{
    // Versions and check-outs come in transactions, and this one keeps them out.
    Transaction transaction(database);
    const auto now = FileRow(seen.id);
    const bool unchanged = now && now->latestVersion == seen.latestVersion && now->checkOut == seen.checkOut;
    if (unchanged) {
        action();
    }
    return unchanged;
}

void VaultStore::WhereNoFileIs(const VaultPath& path, const std::function<void()>& action)
{
    // Files come in transactions, and this one keeps them out.
    Transaction transaction(database);
    const auto folder = FindFolder(VaultPath(path.begin(), path.end() - 1));
    if (!folder || !FileIn(folder->id, path.back())) {
        action();
    }
}

void VaultStore::Verify()
{
    Statement rows = database.Query("SELECT f.folder, f.name, v.number, v.content, v.size FROM versions v "
                                    "JOIN files f ON f.id = v.file");
    while (rows.Next()) {
        const std::string content = rows.Text(3);
        const auto place = PathOfContent(content);
        VaultPath path = PathOfFolder(rows.Int(0));
        path.push_back(rows.Text(1));
        const std::string what = "version " + std::to_string(rows.Int(2)) + " of '" + VaultPathText(path) + "'";
        if (!Disk::IsFile(place)) {
            Fail(kErrorInvalidFile, "The bytes of " + what + " are missing.");
        }
        const ContentInfo found = Disk::Read(place);
        if (found.hash != content || found.size != rows.Int64(4)) {
            Fail(kErrorInvalidFile, "The bytes of " + what + " are damaged.");
        }
    }
}

} // namespace tv::local
