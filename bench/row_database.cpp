#include "bench/row_database.h"

#include "bench/database.h"
#include "catalog/catalog.h"

namespace bench {
namespace {

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
    const auto database = openDatabase(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
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
    const auto opened = openDatabase(database, SQLITE_OPEN_READONLY);
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
