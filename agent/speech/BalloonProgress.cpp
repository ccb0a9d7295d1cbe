#include "agent/speech/BalloonProgress.h"

#include <algorithm>

namespace agent::speech
{

BalloonProgress::BalloonProgress(const SpeechPlan& plan, SampleTimeline<qsizetype>& marks)
    : plan_(plan), marks_(marks)
{
}

void BalloonProgress::startRun(const SpeechRun& run, qint64 runStart)
{
    run_ = &run;
    runStart_ = runStart;
    codePointStarts_.clear();
    for (qsizetype i = 0; i < run.spoken.size(); ++i) {
        if (!run.spoken[i].isLowSurrogate())
            codePointStarts_.push_back(i);
    }
    codePointStarts_.push_back(run.spoken.size());
}

void BalloonProgress::word(int position, int length, qint64 sample)
{
    if (!run_ || length <= 0)
        return;
    const qsizetype last = qsizetype(codePointStarts_.size()) - 1;
    const qsizetype first = std::clamp<qsizetype>(position - 1, 0, last);
    const qsizetype end = std::clamp<qsizetype>(first + length, 0, last);
    const qsizetype start = codePointStarts_[first];
    shown_ = std::max(shown_, plan_.shownEndAfterWord(*run_, start, codePointStarts_[end] - start));
    marks_.add(runStart_ + sample, shown_);
}

} // namespace agent::speech
