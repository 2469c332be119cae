#pragma once

#include "catalog/parameters.h"

#include <array>
#include <string_view>

namespace publish {

/// A text of the parameters and its key in catalog.ini.
struct ParameterKey {
    std::string_view key;
    catalog::ParameterText text;
};

inline constexpr std::array supplierKeys{ParameterKey{"Supplier name", catalog::ParameterText::supplierName},
                                         ParameterKey{"E-mail", catalog::ParameterText::supplierEmail},
                                         ParameterKey{"Fax", catalog::ParameterText::supplierFax},
                                         ParameterKey{"Street", catalog::ParameterText::supplierStreet},
                                         ParameterKey{"City", catalog::ParameterText::supplierCity},
                                         ParameterKey{"State", catalog::ParameterText::supplierState},
                                         ParameterKey{"Post code", catalog::ParameterText::supplierZip},
                                         ParameterKey{"Country", catalog::ParameterText::supplierCountry},
                                         ParameterKey{"Phone", catalog::ParameterText::supplierPhone},
                                         ParameterKey{"Mobile", catalog::ParameterText::supplierCell},
                                         ParameterKey{"Web", catalog::ParameterText::supplierWeb}};

inline constexpr std::array columnKeys{
    ParameterKey{"Code caption", catalog::ParameterText::codeCaption},
    ParameterKey{"Description caption", catalog::ParameterText::descriptionCaption},
    ParameterKey{"Price caption", catalog::ParameterText::priceCaption},
    ParameterKey{"Extra caption", catalog::ParameterText::otherCaption}};

inline constexpr ParameterKey catalogNameKey{"Catalogue name", catalog::ParameterText::catalogName};
inline constexpr ParameterKey currencyKey{"Currency", catalog::ParameterText::currency};
inline constexpr ParameterKey taxNameKey{"Tax name", catalog::ParameterText::taxName};

/// The words that catalog.ini has for the header's switches.
[[nodiscard]] constexpr std::string_view yesOrNo(bool isTrue) {
    return isTrue ? "yes" : "no";
}

[[nodiscard]] constexpr std::string_view alignmentWord(char letter) {
    return letter == 'L' ? "left" : letter == 'R' ? "right" : "centre";
}

}
