#pragma once

#include "catalog/catalog.h"
#include "pages/template/fields.h"

#include <optional>
#include <string>
#include <string_view>

namespace pages {

/// The parameter text that a tag ("{SUPNAME}") stands for in every kind of template.
[[nodiscard]] std::optional<catalog::ParameterText> parameterOf(std::string_view tag);

/// The tags that need no product: the catalogue's parameter texts and the folders. Tags of a product are
/// unknown here and so empty. The parameters must live as long.
class ParameterFields : public Fields {
public:
    /// All numbers are below this one.
    static constexpr unsigned numberEnd = 32;

    ParameterFields(const catalog::Parameters& parameters, const catalog::Folders& folders,
                    bool programFileIsReadOnly);

    [[nodiscard]] unsigned number(std::string_view tag) const override;
    void append(unsigned number, std::string& out) const override;

private:
    const catalog::Parameters& m_parameters;
    std::string m_dir;
    std::string m_noImg;
};

}
