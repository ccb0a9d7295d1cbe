#pragma once

#include "agent/EngineServices.h"

#include <QStringList>
#include <QTimer>

namespace agent::runtime::testing
{

// Speaks without sound: one word every `wordMs`, the mouth opening and closing with each
// word, then finished(true). Records what it was asked to say. Like the real output, it speaks
// one utterance at a time: a new one cuts the current one short, which ends finished(false).
class FakeSpeechOutput : public SpeechOutput
{
    Q_OBJECT
public:
    explicit FakeSpeechOutput(int wordMs = 20);

    bool available() const override { return available_; }
    void speak(const QString& taggedText, const VoiceDefaults& voice) override;
    void stop() override;
    void playSound(std::shared_ptr<const std::vector<qint16>>) override {}

    bool available_ = true;
    // The next utterance ends with finished(false) after its words.
    bool failNext = false;
    QStringList spoken;
    VoiceDefaults lastVoice;

private:
    void nextWord();

    int wordMs_;
    QTimer timer_;
    QStringList words_;
    int shown_ = 0;
    bool failing_ = false;
};

} // namespace agent::runtime::testing
