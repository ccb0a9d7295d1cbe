#pragma once

#include "agent/EngineServices.h"
#include "agent/listen/RecognitionWorker.h"

#include <QThread>
#include <cstdint>
#include <future>
#include <vector>

namespace agent::listen
{

// Speech input with PocketSphinx: the grammar of the enabled commands, decoded on a thread
// of its own. Utterances come from the microphone (push-to-talk or hands-free) or, for
// tests and tools, from buffers and files.
class PocketSphinxRecognizer : public SpeechRecognizer
{
    Q_OBJECT
public:
    explicit PocketSphinxRecognizer(QObject* parent = nullptr);
    ~PocketSphinxRecognizer() override;

    // Waits for the model to load the first time it is asked.
    bool installed() const override;
    bool enabled() const override;
    void setEnabled(bool on);
    void setPhrases(const std::vector<VoicePhrase>& phrases) override;

    double threshold() const { return threshold_; }
    void setThreshold(double threshold);

    // One utterance of 16 kHz mono 16-bit samples, as if spoken into the microphone.
    void recognizeSamples(std::vector<std::int16_t> samples);
    // The same from a WAV file in that format; false when it cannot be read.
    bool recognizeFile(const QString& wavPath);

signals:
    // After every utterance: the words the grammar matched (empty when none), the name
    // that was accepted (empty when the utterance was rejected) and the confidence.
    void utteranceHeard(const QString& words, const QString& name, double confidence);

private:
    void onRecognized(const Utterance& utterance);

    QThread thread_;
    RecognitionWorker* worker_; // lives on thread_, deleted when it finishes
    std::shared_future<bool> loaded_;
    std::vector<VoicePhrase> phrases_;
    bool phrasesSet_ = false;
    double threshold_;
};

} // namespace agent::listen
