#include "order/kept/order_journal.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "order/kept/journal_text.h"
#include "order/kept/time_text.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace order {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view ending = ".order";

// The first name from this time on under which there is no file, however many programs look for one.
fs::path create(platform::AppendedFile& file, const fs::path& folder,
                std::chrono::system_clock::time_point time) {
    constexpr int attempts = 1000;
    std::error_code ignored;
    for (int i = 0; i < attempts; ++i) {
        auto path = folder / timeName(time + std::chrono::microseconds(i)).append(ending);
        if (file.create(path))
            return path;
        if (!fs::exists(path, ignored))
            break;
    }
    return {};
}

}

OrderJournal::OrderJournal(const catalog::Catalog& catalog, JournalOwner owner, fs::path folder,
                           platform::AppendedFile& file, Clock clock)
    : m_catalog(catalog),
      m_owner(std::move(owner)),
      m_folder(std::move(folder)),
      m_file(file),
      m_clock(std::move(clock)) {}

OrderJournal::~OrderJournal() {
    if (m_hasLeft && !m_lines.haveChanged() && m_heard.empty()) {
        static_cast<void>(removeFile());
    } else if (m_hasFailed) {
        try {
            m_pause = 0;
            write(m_totals);
        } catch (const base::ProgramEnd&) { // the catalogue is gone, and nothing can be said of its articles
            m_file.close();
        }
    }
    m_file.close();
}

void OrderJournal::takeHeard() {
    for (const auto& heard : m_heard)
        if (heard.product == everyProduct)
            m_lines.clear();
        else
            m_lines.set(heard.product, heard.quantity);
    m_heard.clear();
    m_hasLeft = m_hasLeft && !m_lines.haveChanged();
}

void OrderJournal::flush(const Totals& totals) {
    takeHeard();
    if (m_lines.haveChanged() || m_isBehind || (!m_path.empty() && totals != m_totals))
        write(totals);
}

void OrderJournal::orderLeft(const Totals& totals) {
    takeHeard();
    m_hasLeft = m_lines.count() > 0;
    write(totals);
}

void OrderJournal::takesOver(const fs::path& unfinished) {
    if (unfinished == m_path)
        return;
    m_takenOver = unfinished;
    m_isBehind = true;
    m_pause = 0;
}

std::string OrderJournal::takeFailure() {
    if (!m_hasFailed || std::exchange(m_isFailureTold, true))
        return {};
    return "Your order cannot be kept for the case that the program ends unexpectedly: " +
           base::textOf(m_path.empty() ? m_folder : m_path) +
           " cannot be written. Please check that the disk is not full and that you may write there. You can "
           "go on ordering.";
}

void OrderJournal::write(const Totals& totals) {
    m_totals = totals;
    if (m_lines.count() == 0 && removeFile()) {
        m_lines.forget();
        m_takenOver.clear();
        m_isBehind = m_hasFailed = m_isFailureTold = false;
    } else if (m_pause > 0) {
        --m_pause;
    } else if (!put()) {
        fail();
    }
}

bool OrderJournal::put() {
    constexpr std::size_t few = 1000, often = 4;
    std::error_code ignored;
    const bool isThere = !m_path.empty() && fs::exists(m_path, ignored);
    const bool hasGrown = m_fileLines > few + often * m_lines.all().size();
    if (isThere && !m_isBehind && !hasGrown)
        return putChanges();
    return putWhole() || (isThere && !m_isBehind && m_file.open(m_path) && putChanges());
}

bool OrderJournal::putChanges() {
    JournalText text(m_check);
    const auto lines = m_lines.changed();
    addLines(text, lines);
    if (!m_file.append(text.bytes()))
        return false;
    settle(text, m_fileLines + lines.size());
    return true;
}

bool OrderJournal::putWhole() {
    JournalText text;
    text.addHead(m_owner, base::textOf(m_takenOver.filename()));
    addLines(text, m_lines.all());
    if (m_path.empty() ? !startFile(text) : !replaceFile(text))
        return false;
    settle(text, m_lines.all().size());
    std::error_code ignored;
    if (!m_takenOver.empty() && (fs::remove(m_takenOver, ignored) || !ignored))
        m_takenOver.clear();
    return true;
}

void OrderJournal::addLines(JournalText& text, const std::vector<JournalLines::Line>& lines) const {
    for (const auto& line : lines) {
        const auto product = m_catalog.products.at(line.product);
        text.addLine({std::string(product.code()), std::string(product.descriptionLine()), line.quantity,
                      product.price(), product.taxRate(), line.product});
    }
    m_catalog.products.requireRead();
    if (m_hasLeft)
        text.addMark(keyword::left);
    text.end(m_lines.count(), m_totals.order, m_clock());
}

bool OrderJournal::startFile(const JournalText& text) {
    std::error_code ignored;
    fs::create_directories(m_folder, ignored);
    m_path = create(m_file, m_folder, m_clock());
    return !m_path.empty() && m_file.append(text.bytes());
}

bool OrderJournal::replaceFile(const JournalText& text) {
    m_file.close(); // a system may refuse to replace a file that is open
    try {
        std::error_code ignored;
        fs::create_directories(m_folder, ignored);
        base::replaceFileDurably(m_path, text.bytes());
    } catch (const base::FileError&) {
        return false;
    }
    return m_file.open(m_path);
}

bool OrderJournal::removeFile() {
    if (m_path.empty())
        return true;
    m_file.close();
    std::error_code error;
    fs::remove(m_path, error);
    if (error)
        static_cast<void>(m_file.open(m_path)); // which shows at the next attempt to write
    else
        m_path.clear();
    return !error;
}

void OrderJournal::settle(const JournalText& text, std::size_t writtenLines) {
    m_check = text.check();
    m_fileLines = writtenLines;
    m_lines.settle();
    m_isBehind = m_hasFailed = m_isFailureTold = false;
    m_pause = m_lastPause = 0;
}

void OrderJournal::fail() {
    constexpr int longest = 32;
    m_isBehind = m_hasFailed = true;
    m_lastPause = std::min(longest, m_lastPause * 2 + 1);
    m_pause = m_lastPause;
}

}
