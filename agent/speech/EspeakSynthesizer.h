#pragma once

#include "agent/speech/SpeechPlan.h"
#include "agent/speech/SynthesizedSpeech.h"

#include <QObject>
#include <QString>
#include <QThread>
#include <memory>

namespace agent::speech
{

class EspeakWorker;

// Owns espeak-ng. The library is not re-entrant, so every call into it runs on one worker
// thread that this object owns; everyone else in the process who needs espeak-ng (for
// instance the speech recogniser, for the pronunciation of a word) goes through this object.
class EspeakSynthesizer : public QObject
{
    Q_OBJECT
public:
    explicit EspeakSynthesizer(QObject* parent = nullptr);
    ~EspeakSynthesizer() override;

    // True when espeak-ng and its data loaded.
    bool loaded() const { return m_loaded; }

    // Queues an utterance; synthesized(id, ...) follows on this object's thread. Returns at
    // once.
    void synthesize(quint64 id, const SpeechPlan& plan, bool femaleCharacter);

    // Cuts short the utterance with this id and any earlier one; their results come back
    // incomplete. Safe from any thread.
    void cancel(quint64 id);

    // The pronunciation of a word in espeak-ng's ASCII phoneme names separated by blanks,
    // e.g. "g 'I m p" for "gimp"; empty when espeak-ng did not load. Safe from any thread
    // except the worker's own: it waits for the worker to finish what it is doing.
    QString phonemesOf(const QString& word);

signals:
    void synthesized(quint64 id, std::shared_ptr<const agent::speech::SynthesizedSpeech> speech);

private:
    QThread m_thread;
    std::unique_ptr<EspeakWorker> m_worker;
    bool m_loaded = false;
};

} // namespace agent::speech
