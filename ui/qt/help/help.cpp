#include "ui/qt/help/help.h"

#include "ui/help/help_topics.h"
#include "ui/qt/widgets/qt_text.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QToolButton>
#include <QWhatsThis>

#include <algorithm>
#include <optional>
#include <utility>

namespace ui::qt {
namespace {

constexpr int textBelow = 40; // how far from a control's top its text may be shown, in pixels

const HelpTopic* ownTopic(const QWidget& widget) {
    return helpTopicOf(fromQt(widget.objectName()));
}

struct Explained {
    QWidget* widget;
    const HelpTopic* topic;
};

// The control, or the nearest widget around it, that has a topic.
std::optional<Explained> nearestWithTopic(QWidget* control) {
    for (auto* widget = control; widget; widget = widget->parentWidget())
        if (const auto* topic = ownTopic(*widget))
            return Explained{widget, topic};
    return std::nullopt;
}

// A button of a toolbar takes its texts from its action again and again.
void explain(QWidget& widget) {
    const auto* topic = ownTopic(widget);
    if (!topic)
        return;
    widget.setWhatsThis(toQt(topic->whatsThis));
    const auto* button = qobject_cast<QToolButton*>(&widget);
    if (button && button->defaultAction())
        button->defaultAction()->setWhatsThis(widget.whatsThis());
}

void showWhatsThis(QWidget& control) {
    const auto found = nearestWithTopic(&control);
    if (!found)
        return;
    const QPoint place(0, std::min(found->widget->height(), textBelow));
    QWhatsThis::showText(found->widget->mapToGlobal(place), toQt(found->topic->whatsThis), found->widget);
}

}

Help::Help(std::filesystem::path folder, Guard& guard) : m_folder(std::move(folder)), m_guard(guard) {
    qApp->installEventFilter(this);
}

// Polishing is what every widget goes through once, before it is seen. Keys come to the widget that has
// the focus, the browser's own among them, before it can make anything of them.
bool Help::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType())
        return false;
    if (event->type() == QEvent::Polish)
        explain(*static_cast<QWidget*>(watched));
    return event->type() == QEvent::KeyPress &&
           keyPressed(*static_cast<QWidget*>(watched), *static_cast<QKeyEvent*>(event));
}

bool Help::keyPressed(QWidget& control, const QKeyEvent& key) {
    if (key.key() != Qt::Key_F1 || QApplication::activeModalWidget())
        return false;
    if (key.modifiers() == Qt::ShiftModifier)
        showWhatsThis(control);
    else if (key.modifiers() == Qt::NoModifier)
        openFor(control);
    return true;
}

void Help::openContents() {
    open(helpContentsPage);
}

void Help::openFor(QWidget& control) {
    const auto found = nearestWithTopic(&control);
    open(found ? found->topic->target : helpContentsPage);
}

// An open list would keep all keys to itself.
void Help::open(std::string_view target) {
    m_guard.run([&] {
        if (auto* list = QApplication::activePopupWidget())
            list->close();
        if (!m_window)
            m_window = std::make_unique<HelpWindow>(m_folder, m_guard);
        m_window->open(target);
    });
}

void Help::close() {
    if (m_window)
        m_window->close();
}

}
