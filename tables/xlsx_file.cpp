#include "tables/xlsx_file.h"

#include "base/errors.h"
#include "tables/xlsx_sheet.h"

#include <filesystem>
#include <map>

namespace tables {
namespace {

/// Where a part's relatives are.
struct Relation {
    std::string type; // the last word of it
    std::string part;
};

std::string partBeside(const std::string& part, std::string_view target) {
    auto path = (std::filesystem::path(part).parent_path() / target).lexically_normal().generic_string();
    return path.starts_with('/') ? path.substr(1) : path;
}

class Relations final : public XmlEvents {
public:
    Relations(const PackedFile& file, const std::string& part) : m_part(part) {
        const std::filesystem::path path(part);
        const auto list = (path.parent_path() / "_rels" / path.filename()).generic_string() + ".rels";
        if (file.has(list))
            readXml(file, list, *this);
    }

    void start(std::string_view name, const XmlAttributes& attributes) override {
        const auto type = attributes.value("Type");
        if (name == "Relationship" && attributes.value("TargetMode") != "External")
            m_relations[std::string(attributes.value("Id"))] = {
                std::string(type.substr(type.rfind('/') + 1)),
                partBeside(m_part, attributes.value("Target"))};
    }

    void end(std::string_view) override {}

    void text(std::string_view) override {}

    [[nodiscard]] std::string partOfType(std::string_view type) const {
        for (const auto& [id, relation] : m_relations)
            if (relation.type == type)
                return relation.part;
        return {};
    }

    [[nodiscard]] Relation byId(const std::string& id) const {
        const auto found = m_relations.find(id);
        return found == m_relations.end() ? Relation{} : found->second;
    }

private:
    std::string m_part;
    std::map<std::string, Relation> m_relations;
};

struct SheetEntry {
    std::string name;
    std::string id;
};

class Workbook final : public XmlEvents {
public:
    void start(std::string_view name, const XmlAttributes& attributes) override {
        const auto years = attributes.value("date1904");
        if (name == "sheet")
            sheets.push_back({std::string(attributes.value("name")), std::string(attributes.value("r:id"))});
        else if (name == "workbookPr")
            from1904 = years == "1" || years == "true";
    }

    void end(std::string_view) override {}

    void text(std::string_view) override {}

    std::vector<SheetEntry> sheets;
    bool from1904 = false;
};

class Styles final : public XmlEvents {
public:
    explicit Styles(XlsxShared& shared) : m_shared(shared) {}

    void start(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "numFmt")
            m_formats[attributes.number("numFmtId", 0)] = cellFormatOf(attributes.value("formatCode"));
        m_isInCells = m_isInCells || name == "cellXfs";
        if (name == "xf" && m_isInCells)
            m_shared.formats.push_back(format(attributes.number("numFmtId", 0)));
    }

    void end(std::string_view name) override { m_isInCells = m_isInCells && name != "cellXfs"; }

    void text(std::string_view) override {}

private:
    [[nodiscard]] CellFormat format(std::size_t id) const {
        const auto found = m_formats.find(id);
        return found == m_formats.end() ? builtInFormat(id) : found->second;
    }

    XlsxShared& m_shared;
    std::map<std::size_t, CellFormat> m_formats;
    bool m_isInCells = false;
};

void readIfThere(const PackedFile& file, const std::string& part, XmlEvents& events) {
    if (!part.empty() && file.has(part))
        readXml(file, part, events);
}

}

bool isXlsx(const PackedFile& file) {
    return file.has("[Content_Types].xml") && !Relations(file, "").partOfType("officeDocument").empty();
}

SheetsOfFile readXlsx(const PackedFile& file, const std::string& wanted) {
    const auto part = Relations(file, "").partOfType("officeDocument");
    if (!part.ends_with(".xml"))
        throw base::FileError("is a workbook of another kind\nPlease save it as .xlsx");
    const Relations relations(file, part);
    Workbook workbook;
    readXml(file, part, workbook);
    const auto texts = std::make_shared<CellTexts>();
    XlsxShared shared{.from1904 = workbook.from1904};
    Styles styles(shared);
    readIfThere(file, relations.partOfType("styles"), styles);
    XlsxStrings strings(*texts, shared);
    readIfThere(file, relations.partOfType("sharedStrings"), strings);
    SheetsOfFile found;
    for (const auto& entry : workbook.sheets) {
        const auto sheet = relations.byId(entry.id);
        if (sheet.type != "worksheet")
            continue;
        found.names.push_back(entry.name);
        if (!wanted.empty() && entry.name != wanted)
            continue;
        auto cells = std::make_unique<SheetCells>(texts);
        XlsxSheet events(*texts, shared, *cells);
        readXml(file, sheet.part, events);
        found.sheets.push_back({entry.name, std::move(cells)});
    }
    return found;
}

}
