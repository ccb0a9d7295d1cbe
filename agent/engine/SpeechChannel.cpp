#include "agent/engine/SpeechChannel.h"

#include <QTimer>
#include <algorithm>

namespace agent::engine
{

class SpeechChannel::Seat : public SpeechOutput
{
public:
    explicit Seat(SpeechChannel& channel) : channel_(channel) {}
    ~Seat() override { channel_.withdraw(this, false); }

    bool available() const override { return channel_.output_.available(); }
    void speak(const QString& taggedText, const VoiceDefaults& voice) override
    {
        text_ = taggedText;
        voice_ = voice;
        channel_.request(this);
    }
    void stop() override { channel_.withdraw(this, true); }
    void playSound(std::shared_ptr<const std::vector<qint16>> samples) override
    {
        channel_.output_.playSound(std::move(samples));
    }

private:
    friend class SpeechChannel;

    SpeechChannel& channel_;
    QString text_;
    VoiceDefaults voice_;
};

SpeechChannel::SpeechChannel(SpeechOutput& output) : output_(output)
{
    connect(&output_, &SpeechOutput::balloonTextChanged, this,
            [this](const QString& shownSoFar, const QString& wholeText) {
                if (speaking_)
                    emit speaking_->balloonTextChanged(shownSoFar, wholeText);
            });
    connect(&output_, &SpeechOutput::mouthChanged, this, [this](acs::Mouth mouth) {
        if (speaking_)
            emit speaking_->mouthChanged(mouth);
    });
    connect(&output_, &SpeechOutput::finished, this, &SpeechChannel::onFinished);
}

std::unique_ptr<SpeechOutput> SpeechChannel::seat()
{
    return std::make_unique<Seat>(*this);
}

void SpeechChannel::request(Seat* seat)
{
    // A seat speaks one utterance at a time, as the output does: a new one replaces its own.
    withdraw(seat, true);
    waiting_.push_back(seat);
    startNext();
}

void SpeechChannel::withdraw(Seat* seat, bool report)
{
    if (speaking_ == seat) {
        if (!report)
            speaking_ = nullptr;
        // The output reports the stop at once, through onFinished.
        output_.stop();
        speaking_ = nullptr;
        return;
    }
    const auto found = std::find(waiting_.begin(), waiting_.end(), seat);
    if (found == waiting_.end())
        return;
    waiting_.erase(found);
    if (report)
        emit seat->finished(false);
}

void SpeechChannel::startNext()
{
    if (speaking_ || waiting_.empty())
        return;
    speaking_ = waiting_.front();
    waiting_.pop_front();
    output_.speak(speaking_->text_, speaking_->voice_);
}

void SpeechChannel::onFinished(bool ok)
{
    Seat* seat = std::exchange(speaking_, nullptr);
    if (seat)
        emit seat->finished(ok);
    // The next utterance starts from the event loop, outside the output's own signal.
    if (startScheduled_)
        return;
    startScheduled_ = true;
    QTimer::singleShot(0, this, [this] {
        startScheduled_ = false;
        startNext();
    });
}

} // namespace agent::engine
