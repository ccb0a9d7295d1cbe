#include "Ink.h"
#include "PartLibrary.h"
#include "Parts.h"
#include "Shapes.h"

#include <QPainter>
#include <utility>
#include <vector>

namespace lumo
{
namespace
{

struct Blob {
    QPointF centre;
    double rx;
    double ry;
};

PartPainter sparks(std::vector<Blob> stars)
{
    return [stars = std::move(stars)](QPainter& p) {
        for (const Blob& star : stars)
            fillOutlined(p, starPath(star.centre, star.rx), ink::spark, 1.6);
    };
}

PartPainter puffs(std::vector<Blob> clouds)
{
    return [clouds = std::move(clouds)](QPainter& p) {
        for (const Blob& cloud : clouds)
            fillOutlined(p, ellipsePath(cloud.centre, cloud.rx, cloud.ry), ink::puff);
    };
}

std::vector<Blob> mirrored(std::vector<Blob> blobs)
{
    for (Blob& blob : blobs)
        blob.centre.setX(frameSize - blob.centre.x());
    return blobs;
}

// A light halo keeps the dark letter visible on a dark desktop.
PartPainter sleepLetter(QPointF centre, double size)
{
    return [=](QPainter& p) {
        const double half = size / 2;
        QPainterPath letter(centre + QPointF(-half, -half));
        letter.lineTo(centre + QPointF(half, -half));
        letter.lineTo(centre + QPointF(-half, half));
        letter.lineTo(centre + QPointF(half, half));
        strokeRound(p, letter, 5.6, ink::puff);
        strokeRound(p, letter, 2.4, ink::outline);
    };
}

void paintExclamation(QPainter& p)
{
    QPainterPath bar;
    bar.addRoundedRect(QRectF(99, 6, 11, 6), 3, 3);
    QPainterPath taper(QPointF(99, 9));
    taper.lineTo(110, 9);
    taper.lineTo(106.5, 30);
    taper.lineTo(102.5, 30);
    taper.closeSubpath();
    fillOutlined(p, bar.united(taper), ink::spark);
    fillOutlined(p, ellipsePath({104.5, 37}, 3.6, 3.6), ink::spark);
}

PartPainter glowingBulb(double haloRadius, bool rays)
{
    return [=](QPainter& p) {
        const QPointF bulb(69, 18);
        p.fillPath(ellipsePath(bulb, haloRadius, haloRadius), ink::bulbGlow);
        if (rays) {
            for (const QPointF& direction :
                 {QPointF(-1, 0), QPointF(1, 0), QPointF(-0.7, -0.7), QPointF(0.7, -0.7)}) {
                QPainterPath ray(bulb + direction * (haloRadius + 2));
                ray.lineTo(bulb + direction * (haloRadius + 6));
                strokeRound(p, ray, 4.6, ink::outline);
                strokeRound(p, ray, 2.0, ink::spark);
            }
        }
        fillOutlined(p, ellipsePath(bulb, 6.5, 6.5), ink::bulbGlow);
        p.fillPath(ellipsePath(bulb + QPointF(-2, -2), 1.8, 1.8), ink::eyeShine);
    };
}

} // namespace

void addEffectParts(PartLibrary& library)
{
    library.add(QStringLiteral("spark.small"), sparks({{{64, 84}, 9, 9}, {{50, 70}, 4, 4}}));
    library.add(QStringLiteral("spark.ring"), sparks({{{22, 52}, 6, 6},
                                                      {{106, 50}, 7, 7},
                                                      {{114, 94}, 5, 5},
                                                      {{14, 98}, 5, 5},
                                                      {{40, 22}, 4, 4}}));
    library.add(QStringLiteral("glow.1"), glowingBulb(8.5, false));
    library.add(QStringLiteral("glow.2"), glowingBulb(10.0, true));
    library.add(QStringLiteral("zzz.1"), sleepLetter({93, 44}, 6));
    library.add(QStringLiteral("zzz.2"), sleepLetter({103, 31}, 8));
    library.add(QStringLiteral("zzz.3"), sleepLetter({114, 16}, 10));
    library.add(QStringLiteral("bang"), paintExclamation);

    const std::vector<Blob> trail{{{14, 66}, 8, 4}, {{9, 84}, 6, 3.5}, {{14, 102}, 7, 4}};
    library.add(QStringLiteral("puffs.left"), puffs(trail));
    library.add(QStringLiteral("puffs.right"), puffs(mirrored(trail)));
    library.add(QStringLiteral("puffs.below"), puffs({{{44, 123}, 8, 3.5}, {{84, 123}, 8, 3.5}}));
    library.add(QStringLiteral("puffs.above"), puffs({{{34, 34}, 8, 3.5}, {{94, 36}, 8, 3.5}}));
}

} // namespace lumo
