#include "ui/qt/widgets/guard.h"

#include "base/errors.h"

#include <QCoreApplication>

#include <new>

namespace ui::qt {

void Guard::run(const std::function<void()>& work) {
    if (m_ending)
        return;
    try {
        m_check();
        work();
        m_check();
    } catch (const base::ProgramEnd& end) {
        m_ending = true;
        m_messages.show(platform::Icon::critical, end.title(), end.text());
        this->end(1);
    } catch (const base::Quit&) {
        end(0);
    } catch (const std::exception& error) {
        m_messages.show(platform::Icon::critical, "Tavorine", error.what());
    }
}

void Guard::end(int exitCode) {
    m_ending = true;
    QCoreApplication::exit(exitCode);
}

}
