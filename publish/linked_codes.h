#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace publish {

/// The codes to which the links of a page or a long description lead: what follows "Tmp.htm?" or
/// "Tmp.htm|" up to the end of the attribute, percent-escapes and the commonest entities decoded.
/// Links that hold a template tag are left out.
[[nodiscard]] std::vector<std::string> linkedCodes(std::string_view html);

}
