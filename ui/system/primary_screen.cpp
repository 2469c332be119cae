#include "ui/system/primary_screen.h"

#include <QGuiApplication>
#include <QScreen>

namespace ui::system {

platform::ScreenSize PrimaryScreen::size() const {
    const auto* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return {};
    const auto pixels = screen->size().toSizeF() * screen->devicePixelRatio();
    return {qRound(pixels.width()), qRound(pixels.height())};
}

}
