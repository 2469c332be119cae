#include "pages/template/prepared_template.h"

#include "pages/template/exact_rendering.h"
#include "pages/template/template_text.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace pages {
namespace {

constexpr std::string_view lineEnd = "\r\n";

/// For pages without rows.
class NoEntries : public Entries {
public:
    explicit NoEntries(const Fields& page) : m_page(page) {}

    [[nodiscard]] std::size_t count() const override { return 0; }

    [[nodiscard]] const Fields& entry(std::size_t /*index*/) override { return m_page; }

private:
    const Fields& m_page;
};

// Few enough to be looked through, and to keep a huge template from filling the memory.
std::size_t mostVariantsOf(std::size_t templateSize) {
    constexpr std::size_t mostBytes = std::size_t{4} * 1024 * 1024;
    constexpr std::size_t most = 32;
    return std::clamp<std::size_t>(mostBytes / (templateSize + 1), 1, most);
}

// A value put in the place of such a mark could complete a row marker.
bool marksFollowMarkerStart(const MarkedText& text) {
    static constexpr std::u16string_view starts[] = {u"<",   u"</",  u"<R",   u"</R",
                                                     u"<R1", u"<R2", u"</R1", u"</R2"};
    const auto follows = [&](std::size_t at) {
        const auto before = std::u16string_view(text).substr(0, at);
        return std::any_of(std::begin(starts), std::end(starts),
                           [&](auto start) { return before.ends_with(start); });
    };
    for (std::size_t i = 0; i < text.size(); ++i)
        if (isMark(text[i]) && follows(i))
            return true;
    return false;
}

}

PreparedTemplate::PreparedTemplate(std::filesystem::path path, std::string text, RowBlocks rows,
                                   unsigned columns)
    : m_path(std::move(path)),
      m_text(std::move(text)),
      m_rows(rows),
      m_columns(columns == 0 ? std::numeric_limits<std::size_t>::max() : columns),
      m_mostVariants(mostVariantsOf(m_text.size())) {}

void PreparedTemplate::render(const Fields& fields, std::string& out) {
    NoEntries entries(fields);
    render(fields, entries, out);
}

void PreparedTemplate::render(const Fields& fields, Entries& entries, std::string& out) {
    const auto start = out.size();
    m_decided.clear();
    if (const auto* variant = variantFor(fields)) {
        append(*variant, fields, entries, out);
        if (out.find('{', start) == std::string::npos)
            return; // so no value held one
        out.resize(start);
    }
    renderExactly(m_path, m_text, m_rows, m_columns, fields, entries, out);
}

const PreparedTemplate::Variant* PreparedTemplate::variantFor(const Fields& fields) {
    const auto known = std::find_if(m_variants.begin(), m_variants.end(),
                                    [&](const Variant& variant) { return matches(variant, fields); });
    if (m_decided.holdTemplateText())
        return nullptr;
    if (known != m_variants.end())
        return known->exactOnly ? nullptr : &*known;
    auto compiled = compile(fields);
    if (!compiled)
        return nullptr;
    if (m_variants.size() >= m_mostVariants)
        m_variants.clear();
    const auto& kept = m_variants.emplace_back(*std::move(compiled));
    return kept.exactOnly ? nullptr : &kept;
}

bool PreparedTemplate::matches(const Variant& variant, const Fields& fields) {
    return std::all_of(variant.decisions.begin(), variant.decisions.end(), [&](const Decision& decision) {
        return m_decided.keeps(decision.field, fields) == decision.kept;
    });
}

std::optional<PreparedTemplate::Variant> PreparedTemplate::compile(const Fields& fields) {
    RenderGuard guard(m_path);
    Variant variant;
    auto text = markedText(m_text);
    std::size_t from = 0;
    while (auto block = firstBlock(text, from, guard)) {
        variant.exactOnly = std::any_of(block->tag.begin(), block->tag.end(), isMark);
        if (variant.exactOnly)
            return variant;
        const auto field = fields.number(bytesOf(block->tag));
        const bool kept = m_decided.keeps(field, fields);
        if (m_decided.holdTemplateText())
            return std::nullopt; // what follows depends on the value
        if (field != 0)
            variant.decisions.push_back({field, kept});
        from =
            settleBlock(text, *std::move(block), kept ? MarkedText(1, markOf(field)) : MarkedText(), guard);
        ++variant.blocks;
    }
    variant.exactOnly = m_rows != RowBlocks::none && marksFollowMarkerStart(text);
    if (!variant.exactOnly)
        compileParts(variant, text, fields);
    return variant;
}

void PreparedTemplate::compileParts(Variant& variant, const MarkedText& text, const Fields& fields) const {
    RowParts<MarkedText> parts;
    if (m_rows == RowBlocks::none)
        parts.header = text;
    else
        parts = splitAtRows(text, RenderGuard(m_path));
    variant.header = CompiledText(parts.header, fields);
    variant.trailer = CompiledText(parts.trailer, fields);
    variant.hasRows = parts.hasRows && m_rows == RowBlocks::repeated;
    if (variant.hasRows) {
        variant.rowsAreEqual = !parts.secondRow;
        variant.firstRow = CompiledText(parts.firstRow, fields);
        variant.secondRow = CompiledText(parts.secondRow.value_or(parts.firstRow), fields);
    }
    variant.exactOnly = variant.header.isExactOnly() || variant.trailer.isExactOnly() ||
                        variant.firstRow.isExactOnly() || variant.secondRow.isExactOnly();
}

void PreparedTemplate::append(const Variant& variant, const Fields& fields, Entries& entries,
                              std::string& out) {
    RenderGuard guard(m_path);
    guard.countReplacements(variant.blocks);
    variant.header.append(fields, m_decided, out, guard);
    if (variant.hasRows)
        appendRows(variant, entries, out, guard);
    variant.trailer.append(fields, m_decided, out, guard);
}

void PreparedTemplate::appendRows(const Variant& variant, Entries& entries, std::string& out,
                                  RenderGuard& guard) {
    const auto count = entries.count();
    for (std::size_t i = 0; i < count;) {
        m_secondLine.clear();
        out += lineEnd;
        const auto rowEnd = i + std::min(m_columns, count - i);
        for (; i < rowEnd; ++i)
            appendCell(variant, entries.entry(i), out, guard);
        out.append(lineEnd).append(lineEnd).append(m_secondLine).append(lineEnd);
        guard.checkSize(out.size());
    }
}

void PreparedTemplate::appendCell(const Variant& variant, const Fields& entry, std::string& out,
                                  RenderGuard& guard) {
    const auto start = out.size();
    guard.countComparison(0);
    variant.firstRow.append(entry, m_decided, out, guard);
    if (variant.rowsAreEqual) {
        guard.countReplacements(variant.firstRow.replacements());
        m_secondLine.append(out, start);
        guard.checkSize(m_secondLine.size());
    } else {
        variant.secondRow.append(entry, m_decided, m_secondLine, guard);
    }
}

}
