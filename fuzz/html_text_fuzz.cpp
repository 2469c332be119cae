#include "base/code_page.h"
#include "fuzz/require.h"
#include "fuzz/sections.h"
#include "ui/system/mail/html_text.h"

#include <algorithm>
#include <string>

namespace {

constexpr std::size_t mostRepeated = 16'000;

// What stands before the first section's end comes as many times as its first byte says, so that a small
// input can be nested deep.
std::string messageOf(std::string_view input) {
    auto nested = fuzz::takeSection(input);
    const std::size_t doublings = nested.empty() ? 0 : static_cast<unsigned char>(nested.front()) % 14U;
    nested.remove_prefix(std::min<std::size_t>(1, nested.size()));
    std::string html;
    for (std::size_t i = 0; i < std::size_t{1} << doublings && html.size() < mostRepeated; ++i)
        html += nested;
    return html.append(input);
}

}

// An HTML message has a text that is hardly longer than itself, that ends in a line end, and that is UTF-8
// where the message is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto html = messageOf(fuzz::textOf(data, size));
    const auto text = ui::system::textOfHtml(html);
    fuzz::require(text.ends_with('\n'), "the text does not end its last line");
    fuzz::require(text.size() <= 2 * html.size() + 1, "the text is longer than the message");
    fuzz::require(base::isUtf8(text) || !base::isUtf8(html), "half a character is left");
    return 0;
}
