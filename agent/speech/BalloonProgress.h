#pragma once

#include "agent/speech/SampleTimeline.h"
#include "agent/speech/SpeechPlan.h"

#include <vector>

namespace agent::speech
{

// Turns the synthesiser's word events into marks of how much balloon text is shown. The
// shown text never shrinks, even where word spans overlap (espeak-ng splits "10:45" so).
class BalloonProgress
{
public:
    BalloonProgress(const SpeechPlan& plan, SampleTimeline<qsizetype>& marks);

    // Word events that follow belong to this run, whose first sample is runStart.
    void startRun(const SpeechRun& run, qint64 runStart);
    // A word event as espeak-ng reports it: 1-based position and length in code points of the
    // run's spoken text, sample offset within the run. Events of length 0 mark no word.
    void word(int position, int length, qint64 sample);

private:
    const SpeechPlan& plan_;
    SampleTimeline<qsizetype>& marks_;
    const SpeechRun* run_ = nullptr;
    qint64 runStart_ = 0;
    // espeak-ng counts code points; QString counts UTF-16 units.
    std::vector<qsizetype> codePointStarts_;
    qsizetype shown_ = 0;
};

} // namespace agent::speech
