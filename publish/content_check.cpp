#include "publish/content_check.h"

#include "base/code_page.h"
#include "base/files.h"
#include "catalog/template_names.h"
#include "publish/linked_codes.h"
#include "publish/source_check.h"

#include <algorithm>
#include <array>
#include <set>

namespace publish {
namespace {

using Weight = Complaint::Weight;
using catalog::ParameterText;

constexpr std::string_view templateEnding = ".ECT";

/// When a catalogue needs a template.
struct Template {
    std::string_view name;
    bool (*isNeeded)(const catalog::ParameterValues&);
};

bool takesFaxes(const catalog::ParameterValues& values) {
    return !values.text(ParameterText::supplierFax).empty();
}

bool takesMail(const catalog::ParameterValues& values) {
    return !values.text(ParameterText::supplierEmail).empty();
}

constexpr std::array templates{
    Template{catalog::bannerTemplate, [](const catalog::ParameterValues&) { return true; }},
    Template{catalog::productTemplate, [](const catalog::ParameterValues&) { return true; }},
    Template{catalog::firstGroupTemplate,
             [](const catalog::ParameterValues& v) { return v.groupPageStyle == catalog::firstGroupStyle; }},
    Template{catalog::secondGroupTemplate,
             [](const catalog::ParameterValues& v) { return v.groupPageStyle != catalog::firstGroupStyle; }},
    Template{catalog::welcomeTemplate,
             [](const catalog::ParameterValues& v) {
                 return base::upper(v.catalogPassword) != catalog::noWelcomePassword;
             }},
    Template{catalog::printTemplate,
             [](const catalog::ParameterValues& v) { return takesFaxes(v) && v.chargesTax; }},
    Template{catalog::printTemplateWithoutTax, takesFaxes},
    Template{catalog::mailTemplate,
             [](const catalog::ParameterValues& v) { return takesMail(v) && v.chargesTax; }},
    Template{catalog::mailTemplateWithoutTax, takesMail},
};

std::string foldedName(std::string_view utf8) {
    auto name = base::upper(base::fromUtf8(utf8));
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

class ContentChecker {
public:
    ContentChecker(const CatalogSource& source, const std::vector<ContentFile>& content)
        : m_source(source), m_content(content) {
        for (const auto& file : content)
            if (!m_names.insert(foldedName(file.name)).second)
                complain(file.name, 0, "another file has this name in other letter case");
    }

    Complaints run() {
        for (const auto& needed : templates)
            if (needed.isNeeded(m_source.parameters) && !m_names.contains(base::upper(needed.name)))
                complain(std::string(needed.name), 0, "the template is missing");
        checkGroup(m_source.contents);
        for (const auto& [from, link] : m_links)
            checkLink(from, link);
        for (const auto& file : m_content)
            checkFile(file);
        return std::move(m_complaints);
    }

private:
    void complain(std::string file, std::size_t line, std::string text) {
        m_complaints.push_back({Weight::error, {.file = std::move(file), .row = line}, std::move(text)});
    }

    void checkGroup(const Group& group) {
        checkEntry(group.header, groupsSource);
        for (const auto& product : group.products)
            checkEntry(product, productsSource);
        for (const auto& child : group.groups)
            checkGroup(child);
    }

    void checkEntry(const Product& entry, const char* file) {
        const auto key = catalog::indexKey(entry.code);
        m_codes.emplace(key.begin(), key.end());
        const auto picture = base::toUtf8(entry.picture);
        if (!picture.empty() && !m_names.contains(foldedName(picture)))
            complain(file, entry.line, "the picture " + picture + " is missing");
        for (auto& code : linkedCodes(entry.longDescription))
            m_links.emplace_back(Place{.file = file, .row = entry.line}, std::move(code));
    }

    void checkLink(const Place& from, const std::string& code) {
        const auto key = catalog::indexKey(code);
        if (!m_codes.contains(std::string(key.begin(), key.end())))
            complain(from.file, from.row,
                     "a link leads to " + base::toUtf8(code) + ", which is not in the catalogue");
    }

    void checkFile(const ContentFile& file) {
        if (!foldedName(file.name).ends_with(templateEnding))
            return;
        const auto text = base::readFile(file.path).value_or("");
        for (const auto& code : linkedCodes(text))
            checkLink({.file = file.name}, code);
        std::size_t at = 0;
        while ((at = text.find("{{", at)) != std::string::npos) {
            const auto end = text.find("}}", at);
            if (end == std::string::npos)
                return complain(file.name, 0, "a conditional block \"{{\" has no end \"}}\"");
            at = end;
        }
    }

    const CatalogSource& m_source;
    const std::vector<ContentFile>& m_content;
    std::set<std::string> m_names; // upper case
    std::set<std::string> m_codes; // as keys of the index
    std::vector<std::pair<Place, std::string>> m_links;
    Complaints m_complaints;
};

}

Complaints checkContent(const CatalogSource& source, const std::vector<ContentFile>& content) {
    return ContentChecker(source, content).run();
}

}
