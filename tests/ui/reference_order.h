#pragma once

#include "tests/support/catalog_builder.h"

#include <cstdint>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace ui_test {

/// The rules of ordering told the long way: a text as index, a file of records that is read back before
/// every step, cells that are texts. Slow and obvious; what the program does is compared with it.
class ReferenceOrder {
public:
    struct Row {
        int record = 0;
        std::string quantity, taxRate, price, tax, amount;
        bool green = false;

        friend bool operator==(const Row&, const Row&) = default;

        friend void PrintTo(const Row& row, std::ostream* out) {
            *out << row.record << ": " << row.quantity << " | " << row.taxRate << " | " << row.price << " | "
                 << row.tax << " | " << row.amount << (row.green ? " green" : "");
        }
    };

    ReferenceOrder(std::vector<support::Product> products, char taxSwitch);

    /// False: the order total fell below 0, which ends the program.
    bool typeIntoProducts(std::size_t row, std::string text);
    bool typeIntoOrder(std::size_t row, const std::string& text);
    void tickExempt(bool ticked);
    void clear();
    void checkOut();
    void priceList(std::size_t historySize);

    std::string file;
    std::vector<Row> productRows, orderRows;
    std::string orderLabel = "0.00", taxLabel = "0.00";
    double totalOrder = 0, totalTax = 0;
    std::set<int> enabled{2}; // positions 2 to 8 of the toolbar
    char viewMode = 'G';

private:
    struct Record {
        float quantity = 0, tax = 0, amount = 0;
        std::int32_t product = 0;
    };

    Record readRecord(std::size_t number) const;
    void writeRecord(std::size_t number, const Record& record);
    bool updateLine(float quantity, std::int32_t product);
    void addUpFile();
    void showTotals();
    void setTotalButtons();
    void write(Row& row);
    void set(int position, bool on);

    std::vector<support::Product> m_products;
    char m_taxSwitch;
    char m_taxStatus = 'T';
    std::string m_index;
    float m_amount = 0, m_tax = 0;
};

}
