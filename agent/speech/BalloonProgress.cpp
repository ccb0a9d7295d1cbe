#include "agent/speech/BalloonProgress.h"

#include <algorithm>

namespace agent::speech
{

BalloonProgress::BalloonProgress(const SpeechPlan& plan, SampleTimeline<qsizetype>& marks)
    : m_plan(plan), m_marks(marks)
{
}

void BalloonProgress::startRun(const SpeechRun& run, qint64 runStart)
{
    m_run = &run;
    m_runStart = runStart;
    m_codePointStarts.clear();
    for (qsizetype i = 0; i < run.spoken.size(); ++i) {
        if (!run.spoken[i].isLowSurrogate())
            m_codePointStarts.push_back(i);
    }
    m_codePointStarts.push_back(run.spoken.size());
}

void BalloonProgress::word(int position, int length, qint64 sample)
{
    if (!m_run || length <= 0)
        return;
    const qsizetype last = qsizetype(m_codePointStarts.size()) - 1;
    const qsizetype first = std::clamp<qsizetype>(position - 1, 0, last);
    const qsizetype end = std::clamp<qsizetype>(first + length, 0, last);
    const qsizetype start = m_codePointStarts[first];
    m_shown =
        std::max(m_shown, m_plan.shownEndAfterWord(*m_run, start, m_codePointStarts[end] - start));
    m_marks.add(m_runStart + sample, m_shown);
}

} // namespace agent::speech
