#pragma once

#include "catalog/catalog.h"

#include <filesystem>
#include <string>

namespace confinement {

/// A program folder with two suppliers, ACME and BETA, where "secret" stands in all files.
[[nodiscard]] catalog::Folders makeTwoSuppliers(const std::filesystem::path& programFolder);

/// A page that tries to read files of ACME that belong to no page, and those of everybody else.
[[nodiscard]] std::string pageThatReadsStrangers();

/// A page that tries to read what is its own.
[[nodiscard]] std::string pageThatReadsItsOwn();

}
