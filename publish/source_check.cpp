#include "publish/source_check.h"

#include "base/code_page.h"
#include "pages/group_entries.h"

#include <limits>
#include <unordered_map>

namespace publish {
namespace {

using Weight = Complaint::Weight;

constexpr std::size_t longestMemo = std::numeric_limits<std::int16_t>::max();
constexpr std::size_t longestCode = catalog::IndexRecord::keyField.width;
constexpr int levelsOfTheGroupLists = 4;

std::string tooLong(const std::string& field, std::size_t length, std::size_t most) {
    return field + " is " + std::to_string(length) + " characters long; " + std::to_string(most) + " fit";
}

class Checker {
public:
    explicit Checker(const CatalogSource& source) : m_source(source) {}

    Complaints run() {
        checkParameters(m_source.parameters);
        checkGroup(m_source.contents, 0);
        return std::move(m_complaints);
    }

private:
    void complain(Weight weight, const char* file, std::size_t line, std::string text) {
        m_complaints.push_back({weight, {.file = file, .row = line}, std::move(text)});
    }

    void checkLength(const char* file, std::size_t line, const std::string& field, const std::string& text,
                     std::size_t most) {
        if (text.size() > most)
            complain(Weight::error, file, line, tooLong(field, text.size(), most));
    }

    void checkParameters(const catalog::ParameterValues& values) {
        using Header = catalog::ParameterHeader;
        const auto length = [&](const char* field, const std::string& text, std::size_t most) {
            checkLength(parametersSource, 0, field, text, most);
        };
        if (values.text(catalog::ParameterText::supplierName).empty())
            complain(Weight::error, parametersSource, 0, "Supplier name is empty");
        if (values.version.empty())
            complain(Weight::warning, parametersSource, 0,
                     "Version is empty; customers are asked before an update replaces a catalogue");
        length("Version", values.version, Header::versionField.width);
        length("Password", values.catalogPassword, Header::catalogPasswordField.width);
        length("Reset password", values.resetPassword, Header::resetPasswordField.width);
        for (std::size_t number = 2; number < values.texts.size(); ++number)
            if (values.texts[number].size() > Header::length)
                complain(Weight::error, parametersSource, 0,
                         tooLong("\"" + base::toUtf8(values.texts[number]) + "\"",
                                 values.texts[number].size(), Header::length));
        if (values.quantityDecimals < 0 || values.quantityDecimals > Header::mostQuantityDecimals)
            complain(Weight::error, parametersSource, 0, "Quantity decimals is not a number from 0 to 4");
    }

    void checkGroup(const Group& group, int level) {
        const auto name = "the group \"" + base::toUtf8(group.name) + "\"";
        const auto say = [&](Weight weight, const std::string& text) {
            complain(weight, groupsSource, group.header.line, name + text);
        };
        checkLength(groupsSource, group.header.line, "the group name \"" + base::toUtf8(group.name) + "\"",
                    group.name, catalog::GroupRecord::nameField.width);
        checkEntry(group.header, groupsSource);
        if (group.groups.empty() && group.products.empty())
            say(Weight::error, " is empty");
        if (!group.groups.empty() && !group.products.empty())
            say(Weight::error, " holds both groups and products; the viewer would not list the products");
        const auto most = std::to_string(pages::mostGroupEntries);
        if (group.groups.size() > pages::mostGroupEntries || group.products.size() > pages::mostGroupEntries)
            say(Weight::warning, " has more than " + most + " entries; its page lists the first " + most);
        if (level >= levelsOfTheGroupLists)
            say(Weight::warning, " lies too deep; the viewer has four group lists");
        for (const auto& child : group.groups)
            checkGroup(child, level + 1);
        for (const auto& product : group.products)
            checkProduct(product);
    }

    void checkProduct(const Product& product) {
        checkEntry(product, productsSource);
        const auto say = [&](const char* text) {
            complain(Weight::error, productsSource, product.line, text);
        };
        if (product.description.empty())
            say("description is empty");
        if (!(product.price >= 0) || product.price > std::numeric_limits<float>::max())
            say("price is not a number of 0 or more");
        if (!(product.taxRate >= 0) || product.taxRate > 100)
            say("tax is not a rate from 0 to 100 percent");
    }

    void checkEntry(const Product& entry, const char* file) {
        const auto text = entry.code.size() + entry.description.size() + entry.other.size() + 2;
        checkCode(entry, file);
        checkLength(file, entry.line, "picture", entry.picture, catalog::ProductRecord::pictureField.width);
        checkLength(file, entry.line, "details", entry.longDescription, longestMemo);
        if (text > catalog::ProductRecord::textField.width)
            complain(Weight::error, file, entry.line,
                     tooLong("code, description and other text together with their two separators", text,
                             catalog::ProductRecord::textField.width));
        for (const auto* part : {&entry.code, &entry.description, &entry.other, &entry.picture})
            if (part->find_first_of("\r\n") != std::string::npos)
                complain(Weight::error, file, entry.line, "only details may hold line breaks");
    }

    void checkCode(const Product& entry, const char* file) {
        if (entry.code.empty())
            return complain(Weight::error, file, entry.line, "code is empty");
        checkLength(file, entry.line, "code", entry.code, longestCode);
        if (entry.code.find("&#") != std::string::npos)
            complain(Weight::error, file, entry.line, "code holds a character that Windows-1252 lacks");
        const auto key = catalog::indexKey(entry.code);
        const auto [found, isNew] = m_codes.try_emplace(std::string(key.begin(), key.end()), entry.line);
        if (!isNew)
            complain(Weight::warning, file, entry.line,
                     "the code " + base::toUtf8(entry.code) + " was used before" +
                         (found->second > 0 ? " (line " + std::to_string(found->second) + ")" : "") +
                         "; links to it lead to the first");
    }

    const CatalogSource& m_source;
    Complaints m_complaints;
    std::unordered_map<std::string, std::size_t> m_codes;
};

}

Complaints checkSource(const CatalogSource& source) {
    return Checker(source).run();
}

}
