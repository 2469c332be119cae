#pragma once

#include "pages/template/layout_sizes.h"
#include "pages/template/marked_text.h"
#include "pages/template/render_guard.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// The template language (docs/template-language.md) as a procedure on whole texts: search and replace.
/// The parts that are templates work on any string type, so that a text may also hold marks that are
/// no characters; characters above FFh are never part of a tag or a marker.
namespace pages {

/// Reads a template by its name in any letter case. Throws base::MissingFile where there is none and
/// base::DamagedFile where it is larger than a page may be.
struct TemplateFile {
    std::filesystem::path path;
    std::string text;
};

[[nodiscard]] TemplateFile readTemplate(const std::filesystem::path& folder, std::string_view name);

/// {LS}, {FS1} and {FS2} replaced wherever they stand.
[[nodiscard]] std::string replaceLayoutSizes(std::string_view text, const LayoutSizes& sizes);

/// Takes the first column tag ("{NOCOLS=03}") out of the text and gives its number; without a tag it
/// is 2. 0 means that all entries stand in one row.
[[nodiscard]] unsigned takeColumnCount(std::string& text);

/// From a tag with its braces to its value.
using ValueOf = std::function<std::string(std::string_view)>;

/// Resolves the conditional blocks, from the first to the last. What a kept value holds is read again.
void resolveBlocks(std::string& text, const ValueOf& valueOf, RenderGuard& guard);

/// Replaces every tag behind `start` by its value, also the tags that a value brings along. A "}" with no
/// "{" before it and a "{" with no "}" behind it stay. Gives the place of that "{", or the text's end: more
/// text may be appended, and be resolved from there on.
std::size_t resolveTags(std::string& text, std::size_t start, const ValueOf& valueOf, RenderGuard& guard);

/// As `text.find(what, start)`, with its work counted. `what` is not empty.
template <typename Text>
[[nodiscard]] std::size_t find(const Text& text, const Text& what, std::size_t start, RenderGuard& guard) {
    for (;;) {
        const auto found = text.find(what.front(), start);
        guard.countReading((std::min(found, text.size()) - start) * sizeof(what.front()));
        if (found == Text::npos || text.compare(found, what.size(), what) == 0)
            return found;
        guard.countComparison(what.size());
        start = found + 1;
    }
}

/// Replaces every occurrence behind `start`; what is put in is not looked at again.
template <typename Text>
void replaceEvery(Text& text, const Text& from, const Text& to, std::size_t start, RenderGuard& guard) {
    Text replaced;
    auto at = start;
    for (auto found = find(text, from, at, guard); found != Text::npos; found = find(text, from, at, guard)) {
        replaced.append(text, at, found - at).append(to);
        guard.checkSize(start + replaced.size());
        at = found + from.size();
    }
    text.replace(start, at - start, replaced);
    guard.checkSize(text.size());
}

/// A conditional block in its text.
template <typename Text>
struct Block {
    std::size_t start; ///< of the opening braces
    std::size_t end;   ///< of the closing braces
    Text inner;        ///< between both
    Text tag;          ///< the first tag inside, which decides
};

/// The first block of the text behind `from`, before which there must be none and no closing braces. Reports
/// the template as damaged where a block is not closed, is closed before it is opened or has no tag inside.
template <typename Text>
[[nodiscard]] std::optional<Block<Text>> firstBlock(const Text& text, std::size_t from, RenderGuard& guard) {
    const auto start = find(text, Text(2, '{'), from, guard);
    if (start == Text::npos)
        return std::nullopt;
    const auto end = find(text, Text(2, '}'), from, guard);
    if (end == Text::npos || end < start)
        guard.damaged();
    auto inner = text.substr(start + 2, end - start - 2);
    const auto open = inner.find('{');
    const auto close = inner.find('}');
    if (open == Text::npos || close == Text::npos || close < open)
        guard.damaged();
    auto tag = inner.substr(open, close - open + 1);
    return Block<Text>{start, end, std::move(inner), std::move(tag)};
}

/// Puts the block's inner text, with the value in place of its first tag, in the block's place; an empty
/// value drops the block. The other tags of the block stay. Gives the place from which to look for the next
/// block: the text put in may go on with a brace that stood before it.
template <typename Text>
std::size_t settleBlock(Text& text, Block<Text> block, const Text& value, RenderGuard& guard) {
    guard.countReplacements(1);
    if (value.empty())
        block.inner.clear();
    else
        replaceEvery(block.inner, block.tag, value, 0, guard);
    guard.countReading(text.size() - block.start);
    text.replace(block.start, block.end + 2 - block.start, block.inner);
    guard.checkSize(text.size());
    return block.start - std::min<std::size_t>(block.start, 1);
}

/// A text cut at its row markers.
template <typename Text>
struct RowParts {
    Text header; ///< the whole text where there is no row block
    Text firstRow;
    std::optional<Text> secondRow;
    Text trailer;
    bool hasRows = false;
};

/// Cuts at `<R1>`, `</R1>`, `<R2>` and `</R2>`; the text between both blocks is dropped. Reports the
/// template as damaged where an end marker is missing.
template <typename Text>
[[nodiscard]] RowParts<Text> splitAtRows(const Text& text, const RenderGuard& guard) {
    const auto marker = [](std::string_view name) { return Text(name.begin(), name.end()); };
    const auto endOf = [&](std::string_view name, std::size_t from) {
        const auto end = text.find(marker(name), from);
        if (end == Text::npos)
            guard.damaged();
        return end;
    };
    constexpr std::size_t startWidth = 4;
    constexpr std::size_t endWidth = 5;

    const auto first = text.find(marker("<R1>"));
    if (first == Text::npos)
        return {text, {}, std::nullopt, {}, false};
    const auto firstEnd = endOf("</R1>", first + startWidth);
    RowParts<Text> parts{text.substr(0, first),
                         text.substr(first + startWidth, firstEnd - first - startWidth), std::nullopt,
                         text.substr(firstEnd + endWidth), true};
    const auto second = text.find(marker("<R2>"), firstEnd + endWidth);
    if (second == Text::npos)
        return parts;
    const auto secondEnd = endOf("</R2>", second + startWidth);
    parts.secondRow = text.substr(second + startWidth, secondEnd - second - startWidth);
    parts.trailer = text.substr(secondEnd + endWidth);
    return parts;
}

}
