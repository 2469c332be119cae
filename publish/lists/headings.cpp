#include "publish/lists/headings.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>

namespace publish {
namespace {

constexpr std::size_t meaning(ListField field) {
    return static_cast<std::size_t>(field);
}

constexpr auto code = meaning(ListField::code);
constexpr auto description = meaning(ListField::description);
constexpr auto other = meaning(ListField::other);
constexpr auto price = meaning(ListField::price);
constexpr auto tax = meaning(ListField::tax);
constexpr auto picture = meaning(ListField::picture);
constexpr auto details = meaning(ListField::details);

/// Words of a meaning, in capitals without blanks and accents, as people head columns.
struct Words {
    std::size_t meaning;
    int weight; // 100 where the word can hardly stand for anything else
    std::string_view words;
};

constexpr std::array vocabulary{
    Words{
        code, 100,
        "ARTNR ARTNO ARTIKELNR ARTIKELNUMMER ARTICLENO ARTICLENUMBER ARTICLECODE ITEMNO ITEMNUMBER ITEMCODE "
        "ITEMID "
        "PARTNO PARTNUMBER PRODUCTCODE PRODUCTNO PRODUCTNUMBER PRODUCTID PRODUKTNR PRODUKTNUMMER PRODUKTCODE "
        "CODE "
        "SKU BESTELLNR BESTELLNUMMER BESTNR MATERIALNR MATERIALNUMMER SACHNR SACHNUMMER TEILENR TEILENUMMER "
        "KATALOGNR CATALOGUENO CATALOGNO ORDERNO ORDERNUMBER ORDERCODE STOCKNO STOCKCODE VARENR VARENUMMER "
        "BESTILLINGSNR REFERENCE CODEARTICLE CODEPRODUIT NOARTICLE NUMERODARTICLE REFERENCIA CODIGO "
        "CODICE CODICEARTICOLO CODARTICOLO CODART ARTIKELCODE BESTELNR BESTELNUMMER BESTELCODE PRODUCTNUMMER "
        "RIFERIMENTO NUMEROARTICOLO NUMERODEARTICULO"},
    Words{code, 70,
          "REF COD ARTIKELID NUMERO NUMMER NUMBER NR NO ID EAN GTIN MODEL MODELL MODELE MODELO MODELLO"},
    Words{
        description, 100,
        "BEZEICHNUNG ARTIKELBEZEICHNUNG PRODUKTBEZEICHNUNG BESCHREIBUNG ARTIKELBESCHREIBUNG "
        "PRODUKTBESCHREIBUNG "
        "KURZTEXT KURZBESCHREIBUNG ARTIKELTEXT ARTIKELNAME PRODUKTNAME BENENNUNG DESCRIPTION ITEMDESCRIPTION "
        "PRODUCTDESCRIPTION SHORTDESCRIPTION PRODUCTNAME ITEMNAME BESKRIVELSE VAREBESKRIVELSE VARENAVN "
        "VARETEKST "
        "PRODUKTNAVN BETEGNELSE DESIGNATION LIBELLE NOMDUPRODUIT INTITULE DESCRIPCION DENOMINACION "
        "DESCRIZIONE "
        "DENOMINAZIONE OMSCHRIJVING ARTIKELOMSCHRIJVING PRODUCTOMSCHRIJVING PRODUCTNAAM BENAMNING "
        "ARTIKELBENAMNING BESKRIVNING PRODUKTNAMN PRODUKTBESKRIVNING"},
    Words{description, 70,
          "NAME TITLE TITEL ARTIKEL PRODUKT PRODUCT ITEM ARTICLE TEXT NAVN VARE TEKST NOM PRODUIT NOMBRE "
          "ARTICULO "
          "PRODUCTO NOME ARTICOLO PRODOTTO NAAM NAMN VARA"},
    Words{details, 100,
          "DETAILS LANGTEXT LANGBESCHREIBUNG DETAILBESCHREIBUNG ZUSATZTEXT PRODUKTDETAILS LONGDESCRIPTION "
          "LONGTEXT "
          "FULLDESCRIPTION DETAILEDDESCRIPTION PRODUCTDETAILS LANGBESKRIVELSE LANGTEKST LANGBESKRIVNING "
          "DETALJER "
          "DESCRIPTIONLONGUE DESCRIPTIONDETAILLEE DESCRIPCIONLARGA DESCRIPCIONDETALLADA DETALLES "
          "DESCRIZIONELUNGA "
          "DESCRIZIONEESTESA DETTAGLI LANGEOMSCHRIJVING UITGEBREIDEOMSCHRIJVING LANGELANGTEXT LANGTEXTHTML"},
    Words{price, 100,
          "PREIS NETTOPREIS PREISNETTO VERKAUFSPREIS VKPREIS LISTENPREIS EINZELPREIS STUCKPREIS STUECKPREIS "
          "PRICE "
          "UNITPRICE LISTPRICE NETPRICE SALESPRICE SELLINGPRICE PRIS NETTOPRIS STYKPRIS SALGSPRIS LISTEPRIS "
          "ENHEDSPRIS STYCKPRIS FORSALJNINGSPRIS PRIX PRIXHT PRIXUNITAIRE PUHT PRECIO PRECIOUNITARIO PVP "
          "PREZZO "
          "PREZZOUNITARIO PRIJS NETTOPRIJS STUKPRIJS STUKSPRIJS EENHEIDSPRIJS VERKOOPPRIJS"},
    Words{price, 70, "VK UVP RRP MSRP TARIF BETRAG AMOUNT COST IMPORTE LISTINO EURO EUR NETTO NET"},
    Words{
        tax, 100,
        "MWST MWSTSATZ MEHRWERTSTEUER MEHRWERTSTEUERSATZ STEUERSATZ UST USTSATZ UMSATZSTEUER VAT VATRATE TAX "
        "TAXRATE GST MOMS MOMSSATS TVA TAUXTVA TAUXDETVA IVA TIPOIVA ALIQUOTA ALIQUOTAIVA BTW BTWTARIEF "
        "BTWPERCENTAGE"},
    Words{tax, 70, "STEUER SKAT IMPUESTO IMPOSTA BELASTING TAXE"},
    Words{picture, 100,
          "BILD BILDDATEI BILDNAME PRODUKTBILD ARTIKELBILD ABBILDUNG FOTO PHOTO PICTURE IMAGE IMAGEFILE "
          "IMAGENAME "
          "PRODUCTIMAGE BILLEDE BILLEDFIL VAREBILLEDE BILDFIL IMAGEN IMMAGINE AFBEELDING"},
    Words{
        groupMeaning, 100,
        "GRUPPE WARENGRUPPE PRODUKTGRUPPE ARTIKELGRUPPE HAUPTGRUPPE UNTERGRUPPE KATEGORIE UNTERKATEGORIE "
        "PRODUKTKATEGORIE KAPITEL RUBRIK GROUP PRODUCTGROUP ITEMGROUP SUBGROUP CATEGORY SUBCATEGORY "
        "PRODUCTCATEGORY SECTION CHAPTER FAMILY PRODUCTFAMILY VAREGRUPPE HOVEDGRUPPE UNDERGRUPPE KATEGORI "
        "UNDERKATEGORI GROUPE CATEGORIE SOUSCATEGORIE FAMILLE SOUSFAMILLE RUBRIQUE GRUPO SUBGRUPO CATEGORIA "
        "SUBCATEGORIA FAMILIA SUBFAMILIA GRUPPO SOTTOGRUPPO SOTTOCATEGORIA FAMIGLIA GROEP PRODUCTGROEP "
        "ARTIKELGROEP SUBGROEP HOOFDGROEP RUBRIEK GRUPP PRODUKTGRUPP VARUGRUPP ARTIKELGRUPP HUVUDGRUPP "
        "UNDERGRUPP"},
    Words{groupMeaning, 70, "EBENE LEVEL NIVEAU NIVEL LIVELLO SORTIMENT RANGE GAMME"},
    Words{other, 70,
          "OTHER EXTRA EINHEIT MENGENEINHEIT VERPACKUNG VERPACKUNGSEINHEIT VPE VE ME GEBINDE UNIT UOM PACK "
          "PACKING "
          "PACKAGE PACKSIZE ENHED PAKNING UNITE CONDITIONNEMENT UNIDAD ENVASE UNITA CONFEZIONE EENHEID "
          "VERPAKKING "
          "ENHET FORPACKNING"},
    Words{
        otherMeaning, 100,
        "PREISEINHEIT PREISGRUPPE RABATTGRUPPE RABATT PRICEUNIT PRICEGROUP DISCOUNT DISCOUNTGROUP PRISENHED "
        "WAHRUNG CURRENCY VALUTA DEVISE MONEDA GEWICHT WEIGHT VAGT VIKT POIDS PESO GEWICHT MENGE QUANTITY "
        "QTY "
        "ANTAL QUANTITE CANTIDAD QUANTITA AANTAL BESTAND LAGERBESTAND LAGER STOCK STOCKS SCORTE EXISTENCIAS "
        "VOORRAAD MINDESTMENGE MINIMUM DATUM DATE DATO FECHA DATA ZOLLTARIFNUMMER TARICCODE HSCODE "
        "LIEFERZEIT LEADTIME HERSTELLER MANUFACTURER BRAND MARKE MAERKE MARQUE MARCA MERK LIEFERANT SUPPLIER "
        "URSPRUNG ORIGIN LANGE BREITE HOHE LENGTH WIDTH HEIGHT"},
};

constexpr std::string_view netWords =
    "NETTO NET NETT EXCL EXKL EKSKL EXCLUSIVE HT SINIVA OHNE EXCLUDING SANS SENZA ZZGL";
constexpr std::string_view grossWords =
    "BRUTTO GROSS INCL INKL TTC INCLUSIVE UVP RRP MSRP PVP CONIVA INCLUDING IVAINCL IVATO";
constexpr std::string_view buyingWords =
    "EINKAUF EINKAUFSPREIS EK EKPREIS PURCHASE COST BUYING ACHAT INDKOB INDKOBSPRIS INKOP "
    "INKOPSPRIS KOSTPRIS COMPRA ACQUISTO INKOOP INKOOPPRIJS ALTER ALT OLD";
constexpr std::string_view totalWords =
    "TOTAL TOTALS GRANDTOTAL SUBTOTAL SUM SUMME GESAMT GESAMTSUMME ZWISCHENSUMME "
    "ENDSUMME IALT SAMLET SOMME SUMA TOTALE SOMMA TOTAAL SUMMA TOTALT";

// Capital without its accent; more than one letter, or a blank for punctuation.
std::string_view plainLetters(char upper) {
    struct Range {
        unsigned char first;
        unsigned char last;
        std::string_view letters;
    };

    static constexpr std::array ranges{
        Range{0xC0, 0xC5, "A"}, Range{0xC6, 0xC6, "AE"}, Range{0xC7, 0xC7, "C"},  Range{0xC8, 0xCB, "E"},
        Range{0xCC, 0xCF, "I"}, Range{0xD1, 0xD1, "N"},  Range{0xD2, 0xD6, "O"},  Range{0xD8, 0xD8, "O"},
        Range{0xD9, 0xDC, "U"}, Range{0xDD, 0xDD, "Y"},  Range{0xDF, 0xDF, "SS"}, Range{0xB0, 0xB0, "O"},
        Range{0xBA, 0xBA, "O"}, Range{'#', '#', " NO "}, Range{0x8A, 0x8A, "S"},  Range{0x8C, 0x8C, "OE"},
        Range{0x8E, 0x8E, "Z"}};
    const auto byte = static_cast<unsigned char>(upper);
    for (const auto& range : ranges)
        if (byte >= range.first && byte <= range.last)
            return range.letters;
    return " ";
}

/// A heading's words in capitals.
std::vector<std::string> wordsOf(std::string_view heading) {
    std::string plain;
    for (const char c : base::upper(base::fromUtf8(heading)))
        if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'))
            plain += c;
        else
            plain += plainLetters(c);
    std::vector<std::string> words;
    for (const auto word : base::split(plain, ' '))
        if (!word.empty())
            words.emplace_back(word);
    return words;
}

bool isIn(std::string_view list, std::string_view word) {
    for (auto at = list.find(word); at != std::string_view::npos; at = list.find(word, at + 1)) {
        const auto end = at + word.size();
        if ((at == 0 || list[at - 1] == ' ') && (end == list.size() || list[end] == ' '))
            return true;
    }
    return false;
}

std::string joined(const std::vector<std::string>& words, std::size_t first, std::size_t count) {
    std::string text;
    for (std::size_t i = first; i < first + count; ++i)
        text += words[i];
    return text;
}

// Whether some of the words, one behind the other, are in the list.
bool holds(const std::vector<std::string>& words, std::string_view list) {
    for (std::size_t first = 0; first < words.size(); ++first)
        for (std::size_t count = 1; first + count <= words.size() && count <= 3; ++count)
            if (isIn(list, joined(words, first, count)))
                return true;
    return false;
}

// Whether a word is put together with one of the list: "Katalogpreis", "Gruppe1".
bool isCompound(std::string_view heading, std::string_view list) {
    constexpr std::size_t shortest = 4;
    const auto words = base::split(list, ' ');
    return std::any_of(words.begin(), words.end(), [&](std::string_view word) {
        return word.size() >= shortest && (heading.starts_with(word) || heading.ends_with(word));
    });
}

int matchOf(const std::vector<std::string>& words, const Words& known) {
    const auto whole = joined(words, 0, words.size());
    if (isIn(known.words, whole))
        return known.weight;
    if (holds(words, known.words))
        return known.weight * 8 / 10;
    return known.weight == 100 && isCompound(whole, known.words) ? 60 : 0;
}

}

HeadingScores scoresOf(std::string_view heading) {
    constexpr std::size_t longestHeading = 100;
    HeadingScores scores{};
    const auto words = wordsOf(heading.substr(0, longestHeading));
    if (words.empty() || heading.size() > longestHeading)
        return scores;
    for (const auto& known : vocabulary)
        scores[known.meaning] = std::max(scores[known.meaning], matchOf(words, known));
    if (scores[price] > 0) { // "Price excl. VAT", "Nettopreis" and "Preis Artikel" are prices
        scores[tax] = 0;
        scores[price] += holds(words, netWords) ? 10 : holds(words, grossWords) ? -10 : 0;
        scores[price] -= holds(words, buyingWords) ? 60 : 0;
    }
    if (scores[groupMeaning] >= sureScore || scores[picture] >= sureScore) // "Group code"
        scores[code] = scores[description] = 0;
    return scores;
}

bool saysWithTax(std::string_view heading) {
    return holds(wordsOf(heading), grossWords);
}

bool saysTotal(std::string_view text) {
    constexpr std::size_t longest = 40;
    const auto words = text.size() > longest ? std::vector<std::string>() : wordsOf(text);
    return !words.empty() && words.size() <= 2 &&
           (isIn(totalWords, words[0]) || isIn(totalWords, joined(words, 0, words.size())));
}

std::string onOneLine(std::string_view heading) {
    std::string out;
    for (const char c : base::trim(heading))
        if (c != '\n' && c != '\t' && c != '\r' && c != ' ')
            out += c;
        else if (!out.empty() && out.back() != ' ')
            out += ' ';
    return out;
}

std::string shownText(std::string_view text) {
    constexpr std::size_t shown = 40;
    auto bytes = base::fromUtf8(onOneLine(text.substr(0, shown * 4)));
    bytes.resize(std::min(bytes.size(), shown));
    for (auto& c : bytes)
        c = static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    return base::shownAsUtf8(bytes);
}

bool isSameHeading(std::string_view a, std::string_view b) {
    return base::equalIgnoringCase(base::fromUtf8(onOneLine(a)), base::fromUtf8(onOneLine(b)));
}

}
