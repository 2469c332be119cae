#include "publish/templates/order_check.h"

#include <algorithm>

namespace publish {
namespace {

using Weight = Complaint::Weight;

class OrderCheck {
public:
    OrderCheck(const Braces& braces, const RowPart& row, const TemplateUse& use, TemplateReport& report)
        : m_tags(braces.tags), m_row(row), m_use(use), m_report(report) {}

    void run() {
        for (const auto& [tag, at] : m_tags)
            if (m_use.taxed && tag == "{PRICEINC}")
                m_report.error(
                    "order-price", at,
                    "in an order with tax the viewer cannot make a number of {PRICEINC}, and the order "
                    "is neither printed nor sent; use {PRICEEXC}, {TAX$} and {AMTINC}");
        if (m_row.end > m_row.start)
            checkRow();
        const bool hasTotal = has("{TOTINC}") || (has("{TOTEXC}") && (!m_use.taxed || has("{TOTTAX}")));
        if (!hasTotal)
            m_report.add(Weight::warning, "order-without-total", std::nullopt,
                         "the order does not say what it comes to; write {CUR} {TOTINC} below the row");
    }

private:
    [[nodiscard]] bool has(std::string_view tag) const {
        return std::any_of(m_tags.begin(), m_tags.end(), [&](const FoundTag& t) { return t.tag == tag; });
    }

    [[nodiscard]] bool rowHas(std::string_view tag) const {
        return std::any_of(m_tags.begin(), m_tags.end(), [&](const FoundTag& t) {
            return t.tag == tag && t.at >= m_row.start && t.at < m_row.end;
        });
    }

    void checkRow() {
        if (!rowHas("{QTY}"))
            m_report.error("order-without-quantity", m_row.start,
                           "the row does not say how many are ordered; write {QTY} into it");
        if (!rowHas("{CODE}"))
            m_report.error("order-without-code", m_row.start,
                           "the row does not say which product is ordered; write {CODE} into it");
    }

    const std::vector<FoundTag>& m_tags;
    RowPart m_row;
    TemplateUse m_use;
    TemplateReport& m_report;
};

}

void checkOrderTags(const Braces& braces, const RowPart& row, const TemplateUse& use,
                    TemplateReport& report) {
    OrderCheck(braces, row, use, report).run();
}

}
