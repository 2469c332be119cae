#include "ui/qt/widgets/qt_text.h"

#include "base/code_page.h"

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

QString pathToQt(const std::filesystem::path& path) {
    return QString::fromStdU16String(path.u16string());
}

std::filesystem::path pathFromQt(const QString& path) {
    return {path.toStdU16String()};
}

}
