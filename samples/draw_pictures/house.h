#pragma once

#include "samples/draw_pictures/studio.h"

#include <QString>

#include <optional>
#include <vector>

namespace drawing {

/// A product as its picture needs it.
struct Subject {
    QString group; ///< name of the group that holds it
    QString code;
    QString description;
    QString other;
};

/// How one supplier's catalogue looks.
struct House {
    Backdrop backdrop;
    Posture posture;
    Drawer (*drawerFor)(const Subject& subject); ///< empty for a group that it has no picture for
    QImage (*logo)();
};

/// The house of a supplier's folder; none for a folder that has no pictures of its own.
[[nodiscard]] std::optional<House> houseOf(const QString& supplier);

[[nodiscard]] Drawer hardware(const Subject& subject);
[[nodiscard]] Drawer groceries(const Subject& subject);

/// What stands on the page in place of a picture that does not exist.
[[nodiscard]] QImage noPicture(const Backdrop& backdrop);

[[nodiscard]] QImage orrendaleLogo();
[[nodiscard]] QImage sonderhavenLogo();

}
