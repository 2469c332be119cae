#include "pages/parameter_fields.h"

#include "pages/folder_text.h"

#include <algorithm>
#include <array>

namespace pages {
namespace {

using catalog::ParameterText;

// A parameter text has the number of its record, from 2 on.
constexpr unsigned dirNumber = 1;
constexpr unsigned noImgNumber = 30;

struct ParameterTag {
    std::string_view tag;
    ParameterText text;
};

constexpr std::array parameterTags{
    ParameterTag{"{TAXNAME}", ParameterText::taxName},
    ParameterTag{"{CATNAME}", ParameterText::catalogName},
    ParameterTag{"{SUPNAME}", ParameterText::supplierName},
    ParameterTag{"{SUPEMAIL}", ParameterText::supplierEmail},
    ParameterTag{"{SUPFAX}", ParameterText::supplierFax},
    ParameterTag{"{SUPSTREET}", ParameterText::supplierStreet},
    ParameterTag{"{SUPCITY}", ParameterText::supplierCity},
    ParameterTag{"{SUPSTATE}", ParameterText::supplierState},
    ParameterTag{"{SUPZIP}", ParameterText::supplierZip},
    ParameterTag{"{SUPCOUNTRY}", ParameterText::supplierCountry},
    ParameterTag{"{SUPPHONE}", ParameterText::supplierPhone},
    ParameterTag{"{SUPCELL}", ParameterText::supplierCell},
    ParameterTag{"{SUPWEB}", ParameterText::supplierWeb},
    ParameterTag{"{CODENAME}", ParameterText::codeCaption},
    ParameterTag{"{DESCNAME}", ParameterText::descriptionCaption},
    ParameterTag{"{PRICENAME}", ParameterText::priceCaption},
    ParameterTag{"{CUR}", ParameterText::currency},
};

std::string noImgOf(const catalog::Folders& folders, bool programFileIsReadOnly) {
    auto text = folderText(programFileIsReadOnly ? folders.ProgramFolder : folders.DataFolder);
    if (programFileIsReadOnly)
        text += "\\N";
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

}

std::optional<ParameterText> parameterOf(std::string_view tag) {
    const auto* const found = std::find_if(parameterTags.begin(), parameterTags.end(),
                                           [&](const auto& known) { return known.tag == tag; });
    return found == parameterTags.end() ? std::nullopt : std::optional(found->text);
}

ParameterFields::ParameterFields(const catalog::Parameters& parameters, const catalog::Folders& folders,
                                 bool programFileIsReadOnly)
    : m_parameters(parameters),
      m_dir(folderText(folders.DataFolder)),
      m_noImg(noImgOf(folders, programFileIsReadOnly)) {}

unsigned ParameterFields::number(std::string_view tag) const {
    if (tag == "{DIR}")
        return dirNumber;
    if (tag == "{NOIMG}")
        return noImgNumber;
    const auto text = parameterOf(tag);
    return text ? static_cast<unsigned>(*text) : 0;
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
