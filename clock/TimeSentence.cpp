#include "clock/TimeSentence.h"

QString TimeSentence(int Hour, int Minute, bool BalloonHidden)
{
    const QString opening = QStringLiteral("The time now is ");
    const int spokenHour = Hour > 12 ? Hour - 12 : Hour;
    const QString hour = QString::number(spokenHour);
    const QString minute = QString::number(Minute);
    if (Minute >= 10)
        return opening + hour + QLatin1Char(':') + minute + QLatin1Char('.');
    if (Minute == 0)
        return Hour > 12 ? opening + hour + QStringLiteral(" O'clock")
                         : opening + QString::number(Hour) + QStringLiteral("O'clock");
    if (!BalloonHidden)
        return opening + hour + QStringLiteral(": \\map=\"o") + minute + QStringLiteral("\"=\"") +
               QStringLiteral("%1").arg(Minute, 2, 10, QLatin1Char('0')) + QStringLiteral("\"\\.");
    return QStringLiteral("\\map=\"") + opening + hour + QStringLiteral(":\"=\"\"\\") +
           QStringLiteral("\\map=\"o") + minute + QStringLiteral("\"=\"\"\\");
}
