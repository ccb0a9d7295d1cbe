#include "agent/speech/PacedSink.h"

#include "agent/speech/SynthesizedSpeech.h"

#include <algorithm>
#include <thread>

namespace agent::speech
{

namespace
{

// A writer that waited for playEnd() comes a little after it; that is no pause in the sound.
constexpr auto Idle = std::chrono::milliseconds(50);

} // namespace

PacedSink::Clock::time_point PacedSink::playEnd() const
{
    return start_ + std::chrono::microseconds(written_ * 1000000 / SynthesizedSpeech::SampleRate);
}

bool PacedSink::write(const qint16*, qsizetype count)
{
    const Clock::time_point now = Clock::now();
    if (now > playEnd() + Idle) {
        // Idle since the last utterance, or this thread was very late: start the pace afresh.
        start_ = now;
        written_ = 0;
    }
    // Like a device with one write of buffer: a write waits until the one before is playing.
    std::this_thread::sleep_until(playEnd());
    written_ += count;
    return true;
}

qint64 PacedSink::pendingSamples()
{
    if (written_ == 0)
        return 0;
    const auto left =
        std::chrono::duration_cast<std::chrono::microseconds>(playEnd() - Clock::now());
    return std::max<qint64>(0, left.count() * SynthesizedSpeech::SampleRate / 1000000);
}

void PacedSink::discardPending()
{
    written_ = 0;
}

} // namespace agent::speech
