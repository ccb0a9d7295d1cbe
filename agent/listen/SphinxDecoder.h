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
// grammar and a free phone loop. Each search has a decoder of its own, so that both follow
// the audio as it arrives. Not thread-safe: one thread owns it.
class SphinxDecoder
{
public:
    // Loads the acoustic model from a folder laid out as modelFolder(); isLoaded() tells
    // whether that worked.
    explicit SphinxDecoder(const QString& modelFolder);
    ~SphinxDecoder();
    SphinxDecoder(const SphinxDecoder&) = delete;
    SphinxDecoder& operator=(const SphinxDecoder&) = delete;

    bool isLoaded() const { return grammar_ && loop_; }

    // pronunciations maps each word of the grammar to CMU phones ("Y EH S"). An empty grammar
    // text means nothing can be recognised. Returns false when PocketSphinx refuses it.
    // Not during an utterance.
    bool setGrammar(const QString& jsgf, const QHash<QString, QString>& pronunciations);

    // One utterance of 16 kHz mono 16-bit samples, in pieces as they arrive. A new start
    // drops an unfinished utterance.
    void startUtterance();
    void addAudio(std::span<const std::int16_t> samples);
    Decoding finishUtterance();
    bool inUtterance() const { return inUtterance_; }

    // Where Debian installs the US English model.
    static QString modelFolder();
    // Whether the model's files are there and readable, without loading them.
    static bool modelPresent(const QString& modelFolder);

private:
    struct Free {
        void operator()(ps_decoder_s* decoder) const;
    };
    using Decoder = std::unique_ptr<ps_decoder_s, Free>;
    struct Segment {
        bool isWord = false;
        int start = 0;
        int end = 0;
        std::int32_t acousticScore = 0;
    };
    static ps_decoder_s* initDecoder(const char* hmm);
    static bool loadsInChild(const char* hmm);
    bool setUpPhoneLoop();
    static std::vector<Segment> bestPath(ps_decoder_s* decoder);
    static double loopScoreWithin(const std::vector<Segment>& loop, int start, int end);

    Decoder grammar_;
    Decoder loop_;
    bool hasGrammar_ = false;
    bool inUtterance_ = false;
    bool heardAudio_ = false;
    QHash<QString, QString> knownWords_;
};

} // namespace agent::listen
