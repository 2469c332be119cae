#include "pages/browse/browsing.h"

#include "base/errors.h"

#include <utility>

namespace pages {

Browsing::Browsing(const PageSetting& setting, const catalog::Catalog& catalog, platform::Browser& banner,
                   platform::Browser& page)
    : m_catalog(catalog),
      m_pages(catalog, setting.folders, setting.layout, setting.programFileReadOnly),
      m_scratchPage(setting.folders.UserFolder),
      m_banner(banner),
      m_page(page) {}

void Browsing::showBanner() {
    m_currentRecord = 1;
    put(m_banner, m_pages.banner(m_currentRecord, m_taxStatus), {});
}

void Browsing::showRecord(std::int32_t recordNumber) {
    m_currentRecord = recordNumber;
    m_history.push(recordNumber);
    showAgain();
}

void Browsing::showAgain(std::string_view place) {
    m_recordIsUp = true;
    put(m_page, m_pages.page(m_currentRecord, m_taxStatus), place);
}

void Browsing::put(platform::Browser& browser, std::string_view text, std::string_view place) {
    m_catalog.requireWhole();
    std::optional<base::FileError> failure;
    try {
        m_scratchPage.write(text);
    } catch (const base::FileError& error) {
        failure = error;
    }
    browser.show(m_scratchPage.path(), text, place);
    if (failure && !std::exchange(m_failureReported, true))
        throw base::FileError(*failure);
}

void Browsing::showPage(const std::filesystem::path& file, std::string_view bytes, std::string_view place) {
    m_recordIsUp = false;
    m_page.show(file, bytes, place);
}

void Browsing::setTaxStatus(TaxStatus status) {
    m_taxStatus = status;
    if (m_recordIsUp)
        showAgain();
}

}
