#include "agent/runtime/BalloonWindow.h"

#include <QBitmap>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace agent::runtime
{

namespace
{

constexpr int Padding = 8;
constexpr qreal Radius = 9;
constexpr int TailLength = 14;
constexpr int TailHalfWidth = 7;
constexpr int Gap = 2;

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

BalloonWindow::BalloonWindow(const acs::BalloonInfo& style, std::uint32_t flags)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus),
      style_(style), flags_(flags), font_(balloonFont(style))
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setText({});
}

void BalloonWindow::setText(const QString& text, qsizetype heard)
{
    text_ = text;
    heard_ = std::clamp<qsizetype>(heard, 0, text.size());
    layOut();
    // The line of the latest word heard is the last in view.
    int latest = 0;
    while (latest + 1 < int(lines_.size()) && lines_[latest + 1].start < heard_)
        ++latest;
    firstLine_ = std::max(0, latest - visibleLines() + 1);
    update();
}

void BalloonWindow::layOut()
{
    const QFontMetrics metrics(font_);
    const int widest = metrics.averageCharWidth() * std::max<int>(1, style_.charsPerLine);
    QTextLayout layout(text_, font_);
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    lines_.clear();
    qreal natural = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(widest);
        lines_.push_back({line.textStart(), line.textLength()});
        natural = std::max(natural, line.naturalTextWidth());
    }
    layout.endLayout();
    const bool sizeToText = flags_ & acs::flags::BalloonSizeToText;
    const int textWidth =
        sizeToText ? std::clamp(int(std::ceil(natural)), metrics.averageCharWidth(), widest)
                   : widest;
    const QSize bodySize(textWidth + 2 * Padding,
                         visibleLines() * metrics.lineSpacing() + 2 * Padding);
    const QSize old = size();
    setFixedSize(bodySize.width(), bodySize.height() + TailLength);
    if (size() != old)
        tip_ = QPoint(width() / 2, above_ ? height() - 1 : 0);
}

int BalloonWindow::visibleLines() const
{
    const int most = std::max<int>(1, style_.lines);
    if (!(flags_ & acs::flags::BalloonSizeToText))
        return most;
    return std::clamp(int(lines_.size()), 1, most);
}

QString BalloonWindow::lineText(const Line& line) const
{
    const bool paced = !(flags_ & acs::flags::BalloonNoAutoPace);
    const qsizetype end = paced ? heard_ : text_.size();
    return text_.mid(line.start, std::clamp<qsizetype>(end - line.start, 0, line.length)).trimmed();
}

QString BalloonWindow::visibleText() const
{
    QStringList shown;
    const int last = std::min(int(lines_.size()), firstLine_ + visibleLines());
    for (int i = firstLine_; i < last; ++i)
        shown << lineText(lines_[i]);
    return shown.join(QLatin1Char(' ')).trimmed();
}

void BalloonWindow::placeNear(const QRect& character)
{
    QScreen* screen = QGuiApplication::screenAt(character.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->availableGeometry() : QRect(character.topLeft(), size());
    const int roomAbove = character.top() - Gap - area.top();
    const int roomBelow = area.bottom() - character.bottom() - Gap;
    above_ = roomAbove >= height() || (roomBelow < height() && roomAbove >= roomBelow);
    const int head = std::clamp(character.center().x(), area.left(), area.right());
    int x = head - width() / 2;
    int y = above_ ? character.top() - Gap - height() : character.bottom() + 1 + Gap;
    x = std::clamp(x, area.left(), std::max(area.left(), area.right() - width() + 1));
    y = std::clamp(y, area.top(), std::max(area.top(), area.bottom() - height() + 1));
    tip_ = QPoint(std::clamp(head - x, 1, width() - 2), above_ ? height() - 1 : 0);
    move(x, y);
    // Without a compositor only the shape's pixels may show.
    QImage shape(size(), QImage::Format_ARGB32_Premultiplied);
    shape.fill(Qt::transparent);
    QPainter painter(&shape);
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(Qt::black);
    painter.drawPath(outline());
    painter.end();
    setMask(QBitmap::fromImage(shape.createAlphaMask()));
    update();
}

QRect BalloonWindow::body() const
{
    return above_ ? QRect(0, 0, width(), height() - TailLength)
                  : QRect(0, TailLength, width(), height() - TailLength);
}

QPainterPath BalloonWindow::outline() const
{
    const QRectF box = QRectF(body()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath shape;
    shape.addRoundedRect(box, Radius, Radius);
    // The tail leaves the straight part of the edge nearest the tip and leans towards it.
    const qreal edge = above_ ? box.bottom() - 1 : box.top() + 1;
    const qreal base = std::clamp<qreal>(tip_.x(), box.left() + Radius + TailHalfWidth,
                                         box.right() - Radius - TailHalfWidth);
    QPainterPath tail;
    tail.moveTo(base - TailHalfWidth, edge);
    tail.lineTo(tip_.x() + 0.5, tip_.y() + 0.5);
    tail.lineTo(base + TailHalfWidth, edge);
    tail.closeSubpath();
    return shape.united(tail).simplified();
}

void BalloonWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(QPen(style_.border, 1));
    painter.setBrush(style_.background);
    painter.drawPath(outline());

    const QRect area = body().adjusted(Padding, Padding, -Padding, -Padding);
    painter.setClipRect(area);
    painter.setFont(font_);
    painter.setPen(style_.text);
    const QFontMetrics metrics(font_);
    const int last = std::min(int(lines_.size()), firstLine_ + visibleLines());
    for (int i = firstLine_; i < last; ++i) {
        const int baseline =
            area.top() + (i - firstLine_) * metrics.lineSpacing() + metrics.ascent();
        painter.drawText(QPoint(area.left(), baseline), lineText(lines_[i]));
    }
}

} // namespace agent::runtime
