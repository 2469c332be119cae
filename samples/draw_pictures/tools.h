#pragma once

#include "samples/draw_pictures/fasteners.h"

/// Tools, ironmongery and things to wear.
namespace drawing {

enum class Blade { cross, slotted, star };

void screwdriver(QPainter& painter, Blade blade, qreal width, qreal length, const QColor& handle);
void spanner(QPainter& painter, qreal acrossFlats);
void hexKey(QPainter& painter, qreal acrossFlats);
void twistDrill(QPainter& painter, qreal diameter, bool carbideTip);

void buttHinge(QPainter& painter, qreal height, Finish finish);
void angleBracket(QPainter& painter, qreal side, bool white);

void safetyHelmet(QPainter& painter, const QColor& colour);
void safetyGlasses(QPainter& painter, const QColor& lens);

}
