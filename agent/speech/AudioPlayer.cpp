#include "agent/speech/AudioPlayer.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>

namespace agent::speech
{

namespace
{

constexpr qsizetype ChunkSamples = 512;
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

AudioPlayer::AudioPlayer(QObject* parent) : QObject(parent) {}

AudioPlayer::~AudioPlayer()
{
    {
        const std::lock_guard lock(mutex_);
        quit_ = true;
    }
    wake_.notify_one();
    if (thread_.joinable())
        thread_.join();
}

void AudioPlayer::play(std::shared_ptr<const SynthesizedSpeech> speech, bool audible)
{
    {
        const std::lock_guard lock(mutex_);
        discard_ = discard_ || (speech_ && speechWritten_ > 0);
        speech_ = std::move(speech);
        audible_ = audible;
        ++generation_;
        speechWritten_ = 0;
        speechStart_ = -1;
        played_ = 0;
        drainDeadline_ = {};
    }
    wake();
}

void AudioPlayer::stop()
{
    {
        const std::lock_guard lock(mutex_);
        if (speech_) {
            // What the server still holds of the utterance would be heard after the stop.
            discard_ = discard_ || speechWritten_ > 0;
            speech_.reset();
        }
        ++generation_;
    }
    wake_.notify_one();
}

void AudioPlayer::playSound(std::shared_ptr<const std::vector<qint16>> samples)
{
    if (!samples || samples->empty())
        return;
    {
        const std::lock_guard lock(mutex_);
        sounds_.push_back({std::move(samples), 0});
    }
    wake();
}

qint64 AudioPlayer::playedSamples() const
{
    const std::lock_guard lock(mutex_);
    return played_;
}

void AudioPlayer::wake()
{
    if (!thread_.joinable())
        thread_ = std::thread(&AudioPlayer::run, this);
    wake_.notify_one();
}

void AudioPlayer::run()
{
    std::unique_lock lock(mutex_);
    while (!quit_) {
        if (!busy()) {
            if (!wake_.wait_for(lock, QuietSpell, [this] { return quit_ || busy(); }) && server_) {
                lock.unlock();
                server_.reset();
                lock.lock();
            }
            continue;
        }
        // Through the server even for a silent utterance, so that sounds can join it.
        lock.unlock();
        PlaybackSink* sink = openSink();
        lock.lock();
        playWhileBusy(lock, sink);
    }
}

PlaybackSink* AudioPlayer::openSink()
{
    const auto now = std::chrono::steady_clock::now();
    // Without a server every utterance would ask again; sounds come too often for that.
    if (!server_ && (!refused_ || now - refusedAt_ > QuietSpell)) {
        server_ = PulseSink::connect();
        refused_ = !server_;
        refusedAt_ = now;
        if (refused_)
            reportNoAudioOnce();
    }
    return server_ ? static_cast<PlaybackSink*>(server_.get()) : &paced_;
}

void AudioPlayer::playWhileBusy(std::unique_lock<std::mutex>& lock, PlaybackSink* sink)
{
    std::vector<qint16> chunk(ChunkSamples);
    streamWritten_ = 0;
    while (!quit_ && busy()) {
        if (std::exchange(discard_, false)) {
            lock.unlock();
            sink->discardPending();
            lock.lock();
            continue;
        }
        if (sink == &paced_) {
            // Waits here rather than in the write, so that a new utterance need not.
            const quint64 generation = generation_;
            if (wake_.wait_until(lock, paced_.playEnd(),
                                 [&] { return quit_ || generation_ != generation; }))
                continue;
        }
        const bool firstOfSpeech = speech_ && speechWritten_ == 0 && !speech_->samples.empty();
        const qsizetype count = mix(chunk, sink != &paced_);
        if (count == 0)
            continue;
        lock.unlock();
        const bool written = sink->write(chunk.data(), count);
        if (written && firstOfSpeech)
            emit firstSamplesHandedOver();
        const qint64 pending = written ? sink->pendingSamples() : 0;
        lock.lock();
        if (!written) {
            // The sound server went away: go on silently, and reconnect next time.
            server_.reset();
            sink = &paced_;
            reportNoAudioOnce();
            continue;
        }
        streamWritten_ += count;
        followSpeech(streamWritten_ - pending);
    }
}

qsizetype AudioPlayer::mix(std::vector<qint16>& chunk, bool soundsAudible)
{
    std::array<int, ChunkSamples> sum{};
    qsizetype count = 0;
    if (speech_) {
        if (speechStart_ < 0)
            speechStart_ = streamWritten_;
        const std::vector<qint16>& samples = speech_->samples;
        const qsizetype n = std::min<qint64>(ChunkSamples, qint64(samples.size()) - speechWritten_);
        if (audible_)
            std::copy_n(samples.begin() + speechWritten_, n, sum.begin());
        speechWritten_ += n;
        // The stream goes on, silent, until the end of the utterance has been heard.
        count = ChunkSamples;
    }
    if (!soundsAudible)
        sounds_.clear();
    for (auto sound = sounds_.begin(); sound != sounds_.end();) {
        const std::vector<qint16>& samples = *sound->samples;
        const qsizetype n = std::min<qsizetype>(ChunkSamples, samples.size() - sound->position);
        for (qsizetype i = 0; i < n; ++i)
            sum[i] += samples[sound->position + i];
        sound->position += n;
        count = std::max(count, n);
        sound = sound->position >= qsizetype(samples.size()) ? sounds_.erase(sound) : sound + 1;
    }
    for (qsizetype i = 0; i < ChunkSamples; ++i)
        chunk[i] = qint16(std::clamp(sum[i], -32768, 32767));
    return count;
}

void AudioPlayer::followSpeech(qint64 heard)
{
    if (!speech_)
        return;
    const qint64 total = qint64(speech_->samples.size());
    played_ = std::clamp<qint64>(heard - speechStart_, 0, total);
    if (speechWritten_ < total)
        return;
    const auto now = std::chrono::steady_clock::now();
    // A server may report some latency long after its buffer ran dry; wait no longer than the
    // pending audio lasts, plus a margin.
    if (drainDeadline_ == std::chrono::steady_clock::time_point{})
        drainDeadline_ = now +
                         std::chrono::milliseconds((streamWritten_ - heard) * 1000 /
                                                   SynthesizedSpeech::SampleRate) +
                         DrainMargin;
    if (played_ < total && now < drainDeadline_)
        return;
    played_ = total;
    speech_.reset();
    QMetaObject::invokeMethod(
        this,
        [this, generation = generation_] {
            {
                const std::lock_guard lock(mutex_);
                if (generation != generation_)
                    return;
            }
            emit finished();
        },
        Qt::QueuedConnection);
}

} // namespace agent::speech
