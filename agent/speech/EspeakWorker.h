#pragma once

#include "agent/speech/SpeechPlan.h"
#include "agent/speech/SynthesizedSpeech.h"

#include <QByteArray>
#include <QString>
#include <atomic>
#include <memory>

namespace agent::speech
{

// The calls into espeak-ng; used only on EspeakThread.
class EspeakWorker
{
public:
    bool initialise();
    // Synthesis stops early, with an incomplete result, once cancelUpTo reaches id.
    std::shared_ptr<SynthesizedSpeech> synthesize(quint64 id,
                                                  const std::atomic<quint64>& cancelUpTo,
                                                  const SpeechPlan& plan, bool femaleCharacter);
    // The pronunciation of a word in espeak-ng's ASCII phoneme names separated by blanks,
    // e.g. "g 'I m p" for "gimp"; empty when espeak-ng did not load.
    QString phonemesOf(const QString& word);

private:
    bool useVoice(const QByteArray& name);

    bool initialised_ = false;
    bool whisperInstalled_ = false;
    QByteArray voiceName_;
};

} // namespace agent::speech
