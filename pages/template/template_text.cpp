#include "pages/template/template_text.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <cmath>
#include <system_error>

namespace pages {

TemplateFile readTemplate(const std::filesystem::path& folder, std::string_view name) {
    const auto path = base::filePath(folder, name);
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (!error && size > RenderGuard::mostBytes)
        throw base::DamagedFile(path);
    auto text = base::readFile(path);
    if (!text)
        throw base::MissingFile(path);
    return {path, *std::move(text)};
}

std::string replaceLayoutSizes(std::string_view text, const LayoutSizes& sizes) {
    auto result = base::replaceAll(text, layoutTags[0], sizes.LS);
    result = base::replaceAll(result, layoutTags[1], sizes.FS1);
    return base::replaceAll(result, layoutTags[2], sizes.FS2);
}

unsigned takeColumnCount(std::string& text) {
    constexpr std::string_view tagStart = "{NOCOLS=";
    constexpr std::size_t digits = 2;
    // Deliberate: always so many characters, also where the number has one digit only.
    constexpr std::size_t taken = 11;
    constexpr unsigned columnsWithoutTag = 2;
    constexpr double most = 255;

    const auto at = text.find(tagStart);
    if (at == std::string::npos)
        return columnsWithoutTag;
    const auto value = base::parseNumber(std::string_view(text).substr(at + tagStart.size(), digits));
    text.erase(at, taken);
    return static_cast<unsigned>(std::clamp(std::nearbyint(value), 0.0, most));
}

void resolveBlocks(std::string& text, const ValueOf& valueOf, RenderGuard& guard) {
    std::size_t from = 0;
    while (auto block = firstBlock(text, from, guard)) {
        const auto value = valueOf(block->tag);
        from = settleBlock(text, *std::move(block), value, guard);
    }
}

std::size_t resolveTags(std::string& text, std::size_t start, const ValueOf& valueOf, RenderGuard& guard) {
    // Nothing in front of `open` holds a "{", so going on there is as good as starting again.
    for (auto open = text.find('{', start); open != std::string::npos; open = text.find('{', open)) {
        const auto close = text.find('}', open);
        guard.countReading(std::min(close, text.size()) - open);
        if (close == std::string::npos)
            return open;
        guard.countReplacements(1);
        const auto tag = text.substr(open, close - open + 1);
        replaceEvery(text, tag, valueOf(tag), open, guard);
    }
    return text.size();
}

}
