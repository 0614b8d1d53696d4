// Task instances: what was launched, how far it is, how it ended.
#include "vault/error_table.h"
#include "vault/guid_text.h"
#include "vault/vault_store.h"

namespace tv::local {

namespace {

constexpr char kInstanceColumns[] =
    "SELECT i.id, i.task, t.name, i.guid, i.status, i.result, i.message, i.progress_lower, i.progress_upper, "
    "i.progress_position, i.progress_text, i.user, i.machine, i.launched, i.started, i.ended, i.host_process "
    "FROM instances i JOIN tasks t ON t.id = i.task ";

InstanceRecord ReadInstance(const Statement& row)
{
    InstanceRecord instance;
    instance.id = row.Int(0);
    instance.task = row.Int(1);
    instance.taskName = row.Text(2);
    instance.guid = row.Text(3);
    instance.status = row.Int(4);
    instance.result = row.Int(5);
    instance.message = row.Text(6);
    instance.progress = {row.Int(7), row.Int(8), row.Int(9), row.Text(10)};
    instance.launchedBy = {row.Text(11), row.Text(12)};
    instance.launched = row.Text(13);
    instance.started = row.Text(14);
    instance.ended = row.Text(15);
    instance.hostProcess = row.Int(16);
    return instance;
}

bool IsEnd(int32_t status)
{
    return status == static_cast<int32_t>(TaskStatus::Finished) ||
           status == static_cast<int32_t>(TaskStatus::Cancelled) || status == static_cast<int32_t>(TaskStatus::Failed);
}

struct StatusName
{
    TaskStatus status;
    std::string_view word;
};

constexpr StatusName kStatusNames[] = {
    {TaskStatus::Launching, "launching"},
    {TaskStatus::Waiting, "waiting"},
    {TaskStatus::Running, "running"},
    {TaskStatus::Suspended, "suspended"},
    {TaskStatus::CancelRequested, "cancel requested"},
    {TaskStatus::Finished, "finished"},
    {TaskStatus::Cancelled, "cancelled"},
    {TaskStatus::Failed, "failed"},
    {TaskStatus::SuspendRequested, "suspend requested"},
    {TaskStatus::ResumeRequested, "resume requested"},
};

} // namespace

std::string_view StatusWord(int32_t status)
{
    for (const StatusName& row : kStatusNames) {
        if (static_cast<int32_t>(row.status) == status) {
            return row.word;
        }
    }
    return "unknown";
}

InstanceRecord VaultStore::MakeInstance(int32_t task)
{
    Transaction transaction(database);
    database.Run("INSERT INTO instances (task, guid, status, user, machine, launched) VALUES (?, ?, ?, ?, ?, ?)", task,
                 std::string_view(NewGuidText()), static_cast<int32_t>(TaskStatus::Launching),
                 std::string_view(options.session.user), std::string_view(options.session.machine),
                 std::string_view(Now()));
    const InstanceRecord instance = *Instance(static_cast<int32_t>(database.LastId()));
    transaction.Commit();
    return instance;
}

std::optional<InstanceRecord> VaultStore::Instance(int32_t id)
{
    Statement row = database.Query(std::string(kInstanceColumns) + "WHERE i.id = ?", id);
    return row.Next() ? std::optional(ReadInstance(row)) : std::nullopt;
}

std::vector<InstanceRecord> VaultStore::Instances()
{
    std::vector<InstanceRecord> instances;
    Statement rows = database.Query(std::string(kInstanceColumns) + "ORDER BY i.id");
    while (rows.Next()) {
        instances.push_back(ReadInstance(rows));
    }
    return instances;
}

void VaultStore::RemoveInstance(int32_t id)
{
    Transaction transaction(database);
    database.Run("DELETE FROM instances WHERE id = ?", id);
    transaction.Commit();
}

std::optional<StoredValue> VaultStore::InstanceVariable(int32_t instance, std::string_view name)
{
    Statement own = database.Query("SELECT v.type, v.value FROM instance_variables v JOIN variable_names n "
                                   "ON n.id = v.variable WHERE v.instance = ? AND n.name = ?",
                                   instance, name);
    if (own.Next()) {
        return StoredValue{static_cast<VARTYPE>(own.Int(0)), own.Value(1)};
    }
    const auto record = Instance(instance);
    return record ? TaskVariable(record->task, name) : std::nullopt;
}

void VaultStore::SetInstanceVariable(int32_t instance, std::string_view name, const StoredValue& value)
{
    Transaction transaction(database);
    database.Run("INSERT OR REPLACE INTO instance_variables (instance, variable, type, value) VALUES (?, ?, ?, ?)",
                 instance, IdentifierOf(name), int32_t{value.type}, value.content);
    transaction.Commit();
}

std::vector<SelectionItem> VaultStore::Selection(int32_t instance)
{
    std::vector<SelectionItem> items;
    Statement rows = database.Query("SELECT file, folder, path, configuration, kind, version FROM instance_selection "
                                    "WHERE instance = ? ORDER BY position",
                                    instance);
    while (rows.Next()) {
        items.push_back({rows.Int(0), rows.Int(1), rows.Text(2), rows.Text(3), rows.Int(4), rows.Int(5)});
    }
    return items;
}

void VaultStore::FinishLaunch(int32_t instance, std::span<const SelectionItem> selection)
{
    Transaction transaction(database);
    database.Run("DELETE FROM instance_selection WHERE instance = ?", instance);
    int32_t position = 0;
    for (const SelectionItem& item : selection) {
        database.Run(
            "INSERT INTO instance_selection (instance, position, file, folder, path, configuration, kind, version) "
            "VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
            instance, position++, item.file, item.folder, std::string_view(item.path),
            std::string_view(item.configuration), item.kind, item.version);
    }
    database.Run("UPDATE instances SET status = ? WHERE id = ?", static_cast<int32_t>(TaskStatus::Waiting), instance);
    transaction.Commit();
}

bool VaultStore::BeginRun(const InstanceRecord& seen, int32_t hostProcess)
{
    Transaction transaction(database);
    const int64_t taken = database.Run(
        "UPDATE instances SET status = ?, result = 0, message = '', progress_lower = 0, progress_upper = 0, "
        "progress_position = 0, progress_text = '', started = ?, ended = '', host_process = ? "
        "WHERE id = ? AND status = ? AND host_process = ?",
        static_cast<int32_t>(TaskStatus::Running), std::string_view(Now()), hostProcess, seen.id, seen.status,
        seen.hostProcess);
    if (taken == 0) {
        return false;
    }
    database.Run("DELETE FROM instance_documents WHERE instance = ?", seen.id);
    transaction.Commit();
    return true;
}

void VaultStore::SetStatus(int32_t instance, int32_t status, int32_t result, std::string_view message,
                           std::span<const DocumentItem> documents)
{
    Transaction transaction(database);
    database.Run("UPDATE instances SET status = ?, result = ?, message = ? WHERE id = ?", status, result, message,
                 instance);
    if (IsEnd(status)) {
        database.Run("UPDATE instances SET ended = ?, host_process = 0 WHERE id = ?", std::string_view(Now()),
                     instance);
        database.Run("DELETE FROM instance_documents WHERE instance = ?", instance);
    }
    int32_t position = 0;
    for (const DocumentItem& item : documents) {
        database.Run(
            "INSERT OR REPLACE INTO instance_documents (instance, position, file, object_type, folder, version) "
            "VALUES (?, ?, ?, ?, ?, ?)",
            instance, position++, item.file, item.objectType, item.folder, item.version);
    }
    transaction.Commit();
}

std::vector<DocumentItem> VaultStore::Documents(int32_t instance)
{
    std::vector<DocumentItem> items;
    Statement rows = database.Query("SELECT file, object_type, folder, version FROM instance_documents "
                                    "WHERE instance = ? ORDER BY position",
                                    instance);
    while (rows.Next()) {
        items.push_back({rows.Int(0), rows.Int(1), rows.Int(2), rows.Int(3)});
    }
    return items;
}

void VaultStore::SetProgressRange(int32_t instance, int32_t lower, int32_t upper, std::string_view text)
{
    Transaction transaction(database);
    database.Run(
        "UPDATE instances SET progress_lower = ?, progress_upper = ?, progress_position = ?, progress_text = ? "
        "WHERE id = ?",
        lower, upper, lower, text, instance);
    transaction.Commit();
}

void VaultStore::SetProgressPosition(int32_t instance, int32_t position, std::string_view text)
{
    Transaction transaction(database);
    database.Run("UPDATE instances SET progress_position = ?, progress_text = ? WHERE id = ?", position, text,
                 instance);
    transaction.Commit();
}

} // namespace tv::local
