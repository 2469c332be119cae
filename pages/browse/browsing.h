#pragma once

#include "catalog/catalog.h"
#include "pages/browse/history.h"
#include "pages/catalog_pages.h"
#include "pages/page_setting.h"
#include "pages/scratch_page.h"
#include "platform/browser.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

namespace pages {

/// What the main window shows of its catalogue: the banner, and the page of the current record.
/// The setting, the catalogue and both browsers must outlive it. A page that cannot be written to the scratch
/// page is shown all the same; the first one throws base::FileError when it is up. A page for which a data
/// file was read that is no longer whole is not shown: base::DamagedFile names the file.
class Browsing {
public:
    Browsing(const PageSetting& setting, const catalog::Catalog& catalog, platform::Browser& banner,
             platform::Browser& page);

    /// The banner, built against record 1, which becomes current. Its load must have finished before
    /// `showRecord` is called, since both are written to the one scratch page.
    void showBanner();

    /// Makes the record current, shows its page and records it in the history.
    void showRecord(std::int32_t recordNumber);

    /// Shows the current record's page again, at a place in it, without recording it.
    void showAgain(std::string_view place = {});

    /// Shows another page of the supplier's in place of the current record's; the bytes are the file's.
    void showPage(const std::filesystem::path& file, std::string_view bytes, std::string_view place);

    /// The record to go back to, for `showRecord`. Nothing where there is none.
    [[nodiscard]] std::optional<std::int32_t> stepBack() { return m_history.back(m_currentRecord); }

    [[nodiscard]] const History& history() const { return m_history; }

    /// For all pages from now on; a record's page that is up is shown again, with its prices.
    void setTaxStatus(TaxStatus status);

    /// The current record's own page is what is up.
    [[nodiscard]] bool recordIsUp() const { return m_recordIsUp; }

    [[nodiscard]] const std::filesystem::path& scratchPage() const { return m_scratchPage.path(); }

private:
    void put(platform::Browser& browser, std::string_view text, std::string_view place);

    const catalog::Catalog& m_catalog;
    CatalogPages m_pages;
    ScratchPage m_scratchPage;
    platform::Browser& m_banner;
    platform::Browser& m_page;
    TaxStatus m_taxStatus = TaxStatus::taxed;
    std::int32_t m_currentRecord = 1;
    History m_history;
    bool m_recordIsUp = false;
    bool m_failureReported = false;
};

}
