#include "publish/templates/marker_check.h"

#include "base/text.h"
#include "order/order_writer.h"
#include "pages/template/template_text.h"

#include <algorithm>
#include <array>

namespace publish {
namespace {

constexpr auto none = std::string_view::npos;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Two digits and the closing brace.
bool isWritten(std::string_view number) {
    return number.size() >= 3 && isDigit(number[0]) && isDigit(number[1]) && number[2] == '}';
}

void checkColumnTag(std::string_view text, TemplateReport& report) {
    constexpr std::string_view tag = "{NOCOLS=";
    const auto at = text.find(tag);
    if (at == none)
        return;
    const auto number = text.substr(at + tag.size());
    if (isWritten(number))
        return;
    const bool oneDigit = number.size() > 1 && isDigit(number[0]) && number[1] == '}';
    report.error("column-tag", at,
                 oneDigit
                     ? "the viewer takes eleven characters for this tag, so the one behind it is lost; write "
                       "two digits, {NOCOLS=0" +
                           std::string(1, number[0]) + "}"
                     : "the number of columns is to be two digits, {NOCOLS=03}");
}

void checkRowMarker(std::string_view text, TemplateReport& report) {
    constexpr std::string_view tag = "{ROW=";
    constexpr std::string_view space = " \t\r\n";
    constexpr std::string_view rowsOnPage = "50";
    const auto at = text.find(tag);
    if (at == none)
        return;
    const auto number = text.substr(at + tag.size());
    const auto behind = number.substr(std::min<std::size_t>(number.size(), 3), 1);
    if (!isWritten(number))
        report.error("row-marker", at, "the number of rows is to be two digits, {ROW=12}");
    else if (number.substr(0, 2) >= rowsOnPage)
        report.warning("row-marker", at, "a page holds 50 rows, so the first one ends after its first row");
    else if (!behind.empty() && space.find(behind[0]) == none)
        report.error("row-marker", at, "the character behind this marker is lost; let a line end follow");
    if (text.substr(0, at).find_first_not_of(space) != none)
        report.warning("row-marker-late", at, "everything in front of this marker is dropped; begin with it");
}

enum class Marker : std::uint8_t { firstStart, firstEnd, secondStart, secondEnd };

constexpr std::array<std::string_view, 4> markerTexts{"<R1>", "</R1>", "<R2>", "</R2>"};

struct FoundMarker {
    Marker marker;
    std::size_t at;
};

class MarkerCheck {
public:
    MarkerCheck(std::string_view text, const TemplateUse& use, const std::vector<FoundBlock>& blocks,
                TemplateReport& report)
        : m_text(text), m_kind(use.kind), m_blocks(blocks), m_report(report) {}

    RowPart run() {
        const bool meansNothing = m_kind == TemplateKind::banner || m_kind == TemplateKind::welcome;
        collect();
        if (meansNothing && !m_markers.empty())
            m_report.warning("row-elsewhere", m_markers[0].at,
                             "rows mean nothing here; the markers stay text");
        if (isOrder())
            checkPageHeader();
        return meansNothing ? RowPart() : checkRows();
    }

private:
    [[nodiscard]] bool isOrder() const {
        return m_kind == TemplateKind::print || m_kind == TemplateKind::mail;
    }

    [[nodiscard]] bool repeats() const { return isOrder() || m_kind == TemplateKind::group; }

    void collect();
    void misspelt(std::size_t at, std::string_view marker);
    RowPart checkRows();
    void checkSecond(const FoundMarker& firstEnd);
    void noRows();
    [[nodiscard]] const FoundMarker* next(Marker marker, std::size_t from) const;
    [[nodiscard]] const FoundMarker* endOf(const FoundMarker& start, Marker end);
    [[nodiscard]] const FoundBlock* blockAt(std::size_t at) const;
    void checkPageHeader();

    std::string_view m_text;
    TemplateKind m_kind;
    const std::vector<FoundBlock>& m_blocks;
    TemplateReport& m_report;
    std::vector<FoundMarker> m_markers;
    bool m_hasMisspelt = false; // told once
};

void MarkerCheck::collect() {
    for (auto at = m_text.find('<'); at != none; at = m_text.find('<', at + 1))
        for (std::size_t i = 0; i < markerTexts.size(); ++i) {
            const auto text = m_text.substr(at, markerTexts[i].size());
            if (text == markerTexts[i])
                m_markers.push_back({static_cast<Marker>(i), at});
            else if (repeats() && !m_hasMisspelt && base::equalIgnoringCase(text, markerTexts[i]))
                misspelt(at, markerTexts[i]);
        }
}

void MarkerCheck::misspelt(std::size_t at, std::string_view marker) {
    m_hasMisspelt = true;
    m_report.error("row-marker-case", at,
                   "row markers have capital letters, this one is only text; write " + std::string(marker));
}

const FoundMarker* MarkerCheck::next(Marker marker, std::size_t from) const {
    const auto found = std::find_if(m_markers.begin(), m_markers.end(),
                                    [&](const FoundMarker& m) { return m.marker == marker && m.at >= from; });
    return found == m_markers.end() ? nullptr : &*found;
}

const FoundBlock* MarkerCheck::blockAt(std::size_t at) const {
    const auto behind =
        std::upper_bound(m_blocks.begin(), m_blocks.end(), at,
                         [](std::size_t place, const FoundBlock& block) { return place < block.start; });
    return behind != m_blocks.begin() && at < std::prev(behind)->end ? &*std::prev(behind) : nullptr;
}

// A block that goes may not take one marker of a pair with it.
const FoundMarker* MarkerCheck::endOf(const FoundMarker& start, Marker end) {
    const auto* const found = next(end, start.at);
    if (found == nullptr)
        m_report.error(
            "row-end", start.at,
            "the row that begins here has no end marker; the viewer takes the template for damaged");
    else if (blockAt(start.at) != blockAt(found->at))
        m_report.error(
            "row-in-block", start.at,
            "a conditional block holds only one of this row's two markers; where it is left out the "
            "row is torn");
    return found;
}

RowPart MarkerCheck::checkRows() {
    const auto* const start = next(Marker::firstStart, 0);
    if (start == nullptr) {
        noRows();
        return {};
    }
    if (m_kind == TemplateKind::product)
        m_report.warning("row-elsewhere", start->at,
                         "a product's page has no rows; what is in them is dropped");
    const auto* const end = endOf(*start, Marker::firstEnd);
    if (end == nullptr)
        return {};
    if (const auto* const again = next(Marker::firstStart, start->at + 1); again != nullptr)
        m_report.error("row-twice", again->at, "only the first row is repeated; this one is not");
    if (!isOrder())
        checkSecond(*end);
    else if (const auto* const second = next(Marker::secondStart, 0); second != nullptr)
        m_report.warning("row-elsewhere", second->at, "an order has no second row; the marker stays text");
    return {start->at + markerTexts[0].size(), end->at};
}

void MarkerCheck::checkSecond(const FoundMarker& firstEnd) {
    const auto* const start = next(Marker::secondStart, firstEnd.at);
    const auto* const again = start != nullptr ? next(Marker::secondStart, start->at + 1) : nullptr;
    if (again != nullptr)
        m_report.error("row-twice", again->at, "only the first second row is repeated; this one is not");
    if (start != nullptr)
        static_cast<void>(endOf(*start, Marker::secondEnd));
    else if (m_kind == TemplateKind::group)
        m_report.error("row-second", firstEnd.at,
                       "without a second row each entry is shown twice; write <R2></R2> behind </R1>");
}

void MarkerCheck::noRows() {
    if (m_hasMisspelt)
        return;
    if (!m_markers.empty() && repeats())
        m_report.error("row-start", m_markers[0].at, "there is no <R1> at which the row would begin");
    else if (!m_markers.empty())
        m_report.warning("row-elsewhere", m_markers[0].at,
                         "a product's page has no rows; the marker stays text");
    else if (isOrder())
        m_report.add(Complaint::Weight::error, "order-without-rows", std::nullopt,
                     "the order would not say what is ordered; write a row from <R1> to </R1>");
    else if (m_kind == TemplateKind::group)
        m_report.add(Complaint::Weight::warning, "rows-missing", std::nullopt,
                     "the page lists none of the group's entries; write a row from <R1> to </R1>");
}

void MarkerCheck::checkPageHeader() {
    const auto at = m_text.find("<PH>");
    if (at == none)
        return;
    if (m_kind == TemplateKind::mail)
        m_report.warning("page-header", at, "<PH> means nothing in an e-mail and is sent as text");
    else if (const auto* const row = next(Marker::firstStart, 0); row != nullptr && row->at < at)
        m_report.warning("page-header", at, "the page header is to stand in front of <R1>; here it is text");
}

}

void takeLayoutMarker(std::string& text, TemplateKind kind, TemplateReport& report) {
    const auto before = text.size();
    if (kind == TemplateKind::group) {
        checkColumnTag(text, report);
        const auto at = text.find("{NOCOLS=");
        static_cast<void>(pages::takeColumnCount(text));
        report.cut(at, before - text.size());
    } else if (kind == TemplateKind::print) {
        checkRowMarker(text, report);
        static_cast<void>(order::takeRowMarker(text));
        report.cut(0, before - text.size());
    }
}

RowPart checkMarkers(std::string_view text, const TemplateUse& use, const std::vector<FoundBlock>& blocks,
                     TemplateReport& report) {
    return MarkerCheck(text, use, blocks, report).run();
}

}
