#include "Ink.h"
#include "PartLibrary.h"
#include "Parts.h"
#include "Shapes.h"

#include <QPainter>
#include <array>

namespace lumo
{
namespace
{

constexpr std::array<QPointF, 2> eyeCentres{QPointF(51, 68), QPointF(77, 68)};

PartPainter openEyes(QPointF look, double rx = 5.0, double ry = 7.0)
{
    return [=](QPainter& p) {
        for (const QPointF& centre : eyeCentres) {
            const QPointF eye = centre + look;
            p.fillPath(ellipsePath(eye, rx, ry), ink::outline);
            p.fillPath(ellipsePath(eye + QPointF(1.6, -2.6), rx * 0.4, rx * 0.4), ink::eyeShine);
            p.fillPath(ellipsePath(eye + QPointF(-1.6, 2.8), 1.0, 1.0), ink::eyeShine);
        }
    };
}

// Squinting rather than a flat lid, which reads as a frown at this size.
void paintHalfOpenEyes(QPainter& p)
{
    for (const QPointF& centre : eyeCentres) {
        const QPointF eye = centre + QPointF(0, 2);
        p.fillPath(ellipsePath(eye, 5.2, 3.4), ink::outline);
        p.fillPath(ellipsePath(eye + QPointF(1.6, -1.0), 1.4, 1.2), ink::eyeShine);
    }
}

// A curve through the eye: bending down for closed eyes, up for smiling ones.
PartPainter eyeArcs(double bend)
{
    return [=](QPainter& p) {
        for (const QPointF& eye : eyeCentres) {
            QPainterPath arc(eye + QPointF(-5.5, -bend / 2));
            arc.quadTo(eye + QPointF(0, bend * 1.5), eye + QPointF(5.5, -bend / 2));
            strokeRound(p, arc, 2.6, ink::outline);
        }
    };
}

// Every mouth first covers the neutral smile with skin, so it can be laid over any face.
void paintSkinPatch(QPainter& p)
{
    p.fillPath(ellipsePath({mouthX, mouthY + 0.5}, 8.5, 4.8), ink::body);
}

void paintClosedMouth(QPainter& p)
{
    paintSkinPatch(p);
    QPainterPath smile(QPointF(mouthX - 5.5, mouthY - 1.5));
    smile.quadTo(mouthX, mouthY + 3.5, mouthX + 5.5, mouthY - 1.5);
    strokeRound(p, smile, 2.2, ink::outline);
}

PartPainter wideMouth(int openness)
{
    return [=](QPainter& p) {
        paintSkinPatch(p);
        const double halfWidth = 5.5 + 0.5 * openness;
        const double depth = 1.5 + 2.0 * openness;
        const double top = mouthY - 2;
        QPainterPath shape(QPointF(mouthX - halfWidth, top));
        shape.quadTo(mouthX, top + 1, mouthX + halfWidth, top);
        shape.cubicTo(mouthX + halfWidth, top + depth * 1.3, mouthX - halfWidth, top + depth * 1.3,
                      mouthX - halfWidth, top);
        shape.closeSubpath();
        p.fillPath(shape, ink::mouth);
        if (openness >= 2) {
            p.save();
            p.setClipPath(shape);
            p.fillPath(ellipsePath({mouthX + 1, top + depth}, halfWidth * 0.6, depth * 0.35),
                       ink::tongue);
            p.restore();
        }
        p.strokePath(shape, QPen(ink::outline, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    };
}

PartPainter roundMouth(double rx, double ry)
{
    return [=](QPainter& p) {
        paintSkinPatch(p);
        const QPainterPath shape = ellipsePath({mouthX, mouthY + 1}, rx, ry);
        p.fillPath(shape, ink::mouth);
        p.strokePath(shape, QPen(ink::outline, 2.0));
    };
}

} // namespace

QString mouthPart(int mouthShape)
{
    static const std::array<QString, 7> names{
        QStringLiteral("mouth.closed"), QStringLiteral("mouth.wide1"),
        QStringLiteral("mouth.wide2"),  QStringLiteral("mouth.wide3"),
        QStringLiteral("mouth.wide4"),  QStringLiteral("mouth.medium"),
        QStringLiteral("mouth.narrow")};
    return names.at(static_cast<std::size_t>(mouthShape));
}

void addFaceParts(PartLibrary& library)
{
    library.add(QStringLiteral("eyes.open"), openEyes({0, 0}));
    library.add(QStringLiteral("eyes.left"), openEyes({-3.5, 0}));
    library.add(QStringLiteral("eyes.right"), openEyes({3.5, 0}));
    library.add(QStringLiteral("eyes.up"), openEyes({0, -3}));
    library.add(QStringLiteral("eyes.down"), openEyes({0, 3.5}));
    library.add(QStringLiteral("eyes.wide"), openEyes({0, -1}, 5.8, 8.0));
    library.add(QStringLiteral("eyes.half"), paintHalfOpenEyes);
    library.add(QStringLiteral("eyes.closed"), eyeArcs(3.0));
    library.add(QStringLiteral("eyes.happy"), eyeArcs(-4.0));

    library.add(mouthPart(0), paintClosedMouth);
    for (int openness = 1; openness <= 4; ++openness)
        library.add(mouthPart(openness), wideMouth(openness));
    library.add(mouthPart(5), roundMouth(4.2, 5.0));
    library.add(mouthPart(6), roundMouth(2.8, 3.2));
}

} // namespace lumo
