#include "fuzz/require.h"
#include "fuzz/sections.h"
#include "order/kept/check_sum.h"
#include "order/kept/journal_reader.h"
#include "order/kept/journal_text.h"

#include <array>
#include <cstdio>
#include <string>

namespace {

/// The sections as batches that have ended well, which no change of a byte at random would make.
std::string journalOf(std::string_view input) {
    std::string bytes;
    std::uint32_t check = 0;
    while (!input.empty()) {
        auto batch = std::string(fuzz::takeSection(input));
        if (bytes.empty())
            batch.insert(0, "Tavorine order 1\n");
        if (!batch.ends_with('\t')) // the section may bring its own end
            batch += "\nso far\t1\t12.30\t2026-11-23T08:09:10Z\t";
        std::array<char, 10> digits{};
        static_cast<void>(
            std::snprintf(digits.data(), digits.size(), "%08X\n", order::checkSum(check, batch)));
        bytes += batch + digits.data();
        check = order::checkSum(0, bytes);
    }
    return bytes;
}

std::string written(const order::JournalContents& contents) {
    order::JournalText text;
    text.addHead(contents.owner, contents.takenOver);
    for (const auto& line : contents.lines)
        text.addLine(line);
    if (contents.hasLeft)
        text.addMark(order::keyword::left);
    if (contents.isForLater)
        text.addMark(order::keyword::later);
    text.end(contents.lineCount, contents.total, contents.changed);
    return text.bytes();
}

void check(std::string_view bytes) {
    using End = order::JournalContents::End;
    const auto read = order::readJournal(bytes);
    fuzz::require(read.wholeBytes <= bytes.size(), "more was read than there is");
    fuzz::require(read.wholeBytes > 0 || read.lines.empty(), "a batch counts that has not ended");
    fuzz::require(read.check == order::checkSum(0, bytes.substr(0, read.wholeBytes)), "another check sum");

    const auto whole = order::readJournal(bytes.substr(0, read.wholeBytes));
    fuzz::require(written(whole) == written(read), "what stands behind the whole batches has changed them");

    const auto text = written(read);
    const auto again = order::readJournal(text);
    fuzz::require(again.end == End::whole, "what was written cannot be read");
    fuzz::require(again.lines.size() == read.lines.size(), "lines were lost");
    fuzz::require(again.owner.dataFolder == read.owner.dataFolder, "another folder");
    fuzz::require(written(again) == text, "reading gives other than was written");
}

}

// Any bytes as a journal, and the same in batches that have ended well: what is read, written and read again
// is the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    check(fuzz::textOf(data, size));
    check(journalOf(fuzz::textOf(data, size)));
    return 0;
}
