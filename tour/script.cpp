#include "tour/script.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace tour {
namespace {

constexpr int intervalMs = 25;
constexpr int patienceMs = 30000;
constexpr auto textProperty = "tourPageText";

QString quoted(QString text) {
    return "'" + text.replace('\\', "\\\\").replace('\'', "\\'") + "'";
}

}

Script& Script::when(const QString& what, Condition ready, Action act) {
    m_steps.push_back({what, std::move(ready), std::move(act)});
    return *this;
}

Script& Script::pause(int milliseconds) {
    auto waited = std::make_shared<QElapsedTimer>();
    return when(
        "a pause",
        [waited, milliseconds] {
            if (!waited->isValid())
                waited->start();
            return waited->elapsed() >= milliseconds;
        },
        [] {});
}

void Script::complain(const QString& what) {
    std::fprintf(stderr, "%s\n", qPrintable(what));
    m_complained = true;
}

bool Script::run() {
    m_failed = false;
    m_complained = false;
    m_waitedMs = 0;
    order();
    QApplication::exec();
    ++m_run;
    if (m_next < m_steps.size() && !m_failed)
        std::fprintf(stderr, "the program ended before: %s\n", qPrintable(m_steps[m_next].what));
    return m_next == m_steps.size() && !m_complained;
}

// A tick that was ordered in an earlier run is none of this one's.
void Script::order() {
    QTimer::singleShot(intervalMs, this, [this, run = m_run] {
        if (run == m_run)
            tick();
    });
}

// The next tick is ordered before the step is done, since a step may open a box and come back late.
void Script::tick() {
    if (m_next == m_steps.size()) {
        QApplication::quit();
        return;
    }
    auto& step = m_steps[m_next];
    order();
    if (step.ready()) {
        m_waitedMs = 0;
        ++m_next;
        step.act();
    } else if ((m_waitedMs += intervalMs) > patienceMs && !m_failed) {
        m_failed = true;
        std::fprintf(stderr, "waited too long for: %s\n", qPrintable(step.what));
        for (auto* window : QApplication::topLevelWidgets())
            if (window->isVisible())
                std::fprintf(stderr, "  on the screen: %s \"%s\"\n", window->metaObject()->className(),
                             qPrintable(window->windowTitle()));
        QApplication::exit(1);
    }
}

QWidget* visibleWidget(const QString& name) {
    for (auto* widget : QApplication::allWidgets())
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    return nullptr;
}

void activate(QWidget& window) {
    // Deliberate: what is to be called instead asks a window manager, and leaves other platforms as they are.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QApplication::setActiveWindow(&window);
    QT_WARNING_POP
}

bool takesKeys(const QWidget* widget) {
    return widget && widget->isVisible() && widget->window()->focusWidget() == widget &&
           !QApplication::activeModalWidget();
}

QMessageBox* messageBox(const QString& title) {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return box && box->isVisible() && box->windowTitle() == title ? box : nullptr;
}

void press(QMessageBox& box, QMessageBox::StandardButton button) {
    if (!box.button(button)) {
        std::fprintf(stderr, "not to be answered in that way: %s\n", qPrintable(box.text()));
        return;
    }
    QTest::mouseClick(box.button(button), Qt::LeftButton);
}

QAbstractPrintDialog* printDialog() {
    return qobject_cast<QAbstractPrintDialog*>(QApplication::activeModalWidget());
}

QString proposedFile(const QAbstractPrintDialog& dialog) {
    return dialog.findChild<QLineEdit*>("filename")->text();
}

// The PDF is the last entry of the dialog's list.
void printToFile(QAbstractPrintDialog& dialog, const std::filesystem::path& file) {
    auto* printers = dialog.findChild<QComboBox*>("printers");
    printers->setCurrentIndex(printers->count() - 1);
    dialog.findChild<QLineEdit*>("filename")->setText(QString::fromStdString(file.string()));
    dialog.accept();
}

void clickInPage(QWebEngineView& view, const QString& selector, Qt::MouseButton button,
                 Qt::KeyboardModifiers modifiers) {
    const auto script =
        "(function () { var e = document.querySelector(" + quoted(selector) +
        "); if (!e) return null; e.scrollIntoView({block: 'center'});"
        " var r = e.getClientRects()[0]; return [r.left + r.width / 2, r.top + r.height / 2]; })()";
    view.page()->runJavaScript(script, 1, [&view, selector, button, modifiers](const QVariant& found) {
        const auto place = found.toList();
        if (place.size() != 2 || !view.focusProxy()) { // without that nothing has been drawn yet
            std::fprintf(stderr, "nothing to click at: %s\n", qPrintable(selector));
            return;
        }
        const auto point = QPointF(place[0].toDouble(), place[1].toDouble()) * view.zoomFactor();
        QTest::mouseClick(view.focusProxy(), button, modifiers, point.toPoint());
    });
}

QString pageText(QWebEngineView& view) {
    view.page()->toPlainText([&view](const QString& text) { view.setProperty(textProperty, text); });
    return view.property(textProperty).toString();
}

}
