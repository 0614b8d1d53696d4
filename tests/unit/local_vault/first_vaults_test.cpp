// A vault made by the first version of this program opens and keeps everything. Its tables and rows stand here as that
// program wrote them.
#include "disk_world.h"

#include "vault/error_table.h"

#include <atomic>
#include <map>
#include <thread>

namespace tv::local {

namespace {

namespace fs = std::filesystem;

constexpr char kFirstSchema[] = R"sql(
CREATE TABLE settings (
    name TEXT PRIMARY KEY,
    value TEXT NOT NULL
);
CREATE TABLE folders (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    parent INTEGER REFERENCES folders (id),
    name TEXT NOT NULL,
    name_key TEXT NOT NULL,
    UNIQUE (parent, name_key)
);
CREATE TABLE files (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    folder INTEGER NOT NULL REFERENCES folders (id),
    name TEXT NOT NULL,
    name_key TEXT NOT NULL,
    latest_version INTEGER NOT NULL,
    UNIQUE (folder, name_key)
);
CREATE INDEX files_by_name ON files (name_key);
CREATE TABLE versions (
    file INTEGER NOT NULL REFERENCES files (id) ON DELETE CASCADE,
    number INTEGER NOT NULL,
    content TEXT NOT NULL,
    size INTEGER NOT NULL,
    time TEXT NOT NULL,
    comment TEXT NOT NULL,
    user TEXT NOT NULL,
    revision TEXT,
    state TEXT,
    PRIMARY KEY (file, number)
) WITHOUT ROWID;
CREATE INDEX versions_by_content ON versions (content);
CREATE TABLE check_outs (
    file INTEGER PRIMARY KEY REFERENCES files (id) ON DELETE CASCADE,
    user TEXT NOT NULL,
    machine TEXT NOT NULL,
    since TEXT NOT NULL,
    size INTEGER NOT NULL,
    modified INTEGER NOT NULL,
    fresh INTEGER NOT NULL
);
CREATE TABLE card_variables (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    name TEXT NOT NULL UNIQUE
);
CREATE TABLE card_values (
    file INTEGER NOT NULL REFERENCES files (id) ON DELETE CASCADE,
    version INTEGER NOT NULL,
    variable INTEGER NOT NULL REFERENCES card_variables (id) ON DELETE CASCADE,
    configuration TEXT NOT NULL,
    type INTEGER NOT NULL,
    value,
    PRIMARY KEY (file, version, variable, configuration)
) WITHOUT ROWID;
CREATE TABLE file_references (
    parent INTEGER NOT NULL REFERENCES files (id) ON DELETE CASCADE,
    parent_version INTEGER NOT NULL,
    source INTEGER NOT NULL REFERENCES files (id) ON DELETE CASCADE,
    source_version INTEGER NOT NULL,
    PRIMARY KEY (parent, parent_version, source)
) WITHOUT ROWID;
CREATE TABLE variable_names (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    name TEXT NOT NULL UNIQUE
);
CREATE TABLE tasks (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    name TEXT NOT NULL,
    name_key TEXT NOT NULL UNIQUE,
    flags INTEGER NOT NULL DEFAULT 0
);
CREATE TABLE task_variables (
    task INTEGER NOT NULL REFERENCES tasks (id) ON DELETE CASCADE,
    variable INTEGER NOT NULL REFERENCES variable_names (id),
    type INTEGER NOT NULL,
    value,
    PRIMARY KEY (task, variable)
) WITHOUT ROWID;
CREATE TABLE task_card_variables (
    task INTEGER NOT NULL REFERENCES tasks (id) ON DELETE CASCADE,
    card_variable INTEGER NOT NULL,
    type INTEGER NOT NULL,
    value,
    PRIMARY KEY (task, card_variable)
) WITHOUT ROWID;
CREATE TABLE instances (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    task INTEGER NOT NULL REFERENCES tasks (id) ON DELETE CASCADE,
    guid TEXT NOT NULL UNIQUE,
    status INTEGER NOT NULL,
    result INTEGER NOT NULL DEFAULT 0,
    message TEXT NOT NULL DEFAULT '',
    progress_lower INTEGER NOT NULL DEFAULT 0,
    progress_upper INTEGER NOT NULL DEFAULT 0,
    progress_position INTEGER NOT NULL DEFAULT 0,
    progress_text TEXT NOT NULL DEFAULT '',
    user TEXT NOT NULL,
    machine TEXT NOT NULL,
    launched TEXT NOT NULL,
    started TEXT NOT NULL DEFAULT '',
    ended TEXT NOT NULL DEFAULT '',
    host_process INTEGER NOT NULL DEFAULT 0
);
CREATE TABLE instance_variables (
    instance INTEGER NOT NULL REFERENCES instances (id) ON DELETE CASCADE,
    variable INTEGER NOT NULL REFERENCES variable_names (id),
    type INTEGER NOT NULL,
    value,
    PRIMARY KEY (instance, variable)
) WITHOUT ROWID;
CREATE TABLE instance_selection (
    instance INTEGER NOT NULL REFERENCES instances (id) ON DELETE CASCADE,
    position INTEGER NOT NULL,
    file INTEGER NOT NULL,
    folder INTEGER NOT NULL,
    path TEXT NOT NULL,
    configuration TEXT NOT NULL,
    kind INTEGER NOT NULL,
    version INTEGER NOT NULL,
    PRIMARY KEY (instance, position)
) WITHOUT ROWID;
CREATE TABLE instance_documents (
    instance INTEGER NOT NULL REFERENCES instances (id) ON DELETE CASCADE,
    position INTEGER NOT NULL,
    file INTEGER NOT NULL,
    object_type INTEGER NOT NULL,
    folder INTEGER NOT NULL,
    version INTEGER NOT NULL,
    PRIMARY KEY (instance, position)
) WITHOUT ROWID;
PRAGMA user_version = 1;
)sql";

// File 3 was deleted, and 4 was the last id that was given away.
constexpr char kFirstRows[] = R"sql(
INSERT INTO settings VALUES ('vault name', 'Old');
INSERT INTO folders VALUES (1, NULL, '', ''), (2, 1, 'Parts', 'PARTS');
INSERT INTO files VALUES (1, 2, 'bolt.tvnprt', 'BOLT.TVNPRT', 2), (2, 1, 'frame.tvnasm', 'FRAME.TVNASM', 1),
    (4, 1, 'draft.stl', 'DRAFT.STL', 1);
UPDATE sqlite_sequence SET seq = 7 WHERE name = 'files';
INSERT INTO versions VALUES
    (1, 1, '3c762c402a117c5e5b6886fc92931ef0ed2d8686d03d9230bb08e158cfcd3448', 10, '2026-01-02T03:04:05Z', 'first',
        'anna', NULL, NULL),
    (1, 2, '124101516a969b6844919772ce125802cf7772029f2211be18c35b63e9a4ce7c', 11, '2026-01-03T03:04:05Z', 'second',
        'bert', 'A', 'Released'),
    (2, 1, '9dff50df08c635815f4b19da10f756605a34a79a48d4ba48712782502975a70e', 5, '2026-01-04T03:04:05Z', '', 'anna',
        NULL, NULL),
    (4, 1, '7743ce348d9284d677a185f33295b92266cc435a5b5f775029b300066d26693a', 5, '2026-01-05T03:04:05Z', '', 'anna',
        NULL, NULL);
INSERT INTO check_outs VALUES (4, 'anna', 'bench-1', '2026-01-05T03:04:05Z', 5, 0, 1);
INSERT INTO card_variables VALUES (1, 'Number');
INSERT INTO card_values VALUES (1, 2, 1, 'Long', 8, 'A-1');
INSERT INTO file_references VALUES (2, 1, 1, 1);
INSERT INTO variable_names VALUES (1, '__type');
INSERT INTO tasks VALUES (1, 'Export STL', 'EXPORT STL', 4);
INSERT INTO task_variables VALUES (1, 1, 3, 1);
INSERT INTO instances (id, task, guid, status, user, machine, launched)
    VALUES (1, 1, '{0}', 7, 'anna', 'bench-1', '2026-01-06T03:04:05Z');
INSERT INTO instance_selection VALUES (1, 0, 1, 2, '/vault/Parts/bolt.tvnprt', '', 1, 2);
INSERT INTO instance_documents VALUES (1, 0, 2, 1, 1, 1);
)sql";

class FirstVaults : public DiskWorld
{
  protected:
    FirstVaults()
    {
        const fs::path own = Root() / ".quellor";
        fs::create_directories(own / "temp");
        fs::create_directories(own / "files");
        const auto keep = [&](const char* hash, std::string_view bytes) { WriteBytes(own / "files" / hash, bytes); };
        keep("3c762c402a117c5e5b6886fc92931ef0ed2d8686d03d9230bb08e158cfcd3448", "first bolt");
        keep("124101516a969b6844919772ce125802cf7772029f2211be18c35b63e9a4ce7c", "second bolt");
        keep("9dff50df08c635815f4b19da10f756605a34a79a48d4ba48712782502975a70e", "frame");
        keep("7743ce348d9284d677a185f33295b92266cc435a5b5f775029b300066d26693a", "draft");
        const Disk disk({});
        Database database(own / "vault.db", true, disk);
        database.Script(kFirstSchema);
        database.Script(kFirstRows);
    }

    int Version()
    {
        const Disk disk({});
        Database database(Root() / ".quellor" / "vault.db", false, disk);
        Statement row = database.Query("PRAGMA user_version");
        return row.Next() ? row.Int(0) : -1;
    }
};

TEST_F(FirstVaults, OpenAndAreOfThisVersionAfterwards)
{
    EXPECT_EQ(Version(), 1);
    EXPECT_EQ(OpenAs(kAnna)->Name(), "Old");
    EXPECT_EQ(Version(), 2);
    EXPECT_EQ(OpenAs(kAnna)->Name(), "Old");
}

TEST_F(FirstVaults, KeepTheirFilesVersionsAndBytes)
{
    const auto store = OpenAs(kAnna);
    const auto bolt = store->FindFile({"parts", "BOLT.tvnprt"});
    ASSERT_TRUE(bolt);
    EXPECT_EQ(bolt->id, 1);
    EXPECT_EQ(bolt->name, "bolt.tvnprt");
    EXPECT_EQ(bolt->latestVersion, 2);
    EXPECT_EQ(store->Version(1, 1)->comment, "first");
    EXPECT_EQ(store->Version(1, 2)->user, "bert");
    EXPECT_EQ(store->Version(1, 2)->revision, "A");
    EXPECT_EQ(store->Version(1, 2)->state, "Released");
    EXPECT_EQ(store->FilesIn(kRootFolder).size(), 2u);
    EXPECT_TRUE(store->DeletedFiles().empty());
    EXPECT_TRUE(store->Permissions().empty());
    store->Verify();
    const fs::path place = FileWork(store).Fetch(*bolt, 1);
    EXPECT_EQ(BytesOf(place), "first bolt");
}

TEST_F(FirstVaults, KeepTheirCheckOutsCardsAndReferences)
{
    const auto store = OpenAs(kAnna);
    ASSERT_TRUE(store->FileById(4)->checkOut);
    EXPECT_EQ(store->FileById(4)->checkOut->holder, kAnna);
    EXPECT_TRUE(store->FileById(4)->checkOut->fresh);
    ASSERT_EQ(store->CardValues(1, 2).size(), 1u);
    EXPECT_EQ(store->CardValues(1, 2)[0].configuration, "Long");
    EXPECT_EQ(store->CardValues(1, 2)[0].value.Display(), "A-1");
    ASSERT_EQ(store->Children(2).size(), 1u);
    EXPECT_EQ(store->Children(2)[0].file.id, 1);
    EXPECT_EQ(store->Parents(1)[0].file.id, 2);
}

TEST_F(FirstVaults, KeepTheirTasksAndInstances)
{
    const auto store = OpenAs(kAnna);
    EXPECT_EQ(store->FindTask("export stl")->id, 1);
    EXPECT_EQ(store->TaskFlags(1), 4);
    EXPECT_EQ(store->TaskVariable(1, "__type"), StoredValue::FromInt(1));
    ASSERT_EQ(store->Instances().size(), 1u);
    EXPECT_EQ(store->Instances()[0].status, 7);
    EXPECT_EQ(store->Selection(1)[0].path, "/vault/Parts/bolt.tvnprt");
    EXPECT_EQ(store->Documents(1)[0].file, 2);
}

TEST_F(FirstVaults, NeverGiveAnIdOfAFileThatIsGoneAgain)
{
    const auto store = OpenAs(kAnna);
    EXPECT_EQ(Import(*store, "new.step", "new").id, 8);
}

TEST_F(FirstVaults, NeverGiveAnIdAgainThoughTheLastOfAllFilesIsGone)
{
    {
        const Disk disk({});
        Database database(Root() / ".quellor" / "vault.db", false, disk);
        database.Script("DELETE FROM files");
    }
    const auto store = OpenAs(kAnna);
    EXPECT_EQ(Import(*store, "new.step", "new").id, 8);
}

TEST_F(FirstVaults, TakeEverythingThatIsNew)
{
    const auto store = OpenAs(kAnna);
    FileWork work(store);
    work.UndoCheckOut(4);
    work.Delete(1);
    EXPECT_EQ(store->DeletedFiles().size(), 1u);
    EXPECT_TRUE(store->Children(2)[0].deleted);
    EXPECT_GT(Import(*store, "bolt.tvnprt", "new bolt", {"Parts"}).id, 7);
    store->Permit(2, "bert", {1});
    EXPECT_EQ(OpenAs(kBert)->RightsIn(2).bits, 1u);
    store->PurgeFile(1);
    EXPECT_TRUE(store->Children(2).empty());
    store->Verify();
}

TEST_F(FirstVaults, LookLikeVaultsOfThisVersionAfterwards)
{
    const auto tablesOf = [](const fs::path& root) {
        const Disk disk({});
        Database database(root / ".quellor" / "vault.db", false, disk);
        std::map<std::string, std::string> tables;
        Statement rows = database.Query("SELECT name, sql FROM sqlite_schema WHERE sql IS NOT NULL");
        while (rows.Next()) {
            std::string sql = rows.Text(1);
            std::erase(sql, '"');
            tables[rows.Text(0)] = sql;
        }
        return tables;
    };
    OpenAs(kAnna);
    VaultStore::Create(Folder("new"), "New", OptionsOf(kAnna));
    EXPECT_EQ(tablesOf(Root()), tablesOf(Folder("new")));
}

TEST_F(FirstVaults, AreBroughtForwardOnceThoughSeveralOpenThem)
{
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] { failures += CodeOf([&] { OpenAs(kAnna)->Verify(); }) == 0 ? 0 : 1; });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(failures, 0);
    EXPECT_EQ(Version(), 2);
}

TEST_F(FirstVaults, WhoseTablesDoNotAgreeAreLeftAsTheyAre)
{
    {
        const Disk disk({});
        Database database(Root() / ".quellor" / "vault.db", false, disk);
        database.Script("PRAGMA foreign_keys=OFF; INSERT INTO file_references VALUES (2, 1, 99, 1)");
    }
    EXPECT_EQ(CodeOf([&] { OpenAs(kAnna); }), kErrorDatabaseAccess);
    EXPECT_EQ(Version(), 1);
}

} // namespace

} // namespace tv::local
