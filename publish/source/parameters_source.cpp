#include "publish/source/parameters_source.h"

#include "base/code_page.h"
#include "base/text.h"
#include "publish/catalog_source.h"
#include "publish/key_lines.h"

#include <array>
#include <functional>
#include <optional>

namespace publish {
namespace {

using catalog::ParameterText;

struct TextKey {
    std::string_view key;
    ParameterText text;
};

constexpr std::array textKeys{
    TextKey{"Supplier name", ParameterText::supplierName},
    TextKey{"E-mail", ParameterText::supplierEmail},
    TextKey{"Fax", ParameterText::supplierFax},
    TextKey{"Catalogue name", ParameterText::catalogName},
    TextKey{"Street", ParameterText::supplierStreet},
    TextKey{"City", ParameterText::supplierCity},
    TextKey{"State", ParameterText::supplierState},
    TextKey{"Post code", ParameterText::supplierZip},
    TextKey{"Country", ParameterText::supplierCountry},
    TextKey{"Phone", ParameterText::supplierPhone},
    TextKey{"Mobile", ParameterText::supplierCell},
    TextKey{"Web", ParameterText::supplierWeb},
    TextKey{"Code caption", ParameterText::codeCaption},
    TextKey{"Description caption", ParameterText::descriptionCaption},
    TextKey{"Extra caption", ParameterText::otherCaption},
    TextKey{"Tax name", ParameterText::taxName},
    TextKey{"Price caption", ParameterText::priceCaption},
    TextKey{"Currency", ParameterText::currency},
};

std::optional<bool> yesOrNo(std::string_view text) {
    if (base::equalIgnoringCase(text, "yes"))
        return true;
    if (base::equalIgnoringCase(text, "no"))
        return false;
    return std::nullopt;
}

bool set(bool& target, std::string_view text) {
    const auto value = yesOrNo(text);
    target = value.value_or(target);
    return value.has_value();
}

// Puts one of the letters into the target, chosen by the word that begins with it.
bool set(char& target, std::string_view text, std::initializer_list<std::string_view> words) {
    for (const auto word : words)
        if (base::equalIgnoringCase(text, word)) {
            target = base::upper(word[0]);
            return true;
        }
    return false;
}

bool setDecimals(int& target, std::string_view text) {
    target = text.size() == 1 ? text[0] - '0' : -1;
    return target >= 0 && target <= catalog::ParameterHeader::mostQuantityDecimals;
}

struct OtherKey {
    std::string_view key;
    std::string_view expected;
    std::function<bool(ParametersSource&, const std::string&)> set; // false where the value makes no sense
};

const std::array otherKeys{
    OtherKey{"Display name", "",
             [](ParametersSource& s, const std::string& text) {
                 s.displayName = text;
                 return text.find('|') == std::string::npos;
             }},
    OtherKey{"Supplier id", "",
             [](ParametersSource& s, const std::string& text) {
                 s.supplierId = text;
                 return true;
             }},
    OtherKey{"Version", "",
             [](ParametersSource& s, const std::string& text) {
                 s.countsVersion = base::equalIgnoringCase(text, "auto");
                 s.values.version = s.countsVersion ? std::string() : text;
                 return true;
             }},
    OtherKey{"Password", "",
             [](ParametersSource& s, const std::string& text) {
                 s.values.catalogPassword = text;
                 return true;
             }},
    OtherKey{"Reset password", "",
             [](ParametersSource& s, const std::string& text) {
                 s.values.resetPassword = text;
                 return true;
             }},
    OtherKey{"Charge tax", "yes or no",
             [](ParametersSource& s, const std::string& text) { return set(s.values.chargesTax, text); }},
    OtherKey{"Group pages", "I or T",
             [](ParametersSource& s, const std::string& text) {
                 return set(s.values.groupPageStyle, text, {"I", "T"});
             }},
    OtherKey{"Quantity decimals", "a number from 0 to 4",
             [](ParametersSource& s, const std::string& text) {
                 return setDecimals(s.values.quantityDecimals, text);
             }},
    OtherKey{"Extra alignment", "left, right or centre",
             [](ParametersSource& s, const std::string& text) {
                 return set(s.values.otherColumnAlignment, text, {"Left", "Right", "Centre"});
             }},
    OtherKey{"Extra in order", "yes or no",
             [](ParametersSource& s, const std::string& text) {
                 return set(s.values.orderGridHasOtherColumn, text);
             }},
};

// What is wrong with the line, if anything.
std::string readLine(std::string_view line, ParametersSource& source) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos)
        return "a line is a key, \"=\" and a value; a line that says nothing begins with \";\"";
    const auto key = base::trim(line.substr(0, equals));
    const auto utf8 = base::trim(line.substr(equals + 1));
    const auto value = base::fromUtf8(utf8);
    for (const auto& known : textKeys)
        if (base::equalIgnoringCase(key, known.key)) {
            source.values.text(known.text) = value;
            return {};
        }
    for (const auto& known : otherKeys)
        if (base::equalIgnoringCase(key, known.key))
            return known.set(source, value)
                       ? ""
                       : std::string(key) + " cannot be \"" + std::string(utf8) + "\"" +
                             (known.expected.empty() ? "" : "; it is ") + std::string(known.expected);
    return "unknown key \"" + std::string(key) + "\"";
}

}

ParametersSource readParameters(std::string_view text, Complaints& complaints) {
    ParametersSource source;
    readKeyLines(
        text, parametersSource, "parameter",
        [&](std::string_view line, std::size_t) { return readLine(line, source); }, complaints);
    if (source.displayName.empty())
        source.displayName = source.values.text(ParameterText::supplierName);
    return source;
}

}
