#pragma once

#include "agent/EngineServices.h"

#include <deque>
#include <memory>

namespace agent::engine
{

// The one speech output, shared by every loaded character. Each character speaks through a
// seat of its own: an utterance waits until those asked for before it have been heard, and
// the balloon text, mouth and end of an utterance reach only the seat whose words are heard.
class SpeechChannel : public QObject
{
    Q_OBJECT
public:
    explicit SpeechChannel(SpeechOutput& output);

    // A seat for one character; it must go before the channel.
    std::unique_ptr<SpeechOutput> seat();

private:
    class Seat;
    friend class Seat;

    void request(Seat* seat);
    // Takes the seat's utterance back, heard or waiting; `report` says whether the seat
    // reports it as cut short.
    void withdraw(Seat* seat, bool report);
    void startNext();
    void onFinished(bool ok);

    SpeechOutput& output_;
    std::deque<Seat*> waiting_;
    Seat* speaking_ = nullptr;
    bool startScheduled_ = false;
};

} // namespace agent::engine
