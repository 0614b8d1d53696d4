// Data cards.
#include "vault/error_table.h"
#include "vault/vault_store.h"

namespace tv::local {

namespace {

std::vector<CardValue> ReadCard(Statement rows)
{
    std::vector<CardValue> values;
    while (rows.Next()) {
        values.push_back({rows.Int(0), rows.Text(1), {static_cast<VARTYPE>(rows.Int(2)), rows.Value(3)}});
    }
    return values;
}

} // namespace

std::vector<CardVariable> VaultStore::CardVariables()
{
    std::vector<CardVariable> variables;
    Statement rows = database.Query("SELECT id, name FROM card_variables ORDER BY id");
    while (rows.Next()) {
        variables.push_back({rows.Int(0), rows.Text(1)});
    }
    return variables;
}

int32_t VaultStore::MakeCardVariable(std::string_view name)
{
    Transaction transaction(database);
    database.Run("INSERT OR IGNORE INTO card_variables (name) VALUES (?)", name);
    Statement row = database.Query("SELECT id FROM card_variables WHERE name = ?", name);
    row.Next();
    const int32_t id = row.Int(0);
    transaction.Commit();
    return id;
}

std::optional<CardVariable> VaultStore::FindCardVariable(std::string_view name)
{
    Statement row = database.Query("SELECT id, name FROM card_variables WHERE name = ?", name);
    return row.Next() ? std::optional(CardVariable{row.Int(0), row.Text(1)}) : std::nullopt;
}

std::optional<CardVariable> VaultStore::CardVariableById(int32_t id)
{
    Statement row = database.Query("SELECT id, name FROM card_variables WHERE id = ?", id);
    return row.Next() ? std::optional(CardVariable{row.Int(0), row.Text(1)}) : std::nullopt;
}

std::vector<CardValue> VaultStore::CardValues(int32_t file, int32_t version)
{
    RequireReadable(file);
    return ReadCard(database.Query("SELECT variable, configuration, type, value FROM card_values "
                                   "WHERE file = ? AND version = ? ORDER BY variable, configuration",
                                   file, version));
}

std::vector<CardValue> VaultStore::WorkingCard(int32_t id)
{
    const FileRecord file = RequireFile(id);
    if (!file.checkOut || file.checkOut->holder != options.session) {
        return CardValues(id, file.latestVersion);
    }
    return ReadCard(database.Query(
        "SELECT variable, configuration, type, value FROM card_values WHERE file = ?1 AND version = ?3 UNION ALL "
        "SELECT variable, configuration, type, value FROM card_values v WHERE file = ?1 AND version = ?2 AND ?2 <> ?3 "
        "AND NOT EXISTS (SELECT 1 FROM card_values w WHERE w.file = ?1 AND w.version = ?3 "
        "AND w.variable = v.variable AND w.configuration = v.configuration) ORDER BY variable, configuration",
        id, file.latestVersion, WorkingVersion(file)));
}

std::vector<Result> VaultStore::WriteCards(std::span<const CardWrite> writes)
{
    std::vector<Result> results;
    Transaction transaction(database);
    for (const CardWrite& write : writes) {
        FileRecord file;
        const Outcome outcome = OutcomeOf([&] {
            file = RequireRow(write.file);
            RequireWritable(file);
            if (!CardVariableById(write.variable)) {
                Fail(kErrorVariableNotFound, "There is no card variable " + std::to_string(write.variable) + ".");
            }
        });
        results.push_back(outcome.code);
        if (outcome.code != 0) {
            continue;
        }
        database.Run("INSERT OR REPLACE INTO card_values (file, version, variable, configuration, type, value) "
                     "VALUES (?, ?, ?, ?, ?, ?)",
                     write.file, WorkingVersion(file), write.variable, std::string_view(write.configuration),
                     int32_t{write.value.type}, write.value.content);
    }
    transaction.Commit();
    return results;
}

} // namespace tv::local
