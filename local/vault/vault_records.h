// What the vault keeps, as plain records.
#pragma once

#include "vault/disk.h"
#include "vault/permission.h"
#include "vault/stored_value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tv::local {

/// Who works with the vault, and where. A check-out belongs to both together.
struct Session
{
    std::string user;
    std::string machine;

    bool operator==(const Session&) const = default;
};

/// The user and the machine of this process.
Session CurrentSession();

inline constexpr int32_t kRootFolder = 1;

struct FolderRecord
{
    int32_t id = 0;
    int32_t parent = 0; ///< 0 for the root
    std::string name;   ///< empty for the root
};

struct CheckOutRecord
{
    Session holder;
    std::string since;
    /// The local copy as it was handed out.
    FileStamp handedOut;
    /// The file was added and has never been checked in: its version 1 isn't final yet.
    bool fresh = false;

    bool operator==(const CheckOutRecord&) const = default;
};

struct FileRecord
{
    int32_t id = 0;
    int32_t folder = 0;
    std::string name;
    int32_t latestVersion = 0;
    std::optional<CheckOutRecord> checkOut;
};

struct VersionRecord
{
    int32_t number = 0;
    std::string content; ///< hash of the bytes
    int64_t size = 0;
    std::string time; ///< UTC, "2026-11-21T01:40:05Z"
    std::string comment;
    std::string user;
    std::optional<std::string> revision;
    std::optional<std::string> state;
};

/// A file that was deleted: it is in no folder any more, and kept with all its versions until it is purged.
struct DeletedRecord
{
    FileRecord file; ///< its folder is the one that it was in
    Session deletedBy;
    std::string deletedAt;
};

/// One row of the table of permissions.
struct PermissionRecord
{
    int32_t folder = 0;
    std::string user; ///< or "*"
    Rights rights;
};

struct ReferenceRecord
{
    int32_t sourceFile = 0;
    int32_t sourceVersion = 0; ///< the version that the parent was built with
};

/// One end of a reference as a person sees it.
struct ReferenceView
{
    /// The file at the other end: the child of a parent or the parent of a child. Its latestVersion is the latest.
    FileRecord file;
    /// Version of the child that the parent was built with.
    int32_t asBuilt = 0;
    /// Version of the parent that holds the reference.
    int32_t parentVersion = 0;
    /// The file at the other end was deleted since.
    bool deleted = false;
};

struct CardVariable
{
    int32_t id = 0;
    std::string name;
};

struct CardValue
{
    int32_t variable = 0;
    std::string configuration;
    StoredValue value;
};

/// One value to be written into a card.
struct CardWrite
{
    int32_t file = 0;
    int32_t variable = 0;
    std::string configuration;
    StoredValue value;
};

struct TaskRecord
{
    int32_t id = 0;
    std::string name;
};

struct NamedValue
{
    std::string name;
    StoredValue value;
};

/// Status of a task instance. The numbers 3 and up are those that the add-in uses.
enum class TaskStatus : int32_t
{
    Launching = 0,
    Waiting = 1,
    Running = 3,
    Suspended = 5,
    CancelRequested = 6,
    Finished = 7,
    Cancelled = 8,
    Failed = 9,
    SuspendRequested = 10,
    ResumeRequested = 11,
};

std::string_view StatusWord(int32_t status);

struct Progress
{
    int32_t lower = 0;
    int32_t upper = 0;
    int32_t position = 0;
    std::string text;
};

struct InstanceRecord
{
    int32_t id = 0;
    int32_t task = 0;
    std::string taskName;
    std::string guid;
    int32_t status = 0;
    int32_t result = 0;
    std::string message;
    Progress progress;
    Session launchedBy;
    std::string launched;
    std::string started; ///< empty before the run
    std::string ended;   ///< empty until the run has ended
    int32_t hostProcess = 0;
};

/// One file or folder that a task was launched on.
struct SelectionItem
{
    int32_t file = 0; ///< 0 for a folder
    int32_t folder = 0;
    std::string path; ///< full path in the local view
    std::string configuration;
    int32_t kind = 1; ///< 1 file, 2 folder
    int32_t version = 0;

    bool operator==(const SelectionItem&) const = default;
};

struct DocumentItem
{
    int32_t file = 0;
    int32_t objectType = 1;
    int32_t folder = 0;
    int32_t version = 0;

    bool operator==(const DocumentItem&) const = default;
};

} // namespace tv::local
