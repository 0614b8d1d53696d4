#include "host/vault_commands.h"

#include "host/refusals.h"
#include "host/table.h"
#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

std::string PathText(HostContext& context, const FileRecord& file)
{
    return VaultPathText(context.store->PathOfFile(file));
}

std::string FolderText(HostContext& context, int32_t folder)
{
    return VaultPathText(context.store->PathOfFolder(folder));
}

bool IsBelow(const VaultPath& path, const VaultPath& folder)
{
    return path.size() >= folder.size() && std::equal(folder.begin(), folder.end(), path.begin());
}

DeletedRecord RequireDeleted(HostContext& context, const std::string& path, std::optional<int32_t> id)
{
    const std::string seeThem = " To see what was deleted: tvtask deleted";
    if (id) {
        if (const auto deleted = context.store->DeletedFile(*id)) {
            return *deleted;
        }
        throw UsageError("There is no deleted file with the id " + std::to_string(*id) + "." + seeThem);
    }
    const VaultPath place = context.ReadPath(path);
    std::optional<DeletedRecord> deleted;
    OnVault([&] { deleted = context.store->FindDeleted(place); });
    if (!deleted) {
        throw UsageError("No deleted file was '" + VaultPathText(place) + "'." + seeThem);
    }
    return *deleted;
}

void ListPermissions(HostContext& context, const std::optional<FolderRecord>& folder)
{
    Table table({{"Folder"}, {"User"}, {"Rights"}});
    Json json = Json::array();
    const VaultPath wanted = folder ? context.store->PathOfFolder(folder->id) : VaultPath();
    for (const PermissionRecord& row : context.store->Permissions()) {
        const VaultPath place = context.store->PathOfFolder(row.folder);
        // A row counts for all that is below its folder.
        if (folder && !IsBelow(wanted, place)) {
            continue;
        }
        table.Add({VaultPathText(place), row.user, RightsText(row.rights)});
        json.push_back({{"folder", VaultPathText(place)}, {"user", row.user}, {"rights", RightsText(row.rights)}});
    }
    if (context.json) {
        context.PrintJson(json);
    } else if (table.IsEmpty()) {
        context.environment.out << "Everybody may do everything"
                                << (folder ? " in " + VaultPathText(wanted) : std::string())
                                << ". To change that: tvtask permit FOLDER USER RIGHTS\n";
    } else {
        table.Print(context.environment.out);
    }
}

std::string Joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ",") + word;
    }
    return text;
}

void ChangePermission(HostContext& context, const FolderRecord& folder, const PermitOptions& options)
{
    const std::string place = FolderText(context, folder.id);
    if (options.clear) {
        bool cleared = false;
        OnVault([&] { cleared = context.store->ClearPermission(folder.id, options.user); });
        if (!cleared) {
            throw UsageError("'" + options.user + "' has no rights of his own in '" + place +
                             "'. To see who has: tvtask permit \"" + place + "\"");
        }
    } else {
        OnVault([&] { context.store->Permit(folder.id, options.user, ParseRights(Joined(options.rights))); });
    }
    const std::string rights = options.clear ? "" : RightsText(ParseRights(Joined(options.rights)));
    if (context.json) {
        context.PrintJson(
            {{"folder", place}, {"user", options.user}, {"rights", options.clear ? Json(nullptr) : Json(rights)}});
    } else if (options.clear) {
        context.environment.out << place << "  the row of " << options.user
                                << " is gone; what counts now is that of the folders above\n";
    } else {
        context.environment.out << place << "  " << options.user << " has the rights: " << rights << "\n";
    }
}

} // namespace

int MakeFolderCommand(HostContext& context, const std::vector<std::string>& paths)
{
    std::vector<VaultPath> places;
    for (const std::string& path : paths) {
        places.push_back(context.ReadPath(path));
        if (context.store->FindFile(places.back())) {
            throw UsageError("'" + VaultPathText(places.back()) + "' is a file; choose another name for the folder.");
        }
    }
    Json json = Json::array();
    for (const VaultPath& place : places) {
        const bool present = context.store->FindFolder(place).has_value();
        FolderRecord folder;
        OnVault([&] { folder = context.store->MakeFolder(place); });
        const std::string path = FolderText(context, folder.id);
        json.push_back({{"path", path}, {"id", folder.id}, {"made", !present}});
        if (!context.json) {
            context.environment.out << (present ? "There is a folder already: " : "Made the folder ") << path << "\n";
        }
    }
    if (context.json) {
        context.PrintJson(json);
    }
    return kExitDone;
}

int RemoveCommand(HostContext& context, const std::vector<std::string>& paths)
{
    return ForEachFile(context, RequireFiles(context, paths), [&](const FileRecord& file) -> FileDone {
        const std::string path = PathText(context, file);
        context.Files().Delete(file.id);
        return {"Deleted " + path + ". To get it back: tvtask restore \"" + path + "\"", Json::object()};
    });
}

int DeletedCommand(HostContext& context, const std::string& folder)
{
    const VaultPath place = context.store->PathOfFolder(context.RequireFolder(folder).id);
    Table table({{"File"}, {"Id", Align::Right}, {"Version", Align::Right}, {"Deleted (UTC)"}, {"By"}});
    Json json = Json::array();
    for (const DeletedRecord& deleted : context.store->DeletedFiles()) {
        const FileRecord& file = deleted.file;
        if (!IsBelow(context.store->PathOfFolder(file.folder), place)) {
            continue;
        }
        const std::string by = deleted.deletedBy.user + " on " + deleted.deletedBy.machine;
        table.Add({PathText(context, file), std::to_string(file.id), std::to_string(file.latestVersion),
                   TimeText(deleted.deletedAt), by});
        json.push_back({{"path", PathText(context, file)},
                        {"id", file.id},
                        {"version", file.latestVersion},
                        {"deleted", deleted.deletedAt},
                        {"deletedBy", by}});
    }
    if (context.json) {
        context.PrintJson(json);
    } else if (table.IsEmpty()) {
        context.environment.out << "No deleted files in " << VaultPathText(place) << "\n";
    } else {
        table.Print(context.environment.out);
    }
    return kExitDone;
}

int RestoreCommand(HostContext& context, const std::string& path, std::optional<int32_t> id)
{
    if (path.empty() == !id.has_value()) {
        throw UsageError("Name the deleted file by its FILE or by --id, not both. To see them: tvtask deleted");
    }
    const DeletedRecord deleted = RequireDeleted(context, path, id);
    OnFile(context, deleted.file, [&] { context.Files().Restore(deleted.file.id); });
    const std::string text = PathText(context, deleted.file);
    if (context.json) {
        context.PrintJson({{"path", text}, {"id", deleted.file.id}, {"version", deleted.file.latestVersion}});
    } else {
        context.environment.out << text << "  is back, version " << deleted.file.latestVersion << "\n";
    }
    return kExitDone;
}

int SetStateCommand(HostContext& context, const std::string& path, const std::string& state)
{
    const FileRecord file = context.RequireFile(path);
    OnFile(context, file, [&] { context.store->SetState(file.id, state); });
    if (context.json) {
        context.PrintJson({{"path", PathText(context, file)}, {"version", file.latestVersion}, {"state", state}});
    } else {
        context.environment.out << PathText(context, file) << "  version " << file.latestVersion << " is in the state '"
                                << state << "'\n";
    }
    return kExitDone;
}

int ReviseCommand(HostContext& context, const std::string& path, const std::string& revision)
{
    const FileRecord file = context.RequireFile(path);
    std::string given;
    OnFile(context, file,
           [&] { given = context.store->Revise(file.id, revision.empty() ? std::nullopt : std::optional(revision)); });
    if (context.json) {
        context.PrintJson({{"path", PathText(context, file)}, {"version", file.latestVersion}, {"revision", given}});
    } else {
        context.environment.out << PathText(context, file) << "  version " << file.latestVersion << " is revision "
                                << given << "\n";
    }
    return kExitDone;
}

int PermitCommand(HostContext& context, const PermitOptions& options)
{
    const bool lists = options.user.empty();
    if (!lists && options.rights.empty() != options.clear) {
        throw UsageError(options.clear
                             ? "Give rights or --clear, not both."
                             : "Say which rights '" + options.user +
                                   "' has: read, add, checkout, delete, permit, or all, or none; or --clear.");
    }
    if (lists && options.clear) {
        throw UsageError("Say whose rights are to be cleared: tvtask permit FOLDER USER --clear");
    }
    const auto folder = options.folder.empty() ? std::nullopt : std::optional(context.RequireFolder(options.folder));
    if (lists) {
        ListPermissions(context, folder);
    } else {
        ChangePermission(context, *folder, options);
    }
    return kExitDone;
}

} // namespace tv::local
