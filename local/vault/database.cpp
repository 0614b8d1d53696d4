#include "vault/database.h"

#include "vault/error_table.h"

#include <sqlite3.h>

#include <random>
#include <thread>
#include <utility>

namespace tv::local {

namespace {

constexpr auto kLongestPause = std::chrono::milliseconds(5);

/// Waits for another writer. The pauses stay short: a transaction takes milliseconds, and whoever pauses long finds
/// that others were served meanwhile, again and again.
int WaitForOthers(void* connection, int count)
{
    static thread_local std::minstd_rand random{std::random_device{}()};
    auto& waiting = *static_cast<Waiting*>(connection);
    const auto now = std::chrono::steady_clock::now();
    if (count == 0) {
        waiting.since = now;
    }
    if (now - waiting.since > waiting.longest) {
        return 0;
    }
    const auto longest = std::chrono::microseconds(kLongestPause).count();
    std::this_thread::sleep_for(std::chrono::microseconds(longest / 10 + random() % longest));
    return 1;
}

[[noreturn]] void FailOn(sqlite3* connection, int code)
{
    if (code == SQLITE_BUSY || code == SQLITE_LOCKED) {
        Fail(kErrorLocked, "Another program has been writing into the vault for too long. Try again when it is done.");
    }
    const char* reason = connection != nullptr ? sqlite3_errmsg(connection) : sqlite3_errstr(code);
    const Result result = code == SQLITE_FULL ? kErrorDiskFull : kErrorDatabaseAccess;
    Fail(result, std::string("The vault's database refused an operation: ") + reason + ".");
}

void Check(sqlite3* connection, int code)
{
    if (code != SQLITE_OK) {
        FailOn(connection, code);
    }
}

} // namespace

sqlite3_stmt* StatementCache::Take(sqlite3* connection, std::string_view sql)
{
    if (const auto found = resting.find(sql); found != resting.end()) {
        sqlite3_stmt* statement = found->second;
        resting.erase(found);
        return statement;
    }
    sqlite3_stmt* statement = nullptr;
    Check(connection, sqlite3_prepare_v2(connection, sql.data(), static_cast<int>(sql.size()), &statement, nullptr));
    return statement;
}

void StatementCache::GiveBack(sqlite3_stmt* statement) noexcept
{
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    try {
        resting.emplace(sqlite3_sql(statement), statement);
    } catch (...) {
        sqlite3_finalize(statement);
    }
}

void StatementCache::Clear()
{
    for (const auto& [sql, statement] : resting) {
        sqlite3_finalize(statement);
    }
    resting.clear();
}

Statement::Statement(sqlite3* owner, StatementCache& statements, std::string_view sql)
    : connection(owner), cache(statements), statement(cache.Take(connection, sql))
{}

Statement::Statement(Statement&& other) noexcept
    : connection(other.connection), cache(other.cache), statement(std::exchange(other.statement, nullptr))
{}

Statement::~Statement()
{
    if (statement != nullptr) {
        cache.GiveBack(statement);
    }
}

void Statement::Bind(int index, int64_t number)
{
    Check(connection, sqlite3_bind_int64(statement, index, number));
}

void Statement::Bind(int index, double number)
{
    Check(connection, sqlite3_bind_double(statement, index, number));
}

void Statement::Bind(int index, std::string_view text)
{
    // The address must not be null: that would bind NULL.
    const char* data = text.data() != nullptr ? text.data() : "";
    Check(connection, sqlite3_bind_text64(statement, index, data, text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}

void Statement::Bind(int index, std::nullopt_t)
{
    Check(connection, sqlite3_bind_null(statement, index));
}

void Statement::Bind(int index, const ColumnValue& value)
{
    if (const auto* number = std::get_if<int64_t>(&value)) {
        Bind(index, *number);
    } else if (const auto* floating = std::get_if<double>(&value)) {
        Bind(index, *floating);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        Bind(index, std::string_view(*text));
    } else {
        Bind(index, std::nullopt);
    }
}

bool Statement::Next()
{
    const int code = sqlite3_step(statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        FailOn(connection, code);
    }
    return code == SQLITE_ROW;
}

bool Statement::IsNull(int column) const
{
    return sqlite3_column_type(statement, column) == SQLITE_NULL;
}

int64_t Statement::Int64(int column) const
{
    return sqlite3_column_int64(statement, column);
}

double Statement::Number(int column) const
{
    return sqlite3_column_double(statement, column);
}

std::string Statement::Text(int column) const
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text != nullptr ? std::string(text, static_cast<size_t>(sqlite3_column_bytes(statement, column)))
                           : std::string();
}

std::optional<std::string> Statement::OptionalText(int column) const
{
    return IsNull(column) ? std::nullopt : std::optional(Text(column));
}

ColumnValue Statement::Value(int column) const
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return Int64(column);
    case SQLITE_FLOAT:
        return Number(column);
    case SQLITE_TEXT:
        return Text(column);
    default:
        return std::monostate{};
    }
}

Database::Database(const std::filesystem::path& file, bool create, const Disk& announcer,
                   std::chrono::milliseconds patience)
    : disk(announcer), waiting{patience, {}}
{
    const int flags = SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0);
    const int code = sqlite3_open_v2(TextOf(file).c_str(), &connection, flags, nullptr);
    if (code != SQLITE_OK) {
        const std::string reason = connection != nullptr ? sqlite3_errmsg(connection) : sqlite3_errstr(code);
        sqlite3_close(connection);
        Fail(kErrorDatabaseAccess, "The database '" + TextOf(file) + "' can't be opened: " + reason + ".");
    }
    try {
        sqlite3_busy_handler(connection, WaitForOthers, &waiting);
        Script("PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL; PRAGMA foreign_keys=ON;");
    } catch (...) {
        sqlite3_close(connection);
        throw;
    }
}

Database::~Database()
{
    statements->Clear();
    sqlite3_close(connection);
}

void Database::Script(const char* sql)
{
    Check(connection, sqlite3_exec(connection, sql, nullptr, nullptr, nullptr));
}

int64_t Database::LastId() const
{
    return sqlite3_last_insert_rowid(connection);
}

int64_t Database::ChangedRows() const
{
    return sqlite3_changes(connection);
}

Transaction::Transaction(Database& owner) : database(owner)
{
    database.Script("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (open) {
        sqlite3_exec(database.connection, "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::Commit()
{
    database.disk.Announce("commit");
    database.Script("COMMIT");
    open = false;
}

} // namespace tv::local
