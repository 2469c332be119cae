#include "ui/browsing.h"

namespace ui {

Browsing::Browsing(const app::Session& session, const catalog::Catalog& catalog, platform::Browser& banner,
                   platform::Browser& page)
    : m_pages(catalog, session.folders, session.layout, session.programFileReadOnly),
      m_scratchPage(session.folders.UserFolder),
      m_banner(banner),
      m_page(page) {}

void Browsing::showBanner() {
    m_currentRecord = 1;
    const auto text = m_pages.banner(m_currentRecord, m_taxStatus);
    m_scratchPage.write(text);
    m_banner.show(m_scratchPage.path(), text);
}

void Browsing::showRecord(std::int32_t recordNumber) {
    m_currentRecord = recordNumber;
    showAgain();
    m_history.push(recordNumber);
}

void Browsing::showAgain() {
    m_recordIsUp = true;
    const auto text = m_pages.page(m_currentRecord, m_taxStatus);
    m_scratchPage.write(text);
    m_page.show(m_scratchPage.path(), text);
}

void Browsing::showPage(const std::filesystem::path& file, std::string_view bytes) {
    m_recordIsUp = false;
    m_page.show(file, bytes);
}

void Browsing::setTaxStatus(pages::TaxStatus status) {
    m_taxStatus = status;
    if (m_recordIsUp)
        showAgain();
}

}
