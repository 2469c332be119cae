#include "base/code_page.h"
#include "base/numbers.h"
#include "base/text.h"
#include "publish/existing/compare/diff.h"
#include "publish/existing/shown_numbers.h"

#include <cmath>

namespace publish {
namespace {

/// Parts of a sum, with commas between.
class Sum {
public:
    /// "3 new products", "1 new product"; nothing for none.
    void add(std::size_t count, const std::string& one, const std::string& many,
             const std::string& more = {}) {
        if (count == 0)
            return;
        if (!m_text.empty())
            m_text += ", ";
        m_text += std::to_string(count) + " " + (count == 1 ? one : many) + more;
    }

    [[nodiscard]] const std::string& text() const { return m_text; }

private:
    std::string m_text;
};

// By price changes, the greatest of which comes first.
std::string most(const std::vector<PriceChange>& changes) {
    return changes.empty() || changes.front().before == 0
               ? std::string()
               : " (most: " + percentText(changes.front().percent()) + ")";
}

void addFiles(Sum& sum, const FileChanges& files, const std::string& kind) {
    sum.add(files.changed.size(), kind + " changed", kind + "s changed");
    sum.add(files.added.size(), "new " + kind, "new " + kind + "s");
    sum.add(files.gone.size(), kind + " gone", kind + "s gone");
}

std::string nameOf(const Named& named) {
    return named.code.empty() ? named.description : named.code + "  " + named.description;
}

class Writer {
public:
    explicit Writer(const CatalogDiff& diff) : m_diff(diff), m_out(sumOf(diff) + "\n") {}

    std::string run() {
        writePrices("Prices up", m_diff.up);
        writePrices("Prices down", m_diff.down);
        write("Tax", m_diff.taxes);
        writeProducts("New products", m_diff.products.added);
        writeProducts("Products gone", m_diff.products.gone);
        write("Moved to another group", m_diff.moved);
        writeNames("New groups", m_diff.groups.added);
        writeNames("Groups gone", m_diff.groups.gone);
        write("Groups with another name or place", m_diff.regrouped);
        write("Texts and pictures", m_diff.texts);
        write("Parameters", m_diff.parameters);
        writeFiles("Templates", m_diff.templates);
        writeFiles("Other files", m_diff.files);
        return std::move(m_out);
    }

private:
    void section(const char* title) { m_out.append("\n").append(title).append("\n"); }

    void line(const std::string& text) { m_out.append("  ").append(text).append("\n"); }

    void writePrices(const char* title, const std::vector<PriceChange>& changes) {
        if (!changes.empty())
            section(title);
        for (const auto& change : changes)
            line(nameOf(change.product) + ": " + priceText(change.before) + " -> " + priceText(change.after) +
                 (change.before == 0 ? "" : " (" + percentText(change.percent()) + ")"));
    }

    void write(const char* title, const std::vector<TextChange>& changes) {
        if (!changes.empty())
            section(title);
        for (const auto& change : changes)
            line(textOf(change));
    }

    static std::string textOf(const TextChange& change) {
        const auto name = nameOf(change.where);
        const auto start = name.empty() ? change.what : name + ": " + change.what;
        const bool isLong = change.what == "details";
        return isLong ? start + " changed" : start + " \"" + change.before + "\" -> \"" + change.after + "\"";
    }

    void writeProducts(const char* title, const std::vector<Named>& products) {
        if (!products.empty())
            section(title);
        for (const auto& product : products)
            line(nameOf(product) + (product.group.empty() ? "" : " (" + product.group + ")"));
    }

    void writeNames(const char* title, const std::vector<std::string>& names) {
        if (!names.empty())
            section(title);
        for (const auto& name : names)
            line(name);
    }

    void writeFiles(const char* title, const FileChanges& files) {
        if (files.count() > 0)
            section(title);
        for (const auto& name : files.changed)
            line("changed: " + shownName(name));
        for (const auto& name : files.added)
            line("new: " + shownName(name));
        for (const auto& name : files.gone)
            line("gone: " + shownName(name));
    }

    const CatalogDiff& m_diff;
    std::string m_out;
};

}

std::string sumOf(const CatalogDiff& diff) {
    Sum sum;
    sum.add(diff.up.size(), "price up", "prices up", most(diff.up));
    const bool pricesNamed = !diff.up.empty();
    sum.add(diff.down.size(), pricesNamed ? "down" : "price down", pricesNamed ? "down" : "prices down",
            most(diff.down));
    sum.add(diff.taxes.size(), "tax rate changed", "tax rates changed");
    sum.add(diff.products.added.size(), "new product", "new products");
    const bool productsNamed = !diff.products.added.empty();
    sum.add(diff.products.gone.size(), productsNamed ? "gone" : "product gone",
            productsNamed ? "gone" : "products gone");
    sum.add(diff.moved.size(), "product in another group", "products in another group");
    sum.add(diff.groups.added.size(), "new group", "new groups");
    sum.add(diff.groups.gone.size(), "group gone", "groups gone");
    sum.add(diff.regrouped.size(), "group renamed or moved", "groups renamed or moved");
    sum.add(diff.texts.size(), "text or picture changed", "texts or pictures changed");
    sum.add(diff.parameters.size(), "parameter changed", "parameters changed");
    addFiles(sum, diff.templates, "template");
    addFiles(sum, diff.files, "other file");
    return sum.text().empty() ? "customers will see no difference" : sum.text();
}

std::string textOf(const CatalogDiff& diff) {
    return Writer(diff).run();
}

}
