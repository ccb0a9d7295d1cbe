#include "agent/listen/PocketSphinxRecognizer.h"

#include "agent/listen/ListeningTip.h"
#include "agent/listen/SpeechInputSettings.h"
#include "agent/listen/SpeechPage.h"
#include "agent/listen/WavFile.h"
#include "platform/RuntimeError.h"

namespace agent::listen
{

PocketSphinxRecognizer::PocketSphinxRecognizer(QObject* parent)
    : SpeechRecognizer(parent), worker_(new RecognitionWorker),
      threshold_(SpeechInputSettings().threshold())
{
    qRegisterMetaType<agent::listen::Utterance>();
    worker_->moveToThread(&thread_);
    connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
    connect(worker_, &RecognitionWorker::recognized, this, &PocketSphinxRecognizer::onRecognized,
            Qt::QueuedConnection);
    std::promise<bool> loaded;
    loaded_ = loaded.get_future().share();
    thread_.setObjectName(QStringLiteral("speech input"));
    thread_.start();
    QMetaObject::invokeMethod(
        worker_, [worker = worker_, threshold = threshold_, loaded = std::move(loaded)]() mutable {
            worker->setThreshold(threshold);
            loaded.set_value(worker->load());
        });
    connect(&key_, &PushToTalkKey::pressed, this, &PocketSphinxRecognizer::onKeyPressed);
    connect(&key_, &PushToTalkKey::released, this, &PocketSphinxRecognizer::stopListening);
    connect(&microphone_, &MicrophoneInput::captured, this,
            [this](const std::vector<std::int16_t>& samples) { feedAudio(samples); });
    applySettings();
}

PocketSphinxRecognizer::~PocketSphinxRecognizer()
{
    key_.ungrab();
    microphone_.stop();
    thread_.quit();
    thread_.wait();
}

bool PocketSphinxRecognizer::installed() const
{
    return loaded_.get();
}

bool PocketSphinxRecognizer::enabled() const
{
    return SpeechInputSettings().enabled();
}

void PocketSphinxRecognizer::setEnabled(bool on)
{
    SpeechInputSettings().setEnabled(on);
}

void PocketSphinxRecognizer::setPhrases(const std::vector<VoicePhrase>& phrases)
{
    if (phrasesSet_ && VoiceGrammar::samePhrases(phrases, phrases_))
        return;
    phrases_ = phrases;
    phrasesSet_ = true;
    QMetaObject::invokeMethod(worker_,
                              [worker = worker_, phrases] { worker->setPhrases(phrases); });
}

QWidget* PocketSphinxRecognizer::createSettingsPage()
{
    auto* page = new SpeechPage;
    connect(page, &SpeechPage::settingsChanged, this, &PocketSphinxRecognizer::applySettings);
    return page;
}

void PocketSphinxRecognizer::setThreshold(double threshold)
{
    threshold_ = threshold;
    QMetaObject::invokeMethod(worker_,
                              [worker = worker_, threshold] { worker->setThreshold(threshold); });
}

void PocketSphinxRecognizer::recognizeSamples(std::vector<std::int16_t> samples)
{
    QMetaObject::invokeMethod(
        worker_, [worker = worker_, samples = std::move(samples)] { worker->recognize(samples); });
}

bool PocketSphinxRecognizer::recognizeFile(const QString& wavPath)
{
    auto samples = readSpeechWav(wavPath);
    if (!samples)
        return false;
    recognizeSamples(std::move(*samples));
    return true;
}

void PocketSphinxRecognizer::applySettings()
{
    const SpeechInputSettings settings;
    setThreshold(settings.threshold());
    if (!key_.grab(settings.listeningKey()))
        key_.ungrab();
    handsFree_ = settings.handsFree();
    updateMicrophone();
}

void PocketSphinxRecognizer::setHandsFree(bool on)
{
    handsFree_ = on;
    updateMicrophone();
}

// Hands-free listening keeps the microphone open; otherwise it is open only while the key
// is down.
void PocketSphinxRecognizer::updateMicrophone()
{
    const bool wanted = listening_ || (handsFree_ && enabled());
    if (wanted && !microphone_.isRunning())
        microphone_.start();
    else if (!wanted)
        microphone_.stop();
}

void PocketSphinxRecognizer::onKeyPressed()
{
    if (!enabled())
        return;
    try {
        startListening();
    } catch (const platform::RuntimeError& error) {
        emit listeningFailed(error.Number, error.Source, error.Description);
    }
}

void PocketSphinxRecognizer::startListening()
{
    if (listening_)
        return;
    heard_.clear();
    if (!microphone_.isRunning()) {
        switch (microphone_.start()) {
        case MicrophoneInput::Start::Started:
            break;
        case MicrophoneInput::Start::NoMicrophone:
            shownTip().showNoMicrophone();
            return;
        case MicrophoneInput::Start::Busy:
            throw platform::RuntimeError(platform::errors::SoundSystemBusy, platform::AgentSource,
                                         QStringLiteral("The sound system is in use by another "
                                                        "application."));
        }
    }
    listening_ = true;
    shownTip().showListening();
}

void PocketSphinxRecognizer::stopListening()
{
    if (!listening_)
        return;
    listening_ = false;
    updateMicrophone();
    ++resultsForTip_;
    recognizeSamples(std::move(heard_));
    heard_.clear();
}

void PocketSphinxRecognizer::feedAudio(std::span<const std::int16_t> samples)
{
    if (listening_) {
        heard_.insert(heard_.end(), samples.begin(), samples.end());
        return;
    }
    if (!handsFree_ || !enabled())
        return;
    for (auto& utterance : voiceActivity_.feed(samples))
        recognizeSamples(std::move(utterance));
}

ListeningTip& PocketSphinxRecognizer::shownTip()
{
    if (!tip_)
        tip_ = std::make_unique<ListeningTip>();
    return *tip_;
}

void PocketSphinxRecognizer::onRecognized(const Utterance& utterance)
{
    const bool accepted = !utterance.name.isEmpty() && enabled();
    if (resultsForTip_ > 0) {
        --resultsForTip_;
        shownTip().showHeard(accepted ? utterance.words : QString());
    } else if (accepted && handsFree_) {
        shownTip().showHeard(utterance.words);
    }
    emit utteranceHeard(utterance.words, accepted ? utterance.name : QString(),
                        utterance.confidence);
    if (accepted)
        emit commandRecognized(utterance.name);
}

} // namespace agent::listen
