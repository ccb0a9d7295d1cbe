#pragma once

#include "agent/speech/PlaybackSink.h"

#include <memory>

struct pa_simple;

namespace agent::speech
{

// Plays through the user's sound server with PulseAudio's simple API.
class PulseSink : public PlaybackSink
{
public:
    // Nothing when there is no sound server to connect to.
    static std::unique_ptr<PulseSink> connect();
    ~PulseSink() override;

    bool write(const qint16* samples, qsizetype count) override;
    qint64 pendingSamples() override;
    void discardPending() override;

private:
    explicit PulseSink(pa_simple* stream) : stream_(stream) {}
    pa_simple* stream_;
};

} // namespace agent::speech
