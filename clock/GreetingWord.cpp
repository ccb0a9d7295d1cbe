#include "clock/GreetingWord.h"

QString GreetingWord(int Hour)
{
    if (Hour < 12)
        return QStringLiteral("Good Morning.");
    if (Hour < 18)
        return QStringLiteral("Good Afternoon.");
    return QStringLiteral("Good Evening. ");
}
