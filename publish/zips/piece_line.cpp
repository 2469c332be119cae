#include "publish/zips/piece_line.h"

#include "publish/zips/deflater.h"

#include <utility>

namespace publish {
namespace {

constexpr std::size_t bytesPerThread = std::size_t{512} << 10U;

// What a small piece costs beside its bytes.
constexpr std::size_t costOfPiece = 1024;

std::size_t costOf(const Piece& piece) {
    return piece.before.size() + piece.plain.size() + costOfPiece;
}

}

PieceLine::PieceLine(unsigned threads, std::function<void(Piece&)> out)
    : m_out(std::move(out)), m_mostBytes(threads > 1 ? (threads + 1) * bytesPerThread : 0) {
    for (unsigned i = 0; threads > 1 && i < threads; ++i)
        m_threads.emplace_back([this] { packPieces(); });
    if (m_threads.empty())
        m_own = std::make_unique<Deflater>();
}

PieceLine::~PieceLine() {
    {
        const std::lock_guard lock(m_mutex);
        m_isClosing = true;
        m_waiting.clear();
    }
    m_hasWork.notify_all();
    for (auto& thread : m_threads)
        thread.join();
}

void PieceLine::push(Piece piece) {
    if (m_own) {
        m_own->pack(piece);
        return m_out(piece);
    }
    const auto cost = costOf(piece);
    while (!m_underWay.empty() && m_bytesUnderWay + cost > m_mostBytes)
        handOutOldest();
    m_bytesUnderWay += cost;
    m_underWay.push_back(std::make_unique<Work>(Work{std::move(piece), cost}));
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(m_underWay.back().get());
    }
    m_hasWork.notify_one();
}

void PieceLine::drain() {
    while (!m_underWay.empty())
        handOutOldest();
}

void PieceLine::handOutOldest() {
    auto& oldest = *m_underWay.front();
    {
        std::unique_lock lock(m_mutex);
        m_isDone.wait(lock, [&] { return oldest.isDone; });
    }
    if (oldest.failure)
        std::rethrow_exception(oldest.failure);
    m_out(oldest.piece);
    m_bytesUnderWay -= oldest.cost;
    m_underWay.pop_front();
}

PieceLine::Work* PieceLine::nextWork() {
    std::unique_lock lock(m_mutex);
    m_hasWork.wait(lock, [&] { return m_isClosing || !m_waiting.empty(); });
    if (m_isClosing)
        return nullptr;
    auto* work = m_waiting.front();
    m_waiting.pop_front();
    return work;
}

void PieceLine::packPieces() {
    std::unique_ptr<Deflater> deflater;
    while (auto* work = nextWork()) {
        try {
            if (!deflater)
                deflater = std::make_unique<Deflater>();
            deflater->pack(work->piece);
        } catch (...) { // Deliberate: thrown again where the piece is handed out
            work->failure = std::current_exception();
        }
        {
            const std::lock_guard lock(m_mutex);
            work->isDone = true;
        }
        m_isDone.notify_one();
    }
}

}
