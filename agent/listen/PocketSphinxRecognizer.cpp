#include "agent/listen/PocketSphinxRecognizer.h"

#include "agent/listen/SpeechInputSettings.h"
#include "agent/listen/WavFile.h"

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
}

PocketSphinxRecognizer::~PocketSphinxRecognizer()
{
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

void PocketSphinxRecognizer::onRecognized(const Utterance& utterance)
{
    const bool accepted = !utterance.name.isEmpty() && enabled();
    emit utteranceHeard(utterance.words, accepted ? utterance.name : QString(),
                        utterance.confidence);
    if (accepted)
        emit commandRecognized(utterance.name);
}

} // namespace agent::listen
