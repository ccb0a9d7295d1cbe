#pragma once

#include "agent/speech/SpeechTags.h"

#include <QByteArray>
#include <array>

namespace agent::speech
{

// The median pitch heard, in Hz, at the pitch settings 0, 25, 50, 75 and 100 of a voice.
using PitchCurve = std::array<int, 5>;

// Measured for espeak-ng 1.51: the setting is far from linear in Hz.
constexpr PitchCurve MalePitchCurve{63, 80, 99, 129, 168};
constexpr PitchCurve FemalePitchCurve{125, 151, 190, 245, 320};

// The pitch setting 0..100 that comes closest to the given Hz on the curve.
int pitchSettingFor(const PitchCurve& curve, int hz);

// espeak-ng clamps rates below this many words per minute.
constexpr int SlowestRateWpm = 80;

// espeak-ng's rate setting for a rate heard in words per minute (it speaks about 5 % slower
// than it is set to).
int rateSettingFor(int wpm);

struct EspeakVoice {
    QByteArray name; // language and variant, e.g. "en-us+f2"
    int pitch = 50;  // 0..100
    int rate = 175;  // espeak-ng's setting

    bool operator==(const EspeakVoice&) const = default;
};

// A female variant reaches pitches that the default voice cannot; the whisper variants are
// unvoiced. whisperInstalled guards against espeak-ng's silent fallback for unknown variants.
EspeakVoice chooseEspeakVoice(const VoiceParams& voice, bool femaleCharacter,
                              bool whisperInstalled);

} // namespace agent::speech
