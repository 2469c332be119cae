#pragma once

#include "publish/complaint.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace publish {

/// Complaints about records. Of each kind the first few are named, the rest is counted when this object ends.
class Findings {
public:
    explicit Findings(Complaints& complaints) : m_complaints(complaints) {}

    ~Findings();
    Findings(const Findings&) = delete;
    Findings& operator=(const Findings&) = delete;

    static constexpr std::size_t mostNamed = 10;

    void error(std::string_view file, std::int32_t record, const char* rule, const std::string& text) {
        add(Complaint::Weight::error, file, record, rule, text);
    }

    void warning(std::string_view file, std::int32_t record, const char* rule, const std::string& text) {
        add(Complaint::Weight::warning, file, record, rule, text);
    }

private:
    void add(Complaint::Weight weight, std::string_view file, std::int32_t record, const char* rule,
             const std::string& text);

    struct Kind {
        Complaint::Weight weight;
        std::string file;
        std::size_t count = 0;
    };

    Complaints& m_complaints;
    std::map<std::string, Kind, std::less<>> m_kinds; // by rule
};

}
