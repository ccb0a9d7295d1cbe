#pragma once

#include <QString>

// The sentence that tells the time Hour:Minute (0-23, 0-59). A minute of 1 to 9 is heard as
// "o" and a digit but shown as two digits. With the balloon hidden that case carries its own
// empty balloon texts, since SayText's balloon tag can't wrap a line that holds a tag.
QString TimeSentence(int Hour, int Minute, bool BalloonHidden);
