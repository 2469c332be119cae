#include "order/kept/journal_text.h"

#include "base/code_page.h"
#include "base/money.h"
#include "base/numbers.h"
#include "order/kept/check_sum.h"
#include "order/kept/time_text.h"

#include <algorithm>

namespace order {
namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

// A character that would end the field or the line, or that nobody could read.
void appendEscaped(std::string& out, char c) {
    const auto value = static_cast<unsigned char>(c);
    if (c == '\\')
        out += "\\\\";
    else
        out.append("\\x").append({hexDigits[value >> 4U], hexDigits[value & 0xFU]});
}

std::string hex(std::uint32_t value) {
    std::string out;
    for (unsigned shift = 32; shift > 0; shift -= 4)
        out += hexDigits[(value >> (shift - 4)) & 0xFU];
    return out;
}

}

void JournalText::addField(std::string_view text) {
    m_bytes += '\t';
    const auto isEscaped = [](char c) { return c == '\\' || isControl(c); };
    const auto isPlain = [&](char c) { return static_cast<unsigned char>(c) < 0x80 && !isEscaped(c); };
    if (std::all_of(text.begin(), text.end(), isPlain)) {
        m_bytes += text;
        return;
    }
    for (const char c : base::toUtf8(text))
        if (isEscaped(c))
            appendEscaped(m_bytes, c);
        else
            m_bytes += c;
}

void JournalText::addNumber(float value) {
    m_bytes.append("\t").append(base::textOf(value));
}

void JournalText::addHead(const JournalOwner& owner, std::string_view takenOver) {
    m_bytes.append(journalTitle)
        .append(std::to_string(journalVersion))
        .append("\n")
        .append(keyword::supplier);
    addField(owner.supplier);
    m_bytes.append("\n").append(keyword::catalogue);
    addField(owner.catalogName);
    m_bytes.append("\n").append(keyword::folder);
    addField(base::textOf(owner.dataFolder));
    m_bytes += '\n';
    if (takenOver.empty())
        return;
    m_bytes += keyword::takesOver;
    addField(takenOver);
    m_bytes += '\n';
}

void JournalText::addLine(const UnfinishedLine& line) {
    m_bytes.append(keyword::line).append("\t").append(std::to_string(line.record));
    addNumber(line.quantity);
    addNumber(line.price);
    addNumber(line.taxRate);
    addField(line.code);
    addField(line.description);
    m_bytes += '\n';
}

void JournalText::addMark(std::string_view mark) {
    m_bytes.append(mark).append("\n");
}

void JournalText::end(std::size_t lines, double total, std::chrono::system_clock::time_point time) {
    m_bytes.append(keyword::end).append("\t").append(std::to_string(lines)).append("\t");
    base::appendFixed(m_bytes, total, base::moneyDecimals);
    m_bytes.append("\t").append(timeText(time)).append("\t");
    m_check = checkSum(m_check, std::string_view(m_bytes).substr(m_batch));
    const auto text = hex(m_check) + '\n';
    m_bytes += text;
    m_check = checkSum(m_check, text);
    m_batch = m_bytes.size();
}

}
