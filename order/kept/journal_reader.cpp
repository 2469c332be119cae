#include "order/kept/journal_reader.h"

#include "base/code_page.h"
#include "base/numbers.h"
#include "base/text.h"
#include "order/kept/check_sum.h"
#include "order/kept/journal_text.h"
#include "order/kept/time_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <unordered_map>

namespace order {
namespace {

using Fields = std::vector<std::string_view>;

/// The number that the whole text is.
template <typename Number, typename... Form>
std::optional<Number> numberOf(std::string_view text, Form... form) {
    Number value{};
    const auto* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value, form...);
    if (read.ec != std::errc{} || read.ptr != end)
        return std::nullopt;
    return value;
}

std::optional<float> singleOf(std::string_view text) {
    const auto value = numberOf<float>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<std::string> textOf(std::string_view field) {
    std::string utf8;
    for (auto at = field.find('\\'); at != std::string_view::npos; at = field.find('\\')) {
        utf8 += field.substr(0, at);
        const auto rest = field.substr(at + 1);
        const bool isHex = rest.starts_with('x') && rest.size() >= 3;
        const auto value = isHex ? numberOf<unsigned char>(rest.substr(1, 2), 16) : std::nullopt;
        if (!value && !rest.starts_with('\\'))
            return std::nullopt;
        utf8 += value ? static_cast<char>(*value) : '\\';
        field = rest.substr(value ? 3 : 1);
    }
    return base::fromUtf8(utf8.append(field));
}

std::optional<UnfinishedLine> lineOf(const Fields& fields) {
    constexpr std::size_t count = 7;
    if (fields.size() != count)
        return std::nullopt;
    const auto record = numberOf<std::int32_t>(fields[1]);
    const auto quantity = singleOf(fields[2]);
    const auto price = singleOf(fields[3]);
    const auto rate = singleOf(fields[4]);
    const auto code = textOf(fields[5]);
    const auto description = textOf(fields[6]);
    if (!record || !quantity || !price || !rate || !code || !description)
        return std::nullopt;
    return UnfinishedLine{*code, *description, *quantity, *price, *rate, *record};
}

/// Goes through the lines and takes each batch once it has ended well.
class JournalReader {
public:
    explicit JournalReader(std::string_view bytes) : m_bytes(bytes) {}

    JournalContents read() {
        for (m_contents.end = readTitle(); m_contents.end == End::whole;) {
            m_contents.end = readBatch();
            if (m_at == m_bytes.size())
                break;
        }
        return m_contents;
    }

private:
    using End = JournalContents::End;

    /// The next line without its end; nothing when it has none.
    std::optional<std::string_view> nextLine() {
        const auto end = m_bytes.find('\n', m_at);
        if (end == std::string_view::npos)
            return std::nullopt;
        const auto line = m_bytes.substr(m_at, end - m_at);
        m_at = end + 1;
        return line;
    }

    End readTitle() {
        const auto line = nextLine();
        const auto begun = m_bytes.substr(0, journalTitle.size());
        if (!line)
            return journalTitle.starts_with(begun) ? End::torn : End::foreign;
        const auto version = numberOf<int>(line->substr(std::min(line->size(), journalTitle.size())));
        if (begun != journalTitle || !version)
            return End::foreign;
        return *version == journalVersion  ? End::whole
               : *version > journalVersion ? End::newer
                                           : End::damaged;
    }

    // Nothing of a batch is taken before its check line was found to be right.
    End readBatch() {
        std::vector<Fields> batch;
        for (auto line = nextLine(); line; line = nextLine()) {
            batch.push_back(base::split(*line, '\t'));
            if (batch.back()[0] == keyword::end)
                return isRight(batch.back()) && take(batch) ? End::whole : End::damaged;
        }
        return End::torn;
    }

    [[nodiscard]] bool isRight(const Fields& end) {
        constexpr std::size_t count = 5, digits = 8;
        if (end.size() != count || end[4].size() != digits)
            return false;
        const auto written = numberOf<std::uint32_t>(end[4], 16);
        const auto checkAt = static_cast<std::size_t>(end[4].data() - m_bytes.data());
        const auto batch = m_bytes.substr(m_contents.wholeBytes, checkAt - m_contents.wholeBytes);
        return written && checkSum(m_contents.check, batch) == *written;
    }

    bool take(const std::vector<Fields>& lines) {
        JournalContents batch;
        if (!std::all_of(lines.begin(), lines.end(), [&](const Fields& line) { return read(line, batch); }))
            return false;
        if (m_contents.wholeBytes == 0) {
            m_contents.owner = batch.owner;
            m_contents.takenOver = batch.takenOver;
        }
        m_contents.hasLeft = batch.hasLeft || (m_contents.hasLeft && batch.lines.empty());
        m_contents.isForLater = batch.isForLater || (m_contents.isForLater && batch.lines.empty());
        m_contents.lineCount = batch.lineCount;
        m_contents.total = batch.total;
        m_contents.changed = batch.changed;
        for (auto& line : batch.lines)
            put(std::move(line));
        m_contents.check =
            checkSum(m_contents.check, m_bytes.substr(m_contents.wholeBytes, m_at - m_contents.wholeBytes));
        m_contents.wholeBytes = m_at;
        return true;
    }

    void put(UnfinishedLine line) {
        const auto [known, isNew] = m_lineOf.try_emplace(line.record, m_contents.lines.size());
        if (isNew)
            m_contents.lines.push_back(std::move(line));
        else
            m_contents.lines[known->second] = std::move(line);
    }

    // One line of a batch; false when it makes no sense.
    [[nodiscard]] bool read(const Fields& fields, JournalContents& batch) const {
        const auto name = fields[0];
        if (name == keyword::line)
            return readProduct(fields, batch);
        if (name == keyword::end)
            return readEnd(fields, batch);
        if (fields.size() == 1) {
            batch.hasLeft = batch.hasLeft || name == keyword::left;
            batch.isForLater = batch.isForLater || name == keyword::later;
            return name == keyword::left || name == keyword::later;
        }
        return m_contents.wholeBytes == 0 && fields.size() == 2 && readHead(name, fields[1], batch);
    }

    static bool readHead(std::string_view name, std::string_view field, JournalContents& batch) {
        const auto text = textOf(field);
        if (!text)
            return false;
        if (name == keyword::folder)
            batch.owner.dataFolder = base::pathOf(*text);
        else if (name == keyword::supplier)
            batch.owner.supplier = *text;
        else if (name == keyword::catalogue)
            batch.owner.catalogName = *text;
        else if (name == keyword::takesOver)
            batch.takenOver = *text;
        else
            return false;
        return true;
    }

    static bool readProduct(const Fields& fields, JournalContents& batch) {
        auto line = lineOf(fields);
        if (line)
            batch.lines.push_back(std::move(*line));
        return line.has_value();
    }

    static bool readEnd(const Fields& fields, JournalContents& batch) {
        const auto lines = numberOf<std::uint64_t>(fields[1]);
        const auto total = base::wholeNumber(fields[2]);
        const auto time = timeOf(fields[3]);
        if (!lines || !total || !time)
            return false;
        batch.lineCount = *lines;
        batch.total = *total;
        batch.changed = *time;
        return true;
    }

    std::string_view m_bytes;
    std::size_t m_at = 0;
    JournalContents m_contents;
    std::unordered_map<std::int32_t, std::size_t> m_lineOf; // by record
};

}

JournalContents readJournal(std::string_view bytes) {
    return JournalReader(bytes).read();
}

}
