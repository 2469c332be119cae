#pragma once

#include "pages/template/prepared_template.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace pages {

/// Appends the page of a template, worked out by search and replace from beginning to end. Slow, and
/// right for every template and every value. `columns` is at least 1.
void renderExactly(const std::filesystem::path& path, std::string text, RowBlocks rows, std::size_t columns,
                   const Fields& fields, Entries& entries, std::string& out);

}
