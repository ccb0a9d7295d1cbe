#include "agent/speech/EspeakSpeechOutput.h"

#include "agent/EngineSettings.h"
#include "agent/speech/SpeechPlan.h"
#include "agent/speech/SpeechTags.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcSpeech, "agent.speech", QtWarningMsg)

namespace agent::speech
{

namespace
{

// Often enough that the mouth keeps up with phonemes of 50 ms and more.
constexpr int FollowIntervalMs = 15;
constexpr int FemaleGender = 1;

} // namespace

EspeakSpeechOutput::EspeakSpeechOutput(QObject* parent) : SpeechOutput(parent)
{
    follow_.setInterval(FollowIntervalMs);
    connect(&follow_, &QTimer::timeout, this, &EspeakSpeechOutput::showPlayedPosition);
    connect(&synthesizer_, &EspeakSynthesizer::synthesized, this,
            &EspeakSpeechOutput::onSynthesized);
    connect(&player_, &AudioPlayer::finished, this, [this] {
        showPlayedPosition();
        finish(true);
    });
}

EspeakSpeechOutput::~EspeakSpeechOutput()
{
    synthesizer_.cancel(id_);
    player_.stop();
}

bool EspeakSpeechOutput::available() const
{
    return synthesizer_.loaded() && EngineSettings::shared().speechOutputEnabled();
}

void EspeakSpeechOutput::speak(const QString& taggedText, const VoiceDefaults& voice)
{
    qCDebug(lcSpeech) << "speak" << taggedText;
    stop();
    busy_ = true;
    shownLength_ = -1;
    const quint64 id = ++id_;
    if (!synthesizer_.loaded()) {
        QTimer::singleShot(0, this, [this, id] {
            if (id == id_ && busy_)
                finish(false);
        });
        return;
    }
    const VoiceParams start{false, voice.pitchHz, voice.speedWpm, 65535};
    synthesizer_.synthesize(id, planSpeech(parseSpeechTags(taggedText, start)),
                            voice.gender == FemaleGender);
}

void EspeakSpeechOutput::stop()
{
    if (!busy_)
        return;
    synthesizer_.cancel(id_);
    player_.stop();
    finish(false);
}

void EspeakSpeechOutput::playSound(std::shared_ptr<const std::vector<qint16>> samples)
{
    player_.playSound(std::move(samples));
}

void EspeakSpeechOutput::onSynthesized(quint64 id, std::shared_ptr<const SynthesizedSpeech> speech)
{
    if (id != id_ || !busy_)
        return;
    if (!speech->complete) {
        finish(false);
        return;
    }
    speech_ = std::move(speech);
    player_.play(speech_, available());
    follow_.start();
}

void EspeakSpeechOutput::showPlayedPosition()
{
    if (!speech_)
        return;
    const qint64 played = player_.playedSamples();
    const bool ended = played >= qint64(speech_->samples.size());
    const qsizetype shown = ended ? speech_->shownText.size() : speech_->shownLength.at(played, 0);
    if (shown != shownLength_) {
        shownLength_ = shown;
        emit balloonTextChanged(speech_->shownText.left(shown), speech_->shownText);
    }
    const acs::Mouth mouth =
        ended ? acs::Mouth::Closed : speech_->mouth.at(played, acs::Mouth::Closed);
    if (mouth != mouth_) {
        mouth_ = mouth;
        emit mouthChanged(mouth);
    }
}

void EspeakSpeechOutput::finish(bool ok)
{
    follow_.stop();
    busy_ = false;
    speech_.reset();
    if (mouth_ != acs::Mouth::Closed) {
        mouth_ = acs::Mouth::Closed;
        emit mouthChanged(mouth_);
    }
    emit finished(ok);
}

} // namespace agent::speech
