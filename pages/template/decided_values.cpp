#include "pages/template/decided_values.h"

namespace pages {
namespace {

bool holdsTemplateText(std::string_view value) {
    constexpr auto none = std::string_view::npos;
    return value.find_first_of("{}") != none || value.find("<R") != none || value.find("</R") != none ||
           value.ends_with('<') || value.ends_with("</");
}

}

void DecidedValues::clear() {
    for (auto& value : m_values)
        value.known = false;
    m_holdTemplateText = false;
}

bool DecidedValues::keeps(unsigned field, const Fields& fields) {
    if (field == 0)
        return false;
    if (field >= m_values.size())
        m_values.resize(field + 1);
    auto& value = m_values[field];
    if (!value.known) {
        value.known = true;
        value.text.clear();
        fields.append(field, value.text);
        m_holdTemplateText = m_holdTemplateText || holdsTemplateText(value.text);
    }
    return !value.text.empty();
}

}
