#include "ui/qt/widgets/qt_text.h"

#include "base/code_page.h"

#include <QLocale>
#include <QTextDocument>

namespace ui::qt {

QString toQt(std::string_view text) {
    return QString::fromStdString(base::shownAsUtf8(text));
}

std::string fromQt(const QString& text) {
    return base::fromUtf8(text.toStdString());
}

QString asTitle(QString text) {
    return text.replace("[*]", "[*][*]");
}

QString asCaption(QString text) {
    return text.replace('&', "&&");
}

QString asToolTip(const QString& text) {
    return Qt::mightBeRichText(text)
               ? "<span style=\"white-space:pre-wrap\">" + text.toHtmlEscaped() + "</span>"
               : text;
}

// Where the system has no form of its own, versions of the toolkit disagree, down to "23 11 2026".
QString shortDate(const QDate& date) {
    const auto system = QLocale::system();
    const auto none = QLocale::c();
    return system.dateFormat(QLocale::ShortFormat) == none.dateFormat(QLocale::ShortFormat)
               ? none.toString(date, "d MMM yyyy")
               : system.toString(date, QLocale::ShortFormat);
}

QDateTime localTime(std::chrono::system_clock::time_point time) {
    using std::chrono::duration_cast;
    return QDateTime::fromMSecsSinceEpoch(
        duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count());
}

QString pathToQt(const std::filesystem::path& path) {
    return QString::fromStdU16String(path.u16string());
}

std::filesystem::path pathFromQt(const QString& path) {
    return {path.toStdU16String()};
}

}
