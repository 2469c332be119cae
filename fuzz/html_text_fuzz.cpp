#include "fuzz/require.h"
#include "fuzz/sections.h"
#include "ui/system/mail/plain_text.h"

#include <QGuiApplication>

#include <string>

namespace {

// Texts are laid out with the fonts of a screen, which need not be there.
void startToolkit() {
    static int count = 1;
    static char name[] = "html_text_fuzz";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(count, arguments);
}

// "NUMBER<" repeats what stands between it and the next section's end, so that a small input can be deep.
std::string repeated(std::string_view text) {
    constexpr std::size_t most = 32'000;
    const auto times = static_cast<unsigned char>(text.empty() ? '\0' : text.front());
    std::string out;
    for (std::size_t i = 0; i < std::size_t{1} << (times % 12U) && out.size() + text.size() < most; ++i)
        out += text.substr(std::min<std::size_t>(1, text.size()));
    return out;
}

}

// An HTML message: it has a plain text, in no time, and the plain text no markup's control characters.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    startToolkit();
    auto input = fuzz::textOf(data, size);
    auto body = repeated(fuzz::takeSection(input));
    body += input;
    const auto text = ui::system::plainText({.body = body, .isHtml = true});
    fuzz::require(!text.contains(QChar::ObjectReplacementCharacter), "a picture's stand-in is in the text");
    fuzz::require(text.endsWith('\n'), "the text does not end its last line");
    fuzz::require(!text.contains('\r'), "a line ends in CR LF");
    return 0;
}
