#pragma once

#include "pages/template/layout_sizes.h"
#include "pages/template/marked_text.h"
#include "pages/template/render_guard.h"

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

/// Replaces every tag by its value, also the tags that a value brings along. A "}" with no "{" before it
/// and a "{" with no "}" behind it stay.
void resolveTags(std::string& text, const ValueOf& valueOf, RenderGuard& guard);

/// Replaces every occurrence behind `start`; what is put in is not looked at again.
template <typename Text>
void replaceEvery(Text& text, const Text& from, const Text& to, std::size_t start, RenderGuard& guard) {
    guard.countWork(text.size());
    Text result(text, 0, start);
    for (auto found = text.find(from, start); found != Text::npos; found = text.find(from, start)) {
        result.append(text, start, found - start).append(to);
        guard.checkSize(result.size());
        start = found + from.size();
    }
    result.append(text, start);
    guard.checkSize(result.size());
    text = std::move(result);
}

/// A conditional block in its text.
template <typename Text>
struct Block {
    std::size_t start; ///< of the opening braces
    std::size_t end;   ///< of the closing braces
    Text inner;        ///< between both
    Text tag;          ///< the first tag inside, which decides
};

/// The first block of the text. Reports the template as damaged where a block is not closed, is closed
/// before it is opened or has no tag inside.
template <typename Text>
[[nodiscard]] std::optional<Block<Text>> firstBlock(const Text& text, RenderGuard& guard) {
    guard.countWork(text.size());
    const auto start = text.find(Text(2, '{'));
    if (start == Text::npos)
        return std::nullopt;
    const auto end = text.find(Text(2, '}'));
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
/// value drops the block. The other tags of the block stay.
template <typename Text>
void settleBlock(Text& text, Block<Text> block, const Text& value, RenderGuard& guard) {
    guard.countReplacements(1);
    if (value.empty())
        block.inner.clear();
    else
        replaceEvery(block.inner, block.tag, value, 0, guard);
    text.replace(block.start, block.end + 2 - block.start, block.inner);
    guard.checkSize(text.size());
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
