#pragma once

#include "agent/EngineServices.h"
#include "agent/speech/AudioPlayer.h"
#include "agent/speech/EspeakSynthesizer.h"

#include <QTimer>
#include <memory>

namespace agent::speech
{

// Speech output with espeak-ng: synthesises each utterance on the synthesiser's thread, plays
// it, and reports balloon text and mouth from the position the listener has heard.
class EspeakSpeechOutput : public SpeechOutput
{
    Q_OBJECT
public:
    explicit EspeakSpeechOutput(QObject* parent = nullptr);
    ~EspeakSpeechOutput() override;

    // True when espeak-ng and its data loaded and the user has not turned speech output off
    // on the property sheet. With output off, utterances still run their course, silently.
    bool available() const override;
    void speak(const QString& taggedText, const VoiceDefaults& voice) override;
    void stop() override;
    void playSound(std::shared_ptr<const std::vector<qint16>> samples) override;

    // For the recogniser and the benchmark: the synthesiser and the player behind this output.
    EspeakSynthesizer& synthesizer() { return synthesizer_; }
    AudioPlayer& player() { return player_; }

private:
    void onSynthesized(quint64 id, std::shared_ptr<const SynthesizedSpeech> speech);
    void showPlayedPosition();
    void finish(bool ok);

    EspeakSynthesizer synthesizer_;
    AudioPlayer player_;
    QTimer follow_;
    quint64 id_ = 0;
    bool busy_ = false;
    std::shared_ptr<const SynthesizedSpeech> speech_;
    qsizetype shownLength_ = -1;
    acs::Mouth mouth_ = acs::Mouth::Closed;
};

} // namespace agent::speech
