#pragma once

#include <QString>

class QDate;

// "Today is Friday. 21st of November, 1998." in English words whatever the system language.
QString DateSentence(const QDate& date);
