#include "publish/key_lines.h"

#include "base/code_page.h"
#include "base/text.h"

namespace publish {

void readKeyLines(std::string_view text, const char* file, const char* rule,
                  const std::function<std::string(std::string_view line, std::size_t number)>& read,
                  Complaints& complaints) {
    std::size_t number = 0;
    for (auto line : base::split(text, '\n')) {
        ++number;
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.starts_with("\xEF\xBB\xBF"))
            line.remove_prefix(3);
        const auto content = base::trim(line);
        if (content.empty() || content.starts_with(';') || content.starts_with('['))
            continue;
        const auto wrong = base::isUtf8(line) ? read(line, number) : "the line is not UTF-8";
        if (!wrong.empty())
            complaints.push_back({Complaint::Weight::error, {.file = file, .row = number}, wrong, rule});
    }
}

}
