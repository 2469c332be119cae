#include "bench/spreadsheet_library.h"

#include <orcus/orcus_xlsx.hpp>
#include <orcus/spreadsheet/import_interface.hpp>
#include <string>
#include <string_view>

namespace bench {
namespace {

namespace sheets = orcus::spreadsheet;
using sheets::col_t;
using sheets::row_t;

// Without "override", since the library's releases differ in what they ask for.
struct Strings : sheets::iface::import_shared_strings {
    std::size_t append(std::string_view) { return count++; }

    std::size_t add(std::string_view) { return count++; }

    std::size_t commit_segments() { return count++; }

    void append_segment(std::string_view) {}

    void set_segment_font(std::size_t) {}

    void set_segment_bold(bool) {}

    void set_segment_italic(bool) {}

    void set_segment_superscript(bool) {}

    void set_segment_subscript(bool) {}

    void set_segment_font_name(std::string_view) {}

    void set_segment_font_size(double) {}

    void set_segment_font_color(sheets::color_elem_t, sheets::color_elem_t, sheets::color_elem_t,
                                sheets::color_elem_t) {}

    std::size_t count = 0;
};

struct Sheet : sheets::iface::import_sheet {
    void set_auto(row_t, col_t, std::string_view) { ++cells; }

    void set_string(row_t, col_t, sheets::string_id_t) { ++cells; }

    void set_string(row_t, col_t, std::string_view) { ++cells; }

    void set_value(row_t, col_t, double) { ++cells; }

    void set_bool(row_t, col_t, bool) { ++cells; }

    void set_date_time(row_t, col_t, int, int, int, int, int, double) { ++cells; }

    void set_format(row_t, col_t, std::size_t) {}

    void set_format(row_t, col_t, row_t, col_t, std::size_t) {}

    void set_column_format(col_t, col_t, std::size_t) {}

    void set_row_format(row_t, std::size_t) {}

    void fill_down_cells(row_t, col_t, row_t) {}

    sheets::range_size_t get_sheet_size() const {
        sheets::range_size_t size;
        size.rows = 1 << 20;
        size.columns = 1 << 14;
        return size;
    }

    std::size_t cells = 0;
};

struct Resolver : sheets::iface::import_reference_resolver {
    sheets::src_address_t resolve_address(std::string_view address) {
        sheets::src_address_t place{};
        for (const char c : address)
            if (c >= '0' && c <= '9')
                place.row = place.row * 10 + (c - '0');
            else
                place.column = place.column * 26 + (c - 'A' + 1);
        --place.row;
        --place.column;
        return place;
    }

    sheets::src_range_t resolve_range(std::string_view range) {
        const auto first = resolve_address(range.substr(0, range.find(':')));
        return {first, range.find(':') == std::string_view::npos
                           ? first
                           : resolve_address(range.substr(range.find(':') + 1))};
    }
};

struct Factory : sheets::iface::import_factory {
    sheets::iface::import_shared_strings* get_shared_strings() { return &strings; }

    sheets::iface::import_reference_resolver* get_reference_resolver(sheets::formula_ref_context_t) {
        return &resolver;
    }

    sheets::iface::import_sheet* append_sheet(sheets::sheet_t, std::string_view) { return &sheet; }

    sheets::iface::import_sheet* get_sheet(std::string_view) { return &sheet; }

    sheets::iface::import_sheet* get_sheet(sheets::sheet_t) { return &sheet; }

    void finalize() {}

    Strings strings;
    Resolver resolver;
    Sheet sheet;
};

}

std::size_t cellsOf(const std::filesystem::path& xlsx) {
    Factory factory;
    orcus::orcus_xlsx filter(&factory);
    filter.read_file(xlsx.string());
    return factory.sheet.cells;
}

}
