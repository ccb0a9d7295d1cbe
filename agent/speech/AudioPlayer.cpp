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
    release_.setSingleShot(true);
    release_.setInterval(QuietSpell);
    connect(&release_, &QTimer::timeout, this, [this] {
        joinThread();
        server_.reset();
    });
}

AudioPlayer::~AudioPlayer()
{
    stop();
}

void AudioPlayer::play(std::shared_ptr<const SynthesizedSpeech> speech, bool audible)
{
    stop();
    release_.stop();
    stopRequested_ = false;
    played_ = 0;
    thread_ = std::thread(&AudioPlayer::run, this, std::move(speech), audible, ++generation_);
}

void AudioPlayer::stop()
{
    stopRequested_ = true;
    joinThread();
    ++generation_;
    release_.start();
}

void AudioPlayer::joinThread()
{
    if (thread_.joinable())
        thread_.join();
}

void AudioPlayer::run(std::shared_ptr<const SynthesizedSpeech> speech, bool audible,
                      quint64 generation)
{
    if (audible && !server_) {
        server_ = PulseSink::connect();
        if (!server_)
            reportNoAudioOnce();
    }
    PacedSink paced;
    PlaybackSink* sink = audible && server_ ? static_cast<PlaybackSink*>(server_.get()) : &paced;

    const std::vector<qint16>& samples = speech->samples;
    const qint64 total = qint64(samples.size());
    qint64 written = 0;
    while (written < total && !stopRequested_) {
        const qsizetype count = std::min<qint64>(ChunkSamples, total - written);
        if (!sink->write(samples.data() + written, count)) {
            // The sound server went away: finish this utterance silently, reconnect next time.
            server_.reset();
            sink = &paced;
            reportNoAudioOnce();
            continue;
        }
        if (written == 0)
            emit firstSamplesHandedOver();
        written += count;
        played_ = std::max<qint64>(0, written - sink->pendingSamples());
    }
    // A server may keep reporting some latency once its buffer ran dry; wait no longer than
    // the pending audio lasts, plus a margin.
    const auto deadline =
        std::chrono::steady_clock::now() +
        std::chrono::milliseconds(sink->pendingSamples() * 1000 / SynthesizedSpeech::SampleRate) +
        DrainMargin;
    while (!stopRequested_ && std::chrono::steady_clock::now() < deadline) {
        const qint64 pending = sink->pendingSamples();
        played_ = written - pending;
        if (pending <= 0)
            break;
        std::this_thread::sleep_for(PollInterval);
    }
    played_ = written;
    if (stopRequested_) {
        sink->discardPending();
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this, generation] {
            if (generation != generation_)
                return;
            release_.start();
            emit finished();
        },
        Qt::QueuedConnection);
}

} // namespace agent::speech
