#pragma once

#include <QImage>
#include <QPoint>
#include <QWidget>

namespace agent::runtime
{

// The character on the desktop: a frameless, always-on-top tool window of the character's
// size that shows one picture and takes the mouse only on its visible pixels. The left
// button drags or clicks; the right button asks for the popup menu.
class CharacterWindow : public QWidget
{
    Q_OBJECT
public:
    explicit CharacterWindow(QSize size);

    void setPicture(const QImage& picture);
    const QImage& picture() const { return picture_; }

signals:
    // button 1 left, 2 right; shift as Shift 1, Ctrl 2, Alt 4; x and y in screen pixels.
    void clicked(int button, int shift, int x, int y);
    void menuRequested(QPoint globalPosition);
    // The user dragged the window to a new top-left corner.
    void dragged(QPoint topLeft);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QImage picture_;
    bool pressed_ = false;
    bool dragging_ = false;
    QPoint pressGlobal_;
    QPoint pressTopLeft_;
};

} // namespace agent::runtime
