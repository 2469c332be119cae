#include "publish/lists/list_mapping.h"

#include "base/code_page.h"
#include "base/text.h"
#include "publish/key_lines.h"

#include <algorithm>

namespace publish {
namespace {

constexpr std::string_view groupKey = "Group";
constexpr std::size_t mostGroups = 9; // "Group 1" to "Group 9"

struct EncodingName {
    std::string_view name;
    tables::Encoding encoding;
};

constexpr std::array encodings{EncodingName{"UTF-8", tables::Encoding::utf8},
                               EncodingName{"UTF-16 LE", tables::Encoding::utf16Le},
                               EncodingName{"UTF-16 BE", tables::Encoding::utf16Be},
                               EncodingName{"Windows-1252", tables::Encoding::windows1252}};

struct DelimiterName {
    std::string_view name;
    char delimiter;
};

constexpr std::array delimiters{DelimiterName{"comma", ','}, DelimiterName{"semicolon", ';'},
                                DelimiterName{"tab", '\t'}, DelimiterName{"bar", '|'}};

constexpr std::array<const char*, listFieldCount> fieldNames{"code", "description", "other",  "price",
                                                             "tax",  "picture",     "details"};

/// A key besides those of the groups: where its value goes, what it can be and what it is for.
struct Key {
    std::string_view name;
    MappingValue& (*value)(ListMapping&);
    std::string_view allowed; // separated by "|"; empty: any text
    std::string_view comment;
};

template <MappingValue ListMapping::*Member>
MappingValue& member(ListMapping& mapping) {
    return mapping.*Member;
}

template <ListField Field>
MappingValue& field(ListMapping& mapping) {
    return mapping.column(Field);
}

const std::array keys{
    Key{"File", member<&ListMapping::file>, "",
        "The product list, in this folder: .csv, .txt, .xlsx or .ods."},
    Key{"Sheet", member<&ListMapping::sheet>, "", "Of a spreadsheet: the name of the sheet."},
    Key{"Encoding", member<&ListMapping::encoding>, "UTF-8|UTF-16 LE|UTF-16 BE|Windows-1252",
        "Of a text file: UTF-8, UTF-16 LE, UTF-16 BE or Windows-1252."},
    Key{"Delimiter", member<&ListMapping::delimiter>, "comma|semicolon|tab|bar",
        "Of a text file, what stands between two columns: comma, semicolon, tab or bar (|)."},
    Key{"Heading row", member<&ListMapping::headingRow>, "",
        "The row (of a text file: the line) with the headings of the columns, or none. Rows above it are "
        "passed "
        "over."},
    Key{"Code", field<ListField::code>, "",
        "The columns, each by its heading, or as \"column 3\"; none for a column that the list does not "
        "have."},
    Key{"Description", field<ListField::description>, "", ""},
    Key{"Other", field<ListField::other>, "",
        "A further text beside the description; shown when catalog.ini has an Extra caption."},
    Key{"Price", field<ListField::price>, "", "Without tax."},
    Key{"Tax", field<ListField::tax>, "", "Tax rate in percent."},
    Key{"Picture", field<ListField::picture>, "", "File name of a picture."},
    Key{"Details", field<ListField::details>, "", "Long description; may hold HTML."},
    Key{"Group separator", member<&ListMapping::groupSeparator>, "",
        "What stands between the names of a path in one group column (\"Bolts / Hex\"), or none."},
    Key{"Group rows", member<&ListMapping::groupRows>, "yes|no",
        "Whether a row between products in which only one text stands names the group of the rows below it."},
    Key{"Decimal mark", member<&ListMapping::decimalMark>, "comma|point",
        "What parts the decimals of numbers that are texts: comma or point."},
};

bool isNamed(std::string_view a, std::string_view b) {
    return base::equalIgnoringCase(a, b);
}

bool isAllowed(const Key& key, std::string_view text) {
    const auto allowed = base::split(key.allowed, '|');
    return key.allowed.empty() || std::any_of(allowed.begin(), allowed.end(),
                                              [&](std::string_view one) { return isNamed(one, text); });
}

// Blanks at the ends of a value stand in quotation marks.
std::string unquoted(std::string_view text) {
    const bool isQuoted = text.size() >= 2 && text.starts_with('"') && text.ends_with('"');
    return std::string(isQuoted ? text.substr(1, text.size() - 2) : text);
}

std::string quoted(const std::string& text) {
    const bool needsMarks = text != base::trim(text) || text.starts_with('"');
    return needsMarks ? "\"" + text + "\"" : text;
}

// The level of "Group" or "Group 2", from 1; 0 for another key.
std::size_t groupLevel(std::string_view key) {
    if (isNamed(key, groupKey))
        return 1;
    if (key.size() != groupKey.size() + 2 || !base::startsIgnoringCase(key, groupKey) ||
        key[groupKey.size()] != ' ')
        return 0;
    const char digit = key.back();
    return digit >= '1' && digit <= '9' ? static_cast<std::size_t>(digit - '0') : 0;
}

std::string listOf(std::string_view allowed) {
    return base::replaceAll(allowed, "|", ", ");
}

std::string allKeys() {
    std::string names(groupKey);
    for (const auto& key : keys)
        names.append(", ").append(key.name);
    return names;
}

// What is wrong with the line, if anything.
std::string readLine(std::string_view line, std::size_t number, ListMapping& mapping) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos)
        return "a line is a key, \"=\" and a value";
    const std::string name(base::trim(line.substr(0, equals)));
    const auto text = unquoted(base::trim(line.substr(equals + 1)));
    if (const auto level = groupLevel(name); level > 0) {
        mapping.groups.resize(std::max(mapping.groups.size(), level));
        mapping.groups[level - 1] = {text, number};
        return {};
    }
    const auto key =
        std::find_if(keys.begin(), keys.end(), [&](const Key& k) { return isNamed(k.name, name); });
    if (key == keys.end())
        return "unknown key \"" + name + "\"; the keys are " + allKeys();
    if (!text.empty() && !isAllowed(*key, text))
        return std::string(key->name) + " cannot be \"" + text + "\"; it is one of " + listOf(key->allowed);
    key->value(mapping) = {text, number};
    return {};
}

void append(std::string& out, std::string_view comment, const std::string& key, const std::string& value) {
    if (!comment.empty())
        out.append("\n; ").append(comment).append("\n");
    out.append(key).append(" = ").append(quoted(value)).append("\n");
}

void appendGroups(std::string& out, const std::vector<MappingValue>& groups) {
    std::string_view comment =
        "The group's column; where each level has one of its own: Group 1, Group 2 and so on "
        "from the top.";
    if (groups.empty())
        append(out, comment, std::string(groupKey), noColumnName);
    for (std::size_t i = 0; i < std::min(groups.size(), mostGroups); ++i) {
        const auto level = groups.size() == 1 ? "" : " " + std::to_string(i + 1);
        append(out, comment, std::string(groupKey) + level, groups[i].text);
        comment = {};
    }
}

}

const char* nameOf(ListField field) {
    return fieldNames[static_cast<std::size_t>(field)];
}

tables::TableForm formOf(const ListMapping& mapping) {
    tables::TableForm form;
    form.sheet = mapping.sheet.text;
    for (const auto& [name, encoding] : encodings)
        if (isNamed(name, mapping.encoding.text))
            form.encoding = encoding;
    for (const auto& [name, delimiter] : delimiters)
        if (isNamed(name, mapping.delimiter.text))
            form.delimiter = delimiter;
    return form;
}

void noteForm(ListMapping& mapping, const tables::TableForm& form) {
    for (const auto& [name, encoding] : encodings)
        if (encoding == form.encoding)
            mapping.encoding.text = name;
    for (const auto& [name, delimiter] : delimiters)
        if (delimiter == form.delimiter)
            mapping.delimiter.text = name;
}

bool isWritable(std::string_view text) {
    return !text.empty() && text != noColumnName && base::isUtf8(text) &&
           std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

ListMapping readMapping(std::string_view text, Complaints& complaints) {
    ListMapping mapping;
    readKeyLines(
        text, mappingFileName, "mapping-line",
        [&](std::string_view line, std::size_t number) { return readLine(line, number, mapping); },
        complaints);
    return mapping;
}

std::string textOf(const ListMapping& mapping) {
    std::string out = "; How the product list is read. What is empty here is found anew at each build.\n";
    auto values = mapping;
    for (const auto& key : keys) {
        if (key.value == &member<&ListMapping::groupSeparator>)
            appendGroups(out, mapping.groups);
        append(out, key.comment, std::string(key.name), key.value(values).text);
    }
    return out;
}

ListMapping ownColumns() {
    ListMapping mapping;
    mapping.isOwn = true;
    return mapping;
}

}
