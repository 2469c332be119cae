#pragma once

#include "catalog/records.h"
#include "publish/catalog_source.h"

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace publish {

/// A code that a second record has.
struct RepeatedCode {
    std::int32_t record;
    std::int32_t first; ///< the record that the index leads to
};

/// Writes the five data files of a catalogue (docs/file-formats.md), one product at a time, so that a
/// million products need no more memory than their index. The tree of groups is known from the start;
/// the products of its tree are not looked at:
///
///     DataFiles files(folder, parameters, contents);
///     while (const Group* group = files.nextGroup())
///         for (each product of the group)
///             files.add(product);
///     files.finish();
///
/// What is written must have passed `check`; texts too long for their field are cut. Writing failures
/// and more than 32,767 groups throw base::FileError.
class DataFiles {
public:
    DataFiles(const std::filesystem::path& folder, const catalog::ParameterValues& parameters,
              const Group& contents);

    /// The next group, whose header record is written now. Where it has no sub-groups, its products come
    /// next. Nothing when all groups are done.
    [[nodiscard]] const Group* nextGroup();

    /// The next product of the group that `nextGroup` gave.
    void add(const Product& product);

    /// Writes groups and index. Call it last.
    void finish();

    /// The records whose code has an earlier record, which the index leads to. Known when all is finished.
    [[nodiscard]] const std::vector<RepeatedCode>& repeatedCodes() const { return m_repeated; }

private:
    struct NumberedGroup {
        const Group* group;
        std::int32_t parent;
        std::int32_t firstChild = 0;
        std::int32_t headerRecord = 0;
    };

    /// The key as numbers that are ordered as its bytes are.
    struct IndexEntry {
        std::array<std::uint64_t, 2> first16;
        std::uint32_t last4;
        std::int32_t record;

        auto operator<=>(const IndexEntry&) const = default;

        [[nodiscard]] bool hasKeyOf(const IndexEntry& other) const {
            return first16 == other.first16 && last4 == other.last4;
        }
    };

    /// A file that is written from its beginning to its end, in few large steps.
    class File {
    public:
        explicit File(std::filesystem::path path);

        void append(std::string_view bytes);

        template <std::size_t Length>
        void append(const std::array<std::byte, Length>& bytes) {
            append({reinterpret_cast<const char*>(bytes.data()), Length});
        }

        void close();

    private:
        void write();

        std::filesystem::path m_path;
        std::ofstream m_file;
        std::string m_waiting;
    };

    static IndexEntry indexEntry(std::string_view code, std::int32_t record);
    static std::array<char, catalog::IndexRecord::keyField.width> keyOf(const IndexEntry& entry);

    void number(const Group& contents);
    void append(const Product& product, bool isProduct);
    [[nodiscard]] std::int32_t appendMemo(const Product& product);
    void writeGroups();
    void writeIndex();

    std::filesystem::path m_folder;
    File m_products;
    File m_memos;
    std::vector<NumberedGroup> m_groups; // by number - 1: siblings stand together
    std::unordered_map<const Group*, std::int32_t> m_numbers;
    std::vector<const Group*> m_waiting; // header records still to write, the next one last
    std::vector<IndexEntry> m_index;
    std::vector<RepeatedCode> m_repeated; // ascending by record
    std::string m_text;                   // of the record being written
    std::int64_t m_memoEnd = 0;
    std::int32_t m_record = 0;
    std::int16_t m_group = 0;
};

}
