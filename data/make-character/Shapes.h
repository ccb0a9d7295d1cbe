#pragma once

#include "Ink.h"

#include <QColor>
#include <QPainterPath>
#include <QPointF>

class QPainter;

// Drawing helpers shared by the parts, in the coordinates of the 128 x 128 frame.
namespace lumo
{

QPainterPath ellipsePath(QPointF centre, double rx, double ry);

// A four-pointed sparkle star of radius r.
QPainterPath starPath(QPointF centre, double r);

// Fills a closed shape and draws the character's outline around it.
void fillOutlined(QPainter& painter, const QPainterPath& shape, const QColor& fill,
                  double outlineWidth = ink::outlineWidth);

// Strokes an open path with round ends, e.g. a closed eye or a smile.
void strokeRound(QPainter& painter, const QPainterPath& path, double width, const QColor& colour);

// A stubby limb from `from` to `to`, outlined, ending in a round hand.
void drawLimb(QPainter& painter, QPointF from, QPointF to, const QColor& fill);

} // namespace lumo
