#pragma once

#include <string>
#include <utility>
#include <vector>

namespace support {

/// What the fakes of one test were asked to do, in order.
class Journal {
public:
    void add(std::string line) { m_lines.push_back(std::move(line)); }

    /// Everything since the last call.
    [[nodiscard]] std::vector<std::string> take() { return std::exchange(m_lines, {}); }

private:
    std::vector<std::string> m_lines;
};

}
