#include "host/file_commands.h"

#include "host/document_references.h"
#include "host/refusals.h"
#include "host/table.h"
#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace fs = std::filesystem;

namespace {

constexpr char kImportComment[] = "Imported";

struct ImportItem
{
    fs::path from;
    VaultPath folder;
};

void CollectImports(const fs::path& path, const VaultPath& folder, std::vector<ImportItem>& items)
{
    if (!fs::is_directory(path)) {
        items.push_back({path, folder});
        return;
    }
    VaultPath below = folder;
    const fs::path name = path.has_filename() ? path.filename() : path.parent_path().filename();
    if (!name.empty() && name != "." && name != "..") {
        below.push_back(TextOf(name));
    }
    std::vector<fs::path> entries;
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
        if (entry.is_directory() || entry.is_regular_file()) {
            entries.push_back(entry.path());
        }
    }
    std::sort(entries.begin(), entries.end());
    for (const fs::path& entry : entries) {
        CollectImports(entry, below, items);
    }
}

Json ToJson(HostContext& context, const FileRecord& file)
{
    const auto latest = context.store->Version(file.id, file.latestVersion);
    Json json{
        {"path", VaultPathText(context.store->PathOfFile(file))}, {"id", file.id}, {"version", file.latestVersion}};
    if (latest) {
        json["size"] = latest->size;
        json["time"] = latest->time;
    }
    json["checkedOutBy"] = file.checkOut ? Json(HolderText(file.checkOut)) : Json(nullptr);
    return json;
}

/// Lists the folders and files of a folder, with their paths from the root when it goes deeper.
class Listing
{
  public:
    Listing(HostContext& host, bool deep) : context(host), recursive(deep) {}

    void Add(const FolderRecord& folder)
    {
        for (const FolderRecord& child : context.store->SubFolders(folder.id)) {
            const std::string path = VaultPathText(context.store->PathOfFolder(child.id));
            table.Add({(recursive ? path : child.name) + "\\", "", "", "", ""});
            json.push_back({{"path", path}, {"folder", true}, {"id", child.id}});
            if (recursive) {
                Add(child);
            }
        }
        for (const FileRecord& file : context.store->FilesIn(folder.id)) {
            const auto latest = context.store->Version(file.id, file.latestVersion);
            table.Add({recursive ? VaultPathText(context.store->PathOfFile(file)) : file.name,
                       std::to_string(file.latestVersion), latest ? SizeText(latest->size) : "",
                       latest ? TimeText(latest->time) : "", HolderText(file.checkOut)});
            json.push_back(ToJson(context, file));
        }
    }

    Table table{
        {{"Name"}, {"Version", Align::Right}, {"Size", Align::Right}, {"Checked in (UTC)"}, {"Checked out by"}}};
    Json json = Json::array();

  private:
    HostContext& context;
    bool recursive;
};

} // namespace

int InitCommand(HostContext& context, const std::string& name)
{
    const fs::path folder = PathOf(context.vaultFolder);
    const bool present = VaultStore::Exists(folder);
    if (present) {
        context.OpenVault();
    } else {
        const std::string given = name.empty() ? TextOf(fs::absolute(folder).lexically_normal().filename()) : name;
        try {
            context.store =
                VaultStore::Create(folder, given.empty() ? "LocalVault" : given, context.environment.storeOptions);
        } catch (const std::exception& error) {
            const auto* result = dynamic_cast<const ResultError*>(&error);
            throw NoVaultError("A vault can't be made in '" + context.vaultFolder +
                               "': " + (result != nullptr ? Utf8(result->Text()) : error.what()));
        }
    }
    const std::string root = TextOf(context.store->Root());
    if (context.json) {
        context.PrintJson({{"vault", context.store->Name()}, {"folder", root}, {"made", !present}});
    } else {
        context.environment.out << (present ? "There is a vault already: '" : "Made the vault '")
                                << context.store->Name() << "' in " << root << "\n";
    }
    return kExitDone;
}

int ImportCommand(HostContext& context, const std::vector<std::string>& paths, const std::string& folder)
{
    const VaultPath target = context.ReadPath(folder);
    std::vector<ImportItem> items;
    for (const std::string& text : paths) {
        const fs::path path = PathOf(text);
        if (!fs::exists(path)) {
            throw UsageError("There is no file or folder '" + text + "' on this machine.");
        }
        CollectImports(path, target, items);
    }
    FileWork files = context.Files();
    Json imported = Json::array();
    std::vector<FileRecord> records;
    for (const ImportItem& item : items) {
        const ImportedFile result = files.Import(item.from, item.folder, kImportComment);
        records.push_back(result.file);
        Json entry = ToJson(context, result.file);
        entry["new"] = result.isNew;
        imported.push_back(entry);
        if (!context.json) {
            context.environment.out << VaultPathText(context.store->PathOfFile(result.file)) << "  version "
                                    << result.file.latestVersion << (result.isNew ? "" : " (new version)") << "\n";
        }
    }
    // Only now, because a document may refer to a file that came after it.
    for (const FileRecord& file : records) {
        const auto references = FindDocumentReferences(*context.store, file, files.LocalPathOf(file));
        if (!references.empty()) {
            context.store->AddReferences(file.id, references);
        }
    }
    if (context.json) {
        context.PrintJson(imported);
    }
    return kExitDone;
}

int ListCommand(HostContext& context, const std::string& folder, bool recursive)
{
    Listing listing(context, recursive);
    listing.Add(context.RequireFolder(folder));
    if (context.json) {
        context.PrintJson(listing.json);
    } else if (listing.table.IsEmpty()) {
        context.environment.out << "The folder is empty.\n";
    } else {
        listing.table.Print(context.environment.out);
    }
    return kExitDone;
}

int HistoryCommand(HostContext& context, const std::string& path)
{
    const FileRecord file = context.RequireFile(path);
    const std::vector<VersionRecord> versions = context.store->Versions(file.id);
    const bool revised = std::any_of(versions.begin(), versions.end(),
                                     [](const VersionRecord& version) { return version.revision || version.state; });
    std::vector<Table::Column> columns{{"Version", Align::Right}, {"Size", Align::Right}, {"Time (UTC)"}, {"User"}};
    if (revised) {
        columns.insert(columns.end(), {{"Revision"}, {"State"}});
    }
    columns.push_back({"Comment"});
    Table table(columns);
    Json json = ToJson(context, file);
    json["versions"] = Json::array();
    for (const VersionRecord& version : versions) {
        std::vector<std::string> cells{std::to_string(version.number), SizeText(version.size), TimeText(version.time),
                                       version.user};
        if (revised) {
            cells.insert(cells.end(), {version.revision.value_or(""), version.state.value_or("")});
        }
        cells.push_back(version.comment);
        table.Add(std::move(cells));
        json["versions"].push_back({{"version", version.number},
                                    {"size", version.size},
                                    {"time", version.time},
                                    {"user", version.user},
                                    {"revision", version.revision ? Json(*version.revision) : Json(nullptr)},
                                    {"state", version.state ? Json(*version.state) : Json(nullptr)},
                                    {"comment", version.comment},
                                    {"sha256", version.content}});
    }
    if (context.json) {
        context.PrintJson(json);
        return kExitDone;
    }
    context.environment.out << VaultPathText(context.store->PathOfFile(file)) << "  file id " << file.id;
    if (file.checkOut) {
        context.environment.out << "  checked out by " << HolderText(file.checkOut) << " since "
                                << TimeText(file.checkOut->since);
    }
    context.environment.out << "\n";
    table.Print(context.environment.out);
    return kExitDone;
}

int ExportCommand(HostContext& context, const std::string& path, const std::string& target, int32_t version)
{
    const FileRecord file = context.RequireFile(path);
    const int32_t number = version > 0 ? version : file.latestVersion;
    if (!context.store->Version(file.id, number)) {
        throw UsageError(std::string("'") + VaultPathText(context.store->PathOfFile(file)) + "' has no version " +
                         std::to_string(number) + "; its versions go from 1 to " + std::to_string(file.latestVersion) +
                         ".");
    }
    fs::path to = PathOf(target);
    if (fs::is_directory(to)) {
        to /= PathOf(file.name);
    }
    context.Files().Export(file, number, to);
    if (context.json) {
        context.PrintJson(
            {{"path", VaultPathText(context.store->PathOfFile(file))}, {"version", number}, {"target", TextOf(to)}});
    } else {
        context.environment.out << "Version " << number << " of " << VaultPathText(context.store->PathOfFile(file))
                                << " written to " << TextOf(to) << "\n";
    }
    return kExitDone;
}

} // namespace tv::local
