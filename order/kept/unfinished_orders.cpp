#include "order/kept/unfinished_orders.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "order/kept/journal_reader.h"
#include "order/kept/journal_text.h"

#include <algorithm>
#include <optional>
#include <set>
#include <system_error>
#include <utility>

namespace order {
namespace fs = std::filesystem;

namespace {

using End = JournalContents::End;

constexpr std::string_view ending = ".order";

/// A journal's bytes; nothing for a file that cannot be read or is larger than any order.
std::optional<std::string> bytesOf(const fs::path& file) {
    constexpr std::uintmax_t largest = 1U << 29U;
    std::error_code error;
    return fs::file_size(file, error) <= largest && !error ? base::readFile(file) : std::nullopt;
}

std::string complaint(const fs::path& file, std::string_view what) {
    return "The unfinished order " + base::textOf(file) + std::string(what);
}

/// What the user must know of the file; empty when all is well. A batch that was not ended is the usual end
/// of a program that was killed.
std::string complaintOf(const fs::path& file, const JournalContents& contents) {
    switch (contents.end) {
    case End::newer:
        return complaint(file, " was written by a newer version of this program, which can open it.");
    case End::foreign:
        return complaint(file, " is damaged: nothing of it can be read.");
    case End::damaged:
        return complaint(file, contents.wholeBytes == 0 ? " is damaged: nothing of it can be read."
                                                        : " is damaged: what was typed last is missing.");
    case End::whole:
    case End::torn:
        break;
    }
    return {};
}

/// Whether this is the owner's order, or nobody's any more.
bool concerns(const JournalOwner& of, const JournalOwner& owner) {
    std::error_code ignored;
    if (!base::equalIgnoringCase(of.supplier, owner.supplier))
        return false;
    return base::textOf(of.dataFolder) == base::textOf(owner.dataFolder) ||
           !fs::exists(of.dataFolder, ignored) || fs::equivalent(of.dataFolder, owner.dataFolder, ignored);
}

UnfinishedOrder orderOf(const fs::path& file, JournalContents contents) {
    std::erase_if(contents.lines, [](const UnfinishedLine& line) { return line.quantity == 0; });
    return {file,           std::move(contents.owner), contents.changed, std::move(contents.lines),
            contents.total, contents.isForLater};
}

/// The journals of a folder as they are read one after the other.
class FoundJournals {
public:
    explicit FoundJournals(const JournalOwner& owner) : m_owner(owner) {}

    void read(const fs::path& file) {
        const auto bytes = bytesOf(file);
        if (!bytes) {
            m_found.complaints.push_back(complaint(file, " cannot be read."));
            return;
        }
        auto contents = readJournal(*bytes);
        if (contents.wholeBytes > 0 && !concerns(contents.owner, m_owner))
            return;
        if (auto text = complaintOf(file, contents); !text.empty())
            m_found.complaints.push_back(std::move(text));
        if (!contents.takenOver.empty())
            m_takenOver.insert(contents.takenOver);
        if (contents.wholeBytes == 0 || contents.hasLeft)
            return;
        if (auto order = orderOf(file, std::move(contents)); !order.lines.empty())
            m_found.orders.push_back(std::move(order));
    }

    // What was taken over by another goes now, if its program was killed before it could do so.
    FoundOrders take() {
        std::erase_if(m_found.orders, [this](const UnfinishedOrder& order) {
            if (!m_takenOver.contains(base::textOf(order.file.filename())))
                return false;
            deleteUnfinished(order);
            return true;
        });
        std::stable_sort(
            m_found.orders.begin(), m_found.orders.end(),
            [](const UnfinishedOrder& a, const UnfinishedOrder& b) { return a.changed > b.changed; });
        return std::move(m_found);
    }

private:
    const JournalOwner& m_owner;
    FoundOrders m_found;
    std::set<std::string> m_takenOver; // names of files
};

}

FoundOrders unfinishedOrders(const fs::path& folder, const JournalOwner& owner) {
    FoundJournals journals(owner);
    for (const auto& file : base::filesEndingWith(folder, ending))
        journals.read(file);
    return journals.take();
}

bool keepForLater(const UnfinishedOrder& order) {
    const auto bytes = bytesOf(order.file);
    const auto contents = readJournal(bytes.value_or(""));
    if (contents.wholeBytes == 0)
        return false;
    JournalText text(contents.check);
    text.addMark(keyword::later);
    text.end(contents.lineCount, contents.total, contents.changed);
    try {
        base::replaceFileDurably(order.file, bytes->substr(0, contents.wholeBytes) + text.bytes());
        return true;
    } catch (const base::FileError&) {
        return false;
    }
}

bool deleteUnfinished(const UnfinishedOrder& order) {
    std::error_code error;
    fs::remove(order.file, error);
    return !error;
}

}
