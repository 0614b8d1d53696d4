// Task definitions and their variables.
#include "vault/error_table.h"
#include "vault/text.h"
#include "vault/vault_store.h"

namespace tv::local {

namespace {

StoredValue ReadValue(const Statement& row, int typeColumn)
{
    return {static_cast<VARTYPE>(row.Int(typeColumn)), row.Value(typeColumn + 1)};
}

} // namespace

int32_t VaultStore::IdentifierOf(std::string_view variable)
{
    database.Run("INSERT OR IGNORE INTO variable_names (name) VALUES (?)", variable);
    return *VariableIdentifier(variable);
}

std::optional<int32_t> VaultStore::VariableIdentifier(std::string_view name)
{
    Statement row = database.Query("SELECT id FROM variable_names WHERE name = ?", name);
    return row.Next() ? std::optional(row.Int(0)) : std::nullopt;
}

std::optional<std::string> VaultStore::VariableName(int32_t identifier)
{
    Statement row = database.Query("SELECT name FROM variable_names WHERE id = ?", identifier);
    return row.Next() ? std::optional(row.Text(0)) : std::nullopt;
}

void VaultStore::PutTaskVariable(int32_t task, const NamedValue& variable)
{
    database.Run("INSERT OR REPLACE INTO task_variables (task, variable, type, value) VALUES (?, ?, ?, ?)", task,
                 IdentifierOf(variable.name), int32_t{variable.value.type}, variable.value.content);
}

TaskRecord VaultStore::MakeTask(std::string_view name, std::span<const NamedValue> variables)
{
    if (name.empty()) {
        Fail(kErrorInvalidName, "A task needs a name.");
    }
    Transaction transaction(database);
    if (FindTask(name)) {
        Fail(kErrorNameAlreadyExists, "There is a task '" + std::string(name) + "' already.");
    }
    database.Run("INSERT INTO tasks (name, name_key) VALUES (?, ?)", name, std::string_view(FoldName(name)));
    const TaskRecord task{static_cast<int32_t>(database.LastId()), std::string(name)};
    for (const NamedValue& variable : variables) {
        PutTaskVariable(task.id, variable);
    }
    transaction.Commit();
    return task;
}

std::vector<TaskRecord> VaultStore::Tasks()
{
    std::vector<TaskRecord> tasks;
    Statement rows = database.Query("SELECT id, name FROM tasks ORDER BY name_key");
    while (rows.Next()) {
        tasks.push_back({rows.Int(0), rows.Text(1)});
    }
    return tasks;
}

std::optional<TaskRecord> VaultStore::FindTask(std::string_view name)
{
    Statement row = database.Query("SELECT id, name FROM tasks WHERE name_key = ?", std::string_view(FoldName(name)));
    return row.Next() ? std::optional(TaskRecord{row.Int(0), row.Text(1)}) : std::nullopt;
}

std::optional<StoredValue> VaultStore::TaskVariable(int32_t task, std::string_view name)
{
    Statement row = database.Query("SELECT v.type, v.value FROM task_variables v JOIN variable_names n "
                                   "ON n.id = v.variable WHERE v.task = ? AND n.name = ?",
                                   task, name);
    return row.Next() ? std::optional(ReadValue(row, 0)) : std::nullopt;
}

void VaultStore::SetTaskVariables(int32_t task, std::span<const NamedValue> variables)
{
    Transaction transaction(database);
    for (const NamedValue& variable : variables) {
        PutTaskVariable(task, variable);
    }
    transaction.Commit();
}

std::vector<NamedValue> VaultStore::TaskVariables(int32_t task)
{
    std::vector<NamedValue> variables;
    Statement rows = database.Query("SELECT n.name, v.type, v.value FROM task_variables v JOIN variable_names n "
                                    "ON n.id = v.variable WHERE v.task = ? ORDER BY n.name",
                                    task);
    while (rows.Next()) {
        variables.push_back({rows.Text(0), ReadValue(rows, 1)});
    }
    return variables;
}

std::optional<StoredValue> VaultStore::TaskCardVariable(int32_t task, int32_t variable)
{
    Statement row = database.Query("SELECT type, value FROM task_card_variables WHERE task = ? AND card_variable = ?",
                                   task, variable);
    return row.Next() ? std::optional(ReadValue(row, 0)) : std::nullopt;
}

void VaultStore::SetTaskCardVariable(int32_t task, int32_t variable, const StoredValue& value)
{
    Transaction transaction(database);
    database.Run("INSERT OR REPLACE INTO task_card_variables (task, card_variable, type, value) VALUES (?, ?, ?, ?)",
                 task, variable, int32_t{value.type}, value.content);
    transaction.Commit();
}

void VaultStore::SetTaskFlags(int32_t task, int32_t flags)
{
    Transaction transaction(database);
    database.Run("UPDATE tasks SET flags = ? WHERE id = ?", flags, task);
    transaction.Commit();
}

int32_t VaultStore::TaskFlags(int32_t task)
{
    Statement row = database.Query("SELECT flags FROM tasks WHERE id = ?", task);
    return row.Next() ? row.Int(0) : 0;
}

} // namespace tv::local
