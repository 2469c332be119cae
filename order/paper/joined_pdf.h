#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace order {

/// Whether this build can join PDFs.
[[nodiscard]] bool canJoinPdfs();

/// PDFs one behind the other as one. Any bytes may be added; nothing of them is kept but the pages.
class JoinedPdf {
public:
    /// Counted from 1 over all pages that are added.
    using Wanted = std::function<bool(int page)>;

    explicit JoinedPdf(Wanted wanted);
    ~JoinedPdf();

    /// Adds the pages but for so many at its beginning and at its end. False where that cannot be: for bytes
    /// that are no PDF or a damaged one, for one without a page more, for pages that are shrunk more or less
    /// than those before. Nothing can be added then.
    [[nodiscard]] bool add(std::string_view pdf, int leaveAtStart, int leaveAtEnd);

    /// How many have been added, those included that nobody wanted.
    [[nodiscard]] int pages() const;

    /// Empty where no page was wanted, or where they make no PDF.
    [[nodiscard]] std::string bytes();

private:
    class Document;
    std::unique_ptr<Document> m_document;
};

}
