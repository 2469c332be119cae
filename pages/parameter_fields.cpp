#include "pages/parameter_fields.h"

#include "pages/folder_text.h"

#include <algorithm>

namespace pages {
namespace {

std::string noImgOf(const catalog::Folders& folders, bool programFileIsReadOnly) {
    auto text = folderText(programFileIsReadOnly ? folders.ProgramFolder : folders.DataFolder);
    if (programFileIsReadOnly)
        text += "\\N";
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

}

ParameterFields::ParameterFields(const catalog::Parameters& parameters, const catalog::Folders& folders,
                                 bool programFileIsReadOnly)
    : m_parameters(parameters),
      m_dir(folderText(folders.DataFolder)),
      m_noImg(noImgOf(folders, programFileIsReadOnly)) {}

unsigned ParameterFields::number(std::string_view tag) const {
    const auto number = parameterTags.number(tag);
    return number != 0 ? number : folderTags.number(tag);
}

void ParameterFields::append(unsigned number, std::string& out) const {
    if (parameterTags.holds(number))
        out += m_parameters.text(parameterTags[number]);
    else
        out += folderTags[number] == FolderTag::dir ? m_dir : m_noImg;
}

}
