#pragma once

#include "agent/acs/CharacterData.h"

#include <QFont>
#include <QPainterPath>
#include <QWidget>
#include <vector>

namespace agent::runtime
{

// The word balloon beside the character: a rounded rectangle with a tail towards the
// character's head, in the character's balloon colours and font, `lines` lines of about
// `charsPerLine` characters. It shows the words as they are heard (all of them at once for a
// character that does not pace its balloon) and scrolls by lines to keep the latest in view.
class BalloonWindow : public QWidget
{
    Q_OBJECT
public:
    // flags: the character's style flags, for sizing to the text and pacing.
    explicit BalloonWindow(const acs::BalloonInfo& style, std::uint32_t flags = 0);

    // text: the whole utterance as shown; heard: how many of its characters have been heard.
    void setText(const QString& text, qsizetype heard);
    void setText(const QString& text) { setText(text, text.size()); }
    QString text() const { return text_; }
    // The words in view now, line by line joined with spaces.
    QString visibleText() const;
    // Places the balloon above the character, or below it where the screen has no room
    // above, always wholly on the screen, with its tail towards the character's head.
    void placeNear(const QRect& character);
    // Where the tail points, in screen coordinates.
    QPoint tailTip() const { return mapToGlobal(tip_); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Line {
        qsizetype start;
        qsizetype length;
    };

    void layOut();
    QRect body() const;
    QPainterPath outline() const;
    int visibleLines() const;
    QString lineText(const Line& line) const;

    acs::BalloonInfo style_;
    std::uint32_t flags_;
    QFont font_;
    QString text_;
    qsizetype heard_ = 0;
    std::vector<Line> lines_;
    int firstLine_ = 0;
    bool above_ = true;
    QPoint tip_;
};

} // namespace agent::runtime
