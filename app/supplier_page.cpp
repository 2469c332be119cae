#include "app/supplier_page.h"

#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "pages/folder_text.h"
#include "pages/template/template_text.h"

#include <string_view>

namespace app {
namespace {

using Cells = pages::RowParts<std::string>;

constexpr std::string_view templateFile = "Start.ect";
constexpr std::string_view newLine = "\r\n";
constexpr std::string_view nextRow = "</tr>\r\n<tr>\r\n";

/// Without a separator at its end, which the root folder has.
std::string programFolderText(const std::filesystem::path& folder) {
    auto text = pages::folderText(folder);
    if (text.ends_with('/') || text.ends_with('\\'))
        text.pop_back();
    return text;
}

Cells readCells(const std::filesystem::path& programFolder, const pages::LayoutSizes& sizes) {
    if (!base::findFile(programFolder, templateFile))
        throw base::ProgramEnd("Can not find Start.ect\nPlease re-install your program");
    const auto file = pages::readTemplate(programFolder, templateFile);
    const auto text = pages::replaceLayoutSizes(file.text, sizes);
    return pages::splitAtRows(base::replaceAll(text, "{DIR}", programFolderText(programFolder)),
                              pages::RenderGuard(file.path));
}

// What a marker tells is text and nothing else. Deliberate: references in it keep their meaning.
std::string textInPage(std::string_view markerText) {
    std::string text;
    for (const char c : markerText)
        switch (c) {
        case '<':
            text += "&lt;";
            break;
        case '>':
            text += "&gt;";
            break;
        case '"':
            text += "&quot;";
            break;
        case '\'':
            text += "&#39;";
            break;
        default:
            text += c;
        }
    return text;
}

void appendCell(std::string& row, std::string_view cell, const Supplier& supplier) {
    const auto named = base::replaceAll(cell, "{SUPPID}", textInPage(supplier.identifier));
    row.append(newLine).append(base::replaceAll(named, "{SUPPLIER}", textInPage(supplier.displayName)));
}

void moveRow(std::string& body, std::string& row) {
    body.append(row).append(nextRow);
    row.clear();
}

int cellsPerRow(std::size_t suppliers) {
    if (suppliers <= 3)
        return 2;
    return suppliers <= 5 ? 3 : 4;
}

std::string rowsOf(const Cells& cells, const std::vector<Supplier>& suppliers) {
    const int perRow = cellsPerRow(suppliers.size());
    std::string body;
    std::string firstRow;
    std::string secondRow;
    int count = 0;
    for (const auto& supplier : suppliers) {
        appendCell(firstRow, cells.firstRow, supplier);
        appendCell(secondRow, cells.secondRow.value_or(""), supplier);
        if (++count < perRow)
            continue;
        moveRow(body, firstRow);
        moveRow(body, secondRow);
        count = 0;
    }
    // Deliberate: behind a full last row stand two empty ones.
    moveRow(body, firstRow);
    moveRow(body, secondRow);
    return body;
}

}

std::string supplierPage(const std::filesystem::path& programFolder, const pages::LayoutSizes& sizes,
                         const std::vector<Supplier>& suppliers) {
    const auto cells = readCells(programFolder, sizes);
    return cells.header + rowsOf(cells, suppliers) + cells.trailer + std::string(newLine);
}

}
