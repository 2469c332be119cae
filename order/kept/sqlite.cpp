#include "order/kept/sqlite.h"

#include <new>
#include <sqlite3.h>

namespace order {
namespace {

void check(int result) {
    constexpr int primary = 0xFF; // the rest says more than anybody wants to know
    switch (result & primary) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return;
    case SQLITE_NOMEM:
        throw std::bad_alloc();
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        throw SqlError(SqlError::Kind::damaged);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw SqlError(SqlError::Kind::locked);
    case SQLITE_FULL:
    case SQLITE_IOERR:
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        throw SqlError(SqlError::Kind::notWritable);
    default:
        throw SqlError(SqlError::Kind::other);
    }
}

}

SqlStatement::SqlStatement(sqlite3* database, std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    const int result =
        sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
    m_statement.reset(statement);
    check(result);
}

void SqlStatement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SqlStatement& SqlStatement::bind(std::string_view text) {
    const char* bytes = text.data() ? text.data() : ""; // no bytes at all would be no value
    check(
        sqlite3_bind_text64(m_statement.get(), ++m_bound, bytes, text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

SqlStatement& SqlStatement::bind(std::int64_t number) {
    check(sqlite3_bind_int64(m_statement.get(), ++m_bound, number));
    return *this;
}

SqlStatement& SqlStatement::bind(double number) {
    check(sqlite3_bind_double(m_statement.get(), ++m_bound, number));
    return *this;
}

SqlStatement& SqlStatement::bind(std::optional<std::int64_t> number) {
    if (number)
        return bind(*number);
    check(sqlite3_bind_null(m_statement.get(), ++m_bound));
    return *this;
}

bool SqlStatement::next() {
    const int result = sqlite3_step(m_statement.get());
    check(result);
    return result == SQLITE_ROW;
}

void SqlStatement::run() {
    while (next()) {
    }
    check(sqlite3_reset(m_statement.get()));
    m_bound = 0;
}

std::string_view SqlStatement::text(int column) const {
    const auto* bytes = sqlite3_column_text(m_statement.get(), column);
    const auto size = sqlite3_column_bytes(m_statement.get(), column);
    return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)};
}

std::int64_t SqlStatement::number(int column) const {
    return sqlite3_column_int64(m_statement.get(), column);
}

double SqlStatement::real(int column) const {
    return sqlite3_column_double(m_statement.get(), column);
}

SqlDatabase::SqlDatabase(const std::filesystem::path& file, std::chrono::milliseconds patience) {
    sqlite3* database = nullptr;
    const auto name = file.u8string();
    const int result = sqlite3_open_v2(reinterpret_cast<const char*>(name.c_str()), &database,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    m_database.reset(database);
    check(result);
    sqlite3_busy_timeout(database, static_cast<int>(patience.count()));
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
}

void SqlDatabase::Close::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

void SqlDatabase::run(const char* sql) const {
    check(sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr));
}

std::int64_t SqlDatabase::number(std::string_view sql) const {
    auto statement = prepare(sql);
    return statement.next() ? statement.number(0) : 0;
}

std::int64_t SqlDatabase::lastId() const {
    return sqlite3_last_insert_rowid(m_database.get());
}

std::int64_t SqlDatabase::changes() const {
    return sqlite3_changes(m_database.get());
}

SqlTransaction::SqlTransaction(const SqlDatabase& database) : m_database(database) {
    database.run("begin immediate");
}

SqlTransaction::~SqlTransaction() {
    if (!m_isOpen)
        return;
    try {
        m_database.run("rollback");
    } catch (const SqlError&) { // some failures have undone everything already
        m_isOpen = false;
    }
}

void SqlTransaction::commit() {
    m_database.run("commit");
    m_isOpen = false;
}

}
