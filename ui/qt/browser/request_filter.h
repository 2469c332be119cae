#pragma once

#include "pages/browse/page_files.h"

#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>

namespace ui::qt {

/// Stands between pages and everything they ask for: files that `PageFiles` gives out pass, under their
/// true letter case; data inside the page passes; all else, the network first, is blocked.
class RequestFilter final : public QWebEngineUrlRequestInterceptor {
public:
    explicit RequestFilter(pages::PageFiles files) : m_files(std::move(files)) {}

    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

    /// The one file that the main frame may load by address, without a place in it, for pages too large to
    /// hand over.
    void allowPage(const QUrl& address) { m_allowedPage = address; }

private:
    void filterFile(QWebEngineUrlRequestInfo& info) const;

    pages::PageFiles m_files;
    QUrl m_allowedPage;
};

}
