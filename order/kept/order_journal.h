#pragma once

#include "catalog/catalog.h"
#include "order/basket.h"
#include "order/kept/journal_lines.h"
#include "order/order_watch.h"
#include "platform/appended_file.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace order {

/// Whose order it is. Texts are in the code page.
struct JournalOwner {
    std::string supplier;             ///< its folder's name
    std::string catalogName;          ///< as a person knows it
    std::filesystem::path dataFolder; ///< where the catalogue lies
};

class JournalText;

/// Keeps the order that is being typed (docs/file-formats.md, "Unfinished orders"), in a file of its own that
/// is made with the first quantity. What is heard waits in memory until `flush`. Files of earlier orders are
/// left alone. While a file cannot be written ordering goes on without it: `takeFailure` says so once, and
/// later calls of `flush` try again with the whole order.
class OrderJournal final : public OrderWatch {
public:
    using Clock = std::function<std::chrono::system_clock::time_point()>;

    /// All must live as long. The folder is made when it is needed.
    OrderJournal(const catalog::Catalog& catalog, JournalOwner owner, std::filesystem::path folder,
                 platform::AppendedFile& file, Clock clock = std::chrono::system_clock::now);

    /// Tries once more what has failed. The file of an order that has left goes.
    ~OrderJournal() override;

    OrderJournal(const OrderJournal&) = delete;
    OrderJournal& operator=(const OrderJournal&) = delete;

    void quantityChanged(std::int32_t product, float quantity) override {
        m_heard.push_back({product, quantity});
    }

    void cleared() override { m_heard.push_back({everyProduct, 0}); }

    /// Whether there is anything to write.
    [[nodiscard]] bool waits() const { return !m_heard.empty() || m_isBehind; }

    /// Writes what waits, with the totals as they are now; also totals that have changed alone. An order
    /// without lines has no file. Throws base::DamagedFile when the catalogue's files have become shorter.
    void flush(const Totals& totals);

    /// The order as it stands was printed or mailed: it is unfinished again only when it changes.
    void orderLeft(const Totals& totals);

    /// What has been typed until now, or will be in the same event, has all that the user wants of this
    /// unfinished order: its file goes when the next `flush` has succeeded, and however the program ends, no
    /// more than one of the two is found.
    void takesOver(const std::filesystem::path& unfinished);

    /// The file that is being written; empty when there is none.
    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    /// A sentence for the user, the first time that it is asked for after keeping has failed; else empty.
    [[nodiscard]] std::string takeFailure();

private:
    static constexpr std::int32_t everyProduct = 0;

    void takeHeard();
    void write(const Totals& totals);
    [[nodiscard]] bool put();
    [[nodiscard]] bool putChanges();
    [[nodiscard]] bool putWhole();
    [[nodiscard]] bool startFile(const JournalText& text);
    [[nodiscard]] bool replaceFile(const JournalText& text);
    [[nodiscard]] bool removeFile();
    void addLines(JournalText& text, const std::vector<JournalLines::Line>& lines) const;
    void settle(const JournalText& text, std::size_t writtenLines);
    void fail();

    const catalog::Catalog& m_catalog;
    JournalOwner m_owner;
    std::filesystem::path m_folder;
    platform::AppendedFile& m_file;
    Clock m_clock;

    std::vector<JournalLines::Line> m_heard;
    JournalLines m_lines;
    Totals m_totals; // as they were passed last
    std::filesystem::path m_takenOver;
    bool m_hasLeft = false;

    std::filesystem::path m_path;
    std::uint32_t m_check = 0;   // of the whole file
    std::size_t m_fileLines = 0; // that it holds, older ones of the same product too
    bool m_isBehind = false;     // the file lacks what cannot be appended to it
    bool m_hasFailed = false;    // at the last attempt
    bool m_isFailureTold = false;
    int m_pause = 0; // attempts to be left out before the next
    int m_lastPause = 0;
};

}
