#include "ui/qt/entry/intake_desk.h"

#include <utility>

namespace ui::qt {

void IntakeDesk::take(std::span<const WantedLine> lines, Request request) {
    if (m_dialog)
        return;
    m_around.order.closePending();
    takePlanned(planIntake(m_around.catalog, m_around.order.basket(), lines), std::move(request));
}

void IntakeDesk::takePlanned(Intake intake, Request request) {
    if (m_dialog)
        return;
    const bool isDifferent = !intake.refused.empty() || !intake.prices.empty();
    if (isDifferent || request.look == Look::always)
        return ask(std::move(intake), std::move(request));
    m_around.order.take(intake, request.overlap);
    if (request.taken)
        request.taken();
}

void IntakeDesk::ask(Intake intake, Request request) {
    m_dialog = new IntakeDialog(m_around.catalog, m_around.order.basket(),
                                {.title = request.title,
                                 .sentence = request.sentence,
                                 .intake = std::move(intake),
                                 .overlap = request.overlap,
                                 .mayChooseOverlap = request.mayChooseOverlap},
                                &m_around.window);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_dialog, &QDialog::accepted, this, m_around.guard([this, done = request.taken] {
        m_around.order.take(m_dialog->intake(), m_dialog->overlap());
        m_around.window.activateWindow(); // the lines may come from another one
        if (done)
            done();
    }));
    connect(m_dialog, &QDialog::rejected, this, m_around.guard([done = request.refused] {
        if (done)
            done();
    }));
    m_dialog->open();
}

}
