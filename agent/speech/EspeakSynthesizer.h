#pragma once

#include "agent/speech/SpeechPlan.h"
#include "agent/speech/SynthesizedSpeech.h"

#include <QObject>
#include <QString>
#include <atomic>
#include <memory>

namespace agent::speech
{

// Speech synthesis with espeak-ng. The library is not re-entrant, so all calls into it run on
// one thread of the process (EspeakThread), whichever object asks; anyone else in the process
// who needs espeak-ng, such as the speech recogniser for the pronunciation of a word, goes
// through this class too.
class EspeakSynthesizer : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    // Waits for this object's utterances still being synthesised; they are cancelled first.
    ~EspeakSynthesizer() override;

    // True when espeak-ng and its data loaded.
    bool loaded() const;

    // Queues an utterance; synthesized(id, ...) follows on this object's thread. Returns at
    // once.
    void synthesize(quint64 id, const SpeechPlan& plan, bool femaleCharacter);

    // Cuts short the utterance with this id and any earlier one of this object; their results
    // come back incomplete. Safe from any thread.
    void cancel(quint64 id);

signals:
    void synthesized(quint64 id, std::shared_ptr<const agent::speech::SynthesizedSpeech> speech);

private:
    std::shared_ptr<std::atomic<quint64>> cancelUpTo_ = std::make_shared<std::atomic<quint64>>(0);
};

} // namespace agent::speech
