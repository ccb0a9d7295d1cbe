#include "FakeSpeechOutput.h"

namespace agent::runtime::testing
{

FakeSpeechOutput::FakeSpeechOutput(int wordMs) : wordMs_(wordMs)
{
    timer_.setInterval(wordMs_);
    connect(&timer_, &QTimer::timeout, this, &FakeSpeechOutput::nextWord);
}

void FakeSpeechOutput::speak(const QString& taggedText, const VoiceDefaults& voice)
{
    stop();
    spoken << taggedText;
    lastVoice = voice;
    words_ = taggedText.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    shown_ = 0;
    failing_ = std::exchange(failNext, false);
    timer_.start();
}

void FakeSpeechOutput::stop()
{
    if (!timer_.isActive())
        return;
    timer_.stop();
    emit finished(false);
}

void FakeSpeechOutput::nextWord()
{
    if (shown_ >= words_.size()) {
        timer_.stop();
        emit mouthChanged(acs::Mouth::Closed);
        emit finished(!failing_);
        return;
    }
    ++shown_;
    emit mouthChanged(shown_ % 2 ? acs::Mouth::OpenWide3 : acs::Mouth::OpenNarrow);
    emit balloonTextChanged(words_.mid(0, shown_).join(QLatin1Char(' ')),
                            words_.join(QLatin1Char(' ')));
}

} // namespace agent::runtime::testing
