#include "Ink.h"
#include "PartLibrary.h"
#include "Parts.h"
#include "Shapes.h"

#include <QPainter>

namespace lumo
{
namespace
{

QPainterPath bodyOutline()
{
    QPainterPath path(QPointF(64, 40));
    path.cubicTo(86, 40, 101, 60, 101, 84);
    path.cubicTo(101, 107, 86, 118, 64, 118);
    path.cubicTo(42, 118, 27, 107, 27, 84);
    path.cubicTo(27, 60, 42, 40, 64, 40);
    path.closeSubpath();
    return path;
}

void paintAntenna(QPainter& p)
{
    QPainterPath stalk(QPointF(63, 44));
    stalk.quadTo(62, 30, 68, 22);
    strokeRound(p, stalk, 5.0, ink::outline);
    strokeRound(p, stalk, 1.6, ink::bodyShade);
    fillOutlined(p, ellipsePath({69, 18}, 6.5, 6.5), ink::bulb);
    p.fillPath(ellipsePath({67, 16}, 1.8, 1.8), ink::eyeShine);
}

void paintBody(QPainter& p)
{
    for (const double footX : {50.0, 78.0})
        fillOutlined(p, ellipsePath({footX, 118.5}, 10, 5.5), ink::bodyShade);
    paintAntenna(p);

    const QPainterPath body = bodyOutline();
    p.fillPath(body, ink::body);
    p.save();
    p.setClipPath(body);
    // Light from the upper left: a shaded crescent on the lower right, a sheen on the top left.
    p.fillPath(body.subtracted(body.translated(-5, -6)), ink::bodyShade);
    p.fillPath(ellipsePath({64, 106}, 20, 10), ink::belly);
    p.restore();
    p.save();
    p.translate(45, 54);
    p.rotate(-35);
    p.fillPath(ellipsePath({0, 0}, 7, 3.5), ink::bodyLight);
    p.restore();
    for (const double cheekX : {41.0, 87.0})
        p.fillPath(ellipsePath({cheekX, 81}, 5.5, 3.2), ink::cheek);
    p.strokePath(body, QPen(ink::outline, ink::outlineWidth));
}

} // namespace

void addBodyParts(PartLibrary& library)
{
    library.add(QStringLiteral("body"), paintBody);
}

} // namespace lumo
