#pragma once

#include "agent/listen/PocketSphinxRecognizer.h"

#include <QString>

namespace listentest
{

struct Heard {
    bool answered = false; // false when the recogniser did not report in time
    QString words;
    QString name;
    double confidence = 0;
    QStringList commands; // every commandRecognized
};

// Feeds one WAV file and waits for the recogniser's verdict.
Heard listen(agent::listen::PocketSphinxRecognizer& recognizer, const QString& wavPath);

} // namespace listentest
