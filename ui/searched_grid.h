#pragma once

#include <cstdint>

namespace ui {

/// The product grid as a search uses it. Rows count from 0, row = record number - 1.
class SearchedGrid {
public:
    virtual ~SearchedGrid() = default;

    /// -1 when there is none.
    [[nodiscard]] virtual std::int32_t currentRow() const = 0;

    /// Makes an existing row the current one and brings it into view.
    virtual void setCurrentRow(std::int32_t row) = 0;

    /// Brings its window to the front and the keyboard focus into it.
    virtual void takeFocus() = 0;
};

}
