#pragma once

#include <QString>

// The first word of the start-up greeting for the hour 0 to 23.
QString GreetingWord(int Hour);
