#pragma once

#include <QStringList>

namespace tour {

/// How the desktop in front of which the tour sits has been set up. The screen's size and scaling are the
/// display's; these are what a desktop's settings would tell the program.
struct Look {
    bool dark = false;
    double fontPoints = 0; ///< 0 leaves the font as it is
};

/// To be called before the first window is made. There is no desktop in a virtual display, so a dark one is
/// stood for by the toolkit's own style with a dark palette.
void apply(const Look& look);

}
