#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "catalog/template_names.h"
#include "publish/existing/export/source_texts.h"
#include "publish/existing/parameter_keys.h"
#include "publish/existing/readable_text.h"
#include "publish/supplier_id.h"

#include <array>
#include <span>

namespace publish {
namespace {

using catalog::ParameterText;

class Writer {
public:
    explicit Writer(std::string_view file) : m_file(file) {}

    std::string run(const SupplierMarker& supplier) {
        m_out = "; The parameters of the catalogue. UTF-8.\n; A line is a key, \"=\" and a value; one that "
                "begins "
                "with \";\" says nothing.\n";
        writeCatalogue(supplier);
        section("Supplier");
        for (const auto& key : supplierKeys)
            put(key);
        section("Columns");
        for (const auto& key : columnKeys)
            put(key);
        put("Extra alignment", alignmentWord(header().otherColumnAlignment()));
        put("Extra in order", yesOrNo(header().orderGridHasOtherColumn()));
        section("Tax");
        put("Charge tax", yesOrNo(header().taxSwitch() != 'N'));
        put(taxNameKey);
        return m_out;
    }

private:
    void writeCatalogue(const SupplierMarker& supplier) {
        section("Catalogue");
        put(catalogNameKey);
        note("The name of the zip, and the one on the customer's list of suppliers");
        if (isSupplierId(supplier.id))
            put("Supplier id", supplier.id);
        put("Display name", supplier.displayName);
        note("An update with a greater version replaces the customer's catalogue without a question");
        note("It is counted up by itself where it says \"auto\"");
        m_out.append("Version = ").append(readableLine(header().version())).append("\n");
        put(currencyKey);
        note("I: GroupI.Ect shows groups, T: GroupT.Ect does");
        put("Group pages", header().groupPageStyle() == catalog::firstGroupStyle ? "I" : "T");
        put("Quantity decimals", std::to_string(header().quantityDecimals()));
        if (!header().catalogPassword().empty() || !header().resetPassword().empty())
            note("Asked for when the catalogue is opened; OMIT leaves out the welcome page. The reset "
                 "password "
                 "takes it off");
        put("Password", header().catalogPassword());
        put("Reset password", header().resetPassword());
    }

    void section(std::string_view name) { m_out.append("\n[").append(name).append("]\n"); }

    void note(std::string_view text) { m_out.append("; ").append(text).append("\n"); }

    void put(const ParameterKey& key) { put(key.key, text(key.text)); }

    void put(std::string_view key, std::string_view value) {
        const auto readable = readableLine(value);
        if (!readable.empty())
            m_out.append(key).append(" = ").append(readable).append("\n");
    }

    [[nodiscard]] catalog::ParameterHeader header() const {
        return catalog::ParameterHeader(std::as_bytes(std::span(m_file)));
    }

    // As it is stored, the name of the tax with its "%".
    [[nodiscard]] std::string_view text(ParameterText which) const {
        constexpr auto length = catalog::ParameterHeader::length;
        return base::trim(m_file.substr((static_cast<std::size_t>(which) - 1) * length, length));
    }

    std::string_view m_file;
    std::string m_out;
};

}

std::string parametersText(const std::filesystem::path& parametersFile, const SupplierMarker& supplier) {
    const auto file = base::readFile(parametersFile);
    if (!file || file->size() < catalog::Parameters::recordCount * catalog::ParameterHeader::length)
        throw base::FileError("Cannot read " + base::textOf(parametersFile));
    return Writer(*file).run(supplier);
}

}
