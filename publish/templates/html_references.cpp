#include "publish/templates/html_references.h"

#include "base/html.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace publish {
namespace {

using pages::Resource;

constexpr auto none = std::string_view::npos;
constexpr std::string_view space = " \t\r\n\f/";

struct Attribute {
    std::string_view name;
    std::string_view value;
};

// Takes an attribute off the text, quoted or not; nothing at its end.
std::optional<Attribute> takeAttribute(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(space), text.size()));
    if (text.empty())
        return std::nullopt;
    Attribute attribute{text.substr(0, text.find_first_of(" \t\r\n\f=", 1)), {}};
    text.remove_prefix(attribute.name.size());
    const auto sign = text.find_first_not_of(space);
    if (sign == none || text[sign] != '=')
        return attribute;
    text.remove_prefix(sign + 1);
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\f"), text.size()));
    const bool quoted = text.starts_with('"') || text.starts_with('\'');
    const auto end = quoted ? text.find(text[0], 1) : text.find_first_of(" \t\r\n\f");
    attribute.value = text.substr(quoted ? 1 : 0, end == none ? none : end - (quoted ? 1 : 0));
    text.remove_prefix(end == none ? text.size() : end + (quoted ? 1 : 0));
    return attribute;
}

std::vector<Attribute> attributesOf(const base::HtmlTag& tag) {
    std::vector<Attribute> attributes;
    auto rest = tag.attributes;
    while (const auto attribute = takeAttribute(rest))
        attributes.push_back(*attribute);
    return attributes;
}

/// Where an element names a file, in lower case.
struct Place {
    std::string_view element; ///< empty for any
    std::string_view attribute;
    Resource resource;
};

constexpr std::array places{
    Place{"a", "href", Resource::link},         Place{"area", "href", Resource::link},
    Place{"img", "src", Resource::picture},     Place{"input", "src", Resource::picture},
    Place{"", "background", Resource::picture}, Place{"video", "poster", Resource::picture},
    Place{"script", "src", Resource::script},   Place{"iframe", "src", Resource::frame},
    Place{"frame", "src", Resource::frame},     Place{"embed", "src", Resource::frame},
    Place{"object", "data", Resource::frame},   Place{"audio", "src", Resource::media},
    Place{"video", "src", Resource::media},     Place{"source", "src", Resource::media},
};

bool hasAttribute(const std::vector<Attribute>& attributes, std::string_view name) {
    return std::any_of(attributes.begin(), attributes.end(),
                       [&](const Attribute& a) { return base::equalIgnoringCase(a.name, name); });
}

bool isStyle(const std::vector<Attribute>& attributes) {
    return std::any_of(attributes.begin(), attributes.end(), [](const Attribute& a) {
        return base::equalIgnoringCase(a.name, "rel") && base::equalIgnoringCase(a.value, "stylesheet");
    });
}

std::optional<Resource> resourceOf(std::string_view element, std::string_view attribute) {
    const auto* const found = std::find_if(places.begin(), places.end(), [&](const Place& place) {
        return (place.element.empty() || base::equalIgnoringCase(place.element, element)) &&
               base::equalIgnoringCase(place.attribute, attribute);
    });
    return found == places.end() ? std::nullopt : std::optional(found->resource);
}

// An ampersand is the only character of an address that people write as a reference.
std::string addressIn(std::string_view value) {
    const auto plain = base::trim(value);
    return plain.find('&') == none ? std::string(plain) : base::replaceAll(plain, "&amp;", "&");
}

}

std::vector<HtmlReference> htmlReferences(std::string_view html) {
    std::vector<HtmlReference> references;
    const auto onTag = [&](const base::HtmlTag& tag) {
        const auto attributes = tag.closing ? std::vector<Attribute>() : attributesOf(tag);
        const bool hasStandIn = hasAttribute(attributes, "onerror");
        const bool isStyleLink = base::equalIgnoringCase(tag.name, "link") && isStyle(attributes);
        for (const auto& [name, value] : attributes) {
            auto resource = resourceOf(tag.name, name);
            if (isStyleLink && base::equalIgnoringCase(name, "href"))
                resource = Resource::style;
            if (resource)
                references.push_back({addressIn(value), *resource,
                                      static_cast<std::size_t>(tag.name.data() - html.data()), hasStandIn});
        }
    };
    base::readHtml(html, onTag, [](std::string_view) {});
    return references;
}

}
