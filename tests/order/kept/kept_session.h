#pragma once

#include "catalog/catalog.h"
#include "order/basket.h"
#include "order/kept/order_journal.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_message_box.h"
#include "ui/system/appended_file.h"
#include "ui/system/disk_file.h"

#include <chrono>
#include <filesystem>
#include <string>

namespace support {

/// A catalogue of which orders are kept: a code that occurs twice, an article without a code, and texts that
/// would break a line.
inline std::filesystem::path writeOrderedCatalog(const std::filesystem::path& folder) {
    CatalogBuilder builder;
    builder.products = {{.text = "HAM\nHammer, 300 g\n", .price = 12.35F, .taxRate = 20},
                        {.text = "NAIL\nNails\n", .price = 0.05F, .taxRate = 20},
                        {.text = "NAIL\nLonger nails\n", .price = 0.07F, .taxRate = 5},
                        {.text = "\nNo code\n", .price = 3, .taxRate = 0},
                        {.text = "T\\\t\xE9\x81\x01\nTab\there\n", .price = 1e30F, .taxRate = 12.5F}};
    builder.writeTo(folder);
    return folder;
}

/// An order in the core's parts, as the program joins them, and its journal.
class KeptSession {
public:
    KeptSession(std::filesystem::path dataFolder, const std::filesystem::path& kept,
                platform::AppendedFile& journalFile,
                order::OrderJournal::Clock clock = std::chrono::system_clock::now)
        : m_data(std::move(dataFolder)),
          m_catalog(catalog::openCatalog(m_data)),
          m_file(m_data, m_disk, m_messages),
          basket(m_catalog.products, true, m_file),
          journal(m_catalog, {"ACME", "Acme \xA3", m_data}, kept, journalFile, std::move(clock)) {
        basket.watch(&journal);
    }

    void flush() { journal.flush(basket.totals()); }

private:
    std::filesystem::path m_data;
    Journal m_told;
    FakeMessageBox m_messages{m_told};
    catalog::Catalog m_catalog;
    ui::system::DiskFile m_disk;
    order::BasketFile m_file;

public:
    order::Basket basket;
    order::OrderJournal journal;
};

}
