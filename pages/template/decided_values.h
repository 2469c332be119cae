#pragma once

#include "pages/template/fields.h"

#include <string>
#include <string_view>
#include <vector>

namespace pages {

/// The values that decide the conditional blocks of one page, each worked out once.
class DecidedValues {
public:
    /// Forgets all values, for the next page.
    void clear();

    /// Whether the block of this field is kept.
    [[nodiscard]] bool keeps(unsigned field, const Fields& fields);

    /// The value of a field whose block was kept.
    [[nodiscard]] std::string_view text(unsigned field) const { return m_values[field].text; }

    /// A value asked for could be read as part of the template: it holds a brace or the start of a row
    /// marker.
    [[nodiscard]] bool holdTemplateText() const { return m_holdTemplateText; }

private:
    struct Value {
        bool known = false;
        std::string text;
    };

    std::vector<Value> m_values; // by field number
    bool m_holdTemplateText = false;
};

}
