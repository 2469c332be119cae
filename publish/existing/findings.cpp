#include "publish/existing/findings.h"

namespace publish {

Findings::~Findings() {
    for (const auto& [rule, kind] : m_kinds)
        if (kind.count > mostNamed)
            m_complaints.push_back(
                {kind.weight,
                 {.file = kind.file},
                 std::to_string(kind.count - mostNamed) + " more records like these (" + rule + ")",
                 rule});
}

void Findings::add(Complaint::Weight weight, std::string_view file, std::int32_t record, const char* rule,
                   const std::string& text) {
    auto& kind = m_kinds.try_emplace(rule, Kind{weight, std::string(file)}).first->second;
    if (++kind.count <= mostNamed)
        m_complaints.push_back(
            {weight, {.file = std::string(file), .row = static_cast<std::size_t>(record)}, text, rule});
}

}
