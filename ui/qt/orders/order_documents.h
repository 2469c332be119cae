#pragma once

#include "catalog/catalog.h"
#include "order/kept/kept_orders.h"
#include "ui/qt/print/order_printer.h"

#include <memory>
#include <string>
#include <string_view>

namespace ui::qt {

/// Shows and prints the documents of orders that have left, each confined to the files of the catalogue that
/// it came from: a page of a supplier whose catalogue is not there any more loads none.
class OrderDocuments final {
public:
    /// Whose catalogue is open, and its folders. All must live as long.
    OrderDocuments(std::string supplier, catalog::Folders folders, platform::MessageBox& messages,
                   Guard& guard, QWidget& window);

    void preview(const order::KeptOrder& order);
    void print(const order::KeptOrder& order);

    /// The one that has an order in work; null where there is none.
    [[nodiscard]] OrderPrinter* busyPrinter() const;

private:
    using Start = void (OrderPrinter::*)(const std::filesystem::path&, std::string_view, const QString&);

    void start(const order::KeptOrder& order, Start begin);
    [[nodiscard]] catalog::Folders foldersOf(std::string_view supplier) const;

    std::string m_supplier;
    catalog::Folders m_folders;
    platform::MessageBox& m_messages;
    Guard& m_guard;
    QWidget& m_window;
    std::unique_ptr<OrderPrinter> m_printer; // from its first use on: it asks the system for its printers
};

}
