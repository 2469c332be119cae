#pragma once

#include <cstdint>
#include <memory>

struct z_stream_s;

namespace publish {

struct Piece;

/// Packs pieces; one thread at a time.
class Deflater {
public:
    Deflater();
    ~Deflater();
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    /// Sets check sum, size and packed bytes. What a piece gives depends on nothing but itself.
    void pack(Piece& piece);

private:
    std::unique_ptr<z_stream_s> m_stream;
};

/// The check sum of two texts joined, from theirs.
[[nodiscard]] std::uint32_t joinedCheckSum(std::uint32_t first, std::uint32_t second,
                                           std::uint64_t secondSize);

}
