#pragma once

#include "catalog/record_file.h"
#include "order/basket_file.h"
#include "order/basket_line.h"
#include "order/cent_sum.h"
#include "order/order_watch.h"
#include "order/pricing.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace order {

/// The sums of all lines' amounts and taxes, exact to the cent.
struct Totals {
    double order = 0; ///< tax included
    double tax = 0;

    friend bool operator==(const Totals&, const Totals&) = default;
};

/// What became of a line.
struct LineChange {
    BasketLine line; ///< as it is stored now
    bool changed;    ///< false: it had this quantity already; totals, labels and buttons stay as they are
};

/// How far the lines were priced again.
struct Repricing {
    std::int32_t lines; ///< the basket records 1 to this were
    bool finished;      ///< false: a record never written ended it; labels and buttons stay as they are
};

/// The ordered quantities of the open catalogue, written through to Basket.dat. A product that is ordered
/// for the first time gets the next basket record, numbered from 1, and keeps it. Products and file must
/// live as long.
class Basket {
public:
    Basket(const catalog::ProductTable& products, bool chargesTax, BasketFile& file);

    /// From now on the watch hears of every line that changes. It must live as long as this object, or until
    /// another takes its place.
    void watch(OrderWatch* watch) { m_watch = watch; }

    /// Whether what is typed from now on is taxed; the lines there are stay as they are.
    void setTaxStatus(TaxStatus status) { m_taxStatus = status; }

    [[nodiscard]] TaxStatus taxStatus() const { return m_taxStatus; }

    [[nodiscard]] bool chargesTax() const { return m_chargesTax; }

    /// Prices the product at this quantity and writes its line. A record number outside the list takes
    /// nothing. A total below 0 ends the program (base::ProgramEnd) before anything is changed.
    LineChange update(std::int32_t product, float quantity);

    /// Makes these changes, and only then writes all lines that they change, in one go. What the file holds
    /// then is the same. Changes that end with an exception are not written.
    void writeTogether(const std::function<void()>& changes);

    /// Prices every line again, from record 1 to the first that was never written.
    /// Deliberate: taxed means taxed here, whether or not the catalogue charges tax.
    Repricing recalculate(TaxStatus status);

    /// Forgets all lines and empties the file. Deliberate: products ordered before keep their basket
    /// records, so that the next one ordered can be a record with unwritten ones before it.
    void clear();

    [[nodiscard]] Totals totals() const { return {m_orderTotal.value(), m_taxTotal.value()}; }

    /// The totals as they will be once the product is ordered at this quantity.
    [[nodiscard]] Totals totalsWith(std::int32_t product, float quantity) const;

    /// The product's line; zeros when it has none.
    [[nodiscard]] BasketLine lineOf(std::int32_t product) const;

    /// Basket record n at index n - 1, up to the last one written.
    [[nodiscard]] std::span<const BasketLine> lines() const { return m_lines; }

private:
    /// Records that are still to be written.
    struct Unwritten {
        std::int32_t first;
        std::int32_t last;
    };

    [[nodiscard]] bool isListed(std::int32_t product) const {
        return product >= 1 && product <= m_products.count();
    }

    [[nodiscard]] BasketLine typed(std::int32_t product, float quantity) const;
    [[nodiscard]] std::int32_t recordFor(std::int32_t product);
    [[nodiscard]] BasketLine& lineAt(std::int32_t record);
    void write(std::int32_t record);
    void replaceInTotals(const BasketLine& oldLine, const BasketLine& newLine);
    void sumUp();

    const catalog::ProductTable& m_products;
    BasketFile& m_file;
    OrderWatch* m_watch = nullptr;
    bool m_chargesTax;
    TaxStatus m_taxStatus = TaxStatus::taxed;
    std::vector<BasketLine> m_lines;
    std::vector<std::int32_t>
        m_recordOf;                // basket record by product, 0 for none; empty before the first order
    std::int32_t m_lastRecord = 0; // given to a product so far
    std::optional<Unwritten> m_unwritten; // while lines are written together
    CentSum m_orderTotal;
    CentSum m_taxTotal;
};

}
