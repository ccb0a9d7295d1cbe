#pragma once

#include "agent/speech/PulseSink.h"
#include "agent/speech/SynthesizedSpeech.h"

#include <QObject>
#include <QTimer>
#include <atomic>
#include <memory>
#include <thread>

namespace agent::speech
{

// Plays one utterance at a time from a thread of its own, through the sound server when there
// is one and otherwise silently at the real pace. Used from the GUI thread.
class AudioPlayer : public QObject
{
    Q_OBJECT
public:
    explicit AudioPlayer(QObject* parent = nullptr);
    ~AudioPlayer() override;

    // Stops what is playing and starts this; when not audible, it runs silently at its pace.
    void play(std::shared_ptr<const SynthesizedSpeech> speech, bool audible = true);
    void stop();
    // How far the listener has heard, in samples of the current utterance.
    qint64 playedSamples() const { return played_.load(); }

signals:
    // Emitted on the player's thread, as the first samples go to the output.
    void firstSamplesHandedOver();
    // All samples of the utterance have been heard; not emitted after stop().
    void finished();

private:
    void run(std::shared_ptr<const SynthesizedSpeech> speech, bool audible, quint64 generation);
    void joinThread();

    std::thread thread_;
    std::atomic<bool> stopRequested_{false};
    std::atomic<qint64> played_{0};
    quint64 generation_ = 0;
    // Touched by the player's thread while it runs, otherwise by the GUI thread. Kept between
    // utterances, so that speech starts at once, and given up after a quiet spell, so that
    // the sound server does not list a stream that never plays.
    std::unique_ptr<PulseSink> server_;
    QTimer release_;
};

} // namespace agent::speech
