#pragma once

#include <string>
#include <string_view>

namespace pages {

/// Where a template takes its values from.
class Fields {
public:
    Fields() = default;
    Fields(const Fields&) = default;
    Fields& operator=(const Fields&) = default;
    virtual ~Fields() = default;

    /// The number under which a tag is known, braces included ("{CODE}"): 1 to 9999, the same for every
    /// object that is used with one template. 0 for an unknown tag.
    [[nodiscard]] virtual unsigned number(std::string_view tag) const = 0;

    /// Appends the value of a known tag.
    virtual void append(unsigned number, std::string& out) const = 0;
};

/// The value of a tag; empty for an unknown one.
[[nodiscard]] inline std::string valueOf(const Fields& fields, std::string_view tag) {
    std::string value;
    if (const auto number = fields.number(tag); number != 0)
        fields.append(number, value);
    return value;
}

}
