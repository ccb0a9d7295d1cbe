#pragma once

#include "agent/EngineServices.h"

#include <QString>
#include <QStringList>
#include <vector>

// Speech for the recogniser's tests, synthesised at test time and kept in the build tree
// (LISTEN_TEST_CACHE), so a second run costs nothing.
namespace listentest
{

// The default command table and four application entries, one with a word the model's
// dictionary lacks ("gimp").
std::vector<agent::VoicePhrase> commandTable();

struct Voice {
    QString synthesizer; // "flite" or "espeak-ng"
    QString name;        // flite voice or espeak-ng voice
    int rate = 0;        // words per minute for espeak-ng
    QString label() const;
};

// Full-vocabulary flite voices (awb_time only speaks times) and four espeak-ng voices at
// two rates.
std::vector<Voice> fliteVoices();
std::vector<Voice> espeakVoices();

// Twelve sentences that are not commands.
QStringList outsideSentences();

// A 16 kHz mono 16-bit WAV of the text in that voice, with some silence around it; empty
// when the tools fail.
QString spokenWav(const QString& text, const Voice& voice);
// Five kinds of non-speech sound of the same format.
QStringList noiseWavs();

} // namespace listentest
