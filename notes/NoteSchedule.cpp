#include "notes/NoteSchedule.h"

#include "core/Conversions.h"

#include <algorithm>
#include <cstdlib>

namespace NoteSchedule
{

namespace
{

bool IsDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// A whole number written with digits alone.
std::optional<int> Digits(const QString& text)
{
    if (text.isEmpty() || text.size() > 9 || !std::all_of(text.begin(), text.end(), IsDigit))
        return std::nullopt;
    return text.toInt();
}

} // namespace

QStringList KindNames()
{
    return {QStringLiteral("Once"), QStringLiteral("Daily"), QStringLiteral("Weekly"),
            QStringLiteral("Monthly"), QStringLiteral("Yearly")};
}

QStringList MonthNames()
{
    return {QStringLiteral("January"), QStringLiteral("February"), QStringLiteral("March"),
            QStringLiteral("April"),   QStringLiteral("May"),      QStringLiteral("June"),
            QStringLiteral("July"),    QStringLiteral("August"),   QStringLiteral("September"),
            QStringLiteral("October"), QStringLiteral("November"), QStringLiteral("December")};
}

QStringList WeekdayNames()
{
    return {QStringLiteral("Sunday"),    QStringLiteral("Monday"),   QStringLiteral("Tuesday"),
            QStringLiteral("Wednesday"), QStringLiteral("Thursday"), QStringLiteral("Friday"),
            QStringLiteral("Saturday")};
}

std::optional<KindControls> ControlsForKind(int kind)
{
    const QString on = QStringLiteral("On");
    const QString every = QStringLiteral("Every");
    switch (kind) {
    case 0:
        return KindControls{true, on, true, true, true, EveryList::Months};
    case 1:
        return KindControls{false, QString(), false, false, false, EveryList::Kept};
    case 2:
        return KindControls{true, every, true, false, false, EveryList::Weekdays};
    case 3:
        return KindControls{true, on, false, true, false, EveryList::Kept};
    case 4:
        return KindControls{true, on, true, true, false, EveryList::Months};
    default:
        return std::nullopt;
    }
}

QString TwoDigits(int value)
{
    const QString digits = QStringLiteral("%1").arg(std::abs(value), 2, 10, QLatin1Char('0'));
    return value < 0 ? QLatin1Char('-') + digits : digits;
}

int HourIndexOf(const QTime& time)
{
    const int hour = time.hour() % 12;
    return (hour == 0 ? 12 : hour) - 1;
}

int AmPmIndexOf(const QTime& time)
{
    return time.hour() >= 12 ? 1 : 0;
}

int WeekdayIndexOf(const QDate& date)
{
    return date.dayOfWeek() % 7;
}

bool HourAccepted(const QString& text)
{
    const double hour = Conversions::Val(text);
    return hour != 0 && hour <= 12;
}

bool MinuteAccepted(const QString& text)
{
    return Conversions::Val(text) <= 59;
}

bool KeyAccepted(QChar key)
{
    return IsDigit(key) || key == QLatin1Char('\b');
}

QString CompletedYear(const QString& text)
{
    return text.size() == 2 ? QStringLiteral("19") + text : text;
}

std::optional<QDate> ReviewDate(int everyIndex, const QString& dayText, const QString& yearText)
{
    const std::optional<int> day = Digits(dayText);
    const std::optional<int> year = Digits(yearText);
    if (!day || !year)
        return std::nullopt;
    const QDate date(*year, everyIndex + 1, *day);
    if (!date.isValid())
        return std::nullopt;
    return date;
}

QString ReviewTime(const QString& hourText, int minuteIndex, const QString& amPmText)
{
    return hourText + QLatin1Char(':') + TwoDigits(minuteIndex) + QLatin1Char(' ') + amPmText;
}

QString ReviewSentence(int kind, const QDate& date, const QString& everyText,
                       const QString& dayText, const QString& yearText, const QString& time)
{
    const QString monthName = MonthNames().at(date.month() - 1);
    switch (kind) {
    case 0:
        return WeekdayNames().at(WeekdayIndexOf(date)) + QStringLiteral(", ") + monthName +
               QLatin1Char(' ') + dayText + QStringLiteral(", ") + yearText +
               QStringLiteral(" at ") + time;
    case 1:
        return QStringLiteral("Daily at ") + time;
    case 2:
        return QStringLiteral("Weekly on ") + everyText + QStringLiteral("s at ") + time;
    case 3:
        return QStringLiteral("Monthly on ") + dayText + QStringLiteral(", at ") + time;
    case 4:
        return QStringLiteral("Yearly on ") + monthName + QLatin1Char(' ') + dayText +
               QStringLiteral(", at ") + time;
    default:
        return QString();
    }
}

} // namespace NoteSchedule
