#pragma once

#include <QtGlobal>

namespace agent::speech
{

// Where the player's thread hands its samples (22050 Hz, mono, 16-bit). Used from one thread.
class PlaybackSink
{
public:
    virtual ~PlaybackSink() = default;
    // Blocks until the samples are accepted; false when the output failed.
    virtual bool write(const qint16* samples, qsizetype count) = 0;
    // Samples handed over but not yet heard.
    virtual qint64 pendingSamples() = 0;
    // Throws away what is pending, for a stop.
    virtual void discardPending() = 0;
};

} // namespace agent::speech
