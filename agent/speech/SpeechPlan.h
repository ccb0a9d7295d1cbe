#pragma once

#include "agent/speech/SpeechTags.h"

#include <QString>
#include <vector>

namespace agent::speech
{

// Where a segment's texts stand within its run's spoken text and the whole balloon text.
struct PlannedPiece {
    qsizetype spokenStart = 0;
    qsizetype spokenLength = 0;
    qsizetype shownStart = 0;
    qsizetype shownLength = 0;
    bool mapped = false;
};

// Neighbouring segments in the same voice, spoken in one go so that the synthesiser sees whole
// sentences rather than fragments.
struct SpeechRun {
    QString spoken;
    VoiceParams voice;
    std::vector<PlannedPiece> pieces;
};

struct SpeechPlan {
    QString shownText; // the whole balloon text
    std::vector<SpeechRun> runs;

    // How much of the balloon text is shown once the word at the 0-based character position
    // of the run's spoken text is heard: plain text up to the end of that word and any
    // punctuation stuck to it, a mapped segment whole.
    qsizetype shownEndAfterWord(const SpeechRun& run, qsizetype position, qsizetype length) const;
};

SpeechPlan planSpeech(const std::vector<SpeechSegment>& segments);

} // namespace agent::speech
