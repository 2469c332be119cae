#include "bench/row_database.h"

#include "catalog/catalog.h"

#include <memory>
#include <sqlite3.h>
#include <stdexcept>

namespace bench {
namespace {

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }

    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

Database open(const std::filesystem::path& path, int flags) {
    sqlite3* database = nullptr;
    if (sqlite3_open_v2(path.string().c_str(), &database, flags, nullptr) != SQLITE_OK)
        throw std::runtime_error("no database");
    return Database(database);
}

Statement prepare(const Database& database, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database.get(), sql, -1, &statement, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(database.get()));
    return Statement(statement);
}

void run(const Database& database, const char* sql) {
    sqlite3_step(prepare(database, sql).get());
}

void bind(const Statement& statement, int column, std::string_view text) {
    sqlite3_bind_text(statement.get(), column, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

void insert(const Statement& statement, std::int32_t number, const catalog::ProductRecord& product) {
    sqlite3_bind_int(statement.get(), 1, number);
    bind(statement, 2, product.code());
    bind(statement, 3, product.description());
    bind(statement, 4, product.other());
    sqlite3_bind_double(statement.get(), 5, product.taxRate());
    sqlite3_bind_double(statement.get(), 6, product.price());
    sqlite3_step(statement.get());
    sqlite3_reset(statement.get());
}

std::string text(const Statement& statement, int column) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
    return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), column))};
}

}

std::filesystem::path rowDatabase(const std::filesystem::path& catalogFolder) {
    auto path = catalogFolder / "rows.db";
    if (std::filesystem::exists(path))
        return path;
    const catalog::ProductTable products(catalogFolder / catalog::productsFile);
    const auto database = open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    run(database, "create table product(number integer primary key, code text, description text, other text,"
                  " taxRate real, price real)");
    run(database, "begin");
    const auto statement = prepare(database, "insert into product values(?, ?, ?, ?, ?, ?)");
    for (std::int32_t number = 1; number <= products.count(); ++number)
        insert(statement, number, products.at(number));
    run(database, "commit");
    return path;
}

Rows readFromDatabase(const std::filesystem::path& database, std::int32_t rows) {
    const auto opened = open(database, SQLITE_OPEN_READONLY);
    const auto statement = prepare(
        opened,
        "select code, description, other, taxRate, price from product where number <= ? order by number");
    sqlite3_bind_int(statement.get(), 1, rows);
    Rows result;
    while (sqlite3_step(statement.get()) == SQLITE_ROW)
        result.push_back({text(statement, 0), text(statement, 1), text(statement, 2),
                          static_cast<float>(sqlite3_column_double(statement.get(), 3)),
                          static_cast<float>(sqlite3_column_double(statement.get(), 4))});
    return result;
}

}
