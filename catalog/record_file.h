#pragma once

#include "base/mapped_file.h"
#include "catalog/records.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace catalog {

/// Fixed-length records numbered from 1 (docs/file-formats.md, "Record files").
/// The file is mapped, so opening costs the same for ten records and for a million.
/// Opening a missing file throws base::MissingFile. A partial record at the end does not count.
class RecordFile {
public:
    RecordFile(const std::filesystem::path& path, std::size_t recordLength);

    [[nodiscard]] std::int32_t count() const { return m_count; }

    /// The record's bytes; none for a number outside 1..count().
    [[nodiscard]] RecordBytes record(std::int32_t number) const;

    /// All records one behind the other, without a partial one at the end.
    [[nodiscard]] RecordBytes bytes() const {
        return m_file.bytes().first(static_cast<std::size_t>(m_count) * m_recordLength);
    }

    /// To be called before all records are gone through, as a search does: a file that is not yet in
    /// memory is then read many times faster.
    void readAhead() const { m_file.readAhead(); }

    [[nodiscard]] const base::MappedFile& file() const { return m_file; }

    /// As in `Table`.
    void requireWhole() const;
    void requireRead() const;

private:
    base::MappedFile m_file;
    std::size_t m_recordLength;
    std::int32_t m_count;
};

/// A record file of one kind of record. A number outside 1..count() gives an empty record: blank texts
/// and zero numbers.
template <typename Record>
class Table {
public:
    explicit Table(const std::filesystem::path& path) : m_file(path, Record::length) {}

    [[nodiscard]] std::int32_t count() const { return m_file.count(); }

    [[nodiscard]] RecordBytes bytes() const { return m_file.bytes(); }

    void readAhead() const { m_file.readAhead(); }

    [[nodiscard]] const base::MappedFile& file() const { return m_file.file(); }

    /// To be called after records were read and before anything comes of them: a file that has become
    /// shorter since it was opened, or is gone, throws base::DamagedFile.
    void requireWhole() const { m_file.requireWhole(); }

    /// As `requireWhole`, without asking the system, so at no cost: only bytes that were lost under the
    /// reading itself are noticed.
    void requireRead() const { m_file.requireRead(); }

    [[nodiscard]] Record at(std::int32_t number) const {
        const auto bytes = m_file.record(number);
        return Record(bytes.empty() ? RecordBytes(emptyRecord) : bytes);
    }

private:
    static constexpr auto emptyRecord = [] {
        std::array<std::byte, Record::length> bytes{};
        for (const TextField field : Record::textFields)
            for (std::size_t i = 0; i < field.width; ++i)
                bytes[field.offset + i] = std::byte{' '};
        return bytes;
    }();

    RecordFile m_file;
};

using ProductTable = Table<ProductRecord>;
using GroupTable = Table<GroupRecord>;

}
