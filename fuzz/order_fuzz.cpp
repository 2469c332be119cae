#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "catalog/record_codec.h"
#include "fuzz/require.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/sections.h"
#include "order/order_mail.h"
#include "order/order_writer.h"
#include "ui/system/mail/mail_message.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>

namespace {

using order::OrderContents;
using order::OrderWriter;
using Text = std::optional<std::string>;
using Write = std::function<std::string(const OrderContents&)>;

constexpr std::string_view mark = "\x01M\x02"; // stands for a value that no template text is in

catalog::Parameters parametersOf(const catalog::ParameterValues& values) {
    static const fuzz::ScratchFolder scratch;
    const auto file = scratch.path() / catalog::parametersFile;
    const auto bytes = catalog::encode(values);
    base::overwriteFile(file, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    return catalog::Parameters(file);
}

catalog::ParameterValues supplier() {
    catalog::ParameterValues values;
    values.quantityDecimals = 2;
    values.text(catalog::ParameterText::supplierName) = "Smith {& Sons}";
    values.text(catalog::ParameterText::currency) = "EUR";
    return values;
}

// Rows of cells parted by "|".
std::vector<order::DocumentRow> rowsOf(std::string_view text) {
    std::vector<order::DocumentRow> rows;
    for (const auto line : base::split(text, '\n')) {
        auto cells = base::split(line, '|');
        cells.resize(8);
        rows.push_back({std::string(cells[0]), std::string(cells[1]), std::string(cells[2]),
                        std::string(cells[3]), std::string(cells[4]), std::string(cells[5]),
                        std::string(cells[6]), std::string(cells[7])});
    }
    return rows;
}

OrderContents orderOf(std::string_view detail, std::string_view comment, std::string_view rows) {
    OrderContents order;
    const std::string text(detail);
    order.details = {false, text, text, "UK", text, text, "", text, "LS1"};
    order.comment = comment;
    order.today = "1/4/26";
    order.totals = {110, 10};
    order.rows = rowsOf(rows);
    return order;
}

// Nothing where the template is damaged or a price is no number.
Text filled(const std::function<std::string()>& fill) {
    try {
        return fill();
    } catch (const base::DamagedFile&) {
        return std::nullopt;
    } catch (const order::NotANumber&) {
        return std::nullopt;
    }
}

// What a detail holds is text and never read as a tag or a marker: one in which none could be meant gives the
// same document, but for itself.
void checkDetailIsText(const std::string& document, const OrderContents& order, const Write& write) {
    const auto& detail = order.details.city;
    if (detail.empty() || base::trim(detail) != detail || document.find(mark.front()) != std::string::npos)
        return;
    auto other = order;
    other.details = orderOf(mark, {}, {}).details;
    const auto neutral = filled([&] { return write(other); });
    fuzz::require(neutral && base::replaceAll(*neutral, mark, detail) == document,
                  "a detail was read as a template");
}

void checkDocuments(const pages::TemplateFile& file, const OrderWriter& writer, const OrderContents& order) {
    const Write page = [&](const OrderContents& shown) { return writer.page(file, shown); };
    const Write mail = [&](const OrderContents& shown) { return writer.mailText(file, shown); };
    for (const auto& write : {page, mail})
        if (const auto document = filled([&] { return write(order); }))
            checkDetailIsText(*document, order, write);
}

std::string decodedQuotedPrintable(std::string_view text) {
    std::string out;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (text[at] != '=')
            out += text[at];
        else if (text[at + 1] == '\n')
            ++at;
        else {
            out += static_cast<char>(std::stoi(std::string(text.substr(at + 1, 2)), nullptr, 16));
            at += 2;
        }
    return out;
}

bool isMailText(std::string_view line) {
    return std::all_of(line.begin(), line.end(), [](char c) { return (c >= ' ' && c <= '~') || c == '\t'; });
}

// These headers, each once and in this order, and nothing else.
void checkHeaders(std::string_view headers) {
    std::string names;
    for (const auto line : base::split(headers, '\n')) {
        fuzz::require(isMailText(line) && line.size() <= 998, "a line that no mail system takes");
        if (!line.starts_with(' '))
            names.append(line.substr(0, line.find(':'))).append(" ");
    }
    fuzz::require(names ==
                      "From To Subject Date Message-ID MIME-Version Content-Type Content-Transfer-Encoding ",
                  "a header has come in or is missing");
}

void checkBody(std::string_view body, const platform::Mail& mail, bool isUtf8) {
    for (const auto line : base::split(body, '\n'))
        fuzz::require(isMailText(line) && line.size() <= 76, "a line of the body is too long");
    auto expected = base::replaceAll(isUtf8 ? base::shownAsUtf8(mail.body) : mail.body, "\r\n", "\n");
    if (!expected.empty() && !expected.ends_with('\n'))
        expected += '\n';
    fuzz::require(decodedQuotedPrintable(body) == expected, "the body does not read as it was written");
}

void checkMessage(const platform::Mail& mail) {
    const auto message =
        ui::system::mailMessage(mail, {"anna@here.example", "01 Apr 2025 10:20:30 +0200", "1@h"});
    const auto end = message.find("\n\n");
    fuzz::require(end != std::string::npos, "the headers do not end");
    const auto headers = std::string_view(message).substr(0, end);
    checkHeaders(headers);
    fuzz::require(headers.find("\nTo: " + mail.to + "\nSubject: ") != std::string_view::npos,
                  "another recipient");
    checkBody(std::string_view(message).substr(end + 2), mail,
              headers.find("; charset=utf-8\nContent-Transfer-Encoding: ") != std::string_view::npos);
    const auto draft = ui::system::draftMessage(mail);
    fuzz::require(base::replaceAll(draft, "\r\n", "").find('\n') == std::string::npos,
                  "a line ends in LF alone");
}

}

// A template, filled with hostile details, and the message that brings it to a hostile address.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto [page, detail, comment, rows, number, address] = fuzz::sections<6>(data, size);
    static const auto parameters = parametersOf(supplier());
    const OrderWriter writer(parameters, {}, {"75", "3", "4"});
    const pages::TemplateFile file{"T.ect", std::string(page)};
    const auto contents = orderOf(detail, comment, rows);
    checkDocuments(file, writer, contents);
    auto body = filled([&] { return writer.mailText(file, contents); }).value_or(std::string(page));
    const auto mail = order::orderMail(address, number, std::move(body), order::isHtmlTemplate(page));
    if (mail)
        checkMessage(*mail);
    return 0;
}
