#include "Ink.h"
#include "PartLibrary.h"
#include "Parts.h"
#include "Shapes.h"

#include <array>
#include <utility>

namespace lumo
{
namespace
{

struct ArmShape {
    ArmPose pose;
    const char* name;
    QPointF hand; // left arm; the right one is its mirror image
};

constexpr std::array<ArmShape, 8> armShapes{{
    {ArmPose::Down, "down", {22, 103}},
    {ArmPose::Half, "half", {12, 80}},
    {ArmPose::Up, "up", {16, 50}},
    {ArmPose::WaveHigh, "wavehigh", {22, 44}},
    {ArmPose::WaveLow, "wavelow", {9, 60}},
    {ArmPose::Out, "out", {7, 90}},
    {ArmPose::Back, "back", {15, 110}},
    {ArmPose::Hold, "hold", {45, 100}},
}};

const ArmShape& shapeOf(ArmPose pose)
{
    for (const ArmShape& shape : armShapes)
        if (shape.pose == pose)
            return shape;
    throw std::out_of_range("unknown arm pose");
}

QPointF mirrored(QPointF point, Side side)
{
    return side == Side::Left ? point : QPointF(frameSize - point.x(), point.y());
}

} // namespace

QString armPart(Side side, ArmPose pose)
{
    return QStringLiteral("arm.%1.%2")
        .arg(side == Side::Left ? QStringLiteral("left") : QStringLiteral("right"),
             QLatin1String(shapeOf(pose).name));
}

void addArmParts(PartLibrary& library)
{
    // The shoulder lies inside the body: arms behind the body show only their outer part.
    const QPointF shoulder(34, 86);
    for (const Side side : {Side::Left, Side::Right}) {
        for (const ArmShape& shape : armShapes) {
            const QPointF from = mirrored(shoulder, side);
            const QPointF to = mirrored(shape.hand, side);
            library.add(armPart(side, shape.pose),
                        [from, to](QPainter& p) { drawLimb(p, from, to, ink::body); });
        }
    }
}

} // namespace lumo
