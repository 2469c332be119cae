#include "ui/qt/print/paper_page.h"

#include "ui/qt/browser/page_loader.h"
#include "ui/qt/browser/page_scripts.h"
#include "ui/qt/print/piece_check.h"

#include <QPointer>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

#include <utility>

namespace ui::qt {

PaperPage::PaperPage(pages::PageFiles files, Scripts scripts, QObject* parent)
    : QObject(parent),
      m_profile(std::make_unique<ConfinedProfile>(std::move(files), nullptr)),
      m_page(std::make_unique<ConfinedPage>(m_profile.get(), nullptr)),
      m_loader(std::make_unique<PageLoader>(*m_page, *m_profile, "print")) {
    m_profile->scripts()->insert(pageBreakScript());
    m_page->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, scripts == Scripts::on);
    connect(m_page.get(), &QWebEnginePage::loadFinished, this, [this](bool ok) {
        m_loader->finish();
        ok ? emit loaded() : emit failed();
    });
    connect(m_page.get(), &QWebEnginePage::renderProcessTerminated, this, &PaperPage::failed);
}

PaperPage::~PaperPage() = default;

void PaperPage::load(const std::filesystem::path& file, std::string_view bytes) {
    m_loader->load(file, bytes);
}

void PaperPage::askSurroundings(std::size_t breaks) {
    const auto tell = [self = QPointer(this)](const QVariant& tags) {
        if (self)
            emit self->surroundings(tags.toString());
    };
    m_page->runJavaScript(pieceCheck(breaks), QWebEngineScript::ApplicationWorld, tell);
}

void PaperPage::makePdf(const QPageLayout& layout, const QPageRanges& ranges) {
    const auto tell = [self = QPointer(this)](const QByteArray& pdf) {
        if (!self)
            return;
        if (pdf.isEmpty())
            emit self->failed();
        else
            emit self->made(pdf);
    };
    m_page->printToPdf(tell, layout, ranges);
}

}
