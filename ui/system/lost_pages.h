#pragma once

#include "base/mapped_file.h"

#include <cstddef>
#include <span>
#include <vector>

namespace ui::system {

/// Keeps the program alive when mapped files lose bytes while they are open: a file that was shortened, a
/// disk that was pulled out. Whoever reads them gets zeros, and the file's `lost` is set. Stands in for at
/// most 16 files at a time; the files must outlive it. On Windows a mapped file cannot be shortened, and
/// nothing is done.
class LostPages {
public:
    explicit LostPages(std::span<const base::MappedFile* const> files);
    ~LostPages();
    LostPages(const LostPages&) = delete;
    LostPages& operator=(const LostPages&) = delete;

    /// The bytes of one file as they lie in memory.
    struct Range {
        const std::byte* begin;
        const std::byte* end;
        std::atomic<bool>* lost;
    };

private:
    std::vector<Range> m_ranges;
};

}
