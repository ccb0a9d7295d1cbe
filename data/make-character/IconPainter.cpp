#include "IconPainter.h"

#include "PartLibrary.h"
#include "Parts.h"

#include <QPainter>

namespace lumo
{

QImage paintIcon(const PartLibrary& parts, int size)
{
    QImage icon(size, size, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = static_cast<double>(size) / frameSize;
    painter.scale(scale, scale);
    // The figure stands low in its frame; lift it to the middle of the icon.
    painter.translate(0, -4);
    for (const QString& part :
         {armPart(Side::Left, ArmPose::Half), armPart(Side::Right, ArmPose::Half),
          QStringLiteral("body"), QStringLiteral("eyes.happy"), mouthPart(0)})
        parts.painter(part)(painter);
    return icon;
}

} // namespace lumo
