#include "publish/templates/page_check.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "catalog/template_names.h"
#include "order/order_mail.h"
#include "order/order_writer.h"
#include "pages/catalog_pages.h"
#include "pages/group_entries.h"
#include "pages/template/whole_page.h"
#include "publish/templates/record_sample.h"
#include "publish/templates/rendered_check.h"
#include "publish/templates/sample_order.h"
#include "publish/templates/trial_rendering.h"
#include "publish/templates/viewer_setting.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace publish {
namespace {

namespace fs = std::filesystem;
using Weight = Complaint::Weight;
using order::OutputKind;
using pages::TaxStatus;

// So many pages that looking at them stays quick, however large a template is and however many tags it has.
std::size_t pagesWorthLookingAt(std::string_view text, std::size_t entries, std::size_t most) {
    constexpr std::size_t bytesOfPages = 20'000'000;
    constexpr std::size_t bytesGoneThrough = 500'000'000;
    const auto tags = static_cast<std::size_t>(std::count(text.begin(), text.end(), '{')) + 1;
    const auto page = (text.size() + 1) * entries;
    return std::clamp<std::size_t>(std::min(bytesOfPages / page, bytesGoneThrough / page / tags), 5, most);
}

class PageCheck {
public:
    PageCheck(const fs::path& folder, const catalog::Catalog& catalog, const CatalogFiles& files,
              Complaints& complaints)
        : m_folders(foldersFor(folder)), m_catalog(catalog), m_files(files), m_complaints(complaints) {}

    void run() {
        checkMailAddress();
        checkRecords();
        checkOne(catalog::bannerTemplate, "the banner",
                 [&] { return std::string(pages().banner(1, TaxStatus::taxed)); });
        checkOne(catalog::welcomeTemplate, "the welcome page", [&] {
            const pages::ParameterFields fields(m_catalog.parameters, m_folders, false);
            return pages::wholePage(m_folders.DataFolder, catalog::welcomeTemplate, usualSizes(), fields);
        });
        for (const auto kind : {OutputKind::print, OutputKind::email})
            for (const auto status : {TaxStatus::taxed, TaxStatus::exempt})
                if (m_catalog.parameters.chargesTax() || status == TaxStatus::exempt)
                    checkOrder(kind, status);
    }

private:
    /// A template whose pages are worth looking at, and what is made of them.
    struct Looked {
        std::string text;
        std::optional<RenderedCheck> check;
    };

    [[nodiscard]] pages::CatalogPages& pages() {
        if (!m_pages)
            m_pages.emplace(m_catalog, m_folders, usualSizes(), false);
        return *m_pages;
    }

    void begin(Looked& looked, std::string_view name);
    void lookAt(Looked& looked, const std::string& subject, const std::function<std::string()>& render);
    void checkOne(std::string_view name, const std::string& subject,
                  const std::function<std::string()>& render);
    void checkRecords();
    void checkOrder(OutputKind kind, TaxStatus status);
    void checkMailAddress();

    catalog::Folders m_folders;
    const catalog::Catalog& m_catalog;
    const CatalogFiles& m_files;
    Complaints& m_complaints;
    std::optional<pages::CatalogPages> m_pages;
};

// One that is missing, or damaged whatever the values are, has been complained of already.
void PageCheck::begin(Looked& looked, std::string_view name) {
    looked.text = base::readFile(base::filePath(m_folders.DataFolder, name)).value_or("");
    const auto use = templateUse(name);
    if (base::findFile(m_folders.DataFolder, name) && use &&
        looked.text.size() <= pages::RenderGuard::mostBytes &&
        tryRendering(looked.text, *use) == Trial::passed)
        looked.check.emplace(name, looked.text, m_catalog, m_folders, m_files, m_complaints);
}

void PageCheck::lookAt(Looked& looked, const std::string& subject,
                       const std::function<std::string()>& render) {
    if (!looked.check)
        return;
    try {
        looked.check->look(render(), subject);
    } catch (const base::DamagedFile&) {
        looked.check->damaged(subject);
    } catch (const order::NotANumber&) {
        looked.check->damaged(subject);
    }
}

void PageCheck::checkOne(std::string_view name, const std::string& subject,
                         const std::function<std::string()>& render) {
    Looked looked;
    begin(looked, name);
    lookAt(looked, subject, render);
    if (looked.check)
        looked.check->finish();
}

void PageCheck::checkRecords() {
    const bool first = m_catalog.parameters.header().groupPageStyle() == catalog::firstGroupStyle;
    Looked products;
    Looked groups;
    begin(products, catalog::productTemplate);
    begin(groups, first ? catalog::firstGroupTemplate : catalog::secondGroupTemplate);
    const SampleSize most{pagesWorthLookingAt(groups.text, pages::mostGroupEntries, 400),
                          pagesWorthLookingAt(products.text, 1, 1'500)};
    for (const auto number : recordSample(m_catalog, most)) {
        const auto record = m_catalog.products.at(number);
        lookAt(record.isProduct() ? products : groups,
               "the page of " + base::toUtf8(record.code()) + " (record " + std::to_string(number) + ")",
               [&] { return std::string(pages().page(number, TaxStatus::taxed)); });
    }
    for (auto* const looked : {&products, &groups})
        if (looked->check)
            looked->check->finish();
}

void PageCheck::checkOrder(OutputKind kind, TaxStatus status) {
    const order::OrderWriter writer(m_catalog.parameters, m_folders.DataFolder, usualSizes());
    const auto file = writer.readTemplate(kind, status);
    if (!file)
        return;
    checkOne(order::orderTemplateName(kind, m_catalog.parameters.chargesTax(), status), "a sample order",
             [&] {
                 const auto order = sampleOrder(m_catalog, status);
                 return kind == OutputKind::print ? writer.page(*file, order) : writer.mailText(*file, order);
             });
}

void PageCheck::checkMailAddress() {
    const auto& address = m_catalog.parameters.text(catalog::ParameterText::supplierEmail);
    if (!address.empty() && !order::isMailAddress(address))
        m_complaints.push_back(
            {Weight::error,
             {.file = std::string(catalog::parametersFile)},
             "the viewer sends no order to \"" + base::toUtf8(address) +
                 "\"; the e-mail address is to be a single one, without a name, like orders@acme.example",
             "mail-address"});
}

}

void checkPages(const fs::path& folder, const CatalogFiles& files, Complaints& complaints) {
    std::error_code ignored;
    const auto dataFolder = fs::weakly_canonical(folder, ignored);
    if (const auto catalog = openInstalled(dataFolder, complaints))
        PageCheck(dataFolder, *catalog, files, complaints).run();
}

}
