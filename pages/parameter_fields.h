#pragma once

#include "catalog/catalog.h"
#include "pages/parameter_tags.h"
#include "pages/template/fields.h"

#include <string>
#include <string_view>
#include <vector>

namespace pages {

enum class FolderTag { dir, noImg };

/// The tags of the folders, for pages that are shown from them.
inline constexpr TagTable folderTags{
    parameterTags.end(), std::array{Tag{"{DIR}", FolderTag::dir}, Tag{"{NOIMG}", FolderTag::noImg}}};
static_assert(areDistinct(parameterTags, folderTags));

/// The tags that need no product: the catalogue's parameter texts and the folders. Tags of a product are
/// unknown here and so empty. The parameters must live as long.
class ParameterFields : public Fields {
public:
    ParameterFields(const catalog::Parameters& parameters, const catalog::Folders& folders,
                    bool programFileIsReadOnly);

    [[nodiscard]] unsigned number(std::string_view tag) const override;
    void append(unsigned number, std::string& out) const override;

    /// All that it knows.
    [[nodiscard]] static std::vector<std::string_view> tags() { return tagsOf(parameterTags, folderTags); }

private:
    const catalog::Parameters& m_parameters;
    std::string m_dir;
    std::string m_noImg;
};

}
