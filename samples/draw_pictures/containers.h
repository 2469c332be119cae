#pragma once

#include "samples/draw_pictures/studio.h"

#include <QString>

/// Tins, jars, bottles, bags and boxes with a label.
namespace drawing {

struct Label {
    QString title; ///< set in as many lines as it needs
    QString fine;  ///< one small line below
    QColor paper;
    QColor ink;
};

void teaTin(QPainter& painter, const QColor& lacquered, const Label& label);
void bag(QPainter& painter, const QColor& paper, const Label& label, bool withValve);
void spiceJar(QPainter& painter, const QColor& content, const Label& label);
void jamJar(QPainter& painter, const QColor& content, const QColor& lid, const Label& label);
void mustardPot(QPainter& painter, const QColor& glaze, const Label& label);
void bottle(QPainter& painter, const QColor& content, const Label& label);
void chocolateBar(QPainter& painter, const QColor& wrapper, const QColor& chocolate, const Label& label);
void biscuitBox(QPainter& painter, const QColor& colour, const Label& label);
void fishTin(QPainter& painter, const QColor& colour, const Label& label);

}
