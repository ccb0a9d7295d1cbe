#include "agent/listen/RecognitionWorker.h"

#include "agent/listen/Pronouncer.h"
#include "agent/listen/SphinxDecoder.h"

#include <QDir>
#include <QLoggingCategory>

namespace agent::listen
{

namespace
{
Q_LOGGING_CATEGORY(lcListen, "agent.listen", QtWarningMsg)

// How much further than the whole utterance one word may fall behind the phone loop. Right
// words of badly synthesised commands came down to about -45, a wrong word in an otherwise
// right phrase ("what is the date" heard for "what is the time") to about -60.
constexpr double WordFloorBelowThreshold = 33;
} // namespace

RecognitionWorker::RecognitionWorker(QString modelFolder) : modelFolder_(std::move(modelFolder)) {}

RecognitionWorker::~RecognitionWorker() = default;

void RecognitionWorker::load()
{
    decoder_ = std::make_unique<SphinxDecoder>(modelFolder_);
    if (!decoder_->isLoaded()) {
        decoder_.reset();
        emit loadFailed(
            QStringLiteral("Speech input is not available: the speech recognition model in "
                           "\"%1\" could not be loaded.")
                .arg(QDir::toNativeSeparators(modelFolder_)));
        return;
    }
    pronouncer_ =
        std::make_unique<Pronouncer>(modelFolder_ + QStringLiteral("/cmudict-en-us.dict"));
    if (pendingPhrases_)
        applyPhrases(*std::exchange(pendingPhrases_, std::nullopt));
}

void RecognitionWorker::setPhrases(const std::vector<VoicePhrase>& phrases)
{
    if (decoder_ && !decoder_->inUtterance())
        applyPhrases(phrases);
    else
        pendingPhrases_ = phrases;
}

void RecognitionWorker::applyPhrases(const std::vector<VoicePhrase>& phrases)
{
    grammar_ = VoiceGrammar(phrases);
    const auto pronunciations = pronouncer_->pronounce(grammar_.words());
    grammar_.keepPronounceable(pronunciations);
    decoder_->setGrammar(grammar_.jsgf(), pronunciations);
    warnOnce(grammar_.rejected());
}

// Said once per text, not at every rebuild of the list.
void RecognitionWorker::warnOnce(const QStringList& voices)
{
    for (const QString& voice : voices) {
        if (warned_.contains(voice))
            continue;
        warned_.insert(voice);
        qCWarning(lcListen, "the voice text \"%s\" cannot be listened for", qUtf8Printable(voice));
    }
}

void RecognitionWorker::startUtterance()
{
    if (decoder_)
        decoder_->startUtterance();
}

void RecognitionWorker::addAudio(const std::vector<std::int16_t>& samples)
{
    if (decoder_)
        decoder_->addAudio(samples);
}

void RecognitionWorker::finishUtterance()
{
    Utterance result;
    if (decoder_) {
        const Decoding decoding = decoder_->finishUtterance();
        result.words = decoding.hypothesis;
        result.confidence = decoding.confidence;
        if (!decoding.hypothesis.isEmpty() && decoding.confidence >= threshold_ &&
            decoding.weakestWord >= threshold_ - WordFloorBelowThreshold)
            result.name = grammar_.nameFor(decoding.hypothesis);
        if (pendingPhrases_)
            applyPhrases(*std::exchange(pendingPhrases_, std::nullopt));
    }
    emit recognized(result);
}

} // namespace agent::listen
