#include "publish/zips/deflater.h"

#include "publish/zips/piece_line.h"

#include <new>
#include <zlib.h>

namespace publish {
namespace {

// Nine takes four times as long for one byte in a hundred.
constexpr int level = 6;
constexpr int withoutHeader = -15;
constexpr int memory = 8;

const Bytef* bytesOf(const std::string& text) {
    return reinterpret_cast<const Bytef*>(text.data());
}

uInt sizeOf(const std::string& text) {
    return static_cast<uInt>(text.size());
}

void deflateInto(z_stream& stream, Piece& piece) {
    deflateReset(&stream);
    if (!piece.before.empty())
        deflateSetDictionary(&stream, bytesOf(piece.before), sizeOf(piece.before));
    constexpr std::size_t flush = 16;
    piece.packed.resize(deflateBound(&stream, static_cast<uLong>(piece.plain.size())) + flush);
    stream.next_in = const_cast<Bytef*>(bytesOf(piece.plain)); // the library only reads it
    stream.avail_in = sizeOf(piece.plain);
    stream.next_out = reinterpret_cast<Bytef*>(piece.packed.data());
    stream.avail_out = sizeOf(piece.packed);
    deflate(&stream, piece.isLast ? Z_FINISH : Z_SYNC_FLUSH);
    piece.packed.resize(piece.packed.size() - stream.avail_out);
}

}

Deflater::Deflater() : m_stream(std::make_unique<z_stream>()) {
    if (deflateInit2(m_stream.get(), level, Z_DEFLATED, withoutHeader, memory, Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::bad_alloc();
}

Deflater::~Deflater() {
    deflateEnd(m_stream.get());
}

void Deflater::pack(Piece& piece) {
    piece.size = piece.plain.size();
    piece.checkSum = static_cast<std::uint32_t>(crc32(0, bytesOf(piece.plain), sizeOf(piece.plain)));
    if (!piece.isToShrink) {
        piece.packed = std::move(piece.plain);
        return;
    }
    deflateInto(*m_stream, piece);
    const bool isAlone = piece.isFirst && piece.isLast;
    piece.isToShrink = !isAlone || piece.packed.size() < piece.plain.size();
    if (!piece.isToShrink)
        piece.packed = std::move(piece.plain);
    piece.plain = {};
}

std::uint32_t joinedCheckSum(std::uint32_t first, std::uint32_t second, std::uint64_t secondSize) {
    return static_cast<std::uint32_t>(crc32_combine(first, second, static_cast<z_off_t>(secondSize)));
}

}
