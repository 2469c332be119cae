#pragma once

#include "app/session.h"
#include "catalog/catalog.h"
#include "pages/catalog_pages.h"
#include "pages/scratch_page.h"
#include "platform/browser.h"

#include <cstdint>

namespace ui {

/// What the main window shows of its catalogue: the banner, and the page of the current record.
/// The session, the catalogue and both browsers must outlive it.
class Browsing {
public:
    Browsing(const app::Session& session, const catalog::Catalog& catalog, platform::Browser& banner,
             platform::Browser& page);

    /// The banner, built against record 1, which becomes current. Its load must have finished before
    /// `showRecord` is called, since both are written to the one scratch page.
    void showBanner();

    /// Makes the record current and shows its page.
    void showRecord(std::int32_t recordNumber);

    /// For all pages from now on; the page that is up is shown again, with its prices.
    void setTaxStatus(pages::TaxStatus status);

    [[nodiscard]] std::int32_t currentRecord() const { return m_currentRecord; }
    [[nodiscard]] pages::TaxStatus taxStatus() const { return m_taxStatus; }

private:
    pages::CatalogPages m_pages;
    pages::ScratchPage m_scratchPage;
    platform::Browser& m_banner;
    platform::Browser& m_page;
    pages::TaxStatus m_taxStatus = pages::TaxStatus::taxed;
    std::int32_t m_currentRecord = 1;
    bool m_pageIsUp = false;
};

}
