#pragma once

#include "catalog/parameters.h"
#include "pages/template/tag_table.h"

namespace pages {

/// The tags of the catalogue's parameter texts, which every kind of template knows.
inline constexpr std::array parameterTagsInOrder{
    Tag{"{TAXNAME}", catalog::ParameterText::taxName},
    Tag{"{CATNAME}", catalog::ParameterText::catalogName},
    Tag{"{SUPNAME}", catalog::ParameterText::supplierName},
    Tag{"{SUPEMAIL}", catalog::ParameterText::supplierEmail},
    Tag{"{SUPFAX}", catalog::ParameterText::supplierFax},
    Tag{"{SUPSTREET}", catalog::ParameterText::supplierStreet},
    Tag{"{SUPCITY}", catalog::ParameterText::supplierCity},
    Tag{"{SUPSTATE}", catalog::ParameterText::supplierState},
    Tag{"{SUPZIP}", catalog::ParameterText::supplierZip},
    Tag{"{SUPCOUNTRY}", catalog::ParameterText::supplierCountry},
    Tag{"{SUPPHONE}", catalog::ParameterText::supplierPhone},
    Tag{"{SUPCELL}", catalog::ParameterText::supplierCell},
    Tag{"{SUPWEB}", catalog::ParameterText::supplierWeb},
    Tag{"{CODENAME}", catalog::ParameterText::codeCaption},
    Tag{"{DESCNAME}", catalog::ParameterText::descriptionCaption},
    Tag{"{PRICENAME}", catalog::ParameterText::priceCaption},
    Tag{"{CUR}", catalog::ParameterText::currency},
};
inline constexpr TagTable parameterTags{1, parameterTagsInOrder};
static_assert(isDistinct(parameterTags));

}
