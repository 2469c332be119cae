#include "ui/qt/orders/orders_window.h"

#include "base/text.h"
#include "ui/qt/orders/delete_before_dialog.h"
#include "ui/qt/orders/kept_texts.h"
#include "ui/qt/orders/order_table.h"
#include "ui/qt/widgets/flow_layout.h"
#include "ui/qt/widgets/qt_text.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace ui::qt {
namespace {

constexpr QSize designedSize{900, 660};
constexpr int typingPauseMs = 120;
constexpr int longestPhrase = 200;
constexpr int fewestRows = 4;
constexpr std::size_t removedAtOnce = 100;
constexpr auto onlyHere = "Open this supplier's catalogue to order from it again";

QString countOf(std::size_t count) {
    return count == 1 ? "1 order" : QString::number(count) + " orders";
}

}

OrdersWindow::OrdersWindow(Surroundings surroundings, QWidget* parent)
    : QDialog(parent, Qt::Window),
      m_around(std::move(surroundings)),
      m_documents(m_around.owner.supplier, m_around.folders, m_around.messages, m_around.guard, *this),
      m_search(new QLineEdit(this)),
      m_suppliers(new QComboBox(this)),
      m_model(new OrderListModel(this)),
      m_list(orderTable("OrderList", "Orders", m_model, this)),
      m_chosen(new ChosenOrder(this)) {
    setObjectName("Orders");
    setWindowTitle("Orders - Tavorine");
    setModal(false);
    m_typingPause.setSingleShot(true);
    m_typingPause.setInterval(typingPauseMs);
    layOut();
    connectControls();
}

void OrdersWindow::layOut() {
    layOutList();
    auto* searchLabel = new QLabel("&Find", this);
    searchLabel->setBuddy(m_search);
    auto* top = new QHBoxLayout;
    top->addWidget(searchLabel);
    top->addWidget(m_search, 2);
    top->addWidget(m_suppliers, 1);
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->setObjectName("OrdersSplit");
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_list);
    splitter->addWidget(m_chosen);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(splitter, 1);
    addButtons();
}

void OrdersWindow::layOutList() {
    m_search->setObjectName("txOrderSearch");
    m_search->setAccessibleName("Find a number, an article or a text");
    m_search->setPlaceholderText("Find a number, an article or a text");
    m_search->setClearButtonEnabled(true);
    m_search->setMaxLength(longestPhrase);
    m_suppliers->setObjectName("OrderSuppliers");
    m_suppliers->setAccessibleDescription("Supplier");
    m_suppliers->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_suppliers->setMinimumContentsLength(12);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setMinimumHeight(fontMetrics().height() * fewestRows);
    setColumnWidths(*m_list, {24, 0, 22, 9, 16, 22});
}

QPushButton* OrdersWindow::addButton(const QString& caption, const QString& name,
                                     void (OrdersWindow::*act)()) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(false); // Enter in the search box presses nothing
    connect(button, &QPushButton::clicked, this, m_around.guard([this, act] { (this->*act)(); }));
    return button;
}

void OrdersWindow::addButtons() {
    m_showDocument = addButton("&Show document", "ShowDocument", &OrdersWindow::showDocument);
    m_printAgain = addButton("&Print or save again...", "PrintAgain", &OrdersWindow::printAgain);
    m_orderAgain = addButton("Order a&gain...", "OrderAgain", &OrdersWindow::orderAgain);
    m_continue = addButton("&Continue", "ContinueOrder", &OrdersWindow::continueUnfinished);
    m_delete = addButton("&Delete", "DeleteOrder", &OrdersWindow::deleteChosen);
    m_deleteBefore = addButton("Delete &before...", "DeleteBefore", &OrdersWindow::deleteBefore);
    auto* buttons = new FlowLayout;
    for (auto* button : {m_showDocument, m_printAgain, m_orderAgain, m_continue})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(m_delete);
    buttons->addWidget(m_deleteBefore);
    static_cast<QVBoxLayout*>(layout())->addLayout(buttons);
}

void OrdersWindow::connectControls() {
    auto& guard = m_around.guard;
    connect(m_search, &QLineEdit::textChanged, &m_typingPause, qOverload<>(&QTimer::start));
    connect(&m_typingPause, &QTimer::timeout, this, guard([this] { showFound(); }));
    connect(m_search, &QLineEdit::returnPressed, this, guard([this] {
                m_typingPause.stop();
                showFound();
                m_list->setFocus();
            }));
    connect(m_suppliers, &QComboBox::activated, this, guard([this] { showFound(); }));
    connect(m_list->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            guard([this] { showChosen(); }));
    connect(m_list, &QTableView::activated, this,
            guard([this] { m_unfinished ? continueUnfinished() : showDocument(); }));
    connect(m_chosen, &ChosenOrder::markedChanged, this, guard([this] { showButtons(); }));
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, m_search, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    connect(new QShortcut(QKeySequence::Delete, m_list, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, guard([this] { deleteChosen(); }));
}

void OrdersWindow::bringUp() {
    if (!std::exchange(m_placed, true)) {
        m_memory.placeAsDesigned(*this, designedSize);
        m_memory.restore(*this);
    }
    refresh();
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
    m_search->setFocus();
}

void OrdersWindow::refresh() {
    fillSuppliers();
    showFound();
}

void OrdersWindow::fillSuppliers() {
    const auto chosen = chosenSupplier();
    m_suppliers->clear();
    m_suppliers->addItem("All suppliers", QString());
    for (const auto& [folder, name] : m_around.kept.suppliers())
        m_suppliers->addItem(toQt(name).simplified(), toQt(folder));
    m_suppliers->setCurrentIndex(std::max(0, m_suppliers->findData(chosen)));
}

QString OrdersWindow::chosenSupplier() const {
    return m_suppliers->currentData().toString();
}

// The row that was chosen, or the one that has come to its place.
void OrdersWindow::showFound() {
    const int row = m_list->currentIndex().row();
    const auto* head = m_model->leftAt(row);
    const auto id = head ? head->id : 0;
    auto left = m_around.kept.find({fromQt(chosenSupplier()), fromQt(m_search->text())});
    const auto at =
        std::find_if(left.begin(), left.end(), [id](const auto& order) { return order.id == id; });
    const auto place = static_cast<int>(at - left.begin());
    const bool isThere = at != left.end();
    auto unfinished = unfinishedFound();
    const int before = static_cast<int>(unfinished.size());
    m_model->show(std::move(unfinished), std::move(left));
    keepRow(isThere ? before + place : row);
}

void OrdersWindow::keepRow(int row) {
    const int last = m_model->rowCount() - 1;
    if (last >= 0)
        m_list->setCurrentIndex(m_model->index(std::clamp(row, 0, last), 0));
    else
        showChosen();
}

// Those of the catalogue that is open which were kept for later.
std::vector<order::UnfinishedOrder> OrdersWindow::unfinishedFound() const {
    const auto supplier = fromQt(chosenSupplier());
    if (!supplier.empty() && !base::equalIgnoringCase(supplier, m_around.owner.supplier))
        return {};
    auto orders = order::unfinishedOrders(m_around.unfinished, m_around.owner).orders;
    std::erase_if(orders, [this](const auto& order) {
        return !order.keptForLater || !holdsWords(order, m_search->text());
    });
    return orders;
}

void OrdersWindow::showChosen() {
    m_order.reset();
    m_unfinished.reset();
    const int row = m_list->currentIndex().row();
    if (const auto* unfinished = m_model->unfinishedAt(row))
        m_unfinished = *unfinished;
    else if (const auto* left = m_model->leftAt(row))
        m_order = m_around.kept.read(left->id);
    if (m_order)
        m_chosen->show(*m_order);
    else if (m_unfinished)
        m_chosen->show(*m_unfinished);
    else
        m_chosen->showNothing(m_search->text().isEmpty() ? "No order has left yet." : "No order has this.");
    showButtons();
}

void OrdersWindow::showButtons() {
    const auto marked = m_chosen->marked().size();
    const bool isOwn = m_order && base::equalIgnoringCase(m_order->supplier, m_around.owner.supplier);
    for (auto* button : {m_showDocument, m_printAgain})
        button->setEnabled(m_order.has_value());
    m_orderAgain->setEnabled(isOwn);
    m_orderAgain->setToolTip(m_order && !isOwn ? onlyHere : "");
    m_orderAgain->setText(marked == 0 || m_unfinished ? QString("Order a&gain...")
                          : marked == 1               ? QString("Order 1 line a&gain...")
                                        : "Order " + QString::number(marked) + " lines a&gain...");
    m_continue->setVisible(m_unfinished.has_value());
    m_delete->setEnabled(m_order || m_unfinished);
}

void OrdersWindow::showDocument() {
    if (m_order)
        m_documents.preview(*m_order);
}

void OrdersWindow::printAgain() {
    if (m_order)
        m_documents.print(*m_order);
}

void OrdersWindow::orderAgain() {
    if (m_order)
        m_around.orderAgain(wantedAgain(m_chosen->rows(), m_chosen->marked()));
}

void OrdersWindow::continueUnfinished() {
    const auto order = *m_unfinished;
    reject(); // it goes on in the main window
    m_around.continueOrder(order);
}

void OrdersWindow::deleteChosen() {
    if (!m_order && !m_unfinished)
        return;
    const auto which = m_unfinished ? "the unfinished order of " + momentText(m_unfinished->changed)
                                    : "the order of " + momentText(m_order->left);
    const auto question = "Do you want to delete " + which + "?\nIt cannot be brought back.";
    if (m_around.messages.ask(platform::Icon::question, "Delete order", fromQt(question),
                              platform::Answer::no) != platform::Answer::yes)
        return;
    if (m_order)
        m_around.kept.remove(m_model->leftAt(m_list->currentIndex().row())->id);
    else if (!order::deleteUnfinished(*m_unfinished))
        m_around.messages.show(platform::Icon::critical, "Delete order",
                               "The file of the order could not be deleted. Please see whether its folder "
                               "can be written, and try again.");
    refresh();
}

void OrdersWindow::deleteBefore() {
    const auto whose = chosenSupplier().isEmpty() ? QString("all suppliers") : m_suppliers->currentText();
    DeleteBeforeDialog dialog(whose, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const auto supplier = fromQt(chosenSupplier());
    const auto left = m_around.kept.find({supplier, {}});
    const auto count = static_cast<std::size_t>(std::count_if(
        left.begin(), left.end(), [&](const auto& order) { return order.left < dialog.before(); }));
    const auto before = " that left before " + shortDate(dialog.date());
    if (count == 0)
        return m_around.messages.show(platform::Icon::information, "Delete orders",
                                      fromQt("There is no order" + before + "."));
    const auto question =
        "Do you want to delete " + countOf(count) + before + "?\nThey cannot be brought back.";
    if (m_around.messages.ask(platform::Icon::question, "Delete orders", fromQt(question),
                              platform::Answer::no) == platform::Answer::yes)
        removeBefore(dialog.before(), supplier);
}

// In steps, between which the window stays alive.
void OrdersWindow::removeBefore(std::chrono::system_clock::time_point before, const std::string& supplier) {
    if (m_around.kept.removeBefore(before, supplier, removedAtOnce) < removedAtOnce)
        return refresh();
    QTimer::singleShot(0, this, m_around.guard([=, this] { removeBefore(before, supplier); }));
}

// What is being printed is seen to its end, or cancelled, first.
void OrdersWindow::reject() {
    if (auto* printer = busyPrinter())
        return printer->showBusy();
    if (isVisible())
        m_memory.save(*this);
    QDialog::reject();
}

}
