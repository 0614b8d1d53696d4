// Who may do what in which folder.
#include "vault/error_table.h"
#include "vault/text.h"
#include "vault/vault_store.h"

namespace tv::local {

namespace {

void CheckUser(std::string_view user)
{
    const bool control = user.find_first_of(std::string_view("\0\t\r\n", 4)) != std::string_view::npos;
    if (user.empty() || control || user.front() == ' ' || user.back() == ' ') {
        Fail(kErrorInvalidUserName, "'" + std::string(user) + "' is no name of a user; '*' stands for every user.");
    }
}

} // namespace

bool VaultStore::HasPermissions()
{
    return database.Query("SELECT 1 FROM permissions LIMIT 1").Next();
}

Rights VaultStore::RightsIn(int32_t folder)
{
    if (!HasPermissions()) {
        return kAllRights;
    }
    Statement row = database.Query(
        "WITH RECURSIVE above (id, parent, distance) AS (SELECT id, parent, 0 FROM folders WHERE id = ? UNION ALL "
        "SELECT f.id, f.parent, distance + 1 FROM folders f JOIN above ON f.id = above.parent) "
        "SELECT p.rights FROM above JOIN permissions p ON p.folder = above.id WHERE p.user_key IN (?, '*') "
        "ORDER BY above.distance, p.user_key = '*' LIMIT 1",
        folder, std::string_view(FoldName(options.session.user)));
    return row.Next() ? Rights{static_cast<uint32_t>(row.Int(0))} : kAllRights;
}

void VaultStore::RequireRight(int32_t folder, Right right)
{
    if (!RightsIn(folder).Has(right)) {
        Fail(kErrorPermissionDenied, "The user '" + options.session.user + "' doesn't have the right '" +
                                         std::string(RightWord(right)) + "' in the folder '" +
                                         VaultPathText(PathOfFolder(folder)) + "'.");
    }
}

/// Looks into a file that may have been deleted; one that never was is nobody's secret.
void VaultStore::RequireReadable(int32_t file)
{
    if (!HasPermissions()) {
        return;
    }
    Statement row = database.Query("SELECT folder FROM files WHERE id = ?", file);
    if (row.Next()) {
        RequireRight(row.Int(0), Right::Read);
    }
}

/// Whoever gives the right away has nobody left to ask for it.
void VaultStore::RequireStillPermitting(int32_t folder)
{
    if (!RightsIn(folder).Has(Right::Permit)) {
        Fail(kErrorPermissionDenied, "The user '" + options.session.user +
                                         "' would lose the right 'permit' in the folder '" +
                                         VaultPathText(PathOfFolder(folder)) +
                                         "' and could not take that back; another who has it can do this.");
    }
}

void VaultStore::Permit(int32_t folder, std::string_view user, Rights rights)
{
    CheckUser(user);
    Transaction transaction(database);
    if (!FolderById(folder)) {
        Fail(kErrorFolderNotFound, "The vault has no folder with the id " + std::to_string(folder) + ".");
    }
    RequireRight(folder, Right::Permit);
    database.Run("INSERT OR REPLACE INTO permissions (folder, user, user_key, rights) VALUES (?, ?, ?, ?)", folder,
                 user, std::string_view(FoldName(user)), int64_t{rights.bits});
    RequireStillPermitting(folder);
    transaction.Commit();
}

bool VaultStore::ClearPermission(int32_t folder, std::string_view user)
{
    Transaction transaction(database);
    RequireRight(folder, Right::Permit);
    const bool cleared = database.Run("DELETE FROM permissions WHERE folder = ? AND user_key = ?", folder,
                                      std::string_view(FoldName(user))) > 0;
    RequireStillPermitting(folder);
    transaction.Commit();
    return cleared;
}

std::vector<PermissionRecord> VaultStore::Permissions(std::optional<int32_t> folder)
{
    std::vector<PermissionRecord> permissions;
    Statement rows = database.Query("SELECT folder, user, rights FROM permissions WHERE ?1 IS NULL OR folder = ?1 "
                                    "ORDER BY folder, user_key",
                                    folder);
    while (rows.Next()) {
        permissions.push_back({rows.Int(0), rows.Text(1), {static_cast<uint32_t>(rows.Int(2))}});
    }
    return permissions;
}

} // namespace tv::local
