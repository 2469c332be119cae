#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace publish {

class Deflater;

/// A part of an entry of a zip, packed apart from the others.
struct Piece {
    std::size_t entry = 0;
    bool isFirst = false;
    bool isLast = false;
    bool isToShrink = false; ///< afterwards: whether it is deflated; alone in its entry, it may not shrink
    std::string before = {}; ///< the end of the piece before, to which this one may refer
    std::string plain = {};  ///< empty once it is packed

    std::size_t size = 0;
    std::uint32_t checkSum = 0;
    std::string packed = {}; ///< pieces of an entry joined are one deflated text
};

/// Packs pieces on several threads and hands them out in the order in which they came.
class PieceLine {
public:
    /// Taken by `out` on the thread that calls `push` and `drain`. With one thread it packs there too.
    PieceLine(unsigned threads, std::function<void(Piece&)> out);
    ~PieceLine();
    PieceLine(const PieceLine&) = delete;
    PieceLine& operator=(const PieceLine&) = delete;

    /// Waits while too many bytes are under way.
    void push(Piece piece);

    /// Waits until all pieces are out.
    void drain();

private:
    struct Work {
        Piece piece;
        std::size_t cost; ///< bytes of memory
        bool isDone = false;
        std::exception_ptr failure = {};
    };

    void handOutOldest();
    [[nodiscard]] Work* nextWork();
    void packPieces();

    std::unique_ptr<Deflater> m_own; // where there are no threads
    std::function<void(Piece&)> m_out;
    std::deque<std::unique_ptr<Work>> m_underWay; // in order
    std::size_t m_bytesUnderWay = 0;
    std::size_t m_mostBytes;

    std::mutex m_mutex; // guards what follows, and the works that are waiting or being done
    std::condition_variable m_hasWork;
    std::condition_variable m_isDone;
    std::deque<Work*> m_waiting;
    bool m_isClosing = false;
    std::vector<std::thread> m_threads;
};

}
