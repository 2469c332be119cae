#pragma once

#include "catalog/parameters.h"
#include "order/order_contents.h"
#include "pages/template/fields.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace order {

enum class OutputKind { print, email };

/// A price in a row that is to be shown as a number and is none.
class NotANumber : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The tags of order templates (docs/template-language.md, "Order templates"). Tags of a row speak of
/// the row shown last, at first of the order's first row; without any row they are empty. Parameters and
/// contents must live as long. Appending a price that is no number throws NotANumber.
class OrderFields : public pages::Fields {
public:
    OrderFields(const catalog::Parameters& parameters, const OrderContents& order, OutputKind kind);

    void show(const DocumentRow& row) { m_row = &row; }

    [[nodiscard]] unsigned number(std::string_view tag) const override;
    void append(unsigned number, std::string& out) const override;

    /// All that it knows.
    [[nodiscard]] static std::vector<std::string_view> tags();

private:
    const catalog::Parameters& m_parameters;
    const OrderContents& m_order;
    const DocumentRow* m_row; // null when the order has none
    OutputKind m_kind;
};

}
