#include "publish/complaint_json.h"

#include "base/code_page.h"

#include <array>

namespace publish {
namespace {

// Control characters by number; all others stand for themselves.
void appendEscaped(std::string& out, char character) {
    constexpr std::string_view digits = "0123456789abcdef";
    const auto value = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\')
        out.append("\\") += character;
    else if (value < 0x20)
        (out.append("\\u00") += digits[value / 16]) += digits[value % 16];
    else
        out += character;
}

std::string jsonText(std::string_view text) {
    std::string out = "\"";
    for (const auto character : base::isUtf8(text) ? std::string(text) : base::toUtf8(text))
        appendEscaped(out, character);
    return out += '"';
}

std::string objectOf(const Complaint& complaint) {
    const bool isError = complaint.weight == Complaint::Weight::error;
    const auto& place = complaint.place;
    const std::array fields{std::pair{"weight", jsonText(isError ? "error" : "warning")},
                            std::pair{"rule", jsonText(complaint.rule)},
                            std::pair{"file", jsonText(place.file)},
                            std::pair{"sheet", jsonText(place.sheet)},
                            std::pair{"row", std::to_string(place.row)},
                            std::pair{"column", jsonText(place.column)},
                            std::pair{"text", jsonText(complaint.text)}};
    std::string object;
    for (const auto& [name, value] : fields)
        object += std::string(object.empty() ? "{" : ", ") + "\"" + name + "\": " + value;
    return object += "}";
}

}

std::string complaintsAsJson(const Complaints& complaints) {
    std::string json = "[";
    for (const auto& complaint : complaints)
        json += (json.size() == 1 ? "\n" : ",\n") + objectOf(complaint);
    return json += complaints.empty() ? "]\n" : "\n]\n";
}

}
