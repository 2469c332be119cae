#pragma once

#include "samples/draw_pictures/studio.h"

/// Bolts, nuts, washers, screws and what holds them in the wall. Sizes are millimetres; what is drawn
/// has the proportions of the real thing, except that very slender things are drawn shorter.
namespace drawing {

enum class Finish { zinc, stainless, black, galvanised, brass, yellowZinc, bright };

[[nodiscard]] Material metal(Finish finish);

/// Diameter and length as the description gives them.
struct Size {
    qreal diameter = 8;
    qreal length = 40;
};

void hexBolt(QPainter& painter, Size size, Finish finish, bool fullThread);
void socketCapScrew(QPainter& painter, Size size, Finish finish);
void carriageBolt(QPainter& painter, Size size, Finish finish);

void hexNut(QPainter& painter, qreal diameter, Finish finish, bool nylonInsert);
void wingNut(QPainter& painter, qreal diameter, Finish finish);
void domeNut(QPainter& painter, qreal diameter, Finish finish);

void washer(QPainter& painter, qreal inside, qreal outside, Finish finish);
void springWasher(QPainter& painter, qreal inside, Finish finish);

void woodScrew(QPainter& painter, Size size, Finish finish, bool bugleHead);
void coachScrew(QPainter& painter, Size size, Finish finish);
void wallPlug(QPainter& painter, Size size);
void sleeveAnchor(QPainter& painter, Size size, Finish finish);
void wireNails(QPainter& painter, Size size, Finish finish);

}
