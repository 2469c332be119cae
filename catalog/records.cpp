#include "catalog/records.h"

#include <algorithm>

namespace catalog {
namespace {

constexpr char fieldSeparator = '\n';

// The text behind the n-th line feed, if there are so many.
std::string_view behind(std::string_view text, int lineFeeds) {
    for (; lineFeeds > 0; --lineFeeds) {
        const auto at = text.find(fieldSeparator);
        if (at == std::string_view::npos)
            return {};
        text.remove_prefix(at + 1);
    }
    return text;
}

}

int ParameterHeader::quantityDecimals() const {
    return std::min<int>(base::readNumber<std::uint8_t>(m_bytes, quantityDecimalsOffset),
                         mostQuantityDecimals);
}

std::string_view ProductRecord::code() const {
    const auto end = text().find(fieldSeparator);
    return end == std::string_view::npos ? std::string_view{} : base::trim(text().substr(0, end));
}

std::string_view ProductRecord::description() const {
    const auto rest = behind(text(), 1);
    const auto end = rest.find(fieldSeparator);
    // Deliberate: the second line feed belongs to the description, so an empty one is a line feed.
    return base::trim(end == std::string_view::npos ? rest : rest.substr(0, end + 1));
}

std::string_view ProductRecord::descriptionLine() const {
    auto line = description();
    if (line.ends_with(fieldSeparator))
        line.remove_suffix(1);
    return base::trim(line);
}

std::string_view ProductRecord::other() const {
    return base::trim(behind(text(), 2));
}

std::array<char, IndexRecord::keyField.width> indexKey(std::string_view code) {
    std::array<char, IndexRecord::keyField.width> key{};
    key.fill(' ');
    const auto kept = code.substr(0, key.size());
    std::transform(kept.begin(), kept.end(), key.begin(), [](char c) { return base::upper(c); });
    return key;
}

}
