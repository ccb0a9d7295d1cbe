#pragma once

#include "agent/EngineServices.h"
#include "agent/listen/MicrophoneInput.h"
#include "agent/listen/PushToTalkKey.h"
#include "agent/listen/RecognitionWorker.h"
#include "agent/listen/VoiceActivityDetector.h"

#include <QThread>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace agent::listen
{

class ListeningTip;

// Speech input with PocketSphinx: the grammar of the enabled commands, decoded on a thread
// of its own while the words are spoken. Utterances come from the microphone (push-to-talk
// or hands-free) or, for tests and tools, from buffers and files.
class PocketSphinxRecognizer : public SpeechRecognizer
{
    Q_OBJECT
public:
    // The model loads in the background; when it cannot, listeningFailed() tells.
    explicit PocketSphinxRecognizer(QObject* parent = nullptr);
    PocketSphinxRecognizer(const QString& modelFolder, QObject* parent);
    ~PocketSphinxRecognizer() override;

    // Whether the model's files are there and, once tried, whether it loaded.
    bool installed() const override;
    bool enabled() const override;
    void setEnabled(bool on);
    void setPhrases(const std::vector<VoicePhrase>& phrases) override;
    // A SpeechPage; its changes reach this recogniser through the engine's settings.
    QWidget* createSettingsPage() override;

    double threshold() const { return threshold_; }
    void setThreshold(double threshold);

    // One utterance of 16 kHz mono 16-bit samples, as if spoken into the microphone.
    void recognizeSamples(std::span<const std::int16_t> samples);
    // The same from a WAV file in that format; false when it cannot be read.
    bool recognizeFile(const QString& wavPath);

    // Takes the "Speech" page's settings, as they change: grabs the listening key, starts or
    // stops hands-free listening, takes the threshold.
    void applySettings();

    // What the listening key does. Throws platform::RuntimeError 0x80040317 when another
    // program holds the microphone (when the key starts it, listeningFailed() tells instead);
    // without a microphone the tip says so and nothing else happens.
    void startListening();
    void stopListening();
    bool isListening() const { return listening_; }
    // Audio as the microphone delivers it: decoded at once while listening, otherwise cut
    // into utterances when hands-free listening is on.
    void feedAudio(std::span<const std::int16_t> samples);
    // An utterance in pieces, as the listening key gives it but without a microphone: begin,
    // add the audio as it comes, end.
    void beginUtterance();
    void addAudio(std::span<const std::int16_t> samples);
    void endUtterance();
    void setHandsFree(bool on);

    PushToTalkKey& listeningKey() { return key_; }
    // Null until something was to be shown.
    ListeningTip* tip() const { return tip_.get(); }

signals:
    // After every utterance: the words the grammar matched (empty when none), the name
    // that was accepted (empty when the utterance was rejected) and the confidence.
    void utteranceHeard(const QString& words, const QString& name, double confidence);

private:
    void onRecognized(const Utterance& utterance);
    void onLoadFailed(const QString& description);
    void onKeyPressed();
    ListeningTip& shownTip();
    void updateMicrophone();

    QThread thread_;
    RecognitionWorker* worker_; // lives on thread_, deleted when it finishes
    bool installed_;
    std::vector<VoicePhrase> phrases_;
    bool phrasesSet_ = false;
    double threshold_;

    PushToTalkKey key_;
    MicrophoneInput microphone_;
    VoiceActivityDetector voiceActivity_;
    std::unique_ptr<ListeningTip> tip_;
    bool listening_ = false;
    bool handsFreeUtterance_ = false; // a hands-free utterance is being decoded
    bool handsFree_ = false;
    int resultsForTip_ = 0; // utterances of the key whose result the tip is to show
};

} // namespace agent::listen
