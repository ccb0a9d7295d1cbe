#include "clock/DateSentence.h"

#include <QDate>
#include <array>

namespace
{

const std::array<const char*, 7> Weekdays{"Monday", "Tuesday",  "Wednesday", "Thursday",
                                          "Friday", "Saturday", "Sunday"};

const std::array<const char*, 12> Months{"January",   "February", "March",    "April",
                                         "May",       "June",     "July",     "August",
                                         "September", "October",  "November", "December"};

QString DayWithEnding(int day)
{
    const char* ending = "th";
    switch (day) {
    case 1:
    case 21:
    case 31:
        ending = "st";
        break;
    case 2:
    case 22:
        ending = "nd";
        break;
    case 3:
    case 23:
        ending = "rd";
        break;
    default:
        break;
    }
    return QString::number(day) + QLatin1String(ending);
}

} // namespace

QString DateSentence(const QDate& date)
{
    // QDate counts weekdays from Monday as 1.
    return QStringLiteral("Today is ") + QLatin1String(Weekdays.at(size_t(date.dayOfWeek() - 1))) +
           QStringLiteral(". ") + DayWithEnding(date.day()) + QStringLiteral(" of ") +
           QLatin1String(Months.at(size_t(date.month() - 1))) + QStringLiteral(", ") +
           QString::number(date.year()) + QLatin1Char('.');
}
