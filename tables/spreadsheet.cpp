#include "tables/spreadsheet.h"

#include "base/errors.h"
#include "tables/ods_file.h"
#include "tables/xlsx_file.h"

namespace tables {
namespace {

SheetsOfFile readSheets(const PackedFile& file, const std::string& wanted) {
    if (isXlsx(file))
        return readXlsx(file, wanted);
    if (isOds(file))
        return readOds(file, wanted);
    throw base::FileError("is a zip but no spreadsheet\nPlease save the list as .xlsx, .ods or .csv");
}

}

TableFile openSpreadsheet(std::span<const std::byte> bytes, const TableForm& form) {
    auto found = readSheets(PackedFile(bytes), form.sheet);
    TableFile file;
    file.form = form;
    file.sheets = std::move(found.names);
    for (auto& sheet : found.sheets)
        if (sheet.cells->count() > 0)
            file.tables.push_back({std::move(sheet.name), std::move(sheet.cells)});
    return file;
}

}
