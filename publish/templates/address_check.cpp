#include "publish/templates/address_check.h"

#include "base/code_page.h"
#include "base/text.h"
#include "pages/browse/link_address.h"

#include <algorithm>
#include <array>

namespace publish {
namespace {

using pages::Resource;
using Weight = Complaint::Weight;

constexpr auto none = std::string_view::npos;

bool startsWithAny(std::string_view text, std::initializer_list<std::string_view> starts) {
    return std::any_of(starts.begin(), starts.end(),
                       [&](std::string_view start) { return base::startsIgnoringCase(text, start); });
}

// "mailto" of "mailto:a@b", "C" of "C:\file"; empty for a name.
std::string_view schemeOf(std::string_view address) {
    const auto colon = address.find(':');
    return colon < address.find_first_of("/\\?#") ? address.substr(0, colon) : std::string_view();
}

bool namesPage(std::string_view address) {
    return base::upper(address).find(".HTM") != std::string::npos;
}

std::string_view endingOf(std::string_view name) {
    const auto dot = name.rfind('.');
    return dot == none ? std::string_view() : name.substr(dot);
}

std::string_view whatItIs(Resource resource) {
    switch (resource) {
    case Resource::style:
        return "a style sheet (.css)";
    case Resource::script:
        return "a script (.js)";
    case Resource::picture:
        return "a picture (.jpg, .png, .gif, .svg)";
    case Resource::media:
        return "sound or film (.mp3, .mp4)";
    default:
        return "a page or picture (.htm, .jpg)";
    }
}

std::optional<BadAddress> refused(std::string_view address, std::string_view why) {
    return BadAddress{Weight::warning, "link-refused",
                      "the viewer does not follow the link to " + base::toUtf8(address) + ": " +
                          std::string(why)};
}

std::optional<BadAddress> judgeLink(std::string_view address, const CatalogFiles& files) {
    if (startsWithAny(address, {"http://", "https://"}))
        return namesPage(address)
                   ? std::nullopt
                   : refused(address, "of the web it opens only addresses with \".htm\" in them");
    if (!schemeOf(address).empty() || address.starts_with("//"))
        return refused(address,
                       "it opens pages of the catalogue and of the web only; write the address as text");
    const auto name = fileNameIn(address);
    if (!namesPage(address))
        return refused(address, "it opens pages only, whose names end in .htm or .html");
    if (address.find_first_of("?|") != none || base::equalIgnoringCase(name, "Tmp.htm"))
        return std::nullopt; // a product's
    if (leadsOut(name))
        return refused(address, "it lies outside the catalogue's folder");
    if (!files.holds(name))
        return BadAddress{Weight::error, "link-missing",
                          "the link leads to " + base::toUtf8(name) + ", which is not in the catalogue"};
    if (!pages::isOfKind(endingOf(name), Resource::link))
        return refused(address, "it opens pages only, whose names end in .htm or .html");
    return std::nullopt;
}

std::optional<BadAddress> judgeFile(std::string_view address, Resource resource, const CatalogFiles& files) {
    const auto name = fileNameIn(address);
    const auto shown = base::toUtf8(name);
    if (!schemeOf(address).empty() || leadsOut(name))
        return BadAddress{Weight::error, "file-outside",
                          shown +
                              " lies outside the catalogue's folder, from which alone the viewer loads; put "
                              "it into the catalogue and name it without its folders"};
    if (!files.holds(name))
        return BadAddress{Weight::error, "file-missing",
                          "the page asks for " + shown + ", which is not in the catalogue"};
    if (!pages::isOfKind(endingOf(name), resource))
        return BadAddress{Weight::error, "file-kind",
                          "the viewer does not load " + shown + " here; its name is to say that it is " +
                              std::string(whatItIs(resource))};
    return std::nullopt;
}

}

std::string fileNameIn(std::string_view address) {
    const auto name = address.substr(0, address.find_first_of("?#|"));
    auto text = pages::readAddress(name).text;
    std::string_view plain = base::trim(text);
    if (plain.starts_with("./") || plain.starts_with(".\\"))
        plain.remove_prefix(2);
    return std::string(plain);
}

std::optional<BadAddress> judge(std::string_view address, Resource resource, const CatalogFiles& files) {
    const auto plain = base::trim(address);
    if (plain.empty() || plain[0] == '#' || startsWithAny(plain, {"javascript:", "about:", "data:"}))
        return std::nullopt;
    if (resource == Resource::link)
        return judgeLink(plain, files);
    if (startsWithAny(plain, {"http://", "https://", "//"}))
        return BadAddress{Weight::warning, "network-file",
                          "the viewer loads nothing from the network, so " + base::toUtf8(plain) +
                              " is never seen; put the file into the catalogue"};
    return judgeFile(plain, resource, files);
}

}
