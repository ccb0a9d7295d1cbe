#include "ContactSheet.h"

#include "FrameComposer.h"

#include <QPainter>
#include <algorithm>

namespace lumo
{
namespace
{

using namespace agent::acs;

constexpr int labelWidth = 120;
constexpr int captionHeight = 14;
constexpr int gap = 4;

const Animation* findAnimation(const CharacterData& character, const QString& name)
{
    for (const Animation& animation : character.animations)
        if (animation.name == name)
            return &animation;
    return nullptr;
}

} // namespace

QImage contactSheet(const CharacterData& character, const QColor& background)
{
    const int cellWidth = character.width + gap;
    const int cellHeight = character.height + captionHeight + gap;
    std::size_t columns = 7;
    for (const Animation& animation : character.animations)
        columns = std::max(columns, animation.frames.size());
    const int rows = static_cast<int>(character.animations.size()) + 1;

    QImage sheet(labelWidth + static_cast<int>(columns) * cellWidth, rows * cellHeight,
                 QImage::Format_ARGB32);
    sheet.fill(background);
    QPainter painter(&sheet);
    const QColor ink = background.lightness() > 128 ? Qt::black : Qt::white;
    painter.setPen(ink);

    auto cell = [&](int row, int column, const QImage& picture, const QString& caption) {
        const int x = labelWidth + column * cellWidth;
        const int y = row * cellHeight;
        painter.drawImage(x, y, picture);
        painter.drawText(QRect(x, y + character.height, character.width, captionHeight),
                         Qt::AlignCenter, caption);
    };

    int row = 0;
    for (const Animation& animation : character.animations) {
        painter.drawText(QRect(4, row * cellHeight, labelWidth - 8, character.height),
                         Qt::AlignVCenter | Qt::TextWordWrap, animation.name);
        for (std::size_t i = 0; i < animation.frames.size(); ++i) {
            const Frame& frame = animation.frames[i];
            QString caption = QStringLiteral("%1: %2").arg(i).arg(frame.duration);
            if (frame.exitFrame >= 0)
                caption += QStringLiteral(" x%1").arg(frame.exitFrame);
            if (!frame.overlays.empty())
                caption += QStringLiteral(" talk");
            cell(row, static_cast<int>(i), composeFrame(character, frame), caption);
        }
        ++row;
    }

    painter.drawText(QRect(4, row * cellHeight, labelWidth - 8, character.height),
                     Qt::AlignVCenter | Qt::TextWordWrap, QStringLiteral("RestPose mouths"));
    if (const Animation* rest = findAnimation(character, QStringLiteral("RestPose"))) {
        for (int shape = 0; shape <= 6; ++shape)
            cell(row, shape,
                 composeFrame(character, rest->frames.front(), static_cast<Mouth>(shape)),
                 QStringLiteral("mouth %1").arg(shape));
    }
    return sheet;
}

} // namespace lumo
