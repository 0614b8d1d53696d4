#include "vault/vault_store.h"

#include "vault/error_table.h"
#include "vault/schema.h"
#include "vault/text.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <random>

namespace tv::local {

namespace fs = std::filesystem;

namespace {

constexpr auto kTemporaryLifetime = std::chrono::hours(24);

std::string UtcNow()
{
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
#ifdef _WIN32
    gmtime_s(&parts, &now);
#else
    gmtime_r(&now, &parts);
#endif
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
    return text;
}

fs::path PrivateFolder(const fs::path& root)
{
    return root / PathOf(kPrivateFolder);
}

fs::path DatabaseFile(const fs::path& root)
{
    return PrivateFolder(root) / "vault.db";
}

fs::path ContentFolder(const fs::path& root)
{
    return PrivateFolder(root) / "files";
}

fs::path TemporaryFolder(const fs::path& root)
{
    return PrivateFolder(root) / "temp";
}

/// The full path without a trailing separator, so that names can be appended and prefixes compared.
fs::path NormalRoot(const fs::path& given)
{
    fs::path full = fs::absolute(given).lexically_normal().make_preferred();
    return full.has_filename() || full == full.root_path() ? full : full.parent_path();
}

int SchemaVersionOf(Database& database)
{
    Statement version = database.Query("PRAGMA user_version");
    return version.Next() ? version.Int(0) : 0;
}

FolderRecord ReadFolder(const Statement& row)
{
    return {row.Int(0), row.Int(1), row.Text(2)};
}

constexpr char kFileColumns[] =
    "SELECT f.id, f.folder, f.name, f.latest_version, c.user, c.machine, c.since, c.size, c.modified, c.fresh "
    "FROM files f LEFT JOIN check_outs c ON c.file = f.id WHERE f.deleted_at IS NULL ";

FileRecord ReadFile(const Statement& row)
{
    FileRecord file{row.Int(0), row.Int(1), row.Text(2), row.Int(3), std::nullopt};
    if (!row.IsNull(4)) {
        file.checkOut =
            CheckOutRecord{{row.Text(4), row.Text(5)}, row.Text(6), {row.Int64(7), row.Int64(8)}, row.Int(9) != 0};
    }
    return file;
}

std::vector<FileRecord> ReadFiles(Statement rows)
{
    std::vector<FileRecord> files;
    while (rows.Next()) {
        files.push_back(ReadFile(rows));
    }
    return files;
}

std::optional<FileRecord> FirstFile(Statement rows)
{
    return rows.Next() ? std::optional(ReadFile(rows)) : std::nullopt;
}

} // namespace

std::shared_ptr<VaultStore> VaultStore::Create(const fs::path& givenRoot, std::string_view name, StoreOptions options)
{
    const fs::path root = NormalRoot(givenRoot);
    const Disk disk(options.beforeWrite);
    disk.MakeFolders(root);
    disk.MakeFolders(ContentFolder(root));
    disk.MakeFolders(TemporaryFolder(root));
    auto store = std::make_shared<VaultStore>(root, true, std::move(options));
    Transaction transaction(store->database);
    if (SchemaVersionOf(store->database) != 0) {
        Fail(kErrorNameAlreadyExists, "There is a vault in '" + TextOf(root) + "' already.");
    }
    store->database.Script(kSchema);
    store->database.Run("INSERT INTO settings (name, value) VALUES ('vault name', ?)", name);
    store->database.Run("INSERT INTO folders (id, parent, name, name_key) VALUES (?, NULL, '', '')", kRootFolder);
    store->database.Script(("PRAGMA user_version = " + std::to_string(kSchemaVersion)).c_str());
    transaction.Commit();
    return store;
}

std::shared_ptr<VaultStore> VaultStore::Open(const fs::path& givenRoot, StoreOptions options)
{
    const fs::path root = NormalRoot(givenRoot);
    if (!Disk::IsFile(DatabaseFile(root))) {
        Fail(kErrorDatabaseAccess, "There is no vault in '" + TextOf(root) + "'.");
    }
    auto store = std::make_shared<VaultStore>(root, false, std::move(options));
    const int version = SchemaVersionOf(store->database);
    if (version == 0) {
        Fail(kErrorDatabaseAccess, "The vault in '" + TextOf(root) + "' was never finished.");
    }
    if (version > kSchemaVersion) {
        Fail(kErrorVersionMismatch, "The vault in '" + TextOf(root) + "' was made by a later version of this program.");
    }
    if (version < kSchemaVersion) {
        store->Migrate();
    }
    store->RemoveStaleTemporaries();
    return store;
}

void VaultStore::Migrate()
{
    // A table that others refer to can be made anew only while nobody minds the references.
    database.Script("PRAGMA foreign_keys=OFF");
    Transaction transaction(database);
    // Another program may have done it while this one waited.
    if (SchemaVersionOf(database) == 1) {
        database.Script(kMigrationTo2);
        if (database.Query("PRAGMA foreign_key_check").Next()) {
            Fail(kErrorDatabaseAccess, "The vault in '" + TextOf(root) +
                                           "' can't be brought to this program's form: its tables don't agree.");
        }
        database.Script(("PRAGMA user_version = " + std::to_string(kSchemaVersion)).c_str());
    }
    transaction.Commit();
    database.Script("PRAGMA foreign_keys=ON");
}

bool VaultStore::Exists(const fs::path& root)
{
    return Disk::IsFile(DatabaseFile(NormalRoot(root)));
}

int VaultStore::SchemaVersion(const fs::path& givenRoot, StoreOptions options)
{
    VaultStore store(NormalRoot(givenRoot), false, std::move(options));
    return SchemaVersionOf(store.database);
}

std::vector<fs::path> VaultStore::Folders(const fs::path& givenRoot)
{
    const fs::path root = NormalRoot(givenRoot);
    return {root, PrivateFolder(root), ContentFolder(root), TemporaryFolder(root)};
}

VaultStore::VaultStore(const fs::path& rootFolder, bool create, StoreOptions given)
    : root(rootFolder), options(std::move(given)), disk(options.beforeWrite),
      database(DatabaseFile(rootFolder), create, disk, options.patience)
{
    if (!options.now) {
        options.now = UtcNow;
    }
}

void VaultStore::RemoveStaleTemporaries()
{
    std::error_code error;
    const auto oldest = fs::file_time_type::clock::now() - kTemporaryLifetime;
    for (const fs::directory_entry& entry : fs::directory_iterator(TemporaryFolder(root), error)) {
        // One that can't be removed, or that another program removes just now, is no reason to keep the vault shut.
        (void)AtBoundary([&] {
            if (fs::last_write_time(entry.path(), error) < oldest && !error) {
                disk.Remove(entry.path());
            }
            return 0;
        });
    }
}

std::string VaultStore::Name()
{
    Statement row = database.Query("SELECT value FROM settings WHERE name = 'vault name'");
    return row.Next() ? row.Text(0) : std::string();
}

std::optional<FolderRecord> VaultStore::ChildFolder(int32_t parent, std::string_view name)
{
    Statement row = database.Query("SELECT id, parent, name FROM folders WHERE parent = ? AND name_key = ?", parent,
                                   std::string_view(FoldName(name)));
    return row.Next() ? std::optional(ReadFolder(row)) : std::nullopt;
}

std::optional<FolderRecord> VaultStore::FindFolder(const VaultPath& path)
{
    std::optional<FolderRecord> folder = FolderById(kRootFolder);
    for (const std::string& name : path) {
        folder = ChildFolder(folder->id, name);
        if (!folder) {
            break;
        }
    }
    return folder;
}

std::optional<FolderRecord> VaultStore::FolderById(int32_t id)
{
    Statement row = database.Query("SELECT id, parent, name FROM folders WHERE id = ?", id);
    return row.Next() ? std::optional(ReadFolder(row)) : std::nullopt;
}

std::optional<FileRecord> VaultStore::FileIn(int32_t folder, std::string_view name)
{
    return FirstFile(database.Query(std::string(kFileColumns) + "AND f.folder = ? AND f.name_key = ?", folder,
                                    std::string_view(FoldName(name))));
}

std::optional<FileRecord> VaultStore::FindFile(const VaultPath& path)
{
    if (path.empty()) {
        return std::nullopt;
    }
    const auto folder = FindFolder(VaultPath(path.begin(), path.end() - 1));
    if (!folder) {
        return std::nullopt;
    }
    RequireRight(folder->id, Right::Read);
    return FileIn(folder->id, path.back());
}

std::optional<FileRecord> VaultStore::FileRow(int32_t id)
{
    return FirstFile(database.Query(std::string(kFileColumns) + "AND f.id = ?", id));
}

std::optional<FileRecord> VaultStore::FileById(int32_t id)
{
    auto file = FileRow(id);
    if (file) {
        RequireRight(file->folder, Right::Read);
    }
    return file;
}

FileRecord VaultStore::RequireRow(int32_t id)
{
    if (auto file = FileRow(id)) {
        return *file;
    }
    if (const auto deleted = DeletedFile(id)) {
        Fail(kErrorFileDeleted, "'" + VaultPathText(PathOfFile(deleted->file)) + "' was deleted by " +
                                    deleted->deletedBy.user + " at " + deleted->deletedAt + ".");
    }
    Fail(kErrorFileNotFound, "The vault has no file with the id " + std::to_string(id) + ".");
}

FileRecord VaultStore::RequireFile(int32_t id)
{
    FileRecord file = RequireRow(id);
    RequireRight(file.folder, Right::Read);
    return file;
}

std::vector<FileRecord> VaultStore::FilesNamed(std::string_view name)
{
    auto files = ReadFiles(database.Query(std::string(kFileColumns) + "AND f.name_key = ? ORDER BY f.id",
                                          std::string_view(FoldName(name))));
    std::erase_if(files, [&](const FileRecord& file) { return !RightsIn(file.folder).Has(Right::Read); });
    return files;
}

std::vector<FolderRecord> VaultStore::SubFolders(int32_t folder)
{
    std::vector<FolderRecord> folders;
    Statement rows = database.Query("SELECT id, parent, name FROM folders WHERE parent = ? ORDER BY name_key", folder);
    while (rows.Next()) {
        folders.push_back(ReadFolder(rows));
    }
    std::erase_if(folders, [&](const FolderRecord& child) { return !RightsIn(child.id).Has(Right::Read); });
    return folders;
}

std::vector<FileRecord> VaultStore::FilesIn(int32_t folder)
{
    RequireRight(folder, Right::Read);
    return ReadFiles(database.Query(std::string(kFileColumns) + "AND f.folder = ? ORDER BY f.name_key", folder));
}

VaultPath VaultStore::PathOfFolder(int32_t folder)
{
    VaultPath path;
    for (auto record = FolderById(folder); record && record->id != kRootFolder; record = FolderById(record->parent)) {
        path.insert(path.begin(), record->name);
    }
    return path;
}

VaultPath VaultStore::PathOfFile(const FileRecord& file)
{
    VaultPath path = PathOfFolder(file.folder);
    path.push_back(file.name);
    return path;
}

/// Makes what is missing of the path. All that can be refused is refused before the first folder is made.
FolderRecord VaultStore::FolderOf(const VaultPath& path)
{
    std::for_each(path.begin(), path.end(), CheckName);
    FolderRecord folder = *FolderById(kRootFolder);
    auto name = path.begin();
    for (; name != path.end(); ++name) {
        const auto child = ChildFolder(folder.id, *name);
        if (!child) {
            break;
        }
        folder = *child;
    }
    if (name == path.end()) {
        return folder;
    }
    RequireRight(folder.id, Right::Add);
    if (FileIn(folder.id, *name)) {
        Fail(kErrorNameAlreadyExists, "'" + VaultPathText(path) + "' can't be a folder: '" + *name + "' is a file.");
    }
    for (; name != path.end(); ++name) {
        database.Run("INSERT INTO folders (parent, name, name_key) VALUES (?, ?, ?)", folder.id,
                     std::string_view(*name), std::string_view(FoldName(*name)));
        folder = {static_cast<int32_t>(database.LastId()), folder.id, *name};
    }
    return folder;
}

FolderRecord VaultStore::MakeFolder(const VaultPath& path)
{
    if (const auto present = FindFolder(path)) {
        return *present;
    }
    Transaction transaction(database);
    const FolderRecord folder = FolderOf(path);
    transaction.Commit();
    return folder;
}

fs::path VaultStore::PathOfContent(std::string_view hash) const
{
    return ContentFolder(root) / PathOf(hash);
}

fs::path VaultStore::ContentPath(const VersionRecord& version) const
{
    return PathOfContent(version.content);
}

void VaultStore::FlushContents() const
{
    disk.FlushFolder(ContentFolder(root));
}

fs::path VaultStore::TemporaryPath()
{
    static thread_local std::mt19937_64 random{std::random_device{}()};
    char name[24];
    std::snprintf(name, sizeof name, "%016llx.tmp", static_cast<unsigned long long>(random()));
    return TemporaryFolder(root) / name;
}

} // namespace tv::local
