#pragma once

#include <filesystem>
#include <memory>
#include <sqlite3.h>

/// The yardstick's interface, as far as benchmarks need it. A failure throws std::runtime_error.
namespace bench {

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }

    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

[[nodiscard]] Database openDatabase(const std::filesystem::path& path, int flags);
[[nodiscard]] Statement prepare(const Database& database, const char* sql);
void run(const Database& database, const char* sql);

}
