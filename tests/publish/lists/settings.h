#pragma once

#include "base/text.h"

#include <array>
#include <string>
#include <vector>

namespace support {

/// The settings under which a person writes the list of list.fods.
struct ListSettings {
    const char* language;
    const char* country;
    const char* beforePrice;
    const char* behindPrice;
    const char* sheet;
    const char* total;
    std::array<const char*, 6> headings;
};

inline const std::array listSettings{
    ListSettings{"de",
                 "DE",
                 "",
                 " €",
                 "Preise",
                 "Summe",
                 {"Warengruppe", "Art.-Nr.", "Bezeichnung", "Preis netto", "MwSt.", "Langtext"}},
    ListSettings{"en",
                 "GB",
                 "£",
                 "",
                 "Prices",
                 "Total",
                 {"Group", "Item no.", "Description", "Net price", "VAT", "Long description"}},
    ListSettings{"da",
                 "DK",
                 "",
                 " kr.",
                 "Priser",
                 "I alt",
                 {"Varegruppe", "Varenr.", "Beskrivelse", "Pris ekskl. moms", "Moms", "Lang beskrivelse"}}};

inline std::string inNumberText(const std::string& text) {
    return text.empty() ? text : "<number:text>" + text + "</number:text>";
}

/// list.fods as that person has it.
inline std::string writtenUnder(const ListSettings& settings, std::string fods) {
    std::string headings;
    for (const std::string heading : settings.headings)
        headings += "<table:table-cell office:value-type=\"string\"><text:p>" + heading +
                    "</text:p></table:table-cell>";
    const std::array<std::pair<const char*, std::string>, 7> values{
        {{"@language@", settings.language},
         {"@country@", settings.country},
         {"@before@", inNumberText(settings.beforePrice)},
         {"@behind@", inNumberText(settings.behindPrice)},
         {"@sheet@", settings.sheet},
         {"@total@", settings.total},
         {"@headings@", headings}}};
    for (const auto& [name, value] : values)
        fods = base::replaceAll(fods, name, value);
    return fods;
}

}
