#pragma once

#include "catalog/catalog.h"
#include "order/basket.h"
#include "order/order_watch.h"
#include "platform/appended_file.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace order {

/// Whose order it is. Texts are in the code page.
struct JournalOwner {
    std::string supplier;             ///< its folder's name
    std::string catalogName;          ///< as a person knows it
    std::filesystem::path dataFolder; ///< where the catalogue lies
};

/// Keeps the order that is being typed (docs/file-formats.md, "Unfinished orders"), in a file of its own that
/// is made with the first quantity. What is heard waits in memory until `flush`. Files of earlier orders are
/// left alone. A file that cannot be written is given up: `failure` says so once, and ordering goes on
/// without it.
class OrderJournal final : public OrderWatch {
public:
    /// All must live as long. The folder is made when it is needed.
    OrderJournal(const catalog::Catalog& catalog, JournalOwner owner, std::filesystem::path folder,
                 platform::AppendedFile& file);

    void quantityChanged(std::int32_t product, float quantity) override;
    void cleared() override;

    /// Whether there is anything to write.
    [[nodiscard]] bool waits() const;

    /// Writes what waits, with the totals as they are now. An order without lines has no file.
    void flush(const Totals& totals);

    /// The order as it stands was printed or mailed: it is unfinished again only when it changes.
    void orderLeft(const Totals& totals);

    /// A sentence for the user, the first time that it is asked for after keeping has failed; else empty.
    [[nodiscard]] std::string takeFailure();
};

}
