#include "base/bytes.h"
#include "catalog/catalog.h"
#include "publish/existing/data_tables.h"
#include "publish/existing/readable_text.h"

#include <bit>
#include <cmath>

namespace publish {
namespace {

constexpr auto file = catalog::productsFile;

/// The check of one record.
class RecordCheck {
public:
    RecordCheck(const DataTables& tables, std::int32_t number, Findings& findings)
        : m_tables(tables),
          m_number(number),
          m_bytes(tables.products.bytes().subspan(static_cast<std::size_t>(number - 1) *
                                                      catalog::ProductRecord::length,
                                                  catalog::ProductRecord::length)),
          m_record(m_bytes),
          m_findings(findings) {}

    void run() {
        checkMemo();
        if (m_record.text().find('\0') != std::string_view::npos)
            warning("text-zero", "a zero byte is part of the text; the viewer takes it for a character, so "
                                 "searches and links may miss it. Fill with blanks");
        if (!m_record.isProduct() && m_record.flag() != 'N')
            warning("flag-unknown",
                    "it is neither Y, a product, nor N, a group; the viewer takes it for a group "
                    "that opens no list");
        if (m_record.isProduct())
            checkProduct();
    }

private:
    void checkProduct() {
        checkTexts();
        if (!m_tables.holdsGroup(groupOf(m_record)))
            error("product-group", "its group " + std::to_string(m_record.group()) +
                                       " does not exist; its page names no group");
        if (checkNumber(catalog::ProductRecord::priceOffset, "price") && m_record.price() < 0)
            error("price-negative", "the price is below 0; an order with a total below 0 ends the viewer");
        if (checkNumber(catalog::ProductRecord::taxRateOffset, "tax") &&
            (m_record.taxRate() < 0 || m_record.taxRate() > 100))
            error("tax-range", "the tax is no rate from 0 to 100 percent; the viewer computes with it");
    }

    void checkTexts() {
        if (m_record.text().find('\n') == std::string_view::npos)
            return error("text-undivided",
                         "the text has no line feed; the viewer shows no code, no description "
                         "and no other text");
        if (m_record.code().empty())
            error("code-empty", "the code is empty; no link and no order can name the product");
        if (m_record.code().size() > catalog::IndexRecord::keyField.width)
            warning("code-long", "the code " + readableLine(m_record.code()) +
                                     " is longer than 20 characters; the viewer looks it up by the first 20");
        if (m_record.descriptionLine().empty())
            warning("description-empty", "the description is empty; the row shows none");
    }

    // Whether it is one.
    bool checkNumber(std::size_t offset, const std::string& name) {
        const auto stored = std::bit_cast<float>(base::readNumber<std::uint32_t>(m_bytes, offset));
        if (std::isfinite(stored))
            return true;
        error((name + "-no-number").c_str(),
              "the " + name + " is not a number or infinite; the viewer takes it for 0");
        return false;
    }

    void checkMemo() {
        const std::int64_t position = m_record.memoPosition();
        const std::int64_t length = m_record.memoLength();
        const auto size = static_cast<std::int64_t>(m_tables.memos.file().bytes().size());
        if (position < 1)
            return;
        if (length < 1)
            warning("memo-empty",
                    "its long description has no length; the row is marked, the page shows none");
        else if (position > size)
            error("memo-outside",
                  "its long description lies behind the end of PrdMem.Dat; the page shows none");
        else if (position - 1 + length > size)
            error("memo-cut",
                  "its long description runs past the end of PrdMem.Dat; the page shows what is there");
    }

    void error(const char* rule, const std::string& text) { m_findings.error(file, m_number, rule, text); }

    void warning(const char* rule, const std::string& text) {
        m_findings.warning(file, m_number, rule, text);
    }

    const DataTables& m_tables;
    std::int32_t m_number;
    catalog::RecordBytes m_bytes;
    catalog::ProductRecord m_record;
    Findings& m_findings;
};

}

void checkProducts(const DataTables& tables, Findings& findings) {
    for (std::int32_t number = 1; number <= tables.products.count(); ++number)
        RecordCheck(tables, number, findings).run();
}

}
