#include "agent/runtime/CharacterWindow.h"

#include <QApplication>
#include <QBitmap>
#include <QMouseEvent>
#include <QPainter>

namespace agent::runtime
{

namespace
{

int shiftState(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
           (modifiers & Qt::AltModifier ? 4 : 0);
}

// The window's shape: its opaque pixels. A fully transparent picture gets a region outside
// the window, because an empty mask would mean no shaping at all.
QRegion visiblePixels(const QImage& picture)
{
    const QRegion opaque(QBitmap::fromImage(picture.createAlphaMask()));
    return opaque.isEmpty() ? QRegion(-1, -1, 1, 1) : opaque;
}

} // namespace

CharacterWindow::CharacterWindow(QSize size)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFixedSize(size);
    picture_ = QImage(size, QImage::Format_ARGB32_Premultiplied);
    picture_.fill(Qt::transparent);
    setMask(visiblePixels(picture_));
}

void CharacterWindow::setPicture(const QImage& picture)
{
    picture_ = picture;
    setMask(visiblePixels(picture_));
    update();
}

void CharacterWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(0, 0, picture_);
}

void CharacterWindow::mousePressEvent(QMouseEvent* event)
{
    const QPoint global = event->globalPosition().toPoint();
    if (event->button() == Qt::LeftButton) {
        pressed_ = true;
        dragging_ = false;
        pressGlobal_ = global;
        pressTopLeft_ = pos();
    } else if (event->button() == Qt::RightButton) {
        emit clicked(2, shiftState(event->modifiers()), global.x(), global.y());
        emit menuRequested(global);
    }
}

void CharacterWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (!pressed_)
        return;
    const QPoint offset = event->globalPosition().toPoint() - pressGlobal_;
    if (!dragging_ && offset.manhattanLength() < QApplication::startDragDistance())
        return;
    dragging_ = true;
    move(pressTopLeft_ + offset);
    emit dragged(pos());
}

void CharacterWindow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !pressed_)
        return;
    pressed_ = false;
    if (!dragging_) {
        const QPoint global = event->globalPosition().toPoint();
        emit clicked(1, shiftState(event->modifiers()), global.x(), global.y());
    }
    dragging_ = false;
}

} // namespace agent::runtime
