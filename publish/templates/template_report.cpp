#include "publish/templates/template_report.h"

#include "base/code_page.h"

#include <algorithm>

namespace publish {
namespace {

constexpr std::size_t mostOfARule = 10;

}

TemplateReport::TemplateReport(std::string file, std::string_view text, Complaints& complaints)
    : m_file(std::move(file)), m_complaints(complaints) {
    for (auto at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1))
        m_lineEnds.push_back(at);
}

void TemplateReport::cut(std::size_t start, std::size_t length) {
    m_cutStart = start;
    m_cutLength = length;
}

bool TemplateReport::isToBeTold(Complaint::Weight weight, std::string_view rule) {
    m_holdsError = m_holdsError || weight == Complaint::Weight::error;
    auto found = m_counts.find(rule);
    if (found == m_counts.end())
        found = m_counts.emplace(rule, 0).first;
    return ++found->second <= mostOfARule;
}

void TemplateReport::tell(Complaint::Weight weight, std::string_view rule, std::optional<std::size_t> at,
                          std::string text) {
    if (m_counts.find(rule)->second == mostOfARule)
        text += " (more of this kind are not listed)";
    m_complaints.push_back(
        {weight, {.file = m_file, .row = at ? lineOf(*at) : 0}, std::move(text), std::string(rule)});
}

std::size_t TemplateReport::lineOf(std::size_t at) const {
    const auto place = at < m_cutStart ? at : at + m_cutLength;
    const auto line = std::lower_bound(m_lineEnds.begin(), m_lineEnds.end(), place);
    return static_cast<std::size_t>(line - m_lineEnds.begin()) + 1;
}

std::string shown(std::string_view text) {
    constexpr std::size_t longest = 40;
    std::string piece(text.substr(0, longest));
    std::replace_if(
        piece.begin(), piece.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return base::toUtf8(piece) + (text.size() > longest ? "..." : "");
}

}
