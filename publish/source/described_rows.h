#pragma once

#include "publish/product_rows.h"

#include <filesystem>
#include <map>
#include <memory>

namespace publish {

/// The folder of a source for long descriptions, one file for each code.
inline constexpr std::string_view descriptionsFolder = "descriptions";

/// The long descriptions that stand in files of their own, by code.
class DescriptionFiles {
public:
    /// Lists the folder's files, "CODE.txt"; a folder that is not there has none.
    explicit DescriptionFiles(const std::filesystem::path& folder);

    /// Reads the file of the entry's code into the entry, if there is one.
    void describe(Product& entry, Complaints& complaints) const;

    /// Whether an entry had this code is told by the function; the others' files are complained of.
    template <typename HasCode>
    void complainOfOthers(HasCode hasCode, Complaints& complaints) const {
        for (const auto& [key, path] : m_files)
            if (!hasCode(key))
                complainOfCode(path, complaints);
    }

private:
    static void complainOfCode(const std::filesystem::path& path, Complaints& complaints);

    std::map<std::string, std::filesystem::path> m_files; // by key of the index
};

/// A list's rows, with the long descriptions of files added.
class DescribedRows final : public ProductRows {
public:
    DescribedRows(std::shared_ptr<const ProductRows> rows, std::shared_ptr<const DescriptionFiles> files)
        : m_rows(std::move(rows)), m_files(std::move(files)) {}

    [[nodiscard]] std::size_t count() const override { return m_rows->count(); }

    void readGroup(std::size_t row, std::vector<std::string>& path) const override {
        m_rows->readGroup(row, path);
    }

    void read(std::size_t row, Product& product, Complaints& complaints) const override {
        m_rows->read(row, product, complaints);
        m_files->describe(product, complaints);
    }

    [[nodiscard]] Place placeOf(std::size_t row, std::string_view field) const override {
        return m_rows->placeOf(row, field);
    }

private:
    std::shared_ptr<const ProductRows> m_rows;
    std::shared_ptr<const DescriptionFiles> m_files;
};

}
