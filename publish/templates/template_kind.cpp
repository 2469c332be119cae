#include "publish/templates/template_kind.h"

#include "base/text.h"
#include "catalog/template_names.h"

#include <algorithm>
#include <array>

namespace publish {
namespace {

constexpr std::array templates{
    TemplateUse{catalog::productTemplate, TemplateKind::product},
    TemplateUse{catalog::firstGroupTemplate, TemplateKind::group},
    TemplateUse{catalog::secondGroupTemplate, TemplateKind::group},
    TemplateUse{catalog::bannerTemplate, TemplateKind::banner},
    TemplateUse{catalog::welcomeTemplate, TemplateKind::welcome},
    TemplateUse{catalog::printTemplate, TemplateKind::print},
    TemplateUse{catalog::printTemplateWithoutTax, TemplateKind::print, false},
    TemplateUse{catalog::mailTemplate, TemplateKind::mail},
    TemplateUse{catalog::mailTemplateWithoutTax, TemplateKind::mail, false},
};

}

std::optional<TemplateUse> templateUse(std::string_view fileName) {
    const auto* const found = std::find_if(templates.begin(), templates.end(), [&](const TemplateUse& use) {
        return base::equalIgnoringCase(use.name, fileName);
    });
    return found == templates.end() ? std::nullopt : std::optional(*found);
}

}
