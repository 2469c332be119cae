#include "publish/templates/preview.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "catalog/template_names.h"
#include "order/order_mail.h"
#include "order/order_writer.h"
#include "pages/catalog_pages.h"
#include "pages/template/whole_page.h"
#include "publish/templates/sample_order.h"
#include "publish/templates/viewer_setting.h"

#include <array>
#include <charconv>
#include <functional>

namespace publish {
namespace {

namespace fs = std::filesystem;
using order::OutputKind;
using pages::TaxStatus;

[[noreturn]] void fail(const std::string& utf8) {
    throw base::FileError(base::fromUtf8(utf8));
}

// What ends the viewer is told as what is to be done about it.
std::string rendered(const catalog::Folders& folders, std::string_view name,
                     const std::function<std::string()>& render) {
    const std::string file(name);
    try {
        return render();
    } catch (const base::MissingFile&) {
        fail(file + " is missing from " + base::toUtf8(base::textOf(folders.DataFolder)) +
             ", so the viewer has nothing to show; put the template into the folder");
    } catch (const base::DamagedFile&) {
        fail("The viewer takes " + file + " for damaged and ends; check the catalogue to learn why");
    } catch (const order::NotANumber&) {
        fail("An order fails with " + file + ": {PRICEINC} is no number in an order with tax");
    }
}

class Previewer {
public:
    Previewer(const fs::path& folder, const catalog::Catalog& catalog)
        : m_folders(foldersFor(folder)), m_catalog(catalog), m_parameters(catalog.parameters) {}

    [[nodiscard]] Preview named(std::string_view name) const;
    [[nodiscard]] Preview ofRecord(std::int32_t number) const;
    [[nodiscard]] std::int32_t recordOf(std::string_view what) const;

private:
    [[nodiscard]] Preview welcome() const;
    [[nodiscard]] Preview banner() const;
    [[nodiscard]] Preview order(OutputKind kind) const;

    [[nodiscard]] pages::CatalogPages pages() const { return {m_catalog, m_folders, usualSizes(), false}; }

    catalog::Folders m_folders;
    const catalog::Catalog& m_catalog;
    const catalog::Parameters& m_parameters;
};

Preview Previewer::named(std::string_view name) const {
    if (name == "welcome")
        return welcome();
    if (name == "banner")
        return banner();
    return order(name == "order" ? OutputKind::print : OutputKind::email);
}

Preview Previewer::welcome() const {
    const pages::ParameterFields fields(m_parameters, m_folders, false);
    return {rendered(m_folders, catalog::welcomeTemplate,
                     [&] {
                         return pages::wholePage(m_folders.DataFolder, catalog::welcomeTemplate, usualSizes(),
                                                 fields);
                     }),
            "the welcome page", true};
}

Preview Previewer::banner() const {
    return {rendered(m_folders, catalog::bannerTemplate,
                     [&] { return std::string(pages().banner(1, TaxStatus::taxed)); }),
            "the banner", true};
}

Preview Previewer::order(OutputKind kind) const {
    const order::OrderWriter writer(m_parameters, m_folders.DataFolder, usualSizes());
    constexpr auto status = TaxStatus::taxed; // as every order begins, also where no tax is charged
    const auto name = order::orderTemplateName(kind, m_parameters.chargesTax(), status);
    const auto file = writer.readTemplate(kind, status);
    if (!file)
        fail(std::string(name) + " is missing or larger than 8 MB, so the viewer cannot " +
             (kind == OutputKind::print ? "print" : "e-mail") + " an order");
    const auto contents = sampleOrder(m_catalog, status);
    if (kind == OutputKind::print)
        return {rendered(m_folders, name, [&] { return writer.page(*file, contents); }),
                "a sample order, printed", true};
    return {rendered(m_folders, name, [&] { return writer.mailText(*file, contents); }),
            "a sample order, e-mailed", order::isHtmlTemplate(file->text)};
}

Preview Previewer::ofRecord(std::int32_t number) const {
    const auto record = m_catalog.products.at(number);
    const bool first = m_parameters.header().groupPageStyle() == catalog::firstGroupStyle;
    const auto group = first ? catalog::firstGroupTemplate : catalog::secondGroupTemplate;
    return {rendered(m_folders, record.isProduct() ? catalog::productTemplate : group,
                     [&] { return std::string(pages().page(number, TaxStatus::taxed)); }),
            "the page of " + base::toUtf8(record.code()), true};
}

std::int32_t Previewer::recordOf(std::string_view what) const {
    const auto count = m_catalog.products.count();
    if (what.empty() && count > 0)
        return 1;
    const auto found = m_catalog.codes.find(base::fromUtf8(what));
    if (found >= 1 && found <= count)
        return found;
    std::int32_t number = 0;
    const auto* const end = what.data() + what.size();
    const auto [stop, error] = std::from_chars(what.data(), end, number);
    if (error != std::errc() || stop != end || number < 1 || number > count)
        fail(count == 0 ? std::string("The catalogue has no products and no groups, so it has no pages")
                        : "No product and no group has the code \"" + std::string(what) +
                              "\"; give a code, the number of a record from 1 to " + std::to_string(count) +
                              ", or welcome, banner, order or mail");
    return number;
}

}

Preview preview(const fs::path& folder, std::string_view what) {
    constexpr std::array<std::string_view, 4> names{"welcome", "banner", "order", "mail"};
    const auto dataFolder = fullPath(folder);
    Complaints complaints;
    const auto catalog = openInstalled(dataFolder, complaints);
    if (!catalog)
        fail(base::toUtf8(base::textOf(dataFolder)) + ": " + textOf(complaints.front()));
    const Previewer previewer(dataFolder, *catalog);
    for (const auto name : names)
        if (what == name)
            return previewer.named(name);
    return previewer.ofRecord(previewer.recordOf(what));
}

}
