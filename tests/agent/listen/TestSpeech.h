#pragma once

#include "agent/EngineServices.h"

#include <QString>
#include <QStringList>
#include <vector>

// Speech synthesised at test time, kept in LISTEN_TEST_CACHE so a second run costs nothing.
namespace listentest
{

// The default command table and four application entries, one with a word the model's
// dictionary lacks ("gimp").
std::vector<agent::VoicePhrase> commandTable();

struct Voice {
    QString synthesizer; // "flite" or "espeak-ng"
    QString name;
    int rate = 0; // words per minute for espeak-ng
    QString label() const;
};

// Full-vocabulary flite voices and four espeak-ng voices at two rates.
std::vector<Voice> fliteVoices();
std::vector<Voice> espeakVoices();
QStringList outsideSentences();

// A 16 kHz mono 16-bit WAV of the text with some silence around it; empty when the tools fail.
QString spokenWav(const QString& text, const Voice& voice);
// Five kinds of non-speech sound of the same format.
QStringList noiseWavs();

} // namespace listentest
