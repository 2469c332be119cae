#include "fuzz/written_list.h"

#include "base/files.h"
#include "fuzz/sections.h"
#include "tests/support/zip_builder.h"

namespace fuzz {
namespace fs = std::filesystem;

namespace {

constexpr const char* types = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

std::string relation(const std::string& id, const std::string& type, const std::string& target) {
    return "<Relationship Id='" + id + "' Type='" + types + type + "' Target='" + target + "'/>";
}

void writeXlsx(const fs::path& file, std::string_view strings, std::string_view styles,
               std::string_view sheet) {
    support::ZipBuilder()
        .add("[Content_Types].xml", "<Types/>")
        .add("_rels/.rels", "<r>" + relation("r", "officeDocument", "xl/w.xml") + "</r>")
        .add("xl/w.xml", "<workbook><sheet name='A' r:id='r1'/></workbook>")
        .add("xl/_rels/w.xml.rels", "<r>" + relation("r1", "worksheet", "s.xml") +
                                        relation("r2", "sharedStrings", "t.xml") +
                                        relation("r3", "styles", "u.xml") + "</r>")
        .add("xl/t.xml", std::string(strings))
        .add("xl/u.xml", std::string(styles))
        .add("xl/s.xml", std::string(sheet))
        .writeTo(file);
}

}

void writeList(const fs::path& file, std::string_view kind, std::string_view list) {
    const auto strings = kind == "xlsx" ? takeSection(list) : std::string_view();
    const auto styles = kind == "xlsx" ? takeSection(list) : std::string_view();
    if (kind == "xlsx")
        writeXlsx(file, strings, styles, list);
    else if (kind == "ods")
        support::ZipBuilder()
            .add("META-INF/manifest.xml", "<m/>")
            .add("content.xml", std::string(list))
            .writeTo(file);
    else
        base::overwriteFile(file, list);
}

}
