// SQLite behind three small types: a connection, a statement and a transaction.
#pragma once

#include "vault/disk.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

struct sqlite3;
struct sqlite3_stmt;

namespace tv::local {

/// A column that holds whatever a stored value holds.
using ColumnValue = std::variant<std::monostate, int64_t, double, std::string>;

/// Prepared statements at rest, by their text: to prepare one costs more than to run it.
class StatementCache
{
  public:
    StatementCache() = default;
    StatementCache(const StatementCache&) = delete;
    StatementCache& operator=(const StatementCache&) = delete;
    ~StatementCache() { Clear(); }

    sqlite3_stmt* Take(sqlite3* connection, std::string_view sql);
    void GiveBack(sqlite3_stmt* statement) noexcept;
    void Clear();

  private:
    std::multimap<std::string, sqlite3_stmt*, std::less<>> resting;
};

/// One prepared statement with its arguments bound. It belongs to its database and ends before it.
class Statement
{
  public:
    Statement(sqlite3* connection, StatementCache& cache, std::string_view sql);
    Statement(Statement&& other) noexcept;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement();

    void Bind(int index, int32_t number) { Bind(index, int64_t{number}); }
    void Bind(int index, int64_t number);
    void Bind(int index, double number);
    void Bind(int index, std::string_view text);
    void Bind(int index, const std::string& text) { Bind(index, std::string_view(text)); }
    void Bind(int index, std::nullopt_t);
    void Bind(int index, const ColumnValue& value);
    template <typename Type> void Bind(int index, const std::optional<Type>& value)
    {
        value ? Bind(index, *value) : Bind(index, std::nullopt);
    }

    /// Moves to the next row; false behind the last one.
    bool Next();

    bool IsNull(int column) const;
    int32_t Int(int column) const { return static_cast<int32_t>(Int64(column)); }
    int64_t Int64(int column) const;
    double Number(int column) const;
    std::string Text(int column) const;
    std::optional<std::string> OptionalText(int column) const;
    ColumnValue Value(int column) const;

  private:
    sqlite3* connection;
    StatementCache& cache;
    sqlite3_stmt* statement = nullptr;
};

inline constexpr std::chrono::milliseconds kLongestWait = std::chrono::seconds(15);

/// How long a connection waits for another's write, and since when it does.
struct Waiting
{
    std::chrono::milliseconds longest;
    std::chrono::steady_clock::time_point since;
};

class Database
{
  public:
    /// Opens or, where asked, makes the database file. Raises E_VYX_DATABASE_ACCESS with the reason.
    Database(const std::filesystem::path& file, bool create, const Disk& disk,
             std::chrono::milliseconds patience = kLongestWait);
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    template <typename... Arguments> Statement Query(std::string_view sql, const Arguments&... arguments)
    {
        Statement statement(connection, *statements, sql);
        int index = 0;
        (statement.Bind(++index, arguments), ...);
        return statement;
    }

    /// Carries out one change; returns the number of rows changed.
    template <typename... Arguments> int64_t Run(std::string_view sql, const Arguments&... arguments)
    {
        disk.Announce("change row");
        Statement statement = Query(sql, arguments...);
        while (statement.Next()) {
        }
        return ChangedRows();
    }

    /// Several statements without arguments.
    void Script(const char* sql);
    int64_t LastId() const;

  private:
    friend class Transaction;
    int64_t ChangedRows() const;

    const Disk& disk;
    sqlite3* connection = nullptr;
    Waiting waiting;
    std::unique_ptr<StatementCache> statements = std::make_unique<StatementCache>();
};

/// Everything between its birth and Commit takes place whole or not at all. Writers of other processes wait.
class Transaction
{
  public:
    explicit Transaction(Database& database);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();

    void Commit();

  private:
    Database& database;
    bool open = true;
};

} // namespace tv::local
