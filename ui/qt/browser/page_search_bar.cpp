#include "ui/qt/browser/page_search_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>
#include <QWebEngineFindTextResult>

namespace ui::qt {

PageSearchBar::PageSearchBar(PageBrowser& browser, QWidget* parent)
    : QWidget(parent), m_browser(browser), m_text(new QLineEdit(this)), m_result(new QLabel(this)) {
    setObjectName("PageSearch");
    m_text->setObjectName("txtPageSearch");
    m_text->setAccessibleName("Find on this page");
    m_text->setPlaceholderText("Find on this page");
    m_text->setClearButtonEnabled(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(m_text, 1);
    const auto addButton = [&](Qt::ArrowType arrow, const char* name, bool backward) {
        auto* button = new QToolButton(this);
        button->setArrowType(arrow);
        button->setAccessibleName(name);
        button->setToolTip(name);
        button->setAutoRaise(true);
        connect(button, &QToolButton::clicked, this, [this, backward] { search(backward); });
        layout->addWidget(button);
    };
    addButton(Qt::UpArrow, "Previous place (Shift+Enter)", true);
    addButton(Qt::DownArrow, "Next place (Enter)", false);
    layout->addWidget(m_result);
    layout->addStretch(1);
    connect(m_text, &QLineEdit::textChanged, this, [this] { search(false); });
    hide();
}

void PageSearchBar::open() {
    show();
    m_text->setFocus();
    m_text->selectAll();
}

void PageSearchBar::search(bool backward) {
    auto* view = m_browser.view();
    if (!view)
        return;
    const auto flags = backward ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags();
    view->page()->findText(m_text->text(), flags, [this](const QWebEngineFindTextResult& result) {
        const bool none = result.numberOfMatches() == 0;
        m_result->setText(m_text->text().isEmpty() ? QString()
                          : none                   ? QString("Not on this page")
                                                   : QString::number(result.activeMatch()) + " of " +
                                       QString::number(result.numberOfMatches()));
    });
}

void PageSearchBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        search(event->modifiers().testFlag(Qt::ShiftModifier));
    else
        QWidget::keyPressEvent(event);
}

void PageSearchBar::close() {
    if (auto* view = m_browser.view())
        view->findText({});
    hide();
    m_browser.setFocus();
}

}
