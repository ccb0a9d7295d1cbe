#pragma once

#include "agent/speech/SpeechPlan.h"
#include "agent/speech/SynthesizedSpeech.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <atomic>
#include <memory>

namespace agent::speech
{

// The calls into espeak-ng. Lives on EspeakSynthesizer's worker thread and is only ever called
// there, apart from cancel().
class EspeakWorker : public QObject
{
    Q_OBJECT
public:
    bool initialise();
    void shutdown();
    std::shared_ptr<SynthesizedSpeech> synthesize(quint64 id, const SpeechPlan& plan,
                                                  bool femaleCharacter);
    QString phonemesOf(const QString& word);

    // Safe from any thread.
    void cancel(quint64 id);
    bool cancelled(quint64 id) const { return id <= m_cancelUpTo.load(); }

private:
    bool useVoice(const QByteArray& name);

    bool m_initialised = false;
    bool m_whisperInstalled = false;
    QByteArray m_voiceName;
    std::atomic<quint64> m_cancelUpTo{0};
};

} // namespace agent::speech
