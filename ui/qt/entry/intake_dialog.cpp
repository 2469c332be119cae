#include "ui/qt/entry/intake_dialog.h"

#include "base/numbers.h"
#include "ui/qt/widgets/qt_text.h"
#include "ui/qt/widgets/window_place.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace ui::qt {
namespace {

constexpr int designedWidth = 90; // in average characters

QString counted(std::size_t number, const char* one, const char* many) {
    return QString::number(number) + ' ' + (number == 1 ? one : many);
}

QLabel* plainLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

struct OverlapRow {
    Overlap overlap;
    const char* caption;
};

constexpr std::array overlaps{OverlapRow{Overlap::add, "Add to the quantity on the order"},
                              OverlapRow{Overlap::replace, "Put in place of it"},
                              OverlapRow{Overlap::keep, "Leave it as it is"}};

}

IntakeDialog::IntakeDialog(const catalog::Catalog& catalog, const order::Basket& basket, IntakeView view,
                           QWidget* parent)
    : QDialog(parent),
      m_catalog(catalog),
      m_basket(basket),
      m_view(std::move(view)),
      m_refused(new TextTable("IntakeRefused", "Cannot be ordered",
                              {{"Line", true}, {"Code"}, {"Description"}, {"Quantity", true}, {"Why not"}},
                              this)),
      m_prices(new TextTable("IntakePrices", "Changed prices",
                             {{"Code"}, {"Description"}, {"Before", true}, {"Now", true}}, this)),
      m_overlap(new QComboBox(this)),
      m_sum(plainLabel({}, this)),
      m_order(new QPushButton("&Order these", this)) {
    setObjectName("Intake");
    setWindowTitle(asTitle(m_view.title));
    m_sum->setObjectName("lbIntakeSum");
    m_order->setObjectName("IntakeOrder");
    m_overlap->setObjectName("IntakeOverlap");
    m_overlap->setAccessibleName("Articles that are on the order already");
    for (const auto& row : overlaps)
        m_overlap->addItem(row.caption);
    m_overlap->setCurrentIndex(static_cast<int>(m_view.overlap));
    layOut();
    fillRefused();
    fillPrices();
    showSum();
    connect(m_overlap, &QComboBox::currentIndexChanged, this, [this] { showSum(); });
}

void IntakeDialog::layOut() {
    const auto& intake = m_view.intake;
    const auto onOrder = sumOf(intake, m_catalog.products, m_basket, overlap()).onOrder;
    auto* layout = new QVBoxLayout(this);
    const auto add = [&](QWidget* widget, const QString& heading, bool isThere, int stretch) {
        if (isThere)
            layout->addWidget(plainLabel(heading, this));
        layout->addWidget(widget, stretch);
        widget->setVisible(isThere);
    };
    layout->addWidget(plainLabel(m_view.sentence, this));
    add(m_refused,
        counted(intake.refused.size(), "line", "lines") + " cannot be ordered:", !intake.refused.empty(), 1);
    add(m_prices,
        counted(intake.prices.size(), "article has", "articles have") + " another price now (without tax):",
        !intake.prices.empty(), 1);
    add(m_overlap, counted(onOrder, "article is", "articles are") + " on the order already:",
        onOrder > 0 && m_view.mayChooseOverlap, 0);
    layout->addWidget(m_sum);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->addButton(m_order, QDialogButtonBox::AcceptRole);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("IntakeCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * designedWidth, sizeHint().height());
    placeCentred(*this, *parentWidget());
}

void IntakeDialog::fillRefused() {
    const auto& refused = m_view.intake.refused;
    m_refused->fill(refused.size(), [&refused](std::size_t row, std::size_t column) {
        const auto& [line, reason] = refused.at(row);
        const std::array cells{line.place == 0 ? QString() : QString::number(line.place), toQt(line.code),
                               toQt(line.description), toQt(line.quantity), toQt(reason)};
        return cells.at(column);
    });
    m_refused->setColumnHidden(0, refused.empty() || refused.front().line.place == 0);
}

void IntakeDialog::fillPrices() {
    const auto& prices = m_view.intake.prices;
    m_prices->fill(prices.size(), [this, &prices](std::size_t row, std::size_t column) {
        const auto& price = prices.at(row);
        const auto record = m_catalog.products.at(price.product);
        const std::array cells{toQt(record.code()), toQt(record.descriptionLine()),
                               toQt(priceText(price.before)), toQt(priceText(price.now))};
        return cells.at(column);
    });
}

Overlap IntakeDialog::overlap() const {
    return overlaps.at(static_cast<std::size_t>(m_overlap->currentIndex())).overlap;
}

void IntakeDialog::showSum() {
    const auto sum = sumOf(m_view.intake, m_catalog.products, m_basket, overlap());
    m_sum->setText(sum.articles == 0 ? QString("There is nothing to order.")
                                     : counted(sum.articles, "article", "articles") +
                                           " will be ordered. The order then comes to " +
                                           toQt(base::groupedText(sum.orderTotal)) + ".");
    m_order->setEnabled(sum.articles > 0);
    m_order->setDefault(true);
}

}
