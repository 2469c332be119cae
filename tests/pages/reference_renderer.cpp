#include "tests/pages/reference_renderer.h"

#include "base/numbers.h"

#include <cmath>

namespace reference {
namespace {

constexpr auto npos = std::string::npos;

struct Damaged {};

int replacements = 0;

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
    std::string rest = text;
    text.clear();
    while (rest.find(from) != npos) {
        text += rest.substr(0, rest.find(from)) + to;
        rest = rest.substr(rest.find(from) + from.size());
    }
    text += rest;
    if (text.size() > 8 * 1024 * 1024)
        throw Damaged();
}

std::string evaluate(const std::string& tag, const Values& values) {
    if (++replacements > 10000)
        throw Damaged();
    return values.count(tag) != 0 ? values.at(tag) : "";
}

int takeColumns(std::string& text) {
    const auto at = text.find("{NOCOLS=");
    if (at == npos)
        return 2;
    const double value = base::parseNumber(text.substr(at + 8, 2));
    text = text.substr(0, at) + (at + 11 < text.size() ? text.substr(at + 11) : "");
    return value < 0 ? 0 : static_cast<int>(std::nearbyint(value));
}

void resolveBlocks(std::string& text, const Values& values) {
    while (text.find("{{") != npos) {
        const auto start = text.find("{{");
        const auto end = text.find("}}");
        if (end == npos || end < start)
            throw Damaged();
        const auto before = text.substr(0, start);
        auto inner = text.substr(start + 2, end - start - 2);
        const auto after = text.substr(end + 2);
        const auto open = inner.find("{");
        const auto close = inner.find("}");
        if (open == npos || close == npos || close < open)
            throw Damaged();
        const auto tag = inner.substr(open, close + 1 - open);
        const auto value = evaluate(tag, values);
        if (value.empty())
            inner = "";
        else
            replaceAll(inner, tag, value);
        text = before + inner + after;
    }
}

void resolve(std::string& text, const Values& values) {
    for (;;) {
        const auto open = text.find("{");
        if (open == npos || text.find("}", open) == npos)
            return;
        const auto tag = text.substr(open, text.find("}", open) + 1 - open);
        replaceAll(text, tag, evaluate(tag, values));
    }
}

std::string cut(std::string& text, const std::string& marker) {
    const auto at = text.find(marker);
    if (at == npos)
        throw Damaged();
    const auto before = text.substr(0, at);
    text = text.substr(at + marker.size());
    return before;
}

std::string rendered(const Page& page) {
    replacements = 0;
    std::string text = page.text;
    const int columns = page.isGroup ? takeColumns(text) : 0;
    resolveBlocks(text, page.values);

    const bool hasRows = text.find("<R1>") != npos;
    std::string header = hasRows ? cut(text, "<R1>") : text;
    const std::string firstRow = hasRows ? cut(text, "</R1>") : "";
    std::string secondRow = firstRow;
    if (hasRows && text.find("<R2>") != npos) {
        cut(text, "<R2>");
        secondRow = cut(text, "</R2>");
    }
    std::string trailer = hasRows ? text : "";
    resolve(header, page.values);

    if (page.isGroup && hasRows) {
        std::string firstLine;
        std::string secondLine;
        int count = 0;
        const auto emit = [&] {
            header += "\r\n" + firstLine + "\r\n" + "\r\n" + secondLine + "\r\n";
            firstLine = secondLine = "";
            count = 0;
        };
        for (const auto& entry : page.entries) {
            firstLine += firstRow;
            if (!firstRow.empty())
                resolve(firstLine, entry);
            secondLine += secondRow;
            if (!secondRow.empty())
                resolve(secondLine, entry);
            if (++count == columns)
                emit();
        }
        if (count > 0)
            emit();
    }
    resolve(trailer, page.values);
    header += trailer;
    if (header.size() > 8 * 1024 * 1024)
        throw Damaged();
    return header;
}

}

std::optional<std::string> render(const Page& page) {
    try {
        return rendered(page);
    } catch (const Damaged&) {
        return std::nullopt;
    }
}

}
