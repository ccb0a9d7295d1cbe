#pragma once

#include <QString>
#include <QStringView>

// The line in hand during a reading, or what is left of it. Pieces leave from the front by
// moving a start offset, so taking a piece costs the piece's length, not the rest's.
class LineText
{
public:
    LineText() = default;
    LineText& operator=(const QString& text);

    QStringView view() const { return QStringView(text_).mid(start_); }
    QString toString() const { return text_.mid(start_); }
    qsizetype size() const { return text_.size() - start_; }
    bool isEmpty() const { return size() == 0; }
    // Nothing but spaces, the test of the old run-time's Trim.
    bool isBlank() const;

    void clear();
    void dropFront(qsizetype count);
    // Adds the next segment of a long line, giving up the space that was already taken.
    void append(QStringView more);

private:
    QString text_;
    qsizetype start_ = 0;
};
