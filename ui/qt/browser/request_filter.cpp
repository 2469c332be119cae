#include "ui/qt/browser/request_filter.h"

#include "ui/qt/widgets/qt_text.h"

namespace ui::qt {
namespace {

pages::Resource resourceOf(QWebEngineUrlRequestInfo::ResourceType type) {
    switch (type) {
    case QWebEngineUrlRequestInfo::ResourceTypeSubFrame:
    case QWebEngineUrlRequestInfo::ResourceTypeObject:
        return pages::Resource::frame;
    case QWebEngineUrlRequestInfo::ResourceTypeImage:
        return pages::Resource::picture;
    case QWebEngineUrlRequestInfo::ResourceTypeStylesheet:
        return pages::Resource::style;
    case QWebEngineUrlRequestInfo::ResourceTypeScript:
        return pages::Resource::script;
    case QWebEngineUrlRequestInfo::ResourceTypeFontResource:
        return pages::Resource::font;
    case QWebEngineUrlRequestInfo::ResourceTypeMedia:
        return pages::Resource::media;
    default:
        return pages::Resource::other;
    }
}

}

void RequestFilter::interceptRequest(QWebEngineUrlRequestInfo& info) {
    const auto url = info.requestUrl();
    const bool mainFrame = info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame;
    if (url.scheme() == "data" ||
        (mainFrame && (url.adjusted(QUrl::RemoveFragment) == m_allowedPage || url.scheme() == "about")))
        return;
    if (url.isLocalFile() && url.host().isEmpty() && !mainFrame)
        filterFile(info);
    else
        info.block(true);
}

void RequestFilter::filterFile(QWebEngineUrlRequestInfo& info) const {
    const auto asked = pathFromQt(info.requestUrl().toLocalFile());
    const auto found = m_files.find(asked, resourceOf(info.resourceType()));
    if (!found)
        info.block(true);
    else if (*found != asked)
        info.redirect(QUrl::fromLocalFile(pathToQt(*found)));
}

}
