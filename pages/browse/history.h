#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace pages {

/// The records shown so far, for going back. A record shown twice in a row is there twice.
class History {
public:
    void push(std::int32_t record) { m_records.push_back(record); }

    /// Drops the record being shown, if it is the newest, and the one before, which is to be shown again
    /// (and so pushed again). Nothing when there is none before; the newest is dropped all the same.
    std::optional<std::int32_t> back(std::int32_t shown);

    /// There is nothing earlier to return to than this record.
    [[nodiscard]] bool holdsOnly(std::int32_t record) const {
        return m_records.size() == 1 && m_records.front() == record;
    }

    [[nodiscard]] std::size_t size() const { return m_records.size(); }

private:
    std::vector<std::int32_t> m_records; // newest last
};

}
