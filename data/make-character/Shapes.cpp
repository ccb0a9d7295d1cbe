#include "Shapes.h"

#include "Ink.h"

#include <QPainter>
#include <cmath>
#include <numbers>

namespace lumo
{

QPainterPath ellipsePath(QPointF centre, double rx, double ry)
{
    QPainterPath path;
    path.addEllipse(centre, rx, ry);
    return path;
}

QPainterPath starPath(QPointF centre, double r)
{
    QPainterPath path;
    const double waist = r * 0.4;
    for (int i = 0; i < 8; ++i) {
        const double angle = i * std::numbers::pi / 4 - std::numbers::pi / 2;
        const double radius = (i % 2 == 0) ? r : waist;
        const QPointF point = centre + QPointF(std::cos(angle), std::sin(angle)) * radius;
        if (i == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    path.closeSubpath();
    return path;
}

void fillOutlined(QPainter& painter, const QPainterPath& shape, const QColor& fill,
                  double outlineWidth)
{
    painter.fillPath(shape, fill);
    painter.strokePath(
        shape, QPen(ink::outline, outlineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void strokeRound(QPainter& painter, const QPainterPath& path, double width, const QColor& colour)
{
    painter.strokePath(path, QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void drawLimb(QPainter& painter, QPointF from, QPointF to, const QColor& fill)
{
    constexpr double thickness = 10.0;
    constexpr double handRadius = 6.2;
    QPainterPath bone(from);
    bone.lineTo(to);
    strokeRound(painter, bone, thickness + 2 * ink::outlineWidth, ink::outline);
    strokeRound(painter, bone, thickness, fill);
    fillOutlined(painter, ellipsePath(to, handRadius, handRadius), fill);
}

} // namespace lumo
