#include "base/numbers.h"
#include "publish/existing/compare/diff.h"
#include "publish/existing/shown_numbers.h"

#include <array>

namespace publish {
namespace {

std::string quoted(const std::string& text) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string out = "\"";
    for (const char c : text)
        if (c == '"' || c == '\\')
            out.append(1, '\\').append(1, c);
        else if (c >= 0 && c < ' ')
            out.append("\\u00")
                .append(1, c < 16 ? '0' : '1')
                .append(1, digits[static_cast<std::size_t>(c % 16)]);
        else
            out += c;
    return out + "\"";
}

/// An object or array being written; its members are joined by commas.
class Members {
public:
    Members& add(const char* name, const std::string& json) { return add(quoted(name) + ":" + json); }

    Members& add(const std::string& json) {
        m_text += m_text.empty() ? json : "," + json;
        return *this;
    }

    [[nodiscard]] std::string object() const { return "{" + m_text + "}"; }

    [[nodiscard]] std::string array() const { return "[" + m_text + "]"; }

private:
    std::string m_text;
};

void addNamed(Members& members, const Named& named) {
    members.add("code", quoted(named.code))
        .add("description", quoted(named.description))
        .add("group", quoted(named.group));
}

std::string jsonOf(const std::string& name) {
    return quoted(shownName(name));
}

std::string jsonOf(const Named& named) {
    Members members;
    addNamed(members, named);
    return members.object();
}

std::string jsonOf(const PriceChange& change) {
    Members members;
    addNamed(members, change.product);
    members.add("before", priceText(change.before)).add("after", priceText(change.after));
    if (change.before != 0)
        members.add("percent", base::fixedText(change.percent(), 1));
    return members.object();
}

std::string jsonOf(const TextChange& change) {
    Members members;
    if (!change.where.code.empty() || !change.where.description.empty())
        addNamed(members, change.where);
    return members.add("what", quoted(change.what))
        .add("before", quoted(change.before))
        .add("after", quoted(change.after))
        .object();
}

template <typename Item>
std::string listOf(const std::vector<Item>& items) {
    Members members;
    for (const auto& item : items)
        members.add(jsonOf(item));
    return members.array();
}

template <typename Item>
std::string jsonOf(const Turnover<Item>& turnover) {
    return Members().add("added", listOf(turnover.added)).add("gone", listOf(turnover.gone)).object();
}

std::string jsonOf(const FileChanges& files) {
    return Members()
        .add("changed", listOf(files.changed))
        .add("added", listOf(files.added))
        .add("gone", listOf(files.gone))
        .object();
}

}

std::string jsonOf(const CatalogDiff& diff) {
    return Members()
        .add("up", listOf(diff.up))
        .add("down", listOf(diff.down))
        .add("taxes", listOf(diff.taxes))
        .add("products", jsonOf(diff.products))
        .add("texts", listOf(diff.texts))
        .add("moved", listOf(diff.moved))
        .add("groups", jsonOf(diff.groups))
        .add("regrouped", listOf(diff.regrouped))
        .add("parameters", listOf(diff.parameters))
        .add("templates", jsonOf(diff.templates))
        .add("files", jsonOf(diff.files))
        .object();
}

}
