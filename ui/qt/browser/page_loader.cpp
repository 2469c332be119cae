#include "ui/qt/browser/page_loader.h"

#include "base/charset.h"
#include "base/code_page.h"
#include "base/files.h"
#include "ui/qt/widgets/qt_text.h"

#include <QUrl>

#include <utility>

namespace ui::qt {
namespace {

// What is handed over to the browser may take 2 MiB percent-encoded; a byte takes at most three.
constexpr std::size_t largestHandedOver = 2U * 1024 * 1024 / 3 - 4096;

std::filesystem::path copyPath(const std::filesystem::path& file, const std::string& mark) {
    auto name = file.stem();
    name += "." + mark;
    name += file.extension();
    return file.parent_path() / name;
}

QUrl addressOf(const std::filesystem::path& file, std::string_view place) {
    auto address = QUrl::fromLocalFile(pathToQt(file));
    if (place.starts_with('#'))
        address.setFragment(QString::fromUtf8(place.substr(1)));
    return address;
}

// With a mark that settles the encoding, so that the browser does not guess it from the bytes.
std::string marked(std::string_view bytes, const std::string& charset) {
    if (charset == "windows-1252")
        return "\xEF\xBB\xBF" + base::toUtf8(bytes);
    return std::string(bytes);
}

}

PageLoader::PageLoader(ConfinedPage& page, ConfinedProfile& profile, std::string copyMark)
    : m_page(page), m_profile(profile), m_copyMark(std::move(copyMark)) {}

PageLoader::~PageLoader() {
    finish();
}

void PageLoader::load(const std::filesystem::path& file, std::string_view bytes, std::string_view place) {
    if (bytes.size() <= largestHandedOver)
        handOver(file, bytes, place);
    else
        loadCopy(file, bytes, place);
}

void PageLoader::handOver(const std::filesystem::path& file, std::string_view bytes, std::string_view place) {
    const auto charset = QString::fromStdString(base::declaredCharset(bytes));
    m_page.startLoad([&] {
        m_page.setContent(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())),
                          "text/html;charset=" + charset, addressOf(file, place));
    });
}

// The browser takes no more than so many bytes from memory, so the page is read from a file beside its
// own. The number behind its address makes it a new page each time, which opens at its top.
void PageLoader::loadCopy(const std::filesystem::path& file, std::string_view bytes, std::string_view place) {
    m_copy = copyPath(file, m_copyMark);
    base::overwriteFile(m_copy, marked(bytes, base::declaredCharset(bytes)));
    auto address = addressOf(m_copy, place);
    address.setQuery(QString::number(++m_copies));
    m_profile.filter().allowPage(address.adjusted(QUrl::RemoveFragment));
    m_page.startLoad([&] { m_page.load(address); });
}

void PageLoader::finish() {
    std::error_code ignored;
    if (!m_copy.empty())
        std::filesystem::remove(std::exchange(m_copy, {}), ignored);
}

}
