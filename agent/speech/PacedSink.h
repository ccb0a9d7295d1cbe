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

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point playEnd() const;

    Clock::time_point start_;
    qint64 written_ = 0;
};

} // namespace agent::speech
