#include "agent/speech/EspeakSynthesizer.h"

#include "agent/speech/EspeakWorker.h"

#include <limits>

namespace agent::speech
{

EspeakSynthesizer::EspeakSynthesizer(QObject* parent)
    : QObject(parent), m_worker(std::make_unique<EspeakWorker>())
{
    m_thread.setObjectName(QStringLiteral("espeak-ng"));
    m_worker->moveToThread(&m_thread);
    m_thread.start();
    QMetaObject::invokeMethod(
        m_worker.get(), [this] { m_loaded = m_worker->initialise(); },
        Qt::BlockingQueuedConnection);
}

EspeakSynthesizer::~EspeakSynthesizer()
{
    m_worker->cancel(std::numeric_limits<quint64>::max());
    // espeak-ng must be shut down on the thread that used it.
    QMetaObject::invokeMethod(
        m_worker.get(), [this] { m_worker->shutdown(); }, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

void EspeakSynthesizer::synthesize(quint64 id, const SpeechPlan& plan, bool femaleCharacter)
{
    QMetaObject::invokeMethod(m_worker.get(), [this, id, plan, femaleCharacter] {
        std::shared_ptr<const SynthesizedSpeech> speech =
            m_worker->synthesize(id, plan, femaleCharacter);
        QMetaObject::invokeMethod(
            this, [this, id, speech] { emit synthesized(id, speech); }, Qt::QueuedConnection);
    });
}

void EspeakSynthesizer::cancel(quint64 id)
{
    m_worker->cancel(id);
}

QString EspeakSynthesizer::phonemesOf(const QString& word)
{
    QString result;
    QMetaObject::invokeMethod(
        m_worker.get(), [this, &word, &result] { result = m_worker->phonemesOf(word); },
        Qt::BlockingQueuedConnection);
    return result;
}

} // namespace agent::speech
