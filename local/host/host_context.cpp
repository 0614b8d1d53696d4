#include "host/host_context.h"

#include "vault/error_table.h"
#include "vault/text.h"

namespace tv::local {

void HostContext::OpenVault()
{
    const auto folder = PathOf(vaultFolder);
    if (!VaultStore::Exists(folder)) {
        throw NoVaultError("There is no vault in '" + vaultFolder + "'. Make one with: tvtask init --vault \"" +
                           vaultFolder + "\"");
    }
    try {
        store = VaultStore::Open(folder, environment.storeOptions);
    } catch (const ResultError& error) {
        throw NoVaultError(Utf8(error.Text()));
    }
}

VaultPath HostContext::ReadPath(std::string_view text) const
{
    if (const auto path = BelowRoot(store->Root(), text)) {
        return *path;
    }
    if (text.size() > 1 && text[1] == ':') {
        throw UsageError(std::string("'") + std::string(text) + "' isn't in the vault; its folder is '" +
                         TextOf(store->Root()) + "'.");
    }
    try {
        return ParseVaultPath(text);
    } catch (const ResultError& error) {
        throw UsageError(Utf8(error.Text()));
    }
}

FileRecord HostContext::RequireFile(std::string_view text) const
{
    const VaultPath path = ReadPath(text);
    if (const auto file = store->FindFile(path)) {
        return *file;
    }
    VaultPath folder = path;
    while (!folder.empty() && !store->FindFolder(folder)) {
        folder.pop_back();
    }
    const bool isFolder = folder.size() == path.size();
    throw UsageError(std::string("'") + VaultPathText(path) +
                     (isFolder ? "' is a folder; a file is needed." : "' isn't in the vault.") +
                     " To see what is there: tvtask ls \"" + VaultPathText(folder) + "\"");
}

FolderRecord HostContext::RequireFolder(std::string_view text) const
{
    const VaultPath path = ReadPath(text);
    if (const auto folder = store->FindFolder(path)) {
        return *folder;
    }
    throw UsageError("The vault has no folder '" + VaultPathText(path) + "'. To see its folders: tvtask ls -r");
}

TaskRecord HostContext::RequireTask(std::string_view name) const
{
    if (const auto task = store->FindTask(name)) {
        return *task;
    }
    std::string names;
    for (const TaskRecord& task : store->Tasks()) {
        names += (names.empty() ? "'" : ", '") + task.name + "'";
    }
    throw UsageError(
        "There is no task '" + std::string(name) + "'; " +
        (names.empty() ? "make one with: tvtask task new NAME --kind convert" : "there are: " + names + "."));
}

InstanceRecord HostContext::RequireInstance(int32_t id) const
{
    if (const auto instance = store->Instance(id)) {
        return *instance;
    }
    throw UsageError("There is no task instance " + std::to_string(id) + ". To see them all: tvtask status");
}

void HostContext::PrintJson(const Json& value) const
{
    environment.out << value.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
}

} // namespace tv::local
