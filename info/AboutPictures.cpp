#include "info/AboutPictures.h"

#include <QPainter>
#include <QPainterPath>

QPixmap AboutPicture(int phase)
{
    constexpr int Size = 64;
    QPixmap picture(Size, Size);
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0x5a, 0x3a, 0x10), 2));
    p.setBrush(QColor(0xf5, 0xc5, 0x42));
    p.drawEllipse(4, 4, Size - 8, Size - 8);
    p.setBrush(QColor(0x30, 0x20, 0x10));
    p.drawEllipse(QPointF(23, 26), 4, 5);
    if (phase == 0) {
        p.drawEllipse(QPointF(41, 26), 4, 5);
        QPainterPath smile;
        smile.moveTo(20, 40);
        smile.quadTo(32, 50, 44, 40);
        p.setBrush(Qt::NoBrush);
        p.drawPath(smile);
    } else {
        p.drawLine(QPointF(37, 27), QPointF(45, 27));
        p.setBrush(QColor(0xa0, 0x20, 0x20));
        p.drawEllipse(QPointF(32, 43), 7, 6);
    }
    return picture;
}
