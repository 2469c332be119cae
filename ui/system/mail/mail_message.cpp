#include "ui/system/mail/mail_message.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>
#include <string_view>

namespace ui::system {
namespace {

constexpr std::size_t longestLine = 76;

std::string hex(char byte) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    return {'=', digits[value >> 4U], digits[value & 0xFU]};
}

bool isPrintable(char character) {
    return character >= ' ' && character <= '~';
}

bool isAsciiLetterOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// Bytes of a character behind its first.
bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string inWord(char byte) {
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789!*+-/";
    if (byte == ' ')
        return "_";
    return plain.find(byte) == std::string_view::npos ? hex(byte) : std::string(1, byte);
}

// Encoded words, none of which cuts a character, each on a line of its own.
std::string encodedWords(std::string_view utf8) {
    constexpr std::size_t longestWord = 40;
    std::string words;
    while (!utf8.empty()) {
        std::string word;
        std::size_t end = 0;
        while (end < utf8.size() && word.size() < longestWord) {
            do
                word += inWord(utf8[end++]);
            while (end < utf8.size() && continuesCharacter(utf8[end]));
        }
        words.append(words.empty() ? "" : "\n ").append("=?UTF-8?Q?").append(word).append("?=");
        utf8.remove_prefix(end);
    }
    return words;
}

std::string subjectLine(std::string_view subject) {
    std::string line = "Subject: ";
    const bool plain = std::all_of(subject.begin(), subject.end(), isPrintable) &&
                       subject.find("=?") == std::string_view::npos &&
                       line.size() + subject.size() <= longestLine && base::shownAsUtf8(subject) == subject;
    return line.append(plain ? std::string(subject) : encodedWords(base::shownAsUtf8(subject))) + "\n";
}

// A line of the body, encoded so that no mail system changes it on its way.
void appendEncoded(std::string& out, std::string_view line) {
    std::size_t width = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        const bool ends = i + 1 == line.size();
        auto text = isPrintable(c) && c != '=' && !(c == ' ' && ends) ? std::string(1, c) : hex(c);
        if (width + text.size() > longestLine - (ends ? 0 : 1)) {
            out += "=\n";
            width = 0;
        }
        if (width == 0 && (c == '.' || line.substr(i).starts_with("From ")))
            text = hex(c);
        out += text;
        width += text.size();
    }
}

void appendQuotedPrintable(std::string& out, std::string_view text) {
    const auto lines = base::split(text, '\n');
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool ends = i + 1 == lines.size();
        auto line = lines[i];
        if (!ends && line.ends_with('\r'))
            line.remove_suffix(1);
        appendEncoded(out, line);
        if (!ends || !line.empty())
            out += '\n';
    }
}

// What a header line can hold of a text without ending or naming a second address.
std::string addressOf(std::string_view text) {
    constexpr std::string_view signs = "'+-=_~.";
    std::string address;
    for (const char c : text)
        if (isAsciiLetterOrDigit(c) || signs.find(c) != std::string_view::npos ||
            (c == '@' && address.find('@') == std::string::npos))
            address += c;
    return address;
}

std::string oneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return !isPrintable(c); }, ' ');
    return text;
}

std::string recipientAndSubject(const platform::Mail& mail) {
    return "To: " + addressOf(mail.to) + "\n" + subjectLine(mail.subject);
}

std::string contents(const platform::Mail& mail) {
    const auto utf8 = base::shownAsUtf8(mail.body);
    const bool fitsCodePage = base::toUtf8(mail.body) == utf8;
    std::string text = "MIME-Version: 1.0\nContent-Type: text/";
    text.append(mail.isHtml ? "html" : "plain");
    text.append("; charset=").append(fitsCodePage ? "windows-1252" : "utf-8");
    text.append("\nContent-Transfer-Encoding: quoted-printable\n\n");
    appendQuotedPrintable(text, fitsCodePage ? std::string_view(mail.body) : utf8);
    return text;
}

}

std::string mailMessage(const platform::Mail& mail, const MailStamp& stamp) {
    return "From: " + addressOf(stamp.from) + "\n" + recipientAndSubject(mail) +
           "Date: " + oneLine(stamp.date) + "\nMessage-ID: <" + addressOf(stamp.messageId) + ">\n" +
           contents(mail);
}

std::string draftMessage(const platform::Mail& mail) {
    return base::replaceAll("X-Unsent: 1\n" + recipientAndSubject(mail) + contents(mail), "\n", "\r\n");
}

}
