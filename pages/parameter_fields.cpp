#include "pages/parameter_fields.h"

#include "base/code_page.h"

#include <algorithm>
#include <array>

namespace pages {
namespace {

using catalog::ParameterText;

constexpr unsigned dirNumber = 1;
constexpr unsigned noImgNumber = 30;

struct NumberedTag {
    std::string_view tag;
    unsigned number;
};

// A parameter text has the number of its record, from 2 on.
constexpr NumberedTag parameter(std::string_view tag, ParameterText text) {
    return {tag, static_cast<unsigned>(text)};
}

constexpr std::array tags{
    NumberedTag{"{DIR}", dirNumber},
    NumberedTag{"{NOIMG}", noImgNumber},
    parameter("{TAXNAME}", ParameterText::taxName),
    parameter("{CATNAME}", ParameterText::catalogName),
    parameter("{SUPNAME}", ParameterText::supplierName),
    parameter("{SUPEMAIL}", ParameterText::supplierEmail),
    parameter("{SUPFAX}", ParameterText::supplierFax),
    parameter("{SUPSTREET}", ParameterText::supplierStreet),
    parameter("{SUPCITY}", ParameterText::supplierCity),
    parameter("{SUPSTATE}", ParameterText::supplierState),
    parameter("{SUPZIP}", ParameterText::supplierZip),
    parameter("{SUPCOUNTRY}", ParameterText::supplierCountry),
    parameter("{SUPPHONE}", ParameterText::supplierPhone),
    parameter("{SUPCELL}", ParameterText::supplierCell),
    parameter("{SUPWEB}", ParameterText::supplierWeb),
    parameter("{CODENAME}", ParameterText::codeCaption),
    parameter("{DESCNAME}", ParameterText::descriptionCaption),
    parameter("{PRICENAME}", ParameterText::priceCaption),
    parameter("{CUR}", ParameterText::currency),
};

std::string noImgOf(const catalog::Folders& folders, bool programFileIsReadOnly) {
    auto text = base::textOf(programFileIsReadOnly ? folders.ProgramFolder : folders.DataFolder);
    if (programFileIsReadOnly)
        text += "\\N";
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

}

ParameterFields::ParameterFields(const catalog::Parameters& parameters, const catalog::Folders& folders,
                                 bool programFileIsReadOnly)
    : m_parameters(parameters),
      m_dir(base::textOf(folders.DataFolder)),
      m_noImg(noImgOf(folders, programFileIsReadOnly)) {}

unsigned ParameterFields::number(std::string_view tag) const {
    const auto found =
        std::find_if(tags.begin(), tags.end(), [&](const auto& known) { return known.tag == tag; });
    return found == tags.end() ? 0 : found->number;
}

void ParameterFields::append(unsigned number, std::string& out) const {
    if (number == dirNumber)
        out += m_dir;
    else if (number == noImgNumber)
        out += m_noImg;
    else
        out += m_parameters.text(static_cast<ParameterText>(number));
}

}
