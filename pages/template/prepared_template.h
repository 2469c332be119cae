#pragma once

#include "pages/template/compiled_text.h"
#include "pages/template/decided_values.h"
#include "pages/template/fields.h"
#include "pages/template/render_guard.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pages {

/// What the row blocks of a page are repeated over.
class Entries {
public:
    Entries() = default;
    Entries(const Entries&) = delete;
    Entries& operator=(const Entries&) = delete;
    virtual ~Entries() = default;

    [[nodiscard]] virtual std::size_t count() const = 0;

    /// The fields of one entry, counted from 0; they hold until the next call.
    [[nodiscard]] virtual const Fields& entry(std::size_t index) = 0;
};

/// What becomes of row blocks.
enum class RowBlocks {
    none,    ///< the markers are text
    dropped, ///< the blocks are left out
    repeated
};

/// A template that is rendered many times: taken apart at its first use and kept in that form, so that
/// a page costs little more than its values. The result is, byte for byte, what resolving blocks and
/// tags one after the other gives.
class PreparedTemplate {
public:
    /// The text has its layout sizes and its column tag replaced already. `columns` entries stand in one
    /// row, all of them where it is 0.
    PreparedTemplate(std::filesystem::path path, std::string text, RowBlocks rows = RowBlocks::none,
                     unsigned columns = 0);

    /// Appends the page. Throws base::DamagedFile with the template's path.
    void render(const Fields& fields, Entries& entries, std::string& out);

    /// The same for a page without entries.
    void render(const Fields& fields, std::string& out);

private:
    struct Decision {
        unsigned field;
        bool kept;
    };

    /// The template as it is for one outcome of its blocks.
    struct Variant {
        std::vector<Decision> decisions;
        std::size_t blocks = 0;
        bool exactOnly = false; // the rest is worth nothing
        CompiledText header;
        CompiledText firstRow;
        CompiledText secondRow;
        CompiledText trailer;
        bool hasRows = false;
        bool rowsAreEqual = false; // the second is the copy of the first
    };

    // None where these values make it necessary to render exactly.
    [[nodiscard]] const Variant* variantFor(const Fields& fields);
    [[nodiscard]] bool matches(const Variant& variant, const Fields& fields);
    [[nodiscard]] std::optional<Variant> compile(const Fields& fields);
    void compileParts(Variant& variant, const MarkedText& text, const Fields& fields) const;

    void append(const Variant& variant, const Fields& fields, Entries& entries, std::string& out);
    void appendRows(const Variant& variant, Entries& entries, std::string& out, RenderGuard& guard);
    void appendCell(const Variant& variant, const Fields& entry, std::string& out, RenderGuard& guard);

    std::filesystem::path m_path;
    std::string m_text;
    RowBlocks m_rows;
    std::size_t m_columns; // at least 1
    std::size_t m_mostVariants;
    std::vector<Variant> m_variants;
    DecidedValues m_decided;
    std::string m_secondLine;
};

}
