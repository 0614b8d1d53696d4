// References between files.
#include "vault/error_table.h"
#include "vault/vault_store.h"

namespace tv::local {

namespace {

/// Reads the other end of a reference, which may have been deleted since.
std::vector<ReferenceView> ReadViews(Statement rows)
{
    std::vector<ReferenceView> views;
    while (rows.Next()) {
        FileRecord file{rows.Int(0), rows.Int(1), rows.Text(2), rows.Int(3), std::nullopt};
        views.push_back({std::move(file), rows.Int(4), rows.Int(5), rows.Int(6) != 0});
    }
    return views;
}

} // namespace

void VaultStore::PutReference(const FileRecord& parent, const ReferenceRecord& reference)
{
    const FileRecord source = RequireFile(reference.sourceFile);
    const int32_t version = reference.sourceVersion > 0 ? reference.sourceVersion : source.latestVersion;
    if (!VersionRow(source.id, version)) {
        Fail(kErrorFileNotFound,
             "'" + VaultPathText(PathOfFile(source)) + "' has no version " + std::to_string(version) + " to refer to.");
    }
    database.Run("INSERT OR REPLACE INTO file_references (parent, parent_version, source, source_version) "
                 "VALUES (?, ?, ?, ?)",
                 parent.id, WorkingVersion(parent), source.id, version);
}

void VaultStore::AddReferences(std::span<const ParentReferences> references)
{
    Transaction transaction(database);
    for (const ParentReferences& one : references) {
        const FileRecord parent = RequireRow(one.parent);
        RequireWritable(parent);
        for (const ReferenceRecord& reference : one.references) {
            PutReference(parent, reference);
        }
    }
    transaction.Commit();
}

void VaultStore::AddReferences(int32_t parent, std::span<const ReferenceRecord> references)
{
    const ParentReferences one{parent, {references.begin(), references.end()}};
    AddReferences({&one, 1});
}

std::vector<ReferenceRecord> VaultStore::References(int32_t parent, int32_t version)
{
    RequireReadable(parent);
    std::vector<ReferenceRecord> references;
    Statement rows = database.Query("SELECT source, source_version FROM file_references "
                                    "WHERE parent = ? AND parent_version = ? ORDER BY source",
                                    parent, version);
    while (rows.Next()) {
        references.push_back({rows.Int(0), rows.Int(1)});
    }
    return references;
}

std::vector<ReferenceView> VaultStore::Children(int32_t id, int32_t version)
{
    const FileRecord file = RequireFile(id);
    int32_t number = version > 0 ? version : file.latestVersion;
    const bool mine = file.checkOut && file.checkOut->holder == options.session;
    if (version <= 0 && mine && !References(id, WorkingVersion(file)).empty()) {
        number = WorkingVersion(file);
    } else if (!VersionRow(id, number)) {
        Fail(kErrorFileNotFound, "'" + VaultPathText(PathOfFile(file)) + "' has no version " + std::to_string(number) +
                                     "; its latest is " + std::to_string(file.latestVersion) + ".");
    }
    return ReadViews(database.Query("SELECT f.id, f.folder, f.name, f.latest_version, r.source_version, "
                                    "r.parent_version, f.deleted_at IS NOT NULL FROM file_references r "
                                    "JOIN files f ON f.id = r.source WHERE r.parent = ? AND r.parent_version = ? "
                                    "ORDER BY f.name_key, f.id",
                                    id, number));
}

std::vector<ReferenceView> VaultStore::Parents(int32_t id)
{
    RequireFile(id);
    return ReadViews(database.Query("SELECT f.id, f.folder, f.name, f.latest_version, r.source_version, "
                                    "r.parent_version, 0 FROM file_references r JOIN files f ON f.id = r.parent "
                                    "AND f.latest_version = r.parent_version "
                                    "WHERE r.source = ? AND f.deleted_at IS NULL ORDER BY f.name_key, f.id",
                                    id));
}

} // namespace tv::local
