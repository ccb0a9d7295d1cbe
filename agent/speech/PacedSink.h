#pragma once

#include "agent/speech/PlaybackSink.h"

#include <chrono>

namespace agent::speech
{

// Stands in for a sound device when there is none: takes samples at the pace a device would
// play them and drops them, so that speech lasts as long as it would be heard.
class PacedSink : public PlaybackSink
{
public:
    bool write(const qint16* samples, qsizetype count) override;
    qint64 pendingSamples() override;
    void discardPending() override;

    using Clock = std::chrono::steady_clock;
    // When what was written so far has been played; the next write waits until then.
    Clock::time_point playEnd() const;

private:
    Clock::time_point start_;
    qint64 written_ = 0;
};

} // namespace agent::speech
