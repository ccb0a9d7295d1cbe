#include "agent/speech/EspeakSpeechOutput.h"

#include "agent/sheet/EngineSettings.h"
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
    m_follow.setInterval(FollowIntervalMs);
    connect(&m_follow, &QTimer::timeout, this, &EspeakSpeechOutput::showPlayedPosition);
    connect(&m_synthesizer, &EspeakSynthesizer::synthesized, this,
            &EspeakSpeechOutput::onSynthesized);
    connect(&m_player, &AudioPlayer::finished, this, [this] {
        showPlayedPosition();
        finish(true);
    });
}

EspeakSpeechOutput::~EspeakSpeechOutput()
{
    m_synthesizer.cancel(m_id);
    m_player.stop();
}

bool EspeakSpeechOutput::available() const
{
    return m_synthesizer.loaded() && EngineSettings().speechOutputEnabled();
}

void EspeakSpeechOutput::speak(const QString& taggedText, const VoiceDefaults& voice)
{
    qCDebug(lcSpeech) << "speak" << taggedText;
    stop();
    m_busy = true;
    m_shownLength = -1;
    const quint64 id = ++m_id;
    if (!m_synthesizer.loaded()) {
        QTimer::singleShot(0, this, [this, id] {
            if (id == m_id && m_busy)
                finish(false);
        });
        return;
    }
    const VoiceParams start{false, voice.pitchHz, voice.speedWpm, 65535};
    m_synthesizer.synthesize(id, planSpeech(parseSpeechTags(taggedText, start)),
                             voice.gender == FemaleGender);
}

void EspeakSpeechOutput::stop()
{
    if (!m_busy)
        return;
    m_synthesizer.cancel(m_id);
    m_player.stop();
    finish(false);
}

void EspeakSpeechOutput::onSynthesized(quint64 id, std::shared_ptr<const SynthesizedSpeech> speech)
{
    if (id != m_id || !m_busy)
        return;
    if (!speech->complete) {
        finish(false);
        return;
    }
    m_speech = std::move(speech);
    m_player.play(m_speech, available());
    m_follow.start();
}

void EspeakSpeechOutput::showPlayedPosition()
{
    if (!m_speech)
        return;
    const qint64 played = m_player.playedSamples();
    const bool ended = played >= qint64(m_speech->samples.size());
    const qsizetype shown =
        ended ? m_speech->shownText.size() : m_speech->shownLength.at(played, 0);
    if (shown != m_shownLength) {
        m_shownLength = shown;
        emit balloonTextChanged(m_speech->shownText.left(shown));
    }
    const acs::Mouth mouth =
        ended ? acs::Mouth::Closed : m_speech->mouth.at(played, acs::Mouth::Closed);
    if (mouth != m_mouth) {
        m_mouth = mouth;
        emit mouthChanged(mouth);
    }
}

void EspeakSpeechOutput::finish(bool ok)
{
    m_follow.stop();
    m_busy = false;
    m_speech.reset();
    if (m_mouth != acs::Mouth::Closed) {
        m_mouth = acs::Mouth::Closed;
        emit mouthChanged(m_mouth);
    }
    emit finished(ok);
}

} // namespace agent::speech
