#include "tests/publish/lists/read_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using publish::ListField;
using support::readListOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

publish::ListMapping mappingOf(const std::string& text) {
    publish::Complaints complaints;
    auto mapping = publish::readMapping(text, complaints);
    EXPECT_THAT(complaints, IsEmpty());
    return mapping;
}

// What was found for group, code, description, other, price, tax, picture and details.
std::string columnsOf(const publish::ListMapping& mapping) {
    std::string text;
    for (const auto& group : mapping.groups)
        text += (text.empty() ? "" : "+") + group.text;
    for (const auto& column : mapping.columns)
        text += "|" + (column.text == publish::noColumnName ? "" : column.text);
    return text;
}

TEST(ProductList, HeadingsAreKnownInManyLanguages) {
    // Of columns that hold group, code, description, price and tax.
    for (const char* headings :
         {"Group;Item no.;Description;Unit price (excl. VAT);VAT %",
          "CATEGORY;SKU;PRODUCT NAME;PRICE;TAX RATE", "Product group;Item #;Title;List price;GST",
          "Warengruppe;Art.-Nr.;Bezeichnung;Preis netto €;MwSt.-Satz",
          "Produktkategorie;Bestellnummer;Artikelbezeichnung;VK-Preis;USt",
          "Varegruppe;Varenr.;Varetekst;Pris ekskl. moms;Moms",
          "Varugrupp;Artikelnummer;Benämning;Försäljningspris;Momssats",
          "Famille;Référence;Désignation;Prix unitaire HT;Taux TVA",
          "Grupo;Código;Descripción;Precio sin IVA;IVA",
          "Categoria;Codice articolo;Descrizione;Prezzo;Aliquota IVA",
          "Artikelgroep;Bestelnr.;Omschrijving;Prijs excl. BTW;BTW"}) {
        const auto read =
            readListOf(std::string(headings) + "\nBolts;B 1;Bolt;1,20;19\nBolts;B 2;Bolt;1,30;19\n");
        EXPECT_THAT(read.products,
                    ElementsAre("Bolts: B 1 | Bolt | 1.2 | 19%", "Bolts: B 2 | Bolt | 1.3 | 19%"))
            << headings;
    }
}

TEST(ProductList, HeadingsOfOtherColumnsLeadNobodyAstray) {
    const auto read = readListOf(
        "EAN;Artikelnummer;Artikel;Preiseinheit;EK-Preis;Preis brutto;Preis netto;Rabatt;Gewicht;Bild;"
        "Langbeschreibung;VPE;Bestand;Gruppennummer;Gruppe\n"
        "4001;A;Bolt;100;1,00;2,38;2,00;5%;0,12;a.jpg;Long;50;7,5;12;Bolts\n"
        "4002;B;Nut;100;1,10;2,50;2,10;5%;0,13;b.jpg;Text;50;8,5;13;Nuts\n");
    EXPECT_EQ(columnsOf(read.mapping), "Gruppe|Artikelnummer|Artikel|VPE|Preis netto||Bild|Langbeschreibung");
    const auto gross = readListOf("Nr;Name;Preis inkl. MwSt\nA;Bolt;1,20\n");
    EXPECT_THAT(gross.rules(), ElementsAre("list.csv:1 price-with-tax"));
}

TEST(ProductList, WithoutKnownHeadingsTheContentsDecide) {
    const std::string rows = "Bolts,A-1,Red bolt,1.20,a.jpg\nBolts,A-2,Blue bolt,2.30,b.jpg\n"
                             "Bolts,A-3,Green bolt,2.50,c.jpg\nNuts,B-1,Green nut,2.50,d.jpg\n"
                             "Nuts,B-2,Blue nut,2.50,e.jpg\nNuts,B-3,Red nut,3.00,f.jpg\n";
    EXPECT_EQ(columnsOf(readListOf(rows).mapping), "column 1|column 2|column 3||column 4||column 5|");
    EXPECT_EQ(columnsOf(readListOf("Zbozi,Kod,Nazev,Cislo,Obraz\n" + rows).mapping),
              "Zbozi|Kod|Nazev||Cislo||Obraz|");
}

TEST(ProductList, GroupsComeFromPathsColumnsOrRows) {
    const struct {
        const char* what;
        const char* text;
        std::vector<std::string> groups;
    } cases[] = {
        {"paths",
         "Code,Name,Price,Group\n1,a,1.5,Bolts / Hex\n2,b,1.5,Bolts / M6/M8\n",
         {"Bolts/Hex", "Bolts/M6/M8"}},
        {"arrows",
         "Code,Name,Price,Group\n1,a,1.5,Bolts > Hex\n2,b,1.5,Nuts/Caps\n",
         {"Bolts/Hex", "Nuts/Caps"}},
        {"backslashes", "Code,Name,Price,Group\n1,a,1.5,Bolts\\Hex\n2,b,1.5,Nuts\n", {"Bolts/Hex", "Nuts"}},
        {"tight slashes",
         "Code,Name,Price,Group\n1,a,1.5,Bolts/Hex\n2,b,1.5,Bolts/Cap\n",
         {"Bolts/Hex", "Bolts/Cap"}},
        {"levels",
         "Group,Subgroup,Code,Name,Price\nBolts,Hex,1,a,1.5\nNuts,,2,b,1.5\n",
         {"Bolts/Hex", "Nuts"}},
        {"written once",
         "Group,Subgroup,Code,Name,Price\nBolts,Hex,1,a,1.5\n,,2,b,1.5\n,Cap,3,c,1.5\nNuts,,4,d,1.5\n",
         {"Bolts/Hex", "Bolts/Hex", "Bolts/Cap", "Nuts"}},
        {"rows", "Code,Name,Price\nBolts,,\n1,a,1.5\n2,b,1.5\n,Nuts,\n3,c,1.5\n", {"Bolts", "Bolts", "Nuts"}},
        {"rows of two levels",
         "Code,Name,Price\nMetal,,\nBolts,,\n1,a,1.5\nNuts,,\n2,b,1.5\nWood,,\nPegs,,\n3,c,1.5\n",
         {"Metal/Bolts", "Metal/Nuts", "Wood/Pegs"}},
        {"none", "Code,Name,Price\n1,a,1.5\n2,b,1.5\n", {"list", "list"}},
    };

    for (const auto& c : cases) {
        std::vector<std::string> groups;
        for (const auto& product : readListOf(c.text).products)
            groups.push_back(product.substr(0, product.find(": ")));
        EXPECT_EQ(groups, c.groups) << c.what;
    }
    // "M6/M8" is one name where paths have blanks around the slash.
    EXPECT_EQ(readListOf(cases[0].text).mapping.groupSeparator.text, " / ");
}

TEST(ProductList, RowsAboveBetweenAndBehindProductsArePassedOver) {
    const auto read =
        readListOf("Muster GmbH;;;\nPreisliste 2026, gültig ab 1.1.;;;\n\nGruppe;Nr;Name;Preis\n"
                   "Bolts;1;a;1,50\n;;;\nGruppe;Nr;Name;Preis\nBolts;2;b;2,50\n;Zwischensumme;;4,00\n"
                   "Nuts;3;c;\n;only a note;;\nNuts;4;d;1,00\n;;Summe netto;5,00\n;Alle Preise netto;;\n");
    EXPECT_THAT(read.products, ElementsAre("Bolts: 1 | a | 1.5", "Bolts: 2 | b | 2.5", "Nuts: 3 | c | 0",
                                           "Nuts: 4 | d | 1"));
    EXPECT_THAT(read.rules(), ElementsAre("list.csv:9 row-passed-over", "list.csv:11 row-passed-over",
                                          "list.csv:13 rows-behind-products", "list.csv:10 number-empty"));
    EXPECT_EQ(textOf(read.complaints[3]), "list.csv:10, Preis: error: price is empty");
    EXPECT_EQ(read.summary,
              "read 4 rows of 'list.csv': code from 'Nr', description from 'Name', price from 'Preis', "
              "comma as decimal mark; groups from 'Gruppe'");
}

TEST(ProductList, MissingColumnsAreComplainedOfOnce) {
    const auto read = readListOf("Nummer;Farbe\nA;rot\nB;blau\n");
    ASSERT_EQ(read.complaints.size(), 1);
    EXPECT_THAT(
        textOf(read.complaints[0]),
        StartsWith(
            "list.csv:1: error: no column was found for: price; the columns are \"Nummer\", \"Farbe\""));
    EXPECT_THAT(read.products, IsEmpty());
    EXPECT_THAT(readListOf("").rules(), ElementsAre("list.csv:0 list-empty"));
    EXPECT_THAT(readListOf("Code,Name,Price\n").rules(), ElementsAre("list.csv:0 list-empty"));
}

TEST(ProductList, OwnColumnsAreReadStrictly) {
    const auto own = publish::ownColumns();
    EXPECT_THAT(
        readListOf("CODE,Group,description,price,tax\nTotal,B/X/ Y,One,1.5,20\n2,,Two,2,\n", own).products,
        ElementsAre("B/X/Y: Total | One | 1.5 | 20%", ": 2 | Two | 2"));

    const struct {
        const char* text;
        std::vector<std::string> rules;
    } cases[] = {
        {"code;group;description;price\n1;B;One;1,50\n", {"list.csv:2 number-unreadable"}},
        {"code,group,description,price\n1,B,One,1,50\n", {"list.csv:2 row-too-long"}},
        {"code,group,name,price\n1,B,One,1\n", {"list.csv:1 column-unknown"}},
        {"code,description,price\n1,One,1\n", {"list.csv:1 column-missing"}},
    };

    for (const auto& c : cases)
        EXPECT_EQ(readListOf(c.text, own).rules(), c.rules) << c.text;
}

TEST(ListMapping, WhatWasFoundIsWrittenAndReadAgain) {
    const std::string list = "Prices\nNr;Name;Name;Price;Group\n1;a;A;1,234;X > Y\n2;b;B;2,000;X > Z\n";
    const auto found = readListOf(list);
    EXPECT_THAT(found.summary, HasSubstr("comma taken as decimal mark"));
    const auto text = textOf(found.mapping);
    EXPECT_EQ(textOf(mappingOf(text)), text);
    EXPECT_EQ(readListOf(list, mappingOf(text)).products, found.products);
}

TEST(ListMapping, CanBeCorrectedByHand) {
    const std::string list = "Nr;Name;Name;Preis A;Preis B;Gruppe\n1;a;A;1,234;7,50;X-Y\n";
    const auto read =
        readListOf(list, mappingOf("; mine\nDESCRIPTION = column 3\nPrice= preis b\nOther = Name\r\n"
                                   "Group separator = \"-\"\nGroup rows = no\nTax = none\n"));
    EXPECT_THAT(read.products, ElementsAre("X/Y: 1 | A | 7.5 | a"));
    const auto point = readListOf(list, mappingOf("Price = Preis A\nDecimal mark = point\nGroup = none"));
    EXPECT_THAT(point.products, ElementsAre(StartsWith("list: 1 | a | 1234")));
}

TEST(ListMapping, MistakesAreComplainedOfByLine) {
    for (const char* line : {"Prise = x", "Price", "Delimiter = colon", "Decimal mark = ,", "Price = \xFF"}) {
        publish::Complaints complaints;
        (void)publish::readMapping(std::string("\n") + line, complaints);
        ASSERT_EQ(complaints.size(), 1) << line;
        EXPECT_EQ(complaints[0].place.row, 2) << line;
    }
    const auto read =
        readListOf("Nr;Name;Preis\n1;a;1,50\n", mappingOf("\nPrice = Netto\nHeading row = 1\n"));
    ASSERT_EQ(read.complaints.size(), 1);
    EXPECT_EQ(textOf(read.complaints[0]),
              "list.ini:2: error: the list has no column \"Netto\"; it has \"Nr\", \"Name\", \"Preis\"");
    EXPECT_THAT(readListOf("Nr;Name;Preis\n1;a;1,50\n", mappingOf("Heading row = 9")).rules(),
                Contains("list.ini:1 mapping-row"));
}

}
