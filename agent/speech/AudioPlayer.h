#pragma once

#include "agent/speech/PacedSink.h"
#include "agent/speech/PulseSink.h"
#include "agent/speech/SynthesizedSpeech.h"

#include <QObject>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace agent::speech
{

// The engine's one audio output: mixes the utterance being spoken with the frame sounds that
// play beside it, on one stream to the sound server, from a thread of its own. Without a sound
// server the utterance runs silently at its real pace and the sounds are skipped. Used from
// the GUI thread.
class AudioPlayer : public QObject
{
    Q_OBJECT
public:
    explicit AudioPlayer(QObject* parent = nullptr);
    ~AudioPlayer() override;

    // Stops the utterance that is playing and starts this; when not audible, it runs silently
    // at its pace.
    void play(std::shared_ptr<const SynthesizedSpeech> speech, bool audible = true);
    // Stops the utterance; the sounds play on.
    void stop();
    // Adds a sound (SynthesizedSpeech::SampleRate, mono) to what is heard, at once.
    void playSound(std::shared_ptr<const std::vector<qint16>> samples);
    // How far the listener has heard, in samples of the current utterance.
    qint64 playedSamples() const;

signals:
    // Emitted on the player's thread, as the first samples of an utterance go to the output.
    void firstSamplesHandedOver();
    // All samples of the utterance have been heard; not emitted after stop().
    void finished();

private:
    struct Sound {
        std::shared_ptr<const std::vector<qint16>> samples;
        qsizetype position = 0;
    };

    void run();
    bool busy() const { return speech_ || !sounds_.empty(); }
    PlaybackSink* openSink();
    void playWhileBusy(std::unique_lock<std::mutex>& lock, PlaybackSink* sink);
    qsizetype mix(std::vector<qint16>& chunk, bool soundsAudible);
    void followSpeech(qint64 heard);
    void wake();

    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::thread thread_;
    // Guarded by mutex_.
    bool quit_ = false;
    std::shared_ptr<const SynthesizedSpeech> speech_;
    bool audible_ = true;
    quint64 generation_ = 0;
    qint64 speechWritten_ = 0;
    qint64 speechStart_ = 0; // the stream position of the utterance's first sample
    qint64 streamWritten_ = 0;
    qint64 played_ = 0;
    std::chrono::steady_clock::time_point drainDeadline_;
    bool discard_ = false;
    std::vector<Sound> sounds_;
    // Touched by the player's thread only. Kept between utterances, so that speech starts at
    // once, and given up after a quiet spell, so that the sound server does not list a stream
    // that never plays.
    std::unique_ptr<PulseSink> server_;
    std::chrono::steady_clock::time_point refusedAt_;
    bool refused_ = false;
    PacedSink paced_;
};

} // namespace agent::speech
