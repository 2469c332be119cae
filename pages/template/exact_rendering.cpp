#include "pages/template/exact_rendering.h"

#include "pages/template/template_text.h"

namespace pages {
namespace {

ValueOf valuesOf(const Fields& fields) {
    return [&fields](std::string_view tag) { return valueOf(fields, tag); };
}

// Deliberate: the cells of a row are resolved together, so a brace that one cell leaves open is closed
// by the next one.
class Rows {
public:
    Rows(const RowParts<std::string>& parts, std::size_t columns, std::string& out, RenderGuard& guard)
        // Deliberate: without a second block every row is shown twice.
        : m_first(parts.firstRow),
          m_second(parts.secondRow.value_or(parts.firstRow)),
          m_columns(columns),
          m_out(out),
          m_guard(guard) {}

    void add(const Fields& entry) {
        m_guard.countComparison(0);
        addCell(m_firstLine, m_first, entry);
        addCell(m_secondLine, m_second, entry);
        if (++m_count == m_columns)
            emit();
    }

    void finish() {
        if (m_count > 0)
            emit();
    }

private:
    struct Line {
        std::string text;
        std::size_t resolved = 0; ///< up to here no tag can begin
    };

    void addCell(Line& line, const std::string& cell, const Fields& entry) {
        line.text += cell;
        if (!cell.empty())
            line.resolved = resolveTags(line.text, line.resolved, valuesOf(entry), m_guard);
    }

    void emit() {
        for (auto* line : {&m_firstLine, &m_secondLine}) {
            m_out.append("\r\n").append(line->text).append("\r\n");
            *line = {};
        }
        m_guard.checkSize(m_out.size());
        m_count = 0;
    }

    const std::string& m_first;
    std::string m_second;
    std::size_t m_columns;
    std::string& m_out;
    RenderGuard& m_guard;
    Line m_firstLine;
    Line m_secondLine;
    std::size_t m_count = 0;
};

}

void renderExactly(const std::filesystem::path& path, std::string text, RowBlocks rows, std::size_t columns,
                   const Fields& fields, Entries& entries, std::string& out) {
    RenderGuard guard(path);
    resolveBlocks(text, valuesOf(fields), guard);
    RowParts<std::string> parts;
    if (rows == RowBlocks::none)
        parts.header = std::move(text);
    else
        parts = splitAtRows(text, guard);
    resolveTags(parts.header, 0, valuesOf(fields), guard);
    out += parts.header;
    if (parts.hasRows && rows == RowBlocks::repeated) {
        Rows lines(parts, columns, out, guard);
        for (std::size_t i = 0; i < entries.count(); ++i)
            lines.add(entries.entry(i));
        lines.finish();
    }
    resolveTags(parts.trailer, 0, valuesOf(fields), guard);
    out += parts.trailer;
    guard.checkSize(out.size());
}

}
