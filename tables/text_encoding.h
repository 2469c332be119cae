#pragma once

#include "tables/table.h"

#include <string>
#include <string_view>

namespace tables {

/// How a text's bytes are to be read: by its mark, else UTF-16 where zero bytes stand as they do in it, else
/// UTF-8 unless hardly anything in it is UTF-8, else Windows-1252.
[[nodiscard]] Encoding encodingOf(std::string_view bytes);

/// The bytes without the mark of their encoding.
[[nodiscard]] std::string_view withoutMark(std::string_view bytes, Encoding encoding);

/// The text in UTF-8, of bytes without mark in an encoding other than UTF-8.
[[nodiscard]] std::string toUtf8(std::string_view bytes, Encoding encoding);

/// Bytes that are no UTF-8, and characters of several bytes that are.
struct Utf8Count {
    std::size_t faults = 0;
    std::size_t characters = 0;
};

[[nodiscard]] Utf8Count countUtf8(std::string_view text);

}
