#pragma once

#include "agent/acs/CharacterData.h"

#include <QFont>
#include <QWidget>

namespace agent::runtime
{

// The word balloon beside the character: a frameless window in the character's balloon
// colours and font, sized to its text within the character's lines x characters per line.
// When the text outgrows that, the latest lines are shown.
class BalloonWindow : public QWidget
{
    Q_OBJECT
public:
    explicit BalloonWindow(const acs::BalloonInfo& style);

    void setText(const QString& text);
    QString text() const { return text_; }
    // Places the balloon above the character, or below it where the screen has no room.
    void placeNear(const QRect& character);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect textArea() const;

    acs::BalloonInfo style_;
    QFont font_;
    QString text_;
    int textHeight_ = 0;
};

} // namespace agent::runtime
