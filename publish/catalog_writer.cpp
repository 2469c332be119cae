#include "publish/catalog_writer.h"

#include "base/code_page.h"
#include "catalog/catalog.h"
#include "publish/data_files.h"
#include "publish/entry_check.h"
#include "publish/linked_codes.h"
#include "publish/product_rows.h"

namespace publish {
namespace {

class CatalogWriter {
public:
    CatalogWriter(const CatalogSource& source, const FileNames& files, const std::filesystem::path& folder,
                  Complaints& complaints)
        : m_source(source),
          m_files(files),
          m_folder(folder),
          m_complaints(complaints),
          m_data(folder, source.parameters, source.contents) {}

    void run() {
        while (const Group* group = m_data.nextGroup()) {
            checkHeader(*group);
            for (const auto row : group->rows)
                writeProduct(row);
        }
        m_data.finish();
        for (const auto& twin : m_data.repeatedCodes())
            complainOfTwin(twin);
        checkLinks();
    }

private:
    /// Where a record comes from: a group, or else a row of the list.
    struct Origin {
        const Group* group;
        std::uint32_t row;
    };

    struct Link {
        std::size_t origin;
        std::string code;
    };

    void checkHeader(const Group& group) {
        m_origins.push_back({&group, 0});
        checkEntry(group.header, m_files, placeOfLast(), m_complaints);
        noteLinks(group.header);
    }

    void writeProduct(std::uint32_t row) {
        m_origins.push_back({nullptr, row});
        m_source.products->read(row, m_product, m_complaints);
        checkEntry(m_product, m_files, placeOfLast(), m_complaints);
        checkProduct(m_product, placeOfLast(), m_complaints);
        m_data.add(m_product);
        noteLinks(m_product);
    }

    [[nodiscard]] PlaceOf placeOfLast() const {
        return [this](std::string_view field) { return placeOf(m_origins.size() - 1, field); };
    }

    [[nodiscard]] Place placeOf(std::size_t origin, std::string_view field) const {
        const auto& [group, row] = m_origins[origin];
        return group != nullptr
                   ? Place{.file = groupsSource, .row = group->line, .column = std::string(field)}
                   : m_source.products->placeOf(row, field);
    }

    void noteLinks(const Product& entry) {
        if (!entry.longDescription.empty())
            for (auto& code : linkedCodes(entry.longDescription))
                m_links.push_back({m_origins.size() - 1, std::move(code)});
    }

    // As it is written there; the index has it in capitals.
    [[nodiscard]] std::string codeOf(std::size_t origin) {
        const auto& [group, row] = m_origins[origin];
        if (group != nullptr)
            return group->header.code;
        Complaints told; // when it was read first
        m_source.products->read(row, m_product, told);
        return m_product.code;
    }

    void complainOfTwin(const RepeatedCode& twin) {
        const auto origin = static_cast<std::size_t>(twin.record - 1);
        const auto first = placeOf(static_cast<std::size_t>(twin.first - 1), {});
        m_complaints.push_back({Complaint::Weight::warning, placeOf(origin, "code"),
                                "the code " + base::toUtf8(codeOf(origin)) + " was used before (" +
                                    textOf(first) + "); links to it lead to the first",
                                "code-twice"});
    }

    void checkLinks() {
        if (m_links.empty())
            return;
        const auto catalog = catalog::openCatalog(m_folder);
        for (const auto& [origin, code] : m_links)
            if (catalog.codes.find(code) < 1)
                m_complaints.push_back({Complaint::Weight::error, placeOf(origin, "details"),
                                        "a link leads to " + base::toUtf8(code) +
                                            ", which is not in the catalogue; correct it or take it out",
                                        "link-code-missing"});
    }

    const CatalogSource& m_source;
    const FileNames& m_files;
    std::filesystem::path m_folder;
    Complaints& m_complaints;
    DataFiles m_data;
    Product m_product;
    std::vector<Origin> m_origins; // by record number - 1
    std::vector<Link> m_links;
};

}

void writeDataFiles(const CatalogSource& source, const FileNames& files, const std::filesystem::path& folder,
                    Complaints& complaints) {
    CatalogWriter(source, files, folder, complaints).run();
}

}
