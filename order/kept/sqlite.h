#pragma once

#include <chrono>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace order {

/// What the database library has reported.
class SqlError : public std::exception {
public:
    enum class Kind : std::uint8_t { damaged, locked, notWritable, other };

    explicit SqlError(Kind kind) : m_kind(kind) {}

    [[nodiscard]] Kind kind() const { return m_kind; }

    [[nodiscard]] const char* what() const noexcept override { return "the database has failed"; }

private:
    Kind m_kind;
};

/// A statement whose values are bound, never written into it. Texts are UTF-8. A failure throws SqlError.
class SqlStatement {
public:
    SqlStatement(sqlite3* database, std::string_view sql);

    /// The next value, for the next question mark.
    SqlStatement& bind(std::string_view text);
    SqlStatement& bind(std::int64_t number);
    SqlStatement& bind(double number);
    SqlStatement& bind(std::optional<std::int64_t> number);

    /// Goes to the next row; false when there is none.
    bool next();

    /// Goes to the end, and is ready to be bound and run again.
    void run();

    /// Of the row, by column from 0. The text lives until the next row.
    [[nodiscard]] std::string_view text(int column) const;
    [[nodiscard]] std::int64_t number(int column) const;
    [[nodiscard]] double real(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };

    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
    int m_bound = 0;
};

/// An open database file. A failure throws SqlError.
class SqlDatabase {
public:
    /// Makes the file when there is none. Waits no longer than the patience for other programs.
    SqlDatabase(const std::filesystem::path& file, std::chrono::milliseconds patience);

    [[nodiscard]] SqlStatement prepare(std::string_view sql) const { return {m_database.get(), sql}; }

    /// Statements without values, separated by semicolons.
    void run(const char* sql) const;

    /// The number that the statement gives.
    [[nodiscard]] std::int64_t number(std::string_view sql) const;

    [[nodiscard]] std::int64_t lastId() const;

    /// How many rows the last statement has changed.
    [[nodiscard]] std::int64_t changes() const;

private:
    struct Close {
        void operator()(sqlite3* database) const;
    };

    std::unique_ptr<sqlite3, Close> m_database;
};

/// All or nothing, to the disk: what was not committed is undone. Nobody else writes meanwhile.
class SqlTransaction {
public:
    explicit SqlTransaction(const SqlDatabase& database);
    ~SqlTransaction();

    SqlTransaction(const SqlTransaction&) = delete;
    SqlTransaction& operator=(const SqlTransaction&) = delete;

    void commit();

private:
    const SqlDatabase& m_database;
    bool m_isOpen = true;
};

}
