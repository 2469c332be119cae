// Draws the program's icon for desktops:
//     draw_icons FOLDER
// as FOLDER/48x48/apps/tavorine.png and so on, and FOLDER/scalable/apps/tavorine.svg.
#include "ui/qt/widgets/icons.h"

#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QSvgGenerator>

#include <cstdio>

namespace {

constexpr int units = 24;

QImage picture(int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(static_cast<double>(size) / units, static_cast<double>(size) / units);
    ui::qt::paintProgramPicture(painter);
    return image;
}

bool writeSvg(const QString& path) {
    QSvgGenerator file;
    file.setFileName(path);
    file.setSize({units, units});
    file.setViewBox(QRect(0, 0, units, units));
    file.setTitle("Tavorine");
    QPainter painter;
    if (!painter.begin(&file))
        return false;
    ui::qt::paintProgramPicture(painter);
    return painter.end();
}

bool draw(const QDir& folder) {
    for (const int size : {16, 24, 32, 48, 64, 128, 256, 512}) {
        const auto place = QStringLiteral("%1x%1/apps").arg(size);
        if (!folder.mkpath(place) || !picture(size).save(folder.filePath(place + "/tavorine.png")))
            return false;
    }
    return folder.mkpath("scalable/apps") && writeSvg(folder.filePath("scalable/apps/tavorine.svg"));
}

}

int main(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: draw_icons FOLDER\n", stderr);
        return 2;
    }
    if (draw(QDir(argv[1])))
        return 0;
    std::fprintf(stderr, "cannot write the icons into %s\n", argv[1]);
    return 1;
}
