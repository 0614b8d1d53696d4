#pragma once

namespace tv::local {

/// Version of the tables below, kept in the database file.
inline constexpr int kSchemaVersion = 2;

// Ids are never used twice, so that a file that replaces another of its name is a new file to everybody.
inline constexpr char kSchema[] = R"sql(
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
    deleted_at TEXT,
    deleted_by TEXT,
    deleted_on TEXT
);
CREATE UNIQUE INDEX files_by_folder ON files (folder, name_key) WHERE deleted_at IS NULL;
CREATE INDEX files_by_name ON files (name_key) WHERE deleted_at IS NULL;
CREATE INDEX files_deleted ON files (folder, name_key, deleted_at) WHERE deleted_at IS NOT NULL;
CREATE TABLE permissions (
    folder INTEGER NOT NULL REFERENCES folders (id) ON DELETE CASCADE,
    user TEXT NOT NULL,
    user_key TEXT NOT NULL,
    rights INTEGER NOT NULL,
    PRIMARY KEY (folder, user_key)
) WITHOUT ROWID;
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
CREATE INDEX file_references_by_source ON file_references (source);
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
)sql";

// From version 1, where a deleted file was gone at once and everything was permitted. The table of files is made anew,
// because its names were unique even among deleted files. The count of ids goes along: an id of a file that is gone
// must not come back.
inline constexpr char kMigrationTo2[] = R"sql(
CREATE TABLE files_2 (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    folder INTEGER NOT NULL REFERENCES folders (id),
    name TEXT NOT NULL,
    name_key TEXT NOT NULL,
    latest_version INTEGER NOT NULL,
    deleted_at TEXT,
    deleted_by TEXT,
    deleted_on TEXT
);
INSERT INTO files_2 (id, folder, name, name_key, latest_version)
    SELECT id, folder, name, name_key, latest_version FROM files;
DELETE FROM sqlite_sequence WHERE name = 'files_2';
INSERT INTO sqlite_sequence (name, seq) SELECT 'files_2', seq FROM sqlite_sequence WHERE name = 'files';
DROP TABLE files;
ALTER TABLE files_2 RENAME TO files;
CREATE UNIQUE INDEX files_by_folder ON files (folder, name_key) WHERE deleted_at IS NULL;
CREATE INDEX files_by_name ON files (name_key) WHERE deleted_at IS NULL;
CREATE INDEX files_deleted ON files (folder, name_key, deleted_at) WHERE deleted_at IS NOT NULL;
CREATE TABLE permissions (
    folder INTEGER NOT NULL REFERENCES folders (id) ON DELETE CASCADE,
    user TEXT NOT NULL,
    user_key TEXT NOT NULL,
    rights INTEGER NOT NULL,
    PRIMARY KEY (folder, user_key)
) WITHOUT ROWID;
CREATE INDEX file_references_by_source ON file_references (source);
)sql";

} // namespace tv::local
