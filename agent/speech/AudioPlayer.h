#pragma once

#include "agent/speech/PulseSink.h"
#include "agent/speech/SynthesizedSpeech.h"

#include <QObject>
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
    using QObject::QObject;
    ~AudioPlayer() override;

    // Stops what is playing and starts this; when not audible, it runs silently at its pace.
    void play(std::shared_ptr<const SynthesizedSpeech> speech, bool audible = true);
    void stop();
    // How far the listener has heard, in samples of the current utterance.
    qint64 playedSamples() const { return m_played.load(); }

signals:
    // Emitted on the player's thread, as the first samples go to the output.
    void firstSamplesHandedOver();
    // All samples of the utterance have been heard; not emitted after stop().
    void finished();

private:
    void run(std::shared_ptr<const SynthesizedSpeech> speech, bool audible, quint64 generation);

    std::thread m_thread;
    std::atomic<bool> m_stopRequested{false};
    std::atomic<qint64> m_played{0};
    quint64 m_generation = 0;
    // Only the player's thread touches the connection; it is kept between utterances.
    std::unique_ptr<PulseSink> m_server;
};

} // namespace agent::speech
