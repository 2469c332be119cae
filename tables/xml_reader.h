#pragma once

#include "tables/packed_file.h"

#include <string>
#include <string_view>

namespace tables {

/// An element's attributes, by name with its prefix ("r:id").
class XmlAttributes {
public:
    explicit XmlAttributes(const char** pairs) : m_pairs(pairs) {}

    /// Empty where there is none; valid until the element's start has been handled.
    [[nodiscard]] std::string_view value(std::string_view name) const;

    /// Its value as a number, at most a million more than a sheet can need; `otherwise` where it is none.
    [[nodiscard]] std::size_t number(std::string_view name, std::size_t otherwise) const;

private:
    const char** m_pairs;
};

/// What goes by while a part is read. Names come without their prefix.
class XmlEvents {
public:
    virtual ~XmlEvents() = default;
    virtual void start(std::string_view name, const XmlAttributes& attributes) = 0;
    virtual void end(std::string_view name) = 0;
    virtual void text(std::string_view utf8) = 0;
};

/// Reads a part of a spreadsheet. A part that is no XML or has a document type, which may hold bombs,
/// throws base::FileError; so may the events.
void readXml(const PackedFile& file, const std::string& part, XmlEvents& events);

}
