// Data cards and references between files.
#include "vault/error_table.h"
#include "vault/vault_store.h"

namespace tv::local {

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

std::vector<CardValue> VaultStore::CardValues(int32_t file, int32_t version)
{
    std::vector<CardValue> values;
    Statement rows = database.Query("SELECT variable, configuration, type, value FROM card_values "
                                    "WHERE file = ? AND version = ? ORDER BY variable, configuration",
                                    file, version);
    while (rows.Next()) {
        values.push_back({rows.Int(0), rows.Text(1), {static_cast<VARTYPE>(rows.Int(2)), rows.Value(3)}});
    }
    return values;
}

std::vector<Result> VaultStore::WriteCards(std::span<const CardWrite> writes)
{
    std::vector<Result> results;
    Transaction transaction(database);
    for (const CardWrite& write : writes) {
        const auto file = FileById(write.file);
        if (!file) {
            results.push_back(kErrorFileNotFound);
            continue;
        }
        if (!database.Query("SELECT 1 FROM card_variables WHERE id = ?", write.variable).Next()) {
            results.push_back(kErrorVariableNotFound);
            continue;
        }
        database.Run("INSERT OR REPLACE INTO card_values (file, version, variable, configuration, type, value) "
                     "VALUES (?, ?, ?, ?, ?, ?)",
                     write.file, WorkingVersion(*file), write.variable, std::string_view(write.configuration),
                     int32_t{write.value.type}, write.value.content);
        results.push_back(0);
    }
    transaction.Commit();
    return results;
}

void VaultStore::AddReferences(int32_t parent, std::span<const ReferenceRecord> references)
{
    Transaction transaction(database);
    const auto file = FileById(parent);
    if (!file) {
        Fail(kErrorFileNotFound, "The vault has no file with the id " + std::to_string(parent) + ".");
    }
    for (const ReferenceRecord& reference : references) {
        const auto source = FileById(reference.sourceFile);
        if (!source) {
            Fail(kErrorFileNotFound, "The vault has no file with the id " + std::to_string(reference.sourceFile) + ".");
        }
        const int32_t version = reference.sourceVersion > 0 ? reference.sourceVersion : source->latestVersion;
        database.Run("INSERT OR REPLACE INTO file_references (parent, parent_version, source, source_version) "
                     "VALUES (?, ?, ?, ?)",
                     parent, WorkingVersion(*file), source->id, version);
    }
    transaction.Commit();
}

std::vector<ReferenceRecord> VaultStore::References(int32_t parent, int32_t version)
{
    std::vector<ReferenceRecord> references;
    Statement rows = database.Query("SELECT source, source_version FROM file_references "
                                    "WHERE parent = ? AND parent_version = ? ORDER BY source",
                                    parent, version);
    while (rows.Next()) {
        references.push_back({rows.Int(0), rows.Int(1)});
    }
    return references;
}

} // namespace tv::local
