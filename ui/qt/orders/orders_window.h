#pragma once

#include "order/kept/kept_orders.h"
#include "order/kept/unfinished_orders.h"
#include "ui/intake.h"
#include "ui/qt/orders/chosen_order.h"
#include "ui/qt/orders/order_documents.h"
#include "ui/qt/orders/order_list_model.h"
#include "ui/qt/widgets/window_memory.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace ui::qt {

/// The window "Orders": orders that were kept for later, and those that have left. It stays beside the main
/// window.
class OrdersWindow final : public QDialog {
    Q_OBJECT

public:
    /// All of it must outlive the window.
    struct Surroundings {
        order::KeptOrders& kept;
        std::filesystem::path unfinished; ///< the folder of unfinished orders
        order::JournalOwner owner;        ///< whose catalogue is open
        catalog::Folders folders;
        platform::MessageBox& messages;
        Guard& guard;
        std::function<void(std::vector<WantedLine> lines)> orderAgain; ///< of the open catalogue only
        std::function<void(const order::UnfinishedOrder& order)> continueOrder;
    };

    OrdersWindow(Surroundings surroundings, QWidget* parent);

    /// Shows the window with what is kept by now, or brings it to the front.
    void bringUp();

    /// What is kept has changed.
    void refresh();

    /// The one that has a document in work; null where there is none.
    [[nodiscard]] OrderPrinter* busyPrinter() const { return m_documents.busyPrinter(); }

    /// Every way of closing leads here; the window's place is remembered.
    void reject() override;

private:
    QPushButton* addButton(const QString& caption, const QString& name, void (OrdersWindow::*act)());
    void layOut();
    void layOutList();
    void addButtons();
    void connectControls();
    void fillSuppliers();
    void showFound();
    [[nodiscard]] std::vector<order::UnfinishedOrder> unfinishedFound() const;
    [[nodiscard]] QString chosenSupplier() const;
    void keepRow(int row);
    void showChosen();
    void showButtons();

    void showDocument();
    void printAgain();
    void orderAgain();
    void continueUnfinished();
    void deleteChosen();
    void deleteBefore();
    void removeBefore(std::chrono::system_clock::time_point before, const std::string& supplier);

    Surroundings m_around;
    WindowMemory m_memory;
    OrderDocuments m_documents;
    std::optional<order::KeptOrder> m_order;            // that is chosen; its lines are shown
    std::optional<order::UnfinishedOrder> m_unfinished; // the same, if it is unfinished
    bool m_placed = false;
    QTimer m_typingPause;

    QLineEdit* m_search;
    QComboBox* m_suppliers;
    OrderListModel* m_model;
    QTableView* m_list;
    ChosenOrder* m_chosen;
    QPushButton* m_showDocument = nullptr;
    QPushButton* m_printAgain = nullptr;
    QPushButton* m_orderAgain = nullptr;
    QPushButton* m_continue = nullptr;
    QPushButton* m_delete = nullptr;
    QPushButton* m_deleteBefore = nullptr;
};

}
