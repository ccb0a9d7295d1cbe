#pragma once

#include <QHash>
#include <QString>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <vector>

struct ps_decoder_s;

namespace agent::listen
{

// What one utterance decoded to.
struct Decoding {
    QString hypothesis; // the words of the grammar, lower case; empty when nothing matched
    // Grammar score minus phone-loop score, per frame: how much better the best phrase
    // explains the audio than free phones do.
    double confidence = 0;
    // The same gap for the word that fits worst, per frame of that word.
    double weakestWord = std::numeric_limits<double>::max();
};

// PocketSphinx with the US English model and two searches over the same audio: the command
// grammar and a free phone loop. Not thread-safe: one thread owns it.
class SphinxDecoder
{
public:
    // Loads the acoustic model; isLoaded() tells whether that worked.
    SphinxDecoder();
    ~SphinxDecoder();
    SphinxDecoder(const SphinxDecoder&) = delete;
    SphinxDecoder& operator=(const SphinxDecoder&) = delete;

    bool isLoaded() const { return decoder_ != nullptr; }

    // pronunciations maps each word of the grammar to CMU phones ("Y EH S"). An empty grammar
    // text means nothing can be recognised. Returns false when PocketSphinx refuses it.
    bool setGrammar(const QString& jsgf, const QHash<QString, QString>& pronunciations);

    // 16 kHz mono 16-bit samples of one utterance.
    Decoding decode(std::span<const std::int16_t> samples);

    static QString modelFolder();

private:
    bool setUpPhoneLoop();
    struct Segment {
        bool isWord = false;
        int start = 0;
        int end = 0;
        std::int32_t acousticScore = 0;
    };
    std::vector<Segment> bestPath();
    static double loopScoreWithin(const std::vector<Segment>& loop, int start, int end);
    std::int32_t decodeWith(const char* search, std::span<const std::int16_t> samples,
                            QString* hypothesis);

    ps_decoder_s* decoder_ = nullptr;
    bool hasGrammar_ = false;
    QHash<QString, QString> knownWords_;
};

} // namespace agent::listen
