#include "agent/speech/AudioPlayer.h"

#include "agent/speech/PacedSink.h"
#include "agent/speech/PulseSink.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace agent::speech
{

namespace
{

constexpr qsizetype ChunkSamples = 512;
constexpr auto PollInterval = std::chrono::milliseconds(10);
constexpr auto DrainMargin = std::chrono::milliseconds(200);
constexpr auto QuietSpell = std::chrono::seconds(10);

void reportNoAudioOnce()
{
    static std::atomic<bool> reported{false};
    if (!reported.exchange(true))
        std::fputs("character engine: no sound server found, speech runs without audio output\n",
                   stderr);
}

} // namespace

AudioPlayer::AudioPlayer(QObject* parent) : QObject(parent)
{
    m_release.setSingleShot(true);
    m_release.setInterval(QuietSpell);
    connect(&m_release, &QTimer::timeout, this, [this] {
        joinThread();
        m_server.reset();
    });
}

AudioPlayer::~AudioPlayer()
{
    stop();
}

void AudioPlayer::play(std::shared_ptr<const SynthesizedSpeech> speech, bool audible)
{
    stop();
    m_release.stop();
    m_stopRequested = false;
    m_played = 0;
    m_thread = std::thread(&AudioPlayer::run, this, std::move(speech), audible, ++m_generation);
}

void AudioPlayer::stop()
{
    m_stopRequested = true;
    joinThread();
    ++m_generation;
    m_release.start();
}

void AudioPlayer::joinThread()
{
    if (m_thread.joinable())
        m_thread.join();
}

void AudioPlayer::run(std::shared_ptr<const SynthesizedSpeech> speech, bool audible,
                      quint64 generation)
{
    if (audible && !m_server) {
        m_server = PulseSink::connect();
        if (!m_server)
            reportNoAudioOnce();
    }
    PacedSink paced;
    PlaybackSink* sink = audible && m_server ? static_cast<PlaybackSink*>(m_server.get()) : &paced;

    const std::vector<qint16>& samples = speech->samples;
    const qint64 total = qint64(samples.size());
    qint64 written = 0;
    while (written < total && !m_stopRequested) {
        const qsizetype count = std::min<qint64>(ChunkSamples, total - written);
        if (!sink->write(samples.data() + written, count)) {
            // The sound server went away: finish this utterance silently, reconnect next time.
            m_server.reset();
            sink = &paced;
            reportNoAudioOnce();
            continue;
        }
        if (written == 0)
            emit firstSamplesHandedOver();
        written += count;
        m_played = std::max<qint64>(0, written - sink->pendingSamples());
    }
    // A server may keep reporting some latency once its buffer ran dry; wait no longer than
    // the pending audio lasts, plus a margin.
    const auto deadline =
        std::chrono::steady_clock::now() +
        std::chrono::milliseconds(sink->pendingSamples() * 1000 / SynthesizedSpeech::SampleRate) +
        DrainMargin;
    while (!m_stopRequested && std::chrono::steady_clock::now() < deadline) {
        const qint64 pending = sink->pendingSamples();
        m_played = written - pending;
        if (pending <= 0)
            break;
        std::this_thread::sleep_for(PollInterval);
    }
    m_played = written;
    if (m_stopRequested) {
        sink->discardPending();
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this, generation] {
            if (generation != m_generation)
                return;
            m_release.start();
            emit finished();
        },
        Qt::QueuedConnection);
}

} // namespace agent::speech
