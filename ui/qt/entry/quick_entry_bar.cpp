#include "ui/qt/entry/quick_entry_bar.h"

#include "ui/qt/widgets/flow_layout.h"
#include "ui/qt/widgets/qt_text.h"
#include "ui/quick_entry.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace ui::qt {
namespace {

constexpr int pauseMs = 80;
constexpr int scanPauseMs = 60;
constexpr std::int32_t rowsAtATime = 20'000; // a few milliseconds
constexpr int codeWidth = 24;                // in average characters
constexpr int quantityWidth = 8;
constexpr int longestCode = 100; // no record's texts are longer

// Some scanners end a code with a control character.
bool isEnter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.text() == "\n" ||
           key.text() == "\r";
}

bool isModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_AltGr ||
           key == Qt::Key_Meta || key == Qt::Key_CapsLock;
}

}

QuickEntryBar::QuickEntryBar(const catalog::Catalog& catalog, OrderScreen& order, Guard& guard,
                             QWidget* parent)
    : QWidget(parent),
      m_catalog(catalog),
      m_order(order),
      m_guard(guard),
      m_code(new QLineEdit(this)),
      m_quantity(new QLineEdit(this)),
      m_scanner(new QCheckBox("Scanner", this)),
      m_said(new QLabel(this)),
      m_close(new QToolButton(this)) {
    nameControls();
    layOut();
    connectControls();
    hide();
}

void QuickEntryBar::nameControls() {
    setObjectName("QuickEntry");
    m_code->setObjectName("txQuickCode");
    m_code->setAccessibleName("Code of the article");
    m_code->setMaxLength(longestCode);
    m_code->setFixedWidth(fontMetrics().averageCharWidth() * codeWidth);
    m_quantity->setObjectName("txQuickQuantity");
    m_quantity->setAccessibleName("Quantity to order");
    m_quantity->setPlaceholderText("1");
    m_quantity->setFixedWidth(fontMetrics().averageCharWidth() * quantityWidth);
    m_scanner->setObjectName("cbQuickScanner");
    m_scanner->setToolTip("If ticked, Enter after a code orders one at once");
    m_said->setObjectName("lbQuickSaid");
    m_said->setTextFormat(Qt::PlainText);
    m_said->setWordWrap(true);
    m_close->setObjectName("QuickClose");
    m_close->setText(QChar(0x00D7));
    m_close->setAccessibleName("Close quick entry");
    m_close->setToolTip("Close quick entry (Esc)");
    m_close->setAutoRaise(true);
    m_close->setFocusPolicy(Qt::TabFocus);
}

void QuickEntryBar::layOut() {
    const auto captioned = [this](const QString& caption, QWidget* box) {
        auto* pair = new QHBoxLayout;
        pair->addWidget(new QLabel(caption, this));
        pair->addWidget(box);
        return pair;
    };
    auto* boxes = new QHBoxLayout;
    boxes->addLayout(captioned("Code", m_code));
    boxes->addLayout(captioned("Quantity", m_quantity));
    boxes->addWidget(m_scanner);
    boxes->addStretch(1);
    boxes->addWidget(m_close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 6, 6, 4);
    layout->addLayout(boxes);
    layout->addWidget(m_said);
}

void QuickEntryBar::connectControls() {
    for (auto* box : std::array<QLineEdit*, 2>{m_code, m_quantity})
        box->installEventFilter(this);
    m_pause.setSingleShot(true);
    connect(m_code, &QLineEdit::textEdited, this, [this] {
        endSuggestions();
        m_pause.start(pauseMs);
    });
    connect(&m_pause, &QTimer::timeout, this, m_guard([this] { suggest(); }));
    m_scanEnds.setSingleShot(true);
    connect(&m_scanEnds, &QTimer::timeout, this, m_guard([this] { quantityEntered(); }));
    connect(&m_search, &QTimer::timeout, this, m_guard([this] { suggestMore(); }));
    connect(m_close, &QToolButton::clicked, this, &QuickEntryBar::close);
}

void QuickEntryBar::open() {
    if (!isVisible()) {
        m_formerFocus = window()->focusWidget();
        m_said->clear();
        show();
    }
    m_code->setFocus(Qt::ShortcutFocusReason);
    m_code->selectAll();
}

bool QuickEntryBar::eventFilter(QObject* watched, QEvent* event) {
    auto* box = qobject_cast<QLineEdit*>(watched);
    bool isTaken = false;
    if (box && event->type() == QEvent::KeyPress)
        m_guard.run([&] { isTaken = keyPressed(*box, *static_cast<QKeyEvent*>(event)); });
    return isTaken || QWidget::eventFilter(watched, event);
}

bool QuickEntryBar::keyPressed(QLineEdit& box, const QKeyEvent& key) {
    noteForScan(box, key);
    if (!isModifier(key.key()))
        m_scanEnds.stop();
    if (isEnter(key))
        enterPressed(box, std::chrono::milliseconds(key.timestamp()));
    else if (key.key() == Qt::Key_Escape)
        escape();
    else if (&box == m_code && (key.key() == Qt::Key_Down || key.key() == Qt::Key_Up)) {
        if (!m_list || !m_list->isVisible())
            suggest();
        if (m_list && m_list->isVisible())
            m_list->step(key.key() == Qt::Key_Down ? 1 : -1);
    } else
        return false;
    return true;
}

// A key without a time is nobody's.
void QuickEntryBar::noteForScan(const QLineEdit& box, const QKeyEvent& key) {
    const bool writes = !key.text().isEmpty() && key.text().at(0).isPrint();
    if (isEnter(key) || isModifier(key.key()))
        return;
    if (!writes || key.timestamp() == 0)
        m_scan.forget();
    else if (m_scan.keyTyped(fromQt(key.text()), std::chrono::milliseconds(key.timestamp())))
        m_beforeRun = box.text();
}

void QuickEntryBar::enterPressed(const QLineEdit& box, std::chrono::milliseconds when) {
    if (const auto code = m_scan.enterPressed(when))
        scanned(box, toQt(*code));
    else if (&box == m_code)
        codeEntered();
    else
        quantityEntered();
}

void QuickEntryBar::escape() {
    if (m_list && m_list->isVisible())
        endSuggestions();
    else
        close();
}

void QuickEntryBar::suggest() {
    m_pause.stop();
    if (!m_list) {
        m_list = new SuggestionList(m_catalog, *m_code);
        connect(m_list, &SuggestionList::clickedOn, this, m_guard([this](int product) { choose(product); }));
    }
    m_suggestions.emplace(m_catalog, fromQt(m_code->text()));
    m_list->show(m_suggestions->products());
    m_search.start(0);
    suggestMore();
}

void QuickEntryBar::suggestMore() {
    const auto known = m_suggestions->products().size();
    m_suggestions->goOn(rowsAtATime);
    if (m_suggestions->products().size() > known)
        m_list->show(m_suggestions->products());
    if (m_suggestions->finished())
        m_search.stop();
}

void QuickEntryBar::endSuggestions() {
    m_pause.stop();
    m_search.stop();
    if (m_list)
        m_list->hide();
}

void QuickEntryBar::choose(std::int32_t product) {
    m_code->setText(toQt(m_catalog.products.at(product).code()));
    codeEntered();
}

// The article that is chosen from the list, or the code as it was typed. True when its quantity comes next.
bool QuickEntryBar::codeEntered() {
    if (const auto product = m_list ? m_list->chosen() : std::nullopt)
        m_code->setText(toQt(m_catalog.products.at(*product).code()));
    endSuggestions();
    if (m_code->text().trimmed().isEmpty())
        return false;
    const auto line = planQuickLine(m_catalog, m_order.basket(), fromQt(m_code->text()), {});
    if (!line.intake) {
        m_said->setText(m_saidBefore + toQt(line.complaint));
        m_saidBefore.clear();
        m_code->setFocus();
        m_code->selectAll();
    } else if (m_scanner->isChecked()) {
        quantityEntered();
    } else {
        const auto record = m_catalog.products.at(line.intake->lines.front().product);
        m_said->setText(toQt(record.code()) + ' ' + toQt(record.descriptionLine()));
        m_quantity->setFocus();
        m_quantity->selectAll();
        return true;
    }
    return false;
}

void QuickEntryBar::quantityEntered() {
    m_scanEnds.stop();
    if (order(m_code->text(), m_quantity->text()))
        beginAgain();
    else
        m_quantity->selectAll();
}

// A scanner pauses after its Enter, and then one is ordered; a driver that is as fast goes on with the
// quantity. In the quantity's box a code lies over the quantity of the article before, which is ordered as it
// was.
void QuickEntryBar::scanned(const QLineEdit& box, const QString& code) {
    endSuggestions();
    if (&box == m_quantity && !m_code->text().isEmpty()) {
        order(m_code->text(), m_beforeRun);
        m_saidBefore = m_said->text() + "; ";
    }
    m_code->setText(code);
    m_quantity->clear();
    if (codeEntered())
        m_scanEnds.start(scanPauseMs);
}

bool QuickEntryBar::order(const QString& code, const QString& quantity) {
    const auto line = planQuickLine(m_catalog, m_order.basket(), fromQt(code), fromQt(quantity));
    if (line.intake)
        m_order.take(*line.intake, Overlap::add);
    const auto sentence = line.intake ? orderedSentence(m_catalog.products, m_order.basket(),
                                                        line.intake->lines.front().product)
                                      : line.complaint;
    m_said->setText(std::exchange(m_saidBefore, {}) + toQt(sentence));
    QAccessibleEvent said(m_said, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
    return line.intake.has_value();
}

void QuickEntryBar::beginAgain() {
    m_code->clear();
    m_quantity->clear();
    m_code->setFocus();
}

void QuickEntryBar::close() {
    if (m_scanEnds.isActive())
        quantityEntered();
    endSuggestions();
    hide();
    if (m_formerFocus && m_formerFocus->isVisible())
        m_formerFocus->setFocus();
}

}
