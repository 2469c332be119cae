#pragma once

#include "base/errors.h"
#include "base/files.h"
#include "publish/templates/page_check.h"
#include "publish/templates/preview.h"
#include "publish/templates/template_check.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <string>
#include <string_view>
#include <vector>

/// A small catalogue, installed: a group TOOLS of the products P1, which has everything but a further text,
/// and P2.
class SampleCatalog {
public:
    explicit SampleCatalog(const std::string& purpose = {}) : folder(support::testFolder(purpose)) {
        using catalog::ParameterText;
        builder.texts = {{ParameterText::supplierName, "Smith"},
                         {ParameterText::supplierEmail, "orders@smith.example"},
                         {ParameterText::currency, "EUR"}};
        builder.products = {{.text = "TOOLS\nTools\n", .flag = 'N'},
                            {.text = "P1\nSaw\n", .price = 8, .taxRate = 25, .memo = "Sharp"},
                            {.text = "P2\nAxe\n", .price = 1, .picture = "axe.jpg"}};
        builder.groups = {{.name = "Tools", .headerRecord = 1}};
        builder.writeTo(folder);
    }

    void write(std::string_view name, std::string_view text) const { base::replaceFile(folder / name, text); }

    /// What the viewer shows of a template, without the line end that it adds; "ends" where it gives up.
    [[nodiscard]] std::string shown(const std::string& what) const {
        try {
            auto bytes = publish::preview(folder, what).bytes;
            return bytes.ends_with("\r\n") ? bytes.substr(0, bytes.size() - 2) : bytes;
        } catch (const base::FileError&) {
            return "ends";
        }
    }

    [[nodiscard]] publish::Complaints checkPages() const {
        publish::Complaints complaints;
        publish::checkPages(folder, publish::CatalogFiles::in(folder), complaints);
        return complaints;
    }

    std::filesystem::path folder;
    support::CatalogBuilder builder;
};

/// Complaints in short: "error tag-unknown 2".
[[nodiscard]] inline std::vector<std::string> shortly(const publish::Complaints& complaints) {
    std::vector<std::string> lines;
    for (const auto& c : complaints)
        lines.push_back((c.weight == publish::Complaint::Weight::error ? "error " : "warning ") + c.rule +
                        " " + std::to_string(c.place.row));
    return lines;
}
