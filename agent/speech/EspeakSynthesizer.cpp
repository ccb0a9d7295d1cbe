#include "agent/speech/EspeakSynthesizer.h"

#include "agent/speech/EspeakThread.h"

#include <limits>

namespace agent::speech
{

EspeakSynthesizer::~EspeakSynthesizer()
{
    cancel(std::numeric_limits<quint64>::max());
    // Once this has run, no job of ours can post a result to this object any more.
    EspeakThread::instance().runAndWait([](EspeakWorker&) {});
}

bool EspeakSynthesizer::loaded() const
{
    return EspeakThread::instance().loaded();
}

void EspeakSynthesizer::synthesize(quint64 id, const SpeechPlan& plan, bool femaleCharacter)
{
    EspeakThread::instance().post(
        [this, id, plan, femaleCharacter, cancelUpTo = cancelUpTo_](EspeakWorker& worker) {
            std::shared_ptr<const SynthesizedSpeech> speech =
                worker.synthesize(id, *cancelUpTo, plan, femaleCharacter);
            QMetaObject::invokeMethod(
                this, [this, id, speech] { emit synthesized(id, speech); }, Qt::QueuedConnection);
        });
}

void EspeakSynthesizer::cancel(quint64 id)
{
    quint64 current = cancelUpTo_->load();
    while (current < id && !cancelUpTo_->compare_exchange_weak(current, id)) {
    }
}

} // namespace agent::speech
