#include "bench/database.h"

#include <stdexcept>

namespace bench {

Database openDatabase(const std::filesystem::path& path, int flags) {
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

}
