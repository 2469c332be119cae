#include "order/paper/joined_pdf.h"

#include "order/paper/page_scale.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <cmath>
#include <exception>
#include <optional>
#include <utility>

namespace order {

class JoinedPdf::Document {
public:
    explicit Document(Wanted wanted) : m_wanted(std::move(wanted)) {
        m_pdf.setSuppressWarnings(true);
        m_pdf.emptyPDF();
    }

    bool add(std::string_view bytes, int leaveAtStart, int leaveAtEnd) {
        QPDF piece;
        piece.setSuppressWarnings(true);
        piece.setImmediateCopyFrom(true); // the bytes go when this returns
        piece.processMemoryFile("piece", bytes.data(), bytes.size());
        auto pages = QPDFPageDocumentHelper(piece).getAllPages();
        if (static_cast<int>(pages.size()) <= leaveAtStart + leaveAtEnd ||
            !isOfSameScale(pages.front().getObjectHandle()))
            return false;
        pages.erase(pages.end() - leaveAtEnd, pages.end());
        pages.erase(pages.begin(), pages.begin() + leaveAtStart);
        for (auto& page : pages)
            if (m_wanted(++m_pages))
                QPDFPageDocumentHelper(m_pdf).addPage(page, false);
        return !piece.anyWarnings() && !m_pdf.anyWarnings(); // else what is missing has been guessed
    }

    [[nodiscard]] int pages() const { return m_pages; }

    std::string bytes() {
        if (QPDFPageDocumentHelper(m_pdf).getAllPages().empty())
            return {};
        QPDFWriter writer(m_pdf);
        writer.setOutputMemory();
        writer.write();
        const auto buffer = writer.getBufferSharedPointer();
        return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
    }

private:
    bool isOfSameScale(const QPDFObjectHandle& page) {
        constexpr double rounding = 1e-6;
        const double scale = pageScale(page);
        if (!m_scale)
            m_scale = scale;
        return std::abs(scale - *m_scale) < rounding;
    }

    Wanted m_wanted;
    QPDF m_pdf;
    std::optional<double> m_scale;
    int m_pages = 0;
};

bool canJoinPdfs() {
    return true;
}

JoinedPdf::JoinedPdf(Wanted wanted) : m_document(std::make_unique<Document>(std::move(wanted))) {}

JoinedPdf::~JoinedPdf() = default;

bool JoinedPdf::add(std::string_view pdf, int leaveAtStart, int leaveAtEnd) {
    try {
        return m_document->add(pdf, leaveAtStart, leaveAtEnd);
    } catch (const std::exception&) { // the library's own words are no person's
        return false;
    }
}

int JoinedPdf::pages() const {
    return m_document->pages();
}

std::string JoinedPdf::bytes() {
    try {
        return m_document->bytes();
    } catch (const std::exception&) {
        return {};
    }
}

}
