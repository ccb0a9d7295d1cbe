#include "Ink.h"
#include "PartLibrary.h"
#include "Parts.h"
#include "Shapes.h"

#include <QPainter>

namespace lumo
{
namespace
{

constexpr double spineX = 64.0;

QPen thinOutline()
{
    return QPen(ink::outline, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

// One page, from the spine out to `edge` (left of the spine when edge < spineX), its outer
// edge raised by `lift` pixels.
QPainterPath pagePath(double edge, double lift)
{
    const double outerTop = 90 - lift;
    const double outerBottom = 108 - lift;
    QPainterPath page(QPointF(spineX, 93));
    page.quadTo((spineX + edge) / 2, 87 - lift, edge, outerTop);
    page.lineTo(edge, outerBottom);
    page.quadTo((spineX + edge) / 2, 105 - lift, spineX, 110);
    page.closeSubpath();
    return page;
}

void paintPage(QPainter& p, double edge, double lift, bool lined)
{
    const QPainterPath page = pagePath(edge, lift);
    p.fillPath(page, ink::page);
    if (lined) {
        const double direction = edge < spineX ? -1 : 1;
        for (int line = 0; line < 3; ++line) {
            const double y = 95 + line * 4.5;
            QPainterPath text(QPointF(spineX + direction * 5, y));
            text.lineTo(spineX + direction * 18, y - 1.5);
            strokeRound(p, text, 1.4, ink::pageLine);
        }
    }
    p.strokePath(page, thinOutline());
}

void paintOpenBook(QPainter& p)
{
    QPainterPath cover(QPointF(39, 91));
    cover.lineTo(spineX, 95);
    cover.lineTo(89, 91);
    cover.lineTo(89, 112);
    cover.lineTo(spineX, 115);
    cover.lineTo(39, 112);
    cover.closeSubpath();
    fillOutlined(p, cover, ink::bookCover);
    paintPage(p, 41, 0, true);
    paintPage(p, 87, 0, true);
}

void paintClosedBook(QPainter& p)
{
    QPainterPath cover;
    cover.addRoundedRect(QRectF(45, 89, 38, 24), 2.5, 2.5);
    fillOutlined(p, cover, ink::bookCover);
    p.fillRect(QRectF(51, 96, 26, 4), ink::page);
    p.fillPath(starPath({64, 106}, 3.5), ink::spark);
}

PartPainter turningPage(double edge, double lift)
{
    return [=](QPainter& p) { paintPage(p, edge, lift, false); };
}

} // namespace

void addPropParts(PartLibrary& library)
{
    library.add(QStringLiteral("book.closed"), paintClosedBook);
    library.add(QStringLiteral("book.open"), paintOpenBook);
    library.add(QStringLiteral("book.turn1"), turningPage(80, 7));
    library.add(QStringLiteral("book.turn2"), turningPage(60, 14));
    library.add(QStringLiteral("book.turn3"), turningPage(47, 5));
}

} // namespace lumo
