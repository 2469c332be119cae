#pragma once

#include "base/files.h"
#include "catalog/catalog.h"
#include "order/order_writer.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <filesystem>
#include <optional>
#include <string>

/// A supplier with order templates, and an order for him.
class SampleOrder {
public:
    SampleOrder() {
        using catalog::ParameterText;
        supplier.texts = {{ParameterText::supplierName, "Smith & Sons"},
                          {ParameterText::supplierEmail, "orders@smith.example"},
                          {ParameterText::taxName, "VAT%"},
                          {ParameterText::codeCaption, "Code"},
                          {ParameterText::currency, "EUR"}};
        supplier.quantityDecimals = 2;
        contents.details = {false,    " Jo ", "Leeds ",      " UK", "  Ashby Ltd ",
                            " 0113 ", " W ",  " 1 High St ", " LS1"};
        contents.orderNumber = " A-7 ";
        contents.comment = " Ring first.\r\nThen knock. ";
        contents.deliveryDate = "30/04/26";
        contents.today = "1/4/26";
        contents.totals = {110, 10};
        contents.rows = {{"2", "H1", "Claw hammer", "steel", "12.50", "10.00", "2.50", "22.50"},
                         {"0", "H2", "Mallet", "", "0.00", "4.00", "0", "0"},
                         {"1.5", "S1", "Fret saw", "", "0.00", "5.00", "0", "7.5"}};
    }

    /// So many rows, each of one piece, with the codes 1, 2, 3 ...
    void fillRows(int count) {
        contents.rows.clear();
        for (int i = 1; i <= count; ++i)
            contents.rows.push_back({"1", std::to_string(i), "", "", "0.00", "1.00", "0.00", "1.00"});
    }

    [[nodiscard]] std::string page(std::string_view text) {
        return writer().page({folder / "PrtOrd.ect", std::string(text)}, contents);
    }

    [[nodiscard]] std::string mailText(std::string_view text) {
        return writer().mailText({folder / "EmlOrd.ect", std::string(text)}, contents);
    }

    /// For the supplier as he is now.
    [[nodiscard]] const order::OrderWriter& writer() {
        if (!m_writer)
            m_writer.emplace(parameters(), folder, pages::LayoutSizes{"75", "3", "4"});
        return *m_writer;
    }

    [[nodiscard]] const catalog::Parameters& parameters() {
        if (!m_parameters) {
            supplier.writeTo(folder);
            m_parameters.emplace(folder / "PrdPrm.dat");
        }
        return *m_parameters;
    }

    std::filesystem::path folder = support::testFolder();
    support::CatalogBuilder supplier;
    order::OrderContents contents;

private:
    std::optional<catalog::Parameters> m_parameters;
    std::optional<order::OrderWriter> m_writer;
};
