#include "ui/qt/news/news_desk.h"

#include "base/errors.h"
#include "order/news/catalog_news.h"
#include "order/news/news_page.h"
#include "pages/browse/link_rules.h"
#include "ui/qt/widgets/qt_text.h"
#include "ui/system/lost_pages.h"

#include <QFileInfo>
#include <QLocale>

#include <exception>
#include <utility>

namespace ui::qt {
namespace {

using catalog::ParameterText;

constexpr auto comparing = "The catalogue is being compared with the one that you had before...";
constexpr auto noneBefore = "There is no earlier catalogue to compare with.\n"
                            "When your supplier sends an update, what is new in it is told here.";

order::NewsPageTexts textsOf(const catalog::Parameters& parameters, const QString& since) {
    return {fromQt(since), parameters.text(ParameterText::currency), parameters.chargesTax()};
}

/// Empty when it was stopped.
std::string comparedPage(const catalog::Catalog& now, const std::filesystem::path& folder,
                         const std::vector<std::string>& ordered, const order::NewsPageTexts& texts,
                         const std::stop_token& stop) {
    try {
        const auto earlier = order::openEarlier(folder);
        const system::LostPages lostPages(earlier.openFiles());
        const auto news = order::newsOf(now, earlier, ordered, stop);
        return news ? order::newsPage(*news, texts) : std::string();
    } catch (const base::FileError& error) {
        return order::newsNotice(error.what());
    }
}

}

NewsDesk::NewsDesk(Surroundings surroundings) : m_around(std::move(surroundings)) {}

NewsDesk::~NewsDesk() = default;

void NewsDesk::look() {
    m_folder = m_around.previous.folder();
}

QString NewsDesk::since() const {
    if (!m_folder)
        return {};
    const QFileInfo products(pathToQt(*m_folder / catalog::productsFile));
    return QLocale(QLocale::English).toString(products.lastModified().date(), "d MMMM yyyy");
}

void NewsDesk::show() {
    if (!m_window) {
        m_window = std::make_unique<NewsWindow>(
            m_around.guard, [this](const QUrl& address) { follow(address); }, &m_around.window);
        connect(m_window.get(), &NewsWindow::closed, this, [this] { m_comparison.request_stop(); });
    }
    m_window->showPage(pageFolder() / order::newsPageName,
                       order::newsNotice(m_folder ? comparing : noneBefore));
    m_window->bringUp();
    if (!m_folder)
        return;
    m_around.previous.markSeen();
    compare();
}

// What the comparison throws ends it, and is thrown again where everything is caught.
void NewsDesk::compare() {
    m_comparison = {}; // one at a time
    auto work = [this, folder = *m_folder, ordered = m_around.orderedCodes(),
                 texts = textsOf(m_around.catalog.parameters, since())](const std::stop_token& stop) {
        std::string page;
        std::exception_ptr failure;
        try {
            page = comparedPage(m_around.catalog, folder, ordered, texts, stop);
        } catch (...) { // Deliberate: carried over to the window's thread
            failure = std::current_exception();
        }
        const auto arrive = [this, page, failure] {
            if (failure)
                std::rethrow_exception(failure);
            present(page);
        };
        QMetaObject::invokeMethod(this, m_around.guard(arrive), Qt::QueuedConnection);
    };
    m_comparison = std::jthread(std::move(work));
}

void NewsDesk::present(const std::string& page) {
    if (page.empty() || !m_window->isVisible())
        return;
    const auto file = pageFolder() / order::newsPageName;
    try {
        m_window->showPage(file, page);
    } catch (const base::FileError& error) {
        m_window->showPage(file, order::newsNotice(error.what()));
    }
}

// By the same rules as the links of a catalogue's pages, in which the user's folder has this page.
void NewsDesk::follow(const QUrl& address) {
    const auto& folders = m_around.folders;
    const pages::LinkRules links(m_around.catalog, {folders.ProgramFolder, folders.DataFolder, pageFolder()});
    const auto end = links.follow(address.toEncoded().toStdString());
    if (const auto* product = std::get_if<pages::LeadsToProduct>(&end))
        m_around.choose(product->record);
}

std::filesystem::path NewsDesk::pageFolder() const {
    return m_folder.value_or(m_around.folders.UserFolder);
}

void NewsDesk::close() {
    if (m_window)
        m_window->close();
}

}
