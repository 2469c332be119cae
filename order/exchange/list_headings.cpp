#include "order/exchange/list_headings.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <string>

namespace order {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t longest = 60; // bytes; headings are short

// In upper case, their letters alone, in the code page.
constexpr std::array codes{"CODE"sv,
                           "ITEM"sv,
                           "ITEMNO"sv,
                           "ITEMNUMBER"sv,
                           "ITEMCODE"sv,
                           "PRODUCT"sv,
                           "PRODUCTNO"sv,
                           "PRODUCTCODE"sv,
                           "PRODUCTNUMBER"sv,
                           "ARTICLE"sv,
                           "ARTICLENO"sv,
                           "ARTICLENUMBER"sv,
                           "SKU"sv,
                           "PARTNO"sv,
                           "PARTNUMBER"sv,
                           "ARTNR"sv,
                           "ARTIKEL"sv,
                           "ARTIKELNR"sv,
                           "ARTIKELNUMMER"sv,
                           "BESTELLNR"sv,
                           "BESTELLNUMMER"sv,
                           "VARENR"sv,
                           "VARENUMMER"sv,
                           "VARE"sv,
                           "REF"sv,
                           "R\xC9"
                           "F"sv,
                           "REFERENCE"sv,
                           "R\xC9"
                           "F\xC9RENCE"sv,
                           "CODEARTICLE"sv,
                           "NOARTICLE"sv};
constexpr std::array quantities{"QTY"sv,
                                "QUANTITY"sv,
                                "ORDER"sv,
                                "ORDERED"sv,
                                "ORDERQTY"sv,
                                "QTYORDERED"sv,
                                "ORDERQUANTITY"sv,
                                "PIECES"sv,
                                "PCS"sv,
                                "MENGE"sv,
                                "BESTELLMENGE"sv,
                                "ANZAHL"sv,
                                "ANZ"sv,
                                "ST\xDC"
                                "CK"sv,
                                "STUECK"sv,
                                "STCK"sv,
                                "STK"sv,
                                "BESTELLUNG"sv,
                                "ANTAL"sv,
                                "M\xC6NGDE"sv,
                                "BESTILT"sv,
                                "QUANTIT\xC9"sv,
                                "QUANTITE"sv,
                                "QT\xC9"sv,
                                "QTE"sv,
                                "NOMBRE"sv};
constexpr std::array quantityParts{"QTY"sv,
                                   "QUANT"sv,
                                   "MENGE"sv,
                                   "ANZAHL"sv,
                                   "ANTAL"sv,
                                   "ST\xDC"
                                   "CK"sv,
                                   "QT\xC9"sv};
constexpr std::array otherParts{"COST"sv,
                                "KOST"sv,
                                "VALUE"sv,
                                "WERT"sv,
                                "EUR"sv,
                                "USD"sv,
                                "GBP"sv,
                                "CHF"sv,
                                "DKK"sv,
                                "PRI"sv,
                                "PREIS"sv,
                                "TAX"sv,
                                "VAT"sv,
                                "MWST"sv,
                                "MOMS"sv,
                                "TVA"sv,
                                "STOCK"sv,
                                "BESTAND"sv,
                                "LAGER"sv,
                                "EAN"sv,
                                "GTIN"sv,
                                "BARCODE"sv,
                                "WEIGHT"sv,
                                "GEWICHT"sv,
                                "V\xC6GT"sv,
                                "POIDS"sv,
                                "MIN"sv,
                                "PACK"sv,
                                "VPE"sv,
                                "TOTAL"sv,
                                "SUM"sv,
                                "RABAT"sv,
                                "DISCOUNT"sv,
                                "REMISE"sv,
                                "DAT"sv,
                                "LINE"sv,
                                "ZEILE"sv,
                                "BETRAG"sv,
                                "MONTANT"sv,
                                "BEL\xD8"
                                "B"sv,
                                "AMOUNT"sv,
                                "SIZE"sv,
                                "GR\xD6SSE"sv,
                                "RATE"sv};
constexpr std::array others{"NO"sv, "NR"sv, "POS"sv, "POSITION"sv, "ROW"sv, "LFDNR"sv, "N"sv};

std::string lettersOf(std::string_view utf8) {
    std::string letters;
    for (const char character : base::upper(base::fromUtf8(utf8.substr(0, longest))))
        if ((character >= 'A' && character <= 'Z') || static_cast<unsigned char>(character) >= 0xC0)
            letters += character;
    return letters;
}

template <typename Words>
bool holdsOne(std::string_view text, const Words& words) {
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view word) { return text.find(word) != std::string_view::npos; });
}

template <typename Words>
bool isOne(std::string_view text, const Words& words) {
    return std::find(words.begin(), words.end(), text) != words.end();
}

}

ListHeading headingOf(std::string_view utf8) {
    const auto text = lettersOf(utf8);
    if (isOne(text, quantities))
        return ListHeading::quantity;
    if (isOne(text, codes))
        return ListHeading::code;
    if (isOne(text, others) || holdsOne(text, otherParts))
        return ListHeading::other;
    return holdsOne(text, quantityParts) ? ListHeading::perhapsQuantity : ListHeading::unknown;
}

}
