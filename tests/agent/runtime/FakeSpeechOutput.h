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
    explicit FakeSpeechOutput(int wordMs = 20)
    {
        timer_.setInterval(wordMs);
        connect(&timer_, &QTimer::timeout, this, &FakeSpeechOutput::nextWord);
    }

    bool available() const override { return isAvailable; }
    void speak(const QString& taggedText, const VoiceDefaults& voice) override
    {
        stop();
        spoken << taggedText;
        lastVoice = voice;
        words_ = taggedText.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        shown_ = 0;
        timer_.start();
    }
    void stop() override
    {
        if (timer_.isActive()) {
            timer_.stop();
            emit finished(false);
        }
    }
    void playSound(std::shared_ptr<const std::vector<qint16>>) override {}

    bool isAvailable = true;
    // The utterance under way, or the next, ends with finished(false) after its words.
    bool failNext = false;
    QStringList spoken;
    VoiceDefaults lastVoice;

private:
    void nextWord()
    {
        if (shown_ >= words_.size()) {
            timer_.stop();
            emit mouthChanged(acs::Mouth::Closed);
            emit finished(!std::exchange(failNext, false));
            return;
        }
        ++shown_;
        emit mouthChanged(shown_ % 2 ? acs::Mouth::OpenWide3 : acs::Mouth::OpenNarrow);
        emit balloonTextChanged(words_.mid(0, shown_).join(QLatin1Char(' ')),
                                words_.join(QLatin1Char(' ')));
    }

    QTimer timer_;
    QStringList words_;
    int shown_ = 0;
};

} // namespace agent::runtime::testing
