#include "agent/listen/PocketSphinxRecognizer.h"

#include "agent/EngineSettings.h"
#include "agent/listen/ListeningTip.h"
#include "agent/listen/SpeechInputSettings.h"
#include "agent/listen/SpeechPage.h"
#include "agent/listen/SphinxDecoder.h"
#include "agent/listen/WavFile.h"
#include "platform/RuntimeError.h"

namespace agent::listen
{

namespace
{
// A sound server's usual period: how the microphone's audio reaches the recogniser.
constexpr std::size_t SamplesPerPiece = 1024;
} // namespace

PocketSphinxRecognizer::PocketSphinxRecognizer(QObject* parent)
    : PocketSphinxRecognizer(SphinxDecoder::modelFolder(), parent)
{
}

PocketSphinxRecognizer::PocketSphinxRecognizer(const QString& modelFolder, QObject* parent)
    : SpeechRecognizer(parent), worker_(new RecognitionWorker(modelFolder)),
      installed_(SphinxDecoder::modelPresent(modelFolder)),
      threshold_(SpeechInputSettings().threshold())
{
    qRegisterMetaType<agent::listen::Utterance>();
    worker_->moveToThread(&thread_);
    connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
    connect(worker_, &RecognitionWorker::recognized, this, &PocketSphinxRecognizer::onRecognized,
            Qt::QueuedConnection);
    connect(worker_, &RecognitionWorker::loadFailed, this, &PocketSphinxRecognizer::onLoadFailed,
            Qt::QueuedConnection);
    thread_.setObjectName(QStringLiteral("speech input"));
    thread_.start();
    QMetaObject::invokeMethod(
        worker_, [worker = worker_, threshold = threshold_] { worker->setThreshold(threshold); });
    // Without the model's files speech input is simply not installed: nothing to report.
    if (installed_)
        QMetaObject::invokeMethod(worker_, &RecognitionWorker::load);
    connect(&key_, &PushToTalkKey::pressed, this, &PocketSphinxRecognizer::onKeyPressed);
    connect(&key_, &PushToTalkKey::released, this, &PocketSphinxRecognizer::stopListening);
    connect(&EngineSettings::shared(), &EngineSettings::changed, this, [this](const QString& key) {
        if (key.isEmpty() || key.startsWith(SpeechInputSettings::Group))
            applySettings();
    });
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
    return installed_;
}

void PocketSphinxRecognizer::onLoadFailed(const QString& description)
{
    installed_ = false;
    emit listeningFailed(platform::errors::SpeechInputError, platform::AgentSource, description);
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
    return new SpeechPage;
}

void PocketSphinxRecognizer::setThreshold(double threshold)
{
    threshold_ = threshold;
    QMetaObject::invokeMethod(worker_,
                              [worker = worker_, threshold] { worker->setThreshold(threshold); });
}

void PocketSphinxRecognizer::recognizeSamples(std::span<const std::int16_t> samples)
{
    beginUtterance();
    for (std::size_t at = 0; at < samples.size(); at += SamplesPerPiece)
        addAudio(samples.subspan(at, std::min(SamplesPerPiece, samples.size() - at)));
    endUtterance();
}

void PocketSphinxRecognizer::beginUtterance()
{
    QMetaObject::invokeMethod(worker_, &RecognitionWorker::startUtterance);
}

void PocketSphinxRecognizer::addAudio(std::span<const std::int16_t> samples)
{
    QMetaObject::invokeMethod(worker_, [worker = worker_, samples = std::vector<std::int16_t>(
                                                              samples.begin(), samples.end())] {
        worker->addAudio(samples);
    });
}

void PocketSphinxRecognizer::endUtterance()
{
    QMetaObject::invokeMethod(worker_, &RecognitionWorker::finishUtterance);
}

bool PocketSphinxRecognizer::recognizeFile(const QString& wavPath)
{
    auto samples = readSpeechWav(wavPath);
    if (!samples)
        return false;
    recognizeSamples(*samples);
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
    // The key takes over from a hands-free utterance under way.
    voiceActivity_ = VoiceActivityDetector();
    handsFreeUtterance_ = false;
    listening_ = true;
    beginUtterance();
    shownTip().showListening();
}

void PocketSphinxRecognizer::stopListening()
{
    if (!listening_)
        return;
    // What the microphone still holds belongs to this utterance.
    microphone_.readAvailable();
    listening_ = false;
    updateMicrophone();
    ++resultsForTip_;
    endUtterance();
}

void PocketSphinxRecognizer::feedAudio(std::span<const std::int16_t> samples)
{
    if (listening_) {
        addAudio(samples);
        return;
    }
    if (!handsFree_ || !enabled())
        return;
    for (const VoiceActivityDetector::Piece& piece : voiceActivity_.feed(samples)) {
        if (!handsFreeUtterance_)
            beginUtterance();
        addAudio(piece.samples);
        handsFreeUtterance_ = !piece.ends;
        if (piece.ends)
            endUtterance();
    }
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
