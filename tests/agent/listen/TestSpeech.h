#pragma once

#include "agent/listen/PocketSphinxRecognizer.h"

#include <QString>
#include <vector>

// Speech synthesised at test time, kept in LISTEN_TEST_CACHE so a second run costs nothing.
namespace listentest
{

// The default command table and four application entries, one with a word the model's
// dictionary lacks ("gimp").
std::vector<agent::VoicePhrase> commandTable();

struct Voice {
    QString synthesizer = "flite"; // or "espeak-ng"
    QString name = "kal16";
    int rate = 0; // words per minute for espeak-ng
};

// A 16 kHz mono 16-bit WAV of the text with some silence around it; empty when the tools fail.
QString spokenWav(const QString& text, const Voice& voice = {});
// White noise of the same format.
QString noiseWav();

// Feeds one WAV file and gives the name the recogniser accepts, empty when it rejects the
// words; fails the calling test when no verdict comes or commandRecognized disagrees.
QString heardName(agent::listen::PocketSphinxRecognizer& recognizer, const QString& wavPath);

} // namespace listentest
