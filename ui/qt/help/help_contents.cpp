#include "ui/qt/help/help_contents.h"

#include "ui/qt/widgets/qt_text.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace ui::qt {
namespace {

constexpr int rowPadding = 8;
constexpr int pageRole = Qt::UserRole;
constexpr int anchorRole = Qt::UserRole + 1;

HelpPlace placeOf(const QTreeWidgetItem& item) {
    return {item.data(0, pageRole).toString().toStdString(),
            item.data(0, anchorRole).toString().toStdString()};
}

template <typename Parent>
QTreeWidgetItem* addEntry(Parent* parent, std::string_view title, const std::string& page,
                          const std::string& anchor) {
    auto* item = new QTreeWidgetItem(parent, {toQt(title)});
    item->setToolTip(0, asToolTip(toQt(title)));
    item->setData(0, pageRole, QString::fromStdString(page));
    item->setData(0, anchorRole, QString::fromStdString(anchor));
    return item;
}

QString countText(std::size_t pages, const QString& phrase) {
    if (pages == 0)
        return "No page holds \"" + phrase + "\"";
    return pages == 1 ? QString("1 page") : QString::number(pages) + " pages";
}

}

HelpContents::HelpContents(const HelpBook& book, QWidget* parent)
    : QWidget(parent),
      m_book(book),
      m_phrase(new QLineEdit(this)),
      m_count(new QLabel(this)),
      m_lists(new QStackedWidget(this)),
      m_contents(new QTreeWidget(this)),
      m_hits(new QListWidget(this)) {
    m_phrase->setObjectName("txHelpSearch");
    m_phrase->setAccessibleName("Search the help");
    m_phrase->setPlaceholderText("Search the help");
    m_phrase->setClearButtonEnabled(true);
    m_phrase->installEventFilter(this);
    m_count->setTextFormat(Qt::PlainText);
    m_count->setWordWrap(true);
    m_count->hide();
    m_contents->setObjectName("HelpContents");
    m_contents->setAccessibleName("Contents");
    m_contents->setHeaderHidden(true);
    m_hits->setObjectName("HelpHits");
    m_hits->setAccessibleName("Pages found");
    m_lists->addWidget(m_contents);
    m_lists->addWidget(m_hits);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 0, 6);
    layout->addWidget(m_phrase);
    layout->addWidget(m_count);
    layout->addWidget(m_lists, 1);
    fill();
    connect(m_phrase, &QLineEdit::textChanged, this, &HelpContents::search);
    const auto choose = [this](const QTreeWidgetItem* item) {
        if (item)
            emit placeChosen(placeOf(*item));
    };
    connect(m_contents, &QTreeWidget::currentItemChanged, this, choose);
    connect(m_contents, &QTreeWidget::itemClicked, this, choose);
    connect(m_hits, &QListWidget::currentRowChanged, this, &HelpContents::chooseHit);
    connect(m_hits, &QListWidget::itemClicked, this, [this] { chooseHit(m_hits->currentRow()); });
}

void HelpContents::fill() {
    m_contents->setUniformRowHeights(true);
    for (const auto& page : m_book.pages()) {
        auto* entry = addEntry(m_contents, page.title, page.file, {});
        entry->setSizeHint(0, QSize(0, fontMetrics().height() + rowPadding));
        for (const auto& section : page.sections)
            addEntry(entry, section.title, page.file, section.anchor);
    }
}

void HelpContents::search() {
    const auto phrase = m_phrase->text().trimmed();
    m_found = m_book.search(fromQt(phrase));
    const QSignalBlocker quiet(m_hits);
    m_hits->clear();
    for (const auto& hit : m_found)
        addHit(m_book.pages().at(hit.page).title);
    m_count->setText(countText(m_found.size(), phrase));
    m_count->setVisible(!phrase.isEmpty());
    m_lists->setCurrentWidget(phrase.isEmpty() ? static_cast<QWidget*>(m_contents) : m_hits);
    if (phrase.isEmpty())
        emit searchCleared();
}

void HelpContents::addHit(std::string_view title) {
    auto* entry = new QListWidgetItem(toQt(title), m_hits);
    entry->setSizeHint(QSize(0, fontMetrics().height() + rowPadding));
    entry->setToolTip(asToolTip(toQt(title)));
}

void HelpContents::chooseHit(int row) {
    if (row < 0 || row >= static_cast<int>(m_found.size()))
        return;
    const auto& hit = m_found.at(static_cast<std::size_t>(row));
    emit hitChosen({m_book.pages().at(hit.page).file, {}}, toQt(hit.marked));
}

// Enter and the arrows lead from the search box to the pages found.
bool HelpContents::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_phrase || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Down)
        return false;
    if (!m_found.empty()) {
        const QSignalBlocker quiet(m_hits);
        m_hits->setCurrentRow(0);
        m_hits->setFocus();
        chooseHit(0);
    }
    return true;
}

void HelpContents::focusSearch() {
    m_phrase->setFocus(Qt::ShortcutFocusReason);
    m_phrase->selectAll();
}

void HelpContents::follow(const HelpPlace& place) {
    const QSignalBlocker quiet(m_contents);
    QTreeWidgetItem* shown = nullptr;
    for (QTreeWidgetItemIterator it(m_contents); *it; ++it) {
        const auto entry = placeOf(**it);
        if (entry.page == place.page && (entry.anchor.empty() || entry.anchor == place.anchor))
            shown = *it;
    }
    if (shown)
        m_contents->setCurrentItem(shown);
}

}
