#include "agent/speech/SpeechPlan.h"

#include <algorithm>

namespace agent::speech
{

SpeechPlan planSpeech(const std::vector<SpeechSegment>& segments)
{
    SpeechPlan plan;
    for (const SpeechSegment& segment : segments) {
        if (plan.runs.empty() || !(plan.runs.back().voice == segment.voice))
            plan.runs.push_back({QString(), segment.voice, {}});
        SpeechRun& run = plan.runs.back();
        run.pieces.push_back({run.spoken.size(), segment.spoken.size(), plan.shownText.size(),
                              segment.shown.size(), segment.mapped});
        run.spoken += segment.spoken;
        plan.shownText += segment.shown;
    }
    return plan;
}

qsizetype SpeechPlan::shownEndAfterWord(const SpeechRun& run, qsizetype position,
                                        qsizetype length) const
{
    const auto piece = std::find_if(run.pieces.rbegin(), run.pieces.rend(), [&](const auto& p) {
        return p.spokenStart <= position && p.spokenLength > 0;
    });
    if (piece == run.pieces.rend())
        return 0;
    const qsizetype pieceEnd = piece->shownStart + piece->shownLength;
    if (piece->mapped)
        return pieceEnd;
    const qsizetype wordEnd = piece->shownStart + (position - piece->spokenStart) + length;
    qsizetype end = std::min(wordEnd, pieceEnd);
    while (end < shownText.size() && !shownText[end].isSpace() &&
           !shownText[end].isLetterOrNumber())
        ++end;
    return end;
}

} // namespace agent::speech
