#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>

// The rules of the notes window's schedule controls, apart from the widgets.
namespace NoteSchedule
{

// What the kind list, the month list and the weekday list hold, in their order.
QStringList KindNames();
QStringList MonthNames();
QStringList WeekdayNames();

// What the reminder kind does to the controls beside it.
enum class EveryList { Kept, Months, Weekdays };
struct KindControls {
    bool labelVisible;
    QString labelCaption;
    bool everyEnabled;
    bool dayEnabled;
    bool yearEnabled;
    EveryList every;
};
// Nothing for a position outside the kind list.
std::optional<KindControls> ControlsForKind(int kind);

// "07", and "-01" for -1.
QString TwoDigits(int value);
// 0 for hour 0 ("12"), 11 for hours 11, 12 and 23.
int HourIndexOf(const QTime& time);
// 1 from noon on.
int AmPmIndexOf(const QTime& time);
// The weekday list's position, Sunday 0.
int WeekdayIndexOf(const QDate& date);

// What the hour and minute boxes hold as the user types; anything else is replaced.
bool HourAccepted(const QString& text);
bool MinuteAccepted(const QString& text);
// A digit or Backspace; other typed characters are refused.
bool KeyAccepted(QChar key);
// "98" is 1998; other lengths stay as typed.
QString CompletedYear(const QString& text);

// The date that the month (or weekday) position, the day box and the year box make together,
// or nothing when the calendar has no such date.
std::optional<QDate> ReviewDate(int everyIndex, const QString& dayText, const QString& yearText);
// "09:05 AM"
QString ReviewTime(const QString& hourText, int minuteIndex, const QString& amPmText);
// The sentence for the kind; a null text for a position outside the kind list.
QString ReviewSentence(int kind, const QDate& date, const QString& everyText,
                       const QString& dayText, const QString& yearText, const QString& time);

} // namespace NoteSchedule
