#pragma once

#include "tests/support/catalog_builder.h"

namespace support {

/// Root, groups 2 (Bolts) and 3 (Nuts), and in the first of them 4 (Hex) and 5 (Carriage), numbered as we do
/// it; a product H1, C1 and N1 in each of the last three. Records: TOC, BOLTS, HEX, H1, CAR, C1, NUTS, N1.
[[nodiscard]] inline CatalogBuilder tidyCatalog() {
    CatalogBuilder builder;
    builder.texts = {{catalog::ParameterText::supplierName, "Acme"}};
    builder.products = {
        {.text = "TOC\nContents\n", .flag = 'N'},
        {.text = "BOLTS\nBolts\n", .group = 2, .memo = "All bolts", .flag = 'N'},
        {.text = "HEX\nHex\n", .group = 4, .flag = 'N'},
        {.text = "H1\nHex bolt \xD8 6\nBox", .price = 2.5F, .taxRate = 20, .group = 4, .memo = "Good"},
        {.text = "CAR\nCarriage\n", .group = 5, .flag = 'N'},
        {.text = "C1\nCarriage bolt\n", .price = 0.125F, .group = 5, .picture = "p/c1.jpg"},
        {.text = "NUTS\nNuts\n", .group = 3, .flag = 'N'},
        {.text = "N1\nNut\n", .price = 1, .group = 3}};
    builder.groups = {{"Table of Contents", 1, 2, 0},
                      {"Bolts", 2, 4, 1},
                      {"Nuts", 7, 0, 1},
                      {"Hex", 3, 0, 2},
                      {"Carriage", 5, 0, 2}};
    return builder;
}

}
