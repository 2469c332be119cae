#pragma once

#include "bench/rows.h"

#include <cstdint>
#include <filesystem>

/// The yardstick: the same rows in a SQLite database.
namespace bench {

/// The database beside the catalogue's files, made from its records at the first call.
[[nodiscard]] std::filesystem::path rowDatabase(const std::filesystem::path& catalogFolder);

/// Opens the database, reads the first rows and closes it.
[[nodiscard]] Rows readFromDatabase(const std::filesystem::path& database, std::int32_t rows);

}
