#pragma once

#include "agent/EngineServices.h"
#include "agent/acs/CharacterData.h"
#include "agent/speech/SampleTimeline.h"

#include <QString>
#include <vector>

namespace agent::speech
{

// One utterance in memory (22050 Hz, mono, 16-bit), with what the balloon and the mouth show
// at each sample.
struct SynthesizedSpeech {
    static constexpr int SampleRate = AudioSampleRate;

    std::vector<qint16> samples;
    QString shownText;
    // How many characters of shownText are shown; never shrinks from one mark to the next.
    SampleTimeline<qsizetype> shownLength;
    SampleTimeline<acs::Mouth> mouth;
    // False when synthesis was stopped or failed part-way.
    bool complete = true;

    qint64 durationMs() const { return qint64(samples.size()) * 1000 / SampleRate; }
};

} // namespace agent::speech
