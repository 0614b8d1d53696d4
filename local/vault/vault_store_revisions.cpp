// Revisions and workflow states of versions.
#include "vault/error_table.h"
#include "vault/vault_store.h"

#include <algorithm>
#include <set>

namespace tv::local {

namespace {

constexpr size_t kLongestRevision = 32;
constexpr size_t kLongestState = 255;

bool IsText(std::string_view text, size_t longest)
{
    const auto control = [](char character) { return static_cast<unsigned char>(character) < 0x20; };
    return !text.empty() && text.size() <= longest && text.front() != ' ' && text.back() != ' ' &&
           std::none_of(text.begin(), text.end(), control);
}

/// A, B, … Z, AA, AB, … AZ, BA, … ZZ, AAA. Empty for a revision that isn't made of capital letters.
std::optional<std::string> RevisionAfter(std::string revision)
{
    const auto isCapital = [](char character) { return character >= 'A' && character <= 'Z'; };
    if (!std::all_of(revision.begin(), revision.end(), isCapital)) {
        return std::nullopt;
    }
    const auto lastToCount = std::find_if(revision.rbegin(), revision.rend(), [](char c) { return c != 'Z'; });
    std::fill(revision.rbegin(), lastToCount, 'A');
    if (lastToCount == revision.rend()) {
        return 'A' + revision;
    }
    ++*lastToCount;
    return revision;
}

} // namespace

std::string VaultStore::Revise(int32_t id, const std::optional<std::string>& given)
{
    Transaction transaction(database);
    const FileRecord file = RequireRow(id);
    RequireCheckOutable(file);
    const std::string name = "'" + VaultPathText(PathOfFile(file)) + "'";
    std::set<std::string> taken;
    std::string current;
    for (const VersionRecord& version : Versions(id)) {
        current = version.revision.value_or("");
        taken.insert(current);
    }
    std::string revision = given.value_or(current);
    if (given && !IsText(*given, kLongestRevision)) {
        Fail(kErrorInvalidRevision,
             "'" + *given + "' can't be a revision of " + name + ": it takes 1 to 32 characters.");
    }
    if (given && taken.contains(revision)) {
        Fail(kErrorRevisionExists, name + " has the revision '" + revision + "' already.");
    }
    while (!given && taken.contains(revision)) {
        const auto next = RevisionAfter(revision);
        if (!next) {
            Fail(kErrorInvalidRevision,
                 "No revision follows '" + revision + "' of " + name + " by itself; say which one it is to be.");
        }
        revision = *next;
    }
    database.Run("UPDATE versions SET revision = ? WHERE file = ? AND number = ?", std::string_view(revision), id,
                 file.latestVersion);
    transaction.Commit();
    return revision;
}

void VaultStore::SetState(int32_t id, std::string_view state)
{
    Transaction transaction(database);
    const FileRecord file = RequireRow(id);
    RequireCheckOutable(file);
    if (!IsText(state, kLongestState)) {
        Fail(kErrorInvalidName,
             "'" + std::string(state) + "' can't be a workflow state: it takes 1 to 255 characters.");
    }
    database.Run("UPDATE versions SET state = ? WHERE file = ? AND number = ?", state, id, file.latestVersion);
    transaction.Commit();
}

} // namespace tv::local
