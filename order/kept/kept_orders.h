#pragma once

#include "base/errors.h"
#include "order/order_contents.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace order {

/// How an order left.
enum class Departure { printed, savedAsPdf, mailed, draftOpened };

/// What went out, as it was filled in: the order page that was printed, or the mail's text.
struct OrderDocument {
    std::string text; ///< in the code page
    bool isHtml = true;
};

/// An order that has left, as it was then. Texts are in the code page.
struct KeptOrder {
    std::string supplier; ///< its folder's name
    std::string catalogName;
    std::chrono::system_clock::time_point left{};
    Departure departure = Departure::printed;
    std::string where; ///< the printer, the PDF's path or the mail's address
    OrderContents contents;
    OrderDocument document;
};

/// What a list of kept orders shows of one.
struct KeptOrderHead {
    std::int64_t id = 0;
    std::string supplier;
    std::string catalogName;
    std::chrono::system_clock::time_point left{};
    Departure departure = Departure::printed;
    std::string number; ///< the customer's own
    std::int64_t lines = 0;
    double total = 0; ///< tax included, to the cent
};

/// Which kept orders are looked for.
struct KeptOrderFilter {
    std::string supplier; ///< empty for all
    std::string text;     ///< words or their beginnings, of numbers, articles and texts; empty for all
};

/// A delivery address that the customer keeps under a name.
struct KeptAddress {
    std::string name;
    DeliveryDetails details; ///< without the tax exemption
};

/// The customer's orders and addresses in an embedded database with a full-text index (docs/file-formats.md,
/// "Kept orders"). Several programs may use the same file at a time. Every call may throw KeptOrdersError,
/// whose text is a sentence for the user; nothing is half done then. A damaged file is put aside under
/// another name, and `complaint` says so; that of a newer version is left alone, and opening throws. No call
/// waits longer than 0.15 seconds for another program.
class KeptOrders {
public:
    static constexpr std::size_t all = 0x7FFFFFFF;

    /// Opens the file, or makes it and its folder.
    explicit KeptOrders(const std::filesystem::path& file);
    ~KeptOrders();
    KeptOrders(const KeptOrders&) = delete;
    KeptOrders& operator=(const KeptOrders&) = delete;

    /// What the user should know: that the file was damaged when it was opened or since, and where it is now.
    /// Else empty.
    [[nodiscard]] const std::string& complaint() const;

    /// Returns the order's id.
    std::int64_t add(const KeptOrder& order);

    /// Newest first.
    [[nodiscard]] std::vector<KeptOrderHead> find(const KeptOrderFilter& filter) const;

    [[nodiscard]] std::optional<KeptOrder> read(std::int64_t id) const;

    /// The names of the suppliers' folders, each with the catalogue's latest name.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> suppliers() const;

    /// Codes that were ever ordered from this supplier, in upper case, ascending; also by orders that were
    /// removed since, as long as there is one of this supplier.
    [[nodiscard]] std::vector<std::string> orderedCodes(std::string_view supplier) const;

    void remove(std::int64_t id);

    /// Of the supplier, or of all when it is empty; the oldest ones, so many at most. Returns how many there
    /// were. Two hundred take about a tenth of a second.
    std::size_t removeBefore(std::chrono::system_clock::time_point before, std::string_view supplier,
                             std::size_t most = all);

    /// By name, without regard to case.
    [[nodiscard]] std::vector<KeptAddress> addresses() const;

    /// In place of the one with the same name, if there is one.
    void saveAddress(const KeptAddress& address);
    void removeAddress(std::string_view name);

private:
    struct Database;
    std::unique_ptr<Database> m_database;
};

/// Its text is a sentence for the user.
class KeptOrdersError : public base::FileError {
public:
    using base::FileError::FileError;
};

}
