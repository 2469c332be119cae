#pragma once

#include "order/kept/unfinished_orders.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The journal of an unfinished order as text (docs/file-formats.md, "Unfinished orders").
namespace order {

inline constexpr std::string_view journalTitle = "Tavorine order ";
inline constexpr int journalVersion = 1;

/// The keyword at the beginning of each line; tabs part what follows it.
namespace keyword {
inline constexpr std::string_view supplier = "supplier";
inline constexpr std::string_view catalogue = "catalogue";
inline constexpr std::string_view folder = "folder";
inline constexpr std::string_view takesOver = "takes over";
inline constexpr std::string_view line = "line";
inline constexpr std::string_view left = "left";
inline constexpr std::string_view later = "later";
inline constexpr std::string_view end = "so far";
}

/// Batches of lines, one after the other. The texts that are passed in are in the code page.
class JournalText {
public:
    /// Goes on behind bytes with this check sum; 0 begins a file.
    explicit JournalText(std::uint32_t check = 0) : m_check(check) {}

    /// `takenOver` is the name of the file whose order this one goes on with, or empty.
    void addHead(const JournalOwner& owner, std::string_view takenOver);

    void addLine(const UnfinishedLine& line);

    /// `keyword::left` or `keyword::later`.
    void addMark(std::string_view mark);

    /// Ends the batch, which counts from now on.
    void end(std::size_t lines, double total, std::chrono::system_clock::time_point time);

    [[nodiscard]] const std::string& bytes() const { return m_bytes; }

    /// Of everything up to the end of the last batch.
    [[nodiscard]] std::uint32_t check() const { return m_check; }

private:
    void addField(std::string_view text);
    void addNumber(float value);

    std::string m_bytes;
    std::size_t m_batch = 0; // where it begins
    std::uint32_t m_check;
};

}
