#pragma once

#include "catalog/catalog.h"
#include "pages/browse/link_rules.h"
#include "publish/templates/catalog_files.h"
#include "publish/templates/html_references.h"
#include "publish/templates/template_report.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace publish {

/// The pages of one template, as they are made: whether what they ask for and lead to is there. What the
/// template's text names by itself is passed over.
class RenderedCheck {
public:
    /// Template, catalogue and files must live as long.
    RenderedCheck(std::string_view name, std::string_view text, const catalog::Catalog& catalog,
                  const catalog::Folders& folders, const CatalogFiles& files, Complaints& complaints);

    /// `subject` says whose page it is, UTF-8.
    void look(std::string_view page, const std::string& subject);

    void damaged(const std::string& subject);

    /// Tells of what is counted over all pages. Call it last.
    void finish();

private:
    /// An address of the template that comes with values.
    struct Pattern {
        std::vector<std::string> pieces; ///< between the tags
        HtmlReference reference;
        bool isPicture; ///< {IMG}
    };

    [[nodiscard]] std::string relative(const std::string& address) const;
    [[nodiscard]] const Pattern* patternOf(const HtmlReference& reference) const;
    [[nodiscard]] bool isPictureOfCode(std::string_view name) const;
    void checkAddress(const HtmlReference& reference, const std::string& subject);
    void checkProductLink(const HtmlReference& reference, const Pattern& pattern, const std::string& subject);
    void checkEncoding(std::string_view page, const std::string& subject);
    void report(Complaint::Weight weight, std::string_view rule, const Pattern* pattern,
                const std::string& subject, const std::string& text);

    std::string_view m_text;
    const catalog::Catalog& m_catalog;
    const CatalogFiles& m_files;
    pages::LinkRules m_links;
    std::string m_folder; // as pages write it
    TemplateReport m_report;
    std::set<std::string> m_known; // addresses
    std::vector<Pattern> m_patterns;
    std::set<std::string> m_missingPictures;
    std::size_t m_pictureAt = 0;
    bool m_encodingTold = false;
};

}
