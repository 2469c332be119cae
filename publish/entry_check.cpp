#include "publish/entry_check.h"

#include "base/code_page.h"
#include "base/text.h"
#include "pages/group_entries.h"

#include <limits>

namespace publish {
namespace {

using Weight = Complaint::Weight;

constexpr std::size_t longestMemo = std::numeric_limits<std::int16_t>::max();
constexpr std::size_t longestCode = catalog::IndexRecord::keyField.width;
constexpr int levelsOfTheGroupLists = 4;
constexpr std::string_view exampleAddress = "@your-company.example"; // publish/starter/files/catalog.ini
constexpr std::size_t mostGroups = std::numeric_limits<std::int16_t>::max();

std::string tooLong(const std::string& field, std::size_t length, std::size_t most) {
    return field + " is " + std::to_string(length) + " characters long; " + std::to_string(most) + " fit";
}

/// Complains of one entry.
class EntryCheck {
public:
    EntryCheck(const Product& entry, const PlaceOf& placeOf, Complaints& complaints)
        : m_entry(entry), m_placeOf(placeOf), m_complaints(complaints) {}

    void complain(std::string_view field, const char* rule, std::string text, Weight weight = Weight::error) {
        m_complaints.push_back({weight, m_placeOf(field), std::move(text), rule});
    }

    void checkLength(const char* field, const std::string& text, std::size_t most) {
        if (text.size() > most)
            complain(field, "text-too-long", tooLong(field, text.size(), most) + "; shorten it");
    }

    void checkCode() {
        if (m_entry.code.empty())
            return complain("code", "code-empty", "code is empty; every product needs one of its own");
        checkLength("code", m_entry.code, longestCode);
        if (m_entry.code.find("&#") != std::string::npos)
            complain(
                "code", "code-characters",
                "code holds a character that Windows-1252 lacks, so that it could not be found; write it "
                "otherwise");
    }

    void checkTexts() {
        constexpr auto most = catalog::ProductRecord::textField.width;
        const auto text = m_entry.code.size() + m_entry.description.size() + m_entry.other.size() + 2;
        if (text > most)
            complain(
                "description", "text-too-long",
                tooLong("code, description and other text together with their two separators", text, most) +
                    "; shorten the description, or put a part of it into the details");
        checkLength("picture", m_entry.picture, catalog::ProductRecord::pictureField.width);
        checkLength("details", m_entry.longDescription, longestMemo);
        checkLineBreaks("code", m_entry.code);
        checkLineBreaks("description", m_entry.description);
        checkLineBreaks("other", m_entry.other);
        checkLineBreaks("picture", m_entry.picture);
    }

private:
    void checkLineBreaks(const char* field, const std::string& text) {
        if (text.find_first_of("\r\n") != std::string::npos)
            complain(field, "line-break",
                     std::string(field) + " holds a line break; only details may hold line breaks");
    }

    const Product& m_entry;
    const PlaceOf& m_placeOf;
    Complaints& m_complaints;
};

/// Walks over the groups.
class GroupCheck {
public:
    explicit GroupCheck(Complaints& complaints) : m_complaints(complaints) {}

    void check(const Group& group, int level) {
        ++m_count;
        checkName(group);
        checkSize(group);
        if (level == levelsOfTheGroupLists)
            complain(group, Weight::warning, "group-deep",
                     " lies too deep; the viewer has three lists of groups and one of products");
        for (const auto& child : group.groups)
            check(child, level + 1);
    }

    void checkCount() {
        if (m_count > mostGroups)
            m_complaints.push_back({Weight::error,
                                    {.file = groupsSource},
                                    "the catalogue has " + std::to_string(m_count) + " groups; " +
                                        std::to_string(mostGroups) + " fit. Join small ones",
                                    "too-many-groups"});
    }

private:
    void complain(const Group& group, Weight weight, const char* rule, const std::string& text) {
        m_complaints.push_back({weight,
                                {.file = groupsSource, .row = group.line},
                                "the group \"" + base::toUtf8(group.name) + "\"" + text,
                                rule});
    }

    void checkName(const Group& group) {
        constexpr auto most = catalog::GroupRecord::nameField.width;
        if (group.name.size() > most)
            complain(group, Weight::error, "text-too-long",
                     tooLong(": its name", group.name.size(), most) + "; shorten it");
    }

    void checkSize(const Group& group) {
        constexpr auto most = pages::mostGroupEntries;
        if (group.groups.empty() && group.rows.empty())
            complain(group, Weight::error, "group-empty", " is empty; put a product into it or leave it out");
        if (!group.groups.empty() && !group.rows.empty())
            complain(
                group, Weight::error, "group-mixed",
                " holds both groups and products; the viewer would not list the products. Put these into a "
                "group of their own");
        if (group.groups.size() > most || group.rows.size() > most)
            complain(group, Weight::warning, "group-large",
                     " has more than " + std::to_string(most) + " entries; its page lists the first " +
                         std::to_string(most));
    }

    Complaints& m_complaints;
    std::size_t m_count = 0;
};

}

void checkEntry(const Product& entry, const FileNames& files, const PlaceOf& placeOf,
                Complaints& complaints) {
    EntryCheck check(entry, placeOf, complaints);
    check.checkCode();
    check.checkTexts();
    const bool fits = entry.picture.size() <= catalog::ProductRecord::pictureField.width;
    if (!entry.picture.empty() && fits && !files.holds(base::toUtf8(entry.picture)))
        check.complain(
            "picture", "picture-missing",
            "the picture " + base::toUtf8(entry.picture) +
                " is missing, so that the viewer shows an empty place; put it there or take the name out",
            Weight::warning);
}

void checkProduct(const Product& product, const PlaceOf& placeOf, Complaints& complaints) {
    EntryCheck check(product, placeOf, complaints);
    if (product.description.empty())
        check.complain("description", "description-empty", "description is empty");
    if (!(product.price >= 0) || product.price > std::numeric_limits<float>::max())
        check.complain("price", "price-range", "price is not a number of 0 or more");
    if (!(product.taxRate >= 0) || product.taxRate > 100)
        check.complain("tax", "tax-range", "tax is not a rate from 0 to 100 percent");
}

void checkGroups(const Group& contents, Complaints& complaints) {
    GroupCheck check(complaints);
    check.check(contents, 0);
    check.checkCount();
}

void checkParameters(const catalog::ParameterValues& values, Complaints& complaints) {
    using Header = catalog::ParameterHeader;
    const auto complain = [&](Weight weight, const char* rule, std::string text) {
        complaints.push_back({weight, {.file = parametersSource}, std::move(text), rule});
    };
    const auto checkLength = [&](const std::string& field, const std::string& text, std::size_t most) {
        if (text.size() > most)
            complain(Weight::error, "text-too-long", tooLong(field, text.size(), most) + "; shorten it");
    };
    if (values.text(catalog::ParameterText::supplierName).empty())
        complain(Weight::error, "supplier-name", "Supplier name is empty; write your name behind it");
    if (base::endsIgnoringCase(values.text(catalog::ParameterText::supplierEmail), exampleAddress))
        complain(Weight::warning, "example-left",
                 "E-mail is still that of the example, so that orders would reach nobody; write your own "
                 "behind it");
    checkLength("Version", values.version, Header::versionField.width);
    checkLength("Password", values.catalogPassword, Header::catalogPasswordField.width);
    checkLength("Reset password", values.resetPassword, Header::resetPasswordField.width);
    for (std::size_t number = 2; number < values.texts.size(); ++number)
        checkLength("\"" + base::toUtf8(values.texts[number]) + "\"", values.texts[number], Header::length);
    if (values.quantityDecimals < 0 || values.quantityDecimals > Header::mostQuantityDecimals)
        complain(Weight::error, "quantity-decimals", "Quantity decimals is not a number from 0 to 4");
}

}
