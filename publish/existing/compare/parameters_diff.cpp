#include "publish/existing/compare/parameters_diff.h"

#include "base/text.h"
#include "catalog/template_names.h"
#include "publish/existing/parameter_keys.h"
#include "publish/existing/readable_text.h"

namespace publish {
namespace {

class ParameterComparison {
public:
    ParameterComparison(const catalog::Parameters& older, const catalog::Parameters& newer)
        : m_old(older), m_new(newer) {}

    std::vector<TextChange> run() {
        for (const auto& key : supplierKeys)
            compareTexts(key);
        compareTexts(catalogNameKey);
        compareTexts(currencyKey);
        for (const auto& key : columnKeys)
            compareTexts(key);
        compareTexts(taxNameKey);
        compareHeaders();
        comparePasswords("Password", m_old.header().catalogPassword(), m_new.header().catalogPassword());
        comparePasswords("Reset password", m_old.header().resetPassword(), m_new.header().resetPassword());
        return std::move(m_changes);
    }

private:
    void compareTexts(const ParameterKey& key) {
        compare(key.key, m_old.text(key.text), m_new.text(key.text));
    }

    void compareHeaders() {
        const auto a = m_old.header();
        const auto b = m_new.header();
        const auto pages = [](const catalog::ParameterHeader& header) {
            return header.groupPageStyle() == catalog::firstGroupStyle ? "I" : "T";
        };
        compare("Version", base::trim(a.version()), base::trim(b.version()));
        compare("Charge tax", yesOrNo(m_old.chargesTax()), yesOrNo(m_new.chargesTax()));
        compare("Group pages", pages(a), pages(b));
        compare("Quantity decimals", std::to_string(a.quantityDecimals()),
                std::to_string(b.quantityDecimals()));
        compare("Extra alignment", alignmentWord(a.otherColumnAlignment()),
                alignmentWord(b.otherColumnAlignment()));
        compare("Extra in order", yesOrNo(a.orderGridHasOtherColumn()), yesOrNo(b.orderGridHasOtherColumn()));
    }

    void comparePasswords(std::string_view key, const std::string& before, const std::string& after) {
        if (before == after)
            return;
        const auto word = [](const std::string& password) { return password.empty() ? "none" : "set"; };
        const bool bothSet = !before.empty() && !after.empty();
        add(key, word(before), bothSet ? "set to another one" : word(after));
    }

    void compare(std::string_view key, std::string_view before, std::string_view after) {
        if (readableLine(before) != readableLine(after))
            add(key, readableLine(before), readableLine(after));
    }

    void add(std::string_view key, std::string before, std::string after) {
        m_changes.push_back({{}, std::string(key), std::move(before), std::move(after)});
    }

    const catalog::Parameters& m_old;
    const catalog::Parameters& m_new;
    std::vector<TextChange> m_changes;
};

}

std::vector<TextChange> changedParameters(const ComparedCatalog& older, const ComparedCatalog& newer) {
    return ParameterComparison(older.catalog().parameters, newer.catalog().parameters).run();
}

}
