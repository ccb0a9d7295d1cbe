#include "agent/listen/RecognitionWorker.h"

#include "agent/listen/Pronouncer.h"
#include "agent/listen/SphinxDecoder.h"

#include <cstdio>

namespace agent::listen
{

namespace
{
// How much further than the whole utterance one word may fall behind the phone loop. Right
// words of badly synthesised commands came down to about -45, a wrong word in an otherwise
// right phrase ("what is the date" heard for "what is the time") to about -60.
constexpr double WordFloorBelowThreshold = 33;
} // namespace

RecognitionWorker::RecognitionWorker() = default;
RecognitionWorker::~RecognitionWorker() = default;

bool RecognitionWorker::load()
{
    decoder_ = std::make_unique<SphinxDecoder>();
    if (!decoder_->isLoaded()) {
        decoder_.reset();
        return false;
    }
    pronouncer_ = std::make_unique<Pronouncer>(SphinxDecoder::modelFolder() +
                                               QStringLiteral("/cmudict-en-us.dict"));
    return true;
}

void RecognitionWorker::setPhrases(const std::vector<VoicePhrase>& phrases)
{
    grammar_ = VoiceGrammar(phrases);
    if (decoder_) {
        const auto pronunciations = pronouncer_->pronounce(grammar_.words());
        grammar_.keepPronounceable(pronunciations);
        decoder_->setGrammar(grammar_.jsgf(), pronunciations);
    }
    warnOnce(grammar_.rejected());
}

// Said once per text, not at every rebuild of the list.
void RecognitionWorker::warnOnce(const QStringList& voices)
{
    for (const QString& voice : voices) {
        if (warned_.contains(voice))
            continue;
        warned_.insert(voice);
        std::fprintf(stderr, "Speech input: the voice text \"%s\" cannot be listened for\n",
                     voice.toLocal8Bit().constData());
    }
}

void RecognitionWorker::recognize(const std::vector<std::int16_t>& samples)
{
    Utterance result;
    if (decoder_) {
        const Decoding decoding = decoder_->decode(samples);
        result.words = decoding.hypothesis;
        result.confidence = decoding.confidence;
        if (!decoding.hypothesis.isEmpty() && decoding.confidence >= threshold_ &&
            decoding.weakestWord >= threshold_ - WordFloorBelowThreshold)
            result.name = grammar_.nameFor(decoding.hypothesis);
    }
    emit recognized(result);
}

} // namespace agent::listen
