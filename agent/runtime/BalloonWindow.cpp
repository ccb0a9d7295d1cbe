#include "agent/runtime/BalloonWindow.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <algorithm>

namespace agent::runtime
{

namespace
{

constexpr int Padding = 6;
constexpr int Gap = 4;

QFont balloonFont(const acs::BalloonInfo& style)
{
    QFont font(style.fontName);
    // The stored height is the font's character height in pixels, given as a negative value.
    const int pixels = std::abs(style.fontHeight);
    if (pixels > 0)
        font.setPixelSize(pixels);
    font.setWeight(static_cast<QFont::Weight>(std::clamp<int>(style.fontWeight, 100, 900)));
    font.setItalic(style.italic);
    font.setStrikeOut(style.strikeOut);
    return font;
}

} // namespace

BalloonWindow::BalloonWindow(const acs::BalloonInfo& style)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus),
      style_(style), font_(balloonFont(style))
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setText({});
}

void BalloonWindow::setText(const QString& text)
{
    text_ = text;
    const QFontMetrics metrics(font_);
    const int lines = std::max<int>(1, style_.lines);
    const int widest = metrics.averageCharWidth() * std::max<int>(1, style_.charsPerLine);
    const QRect needed = metrics.boundingRect(QRect(0, 0, widest, 1 << 20), Qt::TextWordWrap,
                                              text_.isEmpty() ? QStringLiteral(" ") : text_);
    textHeight_ = needed.height();
    const int width = std::min(widest, needed.width());
    const int height = std::min(textHeight_, lines * metrics.lineSpacing());
    setFixedSize(width + 2 * Padding, height + 2 * Padding);
    update();
}

void BalloonWindow::placeNear(const QRect& character)
{
    QScreen* screen = QGuiApplication::screenAt(character.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->availableGeometry() : QRect(character.topLeft(), size());
    int x = character.center().x() - width() / 2;
    int y = character.top() - height() - Gap;
    if (y < area.top())
        y = character.bottom() + Gap;
    x = std::clamp(x, area.left(), std::max(area.left(), area.right() - width() + 1));
    y = std::clamp(y, area.top(), std::max(area.top(), area.bottom() - height() + 1));
    move(x, y);
}

QRect BalloonWindow::textArea() const
{
    return rect().adjusted(Padding, Padding, -Padding, -Padding);
}

void BalloonWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), style_.background);
    painter.setPen(style_.border);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));

    const QRect area = textArea();
    painter.setClipRect(area);
    painter.setFont(font_);
    painter.setPen(style_.text);
    // Anchored at the bottom, so that the newest words stay in view.
    QRect full = area;
    full.setTop(area.bottom() + 1 - textHeight_);
    painter.drawText(full, Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, text_);
}

} // namespace agent::runtime
