#pragma once

#include "catalog/record_file.h"

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace catalog {

/// PrdIdx.idx, from product code to record number (docs/file-formats.md, "Product index").
/// Searched where it lies; nothing is built. Opening a missing file throws base::MissingFile.
class CodeIndex {
public:
    explicit CodeIndex(const std::filesystem::path& path) : m_entries(path) {}

    /// The record number of the product with this code, cut to 20 bytes and in any letter case; the
    /// first entry's where several have it, 0 where none has. In an index that is out of order the
    /// answer may be 0. The number is the file's own: it may lie outside the products.
    [[nodiscard]] std::int32_t find(std::string_view code) const;

    /// All entries as they stand in the file, which may be out of order.
    [[nodiscard]] const Table<IndexRecord>& entries() const { return m_entries; }

    /// The record numbers of up to so many entries whose codes begin so, in any letter case, ascending by
    /// code. What is out of order is passed over; the numbers are the file's own.
    [[nodiscard]] std::vector<std::int32_t> beginningWith(std::string_view start, std::size_t most) const;

    [[nodiscard]] const base::MappedFile& file() const { return m_entries.file(); }

private:
    Table<IndexRecord> m_entries;
};

}
